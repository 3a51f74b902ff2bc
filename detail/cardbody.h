// The content of a contact card: picture, name, signature, the rows of the profile
// and the buttons. Whatever window shows a card puts one of these into its frame.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QMap>
#include <QTimer>
#include <QWidget>

class DetailRows;
class ValueLabel;
class HeadButton;
class LoadingOverlay;
class NameEdit;
class QLabel;
class QPushButton;
class QStackedWidget;
class SkinButton;

// It shows one person at a time, and of what it is told only what concerns that
// person. It asks nobody: the window sends the requests and passes on the answers.
class CardBody : public QWidget
{
    Q_OBJECT

public:
    static constexpr int DefaultReplyTimeLimit = 10 * 1000; // milliseconds

    explicit CardBody(QWidget *parent = nullptr);

    // Shows what the host already knows of the person; an empty jid: nobody.
    void setJid(const QString &jid);
    const QString &jid() const { return m_jid; }
    QString picture() const; // the file shown; empty for none

    // The state of a request. While it runs the overlay shows; without an answer in
    // time it counts as failed. The time limit, in milliseconds, also holds for a
    // request that runs.
    void startWaiting();
    bool isWaiting() const { return m_patience.isActive(); }
    void setReplyTimeLimit(int milliseconds);

    // Answers and news, of anybody.
    void takeProfile(const QString &jid, const VcardInfo &profile);
    void takeUnchanged(const QString &userName); // a user name or a jid
    void takeFailure(const QString &jid);
    void takePicture(const QString &jid, const QString &file);
    void takeCooperation(const QMap<QString, bool> &flags); // of some jids
    void takeRemark(const QString &jid, const QString &remark);
    void takePresence(const QMap<QString, PresenceData> &presences); // of some jids

    // A button can be pressed when the user may do it and the host is connected.
    struct Buttons
    {
        bool topic = true;
        bool position = true;
        bool mail = true;
        bool chat = true;
    };
    void setAllowed(const Buttons &allowed);
    void setConnected(bool connected);

    void focusFirst(); // on what most people want
    void setWatermark(bool show);

signals:
    void pictureClicked();
    void topicClicked();
    void positionClicked();
    void mailClicked();
    void chatClicked();
    void remarkClicked();
    void reloadClicked();
    void leaderClicked(const QString &jid);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QWidget *makeHeader();
    QWidget *makeSignatureLine();
    QWidget *makeHeading();
    QWidget *makeButtons();
    void retranslate();
    void stopWaiting();
    void showFailure();
    void setInfo(const VcardInfo &profile, bool complete);
    void showNames();
    void showPresence(const PresenceData &presence);
    void showCooperation();
    void updateButtons();

    QString m_jid;
    VcardInfo m_profile;
    FriendData m_contact; // its jid is empty for who is no contact
    PresenceData m_presence;
    QMap<QString, bool> m_cooperation;
    Buttons m_allowed;
    bool m_connected = true;
    QTimer m_patience;

    QWidget *m_background; // carries the watermark
    HeadButton *m_head;
    NameEdit *m_name;
    QLabel *m_sex;
    QLabel *m_cooperateIcon;
    QLabel *m_outsideIcon;
    QLabel *m_admin;
    ValueLabel *m_account;
    QLabel *m_presenceText;
    SkinButton *m_topic;
    SkinButton *m_position;
    QStackedWidget *m_signatureStack;
    QWidget *m_signaturePage;
    ValueLabel *m_signature;
    QWidget *m_reloadPage;
    QPushButton *m_reload;
    QLabel *m_heading;
    ValueLabel *m_company;
    DetailRows *m_rows;
    LoadingOverlay *m_loading;
    SkinButton *m_sendMail;
    SkinButton *m_createDialog;
};
