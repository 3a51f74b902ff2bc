// Finding somebody's place in the organisation.
#include "org/orgstructuretreedelegate.h"
#include "tests/org/orgfixture.h"
#include "tests/support/testrunner.h"

#include <QLabel>

class TstOrgPlaces : public QObject
{
    Q_OBJECT

private slots:
    void knownPlace()
    {
        OrgFixture org;
        org.showFilled();
        org.open("D1", org.many("D1", 80) + org.belowD1());
        org.open("D11", org.belowD11());
        org.tree->collapseAll();
        emit org.page->signal_orgPosition(org.jid("carl"));
        OrgFixture::settle();
        QCOMPARE(org.current(), QStringLiteral("carl"));
        QVERIFY(org.tree->isExpanded(org.row("D1")));
        QVERIFY(isInView(org, "carl"));
        QCOMPARE(org.asked("carl", "person"), 0);
        org.page->locateDepartment(org.id("D2"));
        OrgFixture::settle();
        QCOMPARE(org.current(), QStringLiteral("D2"));
        QCOMPARE(org.tree->selectionModel()->selectedRows().size(), 1);
    }

    void askedPlace_data()
    {
        const Rows<QByteArray> row{"what"};
        row("person", "carl");
        row("department", "D11");
    }

    void askedPlace()
    {
        QFETCH(QByteArray, what);
        const bool isPerson = what == "carl";
        OrgFixture org;
        org.showFilled();
        const auto *label = org.page->findChild<QLabel *>(QStringLiteral("orgLocatingLabel"));
        QVERIFY(!label->isVisible());
        if (isPerson)
            org.page->slot_orgPosition(org.jid("carl"));
        else
            org.page->locateDepartment(org.id("D11"));
        QVERIFY(label->isVisible());
        QVERIFY(org.page->rect().contains(label->geometry()));
        QCOMPARE(org.shownPage(), QStringLiteral("OrgStructureTreeView"));
        // The topmost department first, then each level with its siblings.
        org.answerPlace(what.constData(), org.topmost().mid(0, 1) + org.belowD1() + org.belowD11(),
                        isPerson ? "person" : "department");
        QVERIFY(!label->isVisible());
        QCOMPARE(org.current(), QString::fromLatin1(what));
        QVERIFY(isInView(org, what.constData()));
        QVERIFY(org.rowText().contains(QStringLiteral("anna bob")));
        // What the answer brought is not asked for again.
        QCOMPARE(org.asks.size(), 2);
    }

    void placeBeforeTheTree()
    {
        OrgFixture org;
        org.show();
        org.page->slot_orgPosition(org.id("carl"));
        org.answerPlace("carl", org.topmost().mid(0, 1) + org.belowD1() + org.belowD11());
        QCOMPARE(org.shownPage(), QStringLiteral("OrgStructureTreeView"));
        QCOMPARE(org.current(), QStringLiteral("carl"));
        org.answer("C", org.topmost());
        QCOMPARE(org.current(), QStringLiteral("carl"));
        QCOMPARE(org.rows().count(QStringLiteral("D1")), 1);
        QVERIFY(org.rows().contains(QStringLiteral("D2")));
    }

    void ownPlace_data()
    {
        const Rows<bool> row{"byMenu"};
        row("menu", true);
        row("sign in the first row", false);
    }

    void ownPlace()
    {
        QFETCH(bool, byMenu);
        OrgFixture org;
        org.showFilled();
        if (byMenu) {
            org.choose("D2", "locateSelf");
        } else {
            const QRect row = org.tree->visualRect(org.row("D1"));
            org.click(OrgStructureTreeDelegate::locateArea(row, Qt::LeftToRight).center());
            QCOMPARE(org.current(), QString());
        }
        org.answerPlace("me", org.topmost().mid(0, 1) + org.belowD1() + org.belowD11());
        QCOMPARE(org.current(), QStringLiteral("me"));
    }

    void nobodyThere_data()
    {
        const Rows<int> row{"how"};
        row("no such person", 0);
        row("failed", 1);
        row("silent", 2);
        row("an answer without the person", 3);
    }

    void nobodyThere()
    {
        QFETCH(int, how);
        OrgFixture org;
        org.showFilled();
        org.select("D2");
        const int boxes = TipBox::count();
        org.page->slot_orgPosition(org.id("ghost"));
        FakeOrgRequest *request = org.pending("ghost", "person");
        if (how == 0)
            emit request->signal_noLocate();
        else if (how == 1)
            emit request->signal_locateOrgFail(org.id("ghost"));
        else if (how == 2)
            org.tree->slot_loadOrgTimeOut();
        else
            emit request->signal_locateOrgElements(org.topmost(), org.id("ghost"));
        QCOMPARE(TipBox::count() - boxes, 1);
        QCOMPARE(TipBox::lastText(), QStringLiteral("notInOrganization"));
        QCOMPARE(org.shownPage(), QStringLiteral("OrgStructureTreeView"));
        QCOMPARE(org.rowText(), QStringLiteral("D1 D2"));
        QCOMPARE(org.current(), QStringLiteral("D2"));
        QVERIFY(!org.tree->isLocating());
        QCOMPARE(org.asks.size(), 2);
    }

    void lastSearchCounts()
    {
        OrgFixture org;
        org.showFilled();
        const int boxes = TipBox::count();
        org.page->slot_orgPosition(org.id("ghost"));
        org.page->slot_orgPosition(org.id("carl"));
        emit org.pending("ghost", "person")->signal_locateOrgFail(org.id("ghost"));
        QCOMPARE(TipBox::count(), boxes);
        QVERIFY(org.tree->isLocating());
        org.answerPlace("carl", org.topmost().mid(0, 1) + org.belowD1() + org.belowD11());
        QCOMPARE(org.current(), QStringLiteral("carl"));
    }

    void circlesEnd()
    {
        OrgFixture org;
        org.showFilled();
        org.page->slot_orgPosition(org.id("carl"));
        org.answerPlace("carl", {makeDepartment(org.id("A"), org.id("B"), QStringLiteral("A")),
                                 makeDepartment(org.id("B"), org.id("A"), QStringLiteral("B")),
                                 makeEmployee(org.id("carl"), org.id("A"))});
        QCOMPARE(TipBox::lastText(), QStringLiteral("notInOrganization"));
        QCOMPARE(org.rowText(), QStringLiteral("D1 D2"));
    }

private:
    static bool isInView(const OrgFixture &org, const char *name)
    {
        return org.tree->viewport()->rect().contains(org.middle(org.row(name)));
    }
};

FRIENDUI_TEST(TstOrgPlaces)
#include "tst_orgplaces.moc"
