// Chooses, in the tree of a team, the member who is to own it, or the sub-group that
// members are moved to; sends the request and closes after it. A failure leaves the
// dialog open, with the tree as it is by then; it closes when the team has gone.
#pragma once

#include "controls/basedialog.h"
#include "virtualteam/teamrecords.h"

#include <QHash>
#include <QStringList>

class CVirtualTeamTransAuthTreeView;
class DialogBar;
class QStackedLayout;
class SearchBox;
class TeamMemberSearch;

class VirtualTeamTransAuth : public BaseDialog
{
    Q_OBJECT

public:
    VirtualTeamTransAuth(const CVirtualTeamSimpleInfo &team, QWidget *parent); // "transAuth"
    // "moveTeamMembers". `group`: in which they may all be, and which is not offered
    // then; empty when nothing is known of it.
    VirtualTeamTransAuth(const CVirtualTeamSimpleInfo &team, const QStringList &members,
                         QWidget *parent, const QString &group = QString());

signals:
    void authorityGranted(const QString &vtId, const QString &userId);
    void membersMoved(const QString &vtId, const QString &groupId, const QStringList &userIds);

protected:
    void changeEvent(QEvent *event) override;

private:
    enum class Companies
    {
        NotAsked,
        Loading,
        Known
    };

    void build();
    void addSearch();
    void searchTextChanged(const QString &text);
    void updateChoice();

    CVirtualTeamMemberInfo chosenMember() const;
    void sure();
    void grantTo(const CVirtualTeamMemberInfo &member);
    void loadCompanies();
    void companiesArrived(bool ok, const QList<CVirtualTeamMemberInfo> &members);
    void sendGrant(const QString &userId);
    void sendMove(const QString &groupId);
    bool begin(); // false: nothing can be sent now
    void failed(const QString &text, int code);
    void leaveGoneTeam();

    const CVirtualTeamSimpleInfo m_team;
    const QStringList m_members; // to move; empty: the authority is handed over
    CVirtualTeamTransAuthTreeView *m_tree;
    DialogBar *m_bar;
    QStackedLayout *m_pages;
    SearchBox *m_search = nullptr; // both null in "moveTeamMembers"
    TeamMemberSearch *m_hits = nullptr;
    Companies m_companyState = Companies::NotAsked;
    QHash<QString, QString> m_companies; // codes, by user id
    bool m_grantWaits = false;           // for the companies
};
