#include "host/core/embeddedcore.h"
#include "host/eventmonitor/webmonitor.h"
#include "host/eventmonitor/webrequestmodel.h"
#include "host/hostapplication.h"
#include "host/mainwindow.h"
#include "host/tour/tourparts.h"
#include "host/tour/tourstage.h"
#include "host/webservices.h"

#include <QCoreApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QTableView>
#include <QTreeView>

#include <algorithm>

namespace {

using Stage = TourStage;

// As the organisation's rows answer; see its model.
constexpr int IdRole = 258;
constexpr int KindRole = 280;
constexpr int DepartmentKind = 1;
constexpr int EmployeeKind = 2;
constexpr int FailedKind = 4;

constexpr int DeepestLevel = 3;

QModelIndex orgRow(const Stage &s, const QString &id)
{
    const QTreeView *view = s.orgTree();
    if (!view)
        return QModelIndex();
    const QModelIndexList found = view->model()->match(view->model()->index(0, 0), IdRole, id, 1,
                                                       Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? QModelIndex() : found.first();
}

bool hasRows(const QModelIndex &department)
{
    const QModelIndex first =
        department.model() ? department.model()->index(0, 0, department) : QModelIndex();
    const int kind = first.data(KindRole).toInt();
    return kind == DepartmentKind || kind == EmployeeKind;
}

// The departments above a person, the topmost first.
QStringList pathOf(const SampleCompany &company, const QString &uid)
{
    const QString last = company.person(company.indexOf(uid)).departmentId;
    const auto &all = company.departments();
    QStringList path;
    int at = 0;
    while (at < all.size() && all.at(at).id != last)
        ++at;
    for (; at >= 0 && at < all.size(); at = all.at(at).parent)
        path.prepend(all.at(at).id);
    return path;
}

QString uidOf(const QString &jid)
{
    return jid.section(QLatin1Char('@'), 0, 0);
}

bool isLoading(const QWidget *window)
{
    const auto parts = window->findChildren<QWidget *>();
    return std::any_of(parts.begin(), parts.end(), [](const QWidget *part) {
        return part->inherits("LoadingOverlay") && part->isVisible();
    });
}

TourMove pageOpened()
{
    return {"the organisation shows its departments",
            [](Stage &s) { s.openPage(QStringLiteral("organizationTree")); },
            [](Stage &s) {
                return s.orgTree() &&
                       s.orgTree()->model()->index(0, 0).data(KindRole) == DepartmentKind;
            }};
}

// Opens the department of that level above the remembered person, if there is one.
TourMove levelOpened(int level)
{
    const auto department = [level](Stage &s) {
        return orgRow(s, pathOf(s.host().core()->company(), uidOf(s.jid)).value(level));
    };
    return {"the department shows who belongs to it",
            [department](Stage &s) {
                if (s.orgTree())
                    s.orgTree()->expand(department(s));
            },
            [department](Stage &s) {
                const QModelIndex row = department(s);
                return !row.isValid() || hasRows(row);
            }};
}

// The remembered person's row is on the screen.
std::vector<TourMove> personShown()
{
    std::vector<TourMove> moves{servicesReady(), pageOpened()};
    for (int level = 0; level < DeepestLevel; ++level)
        moves.push_back(levelOpened(level));
    moves.push_back({"the colleague's row is shown",
                     [](Stage &s) {
                         if (!s.orgTree())
                             return;
                         s.orgTree()->setCurrentIndex(orgRow(s, uidOf(s.jid)));
                         s.orgTree()->scrollTo(s.orgTree()->currentIndex());
                     },
                     [](Stage &s) {
                         const QModelIndex row = orgRow(s, uidOf(s.jid));
                         return row.isValid() && !s.orgTree()->visualRect(row).isEmpty();
                     }});
    return moves;
}

TourMove personMenu()
{
    return {"the colleague's menu opens", [](Stage &s) { s.contextMenu(orgRow(s, uidOf(s.jid))); },
            [](Stage &s) { return s.openMenu(QStringLiteral("empMenu")) != nullptr; },
            TourMove::Again};
}

TourMove chosen(const char *action, const char *window)
{
    return {"the window opens",
            [=](Stage &s) { s.trigger(s.menu(QStringLiteral("empMenu")), QLatin1String(action)); },
            [=](Stage &s) { return s.openDialog(window) != nullptr; }};
}

TourMove formShown()
{
    return {"the form is shown", {}, [](Stage &s) {
                return s.shownWidget(QStringLiteral("okButton")) != nullptr;
            }};
}

TourMove cardFilled()
{
    return {"the card has been filled", {}, [](Stage &s) {
                const QDialog *card = s.openDialog("CDetailView");
                return card && !isLoading(card);
            }};
}

TourMove meChosen()
{
    return {"the own user is looked for", [](Stage &s) { s.jid = s.host().core()->ownJid(); },
            [](Stage &s) { return !s.jid.isEmpty(); }};
}

TourMove refused()
{
    return {"the window says that the person refuses", {}, [](Stage &s) {
                return s.shownWidget(QStringLiteral("resultPage")) != nullptr;
            }};
}

TourMove skinIs(const QString &skin)
{
    return {"the skin is another", [skin](Stage &s) { s.window().setSkin(skin); },
            [skin](Stage &s) {
                const int lightness = s.window().palette().color(QPalette::Window).lightness();
                return (skin == QLatin1String("dark")) == (lightness < 80);
            }};
}

// One of the topmost departments that nobody has opened before.
QModelIndex unopenedDepartment(const Stage &s)
{
    const QAbstractItemModel *model = s.orgTree() ? s.orgTree()->model() : nullptr;
    for (int row = 0; model && row < model->rowCount(); ++row) {
        if (model->rowCount(model->index(row, 0)) == 0)
            return model->index(row, 0);
    }
    return QModelIndex();
}

// Remembers the department.
TourMove departmentFailed()
{
    return {"a department that is opened without web services fails in its place",
            [](Stage &s) {
                s.host().services()->stop();
                const QModelIndex department = unopenedDepartment(s);
                if (!department.isValid())
                    return;
                s.target = department.data(IdRole).toString();
                s.orgTree()->expand(department);
            },
            [](Stage &s) {
                const QModelIndex row = orgRow(s, s.target);
                if (!row.isValid() || row.model()->index(0, 0, row).data(KindRole) != FailedKind)
                    return false;
                s.orgTree()->setCurrentIndex(row.model()->index(0, 0, row));
                return true;
            }};
}

TourMove servicesStarted()
{
    return {"the web services start", [](Stage &s) { s.host().services()->start(); }, {}};
}

TourMove retried()
{
    return {"Enter on the failed row loads the department",
            [](Stage &s) {
                QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
                if (s.orgTree())
                    QCoreApplication::sendEvent(s.orgTree(), &press);
            },
            [](Stage &s) { return hasRows(orgRow(s, s.target)); }};
}

template <class... Moves> std::vector<TourMove> personAnd(const Moves &...moves)
{
    std::vector<TourMove> all = personShown();
    (all.push_back(moves), ...);
    return all;
}

// The same for somebody whom the first move chooses.
template <class... Moves>
std::vector<TourMove> chosenPersonAnd(const TourMove &choice, const Moves &...moves)
{
    std::vector<TourMove> all = personAnd(moves...);
    all.insert(all.begin(), choice);
    return all;
}

} // namespace

TourMove servicesReady()
{
    return {"the web services are logged in", {}, [](Stage &s) {
                return s.host().services()->state() == WebServices::Ready;
            }};
}

TourMove strangerFound(SampleCompany::Policy policy)
{
    return {"somebody is no contact",
            [policy](Stage &s) {
                s.jid = s.stranger(policy);
                FriendData known;
                if (s.host().core()->contact(s.jid, &known))
                    s.host().core()->removeContact(s.jid);
            },
            [](Stage &s) {
                FriendData known;
                return !s.jid.isEmpty() && !s.host().core()->contact(s.jid, &known);
            }};
}

std::vector<TourStep> organisationSteps()
{
    const TourMove confirmed{"the other side confirms and the window says so",
                             [](Stage &s) { s.press("AddFriend", "okButton"); },
                             [](Stage &s) {
                                 FriendData known;
                                 return s.host().core()->contact(s.jid, &known) &&
                                        s.shownWidget(QStringLiteral("resultPage")) != nullptr;
                             }};
    return {
        {"organisation", TourStep::Pane, {servicesReady(), pageOpened()}},
        {"organisation-opened", TourStep::Pane,
         chosenPersonAnd(strangerFound(SampleCompany::AsksFirst))},
        {"organisation-hover-card", TourStep::Pane,
         chosenPersonAnd(strangerFound(SampleCompany::AsksFirst),
                         cardBeside("OrgStructureTreeView"))},
        {"organisation-card", TourStep::Pane,
         personAnd(personMenu(), chosen("viewdetail", "CDetailView"), cardFilled())},
        {"organisation-add-form", TourStep::Pane,
         personAnd(personMenu(), chosen("addcon", "AddFriend"), formShown())},
        {"organisation-added", TourStep::Pane,
         personAnd(personMenu(), chosen("addcon", "AddFriend"), formShown(), confirmed)},
        {"organisation-added-in-tree",
         TourStep::Pane,
         {{"the new contact is in the tree",
           [](Stage &s) { s.openPage(QStringLiteral("friends")); },
           [](Stage &s) { return s.contact(s.jid).isValid(); }},
          {"it is shown",
           [](Stage &s) {
               s.tree()->expand(s.contact(s.jid).parent());
               s.tree()->setCurrentIndex(s.contact(s.jid));
               s.tree()->scrollTo(s.contact(s.jid));
           },
           [](Stage &s) { return !s.tree()->visualRect(s.contact(s.jid)).isEmpty(); }}}},
        {"web-requests",
         TourStep::HostOnly,
         {servicesReady(),
          {"web requests are listed", [](Stage &s) { s.window().showWebMonitor(); },
           [](Stage &s) {
               return s.window().webMonitor()->isVisible() &&
                      s.window().webMonitor()->model()->rowCount() > 0;
           }},
          {"one is chosen", [](Stage &s) { s.window().webMonitor()->table()->selectRow(0); },
           [](Stage &s) {
               return s.window().webMonitor()->table()->selectionModel()->hasSelection();
           }}}},
    };
}

std::vector<TourStep> organisationStateSteps()
{
    return {
        {"organisation-own-profile", TourStep::Pane,
         chosenPersonAnd(meChosen(), personMenu(), chosen("viewdetail", "OwnProfileWindow"))},
        {"organisation-add-refused", TourStep::Pane,
         chosenPersonAnd(strangerFound(SampleCompany::RefusesAll), personMenu(),
                         chosen("addcon", "AddFriend"), refused())},
        {"organisation-dark", TourStep::Pane,
         chosenPersonAnd(strangerFound(SampleCompany::AsksFirst), skinIs(QStringLiteral("dark")),
                         personMenu(), chosen("viewdetail", "CDetailView"), cardFilled())},
        {"organisation-failed",
         TourStep::Pane,
         {skinIs(QStringLiteral("light")), servicesReady(), pageOpened(), departmentFailed()}},
        {"organisation-retried", TourStep::Pane, {servicesStarted(), servicesReady(), retried()}},
    };
}
