// The window about one person outside the company: asks the person to become a
// contact, or answers the person's own request, and tells how it went.
// AddExternalFrdManager makes it and feeds it the answers.
#pragma once

#include "ExternalFriend/tiplabel.h"
#include "common/httpresponsedata.h"
#include "controls/basedialog.h"
#include "hostapi/rosterrecords.h"
#include "hostapi/skinrecord.h"

#include <optional>

class ExternalButtons;
class ExternalPersonHeader;
class ExternalValidation;
class QTimer;
class SkinButton;

// It may be closed, and so deleted later, inside any request that it makes.
class AddExternalFriend : public BaseDialog
{
    Q_OBJECT

public:
    static constexpr int Patience = 10000; // ms that the buttons wait for an answer

    explicit AddExternalFriend(const QString &jid, QWidget *parent = nullptr);

    QString jid() const { return m_jid; }

    // What a search or a notice tells of the person; counts until the profile is there.
    void setPerson(const SearchFriendResultData &person);
    // The person asks the user, with a text that may be empty.
    void asked(const QString &statusText);
    // A request of the user's is on its way since before the window was opened.
    void setRequested();
    // The host's answer, also to what was asked in an earlier window; see
    // ExternalRequest for action and code.
    void answered(bool ok, int code, int action);

signals:
    void signal_openChatDlg(const QString &jid);
    void signal_sendEmail(const QString &jid);
    // The host's answers to a request, and to a confirmation (action 1) or a blacklisting
    // (action 2).
    void signal_addOutsideFriend(const QString &jid, bool ok, int code);
    void signal_confirmOutsideFriend(const QString &jid, int action, bool ok, int code);
    // Something was asked of the host; the answer may come after the window is closed.
    void requestSent(const QString &jid);
    // Closed, however that happened.
    void signal_closed(const QString &jid);

public slots:
    void slot_close();
    void slot_min();
    void slot_sendReq();
    void slot_confirmReq();
    void slot_addBlackList();
    void slot_sendMail();
    void slot_opendialog(); // of the chat
    void slot_SkinChange(const SysUIData &skindata);
    void slot_downSelfPic(const HttpResponseData &response);
    void slot_addOutsideFriend(const QString &jid, bool ok, int code);
    void slot_confirmOutsideFriend(const QString &jid, int action, bool ok, int code);
    void slot_ValidationChanged();

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    enum State
    {
        Asking, // what to write to the person
        Asked,  // by the person
        Sent,   // and not answered by the person yet
        Added,  // a contact
        Blocked // by the user
    };
    // What the line of the state tells; text null: nothing.
    struct Said
    {
        const char *text = nullptr;
        bool isKey = false; // of a translation
        TipLabel::Tone tone = TipLabel::Information;
    };
    void buildBody();
    void connectHub();
    void showPerson();
    bool isContact() const;
    void becomeContact();
    void enter(State state);
    void say(const Said &said);
    void showState();
    void takeFocus();
    bool mayRequest(State from); // told why not, if the user can do something about it
    void begin(int action);
    void settle();
    void failed(int action, int code);

    const QString m_jid;
    SearchFriendResultData m_person; // until the profile is known
    VcardInfo m_profile;
    QString m_request; // the person's text
    QString m_pictureName;
    State m_state = Asking;
    bool m_isClosed = false;
    std::optional<int> m_pending; // the action whose answer is due
    QTimer *m_wait;               // "waitTimer"
    Said m_said;

    ExternalPersonHeader *m_header;
    ExternalValidation *m_validation;
    TipLabel *m_tip;
    ExternalButtons *m_buttons;
    SkinButton *m_minimize;
};
