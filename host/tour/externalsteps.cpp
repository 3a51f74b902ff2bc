// External contacts: their page, the search for people outside, and asking and being asked.
// Each step has an outsider of its own, so that none depends on what became of another.
#include "host/core/embeddedcore.h"
#include "host/hostapplication.h"
#include "host/mainwindow.h"
#include "host/tour/serviceuser.h"
#include "host/tour/tourparts.h"
#include "host/tour/tourstage.h"
#include "host/webservices.h"
#include "host/windows/hostwindows.h"
#include "host/windows/notices.h"
#include "sample/samplecompany.h"

#include <QAbstractButton>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QTreeView>

namespace {

using Stage = TourStage;

constexpr char Search[] = "SearchExternalFriend";
constexpr char Window[] = "AddExternalFriend";
constexpr char Notified[] = "Notices";

// Of those who are nobody's contact at first.
enum Outsider
{
    NotAsked = 12,
    IsAsked,
    HasEnough,
    Asks,
    AskedLongAgo,
    IsAccepted,
    IsBlocked
};

QString uidOf(Outsider who)
{
    return SampleCompany().outsider(who).uid;
}

TourMove pageOpened()
{
    return {"the tree shows external contacts",
            [](Stage &s) { s.openPage(QStringLiteral("outsidefrd")); },
            [](Stage &s) {
                return s.shownWidget(QStringLiteral("ExternalFriendWidget")) &&
                       s.firstGroupWithContacts(1).isValid();
            }};
}

TourMove groupOpened()
{
    return {"all groups are open",
            [](Stage &s) {
                for (int row = 0; row < s.groupCount(); ++row)
                    s.tree()->expand(s.tree()->model()->index(row, 0));
                s.jid = Stage::jidOf(s.otherContact(s.firstGroupWithContacts(1), 0));
            },
            [](Stage &s) {
                const QModelIndex row = s.contact(s.jid);
                return row.isValid() && !s.tree()->visualRect(row).isEmpty();
            }};
}

TourMove menuOf(bool ofGroup, const char *menu)
{
    return {"the row's menu opens",
            [ofGroup](Stage &s) {
                const QModelIndex row = s.contact(s.jid);
                s.contextMenu(ofGroup ? row.parent() : row);
            },
            [menu](Stage &s) { return s.openMenu(QLatin1String(menu)) != nullptr; },
            TourMove::Again};
}

TourMove chosen(const char *menu, const char *action, const char *window)
{
    return {"the window opens",
            [=](Stage &s) { s.trigger(s.openMenu(QLatin1String(menu)), QLatin1String(action)); },
            [=](Stage &s) { return s.openWindow(window) != nullptr; }};
}

// --- Searching and asking --------------------------------------------------------------------

TourMove searchOpened()
{
    return {"the search is open",
            [](Stage &s) {
                if (auto *add =
                        qobject_cast<QAbstractButton *>(s.shownWidget(QStringLiteral("btnAdd"))))
                    add->click();
            },
            [](Stage &s) { return s.openDialog(Search) != nullptr; }};
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

TourMove hitsShown()
{
    return {"people are found", {}, [](Stage &s) {
                const auto *hits = s.part<QAbstractItemView>(Search, "externalHits");
                return hits && hits->model()->rowCount() > 0;
            }};
}

TourMove hitOpened()
{
    return {"the window about the person opens",
            [](Stage &s) {
                auto *hits = s.part<QAbstractItemView>(Search, "externalHits");
                hits->setCurrentIndex(hits->model()->index(0, 0));
                hits->setFocus();
                Stage::keyTo(hits, Qt::Key_Return);
            },
            [](Stage &s) { return s.part(Window, "btnSend") != nullptr; }};
}

TourMove searchClosed()
{
    return {"the search is closed",
            [](Stage &s) {
                if (QDialog *search = s.openDialog(Search))
                    search->reject();
            },
            [](Stage &s) { return !s.openDialog(Search); }};
}

std::vector<TourMove> searchAnd(std::vector<TourMove> moves)
{
    moves.insert(moves.begin(), {servicesReady(), pageOpened(), searchOpened()});
    return moves;
}

std::vector<TourMove> formOf(Outsider who, std::vector<TourMove> moves)
{
    const QString account = SampleCompany().outsider(who).account;
    moves.insert(moves.begin(), {servicesReady(), pageOpened(), searchOpened(), typed(account),
                                 hitsShown(), hitOpened(), searchClosed()});
    return moves;
}

TourMove told()
{
    return {"the window says how it went", {}, [](Stage &s) {
                return s.part(Window, "tipText") != nullptr;
            }};
}

// --- Being asked ------------------------------------------------------------------------------

TourMove asks(Outsider who)
{
    return {"the request is among the notices",
            [who](Stage &s) {
                ServiceUser outsider(s.host().services()->address(), uidOf(who));
                outsider.call(QStringLiteral("/center/friend/addFriendRequest.do"),
                              {{"userId", s.host().core()->ownUid()},
                               {"reason", QString::fromUtf8("您好，我们在展会上见过，想和您讨论"
                                                            "下一季度的合作。")},
                               {"clientType", QStringLiteral("pc")}});
            },
            [who](Stage &s) {
                auto *list = s.part<QListWidget>(Notified, "noticeList");
                if (!list)
                    return false;
                const QString name = SampleCompany().outsider(who).name;
                for (int row = 0; row < list->count(); ++row) {
                    if (!list->item(row)->text().contains(name))
                        continue;
                    list->setCurrentRow(row);
                    return true;
                }
                return false;
            }};
}

TourMove requestOpened()
{
    return {"the request is shown", [](Stage &s) { s.press(Notified, "acceptNotice"); },
            [](Stage &s) {
                if (!s.part(Window, "btnConfirm"))
                    return false;
                s.window().windows()->notices()->hide();
                return true;
            }};
}

TourMove answered(const char *button)
{
    return {"the answer has been taken", [button](Stage &s) { s.press(Window, button); },
            [](Stage &s) {
                return s.part(Window, "tipText") != nullptr && !s.part(Window, "btnConfirm");
            }};
}

std::vector<TourMove> askedBy(Outsider who, std::vector<TourMove> moves)
{
    moves.insert(moves.begin(), {servicesReady(), pageOpened(), asks(who), requestOpened()});
    return moves;
}

std::vector<TourStep> pageSteps()
{
    return {
        {"externals", TourStep::Pane, {servicesReady(), pageOpened(), groupOpened()}},
        {"externals-group-menu",
         TourStep::Pane,
         {servicesReady(), pageOpened(), groupOpened(), menuOf(true, "commonGroupMenu")}},
        {"externals-menu",
         TourStep::Pane,
         {servicesReady(), pageOpened(), groupOpened(), menuOf(false, "commonSingleMenu")}},
        {"externals-delete",
         TourStep::Pane,
         {servicesReady(), pageOpened(), groupOpened(), menuOf(false, "commonSingleMenu"),
          chosen("commonSingleMenu", "deleteMyFriend", "TipBox")}},
        {"externals-card",
         TourStep::Pane,
         {servicesReady(), pageOpened(), groupOpened(), menuOf(false, "commonSingleMenu"),
          chosen("commonSingleMenu", "viewdetail", "CDetailView")}},
    };
}

std::vector<TourStep> findingSteps()
{
    return {
        {"external-search", TourStep::Pane, searchAnd({partShown(Search, "outsideSearchHint")})},
        {"external-search-results", TourStep::Pane,
         searchAnd({typed(QStringLiteral("an")), hitsShown()})},
        {"external-search-nothing", TourStep::Pane,
         searchAnd({typed(QStringLiteral("zzqqxx")), partShown(Search, "searchNothing")})},
        {"external-search-failed", TourStep::Pane,
         searchAnd(
             {leverPulled("rule", R"({"path":"/center/friend/search.do","status":503,"times":1})"),
              typed(QStringLiteral("zhang")), partShown(Search, "outsideSearchFailed")})},
    };
}

std::vector<TourStep> requestSteps()
{
    const QByteArray enough = "{\"uid\":\"" + uidOf(HasEnough).toLatin1() + "\",\"limit\":0}";
    return {
        {"external-request", TourStep::Pane, formOf(NotAsked, {})},
        {"external-request-sent", TourStep::Pane,
         formOf(IsAsked, {buttonPressed(Window, "btnSend"), told()})},
        {"external-request-limit", TourStep::Pane,
         formOf(HasEnough,
                {leverPulled("friendLimit", enough), buttonPressed(Window, "btnSend"), told()})},
        {"external-notice", TourStep::Pane, {servicesReady(), pageOpened(), asks(Asks)}},
        {"external-asked", TourStep::Pane, askedBy(Asks, {})},
        {"external-asked-expired", TourStep::Pane,
         askedBy(AskedLongAgo, {leverPulled("friend", "{\"action\":\"age\",\"from\":\"" +
                                                          uidOf(AskedLongAgo).toLatin1() +
                                                          "\",\"to\":\"u000000\",\"days\":7}"),
                                buttonPressed(Window, "btnConfirm"), told()})},
        {"external-asked-added", TourStep::Pane, askedBy(IsAccepted, {answered("btnConfirm")})},
        {"external-asked-blocked", TourStep::Pane, askedBy(IsBlocked, {answered("btnBlackList")})},
    };
}

} // namespace

std::vector<TourStep> externalSteps()
{
    std::vector<TourStep> steps = pageSteps();
    for (const auto &part : {findingSteps(), requestSteps()})
        steps.insert(steps.end(), part.begin(), part.end());
    return steps;
}

std::vector<TourStep> externalStateSteps()
{
    // Nobody is a contact of this one.
    const QStringList alone{QStringLiteral("--user"), uidOf(Asks)};
    const TourMove ungrouped{"only the group is left that everybody has",
                             [](Stage &s) {
                                 EmbeddedCore *core = s.host().core();
                                 core->keepExternal(core->groups(false).mid(0, 1), {});
                             },
                             {}};
    return {
        {"externals-nobody", TourStep::Pane, {paneShows("outsidefrd", "linkAddFriend")}, alone},
        {"externals-empty",
         TourStep::Pane,
         {ungrouped, paneShows("outsidefrd", "nofrd_toadd")},
         alone},
    };
}
