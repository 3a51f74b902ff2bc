#include "contacts/rooms/mucwidget.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "contacts/rooms/mucemptypage.h"
#include "contacts/rooms/muclistview.h"
#include "controls/skin.h"
#include "controls/tipbox.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduisignalsender.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QEvent>
#include <QPainter>
#include <QPushButton>
#include <QStackedWidget>

namespace {
constexpr int TabPixels = 16;
constexpr int TabHeight = 44;
constexpr int TabPadding = 20; // of both sides together
constexpr int TabMargin = 2;
constexpr int LineHeight = 2;

class TabButton : public QPushButton
{
public:
    TabButton(const char *name, QWidget *parent) : QPushButton(parent)
    {
        setObjectName(QLatin1String(name));
        setCheckable(true);
        setFixedHeight(TabHeight);
        setFont(skinFont(TabPixels));
        setAttribute(Qt::WA_Hover);
        followSkin(this);
    }

    // A label's width is known only with the font that the style makes of ours.
    void setLabel(const QString &label)
    {
        setText(label);
        ensurePolished();
        setFixedWidth(fontMetrics().horizontalAdvance(label) + TabPadding);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        const Skin::Colors &colors = Skin::instance().colors();
        QPainter painter(this);
        painter.setPen(isChecked() || underMouse() ? colors.theme : colors.text);
        painter.drawText(rect(), Qt::AlignCenter, text());
        if (isChecked())
            painter.fillRect(TabPadding / 2, height() - LineHeight, width() - TabPadding,
                             LineHeight, colors.theme);
        if (hasFocus()) {
            painter.setPen(colors.theme);
            painter.drawRect(rect().adjusted(2, 6, -3, -7));
        }
    }
};
} // namespace

MucWidget::MucWidget(QWidget *parent)
    : QWidget(parent),
      m_addressBookTab(new TabButton("btnAddressBookMuc", this)),
      m_localTab(new TabButton("btnLocalMuc", this)),
      m_tabs(new QBoxLayout(QBoxLayout::LeftToRight)),
      m_pages(new QStackedWidget(this)),
      m_list(new MucListView(m_pages)),
      m_emptyPage(new MucEmptyPage(m_pages))
{
    LOG_SCOPE("MucWidget::MucWidget(QWidget* parent)");
    setObjectName(QStringLiteral("MucWidget"));
    setAutoFillBackground(true);
    followSkin(this);
    m_tabs->setContentsMargins(TabMargin, 0, TabMargin, 0);
    m_tabs->setSpacing(0);
    m_tabs->addWidget(m_addressBookTab, 0, Qt::AlignLeft);
    m_tabs->addWidget(m_localTab, 1, Qt::AlignLeft);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(m_tabs);
    layout->addWidget(m_pages, 1);
    m_pages->addWidget(m_list);
    m_pages->addWidget(m_emptyPage);

    auto *group = new QButtonGroup(this);
    group->addButton(m_addressBookTab);
    group->addButton(m_localTab);
    m_addressBookTab->setChecked(true);
    connect(m_addressBookTab, &QPushButton::clicked, this, &MucWidget::slot_addressBookMucClicked);
    connect(m_localTab, &QPushButton::clicked, this, &MucWidget::slot_localMucClicked);
    connect(m_list, &MucListView::signal_updateFrequentlyRoomSize, this,
            &MucWidget::slot_updateFrequentlyRoomSize);
    connect(m_emptyPage, &MucEmptyPage::createClicked, this, &MucWidget::createRoom);
    connectHub();
    labelTabs();
}

void MucWidget::connectHub()
{
    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    // By reference: rooms come by the thousand, and each copy is one of 22 members.
    connect(hub, &Hub::signal_addMuc, this, &MucWidget::addRoom);
    connect(hub, &Hub::signal_roomIsNull, this, &MucWidget::slot_roomIsNull);
    connect(hub, &Hub::signal_latestFriend, this, &MucWidget::messageArrived);
}

void MucWidget::slot_addMucItem(MucData room, bool)
{
    addRoom(room);
}

void MucWidget::addRoom(const MucData &room)
{
    LOG_SCOPE("MucWidget::slot_addMucItem(MucData data, bool add)");
    m_list->addMuc(room);
}

void MucWidget::slot_roomIsNull()
{
    LOG_SCOPE("MucWidget::slot_roomIsNull()");
    slot_updateFrequentlyRoomSize();
}

void MucWidget::slot_roomSubjectChanged(QString roomjid, QString subject)
{
    LOG_SCOPE("MucWidget::slot_roomSubjectChanged(QString roomjid, QString subject)");
    m_list->slot_roomSubjectChanged(roomjid, subject, QString());
}

void MucWidget::slot_setForbiddenIcon(QString roomJid, bool isforbidden)
{
    LOG_SCOPE("MucWidget::slot_setForbiddenIcon(QString roomJid, bool isforbidden)");
    m_list->slot_setForbiddenIcon(roomJid, isforbidden);
}

void MucWidget::slot_shakeRoom(QString roomJid)
{
    LOG_SCOPE("MucWidget::slot_shakeRoom(QString roomJid)");
    m_list->shakeRoom(roomJid);
}

void MucWidget::messageArrived(bool received, const MessageData &message)
{
    if (!received || message.kind != MessageData::Room)
        return;
    const QString room = message.sessionJid.isEmpty() ? message.fromJid : message.sessionJid;
    // The host is asked only when it matters: messages come in bursts.
    if (m_list->isShaking(room) || !m_list->rooms()->find(room))
        return;
    // Whoever wants no notification of a room wants no row that calls for attention.
    if (ctx().sessionNotify(room) == 0)
        slot_shakeRoom(room);
}

// --- Tabs ----------------------------------------------------------------------

void MucWidget::labelTabs()
{
    const auto label = [](QPushButton *tab, const QString &name, int count) {
        static_cast<TabButton *>(tab)->setLabel(name + QLatin1Char('[') + QString::number(count) +
                                                QLatin1Char(']'));
    };
    label(m_addressBookTab, QObject::tr("groupChat"), m_list->rooms()->addressBookCount());
    label(m_localTab, QObject::tr("localGroup"), m_list->rooms()->localCount());
    arrangeTabs();
}

// One below the other where they are too wide together.
void MucWidget::arrangeTabs()
{
    const bool fit = m_addressBookTab->width() + m_localTab->width() + 2 * TabMargin <= width();
    m_tabs->setDirection(fit ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

void MucWidget::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrangeTabs();
}

void MucWidget::slot_updateFrequentlyRoomSize()
{
    LOG_SCOPE("MucWidget::slot_updateFrequentlyRoomSize()");
    labelTabs();
    const MucModel *rooms = m_list->rooms();
    const bool addressBook = rooms->page() == MucModel::AddressBookPage;
    const bool none = (addressBook ? rooms->addressBookCount() : rooms->localCount()) == 0;
    m_emptyPage->setKind(rooms->page());
    m_pages->setCurrentWidget(none ? static_cast<QWidget *>(m_emptyPage) : m_list);
}

void MucWidget::showPage(bool addressBook)
{
    (addressBook ? m_addressBookTab : m_localTab)->setChecked(true);
    m_list->setPage(addressBook ? MucModel::AddressBookPage : MucModel::LocalPage);
    slot_updateFrequentlyRoomSize();
}

void MucWidget::slot_addressBookMucClicked()
{
    LOG_SCOPE("MucWidget::slot_addressBookMucClicked()");
    showPage(true);
}

void MucWidget::slot_localMucClicked()
{
    LOG_SCOPE("MucWidget::slot_localMucClicked()");
    showPage(false);
}

bool MucWidget::locateRoom(const QString &jid)
{
    const MucRow *room = m_list->rooms()->find(jid);
    if (!room)
        return false;
    showPage(MucModel::pageOf(*room) == MucModel::AddressBookPage);
    m_list->setFocus();
    return m_list->select(jid);
}

void MucWidget::createRoom()
{
    if (isOnline())
        FriendUIEventProcess::createGroupChat({});
    else
        TipBox::tell(this, QObject::tr("offlineNoInviteMember"), QString::fromUtf8("确定"));
}

void MucWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        labelTabs();
    QWidget::changeEvent(event);
}
