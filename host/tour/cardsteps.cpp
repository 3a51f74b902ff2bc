// The floating card beside rows of the lists, as the host's request shows it: a tour has no
// pointer that could rest on them.
#include "host/core/embeddedcore.h"
#include "host/hostapplication.h"
#include "host/hostbus.h"
#include "host/levermenu.h"
#include "host/mainwindow.h"
#include "host/tour/tourparts.h"
#include "host/tour/tourstage.h"
#include "hostapi/eventcodes.h"

#include <QScreen>
#include <QTreeView>

namespace {

using Stage = TourStage;

constexpr char Card[] = "CSignEx";

TourMove friendsShown()
{
    return {"the tree shows groups", [](Stage &s) { s.openPage(QStringLiteral("friends")); },
            [](Stage &s) { return s.firstGroupWithContacts().isValid(); }, TourMove::Again};
}

// Remembers a contact, or the own row.
TourMove rowShown(bool isOwn)
{
    return {"the row is on the screen",
            [isOwn](Stage &s) {
                const QModelIndex group = s.firstGroupWithContacts(4);
                s.jid = isOwn ? s.host().core()->ownJid() : Stage::jidOf(s.otherContact(group, 2));
                const QModelIndex row = s.contact(s.jid);
                if (!row.isValid())
                    return;
                s.tree()->expand(row.parent());
                s.tree()->setCurrentIndex(row);
                s.tree()->scrollTo(row);
            },
            [](Stage &s) {
                const QModelIndex row = s.contact(s.jid);
                return row.isValid() && !s.tree()->visualRect(row).isEmpty();
            },
            TourMove::Again};
}

void hideCard(Stage &s)
{
    s.host().bus()->notify(Inbound::HideContactCard, QString());
}

// Where a list would ask for it.
void showCard(Stage &s, const char *list)
{
    hideCard(s);
    const QTreeView *view = s.list(list);
    if (!view)
        return;
    const QRect row = view->visualRect(view->currentIndex());
    const QPoint at = view->viewport()->mapToGlobal(QPoint(view->viewport()->width(), row.top()));
    s.host().bus()->notify(Inbound::ShowContactCard, s.jid, qint32(at.x()), qint32(at.y()),
                           qint32(view->viewport()->width()), false);
}

TourMove atTheEdge()
{
    return {"the window is at the edge of the screen",
            [](Stage &s) {
                s.number = s.window().x();
                const QRect screen = s.window().screen()->availableGeometry();
                s.window().move(screen.right() - s.tree()->width(), s.window().y());
            },
            {}};
}

TourMove backFromTheEdge()
{
    return {"the window is where it was", [](Stage &s) { s.window().move(0, s.window().y()); }, {}};
}

TourMove failing(bool fails)
{
    return {"profiles are refused, or no more",
            [fails](Stage &s) {
                s.host().levers()->setFailing(QStringLiteral("RequestProfile"), fails);
            },
            {}};
}

} // namespace

TourMove cardBeside(const char *list)
{
    return {"the card is beside the row", [list](Stage &s) { showCard(s, list); },
            [](Stage &s) { return s.part(Card, "name") && !s.part(Card, "loading"); }};
}

std::vector<TourStep> cardSteps()
{
    const TourMove reload{"the card offers to load it again", {}, [](Stage &s) {
                              return s.part(Card, "btnReLoad") != nullptr;
                          }};
    const TourMove externals{"an external contact's row is shown",
                             [](Stage &s) {
                                 const QModelIndex group = s.firstGroupWithContacts(1);
                                 if (!group.isValid())
                                     return;
                                 s.tree()->expand(group);
                                 s.jid = Stage::jidOf(s.otherContact(group, 0));
                                 s.tree()->setCurrentIndex(s.contact(s.jid));
                             },
                             [](Stage &s) {
                                 const QModelIndex row = s.contact(s.jid);
                                 return row.isValid() && !s.tree()->visualRect(row).isEmpty();
                             }};
    return {
        {"card",
         TourStep::Pane,
         {servicesReady(), friendsShown(), rowShown(false), cardBeside("FriendTreeView")}},
        {"card-own",
         TourStep::Pane,
         {servicesReady(), friendsShown(), rowShown(true), cardBeside("FriendTreeView")}},
        {"card-at-edge",
         TourStep::Pane,
         {servicesReady(), friendsShown(), rowShown(false), atTheEdge(),
          cardBeside("FriendTreeView")}},
        {"card-external",
         TourStep::Pane,
         {backFromTheEdge(), servicesReady(), paneShows("outsidefrd", "ExternalFriendWidget"),
          externals, cardBeside("FriendTreeView")}},
        {"card-failed",
         TourStep::Pane,
         {servicesReady(),
          friendsShown(),
          {"a contact whose profile nobody has asked for",
           [](Stage &s) {
               const QModelIndex group = s.firstGroupWithContacts(6);
               s.jid = Stage::jidOf(s.otherContact(group, 5));
               s.tree()->expand(group);
               s.tree()->setCurrentIndex(s.contact(s.jid));
           },
           [](Stage &s) { return s.contact(s.jid).isValid(); }},
          failing(true),
          {"the card opens", [](Stage &s) { showCard(s, "FriendTreeView"); }, {}},
          reload,
          failing(false)}},
    };
}
