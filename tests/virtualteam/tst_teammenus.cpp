// The menus of the team tree and the keys: who sees what, and what becomes of a choice
// when the team has changed while the menu was open.
#include "tests/support/logcapture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/menusfixture.h"
#include "virtualteam/cvirtualteamtreedelegate.h"

namespace {
constexpr int Owner = TeamRole::Owner;
constexpr int Sub = TeamRole::SubAdministrator;
constexpr int Member = TeamRole::Member;
} // namespace

class TstTeamMenus : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setSkin(QStringLiteral("light")); }

    void entries_data()
    {
        const Rows<int, QString, QString> row{"role", "rows", "entries"};
        const auto text = [](const char *latin) { return QString::fromLatin1(latin); };
        row("owner, team", Owner, text("T"),
            text("addTeamMember addTeamGroupName setting inviteCompany setAdmin transAuth "
                 "dismissTeam"));
        row("owner, group", Owner, text("7"),
            text("addTeamMember addTeamGroupName modifyTeamGroupName delGroup"));
        row("owner, member", Owner, text("u2"),
            text("invitechat createMuc viewdetail setPersionAdmin editNickName "
                 "virtemModPostName moveTeamMembers deleteTeamMembers"));
        row("owner, sub-administrator", Owner, text("u5"),
            text("invitechat createMuc viewdetail cancelPersionAdmin editNickName "
                 "virtemModPostName moveTeamMembers deleteTeamMembers"));
        row("owner, himself", Owner, text("u1"),
            text("viewdetail editNickName virtemModPostName moveTeamMembers"));
        row("owner, several", Owner, text("u2 u4 7"),
            text("createMuc batMoveTeamMembers batDeleteTeamMembers"));
        row("owner, of two teams", Owner, text("u2 S/u9"), text("createMuc"));
        row("sub-administrator, team", Sub, text("T"),
            text("addTeamMember addTeamGroupName inviteCompany existVirtualTeam"));
        row("sub-administrator, group", Sub, text("7"),
            text("addTeamMember addTeamGroupName modifyTeamGroupName delGroup"));
        for (const char *id : {"u2", "u3"}) // a member, the owner
            row(id, Sub, text(id),
                text("invitechat createMuc viewdetail editNickName virtemModPostName "
                     "moveTeamMembers deleteTeamMembers"));
        row("sub-administrator, himself", Sub, text("u1"),
            text("viewdetail editNickName virtemModPostName moveTeamMembers"));
        row("sub-administrator, several", Sub, text("u2 u4"),
            text("createMuc batMoveTeamMembers batDeleteTeamMembers"));
        row("member, team", Member, text("T"), text("existVirtualTeam"));
        row("member, group", Member, text("7"), {});
        row("member, another", Member, text("u2"), text("invitechat createMuc viewdetail"));
        row("member, himself", Member, text("u1"), text("viewdetail editNickName"));
        row("member, several", Member, text("u2 u4"), text("createMuc"));
        row("role below, group", -1, text("7"), {});
        row("role above, team", 3, text("T"), text("existVirtualTeam"));
    }

    void entries()
    {
        QFETCH(int, role);
        QFETCH(QString, rows);
        const MenusFixture tree(role);
        TeamMenu *menu = tree.menuOf(rows);
        QTEST(MenusFixture::shown(menu), "entries");
        if (menu)
            menu->close();
    }

    void settingButton_data()
    {
        const Rows<int, QString> row{"role", "entries"};
        row("owner", Owner, QStringLiteral("setting inviteCompany setAdmin transAuth dismissTeam"));
        row("sub-administrator", Sub, QStringLiteral("inviteCompany existVirtualTeam"));
        row("member", Member, QStringLiteral("existVirtualTeam"));
    }

    void settingButton()
    {
        QFETCH(int, role);
        const MenusFixture tree(role);
        const QRect row = tree.tree->visualRect(tree.row(QStringLiteral("T")));
        const QRect button = CVirtualTeamTreeDelegate::settingArea(row, Qt::LeftToRight);
        QTest::mouseClick(tree.tree->viewport(), Qt::LeftButton, Qt::NoModifier, button.center());
        auto *menu = qobject_cast<TeamMenu *>(QApplication::activePopupWidget());
        QTEST(MenusFixture::shown(menu), "entries");
        menu->close();
        menu->actions().last()->trigger();
        QCOMPARE(TipBox::lastText().section(u'\n', 0, 0),
                 role == Owner
                     ? QString::fromUtf8("确定解散虚拟团队？解散团队后，将会删除团队所有信息。")
                     : QStringLiteral("notmodify"));
    }

    void rightsOfTheHost()
    {
        MenusFixture tree(Member);
        tree.actions.detailOpens = false;
        QCOMPARE(MenusFixture::shown(tree.menuOf(QStringLiteral("u2")), true),
                 QStringLiteral("invitechat createMuc"));
        QApplication::activePopupWidget()->close();
        using Context = ApplicationContext;
        tree.service.host.context.deniedRights = {Context::Chat, Context::CreateMuc,
                                                  Context::Detail};
        QVERIFY(!tree.menuOf(QStringLiteral("u2")));
        QVERIFY(!tree.menuOf(QStringLiteral("u2 u4")));
    }

    void disabledWhileBusy()
    {
        const MenusFixture tree(Owner);
        tree.commands()->moveMembersTo(QStringLiteral("T"), QStringLiteral("7"),
                                       {QStringLiteral("u2")});
        QVERIFY(tree.commands()->isBusy(QStringLiteral("T")));
        TeamMenu *menu = tree.menuOf(QStringLiteral("u2"));
        QCOMPARE(MenusFixture::shown(menu, true),
                 QStringLiteral("invitechat createMuc viewdetail"));
        QTRY_VERIFY(!tree.commands()->isBusy(QStringLiteral("T"))); // the menu stays open
        QCOMPARE(MenusFixture::shown(menu, true), MenusFixture::shown(menu));
        menu->close();
        menu = tree.menuOf(QStringLiteral("T"));
        tree.commands()->moveMembersTo(QStringLiteral("T"), QStringLiteral("7"),
                                       {QStringLiteral("u2")});
        QCOMPARE(MenusFixture::shown(menu, true), QString());
        menu->close();
        menu = tree.menuOf(QStringLiteral("S")); // another team
        QCOMPARE(MenusFixture::shown(menu, true), QStringLiteral("existVirtualTeam"));
        menu->close();
    }

    void asks_data()
    {
        const Rows<QString, QByteArray, QString> row{"rows", "key", "asked"};
        const auto text = [](const char *latin) { return QString::fromLatin1(latin); };
        row("group", text("7"), "delGroup", text("deleteTeamGroupTip"));
        row("member", text("u2"), "deleteTeamMembers", text("sureDeleteTeamMember"));
        row("promote", text("u2"), "setPersionAdmin", text("sureSetAdmin"));
        row("demote", text("u5"), "cancelPersionAdmin", text("sureCancelAdmin"));
        row("several", text("u2 u4"), "batDeleteTeamMembers",
            QString::fromUtf8("确定批量删除成员吗？"));
        row("several with a sub-administrator", text("u2 u5"), "batDeleteTeamMembers",
            QString::fromUtf8("所选成员包含子管理员不能被删除！"));
        row("several with oneself", text("u2 u1"), "batDeleteTeamMembers",
            QString::fromUtf8("所选成员包含子管理员不能被删除！"));
        row("dissolve", text("T"), "dismissTeam",
            QString::fromUtf8("确定解散虚拟团队？解散团队后，将会删除团队所有信息。"));
        row("leave", text("S"), "existVirtualTeam", text("sureExistTeam"));
    }

    void asks()
    {
        QFETCH(QString, rows);
        QFETCH(QByteArray, key);
        const MenusFixture tree(Owner);
        const int boxes = TipBox::count();
        tree.choose(rows, key.constData());
        QTEST(TipBox::lastText().section(u'\n', 0, 0), "asked");
        QCOMPARE(TipBox::count() - boxes, 1);
        QVERIFY(!tree.commands()->isBusy(QStringLiteral("T"))); // as it was cancelled
    }

    void dialogs_data()
    {
        const Rows<QString, QByteArray, QByteArray> row{"rows", "key", "dialog"};
        const auto text = [](const char *latin) { return QString::fromLatin1(latin); };
        row("new group", text("7"), "addTeamGroupName", "VirtualTeamEditWidget");
        row("rename group", text("7"), "modifyTeamGroupName", "VirtualTeamEditWidget");
        row("nick name", text("u2"), "editNickName", "VirtualTeamEditWidget");
        row("post", text("u2"), "virtemModPostName", "VirtualTeamEditWidget");
        row("team", text("T"), "setting", "VirtualTeamEditWidget");
        row("invite", text("T"), "inviteCompany", "CVirtualTeamWidgetCreat");
        row("administrators", text("T"), "setAdmin", "CSetAdministrator");
        row("authority", text("T"), "transAuth", "VirtualTeamTransAuth");
        row("move one", text("u2"), "moveTeamMembers", "VirtualTeamTransAuth");
        row("move several", text("u2 u4"), "batMoveTeamMembers", "VirtualTeamTransAuth");
    }

    // Each of them once, however often it is asked for, and never offline.
    void dialogs()
    {
        QFETCH(QString, rows);
        QFETCH(QByteArray, key);
        QFETCH(QByteArray, dialog);
        MenusFixture tree(Owner);
        const auto opened = [&tree] { return tree.tree->findChildren<BaseDialog *>(); };
        tree.service.setOnline(false);
        tree.choose(rows, key.constData());
        QCOMPARE(TipBox::lastText(), QStringLiteral("notexecuteoperation"));
        QCOMPARE(opened().size(), 0);
        tree.service.setOnline(true);
        tree.choose(rows, key.constData());
        opened().first()->showMinimized();
        tree.choose(rows, key.constData());
        QCOMPARE(opened().size(), 1);
        QVERIFY(!opened().first()->isMinimized());
        QVERIFY(opened().first()->inherits(dialog.constData()));
        opened().first()->reject();
        tree.choose(rows, key.constData()); // before the closed one has gone
        QTRY_COMPARE(opened().size(), 1);
        QVERIFY(opened().first()->isVisible());
        tree.tree.reset(); // with the dialog open and its request under way
        QTRY_COMPARE(tree.service.server.unanswered(), 0);
    }

    void talking()
    {
        const MenusFixture tree(Member);
        tree.choose(QStringLiteral("u2"), "invitechat");
        QCOMPARE(std::get<0>(tree.service.host.arguments<QString, int>(Outbound::OpenChat)),
                 QStringLiteral("u2@corp.example"));
        tree.choose(QStringLiteral("u2 u1 u4 S/u2 S/u9"), "createMuc");
        auto [jids] = tree.service.host.arguments<QStringList>(Outbound::CreateGroupChat);
        jids.sort();
        QCOMPARE(jids.join(u' '),
                 QStringLiteral("u2@corp.example u4@corp.example u9@corp.example"));
        tree.choose(QStringLiteral("u2"), "viewdetail");
        QCOMPARE(tree.actions.calls, QStringList{QStringLiteral("openContactDetail "
                                                                "u2@corp.example")});
    }

    void hostEndsTheView_data()
    {
        const Rows<QString, QByteArray> row{"rows", "key"};
        row("chat", QStringLiteral("u2"), "invitechat");
        row("group chat", QStringLiteral("u2 u4"), "createMuc");
    }

    void hostEndsTheView()
    {
        QFETCH(QString, rows);
        QFETCH(QByteArray, key);
        MenusFixture tree(Owner);
        tree.service.host.onRequest = [&tree](const FakeHost::Request &) { tree.tree.reset(); };
        tree.choose(rows, key.constData());
        QCOMPARE(tree.service.host.requests.size(), 1);
        QVERIFY(!tree.tree);
    }

    // --- Others were quicker -----------------------------------------------------------

    void goneMeanwhile_data()
    {
        const Rows<QString, QByteArray, QString> row{"rows", "key", "gone"};
        row("member", QStringLiteral("u2"), "deleteTeamMembers", QStringLiteral("u2"));
        row("nick name", QStringLiteral("u2"), "editNickName", QStringLiteral("u2"));
        row("sub-administrator", QStringLiteral("u5"), "cancelPersionAdmin", QStringLiteral("u5"));
        row("group", QStringLiteral("7"), "modifyTeamGroupName", QStringLiteral("7"));
        row("member's group", QStringLiteral("u4"), "invitechat", QStringLiteral("7"));
        row("team", QStringLiteral("u2"), "invitechat", QStringLiteral("T"));
        row("team's settings", QStringLiteral("T"), "setting", QStringLiteral("T"));
        row("several", QStringLiteral("u2 u4"), "batDeleteTeamMembers", QStringLiteral("T"));
    }

    void goneMeanwhile()
    {
        QFETCH(QString, rows);
        QFETCH(QByteArray, key);
        QFETCH(QString, gone);
        MenusFixture tree(Owner);
        const LogCapture log(tree.service.host.context);
        const int boxes = TipBox::count();
        tree.choose(rows, key.constData(), [&] {
            const QString team = QStringLiteral("T");
            QVERIFY(gone == team ? tree.teams()->removeTeam(team)
                                 : tree.teams()->removeMember(team, gone) ||
                                       tree.teams()->removeGroup(team, gone));
        });
        QCOMPARE(TipBox::count(), boxes);
        QCOMPARE(tree.service.host.requests.size(), 0);
        QVERIFY(!tree.tree->findChild<BaseDialog *>());
        QCOMPARE(log.linesWith("item is null").size(), 1);
    }

    void oneOfTwoGone()
    {
        const MenusFixture tree(Owner);
        tree.choose(QStringLiteral("u2 u4"), "batDeleteTeamMembers", [&tree] {
            tree.teams()->removeMember(QStringLiteral("T"), QStringLiteral("u2"));
        });
        QCOMPARE(TipBox::lastText(), QStringLiteral("sureDeleteTeamMember\nu4"));
    }

    void roleChangedMeanwhile_data()
    {
        const Rows<QString, QByteArray> row{"rows", "key"};
        row("delete", QStringLiteral("u2"), "deleteTeamMembers");
        row("several", QStringLiteral("u2 u4"), "batMoveTeamMembers");
        row("promote", QStringLiteral("u2"), "setPersionAdmin");
        row("rename group", QStringLiteral("7"), "modifyTeamGroupName");
        row("dissolve", QStringLiteral("T"), "dismissTeam");
    }

    void roleChangedMeanwhile()
    {
        QFETCH(QString, rows);
        QFETCH(QByteArray, key);
        MenusFixture tree(Owner);
        tree.choose(rows, key.constData(), [&tree] { tree.setRole(Member); });
        QCOMPARE(TipBox::lastText(), QStringLiteral("notmodify"));
        QVERIFY(!tree.tree->findChild<BaseDialog *>());
    }

    // The entry promised the opposite of what it would do now.
    void promotedMeanwhile()
    {
        const MenusFixture tree(Owner);
        TipBox::setNextAnswers(TipBox::Sure);
        const auto setRole = [&tree](int role) {
            tree.teams()->setRole(QStringLiteral("T"), QStringLiteral("u2"), role);
        };
        tree.choose(QStringLiteral("u2"), "setPersionAdmin", [=] { setRole(Sub); });
        QCOMPARE(TipBox::lastText(), QStringLiteral("notmodify"));
        tree.choose(QStringLiteral("u2"), "cancelPersionAdmin", [=] { setRole(Member); });
        QCOMPARE(TipBox::lastText(), QStringLiteral("notmodify"));
        QVERIFY(!tree.commands()->isBusy(QStringLiteral("T")));
    }

    // --- Keys ------------------------------------------------------------------------

    void keys_data()
    {
        // told: a box, or the title of the dialog; empty: nothing happens
        const Rows<int, QString, int, QString> row{"role", "rows", "key", "told"};
        const auto text = [](const char *latin) { return QString::fromLatin1(latin); };
        row("F2, team", Owner, text("T"), Qt::Key_F2, text("virtemModGrpName"));
        row("F2, group", Sub, text("7"), Qt::Key_F2, text("modifyTeamGroupName"));
        row("F2, oneself", Member, text("u1"), Qt::Key_F2, text("editNickName"));
        row("F2, another", Sub, text("u2"), Qt::Key_F2, text("editNickName"));
        row("F2, another by a member", Member, text("u2"), Qt::Key_F2, text("notmodify"));
        row("F2, group by a member", Member, text("7"), Qt::Key_F2, text("notmodify"));
        row("F2, team by a sub-administrator", Sub, text("T"), Qt::Key_F2, text("notmodify"));
        row("F2, several", Owner, text("u2 u4"), Qt::Key_F2, text("editNickName"));
        row("Delete, member", Sub, text("u2"), Qt::Key_Delete, text("sureDeleteTeamMember"));
        row("Delete, several", Sub, text("u2 u4"), Qt::Key_Delete,
            QString::fromUtf8("确定批量删除成员吗？"));
        row("Delete, owner", Sub, text("u3"), Qt::Key_Delete,
            QString::fromUtf8("所选成员包含子管理员不能被删除！"));
        row("Delete, oneself", Owner, text("u1"), Qt::Key_Delete, text("notmodify"));
        row("Delete by a member", Member, text("u2"), Qt::Key_Delete, text("notmodify"));
        row("Delete, group", Owner, text("7"), Qt::Key_Delete, text("deleteTeamGroupTip"));
        row("Delete, own team", Owner, text("T"), Qt::Key_Delete,
            QString::fromUtf8("确定解散虚拟团队？解散团队后，将会删除团队所有信息。"));
        row("Delete, team", Sub, text("T"), Qt::Key_Delete, text("sureExistTeam"));
    }

    void keys()
    {
        QFETCH(int, role);
        QFETCH(QString, rows);
        QFETCH(int, key);
        const MenusFixture tree(role);
        const int boxes = TipBox::count();
        tree.select(rows);
        QTest::keyClick(tree.tree.get(), Qt::Key(key));
        const auto *dialog = tree.tree->findChild<BaseDialog *>();
        const QString told = dialog                    ? dialog->windowTitle()
                             : TipBox::count() > boxes ? TipBox::lastText().section(u'\n', 0, 0)
                                                       : QString();
        QTEST(told, "told");
    }

    // The current row was taken out of the selection again.
    void keysOfOtherRowsThanTheCurrent()
    {
        const MenusFixture tree(Owner);
        tree.select(QStringLiteral("u5 u2 u4"));
        tree.tree->selectionModel()->select(tree.row(QStringLiteral("u5")),
                                            QItemSelectionModel::Deselect);
        QTest::keyClick(tree.tree.get(), Qt::Key_Delete);
        QCOMPARE(TipBox::lastText(), QString::fromUtf8("确定批量删除成员吗？"));
    }

    void keysOfNoRow()
    {
        const MenusFixture tree(Owner);
        const int boxes = TipBox::count();
        tree.tree->setCurrentIndex(QModelIndex());
        QTest::keyClick(tree.tree.get(), Qt::Key_Delete);
        const QString team = QStringLiteral("T");
        tree.teams()->setLevel(team, QStringLiteral("7"), groupsOf("8"), {});
        tree.tree->expandAll(); // which asks for the level
        tree.teams()->setChildrenState(team, QStringLiteral("8"), TeamChildren::Failed);
        const QModelIndex failed = tree.teams()->index(0, 0, tree.row(QStringLiteral("8")));
        QVERIFY(tree.teams()->kind(failed) == TeamRowKind::Failed);
        tree.tree->setCurrentIndex(failed);
        for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_F2})
            QTest::keyClick(tree.tree.get(), key);
        QCOMPARE(TipBox::count(), boxes);
        QVERIFY(!tree.tree->findChild<BaseDialog *>());
    }

    void pictures_data() { addLooks(); }

    // Every entry has a text in both languages.
    void pictures()
    {
        QFETCH(QString, skin);
        QFETCH(QString, language);
        setSkin(skin);
        const Language translated(language);
        const MenusFixture tree(Owner);
        for (const char *rows : {"T", "7", "u2", "u5", "u2 u4"}) {
            TeamMenu *menu = tree.menuOf(QLatin1String(rows));
            QVERIFY(menu);
            const auto entries = menu->actions();
            for (const QAction *entry : entries)
                QVERIFY(entry->isSeparator() || entry->text() != entry->objectName());
            keepPicture(menu->grab().toImage(),
                        QStringLiteral("team_menu_%1_%2_%3")
                            .arg(QLatin1String(rows).trimmed(), skin, language));
            menu->close();
        }
    }
};

FRIENDUI_TEST(TstTeamMenus)
#include "tst_teammenus.moc"
