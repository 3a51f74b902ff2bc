// The tree of one team in which a member or a group is chosen. Asks for each level
// when it is opened.
#pragma once

#include "virtualteam/dialogs/teamchoices.h"
#include "virtualteam/dialogs/teamchoiceview.h"
#include "virtualteam/teamrecords.h"

#include <QSet>
#include <QStringList>

class CVirtualTeamTransAuthTreeView : public TeamChoiceView
{
    Q_OBJECT

public:
    CVirtualTeamTransAuthTreeView(const CVirtualTeamSimpleInfo &team, TeamChoices::Kind kind,
                                  QWidget *parent);

    TeamTreeModel *teams() const { return m_teams; }

    // Who is to be moved: the group that all of them are in cannot be chosen, as soon as
    // its level tells so. `group`: where to look for them first; empty: nowhere.
    void setMoving(const QStringList &userIds, const QString &group);

    // Asks anew for the levels that are open; what is shown stays meanwhile.
    void reload();

    CVirtualTeamMemberInfo chosenMember() const; // without an id: none
    QString chosenGroup() const;                 // "0" is the team; empty: none
    QString chosenName() const;

signals:
    // A double click on a row that can be chosen and holds nothing.
    void confirmed();
    // The service does not know the team, or not the user as one of its members.
    void teamGone();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    void connectRows();
    void connectHub();
    QModelIndex rowOf(const QString &groupId) const;
    bool isOnCaret(const QModelIndex &index, const QPoint &position) const;
    void clickedRow(const QModelIndex &index);
    void opened(const QModelIndex &index);
    void request(const QString &groupId);
    template <class Answer> void ask(const QString &groupId, Answer answer);
    void arrived(const QString &groupId, const QList<CVirtualTeamSimpleInfo> &groups,
                 const QList<CVirtualTeamMemberInfo> &members);
    void failed(const QString &groupId, int code);
    void learnPlace(const QString &groupId, const QList<CVirtualTeamMemberInfo> &members);

    TeamTreeModel *m_teams;
    TeamChoices *m_choices;
    const QString m_vtId;
    QSet<QString> m_asked; // groups whose level is on its way
    QSet<QString> m_moving;
    bool m_pressTaken = false;
};
