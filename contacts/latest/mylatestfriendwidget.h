// The page of latest contacts: whom the user exchanged messages with, the newest
// first, pinned ones before all. Kept current by the hub from the moment it is
// made, and the same after a restart.
#pragma once

#include "hostapi/hostrecords.h"
#include "plugin/sharedrecords.h"

#include <QDateTime>
#include <QMap>
#include <QWidget>

#include <functional>

class DayWatch;
class LatestList;
class LatestModel;
class LatestView;
class QStackedLayout;
class StatePage;

class MyLatestFriendWidget : public QWidget
{
    Q_OBJECT

public:
    explicit MyLatestFriendWidget(QWidget *parent = nullptr);
    ~MyLatestFriendWidget() override;

    LatestModel *model() const;
    LatestView *view() const { return m_view; }

    // Makes of a message the record of its conversation: jid, display name, icon,
    // last content, time. Without a jid the message belongs to none.
    void getDBFriendData(bool bRecv, const MessageData &message, DBFriendData &record) const;

    // While clear, changes are kept and stored, but no row shows them; setting it
    // brings the rows up to date.
    void setDisplay(bool display);
    bool isDisplayed() const;

    // What takes the place of the system's clock, in tests.
    void setClock(const std::function<QDateTime()> &clock);

public slots:
    void slot_setLatestFriendUi(bool bRecv, MessageData message);
    void slot_updateLatestContact(QString &strContactJid, QString &strLastContent,
                                  QString &strLastTime);
    void slot_removeLatest(QString jid);
    void slot_clearLatest();
    void slot_updateRoomSubject(QString roomjid, QString roomsubject, QString strModifier);
    void slot_updateRoomHeadImage(QString strRootJid, QString strHeadPath);
    void slot_addMucItem(MucData room, bool bAdd);
    void slot_delFriend(QString friendJid);
    void slot_updateFriend(QString friendJid, VcardInfo v_info);
    void slot_updateFriendRemarkName(QString strJid, QString strName);
    void slot_updateFriendPresence(QMap<QString, PresenceData> presencDataMap);
    void slot_doAllOffline();
    void slot_notifyCooperate(QMap<QString, bool> mapCooperateRelation);
    void slot_notifyDownloadServiceIconResult(QString strServiceCode, QString strIconPath);
    void slot_notifyUpdateChannelHead(QString strChannelId, QString strIconPath);
    void slot_login();
    // The list's scroll bar stands at nValue: at its end the next page is loaded.
    void slot_ScrollToBottom(int nValue);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void connectHub();
    void connectRooms();
    void updateContacts(const QList<FriendData> &contacts);
    void clearContent(const QString &jid);
    // Both leave who is not listed alone.
    void rename(const QString &jid, const QString &name);
    void setIcon(const QString &jid, const QString &file);
    void showState();
    void tellNotStored();

    LatestList *m_list;
    LatestView *m_view;
    DayWatch *m_dayWatch;
    QStackedLayout *m_pages;
    StatePage *m_emptyPage;
    bool m_rowsComing = false; // of another page
    bool m_notStoredTold = false;
};
