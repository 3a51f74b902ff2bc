#include "controls/keyedlistmodel.h"
#include "tests/support/testrunner.h"

#include <QAbstractItemModelTester>

namespace {

struct Number
{
    QString key;
    int value = 0;
    bool hidden = false;
};

class Numbers : public KeyedListModel<Number, int>
{
public:
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(at(index.row()).value) : QVariant();
    }

    QString shown() const
    {
        QStringList keys;
        for (int row = 0; row < rowCount(); ++row)
            keys.append(at(row).key);
        return keys.join(QLatin1Char(' '));
    }
    void set(const QString &key, int value)
    {
        change(key, [value](Number &number) { number.value = value; });
    }

private:
    QString keyOf(const Number &number) const override { return number.key; }
    int placeOf(const Number &number) const override { return number.value; }
    bool isShown(const Number &number) const override { return !number.hidden; }
};

QVector<Number> numbers(const QString &keys)
{
    QVector<Number> all;
    const QStringList list = keys.split(QLatin1Char(' '));
    for (const QString &key : list)
        all.append({key, key.mid(1).toInt(), false});
    return all;
}

} // namespace

class TstKeyedListModel : public QObject
{
    Q_OBJECT

private slots:
    void rowsStandAtTheirPlaces()
    {
        Numbers model;
        QAbstractItemModelTester tester(&model);
        model.putAll(numbers(QStringLiteral("b2 a1 e5")));
        QCOMPARE(model.shown(), QStringLiteral("a1 b2 e5"));

        QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
        model.putAll(numbers(QStringLiteral("d4 c3 f6")));
        QCOMPARE(model.shown(), QStringLiteral("a1 b2 c3 d4 e5 f6"));
        QCOMPARE(inserted.count(), 2); // two runs

        model.set(QStringLiteral("a1"), 9);
        model.set(QStringLiteral("f6"), 0);
        QCOMPARE(model.shown(), QStringLiteral("f6 b2 c3 d4 e5 a1"));
        model.set(QStringLiteral("b2"), 2); // stays
        model.set(QStringLiteral("c3"), 4); // equal to d4: told apart by the key
        QCOMPARE(model.shown(), QStringLiteral("f6 b2 c3 d4 e5 a1"));
        QVERIFY(model.remove(QStringLiteral("c3")));
        QVERIFY(!model.remove(QStringLiteral("c3")));
        QCOMPARE(model.indexOf(QStringLiteral("d4")).row(), 2);
        QVERIFY(!model.indexOf(QStringLiteral("c3")).isValid());
        QVERIFY(!model.putNew({QStringLiteral("d4"), 70, false}));
        QVERIFY(model.putNew({QStringLiteral("c3"), 8, false}));
        QCOMPARE(model.shown(), QStringLiteral("f6 b2 d4 e5 c3 a1"));
    }

    void nothingMovesWhileFrozen()
    {
        Numbers model;
        QAbstractItemModelTester tester(&model);
        model.putAll(numbers(QStringLiteral("a1 b2 c3")));
        model.setOrderFrozen(true);
        QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
        model.set(QStringLiteral("c3"), 0);
        QCOMPARE(changed.count(), 1);
        model.putAll(numbers(QStringLiteral("d4")));
        model.put({QStringLiteral("e5"), 5, false});
        model.set(QStringLiteral("e5"), -1);
        QVERIFY(model.remove(QStringLiteral("d4")));
        QCOMPARE(model.shown(), QStringLiteral("a1 b2 c3"));
        QVERIFY(model.find(QStringLiteral("e5")));
        QVERIFY(!model.indexOf(QStringLiteral("e5")).isValid());

        model.setOrderFrozen(false);
        QCOMPARE(model.shown(), QStringLiteral("e5 c3 a1 b2"));
    }

    void hiddenRecordsHaveNoRow()
    {
        Numbers model;
        QAbstractItemModelTester tester(&model);
        model.putAll(numbers(QStringLiteral("a1 b2 c3")));
        const auto hide = [&model](const QString &key, bool hidden) {
            model.change(key, [hidden](Number &number) { number.hidden = hidden; });
        };
        hide(QStringLiteral("b2"), true);
        QCOMPARE(model.shown(), QStringLiteral("a1 c3"));
        QCOMPARE(model.recordCount(), 3);
        hide(QStringLiteral("b2"), false);
        QCOMPARE(model.shown(), QStringLiteral("a1 b2 c3"));
    }

    // Every operation in any order leaves what sorting the records leaves.
    void agreesWithASort()
    {
        Numbers model;
        QAbstractItemModelTester tester(&model);
        quint32 state = 1;
        const auto next = [&state](int below) {
            state = state * 1664525 + 1013904223;
            return int((state >> 8) % quint32(below));
        };
        QHash<QString, Number> expected;
        // Few keys, so that most steps meet what the ones before them left.
        const auto number = [&next] {
            return Number{QString::number(next(12)), next(6), next(4) == 0};
        };
        for (int step = 0; step < 4000; ++step) {
            QVector<Number> batch{number()};
            const int action = next(12);
            if (action == 0) {
                model.setOrderFrozen(!model.isOrderFrozen());
            } else if (action == 1) {
                model.rebuild();
            } else if (action < 5) {
                const QString &key = batch.first().key;
                QCOMPARE(model.remove(key), expected.remove(key) > 0);
            } else {
                while (action < 8 && next(3) > 0)
                    batch.append(number()); // often a key twice
                if (batch.size() == 1)
                    model.put(batch.first());
                else
                    model.putAll(batch);
                for (const Number &each : qAsConst(batch))
                    expected.insert(each.key, each);
            }
            if (!model.isOrderFrozen())
                QCOMPARE(model.shown(), inOrder(expected));
        }
    }

private:
    static QString inOrder(const QHash<QString, Number> &numbers)
    {
        QList<Number> sorted = numbers.values();
        std::sort(sorted.begin(), sorted.end(), [](const Number &a, const Number &b) {
            return a.value != b.value ? a.value < b.value : a.key < b.key;
        });
        QStringList keys;
        for (const Number &number : qAsConst(sorted)) {
            if (!number.hidden)
                keys.append(number.key);
        }
        return keys.join(QLatin1Char(' '));
    }
};

FRIENDUI_TEST(TstKeyedListModel)
#include "tst_keyedlistmodel.moc"
