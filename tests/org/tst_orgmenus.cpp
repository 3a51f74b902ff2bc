// The menus of the organisation, what they send, and what they refuse.
#include "org/orgcommands.h"
#include "tests/org/orgfixture.h"
#include "tests/support/testrunner.h"

namespace {

QStringList keysOf(const SkinMenu *menu)
{
    QStringList keys;
    for (const QAction *action : menu->actions())
        keys.append(action->objectName());
    return keys;
}

} // namespace

class TstOrgMenus : public QObject
{
    Q_OBJECT

private slots:
    void entriesByRight_data()
    {
        const Rows<QByteArray, QVector<int>, QString> row{"row", "denied", "keys"};
        using Context = ApplicationContext;
        row("department", "D1", QVector<int>{},
            "openOrClose locateSelf freshPersionInfo addToContactList");
        row("department, restricted", "D1", QVector<int>{Context::LocateSelf, Context::AddContact},
            "openOrClose freshPersionInfo");
        row("employee", "anna", QVector<int>{},
            "invitechat sendFile sendemail viewdetail msgrecord addcon");
        row("employee, no chat", "anna",
            QVector<int>{Context::Chat, Context::SendFile, Context::History, Context::AddContact},
            "sendemail viewdetail");
        row("employee, no profile", "anna", QVector<int>{Context::Mail, Context::Detail},
            "invitechat sendFile msgrecord addcon");
        row("employee, nothing", "anna",
            QVector<int>{Context::Chat, Context::SendFile, Context::History, Context::Detail,
                         Context::Mail, Context::AddContact},
            "");
    }

    void entriesByRight()
    {
        QFETCH(QByteArray, row);
        QFETCH(QVector<int>, denied);
        QFETCH(QString, keys);
        OrgFixture org;
        for (int right : denied)
            org.host.context.deniedRights.insert(right);
        org.showOpen();
        SkinMenu *menu = org.menuAt(row.constData());
        QCOMPARE(menu ? keysOf(menu).join(QLatin1Char(' ')) : QString(), keys);
        if (menu)
            menu->close();
    }

    void menuByRowAndSelection()
    {
        OrgFixture org;
        org.showOpen();
        org.select("anna");
        org.tree->selectionModel()->select(org.row("bob"), QItemSelectionModel::Select);
        SkinMenu *menu = org.menuAt("anna");
        QVERIFY(menu);
        QCOMPARE(keysOf(menu), QStringList{QStringLiteral("createMuc")});
        menu->close();
        // A row outside the selection is selected by itself first.
        menu = org.menuAt("D1");
        QVERIFY(menu);
        QCOMPARE(keysOf(menu).first(), QStringLiteral("openOrClose"));
        QCOMPARE(org.tree->selectionModel()->selectedRows().size(), 1);
        menu->close();
        // By key, for the current row.
        org.select("bob");
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint());
        QApplication::sendEvent(org.tree->viewport(), &event);
        menu = qobject_cast<SkinMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QCOMPARE(keysOf(menu).first(), QStringLiteral("invitechat"));
        menu->close();
        QVERIFY(!org.menuAt(QPoint(20, org.tree->viewport()->height() - 2)));
    }

    void entriesThatLeadNowhere()
    {
        OrgFixture org;
        org.showOpen({makeEmployee(org.id("me"), org.id("D1"))});
        const auto enabled = [&org](const char *who) {
            SkinMenu *menu = org.menuAt(who);
            QStringList keys;
            for (const QAction *action : menu->actions()) {
                if (action->isEnabled())
                    keys.append(action->objectName());
            }
            menu->close();
            return keys.join(QLatin1Char(' '));
        };
        QCOMPARE(enabled("me"), QStringLiteral("sendFile viewdetail msgrecord"));
        org.actions.detailOpens = false;
        QCOMPARE(enabled("anna"), QStringLiteral("invitechat sendFile sendemail msgrecord addcon"));
    }

    void employeeRequests_data()
    {
        const Rows<QByteArray, int> row{"key", "code"};
        row("chat", "invitechat", int(Outbound::OpenChat));
        row("history", "msgrecord", int(Outbound::OpenHistory));
        row("file", "sendFile", int(Outbound::SendFile));
        row("mail", "sendemail", int(Outbound::WriteMail));
    }

    void employeeRequests()
    {
        QFETCH(QByteArray, key);
        QFETCH(int, code);
        OrgFixture org;
        org.showOpen();
        org.choose("anna", key.constData());
        QCOMPARE(org.host.requests.size(), 1);
        const FakeHost::Request request = org.host.last(code);
        QByteArray expected;
        if (code == Outbound::WriteMail)
            expected = FakeHost::encode(QStringList{org.jid("anna")});
        else if (code == Outbound::SendFile)
            expected = FakeHost::encode(QStringList{org.jid("anna")}, qint32(0));
        else
            expected = FakeHost::encode(org.jid("anna"), qint32(0));
        QCOMPARE(request.payload, expected);

        org.choose("anna", "viewdetail");
        QCOMPARE(org.actions.calls.last(), QStringLiteral("openContactDetail ") + org.jid("anna"));
    }

    void fileRefusals_data()
    {
        const Rows<QByteArray, bool, QString> row{"who", "hasLeft", "text"};
        row("oneself", "me", false, "notransferfile");
        row("has left", "anna", true, "nottransferfilewithunusedaccount");
    }

    void fileRefusals()
    {
        QFETCH(QByteArray, who);
        QFETCH(bool, hasLeft);
        OrgFixture org;
        org.showOpen({makeEmployee(org.id("me"), org.id("D1"))});
        FriendData contact;
        contact.jid = org.jid(who.constData());
        contact.onJob = hasLeft ? 0 : 1;
        org.host.context.addContact(contact);
        org.choose(who.constData(), "sendFile");
        QCOMPARE(org.host.requests.size(), 0);
        QTEST(TipBox::lastText(), "text");
    }

    void mailLimit_data()
    {
        const Rows<int, bool> row{"recipients", "sent"};
        row("as many as may be", 50, true);
        row("one too many", 51, false);
    }

    void mailLimit()
    {
        QFETCH(int, recipients);
        QFETCH(bool, sent);
        OrgFixture org;
        org.showFilled();
        org.tree->expandItem(org.row("D2"));
        // The own address is no recipient and does not count.
        org.answer("D2", org.many("D2", recipients) +
                             OrgElementList{makeEmployee(org.id("me"), org.id("D2"))});
        org.tree->selectAll();
        org.menuAt("p0001")->close();
        org.tree->findChild<SkinMenu *>(QStringLiteral("empMenu"))->action("sendemail")->trigger();
        QCOMPARE(org.host.requests.size(), sent ? 1 : 0);
        if (sent)
            QCOMPARE(std::get<0>(org.host.arguments<QStringList>(Outbound::WriteMail)).size(),
                     recipients);
        else
            QCOMPARE(TipBox::lastText(), QStringLiteral("recipients50SendSub"));
    }

    void groupChatOfSeveral()
    {
        OrgFixture org;
        org.showOpen();
        org.tree->selectAll(); // departments take no part
        org.choose("anna", "createMuc");
        const auto [jids] = org.host.arguments<QStringList>(Outbound::CreateGroupChat);
        QCOMPARE(jids, (QStringList{org.jid("anna"), org.jid("bob")}));
    }

    void addRefusals_data()
    {
        // text: empty: they are added
        const Rows<QString, QString> row{"what", "text"};
        row("nobody", "nobody", "notaddcontactslist");
        row("only oneself", "self", "notaddcontactslist");
        row("all have left", "left", "notaddcontactslistwithunused");
        row("all are contacts", "contacts", "notaddduplicatecontacts");
        row("too many", "limit", "addfriendslimited");
        row("just enough room", "room", "");
        row("offline", "offline", "offlineCannotAdd");
    }

    void addRefusals()
    {
        QFETCH(QString, what);
        QFETCH(QString, text);
        OrgFixture org;
        org.showFilled();
        OrgElementList people{makeDepartment(org.id("D21"), org.id("D2"), QStringLiteral("x"))};
        if (what == QLatin1String("self"))
            people.append(makeEmployee(org.id("me"), org.id("D2")));
        else if (what != QLatin1String("nobody"))
            people += {makeEmployee(org.id("dora"), org.id("D2")),
                       makeEmployee(org.id("emil"), org.id("D2"))};
        if (what == QLatin1String("left") || what == QLatin1String("contacts")) {
            for (const char *user : {"dora", "emil"}) {
                FriendData contact;
                contact.jid = org.jid(user);
                contact.onJob = what == QLatin1String("left") ? 0 : 1;
                org.host.context.addContact(contact);
            }
        }
        if (what == QLatin1String("limit") || what == QLatin1String("room")) {
            FriendData contact;
            contact.jid = org.jid("old");
            org.host.context.addContact(contact);
            org.host.context.limit = what == QLatin1String("limit") ? 2 : 3;
        }
        org.host.context.settings.setConnected(what != QLatin1String("offline"));
        const int boxes = TipBox::count();
        org.choose("D2", "addToContactList");
        if (what == QLatin1String("offline"))
            QCOMPARE(org.asked("D2"), 0);
        else
            org.answer("D2", people);
        QCOMPARE(TipBox::count() - boxes, text.isEmpty() ? 0 : 1);
        QCOMPARE(org.host.count(Outbound::AddContacts), text.isEmpty() ? 1 : 0);
        if (!text.isEmpty())
            QCOMPARE(TipBox::lastText(), text);
    }

    void addsTheWholeDepartment()
    {
        OrgFixture org;
        org.showFilled();
        FriendData known;
        known.jid = org.jid("bob");
        org.host.context.addContact(known);
        org.choose("D1", "addToContactList");
        QVERIFY(!org.tree->isExpanded(org.row("D1")));
        FakeOrgRequest *request = org.pending("D1");
        // In two slices, and a reply about others between them.
        emit request->signal_searchOrgElements(org.belowD1().mid(0, 2), org.id("C"));
        OrgStructureMgr::instance()->slot_recvOrgStructureElements(
            {makeEmployee(org.id("dora"), org.id("D2"))}, org.id("C"));
        emit request->signal_searchOrgElements(
            {makeEmployee(org.id("bob"), org.id("D1")), makeEmployee(org.id("eve"), org.id("D1"))},
            org.id("C"));
        QCOMPARE(org.host.requests.size(), 0);
        emit request->signal_searchOrgDone(org.id("D1"));
        const auto [uids, group] = org.host.arguments<QStringList, QString>(Outbound::AddContacts);
        QCOMPARE(uids, (QStringList{org.id("anna"), org.id("eve")}));
        QCOMPARE(group, QString());
        // From the cache the second time, and once only.
        org.choose("D1", "addToContactList");
        QCOMPARE(org.host.count(Outbound::AddContacts), 2);
        QCOMPARE(org.asked("D1"), 1);
    }

    void failedAddIsNotMadeUpFor()
    {
        OrgFixture org;
        org.showFilled();
        org.choose("D1", "addToContactList");
        org.fail("D1");
        QCOMPARE(TipBox::lastText(), QStringLiteral("orgRefreshFailed"));
        org.tree->expandItem(org.row("D1"));
        if (!org.pending("D1"))
            org.tree->expandItem(org.row("D1"), false);
        org.answer("D1", org.belowD1());
        QCOMPARE(org.rowText(), QStringLiteral("D1 D11 anna bob D2"));
        QCOMPARE(org.host.requests.size(), 0);
    }

    void addingOne_data()
    {
        // text: empty: the flow begins
        const Rows<QString, QString> row{"what", "text"};
        row("stranger", "stranger", "");
        row("contact", "contact", "notaddduplicatecontacts");
        row("offline", "offline", "offlineCannotAdd");
    }

    void addingOne()
    {
        QFETCH(QString, what);
        QFETCH(QString, text);
        OrgFixture org;
        org.showOpen();
        if (what == QLatin1String("contact")) {
            FriendData contact;
            contact.jid = org.jid("anna");
            org.host.context.addContact(contact);
        }
        org.host.context.settings.setConnected(what != QLatin1String("offline"));
        org.choose("anna", "addcon");
        const QStringList flow{QStringLiteral("addContact ") + org.jid("anna")};
        QCOMPARE(org.actions.calls, text.isEmpty() ? flow : QStringList());
        if (!text.isEmpty())
            QCOMPARE(TipBox::lastText(), text);
    }

    void goneMeanwhile()
    {
        OrgFixture org;
        org.showOpen();
        SkinMenu *menu = org.menuAt("anna");
        QVERIFY(menu);
        menu->close();
        org.model->setRootId(QStringLiteral("another company"));
        menu->action("invitechat")->trigger();
        menu->action("addcon")->trigger();
        QCOMPARE(org.host.requests.size(), 0);
        QCOMPARE(org.actions.calls, QStringList());
    }
};

FRIENDUI_TEST(TstOrgMenus)
#include "tst_orgmenus.moc"
