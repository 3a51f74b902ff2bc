// The pages and windows of virtual teams, with two teams that other people of the sample
// belong to as well.
#include "host/hostapplication.h"
#include "host/mainwindow.h"
#include "host/tour/teamscenes.h"
#include "host/tour/tourparts.h"
#include "host/tour/tourstage.h"
#include "host/webservices.h"
#include "host/windows/hostwindows.h"
#include "host/windows/notices.h"

#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QTreeView>

namespace {

using Stage = TourStage;

constexpr char Tree[] = "CVirtualTeamTreeView";

// As the rows of the team tree answer; see its model.
constexpr int NameRole = 257;
constexpr int IdRole = 258;
constexpr int KindRole = 280;
constexpr int MemberKind = 3;

// A row of any level, by its name.
QModelIndex rowOf(const Stage &s, const QString &name)
{
    const QTreeView *view = s.list(Tree);
    const QModelIndexList found =
        view ? view->model()->match(view->model()->index(0, 0), NameRole, name, 1,
                                    Qt::MatchExactly | Qt::MatchRecursive)
             : QModelIndexList();
    return found.value(0);
}

// The row of a person in the own team's top level, by uid.
QModelIndex memberRow(const Stage &s, const QString &id)
{
    const QModelIndex team = rowOf(s, TeamScenes::ownTeam());
    const int rows = team.isValid() ? team.model()->rowCount(team) : 0;
    for (int i = 0; i < rows; ++i) {
        const QModelIndex row = team.model()->index(i, 0, team);
        if (row.data(KindRole) == MemberKind && row.data(IdRole) == id)
            return row;
    }
    return QModelIndex();
}

TourMove pageOpened()
{
    return {"the page of teams is shown",
            [](Stage &s) { s.openPage(QStringLiteral("virtureteam")); },
            [](Stage &s) { return s.shownWidget(QStringLiteral("CVirtualTeamPage")) != nullptr; }};
}

TourMove teamsListed()
{
    return {"the own team is listed",
            [](Stage &s) { TeamScenes::makeTeams(s.host().services()->address()); },
            [](Stage &s) { return rowOf(s, TeamScenes::ownTeam()).isValid(); }};
}

TourMove opened(const QString &name)
{
    return {"the level shows who belongs to it",
            [name](Stage &s) {
                if (QTreeView *view = s.list(Tree))
                    view->expand(rowOf(s, name));
            },
            [name](Stage &s) {
                const QModelIndex row = rowOf(s, name);
                const int kind =
                    row.isValid() ? row.model()->index(0, 0, row).data(KindRole).toInt() : 0;
                return kind == MemberKind || kind == MemberKind - 1;
            }};
}

std::vector<TourMove> teamOpened()
{
    std::vector<TourMove> moves{servicesReady(), pageOpened(), teamsListed(),
                                opened(TeamScenes::ownTeam())};
    for (const QString &group : TeamScenes::groups())
        moves.push_back(opened(group));
    return moves;
}

TourMove menuOf(const std::function<QModelIndex(Stage &)> &row, const char *menu)
{
    return {"the row's menu opens",
            [row](Stage &s) {
                if (QTreeView *view = s.list(Tree))
                    view->setCurrentIndex(row(s));
                s.contextMenu(row(s));
            },
            [menu](Stage &s) { return s.openMenu(QLatin1String(menu)) != nullptr; },
            TourMove::Again};
}

TourMove teamMenu()
{
    return menuOf([](Stage &s) { return rowOf(s, TeamScenes::ownTeam()); }, "orgMenu");
}

TourMove memberMenu(int index)
{
    return menuOf([index](Stage &s) { return memberRow(s, SampleCompany::uid(index)); }, "empMenu");
}

TourMove chosen(const char *menu, const char *action, const char *dialog)
{
    return {"the window opens",
            [=](Stage &s) { s.trigger(s.openMenu(QLatin1String(menu)), QLatin1String(action)); },
            [=](Stage &s) { return s.openDialog(dialog) != nullptr; }};
}

TourMove rowsIn(const char *dialog)
{
    return {"the window lists people", {}, [dialog](Stage &s) {
                const QDialog *window = s.openDialog(dialog);
                if (!window)
                    return false;
                const auto views = window->findChildren<QAbstractItemView *>();
                return std::any_of(views.begin(), views.end(), [](const QAbstractItemView *view) {
                    const QModelIndex first =
                        view->model() ? view->model()->index(0, 0) : QModelIndex();
                    const int kind = first.data(KindRole).toInt();
                    return view->isVisible() && first.isValid() &&
                           (kind == 0 || kind <= MemberKind);
                });
            }};
}

template <class... Moves> std::vector<TourMove> openedAnd(const Moves &...moves)
{
    std::vector<TourMove> all = teamOpened();
    (all.push_back(moves), ...);
    return all;
}

TourMove searched()
{
    return {"members are found",
            [](Stage &s) {
                auto *box =
                    qobject_cast<QLineEdit *>(s.shownWidget(QStringLiteral("teamSearchBox")));
                if (!box)
                    return;
                box->setFocus();
                box->setText(QStringLiteral("u00000"));
            },
            [](Stage &s) {
                const auto *hits = qobject_cast<QAbstractItemView *>(
                    s.shownWidget(QStringLiteral("VirtualTeamSearchResultListView")));
                return hits && hits->model()->rowCount() > 1;
            }};
}

TourMove searchEnded()
{
    return {"the tree is shown again",
            [](Stage &s) {
                if (auto *box =
                        qobject_cast<QLineEdit *>(s.shownWidget(QStringLiteral("teamSearchBox"))))
                    box->clear();
            },
            [](Stage &s) { return s.list(Tree) != nullptr; }};
}

TourMove createOpened()
{
    return {"the window opens",
            [](Stage &s) {
                if (auto *button = qobject_cast<QAbstractButton *>(
                        s.shownWidget(QStringLiteral("createTeamButton"))))
                    button->click();
            },
            [](Stage &s) { return s.openDialog("CVirtualTeamWidgetCreat") != nullptr; }};
}

// In the window that creates and invites.
TourMove memberAdded(const QString &account, int count)
{
    return {"somebody has been added",
            [account](Stage &s) {
                const QDialog *dialog = s.openDialog("CVirtualTeamWidgetCreat");
                auto *box = dialog ? dialog->findChild<QLineEdit *>(QStringLiteral("memberSearch"))
                                   : nullptr;
                if (!box)
                    return;
                box->setText(account);
                s.press("CVirtualTeamWidgetCreat", "memberAdd");
            },
            [count](Stage &s) {
                const QDialog *dialog = s.openDialog("CVirtualTeamWidgetCreat");
                const auto *list =
                    dialog ? dialog->findChild<QAbstractItemView *>(QStringLiteral("chosenMembers"))
                           : nullptr;
                return list && list->model()->rowCount() == count;
            }};
}

TourMove createFilled()
{
    return {"name and reason are written",
            [](Stage &s) {
                const QDialog *dialog = s.openDialog("CVirtualTeamWidgetCreat");
                if (!dialog)
                    return;
                if (auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("teamNameEdit")))
                    name->setText(QString::fromUtf8("年会筹备"));
                if (auto *reason = dialog->findChild<QTextEdit *>(QStringLiteral("reasonEdit")))
                    reason->setPlainText(QString::fromUtf8("跨部门准备今年的年会。"));
                if (auto *reason =
                        dialog->findChild<QPlainTextEdit *>(QStringLiteral("reasonEdit")))
                    reason->setPlainText(QString::fromUtf8("跨部门准备今年的年会。"));
            },
            {}};
}

// What others ask of the own user, and the window in which it is decided.
TourMove asked(const std::function<void(const BackendAddress &)> &ask)
{
    return {"the application is among the notices",
            [ask](Stage &s) { ask(s.host().services()->address()); },
            [](Stage &s) {
                if (s.window().windows()->notices()->count() == 0)
                    return false;
                s.window().windows()->notices()->show();
                return true;
            }};
}

TourMove decisionOpened(const char *dialog)
{
    return {"the application is shown", [](Stage &s) { s.press("Notices", "acceptNotice"); },
            [dialog](Stage &s) {
                const QDialog *window = s.openDialog(dialog);
                const auto *body =
                    window ? window->findChild<QWidget *>(QStringLiteral("decisionPage")) : nullptr;
                if (!body || !body->isVisible())
                    return false;
                s.window().windows()->notices()->hide(); // the picture is the window's
                return true;
            }};
}

TourMove decided(const char *dialog)
{
    return {"it is decided, and the notice has gone",
            [dialog](Stage &s) { s.press(dialog, "agree"); },
            [](Stage &s) { return s.window().windows()->notices()->count() == 0; }};
}

TourMove looksLike(const QString &skin, const QString &language)
{
    return {"skin and language are others",
            [=](Stage &s) {
                s.window().setSkin(skin);
                s.window().setLanguage(language);
            },
            {}};
}

TourMove looksAsAtFirst()
{
    return {"skin and language are those of the start",
            [](Stage &s) {
                s.window().setSkin(s.host().options().skin);
                s.window().setLanguage(s.host().options().language);
            },
            {}};
}

std::vector<TourStep> dialogSteps()
{
    const SampleCompany sample;
    const QString invited = sample.outsider(3).account;
    return {
        {"team-create", TourStep::Pane,
         openedAnd(createOpened(), createFilled(), memberAdded(sample.person(40).account, 1),
                   memberAdded(sample.outsider(0).account, 2))},
        {"team-invite", TourStep::Pane,
         openedAnd(teamMenu(), chosen("orgMenu", "inviteCompany", "CVirtualTeamWidgetCreat"),
                   memberAdded(invited, 1))},
        {"team-rename", TourStep::Pane,
         openedAnd(teamMenu(), chosen("orgMenu", "setting", "VirtualTeamEditWidget"))},
        {"team-transfer", TourStep::Pane,
         openedAnd(teamMenu(), chosen("orgMenu", "transAuth", "VirtualTeamTransAuth"),
                   rowsIn("VirtualTeamTransAuth"))},
        {"team-move", TourStep::Pane,
         openedAnd(memberMenu(1), chosen("empMenu", "moveTeamMembers", "VirtualTeamTransAuth"),
                   rowsIn("VirtualTeamTransAuth"))},
        {"team-administrators", TourStep::Pane,
         openedAnd(teamMenu(), chosen("orgMenu", "setAdmin", "CSetAdministrator"),
                   rowsIn("CSetAdministrator"))},
    };
}

} // namespace

std::vector<TourStep> teamSteps()
{
    const TourMove nothing{"the page says that there is no team", {}, [](Stage &s) {
                               return s.shownWidget(QStringLiteral("noVirtualTeamPage")) != nullptr;
                           }};
    const TourMove again{"other pages are shown again",
                         [](Stage &s) { s.openPage(QStringLiteral("friends")); },
                         [](Stage &s) { return s.tree() != nullptr; }};
    std::vector<TourStep> steps{
        {"teams-none", TourStep::Pane, {servicesReady(), pageOpened(), nothing}},
        {"teams", TourStep::Pane, {servicesReady(), pageOpened(), teamsListed()}},
        {"team-opened", TourStep::Pane, teamOpened()},
        {"team-menu", TourStep::Pane, openedAnd(teamMenu())},
        {"team-member-menu", TourStep::Pane, openedAnd(memberMenu(1))},
        {"team-search", TourStep::Pane, openedAnd(searched())},
    };
    std::vector<TourStep> dialogs = dialogSteps();
    dialogs.front().moves.insert(dialogs.front().moves.begin(), searchEnded());
    steps.insert(steps.end(), dialogs.begin(), dialogs.end());
    const std::vector<TourStep> rest{
        {"team-approval",
         TourStep::Pane,
         {servicesReady(), pageOpened(), asked(TeamScenes::askApproval),
          decisionOpened("CVirtualApply")}},
        {"team-approved",
         TourStep::Pane,
         {servicesReady(), asked([](const BackendAddress &) {}), decisionOpened("CVirtualApply"),
          decided("CVirtualApply")}},
        {"team-join",
         TourStep::Pane,
         {servicesReady(), pageOpened(), asked(TeamScenes::askToJoin),
          decisionOpened("VirtualTeamInviteInfoPage")}},
        {"team-joined",
         TourStep::Pane,
         {servicesReady(),
          asked([](const BackendAddress &) {}),
          decisionOpened("VirtualTeamInviteInfoPage"),
          decided("VirtualTeamInviteInfoPage"),
          {"the new team is in the tree",
           {},
           [](Stage &s) { return rowOf(s, QStringLiteral("Joint project")).isValid(); }}}},
        {"team-dark", TourStep::Pane,
         openedAnd(looksLike(QStringLiteral("dark"), QStringLiteral("en")), memberMenu(1))},
        {"teams-left", TourStep::Pane, {looksAsAtFirst(), again}},
    };
    steps.insert(steps.end(), rest.begin(), rest.end());
    return steps;
}

std::vector<TourStep> teamStateSteps()
{
    const TourMove failed{"the page says that the teams cannot be had", {}, [](Stage &s) {
                              return s.shownWidget(QStringLiteral("VirtualTeamLoadFailPage")) !=
                                     nullptr;
                          }};
    return {{"teams-failed",
             TourStep::Pane,
             {pageOpened(), failed},
             {QStringLiteral("--lang"), QStringLiteral("en")}}};
}
