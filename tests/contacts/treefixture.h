// A friend tree on screen, fed by a host of its own.
#pragma once

#include "contacts/friendcommands.h"
#include "contacts/friendtreemodel.h"
#include "contacts/friendtreeview.h"
#include "contacts/friendtreewidget.h"
#include "contacts/grouplabel.h"
#include "controls/inputbox.h"
#include "controls/tipbox.h"
#include "tests/contacts/contactmaker.h"
#include "tests/support/fakehost.h"
#include "tests/support/recordingactions.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

// Own jid me@corp.example; the groups g1 "Alpha" and g2 "Beta", the first of them
// open; in g1 the user, anna (online), bob, carl; in g2 dora.
class TreeFixture
{
public:
    explicit TreeFixture(bool filled = true)
    {
        TipBox::setNextAnswers(TipBox::Cancel);
        host.context.user = QStringLiteral("me");
        host.context.baseFolder = folder.path();
        if (filled) {
            host.context.innerGroups = {{QStringLiteral("g1"), QStringLiteral("Alpha")},
                                        {QStringLiteral("g2"), QStringLiteral("Beta")}};
            add(QStringLiteral("me"), QStringLiteral("zoe"));
            add(QStringLiteral("anna"), QStringLiteral("anna"));
            add(QStringLiteral("bob"), QStringLiteral("bob"));
            add(QStringLiteral("carl"), QStringLiteral("carl"));
            add(QStringLiteral("dora"), QStringLiteral("dora"), QStringLiteral("g2"));
            host.context.presences.insert(jidOf(QStringLiteral("anna")), makePresence(1));
        }
        make();
    }
    ~TreeFixture() { TipBox::setNextAnswers(TipBox::ShowBox); }

    // Builds the widget anew, as after a restart.
    void make()
    {
        tester.reset();
        widget = std::make_unique<FriendTreeWidget>();
        widget->resize(284, 600);
        widget->show();
        widget->activateWindow();
        view = widget->findChild<FriendTreeView *>();
        model = widget->findChild<FriendTreeModel *>();
        tester = std::make_unique<QAbstractItemModelTester>(
            model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        view->setFocus();
        settle();
    }
    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    void add(const QString &user, const QString &name, const QString &group = QStringLiteral("g1"))
    {
        host.context.addContact(makeContact(user, name, group));
    }
    // Contacts u0000... in g1, with names in the order of their numbers.
    void addMany(int count)
    {
        QList<FriendData> contacts;
        for (int i = 0; i < count; ++i) {
            const QString number = QStringLiteral("%1").arg(i, 4, 10, QLatin1Char('0'));
            contacts.append(
                makeContact(QStringLiteral("u") + number, QStringLiteral("n") + number));
        }
        model->mergeContacts(contacts);
        settle();
    }

    QModelIndex contact(const char *user) const
    {
        return model->contactIndex(jidOf(QLatin1String(user)));
    }
    QModelIndex group(const char *id) const { return model->groupIndex(QLatin1String(id)); }
    void select(const QModelIndex &index) const
    {
        view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    }
    QStringList rows(const char *groupId) const // users as shown
    {
        QStringList users;
        const QModelIndex parent = group(groupId);
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QString id = model->index(row, 0, parent).data(FriendTreeRole::Id).toString();
            users.append(id.section(QLatin1Char('@'), 0, 0));
        }
        return users;
    }
    SkinMenu *menu(const char *name) const
    {
        return view->findChild<SkinMenu *>(QLatin1String(name), Qt::FindDirectChildrenOnly);
    }
    void rightClick(const QPoint &pos) const
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, pos, view->viewport()->mapToGlobal(pos));
        QApplication::sendEvent(view->viewport(), &event);
    }
    SkinMenu *openMenu() const
    {
        return qobject_cast<SkinMenu *>(QApplication::activePopupWidget());
    }
    // Chooses an action of a menu that is or is not open.
    static void choose(SkinMenu *menu, const char *key)
    {
        QAction *action = menu->action(key);
        QVERIFY2(action, key);
        menu->close();
        action->trigger();
    }
    InputBox *inputBox() const { return view->findChild<InputBox *>(); }
    QList<GroupLabel *> labels() const
    {
        QList<GroupLabel *> shown;
        const auto all = view->viewport()->findChildren<GroupLabel *>();
        for (GroupLabel *label : all) {
            if (label->isVisible())
                shown.append(label);
        }
        return shown;
    }

    QTemporaryDir folder;
    FakeHost host;
    RecordingActions actions;
    std::unique_ptr<FriendTreeWidget> widget;
    FriendTreeView *view = nullptr;   // of the widget
    FriendTreeModel *model = nullptr; // of the widget
    std::unique_ptr<QAbstractItemModelTester> tester;
};
