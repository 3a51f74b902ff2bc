// The window that adds one person as a contact: asks how the person takes requests,
// lets the user choose group and remark and introduce himself, sends the request and
// tells the answer. CAddFriendMannger makes it and feeds it the answers.
#pragma once

#include "controls/basedialog.h"
#include "hostapi/rosterrecords.h"

class AddFriendForm;
class AddFriendHeader;
class AddFriendOutcome;
class QStackedWidget;
class QTimer;
class StatePage;

// It may be closed, and so deleted later, inside any request that it makes.
class AddFriend : public BaseDialog
{
    Q_OBJECT

public:
    explicit AddFriend(const QString &jid, QWidget *parent = nullptr);

    QString jid() const { return m_jid; }

    // Shows that the policy is being asked for, and asks.
    void askPolicy();
    // The host's answer, or its own initiative. `displayName` serves until the
    // profile is known; `groupName` is preselected when there is such a group.
    // Ignored once the wait is over and a request has been sent or given up.
    void policyReceived(const QString &config, const QString &groupName,
                        const QString &displayName);
    // By id; an unknown one changes nothing.
    void chooseGroup(const QString &groupId);

    // Whether an answer is due, to the question for the policy or to the request.
    bool isWaiting() const { return m_state == State::Waiting || m_state == State::Sent; }
    // The person has become a contact, whether asked from here or not.
    void added();

signals:
    // Closed, however that happened.
    void signal_closeaddfrd(const QString &jid);
    // A request was sent from here; the answer may come after the window is closed.
    void requestSent(const QString &jid);

public slots:
    void slot_updatedialog(const QString &jid, const VcardInfo &info);
    void slot_upDatePhoto(const QString &jid, const QString &photoPath);
    void slot_ValidationChanged();
    void slot_next();          // confirms the form
    void slot_addFriend();     // sends the request
    void slot_addFriendFail(); // the request was refused or has failed
    void slot_chat();          // sends the request and opens a chat
    void slot_newgroup();
    void slot_waitTimeOut();
    void opratePage(); // the button of the result page that leads on
    // The request mode and the person's policy, as in AddFriendResult.
    void slot_setResult(int mode, int policy);

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    enum class State
    {
        Waiting, // for the policy
        Filling, // of the form
        Sent,    // the request, without an answer yet
        Added,
        Refused, // the person takes no requests
        Failed   // can be tried again
    };
    void buildPages();
    void connectHub();
    void showPerson();
    void showState();
    void showForm();
    void showOutcome(const QString &icon, const QString &text, const QString &status);
    void enter(State state);
    void takeFocus();
    bool isOfflineTold();
    bool mayRequest() const;
    void refreshGroups();
    void groupAnswered(const GroupData &group, bool success);
    QString personName(int width) const;

    const QString m_jid;
    VcardInfo m_profile;
    QString m_givenName; // by the host, until the profile is known
    State m_state = State::Waiting;
    int m_mode = 0;
    int m_configtype = 0;         // the person's policy
    bool m_needValidation = true; // whether the form asks for a text
    bool m_noAnswer = false;      // Failed, because no policy came
    bool m_isRequested = false;   // since the policy was asked for
    bool m_chatWanted = false;    // as soon as the person is a contact
    bool m_isClosed = false;
    QString m_pendingGroup; // the name of the group that is being made
    QTimer *m_wait;

    AddFriendHeader *m_header;
    QStackedWidget *m_pages;
    StatePage *m_waiting;
    AddFriendForm *m_form;
    AddFriendOutcome *m_outcome;
};
