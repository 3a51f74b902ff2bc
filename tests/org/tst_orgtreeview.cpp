// Opening departments, and what must not move while they come.
#include "org/orgstructuretreedelegate.h"
#include "plugin/frienduisignalsender.h"
#include "tests/org/orgfixture.h"
#include "tests/support/testrunner.h"

class TstOrgTreeView : public QObject
{
    Q_OBJECT

private slots:
    void togglesOnce_data()
    {
        const Rows<QString> row{"how"};
        row("double click", "double");
        row("double click on the caret", "doubleCaret");
        row("caret", "caret");
        row("Enter", "enter");
        row("Right and Left", "arrows");
        row("menu", "menu");
        row("call", "call");
    }

    void togglesOnce()
    {
        QFETCH(QString, how);
        OrgFixture org;
        org.showFilled();
        int toggles = 0;
        connect(org.tree, &QTreeView::expanded, this, [&toggles] { ++toggles; });
        connect(org.tree, &QTreeView::collapsed, this, [&toggles] { ++toggles; });
        const auto toggle = [&](bool opens) {
            const QModelIndex row = org.row("D1");
            const QPoint caret =
                OrgStructureTreeDelegate::caretArea(org.tree->visualRect(row), 0, Qt::LeftToRight)
                    .center();
            if (how == QLatin1String("double"))
                org.doubleClick(org.middle(row));
            else if (how == QLatin1String("doubleCaret"))
                org.doubleClick(caret);
            else if (how == QLatin1String("caret"))
                org.click(caret);
            else if (how == QLatin1String("enter"))
                org.select(row), org.key(Qt::Key_Return);
            else if (how == QLatin1String("arrows"))
                org.select(row), org.key(opens ? Qt::Key_Right : Qt::Key_Left);
            else if (how == QLatin1String("menu"))
                org.choose("D1", "openOrClose");
            else
                org.tree->expandItem(row);
        };
        toggle(true);
        QCOMPARE(toggles, 1);
        QCOMPARE(org.rowText(), QStringLiteral("D1 ~ D2"));
        org.answer("D1", org.belowD1());
        QCOMPARE(org.rowText(), QStringLiteral("D1 D11 anna bob D2"));
        toggle(false);
        QCOMPARE(toggles, 2);
        QCOMPARE(org.rowText(), QStringLiteral("D1 D2"));
        QCOMPARE(org.asked("D1"), 1);
    }

    void asksOnceWhileLoading()
    {
        OrgFixture org;
        org.showFilled();
        for (int i = 0; i < 5; ++i)
            org.tree->expandItem(org.row("D1"));
        org.tree->expandItem(org.row("D1"), false);
        QCOMPARE(org.asked("D1"), 1);
        // Everything below at once is not asked for.
        org.select("D2");
        org.key(Qt::Key_Asterisk);
        QCOMPARE(org.asked("D2"), 0);
    }

    void cachedDepartmentsAreNotAskedFor()
    {
        OrgFixture org;
        org.showFilled();
        OrgStructureMgr::instance()->slot_recvOrgStructureElements(org.belowD1(), org.id("C"));
        org.tree->expandItem(org.row("D1"));
        QCOMPARE(org.rowText(), QStringLiteral("D1 D11 anna bob D2"));
        QCOMPARE(org.asked("D1"), 0);
    }

    void emptyDepartment()
    {
        OrgFixture org;
        org.showFilled();
        org.open("D2", {});
        QCOMPARE(org.rowText(), QStringLiteral("D1 D2"));
        QVERIFY(!org.model->hasChildren(org.row("D2")));
    }

    void failedRowIsRetried_data()
    {
        const Rows<QString> row{"how"};
        row("click", "click");
        row("double click", "double");
        row("Enter", "enter");
        row("opened again", "again");
    }

    void failedRowIsRetried()
    {
        QFETCH(QString, how);
        OrgFixture org;
        org.showFilled();
        org.tree->expandItem(org.row("D1"));
        org.fail("D1", 403);
        QCOMPARE(org.rowText(), QStringLiteral("D1 ! D2"));
        const QModelIndex failed = org.tree->indexBelow(org.row("D1"));
        if (how == QLatin1String("click")) {
            org.click(org.middle(failed));
        } else if (how == QLatin1String("double")) {
            org.doubleClick(org.middle(failed));
        } else if (how == QLatin1String("again")) {
            org.select("D1");
            org.tree->expandItem(org.row("D1"));
            QCOMPARE(org.rowText(), QStringLiteral("D1 D2"));
            org.tree->expandItem(org.row("D1"));
        } else {
            org.select(failed);
            org.key(Qt::Key_Enter);
        }
        QCOMPARE(org.asked("D1"), 2);
        QCOMPARE(org.rowText(), QStringLiteral("D1 ~ D2"));
        org.answer("D1", org.belowD1());
        QCOMPARE(org.rowText(), QStringLiteral("D1 D11 anna bob D2"));
        // From there the keys go on; the row that was current has gone.
        QCOMPARE(org.tree->currentIndex(), org.row("D1"));
        QCOMPARE(org.tree->selectionModel()->selectedRows(), QModelIndexList{org.row("D1")});
    }

    void refreshKeepsThePlace()
    {
        OrgFixture org;
        org.showFilled();
        org.open("D1", org.belowD1() + org.many("D1", 60));
        org.open("D11", org.belowD11());
        org.select("p0030");
        org.tree->scrollTo(org.row("p0030"), QAbstractItemView::PositionAtCenter);
        OrgFixture::settle();
        const QRect before = org.tree->visualRect(org.row("p0030"));
        QVERIFY(org.tree->verticalScrollBar()->value() > 0);
        const QString rows = org.rowText();

        org.choose("p0030", "msgrecord"); // any menu: its row must stay, too
        org.tree->expandItem(org.row("D1"), false);
        QCOMPARE(org.rowText(), rows); // no row that says "loading" in place of the people
        org.answer("D1", org.belowD1() + org.many("D1", 60) +
                             OrgElementList{makeEmployee(org.id("new"), org.id("D1"))});
        QCOMPARE(org.current(), QStringLiteral("p0030"));
        QVERIFY(org.tree->isExpanded(org.row("D11")));
        QCOMPARE(org.tree->visualRect(org.row("p0030")), before);
        QVERIFY(org.rows().contains(QStringLiteral("new")));
    }

    void slicesKeepThePlace()
    {
        OrgFixture org;
        org.showFilled();
        org.open("D2", org.many("D2", 60));
        org.tree->expandItem(org.row("D1"));
        org.tree->scrollTo(org.row("p0040"), QAbstractItemView::PositionAtCenter);
        OrgFixture::settle();
        const QRect before = org.tree->visualRect(org.row("p0040"));
        FakeOrgRequest *request = org.pending("D1");
        for (const OrgElement &element : org.belowD1()) {
            emit request->signal_searchOrgElements({element}, org.id("C"));
            OrgFixture::settle();
            QCOMPARE(org.tree->visualRect(org.row("p0040")), before);
        }
    }

    void refreshShowsNewNames()
    {
        OrgFixture org;
        org.showFilled();
        org.choose("D1", "freshPersionInfo");
        QVERIFY(!org.tree->isExpanded(org.row("D1")));
        org.answer("D1", org.belowD1());
        org.tree->expandItem(org.row("D1"));
        org.choose("D1", "freshPersionInfo");
        OrgElementList changed = org.belowD1();
        changed[1].strName = QStringLiteral("Anna the Second");
        org.answer("D1", changed);
        QCOMPARE(org.row("anna").data().toString(), QStringLiteral("Anna the Second"));
        QCOMPARE(org.rowText(), QStringLiteral("D1 D11 anna bob D2"));
    }

    void employeesAreActivated_data()
    {
        const Rows<QString, bool, int> row{"who", "byKey", "chats"};
        row("double click", "anna", false, 1);
        row("Enter", "anna", true, 1);
        row("oneself", "me", true, 0);
    }

    void employeesAreActivated()
    {
        QFETCH(QString, who);
        QFETCH(bool, byKey);
        QFETCH(int, chats);
        OrgFixture org;
        org.showOpen({makeEmployee(org.id("me"), org.id("D1"))});
        const QModelIndex row = org.row(qPrintable(who));
        org.select(row);
        if (byKey)
            org.key(Qt::Key_Return);
        else
            org.doubleClick(org.middle(row));
        QCOMPARE(org.host.count(Outbound::OpenChat), chats);
        if (chats > 0) {
            const auto [jid, kind] = org.host.arguments<QString, qint32>(Outbound::OpenChat);
            QCOMPARE(jid, org.jid("anna"));
            QCOMPARE(kind, 0);
        }
    }

    void presenceOfTheHub()
    {
        OrgFixture org;
        org.showOpen();
        PresenceData away;
        away.pcShow = PresenceData::Away;
        emit FriendUISignalSender::instance()->signal_updateFriendPresence(
            {{org.jid("anna"), away},
             {org.id("bob") + QStringLiteral("@elsewhere.example"), away}});
        QCOMPARE(org.row("anna").data(OrgRole::Status).toInt(), int(PresenceData::Away));
        QCOMPARE(org.row("bob").data(OrgRole::Status).toInt(), int(PresenceData::Offline));
        // What is known from before brings no old presence back.
        org.tree->slot_upDataTreeView(OrgStructureMgr::instance()->elements());
        QCOMPARE(org.row("anna").data(OrgRole::Status).toInt(), int(PresenceData::Away));
    }

    // As in the friend tree.
    void withoutConnectionNobodyIsThere()
    {
        OrgFixture org;
        org.showOpen();
        const auto look = [&org] {
            return org.tree->viewport()->grab(org.tree->visualRect(org.row("anna"))).toImage();
        };
        const QImage offline = look();
        PresenceData available;
        available.pcShow = PresenceData::Available;
        emit FriendUISignalSender::instance()->signal_updateFriendPresence(
            {{org.jid("anna"), available}});
        QVERIFY(look() != offline);
        org.host.context.settings.setConnected(false);
        QCOMPARE(look(), offline);
    }

    // The service tells of a moment, the client of now.
    void presenceThatTheClientKnows()
    {
        OrgFixture org;
        org.showFilled();
        org.host.context.contacts.insert(org.jid("anna"), FriendData());
        for (const char *who : {"anna", "bob"})
            org.host.context.presences[org.jid(who)].pcShow = PresenceData::Away;
        org.open("D1", org.belowD1());
        QCOMPARE(org.row("anna").data(OrgRole::Status).toInt(), int(PresenceData::Away));
        QCOMPARE(org.row("bob").data(OrgRole::Status).toInt(), int(PresenceData::Offline));
    }

    void hoverShowsTheCard()
    {
        OrgFixture org;
        org.showOpen();
        org.moveTo(org.middle(org.row("D1")));
        org.moveTo(org.middle(org.row("anna")));
        QTRY_COMPARE(org.actions.calls.size(), 1);
        QVERIFY2(org.actions.calls.first().startsWith(QStringLiteral("showContactCard ") +
                                                      org.jid("anna")),
                 qPrintable(org.actions.calls.first()));
        org.moveTo(org.middle(org.row("D2")));
        QTRY_COMPARE(org.actions.calls.size(), 2);
        QCOMPARE(org.actions.calls.last(), QStringLiteral("hideContactCard "));
    }

    void typeToFindPassesPlaceholders()
    {
        OrgFixture org;
        org.showFilled();
        org.tree->expandItem(org.row("D1"));
        org.select("D1");
        QTest::keyClicks(org.tree, QStringLiteral("org")); // as the loading row's text begins
        QCOMPARE(org.current(), QStringLiteral("D1"));
        org.key(Qt::Key_Escape);
        org.answer("D1", org.belowD1());
        org.tree->collapse(org.row("D1"));
        QTest::keyClicks(org.tree, QStringLiteral("bob"));
        QCOMPARE(org.current(), QStringLiteral("bob"));
        QVERIFY(org.tree->isExpanded(org.row("D1")));
    }
};

FRIENDUI_TEST(TstOrgTreeView)
#include "tst_orgtreeview.moc"
