// A window that shows what somebody asks for, a new team or that a company joins one,
// and takes the decision. It loads the detail, can be told to try again when that
// fails, and shows what was decided, here or elsewhere.
//
// A decision that runs when the window is closed goes on; after an agreement the hub's
// signal_refresh_virtualTeam follows in any case.
#pragma once

#include "controls/basedialog.h"
#include "virtualteam/teamrecords.h"

class CHttpVirtualTeamOperation;
class QStackedWidget;
class StatePage;
class TeamDecisionBody;

class TeamDecisionWindow : public BaseDialog
{
    Q_OBJECT

public:
    const QString &vtId() const { return m_vtId; }

protected:
    // The operation's signals that tell the detail and the end of a decision.
    using DetailSignal = void (CHttpVirtualTeamOperation::*)(bool, CVirtualTeamInfo);
    using DecisionSignal = void (CHttpVirtualTeamOperation::*)(bool, const QString &, bool, bool);

    // `personKey`: what who asks is called, as a translation key.
    TeamDecisionWindow(const QString &vtId, const char *personKey, DetailSignal detail,
                       DecisionSignal decision);

    void load(); // of a subclass's constructor, once

    virtual void requestDetail(CHttpVirtualTeamOperation *operation) = 0;
    virtual void sendDecision(CHttpVirtualTeamOperation *operation, bool agree) = 0;
    virtual void detailShown(const CVirtualTeamInfo &) {}

    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void retry();
    void followTeam();
    void request();
    void detailArrived(bool ok, int code, const CVirtualTeamInfo &info);
    void decide(bool agree);
    void decided(bool ok, bool agreed, int code);

    const QString m_vtId;
    const DetailSignal m_detailSignal;
    const DecisionSignal m_decisionSignal;
    CHttpVirtualTeamOperation *m_request = nullptr; // the newest one for the detail
    bool m_isShown = false;                         // some detail
    bool m_deciding = false;
    bool m_isOutdated = false; // the team has changed since it was asked for
    bool m_isClosed = false;

    QStackedWidget *m_pages;
    QWidget *m_loading;
    StatePage *m_failed;
    TeamDecisionBody *m_body;
};
