// The page of group chats on screen, fed by a host of its own.
#pragma once

#include "contacts/rooms/muclistview.h"
#include "contacts/rooms/mucmodel.h"
#include "contacts/rooms/mucwidget.h"
#include "controls/inputbox.h"
#include "controls/skinmenu.h"
#include "controls/tipbox.h"
#include "plugin/frienduisignalsender.h"
#include "tests/rooms/roommaker.h"
#include "tests/support/fakehost.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QContextMenuEvent>
#include <QPushButton>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

// Own jid me@corp.example. In the address book: r1 "Alpha", r2 "Beta", r3 "Zeta", which
// is preferred; local: r4 "Delta".
class RoomsFixture
{
public:
    explicit RoomsFixture(bool filled = true)
    {
        TipBox::setNextAnswers(TipBox::Cancel);
        host.context.user = QStringLiteral("me");
        host.context.baseFolder = folder.path();
        host.context.programFolder = folder.path();
        make();
        if (!filled)
            return;
        add(makeRoom("r1", QStringLiteral("Alpha")));
        add(makeRoom("r2", QStringLiteral("Beta")));
        add(makeRoom("r3", QStringLiteral("Zeta"), MucData::PreferredRoom));
        add(makeRoom("r4", QStringLiteral("Delta"), MucData::LocalRoom));
        settle();
    }
    ~RoomsFixture() { TipBox::setNextAnswers(TipBox::ShowBox); }

    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    // As the host delivers it.
    void add(const MucData &room)
    {
        host.context.rooms.insert(room.roomJid, room);
        emit FriendUISignalSender::instance()->signal_addMuc(room, true);
    }
    static FriendUISignalSender *hub() { return FriendUISignalSender::instance(); }

    QModelIndex row(const char *user) const { return model->indexOf(roomJid(user)); }
    QStringList rows() const // names as shown
    {
        QStringList names;
        for (int i = 0; i < model->rowCount(); ++i)
            names.append(model->index(i).data().toString());
        return names;
    }
    QString currentRoom() const { return view->currentIndex().data(264).toString(); }
    QPushButton *button(const char *name) const
    {
        return widget->findChild<QPushButton *>(QLatin1String(name));
    }
    QPushButton *addressBookTab() const { return button("btnAddressBookMuc"); }
    QPushButton *localTab() const { return button("btnLocalMuc"); }
    bool listIsShown() const
    {
        return widget->findChild<QStackedWidget *>()->currentWidget() == view;
    }

    QPoint middleOf(const char *user) const { return view->visualRect(row(user)).center(); }
    void click(const char *user) const
    {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, middleOf(user));
    }
    SkinMenu *menu() const { return view->findChild<SkinMenu *>(QStringLiteral("mucMenu")); }
    SkinMenu *setMenu() const
    {
        return view->findChild<SkinMenu *>(QStringLiteral("messageSetting"));
    }
    void openMenu(const char *user) const
    {
        const QPoint pos = middleOf(user);
        QContextMenuEvent event(QContextMenuEvent::Mouse, pos, view->viewport()->mapToGlobal(pos));
        QApplication::sendEvent(view->viewport(), &event);
    }
    // The menu of a room, and an action of it.
    void choose(const char *user, const char *key) const
    {
        openMenu(user);
        QAction *action = menu()->action(key);
        if (!action)
            action = setMenu()->action(key);
        QVERIFY2(action && action->isVisible() && action->isEnabled(), key);
        menu()->close();
        action->trigger();
    }
    InputBox *inputBox() const { return view->findChild<InputBox *>(); }

    QTemporaryDir folder;
    FakeHost host;
    std::unique_ptr<MucWidget> widget;
    MucListView *view = nullptr; // of the widget
    MucModel *model = nullptr;   // of the widget
    std::unique_ptr<QAbstractItemModelTester> tester;

private:
    void make()
    {
        widget = std::make_unique<MucWidget>();
        widget->resize(280, 500); // as wide as the pane leaves
        widget->show();
        widget->activateWindow();
        view = widget->findChild<MucListView *>();
        model = view->rooms();
        tester = std::make_unique<QAbstractItemModelTester>(
            model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        view->setFocus();
        settle();
    }
};
