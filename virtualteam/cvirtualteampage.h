// The page of virtual teams: the tree, the search in it, and the pages that stand
// there while it loads, when it failed, and for who has no team.
#pragma once

#include "virtualteam/teamrecords.h"

#include <QWidget>

class CVirtualTeamTreeView;

class CVirtualTeamPage : public QWidget
{
    Q_OBJECT

public:
    // Loads nothing before it is first shown.
    explicit CVirtualTeamPage(QWidget *parent = nullptr);
    ~CVirtualTeamPage() override;

    CVirtualTeamTreeView *tree() const { return m_tree; }
    // Opens a team and shows its row, as soon as the list is there.
    void locateTeam(const QString &vtId);

signals:
    void signal_GetMembers(QString vtId, QString pgId);
    // The list as it is now, whenever it has changed: for who searches in it.
    void teamsKnown(const QList<CVirtualTeamSimpleInfo> &teams);

public slots:
    void slot_creatVirtualTeam();
    void slot_refreshVirtualTeam();
    void slot_getMyVirtualTeamFinish(bool ok, QList<CVirtualTeamSimpleInfo> teams);
    void slot_getVirtualTeamStructureFinish(bool ok, QString vtId, QString pgId,
                                            QList<CVirtualTeamSimpleInfo> groups,
                                            QList<CVirtualTeamMemberInfo> members);
    void slot_refreshVirtualTeamById(const QString &vtId);
    void slot_expendVirtualTeam(QString vtId);
    void slot_searchTextChanged(const QString &text);
    void slot_getMembers(QString vtId, QString pgId);

private:
    CVirtualTeamTreeView *m_tree = nullptr;
};
