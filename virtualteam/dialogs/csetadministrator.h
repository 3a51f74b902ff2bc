// Chooses a team's sub-administrators among its members, sends them all, and closes
// after it. A failure leaves the dialog open with what was ticked.
#pragma once

#include "controls/basedialog.h"
#include "virtualteam/teamrecords.h"

#include <QSet>
#include <QStringList>

class DialogBar;
class QStackedLayout;
class SearchBox;
class SetAdiministratorListView;
class StatePage;

class CSetAdministrator : public BaseDialog
{
    Q_OBJECT

public:
    CSetAdministrator(const CVirtualTeamSimpleInfo &team, QWidget *parent);

signals:
    // Who became a sub-administrator and who is none any more.
    void administratorsSet(const QString &vtId, const QStringList &added,
                           const QStringList &removed);

protected:
    void changeEvent(QEvent *event) override;

private:
    enum class State
    {
        Loading,
        Failed,
        Loaded
    };

    void build();
    void connectFilter();
    void load();
    void arrived(bool ok, int code, const QList<CVirtualTeamMemberInfo> &members);
    void showPage();
    void updateChoice();
    void sure();
    void finished(bool ok, int code, const QSet<QString> &before, const QStringList &chosen);

    const CVirtualTeamSimpleInfo m_team;
    SearchBox *m_filter;
    SetAdiministratorListView *m_list;
    StatePage *m_loading;
    StatePage *m_failed;
    StatePage *m_empty;   // there is nobody but the owner
    StatePage *m_nothing; // the filter finds nobody
    QStackedLayout *m_pages;
    DialogBar *m_bar;
    QSet<QString> m_before; // the sub-administrators as the service knows them
    State m_state = State::Loading;
};
