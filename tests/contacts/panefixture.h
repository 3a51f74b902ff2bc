// The whole pane on screen, as the host gets it from the hub.
#pragma once

#include "contacts/assembly.h"
#include "contacts/friendtreemodel.h"
#include "contacts/friendtreeview.h"
#include "contacts/friendwidget.h"
#include "controls/tipbox.h"
#include "plugin/frienduimessageprocess.h"
#include "tests/contacts/contactmaker.h"
#include "tests/support/fakehost.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

// Own jid me@corp.example; the groups g1 "Alpha" and g2 "Beta", both open; in g1
// the user, anna and bob; in g2 dora.
class PaneFixture
{
public:
    PaneFixture()
    {
        host.context.user = QStringLiteral("me");
        host.context.baseFolder = folder.path();
        host.context.innerGroups = {{QStringLiteral("g1"), QStringLiteral("Alpha")},
                                    {QStringLiteral("g2"), QStringLiteral("Beta")}};
        for (const char *user : {"me", "anna", "bob"})
            host.context.addContact(makeContact(QLatin1String(user), QLatin1String(user)));
        host.context.addContact(
            makeContact(QStringLiteral("dora"), QStringLiteral("dora"), QStringLiteral("g2")));
        assemblePane();
        make();
    }
    ~PaneFixture()
    {
        TipBox::setNextAnswers(TipBox::ShowBox);
        tester.reset();
        delete pane;
    }
    PaneFixture(const PaneFixture &) = delete;
    PaneFixture &operator=(const PaneFixture &) = delete;

    // A new pane; the one before must have gone.
    void make()
    {
        tester.reset();
        pane = qobject_cast<FriendWidget *>(FriendUIMessageProcess::instance()->getFriendWidget());
        view = pane->findChild<FriendTreeView *>();
        model = pane->findChild<FriendTreeModel *>();
        tester = std::make_unique<QAbstractItemModelTester>(
            model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        pane->resize(360, 640);
        pane->show();
        pane->activateWindow();
        view->setFocus();
        view->expandAll();
        settle();
    }
    // What the host does when its window is closed.
    void destroy()
    {
        tester.reset();
        delete pane;
    }
    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    QModelIndex contact(const char *user) const
    {
        return model->contactIndex(jidOf(QLatin1String(user)));
    }
    void select(const QModelIndex &index) const
    {
        view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    }

    QTemporaryDir folder;
    FakeHost host;
    QPointer<FriendWidget> pane;
    QPointer<FriendTreeView> view;   // of the pane
    QPointer<FriendTreeModel> model; // of the pane
    std::unique_ptr<QAbstractItemModelTester> tester;
};
