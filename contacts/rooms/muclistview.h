// The list of group chats of one page: follows what the host tells of rooms, and
// offers by menu and keys what can be done with one.
#pragma once

#include "contacts/rooms/mucmodel.h"
#include "controls/rowview.h"
#include "hostapi/roomrecords.h"

#include <QSet>
#include <QTimer>

class MucMenu;
class QAction;
class RoomCommands;

class MucListView : public RowView
{
    Q_OBJECT

public:
    explicit MucListView(QWidget *parent = nullptr);
    ~MucListView() override;

    MucModel *rooms() const { return m_rooms; }

    // Does nothing for a room that is listed, or has no jid.
    void addMuc(const MucData &room);
    // What was selected on a page is selected again when it is shown again.
    void setPage(MucModel::Page page);
    // False when there is no such room on the page.
    bool select(const QString &jid);

    // Plays once; a room that shakes already, and an unknown one, are left alone.
    void shakeRoom(const QString &jid);
    bool isShaking(const QString &jid) const { return m_shaking.contains(jid); }
    void stopShake(const QString &jid);

signals:
    // A press of the left button, also where there is no row.
    void signal_click(QModelIndex index);
    // How many rooms there are has changed. At most twice in a turn of the event
    // loop: for the first change at once, and at the end for all others.
    void signal_updateFrequentlyRoomSize();

public slots:
    void slot_openMucDialog(QModelIndex index);
    void slot_clicked(QModelIndex index);
    void slot_showMenu(QPoint pos); // in the viewport
    void slot_shakeTimeOut();
    void slot_roomSubjectChanged(QString roomJid, QString roomSubject, QString strModifier);
    void slot_roomHeadChanged(const QString &strRoomJid, const QString &strHeadPath);
    void slot_updateRoomMembers(QString member, QString roomJid);
    void slot_setForbiddenIcon(QString roomJid, bool isForbidden);
    void slot_mucClassifyChanged(const QString &strRoomJid, MucData::MucClassify iClassify);
    void slot_localMucAdded(const QString &strRoomJid, const QString &strSource);
    void slot_removeRoom(QString roomJid);
    void slot_handleMucMenu(QAction *action);
    void slot_handleMucSetMenu(QAction *action);
    void slot_setMucMsgConfigFinish(bool ok, const QString &roomJid, const QString &key,
                                    const bool &notHint);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void createMenu();
    void connectHub();
    void login();
    void countChanged();
    QString currentRoom() const; // empty: none
    bool knows(const QString &jid) const;

    MucModel *m_rooms;
    RoomCommands *m_commands;
    MucMenu *m_menu = nullptr;
    QString m_menuRoom;           // the room that the menu is about
    QSet<QString> m_settingRooms; // whose setting is on its way
    QSet<QString> m_shaking;
    int m_phase = 0;
    QTimer m_shakeTimer;
    QString m_user;           // whose rooms these are
    QString m_selected[2];    // by page
    bool m_countTold = false; // in this turn of the event loop
    bool m_countDue = false;
};
