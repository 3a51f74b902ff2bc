// The page of external contacts: what the host's events make of it, and what a user does
// there.
#include "common/clientpaths.h"
#include "common/settingsfile.h"
#include "contacts/friendtreewidget.h"
#include "tests/external/externalpagefixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"

#include <QAbstractButton>

namespace {
const QString Xena = QStringLiteral("xena@corp.example");
const QString Yuri = QStringLiteral("yuri@corp.example");
const QString Anna = QStringLiteral("anna@corp.example");
const QString Stranger = QStringLiteral("stranger@corp.example");
const QString E1 = QStringLiteral("e1");
const QString E2 = QStringLiteral("e2");
const QString E9 = QStringLiteral("e9");
const char *const EmptyLine =
    ": entry fun ExternalFriendWidget::slot_addAllFriend()--listAddFriendData.size() == 0";
} // namespace

class TstExternalPage : public QObject
{
    Q_OBJECT

private slots:
    // --- Failures ------------------------------------------------------------------

    void failures_data()
    {
        const Rows<int, QByteArray, QString, QString> row{"code", "payload", "box", "line"};
        const QString name = QStringLiteral("New");
        const auto text = [](const char *utf8) { return QString::fromUtf8(utf8); };
        row("move failed", 4121, FakeHost::encode(false, Xena, E1, E2, false),
            text("移动分组失败，请重试！"), QString());
        row("move of a stranger", 4121, FakeHost::encode(true, Stranger, E1, E2, false), QString(),
            text(": :user not exist"));
        row("move to the same group", 4121, FakeHost::encode(true, Xena, E1, E1, false), QString(),
            text(": move group is same"));
        row("rename failed", 4134, FakeHost::encode(E1, name, false, false),
            text("重命名失败，请重试！"), QString());
        row("rename of an unknown group", 4134, FakeHost::encode(E9, name, true, false),
            text("组名不存在"), text(": 组名不存在"));
        row("deletion failed", 4120, FakeHost::encode(false, E1, false),
            text("分组删除失败，请重试！"), QString());
        row("deletion of an unknown group", 4120, FakeHost::encode(true, E9, false),
            text("删除的组不存在"), text(": 删除的组不存在"));
        row("creation failed", 4118, FakeHost::encode(E9, name, false, false),
            QStringLiteral("addgroupfailed"), text("could not be created"));
        row("removal failed", 4128, FakeHost::encode(Xena, false),
            QStringLiteral("deleteOutsideFriendFailed"), text("could not be deleted"));
        row("removal of a stranger", 4101, FakeHost::encode(Stranger, false), QString(),
            text(":  entry fun ExternalFriendWidget::delUser user not exist"));
        row("empty list", 4115, FakeHost::encode(QList<FriendData>()), QString(),
            QString::fromLatin1(EmptyLine));
        row("a list of others", 4115,
            FakeHost::encode(QList<FriendData>{makeContact(QStringLiteral("bob"), name)}),
            QString(), QString::fromLatin1(EmptyLine));
        // The company's contacts and groups are no business of this page.
        row("inner: removal failed", 4128, FakeHost::encode(Xena, true), QString(), QString());
        row("inner: removal", 4101, FakeHost::encode(Xena, true), QString(), QString());
        row("inner: add", 4118, FakeHost::encode(E9, name, true, true), QString(), QString());
        row("inner: rename failed", 4134, FakeHost::encode(E1, name, false, true), QString(),
            QString());
        row("inner: delete", 4120, FakeHost::encode(true, E1, true), QString(), QString());
        row("inner: move", 4121, FakeHost::encode(true, Xena, E1, E2, true), QString(), QString());
        row("groups failed, unasked", 4500, QByteArray(), QString(), QString());
    }

    void failures()
    {
        QFETCH(int, code);
        QFETCH(QByteArray, payload);
        QFETCH(QString, box);
        QFETCH(QString, line);
        ExternalPageFixture external;
        const int boxes = TipBox::count();
        const LogCapture log(external.host.context);
        FakeHost::sendRaw(code, payload);
        QCOMPARE(TipBox::count() - boxes, box.isEmpty() ? 0 : 1);
        if (!box.isEmpty())
            QCOMPARE(TipBox::lastText(), box);
        if (!line.isEmpty())
            QCOMPARE(log.linesWith(line.toUtf8().constData()).size(), 1);
        QCOMPARE(external.rows("e1"), QStringList({"xena", "yuri"}));
        QCOMPARE(external.rows("e2"), QStringList({"zora"}));
        QCOMPARE(external.model->rowCount(), 2);
        QCOMPARE(external.model->groupName(E1), QStringLiteral("Clients"));
        QCOMPARE(external.host.requests.size(), 0);
    }

    // --- Loading -------------------------------------------------------------------

    void asksWhenNothingIsKnown()
    {
        ExternalPageFixture external(ExternalPageFixture::Nothing);
        QCOMPARE(external.shown(), QStringLiteral("friendsLoading"));
        QCOMPARE(external.host.arguments<bool>(4356), std::make_tuple(false));
        FakeHost::send(4119, QList<GroupData>(), false);
        QCOMPARE(external.shown(), QStringLiteral("nofrd_toadd"));
        QCOMPARE(external.button("linkAddFriend")->text(), QString::fromUtf8("添加好友"));
        // A default group alone is nothing to look at.
        FakeHost::send(4119, QList<GroupData>{{QString(), QString::fromUtf8("我的好友")}}, false);
        QCOMPARE(external.shown(), QStringLiteral("nofrd_toadd"));
        // The first group of one's own is, with the way on still beside it.
        FakeHost::send(4118, E1, QStringLiteral("Clients"), true, false);
        QCOMPARE(external.shown(), QStringLiteral("FriendTreeView"));
        const auto linkIsShown = [&external] {
            const auto links =
                external.page->findChildren<QAbstractButton *>(QStringLiteral("linkAddFriend"));
            return std::any_of(links.begin(), links.end(),
                               [](const QWidget *link) { return link->isVisible(); });
        };
        QVERIFY(linkIsShown());
        external.add("xena");
        FakeHost::send(4114, Xena);
        QCOMPARE(external.rows("e1"), QStringList({"xena"}));
        QVERIFY(!linkIsShown());
        FakeHost::send(4101, Xena, false);
        QVERIFY(linkIsShown());
    }

    void emptyLists()
    {
        ExternalPageFixture external(ExternalPageFixture::Nothing);
        FakeHost::send(4115, QList<FriendData>{makeContact(QStringLiteral("bob"), E1)});
        QCOMPARE(external.shown(), QStringLiteral("nofrd_toadd"));
        // Somebody whose group is not known stands in the default group.
        FakeHost::send(4115, QList<FriendData>{makeExternal(QStringLiteral("xena"), E1, E9)});
        QCOMPARE(external.shown(), QStringLiteral("FriendTreeView"));
        QCOMPARE(external.rows(""), QStringList({"xena"}));
        FakeHost::send(4119, QList<GroupData>{{E9, QStringLiteral("Nine")}}, false);
        QCOMPARE(external.rows("e9"), QStringList({"xena"}));
    }

    void failedLoading()
    {
        ExternalPageFixture external(ExternalPageFixture::Nothing);
        const int boxes = TipBox::count();
        emit external.view->signal_loadGroupTimeOut();
        QCOMPARE(external.shown(), QStringLiteral("getfriendsfailed"));
        QCOMPARE(TipBox::count(), boxes + 1);
        QCOMPARE(TipBox::lastText(), QStringLiteral("getfriendsfailed"));
        QVERIFY(external.button("btnRefresh")->isEnabled());
        QTest::mouseClick(external.button("retry"), Qt::LeftButton);
        QCOMPARE(external.host.count(4356), 2);
        QCOMPARE(external.shown(), QStringLiteral("friendsLoading"));
        // A host that keeps failing is asked three times more.
        for (int i = 0; i < 5; ++i)
            FakeHost::send(4500);
        QCOMPARE(external.host.count(4356), 5);
        QCOMPARE(external.shown(), QStringLiteral("getfriendsfailed"));
        // As soon as there is a connection again it is tried again.
        FakeHost::send(4135, true);
        QCOMPARE(external.host.count(4356), 6);
        FakeHost::send(4119, QList<GroupData>{{E1, QStringLiteral("Clients")}}, false);
        QCOMPARE(external.shown(), QStringLiteral("FriendTreeView"));
    }

    void refreshes_data()
    {
        const Rows<int, QByteArray, int> row{"code", "payload", "boxes"};
        row("answered", 4119,
            FakeHost::encode(QList<GroupData>{{E1, QStringLiteral("Renamed")}}, false), 0);
        row("not answered", 0, QByteArray(), 1);
    }

    void refreshes()
    {
        QFETCH(int, code);
        QFETCH(QByteArray, payload);
        QFETCH(int, boxes);
        ExternalPageFixture external;
        QAbstractButton *refresh = external.button("btnRefresh");
        auto *note = external.page->findChild<QWidget *>(QStringLiteral("widget_loading"));
        QCOMPARE(refresh->text(), QString::fromUtf8("刷新"));
        const int before = TipBox::count();
        refresh->setFocus();
        QTest::keyClick(refresh, Qt::Key_Return);
        QCOMPARE(external.host.arguments<bool>(4356), std::make_tuple(false));
        QVERIFY(note->isVisible());
        QVERIFY(!refresh->isEnabled());
        QVERIFY(external.view->hasFocus());
        // The other list's answer is not this one's.
        FakeHost::send(4119, QList<GroupData>(), true);
        QVERIFY(note->isVisible());
        if (code)
            FakeHost::sendRaw(code, payload);
        else
            external.view->slot_loadGroupTimeOut();
        QVERIFY(!note->isVisible());
        QVERIFY(refresh->isEnabled());
        QCOMPARE(TipBox::count() - before, boxes);
        QCOMPARE(external.rows("e1"), QStringList({"xena", "yuri"}));
    }

    void offline()
    {
        ExternalPageFixture external;
        external.host.context.settings.setConnected(false);
        external.button("btnRefresh")->click();
        QCOMPARE(external.host.count(4356), 0);
        QCOMPARE(TipBox::lastText(), QStringLiteral("isOfflinePleaseLogin"));
    }

    // --- Contacts ------------------------------------------------------------------

    void changesSides()
    {
        ExternalPageFixture external;
        FriendTreeWidget inner;
        QVERIFY(inner.model()->hasContact(Anna));
        QVERIFY(!external.model->hasContact(Anna));
        FriendData &anna = external.host.context.contacts[Anna];
        anna.outside = 1;
        FakeHost::send(4115, QList<FriendData>{anna});
        QVERIFY(!inner.model()->hasContact(Anna));
        QVERIFY(external.model->hasContact(Anna));
        anna.outside = 0;
        for (ContactTreePage *page : {static_cast<ContactTreePage *>(&inner),
                                      static_cast<ContactTreePage *>(external.page.get())})
            page->slot_updateOutsideFriendStatus(Anna);
        QVERIFY(inner.model()->hasContact(Anna));
        QVERIFY(!external.model->hasContact(Anna));
        // One list that says both: the last word counts.
        FriendData outside = anna;
        outside.outside = 1;
        FakeHost::send(4115, QList<FriendData>{outside, anna});
        QVERIFY(inner.model()->hasContact(Anna) && !external.model->hasContact(Anna));
        FakeHost::send(4115, QList<FriendData>{outside, anna, outside});
        QVERIFY(!inner.model()->hasContact(Anna) && external.model->hasContact(Anna));
        // Known to nobody, but said to be of another company.
        external.host.context.cooperation.insert(Stranger, true);
        FakeHost::send(4114, Stranger);
        QVERIFY(external.model->hasContact(Stranger) && !inner.model()->hasContact(Stranger));
    }

    void tellsWhoTheyAre()
    {
        ExternalPageFixture external;
        VcardInfo profile;
        profile.companyName = QStringLiteral("<b>Co</b>\nLtd.");
        external.host.context.profiles.insert(Xena, profile);
        const QSignalSpy changed(external.model, &QAbstractItemModel::dataChanged);
        FakeHost::send(4105, Xena, profile);
        QVERIFY(changed.count() > 0);
        const QModelIndex xena = external.contact("xena");
        QCOMPARE(xena.data(FriendTreeRole::Kind).toInt(), int(ExternalContactRow));
        QCOMPARE(xena.data(FriendTreeRole::Company).toString(), QStringLiteral("<b>Co</b> Ltd."));
        const QString spoken = xena.data(Qt::AccessibleTextRole).toString();
        QVERIFY2(spoken.contains(QStringLiteral("outsidefrd, <b>Co</b> Ltd.")), qPrintable(spoken));
        const QString tip = xena.data(Qt::ToolTipRole).toString();
        QVERIFY2(tip.contains(QStringLiteral("&lt;b&gt;Co")), qPrintable(tip));
        QCOMPARE(external.contact("yuri").data(FriendTreeRole::Company).toString(), QString());
    }

    void hidesWhoIsOffline()
    {
        ExternalPageFixture external;
        bool hide = true;
        external.page->slot_hidealloffline(hide);
        QCOMPARE(external.rows("e1"), QStringList({"xena"}));
        FakeHost::send(4117, QMap<QString, PresenceData>{{Yuri, makePresence(0, 1)}});
        QCOMPARE(external.rows("e1"), QStringList({"xena", "yuri"}));
        // To see one of them is to see all.
        QVERIFY(external.page->locate(jidOf(QStringLiteral("zora"))));
        QCOMPARE(external.rows("e2"), QStringList({"zora"}));
        QCOMPARE(external.view->currentIndex(), external.contact("zora"));
        FakeHost::send(4355);
        QCOMPARE(external.model->onlineCount(), 0);
    }

    void remembersWhatIsOpen()
    {
        ExternalPageFixture external;
        external.view->setExpanded(external.model->groupIndex(E1), false);
        external.view->setExpanded(external.model->groupIndex(E2), true);
        const auto stored = [](const char *key) {
            return SettingsFile(ClientPaths::userSettingsFile()).list(QLatin1String(key));
        };
        QTRY_COMPARE(stored("/externalFriends/expandedGroups"), QStringList({"Partners"}));
        QCOMPARE(stored("/friendTree/expandedGroups"), QStringList());
        external.make();
        QVERIFY(!external.view->isExpanded(external.model->groupIndex(E1)));
        QVERIFY(external.view->isExpanded(external.model->groupIndex(E2)));
    }

    void manyContacts()
    {
        ExternalPageFixture external;
        QList<FriendData> contacts;
        for (int i = 0; i < 10000; ++i) {
            const QString number = QStringLiteral("%1").arg(i, 5, 10, QLatin1Char('0'));
            contacts.append(makeExternal(QStringLiteral("u") + number, QStringLiteral("n") + number,
                                         i % 2 ? E1 : E2));
        }
        FakeHost::send(4115, contacts);
        QCOMPARE(external.model->contactCount(), 10003);
        external.view->expandAll();
        QTest::keyClicks(external.view, QStringLiteral("n09999"));
        QCOMPARE(external.view->currentIndex().data(FriendTreeRole::Id).toString(),
                 QStringLiteral("u09999@corp.example"));
    }

    // --- Requests ------------------------------------------------------------------

    void menus()
    {
        ExternalPageFixture external;
        SkinMenu *menu = external.openMenuOf("xena");
        QVERIFY(menu);
        QStringList keys;
        for (const QAction *action : menu->actions()) {
            if (action->isVisible() && !action->isSeparator())
                keys.append(action->objectName());
        }
        QCOMPARE(keys, QStringList({"invitechat", "sendFile", "sendemail", "msgrecord",
                                    "viewdetail", "deleteMyFriend", "changeRemarkName",
                                    "addToBlacklist", "moveToGroup", "createDesktopShortcut"}));
        menu->close();
    }

    void requests_data()
    {
        const Rows<QString, int, QByteArray, bool> row{"key", "code", "payload", "asks"};
        row("chat", "invitechat", 4251, FakeHost::encode(Xena, qint32(0)), false);
        row("delete", "deleteMyFriend", 4157, FakeHost::encode(Xena, false), true);
        row("blacklist", "addToBlacklist", 4397, FakeHost::encode(Xena), true);
    }

    void requests()
    {
        QFETCH(QString, key);
        QFETCH(int, code);
        QFETCH(QByteArray, payload);
        QFETCH(bool, asks);
        ExternalPageFixture external;
        for (const auto answer : {TipBox::Cancel, TipBox::Sure}) {
            TipBox::setNextAnswers(answer);
            SkinMenu *menu = external.openMenuOf("xena");
            menu->close();
            menu->action(key.toLatin1().constData())->trigger();
            QCOMPARE(external.host.count(code) > 0, !asks || answer == TipBox::Sure);
        }
        QCOMPARE(external.host.last(code).payload, payload);
        // Nothing changes here before the host says so.
        QCOMPARE(external.rows("e1"), QStringList({"xena", "yuri"}));
    }

    void groupRequests()
    {
        ExternalPageFixture external;
        auto *groupMenu = external.view->findChild<SkinMenu *>(QStringLiteral("commonGroupMenu"));
        external.view->slot_contextMenu(
            external.view->visualRect(external.model->groupIndex(E2)).center());
        groupMenu->close();
        TipBox::setNextAnswers(TipBox::Sure);
        groupMenu->action("delMuc")->trigger();
        QCOMPARE((external.host.arguments<QString, bool>(4361)), std::make_tuple(E2, false));
        groupMenu->action("newgroup")->trigger();
        external.view->findChild<InputBox *>()->setTextValue(QStringLiteral(" New "));
        external.view->findChild<InputBox *>()->accept();
        QCOMPARE((external.host.arguments<QString, bool>(4360)),
                 std::make_tuple(QStringLiteral("New"), false));
        external.openMenuOf("xena")->close();
        auto *moveMenu = external.view->findChild<SkinMenu *>(QStringLiteral("moveToGroup"));
        moveMenu->actions().last()->trigger();
        QCOMPARE((external.host.arguments<QString, QString, QString, bool>(4358)),
                 std::make_tuple(Xena, E1, E2, false));
    }

    void groupsComeAndGo()
    {
        ExternalPageFixture external;
        FakeHost::send(4118, E9, QStringLiteral("Nine"), true, false);
        FakeHost::send(4121, true, Xena, E1, E9, false);
        QCOMPARE(external.rows("e9"), QStringList({"xena"}));
        FakeHost::send(4134, E9, QStringLiteral("Neun"), true, false);
        QCOMPARE(external.model->groupName(E9), QStringLiteral("Neun"));
        FakeHost::send(4120, true, E9, false);
        QCOMPARE(external.rows(""), QStringList({"xena"}));
        FakeHost::send(4748, Xena, QStringLiteral("remark"));
        QCOMPARE(external.contact("xena").data(FriendTreeRole::Name).toString(),
                 QStringLiteral("remark"));
        FakeHost::send(4101, Xena, false);
        QVERIFY(!external.model->hasContact(Xena));
    }
};

FRIENDUI_TEST(TstExternalPage)
#include "tst_externalpage.moc"
