#include "contacts/rooms/muclistview.h"

#include "common/context.h"
#include "common/logging.h"
#include "contacts/rooms/muclistdelegate.h"
#include "contacts/rooms/mucmenu.h"
#include "contacts/rooms/mucroles.h"
#include "contacts/rooms/mucrules.h"
#include "contacts/rooms/roomcommands.h"
#include "controls/avatarstore.h"
#include "controls/pictures.h"
#include "controls/tipbox.h"
#include "http/httpmgr.h"
#include "plugin/frienduisignalsender.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

#include <utility>

namespace {
constexpr int ShakeIntervalMs = 210;

// A host that knows no picture by that name may have named the file itself.
QString headPathOf(const MucData &room)
{
    if (room.headImage.isEmpty())
        return QString();
    const QString known = ctx().headPath(room.headImage);
    return known.isEmpty() ? localPicture(room.headImage) : known;
}
} // namespace

MucListView::MucListView(QWidget *parent)
    : RowView(new MucModel, Qt::DisplayRole, parent),
      m_rooms(static_cast<MucModel *>(model())),
      m_commands(new RoomCommands(m_rooms, this))
{
    m_rooms->setParent(this);
    setObjectName(QStringLiteral("MucListView"));
    setItemDelegate(new MucListDelegate(this));
    setSelectionMode(SingleSelection);
    createMenu();
    m_shakeTimer.setInterval(ShakeIntervalMs);
    m_user = ctx().userId();

    connect(&m_shakeTimer, &QTimer::timeout, this, &MucListView::slot_shakeTimeOut);
    connect(this, &RowView::orderHeld, this, [this](bool held) { m_rooms->setOrderFrozen(held); });
    // Enter does what a double click does.
    connect(this, &RowView::activatedRow, this, &QAbstractItemView::doubleClicked);
    connect(this, &QAbstractItemView::doubleClicked, this, &MucListView::slot_openMucDialog);
    connect(this, &MucListView::signal_click, this, &MucListView::slot_clicked);
    connect(this, &QWidget::customContextMenuRequested, this, &MucListView::slot_showMenu);
    connect(HttpMgr::instance(), &HttpMgr::signal_setSessionMsgConfigDone, this,
            &MucListView::slot_setMucMsgConfigFinish);
    connectHub();
}

// The host may destroy the pane inside a request that an action has made; QMenu
// does not survive its own end while it tells of that action.
MucListView::~MucListView()
{
    m_menu->disconnect(this);
    m_menu->settings()->disconnect(this);
    m_menu->setParent(nullptr, m_menu->windowFlags());
    m_menu->deleteLater();
}

void MucListView::connectHub()
{
    using Hub = FriendUISignalSender;
    using View = MucListView;
    const Hub *hub = Hub::instance();
    connect(hub, &Hub::signal_roomSubjectChanged, this, &View::slot_roomSubjectChanged);
    connect(hub, &Hub::signal_mucChatHeadChanged, this, &View::slot_roomHeadChanged);
    connect(hub, &Hub::signal_updateRoomMembers, this, &View::slot_updateRoomMembers);
    connect(hub, &Hub::signal_setForbiddenIcon, this, &View::slot_setForbiddenIcon);
    connect(hub, &Hub::siganl_mucClassifyChanged, this, &View::slot_mucClassifyChanged);
    connect(hub, &Hub::signal_localMucAdded, this, &View::slot_localMucAdded);
    connect(hub, &Hub::signal_deleteMucRoon, this, &View::slot_removeRoom);
    connect(hub, &Hub::signal_removedRoom, this, &View::slot_removeRoom);
    connect(hub, &Hub::signal_paintDelegateMsgCount, this, &View::stopShake);
    connect(hub, &Hub::signal_updateLatestContact, this,
            [this](const QString &jid) { stopShake(jid); });
    connect(hub, &Hub::signal_login, this, &View::login);
}

// --- Rooms ---------------------------------------------------------------------

// The host delivers the rooms of whoever has logged in before or after it says so.
void MucListView::login()
{
    if (m_user == ctx().userId())
        return;
    m_user = ctx().userId();
    m_shaking.clear();
    m_shakeTimer.stop();
    m_settingRooms.clear();
    m_selected[MucModel::LocalPage].clear();
    m_selected[MucModel::AddressBookPage].clear();
    m_menu->close();
    m_rooms->removeAll();
    countChanged();
}

bool MucListView::knows(const QString &jid) const
{
    return m_rooms->find(jid);
}

void MucListView::addMuc(const MucData &room)
{
    login();
    if (m_rooms->add(room, headPathOf(room)))
        countChanged();
}

void MucListView::countChanged()
{
    if (std::exchange(m_countTold, true)) {
        m_countDue = true;
        return;
    }
    emit signal_updateFrequentlyRoomSize();
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_countTold = false;
            if (std::exchange(m_countDue, false))
                emit signal_updateFrequentlyRoomSize();
        },
        Qt::QueuedConnection);
}

void MucListView::slot_roomSubjectChanged(QString roomJid, QString roomSubject, QString)
{
    LOG_SCOPE("MucTreeView::slot_roomSubjectChanged(QString roomJid, QString roomSubject, QString "
              "strModifier)");
    m_rooms->setName(roomJid, roomSubject);
}

void MucListView::slot_roomHeadChanged(const QString &strRoomJid, const QString &strHeadPath)
{
    LOG_SCOPE("MucTreeView::slot_roomHeadChanged(const QString& strRoomJid, const QString& "
              "strHeadPath)");
    if (!knows(strRoomJid))
        return;
    const QString path = localPicture(strHeadPath);
    // The picture may have changed under the same name.
    AvatarStore::instance().refresh(path);
    m_rooms->setHeadPath(strRoomJid, path);
    viewport()->update();
}

void MucListView::slot_updateRoomMembers(QString member, QString roomJid)
{
    LOG_SCOPE("MucTreeView::slot_updateRoomMembers(QString member, QString roomJid)");
    m_rooms->setMemberCount(roomJid, member);
}

void MucListView::slot_setForbiddenIcon(QString roomJid, bool isForbidden)
{
    LOG_SCOPE("MucTreeView::slot_setForbiddenIcon(QString roomJid, bool isForbidden)");
    m_rooms->setForbidden(roomJid, isForbidden);
}

void MucListView::slot_mucClassifyChanged(const QString &strRoomJid, MucData::MucClassify iClassify)
{
    LOG_SCOPE("MucTreeView::slot_mucClassifyChanged(const QString& strRoomJid, "
              "MucData::MucClassify iClassify)");
    if (!knows(strRoomJid))
        return;
    if (!MucRules::isKnown(iClassify)) {
        LOG_ERROR("void MucListView::slot_mucClassifyChanged(),ERROR：分类更改，非通讯录，非本地.");
        return;
    }
    if (m_rooms->setClassify(strRoomJid, iClassify))
        countChanged();
}

void MucListView::slot_localMucAdded(const QString &strRoomJid, const QString &strSource)
{
    LOG_SCOPE("MucTreeView::slot_localMucAdded(const QString& strRoomJid, const QString& "
              "strSource)");
    LOG_DEBUG("MucListView::slot_localMucAdded(),source:" << logText(strSource));
    if (knows(strRoomJid)) {
        LOG_ERROR("MucListView::slot_localMucAdded(),ERROR:添加本地群，群已在列表中。");
        return;
    }
    MucData room;
    if (!ctx().mucData(strRoomJid, &room)) {
        LOG_ERROR("MucListView::slot_localMucAdded(),ERROR:the host does not know "
                  << logText(strRoomJid));
        return;
    }
    addMuc(room);
}

void MucListView::slot_removeRoom(QString roomJid)
{
    LOG_SCOPE("MucTreeView::slot_removeRoom(QString roomJid)");
    if (!knows(roomJid))
        return;
    stopShake(roomJid);
    m_settingRooms.remove(roomJid);
    m_rooms->removeRoom(roomJid);
    if (m_menuRoom == roomJid)
        m_menu->close();
    m_commands->roomRemoved(roomJid);
    countChanged();
}

// --- Pages and rows ------------------------------------------------------------

QString MucListView::currentRoom() const
{
    return currentIndex().data(MucRole::Id).toString();
}

void MucListView::setPage(MucModel::Page page)
{
    if (page == m_rooms->page())
        return;
    m_selected[m_rooms->page()] = currentRoom();
    m_rooms->setPage(page);
    select(m_selected[page]);
}

bool MucListView::select(const QString &jid)
{
    QModelIndex index = m_rooms->indexOf(jid);
    const MucRow *room = m_rooms->find(jid);
    if (!index.isValid() && room && MucModel::pageOf(*room) == m_rooms->page()) {
        // Its row waits for the pointer to go.
        m_rooms->rebuild();
        index = m_rooms->indexOf(jid);
    }
    reveal(index);
    return index.isValid();
}

void MucListView::slot_openMucDialog(QModelIndex index)
{
    LOG_SCOPE("MucTreeView::slot_openMucDialog(QModelIndex index)");
    const QString jid = index.data(MucRole::Id).toString();
    if (jid.isEmpty())
        return;
    stopShake(jid);
    m_commands->openChat(jid);
}

void MucListView::slot_clicked(QModelIndex index)
{
    LOG_SCOPE("MucTreeView::slot_clicked(QModelIndex index)");
    if (!index.isValid()) {
        LOG_DEBUG("item is null");
        return;
    }
    setCurrentIndex(index);
}

void MucListView::mousePressEvent(QMouseEvent *event)
{
    RowView::mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        emit signal_click(indexAt(event->pos()));
}

void MucListView::keyPressEvent(QKeyEvent *event)
{
    const QString jid = currentRoom();
    const MucRules::Rights rights = MucRules::rightsOf(ctx().mucRole(jid));
    if (event->key() == Qt::Key_F2 && !jid.isEmpty() && rights.rename)
        m_commands->rename(jid);
    else if (event->key() == Qt::Key_Delete && !jid.isEmpty() && rights.dismiss)
        m_commands->dismiss(jid);
    else if (event->key() == Qt::Key_Delete && !jid.isEmpty())
        m_commands->quit(jid);
    else
        RowView::keyPressEvent(event);
}

// --- Shaking -------------------------------------------------------------------

void MucListView::shakeRoom(const QString &jid)
{
    if (m_shaking.contains(jid) || !knows(jid))
        return;
    m_shaking.insert(jid);
    m_phase = 0;
    if (!m_shakeTimer.isActive())
        m_shakeTimer.start();
}

void MucListView::stopShake(const QString &jid)
{
    if (!m_shaking.remove(jid))
        return;
    m_rooms->setShake(jid, QPoint());
    if (m_shaking.isEmpty())
        m_shakeTimer.stop();
}

// Without an entry in the log: it comes five times a second.
void MucListView::slot_shakeTimeOut()
{
    if (m_shaking.isEmpty()) {
        m_shakeTimer.stop();
        return;
    }
    for (const QString &jid : qAsConst(m_shaking))
        m_rooms->setShake(jid, MucRules::shakeOffset(m_phase));
    m_phase = MucRules::phaseAfter(m_phase);
}

// --- Menu ----------------------------------------------------------------------

void MucListView::createMenu()
{
    LOG_SCOPE("MucTreeView::createMenu()");
    m_menu = new MucMenu(this);
    connect(m_menu, &QMenu::triggered, this, &MucListView::slot_handleMucMenu);
    connect(m_menu->settings(), &QMenu::triggered, this, &MucListView::slot_handleMucSetMenu);
}

void MucListView::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard && currentIndex().isValid())
        scrollTo(currentIndex());
    event->accept();
    emit customContextMenuRequested(menuPosition(*event));
}

void MucListView::slot_showMenu(QPoint pos)
{
    LOG_SCOPE("MucTreeView::slot_showMenu(QPoint pos)");
    const QModelIndex index = indexAt(pos);
    if (!index.isValid())
        return;
    setCurrentIndex(index);
    m_menuRoom = index.data(MucRole::Id).toString();
    m_menu->prepare(m_rooms->at(index.row()), isOnline() && !m_settingRooms.contains(m_menuRoom));
    popUp(m_menu, pos);
}

void MucListView::slot_handleMucMenu(QAction *action)
{
    LOG_SCOPE("MucTreeView::slot_handleMucMenu(QAction* action)");
    const QString jid = m_menuRoom;
    // A submenu's actions are told of by the menu above it, too.
    const QString key =
        action && m_menu->actions().contains(action) ? action->objectName() : QString();
    if (key == QLatin1String("sendGroupMessage")) {
        stopShake(jid);
        m_commands->openChat(jid);
    } else if (key == QLatin1String("sendFile")) {
        m_commands->sendFile(jid);
    } else if (key == QLatin1String("sendemail")) {
        m_commands->writeMail(jid);
    } else if (key == QLatin1String("msgrecord")) {
        m_commands->openHistory(jid);
    } else if (key == QLatin1String("modifyGroupName")) {
        m_commands->rename(jid);
    } else if (key == QLatin1String("dismissmuc")) {
        m_commands->dismiss(jid);
    } else if (key == QLatin1String("quitmuc")) {
        m_commands->quit(jid);
    } else if (key == QLatin1String("saveToAddresslist")) {
        m_commands->setInAddressBook(jid, true);
    } else if (key == QLatin1String("deleteFromContact")) {
        m_commands->setInAddressBook(jid, false);
    } else if (key == QLatin1String("setGroupToppest")) {
        m_commands->pin(jid, true);
    } else if (key == QLatin1String("cancelGroupToppest")) {
        m_commands->pin(jid, false);
    } else if (key == QLatin1String("changemanage")) {
        m_commands->manage(jid);
    }
}

void MucListView::slot_handleMucSetMenu(QAction *action)
{
    LOG_SCOPE("MucTreeView::slot_handleMucSetMenu(QAction* action)");
    const bool silent = action == m_menu->settings()->action("recivenoremind");
    m_menu->showSetting();
    if (!action || !knows(m_menuRoom))
        return;
    m_settingRooms.insert(m_menuRoom);
    m_commands->setSilent(m_menuRoom, silent);
}

void MucListView::slot_setMucMsgConfigFinish(bool ok, const QString &roomJid, const QString &key,
                                             const bool &notHint)
{
    LOG_SCOPE("MucTreeView::slot_setMucMsgConfigFinish(bool ok, const QString& roomJid, const "
              "QString& key, const bool& notHint)");
    if (key != QLatin1String("isNotHint"))
        return;
    const bool askedHere = m_settingRooms.remove(roomJid);
    if (!ok) {
        LOG_ERROR("the notifications of " << logText(roomJid) << " could not be set");
        if (askedHere)
            TipBox::tell(this, QObject::tr("messageSettingFailed"));
        return;
    }
    if (roomJid == m_menuRoom)
        m_menu->setSilent(notHint);
}
