// Random elements, again and again under other parents, against a plain computation
// of what must be shown.
#include "org/orgtreemodel.h"
#include "tests/org/orgmaker.h"
#include "tests/support/testrunner.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>

namespace {

const QString root = QStringLiteral("C1");

using Latest = QMap<QString, OrgElement>;

// id -> parent's id of what has a way up to the root.
QMap<QString, QString> expectedRows(const Latest &latest)
{
    QMap<QString, QString> rows;
    for (const OrgElement &element : latest) {
        QString above = element.strParentId;
        int depth = 1;
        while (above != root && depth <= 64) {
            const auto at = latest.constFind(above);
            if (at == latest.constEnd() || at->bIsEmp)
                break;
            above = at->strParentId;
            ++depth;
        }
        if (above == root && depth <= 64)
            rows.insert(element.strId, element.strParentId);
    }
    return rows;
}

void collect(const OrgTreeModel &model, const QModelIndex &parent, const QString &parentId,
             QMap<QString, QString> *rows)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        const OrgRowKind kind = model.kind(index);
        if (kind == OrgRowKind::Loading || kind == OrgRowKind::Failed) {
            QCOMPARE(model.rowCount(parent), 1);
            continue;
        }
        const QString id = index.data(OrgRole::Id).toString();
        QVERIFY2(!rows->contains(id), "shown twice");
        QCOMPARE(model.indexOf(id), index);
        rows->insert(id, parentId);
        collect(model, index, id, rows);
    }
}

} // namespace

class TstOrgTreeRandom : public QObject
{
    Q_OBJECT

private slots:
    void showsWhatHasAWayUp_data()
    {
        // chained: towards one long chain
        const Rows<int, int, int, bool> row{"departments", "employees", "batches", "chained"};
        row("a few, circles everywhere", 6, 4, 600, false);
        row("many", 60, 200, 120, false);
        row("deeper than allowed", 90, 20, 200, true);
    }

    void showsWhatHasAWayUp()
    {
        QFETCH(const int, departments);
        QFETCH(const int, employees);
        QFETCH(const int, batches);
        QFETCH(const bool, chained);
        OrgTreeModel model;
        model.setRootId(root);
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        QRandomGenerator random(7);
        const auto departmentId = [](int i) { return i < 0 ? root : QStringLiteral("d%1").arg(i); };
        Latest latest;
        QList<QPersistentModelIndex> held;
        QStringList heldIds;
        for (int batch = 0; batch < batches; ++batch) {
            OrgElementList list;
            const int size = 1 + random.bounded(random.bounded(4) ? 5 : 40);
            for (int i = 0; i < size; ++i) {
                const bool isEmployee = random.bounded(departments + employees) >= departments;
                const int number = random.bounded(isEmployee ? employees : departments);
                const int above = chained && random.bounded(8) && !isEmployee
                                      ? number - 1
                                      : random.bounded(-1, departments);
                OrgElement element =
                    isEmployee
                        ? makeEmployee(QStringLiteral("u%1").arg(number), departmentId(above))
                        : makeDepartment(departmentId(number), departmentId(above));
                if (random.bounded(40) == 0)
                    element.bIsEmp = !element.bIsEmp; // the same id as the other kind
                if (element.strId == element.strParentId)
                    continue;
                list.append(element);
                latest.insert(element.strId, element);
            }
            const auto state = OrgTreeModel::Children(random.bounded(4));
            model.setChildrenState(departmentId(random.bounded(departments)), state);
            model.addElements(list);
            QMap<QString, QString> rows;
            collect(model, {}, root, &rows);
            QCOMPARE(rows, expectedRows(latest));
            for (int i = 0; i < held.size(); ++i)
                QVERIFY(!held.at(i).isValid() ||
                        held.at(i).data(OrgRole::Id).toString() == heldIds.at(i));
            if (!rows.isEmpty()) {
                const QString id = rows.keys().at(random.bounded(rows.size()));
                held.append(model.indexOf(id));
                heldIds.append(id);
            }
        }
    }
};

FRIENDUI_TEST(TstOrgTreeRandom)
#include "tst_orgtreerandom.moc"
