#include "host/chat/chatarea.h"
#include "host/core/embeddedcore.h"
#include "host/filetransfers.h"
#include "host/hostapplication.h"
#include "host/hostcontext.h"
#include "host/mainwindow.h"
#include "host/tour/tourparts.h"
#include "host/tour/tourstage.h"
#include "host/webservices.h"
#include "host/windows/hostwindows.h"

#include <QAbstractButton>
#include <QDialog>
#include <QListWidget>
#include <QMenu>
#include <QPoint>
#include <QTreeView>

namespace {

using Stage = TourStage;

// As the rows of the lists answer; see their models.
constexpr int IdRole = 258;
constexpr int RoomIdRole = 264;
constexpr int ShakeRole = 267;
constexpr int UnreadRole = 336;
constexpr int PinnedRole = 340;

constexpr char LatestList[] = "LatestView";
constexpr char RoomList[] = "MucListView";
constexpr char ChannelList[] = "CCustomerServerListView";

enum RoomRole
{
    Member = 0,
    Manager = 1,
    Owner = 2
};

int rowsOf(const Stage &s, const char *list)
{
    const QTreeView *view = s.list(list);
    return view ? view->model()->rowCount() : 0;
}

TourMove pageOpened(const char *entry, const char *list)
{
    return {"the page shows its rows",
            [entry](Stage &s) { s.openPage(QString::fromLatin1(entry)); },
            [list](Stage &s) { return rowsOf(s, list) > 0; }};
}

TourMove scrolledToTop(const char *list)
{
    return {"the first row is shown",
            [list](Stage &s) {
                if (QTreeView *view = s.list(list))
                    view->scrollToTop();
            },
            [list](Stage &s) {
                const QTreeView *view = s.list(list);
                return view && !view->visualRect(view->model()->index(0, 0)).isEmpty();
            }};
}

TourMove look(const QString &skin, const QString &language)
{
    return {"the window looks otherwise",
            [=](Stage &s) {
                s.window().showMonitor(false);
                s.window().setSkin(skin);
                s.window().setLanguage(language);
            },
            [skin](Stage &s) {
                const int lightness = s.window().palette().color(QPalette::Window).lightness();
                return (skin == QLatin1String("dark")) == (lightness < 80);
            }};
}

TourMove darkEnglish()
{
    return look(QStringLiteral("dark"), QStringLiteral("en"));
}

TourMove lightChinese()
{
    return look(QStringLiteral("light"), QStringLiteral("zh_CN"));
}

// The menu of the row with the remembered id.
TourMove menuOpened(const char *list, int idRole, const char *menu)
{
    return {"the row's menu opens", [=](Stage &s) { s.contextMenu(s.row(list, idRole, s.jid)); },
            [=](Stage &s) { return s.openMenu(QLatin1String(menu)) != nullptr; }, TourMove::Again};
}

TourMove chosen(const char *menu, const char *action, const char *dialog)
{
    return {"the dialog opens",
            [=](Stage &s) { s.trigger(s.menu(QLatin1String(menu)), QLatin1String(action)); },
            [=](Stage &s) { return s.openDialog(dialog) != nullptr; }};
}

// --- Latest contacts --------------------------------------------------------------

TourMove latestOpened()
{
    return pageOpened("latestContact", LatestList);
}

TourMove rowRemembered(const char *list, int idRole, int row)
{
    return {"there is such a row",
            [=](Stage &s) {
                const QTreeView *view = s.list(list);
                s.jid = view ? view->model()->index(row, 0).data(idRole).toString() : QString();
            },
            [](Stage &s) { return !s.jid.isEmpty(); }};
}

TourMove somebodyWrites()
{
    return {"the row is first and counts what is unread",
            [](Stage &s) {
                for (int i = 0; i < 3; ++i)
                    s.host().core()->receiveMessage(s.jid, s.jid, QString::fromUtf8("在吗？"));
            },
            [](Stage &s) {
                const QModelIndex row = s.row(LatestList, IdRole, s.jid);
                return row.row() == 0 && row.data(UnreadRole).toInt() >= 3;
            }};
}

TourMove pinnedOnTop(const char *list, const char *menu, const char *action)
{
    return {"the row is pinned on top",
            [=](Stage &s) { s.trigger(s.menu(QLatin1String(menu)), QLatin1String(action)); },
            [=](Stage &s) {
                const QModelIndex row = s.row(list, IdRole, s.jid);
                return row.row() == 0 && row.data(PinnedRole).toBool();
            }};
}

TourMove chatOpened()
{
    return {"its chat is open and nothing there is unread",
            [](Stage &s) {
                s.list(LatestList)->setCurrentIndex(s.row(LatestList, IdRole, s.jid));
                Stage::keyTo(s.list(LatestList), Qt::Key_Return);
            },
            [](Stage &s) {
                return s.window().chats()->pageOf(s.jid) &&
                       s.row(LatestList, IdRole, s.jid).data(UnreadRole).toInt() == 0;
            }};
}

std::vector<TourStep> latestSteps()
{
    const TourMove oldest{
        "the oldest are shown", [](Stage &s) { s.list(LatestList)->scrollToBottom(); },
        [](Stage &s) {
            const QTreeView *view = s.list(LatestList);
            const QModelIndex last = view->model()->index(view->model()->rowCount() - 1, 0);
            return !view->visualRect(last).isEmpty();
        }};
    return {
        {"latest", TourStep::Pane, {lightChinese(), latestOpened()}},
        {"latest-oldest", TourStep::Pane, {latestOpened(), oldest}},
        {"latest-menu",
         TourStep::Pane,
         {latestOpened(), rowRemembered(LatestList, IdRole, 3),
          menuOpened(LatestList, IdRole, "latestMenu")}},
        {"latest-message",
         TourStep::Pane,
         {latestOpened(), rowRemembered(LatestList, IdRole, 5), somebodyWrites(),
          scrolledToTop(LatestList)}},
        {"latest-pinned",
         TourStep::Pane,
         {latestOpened(), rowRemembered(LatestList, IdRole, 4),
          menuOpened(LatestList, IdRole, "latestMenu"),
          pinnedOnTop(LatestList, "latestMenu", "setGroupToppest"), scrolledToTop(LatestList)}},
        {"latest-chat",
         TourStep::Pane,
         {latestOpened(), rowRemembered(LatestList, IdRole, 2), chatOpened()}},
        {"latest-dark", TourStep::Pane, {darkEnglish(), latestOpened(), scrolledToTop(LatestList)}},
    };
}

// --- Group chats --------------------------------------------------------------------

TourMove roomsOpened()
{
    return pageOpened("groupChat", RoomList);
}

TourMove tabChosen(const char *button, const char *shown)
{
    return {"the tab is chosen",
            [button](Stage &s) {
                if (auto *tab =
                        qobject_cast<QAbstractButton *>(s.shownWidget(QLatin1String(button))))
                    tab->click();
            },
            [shown](Stage &s) {
                return s.list(shown) != nullptr || s.shownWidget(QLatin1String(shown)) != nullptr;
            }};
}

TourMove roomRemembered(int role)
{
    return {"there is such a group chat",
            [role](Stage &s) {
                s.jid.clear();
                const QList<MucData> rooms = s.host().core()->rooms();
                for (const MucData &room : rooms) {
                    if (s.host().core()->roomRole(room.roomJid) == role && !room.forbidden &&
                        room.classify != MucData::LocalRoom)
                        s.jid = room.roomJid;
                }
            },
            [](Stage &s) { return s.row(RoomList, RoomIdRole, s.jid).isValid(); }};
}

TourMove roomMenu()
{
    return menuOpened(RoomList, RoomIdRole, "mucMenu");
}

std::vector<TourMove> inAddressBook(int role, std::vector<TourMove> moves)
{
    moves.insert(moves.begin(), {roomsOpened(), tabChosen("btnAddressBookMuc", RoomList),
                                 roomRemembered(role), roomMenu()});
    return moves;
}

TourMove settingOpened()
{
    return {"the setting's menu opens",
            [](Stage &s) {
                QMenu *menu = s.openMenu(QStringLiteral("mucMenu"));
                const QList<QAction *> actions = menu ? menu->actions() : QList<QAction *>();
                for (QAction *action : actions) {
                    if (action->menu())
                        menu->setActiveAction(action);
                }
                Stage::keyTo(menu, Qt::Key_Right);
            },
            [](Stage &s) {
                QMenu *menu = s.openMenu(QStringLiteral("mucMenu"));
                QAction *active = menu ? menu->activeAction() : nullptr;
                return active && active->menu() && active->menu()->isVisible();
            }};
}

TourMove silenced()
{
    return {"the service agrees and the group chat is silent",
            [](Stage &s) {
                s.trigger(s.menu(QStringLiteral("mucMenu")), QStringLiteral("recivenoremind"));
            },
            [](Stage &s) { return s.host().context()->sessionNotify(s.jid) == 1; }};
}

TourMove servicesReady()
{
    return {"the web services are logged in", {}, [](Stage &s) {
                return s.host().services()->state() == WebServices::Ready;
            }};
}

TourMove shaking()
{
    return {"the group chat shakes",
            [](Stage &s) {
                const QString from = s.host().core()->roomMembers(s.jid).first().jid;
                s.host().core()->receiveMessage(from, s.jid, QString::fromUtf8("大家看一下"));
            },
            [](Stage &s) {
                return s.row(RoomList, RoomIdRole, s.jid).data(ShakeRole).toPoint() != QPoint();
            }};
}

TourMove memberChosen()
{
    return {"a member is chosen",
            [](Stage &s) {
                auto *list = s.openDialog("RoomManagement")
                                 ->findChild<QListWidget *>(QStringLiteral("roomMembers"));
                list->setCurrentRow(3);
            },
            {}};
}

std::vector<TourStep> roomSteps()
{
    return {
        {"groups",
         TourStep::Pane,
         {lightChinese(), roomsOpened(), tabChosen("btnAddressBookMuc", RoomList)}},
        {"groups-local", TourStep::Pane, {roomsOpened(), tabChosen("btnLocalMuc", RoomList)}},
        {"groups-menu-owner", TourStep::Pane, inAddressBook(Owner, {})},
        {"groups-menu-manager", TourStep::Pane, inAddressBook(Manager, {})},
        {"groups-menu-member", TourStep::Pane, inAddressBook(Member, {})},
        {"groups-rename", TourStep::Pane,
         inAddressBook(
             Owner,
             {chosen("mucMenu", "modifyGroupName", "QInputDialog"),
              {"a name is typed", [](Stage &s) { s.fill(QString::fromUtf8("新项目组")); }, {}}})},
        {"groups-quit", TourStep::Pane,
         inAddressBook(Member, {chosen("mucMenu", "quitmuc", "QMessageBox")})},
        {"groups-setting", TourStep::Pane, inAddressBook(Manager, {settingOpened()})},
        {"groups-silent", TourStep::Pane,
         inAddressBook(Manager, {servicesReady(), silenced(), roomMenu(), settingOpened()})},
        {"groups-shaking",
         TourStep::Pane,
         {roomsOpened(), tabChosen("btnAddressBookMuc", RoomList), roomRemembered(Member),
          shaking()}},
        {"groups-manage", TourStep::Pane,
         inAddressBook(Owner,
                       {chosen("mucMenu", "changemanage", "RoomManagement"), memberChosen()})},
        {"groups-dark",
         TourStep::Pane,
         {darkEnglish(), roomsOpened(), tabChosen("btnAddressBookMuc", RoomList),
          roomRemembered(Owner), roomMenu()}},
    };
}

// --- Channels, files ------------------------------------------------------------------

TourMove channelsOpened()
{
    return pageOpened("customer", ChannelList);
}

TourMove teamOpened()
{
    return {"the team's window opens",
            [](Stage &s) {
                s.jid = s.host().core()->productTeamJid();
                s.list(ChannelList)->setCurrentIndex(s.row(ChannelList, IdRole, s.jid));
                Stage::keyTo(s.list(ChannelList), Qt::Key_Return);
            },
            [](Stage &s) { return s.openDialog("CPembaTeamInfo") != nullptr; }};
}

TourMove fileUnderWay()
{
    return {"a file is under way",
            [](Stage &s) {
                FileTransfers *transfers = s.window().windows()->transfers();
                const QString jid = s.host().core()->rooms().first().roomJid;
                s.window().chats()->open(jid, MessageData::Room);
                transfers->start(jid, MessageData::Room, QString::fromUtf8("季度报告.pdf"),
                                 2411724);
            },
            [](Stage &s) { return s.window().windows()->transfers()->percent() >= 5; }};
}

std::vector<TourStep> channelSteps()
{
    return {
        {"channels", TourStep::Pane, {lightChinese(), channelsOpened()}},
        {"channels-menu",
         TourStep::Pane,
         {channelsOpened(), rowRemembered(ChannelList, IdRole, 3),
          menuOpened(ChannelList, IdRole, "customerMenu")}},
        {"channels-pinned",
         TourStep::Pane,
         {channelsOpened(), rowRemembered(ChannelList, IdRole, 4),
          menuOpened(ChannelList, IdRole, "customerMenu"),
          pinnedOnTop(ChannelList, "customerMenu", "toTopCustomer")}},
        {"channels-team", TourStep::Pane, {channelsOpened(), teamOpened()}},
        {"channels-dark", TourStep::Pane, {darkEnglish(), channelsOpened()}},
        {"file-transfer", TourStep::HostOnly, {lightChinese(), fileUnderWay()}},
    };
}

// --- Without anything -----------------------------------------------------------------

TourMove emptyPage(const char *entry, const char *page)
{
    return {"the page says that there is nothing",
            [entry](Stage &s) { s.openPage(QLatin1String(entry)); },
            [page](Stage &s) { return s.shownWidget(QLatin1String(page)) != nullptr; }};
}

TourMove channelsRemoved()
{
    return {"there is no channel",
            [](Stage &s) {
                const QList<CSChannelData> channels = s.host().core()->channels();
                for (const CSChannelData &channel : channels)
                    s.host().core()->removeChannel(channel.id);
            },
            [](Stage &s) { return s.host().core()->channels().isEmpty(); }};
}

} // namespace

std::vector<TourStep> localSteps()
{
    std::vector<TourStep> steps = latestSteps();
    for (const auto &part : {roomSteps(), channelSteps(), searchSteps()})
        steps.insert(steps.end(), part.begin(), part.end());
    return steps;
}

std::vector<TourStep> localStateSteps()
{
    // A company of one has nobody to talk to.
    const QStringList alone{QStringLiteral("--people"), QStringLiteral("1")};
    return {
        {"groups-empty", TourStep::Pane, {emptyPage("groupChat", "MucEmptyPage")}, alone},
        {"groups-local-empty",
         TourStep::Pane,
         {emptyPage("groupChat", "MucEmptyPage"), tabChosen("btnLocalMuc", "MucEmptyPage")},
         alone},
        {"channels-empty",
         TourStep::Pane,
         {channelsRemoved(), emptyPage("customer", "nocustomer")},
         alone},
    };
}
