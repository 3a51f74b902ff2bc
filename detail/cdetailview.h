// The card of a contact: a window around the card's content that takes the host's
// answers and says what the user wants.
#pragma once

#include "controls/basedialog.h"
#include "hostapi/hostrecords.h"

#include <QMap>

class CardBody;

class CDetailView : public BaseDialog
{
    Q_OBJECT

public:
    explicit CDetailView(const QString &jid, QWidget *parent = nullptr);

    QString jid() const;
    CardBody *body() const { return m_body; }

    // Takes what the user may do from the host's rights.
    void setRights();

    // Asks the host for the profile. The overlay shows until the answer, which may
    // come before this returns.
    void createData();
    // Fills the widgets from the profile that came last.
    void setInfoOfWidget();
    void dealWatermark();

public slots:
    void slot_closeDlg();
    // Shows the window, which comes up from transparent.
    void slot_showOpacity();
    void slot_showTopicWidget();
    void slot_orgPosition();
    void slot_sendMail();
    void slot_opendialog();
    void slot_reloadVcard();
    void slot_setFriendName();
    void slot_SkinChange(SysUIData skindata);
    void slot_setBtn(bool connected);
    void slot_EmployeeInfo(const QString &jid, const VcardInfo &info);
    void slot_replacepic(const QString &jid, const QString &path);
    void slot_getVcardFail(const QString &jid);
    void slot_GetVcardSuccessNoChange(const QString &username);
    void slot_notifyCooperate(const QMap<QString, bool> &mapCooperateRelation);

signals:
    void signal_ColseDetailDlg(const QString &jid); // once, however the window is closed
    void signal_showTopicWidget(QString jid);
    void signal_showDetailWidget(QString jid);
    void signal_showPhoto(QString jid);
    void signal_orgPosition(QString jid);
    void signal_sendMail(QString jid);
    void signal_opendialog(QString jid);
    void signal_reloadVcard(QString jid);
    // A floating card has to make way for this window.
    void signal_ColseSignDlg();

private:
    VcardInfo m_info;
    CardBody *m_body;
    bool m_watermark = false;
};
