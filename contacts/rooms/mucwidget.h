// The page of group chats: two tabs, address book and local, over the list of one
// of them, or over an explanation while it has none.
#pragma once

#include "hostapi/roomrecords.h"

#include <QWidget>

class MucEmptyPage;
class MucListView;
class QBoxLayout;
class QPushButton;
class QStackedWidget;

class MucWidget : public QWidget
{
    Q_OBJECT

public:
    explicit MucWidget(QWidget *parent = nullptr);

    // Shows the tab of a room, selects the room and scrolls to it; false when there is
    // no such room.
    bool locateRoom(const QString &jid);

public slots:
    void slot_addMucItem(MucData data,
                         bool add); // whatever `add`: removals have events of their own
    void slot_roomIsNull();
    void slot_updateFrequentlyRoomSize();
    void slot_addressBookMucClicked();
    void slot_localMucClicked();
    void slot_shakeRoom(QString roomJid);
    void slot_roomSubjectChanged(QString roomjid, QString subject);
    void slot_setForbiddenIcon(QString roomJid, bool isforbidden);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void connectHub();
    void addRoom(const MucData &room);
    void messageArrived(bool received, const MessageData &message);
    void createRoom();
    void showPage(bool addressBook);
    void labelTabs();
    void arrangeTabs();

    QPushButton *m_addressBookTab;
    QPushButton *m_localTab;
    QBoxLayout *m_tabs;
    QStackedWidget *m_pages;
    MucListView *m_list;
    MucEmptyPage *m_emptyPage;
};
