#include "host/windows/roommanagement.h"

#include "host/chat/chatpage.h"
#include "host/messagingcore.h"
#include "host/windows/peoplepicker.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int JidRole = Qt::UserRole + 1;
constexpr int NameRole = Qt::UserRole + 2;
constexpr int RankRole = Qt::UserRole + 3;
constexpr int LongestName = 64; // characters

enum Rank
{
    Member = 0,
    Manager = 1,
    Owner = 2
};
} // namespace

RoomManagement::RoomManagement(MessagingCore *core, const QString &roomJid, QWidget *parent)
    : QDialog(parent),
      m_core(core),
      m_roomJid(roomJid),
      m_own(new QLabel(this)),
      m_list(new QListWidget(this)),
      m_manager(new QPushButton(this)),
      m_handOver(new QPushButton(this)),
      m_remove(new QPushButton(this)),
      m_add(new QPushButton(this)),
      m_close(new QPushButton(this))
{
    setObjectName(QStringLiteral("roomManagement"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setAttribute(Qt::WA_DeleteOnClose);
    m_own->setTextFormat(Qt::PlainText);
    m_list->setObjectName(QStringLiteral("roomMembers"));
    m_list->setUniformItemSizes(true);
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_manager->setObjectName(QStringLiteral("changeManager"));
    m_handOver->setObjectName(QStringLiteral("handOver"));
    m_remove->setObjectName(QStringLiteral("removeMember"));
    m_add->setObjectName(QStringLiteral("addMembers"));

    auto *buttons = new QVBoxLayout;
    for (QPushButton *button : {m_add, m_manager, m_handOver, m_remove}) {
        button->setAutoDefault(false);
        buttons->addWidget(button);
    }
    buttons->addStretch(1);
    buttons->addWidget(m_close);
    auto *middle = new QHBoxLayout;
    middle->addWidget(m_list, 1);
    middle->addLayout(buttons);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 16, 14);
    layout->setSpacing(10);
    layout->addWidget(m_own);
    layout->addLayout(middle, 1);
    resize(520, 400);

    connect(m_list, &QListWidget::itemSelectionChanged, this, &RoomManagement::enableButtons);
    connect(m_manager, &QPushButton::clicked, this, &RoomManagement::changeManager);
    connect(m_handOver, &QPushButton::clicked, this, &RoomManagement::askHandOver);
    connect(m_remove, &QPushButton::clicked, this,
            [this] { m_core->removeRoomMember(m_roomJid, chosenJid()); });
    connect(m_add, &QPushButton::clicked, this, &RoomManagement::addPeople);
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    connectCore();
    retranslate();
}

void RoomManagement::connectCore()
{
    connect(m_core, &MessagingCore::roomMembersChanged, this, [this](const QString &room) {
        if (room == m_roomJid)
            fill();
    });
    connect(m_core, &MessagingCore::roomRenamed, this, &RoomManagement::retranslate);
    for (const auto end : {&MessagingCore::roomLeft, &MessagingCore::roomDismissed}) {
        connect(m_core, end, this, [this](const QString &room) {
            if (room == m_roomJid)
                reject();
        });
    }
}

QString RoomManagement::chosenJid() const
{
    const QListWidgetItem *item = m_list->selectedItems().value(0);
    return item ? item->data(JidRole).toString() : QString();
}

QString RoomManagement::chosenName() const
{
    const QListWidgetItem *item = m_list->selectedItems().value(0);
    return item ? item->data(NameRole).toString() : QString();
}

void RoomManagement::fill()
{
    const QString chosen = chosenJid();
    QList<MucMemberData> members = m_core->roomMembers(m_roomJid);
    std::stable_sort(
        members.begin(), members.end(),
        [](const MucMemberData &a, const MucMemberData &b) { return a.role > b.role; });
    m_list->clear();
    for (const MucMemberData &member : qAsConst(members)) {
        const QString name = member.name.simplified().left(LongestName);
        QString shown = name;
        if (member.role == Owner)
            shown = tr("%1 (owner)").arg(name);
        else if (member.role == Manager)
            shown = tr("%1 (manager)").arg(name);
        auto *item = new QListWidgetItem(shown, m_list);
        item->setData(JidRole, member.jid);
        item->setData(NameRole, name);
        item->setData(RankRole, member.role);
        item->setSelected(member.jid == chosen);
    }
    const int own = m_core->roomRole(m_roomJid);
    m_own->setText(own == Owner     ? tr("You own this group chat.")
                   : own == Manager ? tr("You are one of the managers.")
                                    : tr("You are a member."));
    enableButtons();
}

void RoomManagement::enableButtons()
{
    const QListWidgetItem *item = m_list->selectedItems().value(0);
    const int own = m_core->roomRole(m_roomJid);
    const int rank = item ? item->data(RankRole).toInt() : int(Owner);
    m_manager->setEnabled(own == Owner && rank < Owner);
    m_handOver->setEnabled(own == Owner && rank < Owner);
    m_remove->setEnabled(own > rank);
    m_manager->setText(rank == Manager ? tr("No longer manager") : tr("Make manager"));
}

void RoomManagement::changeManager()
{
    const QListWidgetItem *item = m_list->selectedItems().value(0);
    if (item)
        m_core->setRoomManager(m_roomJid, chosenJid(), item->data(RankRole).toInt() != Manager);
}

void RoomManagement::askHandOver()
{
    auto *box = new QMessageBox(QMessageBox::Question, tr("Hand over the group chat"),
                                tr("%1 will own the group chat, and you will be a member. Only the "
                                   "new owner can undo this.")
                                    .arg(chosenName()),
                                QMessageBox::Ok | QMessageBox::Cancel, this);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->button(QMessageBox::Ok)->setText(tr("Hand over"));
    box->button(QMessageBox::Cancel)->setText(tr("Cancel"));
    box->setDefaultButton(QMessageBox::Cancel);
    connect(box, &QDialog::accepted, this,
            [this, jid = chosenJid()] { m_core->handOverRoom(m_roomJid, jid); });
    box->open();
}

void RoomManagement::addPeople()
{
    QSet<QString> present;
    const QList<MucMemberData> members = m_core->roomMembers(m_roomJid);
    for (const MucMemberData &member : members)
        present.insert(member.jid);
    QList<FriendData> others;
    const QList<FriendData> contacts = m_core->contacts();
    for (const FriendData &contact : contacts) {
        if (!present.contains(contact.jid))
            others.append(contact);
    }
    auto *picker = new PeoplePicker(tr("Add people to the group chat"), others, {}, this);
    connect(picker, &QDialog::accepted, this,
            [this, picker] { m_core->addRoomMembers(m_roomJid, picker->chosenJids()); });
    picker->open();
}

void RoomManagement::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

void RoomManagement::retranslate()
{
    setWindowTitle(tr("Group chat: %1")
                       .arg(ChatPage::nameOf(*m_core, m_roomJid).simplified().left(LongestName)));
    m_handOver->setText(tr("Hand over…"));
    m_remove->setText(tr("Remove"));
    m_add->setText(tr("Add people…"));
    m_close->setText(tr("Close"));
    fill();
}
