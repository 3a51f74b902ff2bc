// The team tree on screen. Its levels are asked for and answered by the test.
//
//     TeamTreeFixture tree;
//     tree.open("0");
//     tree.level("0", "G H", "anna# bob*");
//     QCOMPARE(tree.rowText(), QStringLiteral("T G H anna bob S"));
#pragma once

#include "tests/virtualteam/teammaker.h"
#include "tests/virtualteam/teamservice.h"
#include "virtualteam/cvirtualteamtreeview.h"
#include "virtualteam/teamcommands.h"

#include <QApplication>
#include <QScrollBar>

#include <memory>

// Two teams "T" and "S" of the user u1, who owns the first.
class TeamTreeFixture
{
public:
    TeamTreeFixture() : view(std::make_unique<CVirtualTeamTreeView>()), model(view->teams())
    {
        tester = std::make_unique<QAbstractItemModelTester>(
            model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QObject::connect(view.get(), &CVirtualTeamTreeView::signal_GetMembers, &context,
                         [this](const QString &vtId, const QString &groupId) {
                             asks.append(vtId + QLatin1Char(' ') + groupId);
                         });
        model->setTeams(teams());
        view->resize(300, 500);
        view->show();
        view->activateWindow();
        view->setFocus();
        settle();
    }

    static QList<CVirtualTeamSimpleInfo> teams()
    {
        return {makeTeam(T(), TeamRole::Owner), makeTeam(QStringLiteral("S"))};
    }
    static QString T() { return QStringLiteral("T"); }
    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    void level(const char *group, const char *groups, const char *members) const
    {
        model->setLevel(T(), QString::fromLatin1(group), groupsOf(groups), membersOf(members));
        settle();
    }
    QModelIndex group(const char *id) const
    {
        return model->groupIndex(T(), QString::fromLatin1(id));
    }
    QModelIndex member(const char *id) const
    {
        return model->memberIndex(T(), QString::fromLatin1(id));
    }
    // With T open, sub-groups G and H in it and the members below.
    void showOpen(const char *members = "u1# anna bob carl", const char *inG = "dora eve") const
    {
        view->setExpanded(group("0"), true);
        level("0", "G H", members);
        view->setExpanded(group("G"), true);
        level("G", "", inG);
    }

    // Ids as they are on screen; "~" loading, "!" failed, "-" empty.
    QString rowText() const
    {
        QStringList ids;
        for (QModelIndex at = model->index(0, 0); at.isValid(); at = view->indexBelow(at)) {
            const TeamRowKind kind = model->kind(at);
            ids.append(kind == TeamRowKind::Loading  ? QStringLiteral("~")
                       : kind == TeamRowKind::Failed ? QStringLiteral("!")
                       : kind == TeamRowKind::Empty  ? QStringLiteral("-")
                                                     : at.data(TeamRowRole::Id).toString());
        }
        return ids.join(QLatin1Char(' '));
    }
    QString current() const { return view->currentIndex().data(TeamRowRole::Id).toString(); }
    void select(const QModelIndex &index) const
    {
        view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    }
    QPoint middle(const QModelIndex &index) const { return view->visualRect(index).center(); }
    void click(QPoint pos) const
    {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
        settle();
    }
    void doubleClick(QPoint pos) const
    {
        click(pos);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
        settle();
    }
    void key(Qt::Key key) const
    {
        QTest::keyClick(view.get(), key);
        settle();
    }

    TeamService service;
    std::unique_ptr<CVirtualTeamTreeView> view;
    TeamTreeModel *model;
    QStringList asks; // "team group", in the order of the requests
    std::unique_ptr<QAbstractItemModelTester> tester;
    QObject context;
};
