// The organisation's rows.
#include "hostapi/rosterrecords.h"
#include "org/orgtreemodel.h"
#include "tests/org/orgmaker.h"
#include "tests/support/testrunner.h"

#include <QAbstractItemModelTester>

#include <memory>

namespace {
const QString root = QStringLiteral("C1");
const QString d1 = QStringLiteral("d1");
const QString d2 = QStringLiteral("d2");
} // namespace

class TstOrgTreeModel : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        model = std::make_unique<OrgTreeModel>();
        model->setRootId(root);
        tester = std::make_unique<QAbstractItemModelTester>(
            model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        model->addElements({makeDepartment(d1, root), makeDepartment(d2, root)});
    }

    void cleanup()
    {
        tester.reset();
        model.reset();
    }

    void oneInsertionPerDepartment()
    {
        const QSignalSpy inserted(model.get(), &QAbstractItemModel::rowsInserted);
        OrgElementList list;
        for (int i = 0; i < 200; ++i)
            list.append(makeEmployee(QStringLiteral("u%1").arg(i), i % 2 ? d1 : d2));
        model->addElements(list);
        QCOMPARE(inserted.count(), 2);
        QCOMPARE(rows(d1).size(), 100);
    }

    void keepsReplyOrder()
    {
        model->addElements(
            {makeDepartment(QStringLiteral("z"), d1), makeDepartment(QStringLiteral("a"), d1),
             makeEmployee(QStringLiteral("y"), d1), makeEmployee(QStringLiteral("b"), d1)});
        model->addElements(
            {makeEmployee(QStringLiteral("b"), d1), makeEmployee(QStringLiteral("c"), d1)});
        QCOMPARE(rows(d1).join(QLatin1Char(' ')), QStringLiteral("z a y b c"));
    }

    void updatesInPlaceInOneSignalPerRun()
    {
        model->addElements(makeEmployees(1000, d1));
        const QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);
        const QSignalSpy reset(model.get(), &QAbstractItemModel::modelReset);
        OrgElementList again = makeEmployees(1000, d1);
        for (int i = 0; i < 1000; ++i) {
            if (i != 500)
                again[i].strName = QStringLiteral("renamed");
        }
        model->addElements(again);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(changed.first().at(1).toModelIndex(), model->indexOf(QStringLiteral("u499")));
        QCOMPARE(model->indexOf(QStringLiteral("u7")).data().toString(), QStringLiteral("renamed"));
        QCOMPARE(rows(d1).size(), 1000);
        QCOMPARE(reset.count(), 0);
    }

    void presence()
    {
        model->addElements({makeEmployee(QStringLiteral("u1"), d1)});
        const QModelIndex index = model->indexOf(QStringLiteral("u1"));
        const QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);
        model->setPresence(QStringLiteral("u1"), PresenceData::Away, PresenceData::Ios);
        model->setPresence(QStringLiteral("u1"), PresenceData::Away, PresenceData::Ios);
        model->setPresence(QStringLiteral("nobody"), PresenceData::Away, PresenceData::Ios);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(index.data(OrgRole::Status).toInt(), int(PresenceData::Away));
        QCOMPARE(index.data(OrgRole::Device).toInt(), int(PresenceData::Ios));
        QCOMPARE(model->element(index).nStatus, qint32(PresenceData::Away));
        QVERIFY(
            index.data(Qt::AccessibleTextRole).toString().contains(QLatin1String("presenceAway")));
        model->setPresence(QStringLiteral("u1"), 99, -3);
        QCOMPARE(index.data(OrgRole::Status).toInt(), int(PresenceData::FreeForChat));
    }

    void elementsWithoutPlace_data()
    {
        const Rows<OrgElement> row{"element"};
        const QString id = QStringLiteral("x");
        row("its own parent", makeDepartment(id, id));
        row("without an id", makeDepartment(QString(), d1));
        row("the root itself", makeDepartment(root, QString()));
        row("unknown parent", makeDepartment(id, QStringLiteral("nowhere")));
        row("below an employee", makeDepartment(id, QStringLiteral("u1")));
    }

    void elementsWithoutPlace()
    {
        QFETCH(const OrgElement, element);
        model->addElements({makeEmployee(QStringLiteral("u1"), d1)});
        const QSignalSpy inserted(model.get(), &QAbstractItemModel::rowsInserted);
        model->addElements({element, element});
        QCOMPARE(inserted.count(), 0);
        QVERIFY(!model->indexOf(element.strId).isValid());
    }

    void orphansComeWithTheirParent()
    {
        const QString d3 = QStringLiteral("d3"), d4 = QStringLiteral("d4");
        model->addElements({makeEmployee(QStringLiteral("u1"), d4), makeDepartment(d4, d3)});
        QVERIFY(!model->indexOf(d4).isValid());
        // Meanwhile one of them goes elsewhere.
        model->addElements(
            {makeEmployee(QStringLiteral("u2"), d4), makeEmployee(QStringLiteral("u2"), d1)});
        model->addElements({makeDepartment(d3, d1)});
        QCOMPARE(rows(d3), QStringList{d4});
        QCOMPARE(rows(d4), QStringList{QStringLiteral("u1")});
        QCOMPARE(rows(d1), (QStringList{QStringLiteral("u2"), d3}));
    }

    void manyLeaveInOneGo()
    {
        constexpr int Count = 10000;
        model->addElements(makeEmployees(Count, d1));
        const QPersistentModelIndex stays = model->indexOf(QStringLiteral("u1"));
        const QPersistentModelIndex goes = model->indexOf(QStringLiteral("u2"));
        OrgElementList everySecond;
        for (int i = 0; i < Count; i += 2)
            everySecond.append(makeEmployee(QStringLiteral("u%1").arg(i), d2));
        const QSignalSpy moved(model.get(), &QAbstractItemModel::rowsMoved);
        model->addElements(everySecond);
        QCOMPARE(moved.count(), 1);
        QCOMPARE(rows(d2).size(), Count / 2);
        QCOMPARE(stays.data(OrgRole::Id).toString(), QStringLiteral("u1"));
        QCOMPARE(goes.data(OrgRole::Id).toString(), QStringLiteral("u2"));
        QCOMPARE(goes.parent(), model->indexOf(d2));
    }

    void departmentBecomesEmployee()
    {
        model->addElements(makeEmployees(3, d1));
        model->addElements({makeEmployee(d1, root)});
        QCOMPARE(model->rowCount(model->indexOf(d1)), 0);
        QCOMPARE(model->kind(model->indexOf(d1)), OrgRowKind::Employee);
        model->addElements({makeDepartment(d1, root)});
        QCOMPARE(rows(d1).size(), 3);
    }

    void placeholderRows()
    {
        using Children = OrgTreeModel::Children;
        model->setChildrenState(d1, Children::Loading);
        const auto only = [&] { return model->index(0, 0, model->indexOf(d1)); };
        QCOMPARE(model->rowCount(model->indexOf(d1)), 1);
        QCOMPARE(model->kind(only()), OrgRowKind::Loading);
        QCOMPARE(only().parent(), model->indexOf(d1));
        QVERIFY(!(only().flags() & Qt::ItemIsSelectable));
        model->setChildrenState(d1, Children::Failed);
        QCOMPARE(model->kind(only()), OrgRowKind::Failed);
        model->setChildrenState(d1, Children::Loading);
        model->addElements(makeEmployees(2, d1));
        QCOMPARE(rows(d1), (QStringList{QStringLiteral("u0"), QStringLiteral("u1")}));
        QCOMPARE(model->childrenState(d1), Children::Loading);
        // The last one leaves a department that is still being asked for.
        model->addElements(makeEmployees(2, d2));
        QCOMPARE(model->kind(only()), OrgRowKind::Loading);
        model->setChildrenState(d1, Children::Loaded);
        QCOMPARE(model->rowCount(model->indexOf(d1)), 0);
        // The page has its own states for the root.
        model->setChildrenState(root, Children::Failed);
        QCOMPARE(model->childrenState(root), Children::Failed);
        QCOMPARE(rows(root), (QStringList{d1, d2}));
        model->setChildrenState(QStringLiteral("unknown"), Children::Loading);
    }

    void hasChildrenUntilItIsKnown()
    {
        QVERIFY(model->hasChildren(model->indexOf(d1)));
        model->addElements({makeEmployee(QStringLiteral("u1"), d1)});
        QVERIFY(!model->hasChildren(model->indexOf(QStringLiteral("u1"))));
        const QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);
        model->setChildrenState(d2, OrgTreeModel::Children::Loaded);
        QVERIFY(!model->hasChildren(model->indexOf(d2)));
        QCOMPARE(changed.count(), 1);
    }

    void hostileTexts()
    {
        const QString nasty = QStringLiteral("<img src=x>\n&") + QString(10000, QLatin1Char('w'));
        OrgElement element = makeEmployee(QStringLiteral("a&b/c"), d1, nasty);
        element.strDuty = QStringLiteral("<b>duty</b>");
        model->addElements({element});
        const QModelIndex index = model->indexOf(QStringLiteral("a&b/c"));
        QVERIFY(index.isValid());
        QVERIFY(index.data().toString().size() < 100);
        QVERIFY(!index.data().toString().contains(QLatin1Char('\n')));
        QVERIFY(!index.data(Qt::ToolTipRole).toString().contains(QLatin1String("<img")));
        QVERIFY(index.data(Qt::AccessibleTextRole).toString().size() < 250);
        QCOMPARE(model->element(index).strName, nasty);
    }

    void recordsOfTheCache()
    {
        OrgElementMap cache;
        model->setRecords(&cache);
        const OrgElement element = makeEmployee(QStringLiteral("u1"), d1, QStringLiteral("first"));
        cache.insert(element.strId, element);
        model->addElements({element});
        OrgElement renamed = element;
        renamed.strName = QStringLiteral("second");
        cache.insert(element.strId, renamed);
        const QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);
        model->addElements({renamed});
        QCOMPARE(changed.count(), 1);
        QCOMPARE(model->indexOf(QStringLiteral("u1")).data().toString(), QStringLiteral("second"));
    }

private:
    QStringList rows(const QString &departmentId) const
    {
        const QModelIndex parent =
            departmentId == root ? QModelIndex() : model->indexOf(departmentId);
        QStringList ids;
        for (int row = 0; row < model->rowCount(parent); ++row)
            ids.append(model->index(row, 0, parent).data(OrgRole::Id).toString());
        return ids;
    }

    std::unique_ptr<OrgTreeModel> model;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

FRIENDUI_TEST(TstOrgTreeModel)
#include "tst_orgtreemodel.moc"
