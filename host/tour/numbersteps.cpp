// The page and the windows of service numbers. The first steps are of a page that has not
// asked for its numbers yet; what is subscribed to in the course of it stays so.
#include "host/core/embeddedcore.h"
#include "host/hostapplication.h"
#include "host/tour/serviceuser.h"
#include "host/tour/tourparts.h"
#include "host/tour/tourstage.h"
#include "host/webservices.h"
#include "sample/samplechannels.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QTreeView>
#include <QUrl>

namespace {

using Stage = TourStage;

constexpr char Page[] = "CServiceNoWidget";
constexpr char Table[] = "CServiceNoTable";
constexpr char Search[] = "CServiceNumSearch";
constexpr char Info[] = "CServiceNumInfo";
constexpr char History[] = "CServiceNoHistory";

// As the rows of numbers answer; see their model.
constexpr int IdRole = 258;
constexpr int PictureRole = 259;

int sampleCount()
{
    return sampleServiceNumbers().size();
}

const QString News = QStringLiteral("sn2001");
const QString OneWay = QStringLiteral("sn2011");
const QString Closed = QStringLiteral("sn2009");
const QString Desk = QStringLiteral("sn2004");

TourMove pageOpened()
{
    return paneShows("serviceNumbers", Page);
}

int rowsOf(const QAbstractItemView *list)
{
    return list ? list->model()->rowCount() : 0;
}

// Every icon that is to be had is there.
bool hasIcons(const QAbstractItemView *list)
{
    for (int row = 0; row < qMin(rowsOf(list), 8); ++row) {
        const QModelIndex index = list->model()->index(row, 0);
        const QString code = index.data(IdRole).toString();
        const QString icon = index.data(PictureRole).toString();
        if (code != QLatin1String("sn2010") && !icon.contains(code))
            return false;
    }
    return rowsOf(list) > 0;
}

TourMove numbersListed(int atLeast = 1)
{
    return {"the numbers are listed, with their icons", {}, [atLeast](Stage &s) {
                return rowsOf(s.list(Table)) >= atLeast && hasIcons(s.list(Table));
            }};
}

void chooseRow(const Stage &s, const QString &code)
{
    QTreeView *view = s.list(Table);
    const QModelIndex row = s.row(Table, IdRole, code);
    if (!view || !row.isValid())
        return;
    view->setCurrentIndex(row);
    view->setFocus();
}

TourMove menuOf(const QString &code)
{
    return {"the number's menu opens",
            [code](Stage &s) {
                chooseRow(s, code);
                s.contextMenu(s.row(Table, IdRole, code));
            },
            [](Stage &s) { return s.openMenu(QStringLiteral("serviceMenu")) != nullptr; },
            TourMove::Again};
}

TourMove chosen(const char *action, const char *window)
{
    return {"the window opens",
            [=](Stage &s) {
                s.trigger(s.openMenu(QStringLiteral("serviceMenu")), QLatin1String(action));
            },
            [=](Stage &s) { return s.openWindow(window) != nullptr; }};
}

TourMove detailOf(const QString &code)
{
    return {"the number's window opens",
            [code](Stage &s) {
                chooseRow(s, code);
                Stage::keyTo(s.list(Table), Qt::Key_Return);
            },
            [](Stage &s) { return s.part(Info, "labelName") != nullptr; }};
}

void setFilter(const Stage &s, const QString &text)
{
    if (auto *box = qobject_cast<QLineEdit *>(s.shownWidget(QStringLiteral("serviceFilter"))))
        box->setText(text);
}

// As at another desk of the user's.
TourMove subscribedElsewhere(const std::function<bool(int)> &isSubscribed, int count)
{
    return {"the page has so many numbers",
            [=](Stage &s) {
                setFilter(s, QString());
                if (count > 0 && rowsOf(s.list(Table)) == count)
                    return;
                ServiceUser own(s.host().services()->address(), s.host().core()->ownUid());
                for (int i = 0; i < sampleCount(); ++i)
                    own.call(isSubscribed(i) ? QStringLiteral("/center/isrv/subIsrv.do")
                                             : QStringLiteral("/center/isrv/unsubIsrv.do"),
                             {{"appCode", QStringLiteral("sn%1").arg(2001 + i)}});
            },
            [=](Stage &s) {
                return count == 0 ? s.shownWidget(QStringLiteral("noapp")) != nullptr
                                  : rowsOf(s.list(Table)) == count;
            }};
}

TourMove filtered(const QString &text, int count)
{
    return {"the rows are those with the text", [text](Stage &s) { setFilter(s, text); },
            [count](Stage &s) { return s.list(Table) && rowsOf(s.list(Table)) == count; }};
}

// --- The search ----------------------------------------------------------------------------

QTreeView *hits(const Stage &s)
{
    return s.part<QTreeView>(Search, "ServiceNumListView");
}

TourMove searchOpened()
{
    return {"all numbers are found",
            [](Stage &s) {
                if (auto *entry = qobject_cast<QAbstractButton *>(
                        s.shownWidget(QStringLiteral("addService"))))
                    entry->click();
            },
            [](Stage &s) { return hasIcons(hits(s)); }};
}

TourMove typed(const QString &text)
{
    return {"the text is typed",
            [text](Stage &s) {
                if (auto *box = s.part<QLineEdit>(Search, "searchBox"))
                    box->setText(text);
            },
            {}};
}

TourMove found(int count)
{
    return {"the rows are those that were found", {}, [count](Stage &s) {
                return hits(s) && rowsOf(hits(s)) == count;
            }};
}

TourMove hitChosen(const QString &code, int key)
{
    return {"the number has been found and the key is pressed",
            [=](Stage &s) {
                QTreeView *view = hits(s);
                const QModelIndex row =
                    view ? view->model()->match(view->model()->index(0, 0), IdRole, code).value(0)
                         : QModelIndex();
                if (!row.isValid())
                    return;
                view->setCurrentIndex(row);
                view->setFocus();
                Stage::keyTo(view, key);
            },
            {}};
}

std::vector<TourMove> searchAnd(std::vector<TourMove> moves)
{
    moves.insert(moves.begin(), {servicesReady(), pageOpened(), searchOpened()});
    return moves;
}

// --- The history -----------------------------------------------------------------------------

TourMove historyAsked()
{
    return chosen("showhistory", History);
}

TourMove linkFollowed(const QString &address, const char *widget)
{
    return {"the link leads there",
            [address](Stage &s) {
                QWidget *window = s.openWindow(History);
                const QUrl base(s.host().services()->address().address +
                                QStringLiteral("/center/isrvHis/pcMsg.do?id=") + News);
                if (window)
                    QMetaObject::invokeMethod(window, "slot_openLink",
                                              Q_ARG(QUrl, base.resolved(QUrl(address))));
            },
            [widget](Stage &s) { return s.openWindow(widget) != nullptr; }};
}

// Inside, or that it is in the system's browser where there is no browser module.
TourMove pageShown()
{
    return {"the page is shown", {}, [](Stage &s) {
                if (s.part(History, "historyInBrowser"))
                    return true;
                const QWidget *window = s.openWindow(History);
                const auto parts = window ? window->findChildren<QWidget *>() : QWidgetList();
                return std::any_of(parts.begin(), parts.end(), [](const QWidget *part) {
                    return part->isVisible() && part->inherits("BrowserWidget");
                });
            }};
}

std::vector<TourStep> listSteps()
{
    const auto nobody = [](int) { return false; };
    const auto everybody = [](int i) { return i != 8; };
    const auto first = [](int i) { return i < 3; };
    return {
        {"numbers", TourStep::Pane, {servicesReady(), pageOpened(), numbersListed()}},
        {"numbers-menu",
         TourStep::Pane,
         {servicesReady(), pageOpened(), numbersListed(), menuOf(News)}},
        {"numbers-unsubscribe",
         TourStep::Pane,
         {servicesReady(), pageOpened(), numbersListed(), menuOf(News),
          chosen("cancelSubscribe", "TipBox")}},
        {"numbers-empty",
         TourStep::Pane,
         {servicesReady(), pageOpened(), subscribedElsewhere(nobody, 0)}},
        {"numbers-many",
         TourStep::Pane,
         {servicesReady(), pageOpened(), subscribedElsewhere(everybody, sampleCount() - 1),
          numbersListed()}},
        {"numbers-filtered",
         TourStep::Pane,
         {servicesReady(), pageOpened(), subscribedElsewhere(everybody, sampleCount() - 1),
          filtered(QString::fromUtf8("助手"), 2)}},
        {"numbers-filtered-out",
         TourStep::Pane,
         {servicesReady(), pageOpened(), subscribedElsewhere(everybody, sampleCount() - 1),
          filtered(QStringLiteral("zzqq"), 0)}},
        {"numbers-detail-one-way",
         TourStep::Pane,
         {servicesReady(), pageOpened(), subscribedElsewhere(everybody, sampleCount() - 1),
          numbersListed(), detailOf(OneWay)}},
        {"numbers-few-again",
         TourStep::Pane,
         {servicesReady(), pageOpened(), subscribedElsewhere(first, 3), numbersListed(),
          detailOf(News)}},
    };
}

std::vector<TourStep> findingSteps()
{
    const TourMove refused{"the window says why", {}, [](Stage &s) {
                               return s.part(Search, "noticeText") != nullptr;
                           }};
    const TourMove detail{"the number's window opens", {}, [](Stage &s) {
                              return s.part(Info, "labelName") != nullptr;
                          }};
    const TourMove alone{"the search is closed",
                         [](Stage &s) {
                             if (QDialog *window = s.openDialog(Search))
                                 window->reject();
                         },
                         [](Stage &s) { return !s.openDialog(Search); }};
    const TourMove detailRefused{"the window says why",
                                 [](Stage &s) { s.press(Info, "subscribe"); },
                                 [](Stage &s) {
                                     const auto *button = s.part<QWidget>(Info, "subscribe");
                                     return button && !button->toolTip().isEmpty();
                                 }};
    return {
        {"numbers-search", TourStep::Pane, searchAnd({})},
        {"numbers-search-text", TourStep::Pane,
         searchAnd({typed(QString::fromUtf8("助手")), found(2)})},
        {"numbers-search-nothing", TourStep::Pane,
         searchAnd({typed(QStringLiteral("zzqq")), partShown(Search, "searchNothing")})},
        {"numbers-search-failed", TourStep::Pane,
         searchAnd(
             {leverPulled("rule", R"({"path":"/center/isrv/listIsrv.do","status":503,"times":1})"),
              typed(QStringLiteral("zzzz")), partShown(Search, "searchServiceNumbersFailed")})},
        {"numbers-search-subscribed", TourStep::Pane,
         searchAnd({hitChosen(Desk, Qt::Key_Space),
                    {"the number is among the subscriptions",
                     {},
                     [](Stage &s) { return s.row(Table, IdRole, Desk).isValid(); }}})},
        {"numbers-search-refused", TourStep::Pane,
         searchAnd({hitChosen(Closed, Qt::Key_Space), refused})},
        {"numbers-detail", TourStep::Pane,
         searchAnd({hitChosen(QStringLiteral("sn2007"), Qt::Key_Return), detail, alone})},
        {"numbers-detail-refused", TourStep::Pane,
         searchAnd({hitChosen(Closed, Qt::Key_Return), detail, alone, detailRefused})},
    };
}

std::vector<TourStep> historySteps()
{
    const std::vector<TourMove> opened{servicesReady(), pageOpened(), numbersListed(),
                                       menuOf(News)};
    const auto after = [&opened](std::vector<TourMove> moves) {
        moves.insert(moves.begin(), opened.begin(), opened.end());
        return moves;
    };
    return {
        {"numbers-history-failed", TourStep::Pane,
         after(
             {leverPulled("rule", R"({"path":"/center/isrvHis/pcMsg.do","status":503,"times":1})"),
              historyAsked(), partShown(History, "historyFailed")})},
        {"numbers-history", TourStep::Pane, after({historyAsked(), pageShown()})},
        {"numbers-history-second", TourStep::Pane,
         after({historyAsked(), pageShown(),
                linkFollowed(QStringLiteral("?id=sn2001&page=2"), History), pageShown()})},
        {"numbers-history-outside", TourStep::Pane,
         after({historyAsked(), pageShown(),
                linkFollowed(QStringLiteral("https://news.example/2026"), "TipBox")})},
    };
}

} // namespace

std::vector<TourStep> numberSteps()
{
    std::vector<TourStep> steps{
        {"numbers-loading",
         TourStep::Pane,
         {servicesReady(),
          // The host asks as well, before or after the page.
          leverPulled("rule", R"({"path":"/center/isrv/myIsrv.do","delayMs":2000,"times":2})"),
          pageOpened(),
          {"the page says that it is loading",
           {},
           [](Stage &s) { return s.shownWidget(QStringLiteral("loading")) != nullptr; }}}},
    };
    for (const auto &part : {listSteps(), findingSteps(), historySteps()})
        steps.insert(steps.end(), part.begin(), part.end());
    return steps;
}

std::vector<TourStep> numberStateSteps()
{
    return {{"numbers-offline",
             TourStep::Pane,
             {paneShows("serviceNumbers", "yourImIsOffline")},
             {QStringLiteral("--offline")}},
            {"numbers-failed",
             TourStep::Pane,
             {paneShows("serviceNumbers", "loadErrorAndCrazyRetry")},
             {QStringLiteral("--no-simulation")}}};
}
