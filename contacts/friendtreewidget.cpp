#include "contacts/friendtreewidget.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "contacts/friendcommands.h"
#include "contacts/friendtreemodel.h"
#include "contacts/friendtreeview.h"
#include "controls/statestack.h"
#include "controls/tipbox.h"
#include "plugin/frienduisignalsender.h"

namespace {
// How many names a box about a failed batch spells out.
constexpr int MaximumNamesTold = 10;

constexpr ContactTreeKind innerContacts{
    "FriendTreeWidget",
    ContactRow,
    "/friendTree/expandedGroups",
    "entry fun FriendTreeWidget::slot_addAllFriend()：listFriendData is 0",
    QT_TRANSLATE_NOOP("QObject", "friendsFailed"),
    false,
    QT_TRANSLATE_NOOP("QObject", "deleteContactFailed"),
    QT_TRANSLATE_NOOP("QObject", "teamcreatefailed"),
    false,
    "重命名删除失败，请重试！",
    "重命名删除失败，请重试！",
    false,
    nullptr,
};
} // namespace

FriendTreeWidget::FriendTreeWidget(QWidget *parent) : ContactTreePage(innerContacts, parent)
{
    setLayout(states());
    const FriendUISignalSender *hub = FriendUISignalSender::instance();
    using Hub = FriendUISignalSender;
    using Page = FriendTreeWidget;
    connect(hub, &Hub::signal_BatchAddFriendFial, this, &Page::slot_BatchAddFriendFial);
    connect(hub, &Hub::signal_myStatusChanged, this, &Page::slot_myStatusChanged);
    connect(hub, &Hub::signal_myProfileRecv, this, &Page::slot_updateMySelfInfo);
    start();
}

void FriendTreeWidget::showEmptyPage()
{
    states()->showPage("friendsEmpty", "Resources/images/contacts/empty_list.png", "newgroup");
}

void FriendTreeWidget::emptyPageClicked()
{
    view()->commands()->createGroup();
}

void FriendTreeWidget::slot_BatchAddFriendFial(QStringList listUids)
{
    LOG_SCOPE("FriendTreeWidget::slot_BatchAddFriendFial(QStringList listUids)");
    if (listUids.isEmpty())
        return;
    QStringList names;
    for (const QString &uid : listUids.mid(0, MaximumNamesTold))
        names.append(displayNameOf(makeJid(uid)));
    if (listUids.size() > MaximumNamesTold)
        names.append(QStringLiteral("..."));
    const QString count = QStringLiteral(" (%1): ").arg(listUids.size());
    TipBox::tell(this,
                 QObject::tr("conatct") + count + names.join(QStringLiteral(", ")) +
                     QLatin1Char('\n') + QObject::tr("addfail"),
                 QString::fromUtf8("确定"));
}

void FriendTreeWidget::slot_myStatusChanged()
{
    LOG_SCOPE("FriendTreeWidget::slot_myStatusChanged()");
    const QString own = ctx().ownJid();
    model()->setPresence({{own, ctx().presence(own)}});
}

void FriendTreeWidget::slot_updateMySelfInfo()
{
    LOG_SCOPE("FriendTreeWidget::slot_updateMySelfInfo()");
    VcardInfo profile;
    if (ctx().vcard(ctx().ownJid(), &profile))
        slot_updatefriend_new(ctx().ownJid(), profile);
}

void FriendTreeWidget::setPresenceUnknown(bool unknown)
{
    model()->setPresenceUnknown(unknown);
}
