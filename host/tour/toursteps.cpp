// The steps of the tour. A page that comes later adds its rows at the end of the
// part that it belongs to.
#include "host/tour/tourstep.h"

#include "host/chat/chatarea.h"
#include "host/chat/chatpage.h"
#include "host/core/embeddedcore.h"
#include "host/eventmonitor/eventmodel.h"
#include "host/eventmonitor/eventmonitor.h"
#include "host/hostapplication.h"
#include "host/levermenu.h"
#include "host/mainwindow.h"
#include "host/tour/tourparts.h"
#include "host/tour/tourstage.h"
#include "hostapi/eventcodes.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTreeView>

namespace {

using Stage = TourStage;

const QString newGroupName()
{
    return QString::fromUtf8("新品发布组");
}
const QString renamedGroupName()
{
    return QString::fromUtf8("重点客户");
}

// --- Moves that several steps share -------------------------------------------

TourMove treeFilled()
{
    return {"the tree shows groups", {}, [](Stage &s) {
                return s.firstGroupWithContacts(1).isValid();
            }};
}

TourMove groupMenuOf(const QString &group)
{
    return {"the group's menu opens", [group](Stage &s) { s.contextMenu(s.group(group)); },
            [](Stage &s) { return s.openMenu(QStringLiteral("commonGroupMenu")) != nullptr; },
            TourMove::Again};
}

// Of the contact whose jid the stage remembers.
TourMove contactMenu()
{
    return {"the contact's menu opens", [](Stage &s) { s.contextMenu(s.contact(s.jid)); },
            [](Stage &s) { return s.openMenu(QStringLiteral("commonSingleMenu")) != nullptr; },
            TourMove::Again};
}

TourMove choose(const char *menu, const char *action, const char *dialogClass)
{
    return {"the dialog opens",
            [=](Stage &s) { s.trigger(s.menu(QLatin1String(menu)), QLatin1String(action)); },
            [=](Stage &s) { return s.openDialog(dialogClass) != nullptr; }};
}

// Opens a group and remembers one of its contacts.
TourMove expandAndRemember(int position)
{
    return {"the group is expanded",
            [position](Stage &s) {
                const QModelIndex group = s.firstGroupWithContacts(position + 2);
                if (!group.isValid())
                    return;
                s.tree()->expand(group);
                s.jid = Stage::jidOf(s.otherContact(group, position));
                s.name = Stage::nameOf(s.otherContact(group, position));
            },
            [](Stage &s) {
                const QModelIndex contact = s.contact(s.jid);
                return contact.isValid() && !s.tree()->visualRect(contact).isEmpty();
            },
            TourMove::Again};
}

TourMove requestListed()
{
    return {"the request is listed",
            [](Stage &s) {
                s.host().core()->receiveContactRequest(s.jid,
                                                       QString::fromUtf8("你好，我是新同事。"));
            },
            [](Stage &s) { return s.openDialog("Notices") != nullptr; }};
}

TourMove formOpened()
{
    return {"the form is open", [](Stage &s) { s.press("Notices", "acceptNotice"); },
            [](Stage &s) { return s.shownWidget(QStringLiteral("okButton")) != nullptr; }};
}

// --- The friend tree ------------------------------------------------------------

std::vector<TourStep> treeSteps()
{
    return {
        {"start", TourStep::Pane, {treeFilled()}},
        {"group-expanded", TourStep::Pane, {treeFilled(), expandAndRemember(1)}},
        {"contact-menu", TourStep::Pane, {expandAndRemember(1), contactMenu()}},
        {"new-group-dialog",
         TourStep::Pane,
         {{"a group is there",
           [](Stage &s) { s.target = Stage::nameOf(s.firstGroupWithContacts()); },
           [](Stage &s) { return !s.target.isEmpty(); }},
          {"the group's menu opens", [](Stage &s) { s.contextMenu(s.group(s.target)); },
           [](Stage &s) { return s.openMenu(QStringLiteral("commonGroupMenu")) != nullptr; },
           TourMove::Again},
          choose("commonGroupMenu", "newgroup", "QInputDialog"),
          {"the name is typed", [](Stage &s) { s.fill(newGroupName()); },
           [](Stage &s) { return s.openDialog("QInputDialog") != nullptr; }}}},
        {"new-group-present",
         TourStep::Pane,
         {{"the group's menu opens", [](Stage &s) { s.contextMenu(s.firstGroupWithContacts()); },
           [](Stage &s) { return s.openMenu(QStringLiteral("commonGroupMenu")) != nullptr; },
           TourMove::Again},
          choose("commonGroupMenu", "newgroup", "QInputDialog"),
          {"the new group is in the tree", [](Stage &s) { s.answer(newGroupName()); },
           [](Stage &s) { return s.group(newGroupName()).isValid() && !s.openDialog("QDialog"); }},
          {"it is scrolled to", [](Stage &s) { s.tree()->scrollTo(s.group(newGroupName())); },
           [](Stage &s) { return !s.tree()->visualRect(s.group(newGroupName())).isEmpty(); }}}},
        {"group-renamed",
         TourStep::Pane,
         {groupMenuOf(newGroupName()),
          choose("commonGroupMenu", "renameMuc", "QInputDialog"),
          {"the group bears its new name", [](Stage &s) { s.answer(renamedGroupName()); },
           [](Stage &s) {
               return s.group(renamedGroupName()).isValid() && !s.group(newGroupName()).isValid();
           }}}},
        {"contact-moved",
         TourStep::Pane,
         {expandAndRemember(1),
          contactMenu(),
          {"the contact is in the other group",
           [](Stage &s) {
               s.triggerText(s.menu(QStringLiteral("commonSingleMenu")), renamedGroupName());
           },
           [](Stage &s) { return Stage::nameOf(s.contact(s.jid).parent()) == renamedGroupName(); }},
          {"it is shown there",
           [](Stage &s) {
               s.tree()->expand(s.group(renamedGroupName()));
               s.tree()->scrollTo(s.contact(s.jid));
           },
           [](Stage &s) { return !s.tree()->visualRect(s.contact(s.jid)).isEmpty(); }}}},
        {"remark",
         TourStep::Pane,
         {expandAndRemember(2),
          contactMenu(),
          choose("commonSingleMenu", "changeRemarkName", "QInputDialog"),
          {"the row shows the remark",
           [](Stage &s) { s.answer(QString::fromUtf8("张工（展会）")); },
           [](Stage &s) {
               return Stage::nameOf(s.contact(s.jid)) == QString::fromUtf8("张工（展会）");
           }},
          {"it is scrolled to", [](Stage &s) { s.tree()->scrollTo(s.contact(s.jid)); },
           [](Stage &s) { return !s.tree()->visualRect(s.contact(s.jid)).isEmpty(); }}}},
        {"offline-hidden",
         TourStep::Pane,
         {{"fewer contacts are shown",
           [](Stage &s) {
               s.number = s.shownContacts();
               s.trigger(s.menu(QStringLiteral("nullGroupMenu")),
                         QStringLiteral("onlyShowOnlineUser"));
           },
           [](Stage &s) { return s.shownContacts() < s.number; }}}},
        {"offline-shown-again",
         TourStep::Pane,
         {{"all contacts are shown",
           [](Stage &s) {
               s.trigger(s.menu(QStringLiteral("nullGroupMenu")),
                         QStringLiteral("onlyShowOnlineUser"));
           },
           [](Stage &s) { return s.shownContacts() == s.number; }}}},
        {"type-to-find",
         TourStep::Pane,
         {expandAndRemember(3),
          {"the contact is the current row",
           [](Stage &s) {
               // A sort key ends in the pinyin of the name, with "?" for what has none.
               QModelIndex contact = s.contact(s.jid);
               const auto pinyin = [&contact] {
                   return contact.data(262).toString().section(QLatin1Char('|'), -1).left(3);
               };
               while (contact.isValid() && pinyin().contains(QLatin1Char('?')))
                   contact = contact.sibling(contact.row() + 1, 0);
               s.target = pinyin().toLower();
               s.tree()->setCurrentIndex(s.contact(s.jid).parent());
               for (const QChar letter : s.target)
                   s.key(letter.toUpper().unicode(), QString(letter));
           },
           [](Stage &s) {
               const QString key = s.tree()->currentIndex().data(262).toString();
               return !s.target.isEmpty() &&
                      key.section(QLatin1Char('|'), -1).startsWith(s.target, Qt::CaseInsensitive);
           }}}},
        {"delete-confirm",
         TourStep::Pane,
         {expandAndRemember(1), contactMenu(),
          choose("commonSingleMenu", "delFriend", "QMessageBox")}},
        {"contact-request",
         TourStep::Pane,
         {strangerFound(SampleCompany::AcceptsAll), requestListed(), formOpened()}},
        {"requester-added",
         TourStep::Pane,
         {strangerFound(SampleCompany::AcceptsAll),
          requestListed(),
          formOpened(),
          {"the contact is in the tree", [](Stage &s) { s.press("AddFriend", "okButton"); },
           [](Stage &s) { return s.contact(s.jid).isValid(); }},
          {"its row is shown",
           [](Stage &s) {
               s.tree()->expand(s.contact(s.jid).parent());
               s.tree()->scrollTo(s.contact(s.jid));
           },
           [](Stage &s) { return !s.tree()->visualRect(s.contact(s.jid)).isEmpty(); }}}},
    };
}

// --- The host's own -------------------------------------------------------------

std::vector<TourStep> hostSteps()
{
    return {
        {"english",
         TourStep::HostOnly,
         {{"the window speaks English",
           [](Stage &s) { s.window().setLanguage(QStringLiteral("en")); },
           [](Stage &s) {
               return s.window().windowTitle().endsWith(QLatin1String("FriendUI reference host"));
           }}}},
        {"chinese",
         TourStep::HostOnly,
         {{"the window speaks Chinese",
           [](Stage &s) { s.window().setLanguage(QStringLiteral("zh_CN")); },
           [](Stage &s) {
               return !s.window().windowTitle().endsWith(QLatin1String("FriendUI reference host"));
           }}}},
        {"dark",
         TourStep::HostOnly,
         {{"the language is again that of the start",
           [](Stage &s) { s.window().setLanguage(s.host().options().language); },
           {}},
          {"the window is dark", [](Stage &s) { s.window().setSkin(QStringLiteral("dark")); },
           [](Stage &s) {
               return s.window().palette().color(QPalette::Window).lightness() < 80;
           }}}},
        {"chat-dark",
         TourStep::HostOnly,
         {{"a chat is open",
           [](Stage &s) {
               const QList<FriendData> contacts = s.host().core()->contacts();
               for (const FriendData &contact : contacts) {
                   if (contact.jid == s.host().core()->ownJid())
                       continue;
                   s.window().chats()->open(contact.jid, MessageData::Person);
                   return;
               }
           },
           [](Stage &s) { return s.window().chats()->count() > 0; }}}},
        {"light",
         TourStep::HostOnly,
         {{"the window is light", [](Stage &s) { s.window().setSkin(QStringLiteral("light")); },
           [](Stage &s) {
               return s.window().palette().color(QPalette::Window).lightness() > 200;
           }}}},
        {"chat",
         TourStep::Pane,
         {{"the skin is again that of the start",
           [](Stage &s) { s.window().setSkin(s.host().options().skin); },
           {}},
          expandAndRemember(2),
          {"Enter opens the chat",
           [](Stage &s) {
               s.tree()->setCurrentIndex(s.contact(s.jid));
               s.key(Qt::Key_Return);
           },
           [](Stage &s) { return s.window().chats()->pageOf(s.jid) != nullptr; }},
          {"the message is in the conversation",
           [](Stage &s) {
               ChatPage *page = s.window().chats()->pageOf(s.jid);
               auto *input = page->findChild<QPlainTextEdit *>(QStringLiteral("chatInput"));
               input->setPlainText(QString::fromUtf8("你好，下午三点开会。"));
               QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
               QApplication::sendEvent(input, &enter);
           },
           [](Stage &s) {
               const QList<MessageData> messages = s.host().core()->messages(s.jid, 1);
               return !messages.isEmpty() &&
                      messages.last().body == QString::fromUtf8("你好，下午三点开会。");
           }}}},
        {"event-monitor",
         TourStep::HostOnly,
         {{"events are listed", [](Stage &s) { s.window().showMonitor(true); },
           [](Stage &s) { return s.window().monitor()->table()->model()->rowCount() > 0; }},
          {"one is chosen",
           [](Stage &s) {
               const QAbstractItemModel *model = s.window().monitor()->table()->model();
               for (int row = 0; row < model->rowCount(); ++row) {
                   if (model->index(row, 0).data(EventModel::CodeRole) == Inbound::GroupCreated) {
                       s.window().monitor()->table()->selectRow(row);
                       s.window().monitor()->table()->scrollTo(model->index(row, 0));
                       return;
                   }
               }
               s.window().monitor()->table()->selectRow(0);
           },
           [](Stage &s) {
               return s.window().monitor()->table()->selectionModel()->hasSelection();
           }}}},
        {"offline",
         TourStep::HostOnly,
         {{"the connection is gone",
           [](Stage &s) {
               s.window().showMonitor(false);
               s.window().setConnected(false);
           },
           [](Stage &s) { return !s.host().core()->isConnected(); }}}},
        {"online-again",
         TourStep::HostOnly,
         {{"the connection is back", [](Stage &s) { s.window().setConnected(true); },
           [](Stage &s) { return s.host().core()->isConnected(); }}}},
    };
}

// --- States that only a start shows ---------------------------------------------

TourMove groupsFailed()
{
    return {"a way to try again is offered", {}, [](Stage &s) {
                return s.shownWidget(QStringLiteral("friendsFailed")) != nullptr;
            }};
}

std::vector<TourStep> ownProcessSteps()
{
    const QStringList withoutGroups{QStringLiteral("--fail"), QStringLiteral("RequestGroups")};
    return {
        {"groups-loading",
         TourStep::Pane,
         {{"the page says that it is loading",
           {},
           [](Stage &s) { return s.shownWidget(QStringLiteral("friendsLoading")) != nullptr; }}},
         {QStringLiteral("--silent"), QStringLiteral("RequestGroups")}},
        {"groups-failed", TourStep::Pane, {groupsFailed()}, withoutGroups},
        {"groups-tried-again",
         TourStep::Pane,
         {groupsFailed(),
          {"the tree shows groups",
           [](Stage &s) {
               s.host().levers()->setFailing(QStringLiteral("RequestGroups"), false);
               if (auto *retry = s.window().findChild<QPushButton *>(QStringLiteral("retry")))
                   retry->click();
           },
           [](Stage &s) { return s.firstGroupWithContacts().isValid(); }}},
         withoutGroups},
        {"scale-2x",
         TourStep::Pane,
         {treeFilled(), expandAndRemember(1)},
         {},
         {QStringLiteral("QT_SCALE_FACTOR=2")}},
    };
}

} // namespace

const std::vector<TourStep> &tourSteps()
{
    static const std::vector<TourStep> all = [] {
        std::vector<TourStep> steps = treeSteps();
        for (const auto &part :
             {hostSteps(), organisationSteps(), organisationStateSteps(), localSteps(),
              localStateSteps(), teamSteps(), teamStateSteps(), numberSteps(), numberStateSteps(),
              cardSteps(), pictureSteps(), externalSteps(), externalStateSteps(), windowSteps(),
              ownProcessSteps()})
            steps.insert(steps.end(), part.begin(), part.end());
        return steps;
    }();
    return all;
}
