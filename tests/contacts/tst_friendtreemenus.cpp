// The menus of the friend tree.
#include "common/desktopshortcut.h"
#include "plugin/frienduisignalsender.h"
#include "tests/contacts/treefixture.h"
#include "tests/support/testrunner.h"

#include <QContextMenuEvent>
#include <QDir>
#include <QFileInfo>

namespace {
const QString Anna = QStringLiteral("anna@corp.example");
const QString Bob = QStringLiteral("bob@corp.example");
const QString G1 = QStringLiteral("g1");
} // namespace

class TstFriendTreeMenus : public QObject
{
    Q_OBJECT

private slots:
    void menuUnderThePointer()
    {
        const TreeFixture tree;
        const auto menuAt = [&tree](const QPoint &pos) {
            tree.rightClick(pos);
            SkinMenu *menu = tree.openMenu();
            const QString name = menu ? menu->objectName() : QString();
            if (menu)
                menu->close();
            return name;
        };
        QCOMPARE(menuAt(tree.view->visualRect(tree.contact("bob")).center()),
                 QStringLiteral("commonSingleMenu"));
        QCOMPARE(tree.view->currentIndex(), tree.contact("bob"));
        QCOMPARE(menuAt(QPoint(20, 590)), QStringLiteral("nullGroupMenu"));
        // The header is a widget of its own.
        GroupLabel *header = tree.labels().value(1);
        QVERIFY(header);
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(9, 9),
                                header->mapToGlobal(QPoint(9, 9)));
        QApplication::sendEvent(header, &event);
        QVERIFY(tree.openMenu());
        QCOMPARE(tree.openMenu()->objectName(), QStringLiteral("commonGroupMenu"));
        QCOMPARE(tree.view->currentIndex(), tree.group("g2"));
        tree.openMenu()->close();
    }

    void menuByKey()
    {
        const TreeFixture tree;
        const auto menuOfKey = [&tree] {
            QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(3, 3));
            QApplication::sendEvent(tree.view, &event);
            SkinMenu *menu = tree.openMenu();
            const QString name = menu ? menu->objectName() : QString();
            if (menu)
                menu->close();
            return name;
        };
        tree.select(tree.contact("anna"));
        QCOMPARE(menuOfKey(), QStringLiteral("commonSingleMenu"));
        tree.select(tree.group("g1"));
        QCOMPARE(menuOfKey(), QStringLiteral("commonGroupMenu"));
        tree.view->selectionModel()->clear();
        QCOMPARE(menuOfKey(), QStringLiteral("nullGroupMenu"));
    }

    void menuOfASelection()
    {
        const TreeFixture tree;
        tree.select(tree.contact("anna"));
        for (const char *user : {"bob", "me"})
            tree.view->selectionModel()->select(tree.contact(user), QItemSelectionModel::Select);
        tree.rightClick(tree.view->visualRect(tree.contact("bob")).center());
        QVERIFY(tree.openMenu());
        QCOMPARE(tree.openMenu()->objectName(), QStringLiteral("selectMoreMenu"));
        for (const auto &[key, code] : {std::pair("createMuc", 4393), std::pair("sendemail", 4233),
                                        std::pair("sendFile", 4264)}) {
            TreeFixture::choose(tree.menu("selectMoreMenu"), key);
            QCOMPARE(tree.host.count(code), 1);
            QStringList jids;
            QDataStream payload(tree.host.last(code).payload);
            payload >> jids;
            jids.sort();
            QCOMPARE(jids, QStringList({Anna, Bob}));
        }
        // A click on another row is about that row alone.
        tree.rightClick(tree.view->visualRect(tree.contact("carl")).center());
        QCOMPARE(tree.openMenu()->objectName(), QStringLiteral("commonSingleMenu"));
        tree.openMenu()->close();
    }

    void contactRequests_data()
    {
        const Rows<QString, int, QString, QByteArray> row{"key", "code", "receiver", "payload"};
        const QString roster = QStringLiteral("{7123C2B9-E89C-0CC5-5B1E-9496BB7427C8}");
        const QString chat = QString::fromLatin1(PluginId::Chat);
        const QString mail = QString::fromLatin1(PluginId::Mail);
        row("chat", "invitechat", 4251, chat, FakeHost::encode(Anna, 0));
        row("file", "sendFile", 4264, chat, FakeHost::encode(QStringList{Anna}, 0));
        row("mail", "sendemail", 4233, mail, FakeHost::encode(QStringList{Anna}));
        row("history", "msgrecord", 4330, chat, FakeHost::encode(Anna, 0));
        row("delete", "delFriend", 4157, roster, FakeHost::encode(Anna, true));
    }

    void contactRequests()
    {
        QFETCH(QString, key);
        QFETCH(int, code);
        QFETCH(QString, receiver);
        QFETCH(QByteArray, payload);
        const TreeFixture tree;
        TipBox::setNextAnswers(TipBox::Sure);
        tree.rightClick(tree.view->visualRect(tree.contact("anna")).center());
        TreeFixture::choose(tree.menu("commonSingleMenu"), key.toLatin1().constData());
        QCOMPARE(tree.host.requests.size(), 1); // one mail, too
        const FakeHost::Request request = tree.host.last(code);
        QCOMPARE(request.receiver, receiver);
        QCOMPARE(request.payload, payload);
        QCOMPARE(request.postAsync, 0);
        // Nothing changes before the host answers.
        QVERIFY(tree.model->hasContact(Anna));
    }

    void groupRequests_data()
    {
        const Rows<QString, int, QByteArray> row{"key", "code", "payload"};
        const QStringList others{Anna, Bob, QStringLiteral("carl@corp.example")};
        row("chat", "createMuc", 4393, FakeHost::encode(others));
        row("file", "sendFile", 4264, FakeHost::encode(others, 0));
        row("mail", "sendemail", 4233, FakeHost::encode(others));
        row("delete", "delMuc", 4361, FakeHost::encode(G1, true));
    }

    void groupRequests()
    {
        QFETCH(QString, key);
        QFETCH(int, code);
        QFETCH(QByteArray, payload);
        const TreeFixture tree;
        TipBox::setNextAnswers(TipBox::Sure);
        tree.view->slot_contextMenu(tree.view->visualRect(tree.group("g1")).center());
        TreeFixture::choose(tree.menu("commonGroupMenu"), key.toLatin1().constData());
        QCOMPARE(tree.host.requests.size(), 1);
        QCOMPARE(tree.host.last(code).payload, payload);
        QVERIFY(tree.model->hasGroup(G1));
    }

    void nullMenu()
    {
        const TreeFixture tree;
        const QStringList all = tree.rows("g1");
        SkinMenu *menu = tree.menu("nullGroupMenu");
        QSignalSpy hub(FriendUISignalSender::instance(),
                       QOverload<bool, bool>::of(&FriendUISignalSender::signal_hidealloff));
        TreeFixture::choose(menu, "onlyShowOnlineUser");
        QCOMPARE(tree.rows("g1"), QStringList({"me", "anna"}));
        QCOMPARE(hub.takeFirst(), QVariantList({true, true}));
        tree.rightClick(QPoint(20, 590));
        QVERIFY(menu->action("onlyShowOnlineUser")->isChecked());
        TreeFixture::choose(menu, "onlyShowOnlineUser");
        QCOMPARE(tree.rows("g1"), all);
        QCOMPARE(hub.takeFirst(), QVariantList({false, true}));
        // After the host's own choice the next one is the other way round.
        tree.widget->slot_inithidealloffline(true);
        TreeFixture::choose(menu, "onlyShowOnlineUser");
        QCOMPARE(tree.rows("g1"), all);

        TreeFixture::choose(menu, "refreshFriendList");
        QCOMPARE(tree.host.count(4356), 1);
        QCOMPARE(std::get<0>(tree.host.arguments<bool>(4356)), true);
        TreeFixture::choose(menu, "collapseAll");
        QVERIFY(!tree.view->isExpanded(tree.group("g1")));
        TreeFixture::choose(menu, "expandAll");
        QVERIFY(tree.view->isExpanded(tree.group("g2")));
    }

    void builtInGroupsAreSpared()
    {
        const TreeFixture tree;
        TipBox::setNextAnswers(TipBox::Sure);
        tree.model->mergeGroups({{QStringLiteral("g0"), QString::fromUtf8("我的好友")},
                                 {QStringLiteral("g7"), QString::fromUtf8("常用联系人")}});
        for (const char *id : {"g0", "g7"}) {
            tree.view->slot_contextMenu(tree.view->visualRect(tree.group(id)).center());
            SkinMenu *menu = tree.menu("commonGroupMenu");
            for (const char *key : {"delMuc", "renameMuc", "createMuc"})
                QVERIFY2(!menu->action(key)->isEnabled(), key);
            menu->close();
            tree.select(tree.group(id));
            QTest::keyClick(tree.view, Qt::Key_Delete);
            QTest::keyClick(tree.view, Qt::Key_F2);
        }
        QCOMPARE(tree.host.requests.size(), 0);
        QVERIFY(!tree.inputBox());
    }

    void goneWhileTheMenuIsOpen()
    {
        const TreeFixture tree;
        TipBox::setNextAnswers(TipBox::Sure);
        tree.view->slot_contextMenu(tree.view->visualRect(tree.group("g1")).center());
        FakeHost::send(4120, true, G1, true);
        for (const char *key : {"delMuc", "renameMuc", "createMuc", "sendemail"})
            TreeFixture::choose(tree.menu("commonGroupMenu"), key);
        TreeFixture::settle();
        QVERIFY(!tree.inputBox());
        TreeFixture::choose(tree.menu("commonGroupMenu"), "newgroup"); // needs no group
        QVERIFY(tree.inputBox());
        delete tree.inputBox();
        tree.view->setExpanded(tree.group(""), true);
        tree.rightClick(tree.view->visualRect(tree.contact("anna")).center());
        FakeHost::send(4101, Anna, true);
        for (const QAction *action : tree.menu("commonSingleMenu")->actions()) {
            if (!action->objectName().isEmpty())
                const_cast<QAction *>(action)->trigger();
        }
        QCOMPARE(tree.host.requests.size(), 0);
        QVERIFY(!tree.inputBox());
    }

    void movesByMenu()
    {
        const TreeFixture tree;
        tree.model->mergeGroups({{QStringLiteral("g3"), QStringLiteral("R&D <b>")}});
        tree.rightClick(tree.view->visualRect(tree.contact("anna")).center());
        const QList<QAction *> targets = tree.menu("commonSingleMenu")
                                             ->findChild<SkinMenu *>(QStringLiteral("moveToGroup"))
                                             ->actions();
        QCOMPARE(targets.size(), 3);
        QVERIFY(!targets.at(0)->isEnabled());
        QCOMPARE(targets.at(2)->text(), QStringLiteral("R&&D <b>"));
        targets.at(2)->trigger();
        QCOMPARE(tree.host.requests.size(), 1);
        QCOMPARE(tree.host.last(4358).payload,
                 FakeHost::encode(Anna, G1, QStringLiteral("g3"), true));
        QCOMPARE(tree.model->groupOf(Anna), G1);
        tree.menu("commonSingleMenu")->close();
    }

    void shortcuts()
    {
        const TreeFixture tree;
        const QString file = DesktopShortcut::file(Anna);
        QVERIFY(QFileInfo(file).absolutePath() != QFileInfo(Anna).absolutePath());
        QDir().mkpath(QFileInfo(file).absolutePath());
        tree.rightClick(tree.view->visualRect(tree.contact("anna")).center());
        SkinMenu *menu = tree.menu("commonSingleMenu");
        QVERIFY(!menu->action("removeDesktopShortcut")->isVisible());
        TreeFixture::choose(menu, "createDesktopShortcut");
        QVERIFY(QFileInfo(file).isSymLink());
        tree.rightClick(tree.view->visualRect(tree.contact("anna")).center());
        QVERIFY(!menu->action("createDesktopShortcut")->isVisible());
        TreeFixture::choose(menu, "removeDesktopShortcut");
        QVERIFY(!QFileInfo::exists(file) && !DesktopShortcut::exists(Anna));
        tree.view->RemoveShortCut(QStringLiteral("../../x"));
    }
};

FRIENDUI_TEST(TstFriendTreeMenus)
#include "tst_friendtreemenus.moc"
