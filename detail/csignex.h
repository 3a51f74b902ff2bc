// The floating card beside a row: the same content as the window of a contact's card,
// in a frame that comes and goes with the pointer and never takes the focus.
#pragma once

#include "hostapi/hostrecords.h"

#include <QMap>
#include <QWidget>

class CardBody;

class CSignEx : public QWidget
{
    Q_OBJECT

public:
    explicit CSignEx(QWidget *parent = nullptr);

    QString jid() const;
    CardBody *body() const { return m_body; }

    // Shows what the host knows of the person, and what the user may do.
    void setJid(const QString &jid);
    // Asks the host for the profile, whose answer may come before this returns. Quietly:
    // nothing tells of it, for what is shown is good enough.
    void createData(bool quietly);
    void dealWatermark();

public slots:
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
    void signal_showTopicWidget(QString jid);
    void signal_showDetailWidget(QString jid);
    void signal_showPhoto(QString jid);
    void signal_orgPosition(QString jid);
    void signal_sendMail(QString jid);
    void signal_opendialog(QString jid);
    void signal_reloadVcard(QString jid);
    void signal_enter();
    void signal_leave();
    void sizeChanged();

protected:
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    bool copySelection();
    void clearSelections(const QObject *except);

    CardBody *m_body;
    bool m_watermark = false;
};
