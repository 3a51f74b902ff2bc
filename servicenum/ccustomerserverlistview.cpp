#include "servicenum/ccustomerserverlistview.h"

#include "common/context.h"
#include "common/logging.h"
#include "controls/skinmenu.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduisignalsender.h"
#include "servicenum/channelmodel.h"
#include "servicenum/cpembateaminfo.h"
#include "servicenum/customerserverlistdelegate.h"
#include "servicenum/customerserverroles.h"
#include "servicenum/topchannels.h"

#include <QContextMenuEvent>

#include <utility>

CCustomerServerListView::CCustomerServerListView(QWidget *parent)
    : CCustomerServerListView(new ChannelModel, parent)
{
}

CCustomerServerListView::CCustomerServerListView(ChannelModel *model, QWidget *parent)
    : RowView(model, ChannelRole::Name, parent), m_model(model)
{
    setObjectName(QStringLiteral("CCustomerServerListView"));
    model->setParent(this);
    setItemDelegate(new CustomerServerListDelegate(this));
    setSelectionMode(SingleSelection);
    makeMenu();

    using View = CCustomerServerListView;
    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    CustomerChannels *channels = &CustomerChannels::instance();
    connect(channels, &CustomerChannels::changed, model, &ChannelModel::update);
    connect(channels, &CustomerChannels::removed, this, &View::channelGone);
    connect(channels, &CustomerChannels::cleared, this, [this] {
        m_menu->close();
        m_model->clear();
        m_model->setPins({});
    });
    connect(hub, &Hub::signal_notifyAddChannel, this, &View::slot_notifyAddChannel);
    connect(hub, &Hub::signal_notifyRemoveChannel, this, &View::slot_notifyRemoveChannel);
    connect(hub, &Hub::signal_OpenCSChannel, this, &View::slot_OpenCSChannel);
    connect(hub, &Hub::signal_notifyUpdateChannelHead, this, &View::slot_notifyUpdateChannelHead);
    connect(this, &RowView::orderHeld, model, [model](bool held) { model->setOrderFrozen(held); });
    connect(this, &RowView::activatedRow, this,
            [this](const QModelIndex &row) { open(row.data(ChannelRole::Id).toString()); });
}

void CCustomerServerListView::makeMenu()
{
    m_menu = new SkinMenu(QStringLiteral("customerMenu"), this);
    m_menu->addKey("sendCustomerMessage");
    m_menu->addKey("toTopCustomer");
    m_menu->addKey("cancelGroupToppest");
    connect(m_menu, &QMenu::triggered, this, &CCustomerServerListView::slot_selectAction);
}

bool CCustomerServerListView::locate(const QString &id)
{
    const QModelIndex row = m_model->indexOf(id);
    reveal(row);
    return row.isValid();
}

// --- What the host tells ---------------------------------------------------------

void CCustomerServerListView::slot_notifyAddChannel(CSChannelData channelData)
{
    LOG_SCOPE("CCustomerServerListView::slot_notifyAddChannel(CSChannelData channelData)");
    CustomerChannels::instance().add(channelData);
}

void CCustomerServerListView::slot_notifyRemoveChannel(QString strChannelID)
{
    LOG_SCOPE("CCustomerServerListView::slot_notifyRemoveChannel(QString strChannelID)");
    CustomerChannels::instance().remove(strChannelID);
}

void CCustomerServerListView::slot_notifyUpdateChannelHead(const QString &strChannelId,
                                                           const QString &strIconPath)
{
    LOG_SCOPE("CCustomerServerListView::slot_notifyUpdateChannelHead(const QString& strChannelId, "
              "const QString& strIconPath)");
    CustomerChannels::instance().setPicture(strChannelId, strIconPath);
}

void CCustomerServerListView::slot_OpenCSChannel(QString strChannelId)
{
    LOG_SCOPE("CCustomerServerListView::slot_OpenCSChannel(QString strChannelId)");
    locate(strChannelId);
    open(strChannelId);
}

void CCustomerServerListView::channelGone(const QString &id)
{
    if (id == m_menuChannel)
        m_menu->close();
    m_model->remove(id);
}

// --- What the user does ----------------------------------------------------------

void CCustomerServerListView::open(const QString &id)
{
    if (!id.isEmpty() && id == ctx().productTeamJid())
        CPembaTeamInfo::open(window());
    else
        openConversation(id);
}

void CCustomerServerListView::openConversation(const QString &id)
{
    if (m_model->find(id))
        FriendUIEventProcess::openChat(id, MessageData::Channel);
    else
        LOG_DEBUG("there is no channel " << logText(id));
}

void CCustomerServerListView::pin(const QString &id, bool top)
{
    if (top && !TopChannels::canPin(id)) {
        LOG_ERROR("channel " << logText(id) << " cannot be pinned");
        return;
    }
    QStringList pins = m_model->pins();
    pins.removeAll(id);
    if (top)
        pins.prepend(id);
    // The row goes where its user wants it at once, pointer or not.
    const bool wasFrozen = m_model->isOrderFrozen();
    m_model->setOrderFrozen(false);
    m_model->setPins(pins);
    m_model->setOrderFrozen(wasFrozen);
    emit signal_TopChannelIDListChanged(pins);
}

void CCustomerServerListView::slot_selectAction(QAction *action)
{
    LOG_SCOPE("CCustomerServerListView::slot_selectAction(QAction* action)");
    const QString id = m_menuChannel;
    if (!m_model->find(id)) {
        LOG_DEBUG("selected is null");
        return;
    }
    if (action == m_menu->action("toTopCustomer"))
        pin(id, true);
    else if (action == m_menu->action("cancelGroupToppest"))
        pin(id, false);
    else if (action == m_menu->action("sendCustomerMessage"))
        openConversation(id);
}

void CCustomerServerListView::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    const QPoint position = menuPosition(*event);
    const QModelIndex row = indexAt(position);
    if (!row.isValid())
        return;
    m_menuChannel = row.data(ChannelRole::Id).toString();
    const bool isPinned = row.data(ChannelRole::Pinned).toBool();
    m_menu->action("toTopCustomer")->setVisible(!isPinned && TopChannels::canPin(m_menuChannel));
    m_menu->action("cancelGroupToppest")->setVisible(isPinned);
    popUp(m_menu, position);
}

void CCustomerServerListView::mousePressEvent(QMouseEvent *event)
{
    const bool isLeft = event->button() == Qt::LeftButton;
    m_pressedRow = isLeft ? indexAt(event->pos()) : QModelIndex();
    if (isLeft && !m_pressedRow.isValid())
        LOG_DEBUG("selected is null");
    RowView::mousePressEvent(event);
}

// Opens the channel as its last statement, because the host may destroy the view in
// answer. clicked() would come too early for that.
void CCustomerServerListView::mouseReleaseEvent(QMouseEvent *event)
{
    const QPersistentModelIndex pressed = std::exchange(m_pressedRow, QPersistentModelIndex());
    RowView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && pressed.isValid() && pressed == indexAt(event->pos()))
        open(pressed.data(ChannelRole::Id).toString());
}

// The first of the two clicks has opened the channel.
void CCustomerServerListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
}
