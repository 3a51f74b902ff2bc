// The group chats behind the list: what a row says, and where it stands.
#include "common/cchcharactertopp.h"
#include "contacts/rooms/mucmodel.h"
#include "tests/rooms/roommaker.h"
#include "tests/support/testrunner.h"

#include <QAbstractItemModelTester>
#include <QRandomGenerator>

namespace {
constexpr auto Local = MucData::LocalRoom;
constexpr auto Book = MucData::AddressBookRoom;
constexpr auto Preferred = MucData::PreferredRoom;

QStringList namesOf(const MucModel &model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row)
        names.append(model.index(row).data(257).toString());
    return names;
}

QVariant dataOf(const MucModel &model, const char *user, int role)
{
    return model.indexOf(roomJid(user)).data(role);
}
} // namespace

class TstMucModel : public QObject
{
    Q_OBJECT

private slots:
    void rolesOfARow()
    {
        MucModel model;
        MucData room = makeRoom("r1", QString::fromUtf8("项目 Alpha"), Preferred);
        room.forbidden = true;
        QVERIFY(model.add(room, QStringLiteral("/pictures/r1.png")));
        const QModelIndex index = model.index(0);
        QCOMPARE(index.data(257).toString(), room.roomName);
        QCOMPARE(index.data(258).toString(), QStringLiteral("/pictures/r1.png"));
        QCOMPARE(index.data(262).toString(), QStringLiteral("1|xiangmu alpha"));
        QCOMPARE(index.data(264).toString(), room.roomJid);
        QCOMPARE(index.data(267), QVariant(QPoint(0, 0)));
        QCOMPARE(index.data(291).toString(), QStringLiteral("0"));
        QCOMPARE(index.data(306), QVariant(true));
        QCOMPARE(index.data(332), QVariant(2));
        QCOMPARE(index.data(Qt::ToolTipRole).toString(), room.roomName);
        QVERIFY(!index.flags().testFlag(Qt::ItemIsDragEnabled));
    }

    void isAddedOnce()
    {
        MucModel model;
        QVERIFY(model.add(makeRoom("r1", QStringLiteral("a")), QString()));
        QVERIFY(!model.add(makeRoom("r1", QStringLiteral("b"), Local), QString()));
        QVERIFY(!model.add(MucData(), QString()));
        QCOMPARE(namesOf(model), QStringList{QStringLiteral("a")});
        QCOMPARE(model.addressBookCount(), 1);
        QCOMPARE(model.localCount(), 0);
    }

    void order()
    {
        MucModel model;
        const QAbstractItemModelTester tester(&model);
        model.add(makeRoom("r1", QStringLiteral("beta")), QString());
        model.add(makeRoom("r2", QStringLiteral("Zeta"), Preferred), QString());
        model.add(makeRoom("r3", QStringLiteral("Alpha")), QString());
        model.add(makeRoom("r4", QString::fromUtf8("阿尔法")), QString()); // aerfa
        model.add(makeRoom("r5", QStringLiteral("here"), Local), QString());
        const auto names = [](const char *list) {
            return QString::fromUtf8(list).split(QLatin1Char(' '));
        };
        QCOMPARE(namesOf(model), names("Zeta 阿尔法 Alpha beta"));
        QVERIFY(model.setName(roomJid("r3"), QStringLiteral("gamma")));
        QCOMPARE(namesOf(model), names("Zeta 阿尔法 beta gamma"));
        QCOMPARE(dataOf(model, "r3", 262).toString(), QStringLiteral("2|gamma"));
        QVERIFY(model.setClassify(roomJid("r3"), Preferred));
        QVERIFY(model.setClassify(roomJid("r2"), Book));
        QCOMPARE(namesOf(model), names("gamma 阿尔法 beta Zeta"));
        QVERIFY(model.setClassify(roomJid("r5"), Book));
        QCOMPARE(namesOf(model), names("gamma 阿尔法 beta here Zeta"));
        model.setPage(MucModel::LocalPage);
        QCOMPARE(model.rowCount(), 0);
    }

    void textsFromOthers_data()
    {
        const QString markup = QStringLiteral("<img src=/etc/passwd>&amp;");
        const Rows<QString, QString, QString> row{"name", "shown", "toolTip"};
        row("markup", markup, markup,
            QStringLiteral("<qt>&lt;img src=/etc/passwd&gt;&amp;amp;</qt>"));
        row("lines", QStringLiteral("a\nb"), QStringLiteral("a b"), QStringLiteral("a\nb"));
        row("no name", QString(), QStringLiteral("r1"), QString());
        row("long", QString(10000, QLatin1Char('x')), QString(63, QLatin1Char('x')) + QChar(0x2026),
            QString(2000, QLatin1Char('x')) + QChar(0x2026));
    }

    void textsFromOthers()
    {
        QFETCH(QString, name);
        MucModel model;
        model.add(makeRoom("r1", name), QString());
        const QModelIndex index = model.index(0);
        QCOMPARE(index.data(257).toString(), name); // as it came
        QTEST(index.data(Qt::DisplayRole).toString(), "shown");
        QTEST(index.data(Qt::ToolTipRole).toString(), "toolTip");
    }

    // Whatever happens in whatever order: the rows are those of the page, in order,
    // and the counters count.
    void randomChanges()
    {
        QRandomGenerator dice(7);
        MucModel model;
        const QAbstractItemModelTester tester(&model);
        QMap<QString, MucData> expected;
        const auto name = [&dice] {
            const QString characters = QString::fromUtf8("aBcé张李王😀");
            return QString(characters.at(dice.bounded(characters.size()))) +
                   QString::number(dice.bounded(30));
        };
        const auto classify = [&dice] { return MucData::MucClassify(dice.bounded(5)); };
        for (int step = 0; step < 3000; ++step) {
            MucData room = makeRoom(QByteArray::number(dice.bounded(60)).constData(), name());
            const auto known = expected.find(room.roomJid);
            switch (dice.bounded(6)) {
            case 0:
            case 1:
                room.classify = classify();
                QCOMPARE(model.add(room, QString()), known == expected.end());
                if (known == expected.end())
                    expected.insert(room.roomJid, room);
                break;
            case 2:
                QCOMPARE(model.removeRoom(room.roomJid), expected.remove(room.roomJid) > 0);
                break;
            case 3:
                model.setName(room.roomJid, room.roomName);
                if (known != expected.end())
                    known->roomName = room.roomName;
                break;
            case 4:
                room.classify = classify();
                model.setClassify(room.roomJid, room.classify);
                if (known != expected.end())
                    known->classify = room.classify;
                break;
            case 5:
                if (dice.bounded(4) == 0)
                    model.setPage(MucModel::Page(dice.bounded(2)));
                else
                    model.setOrderFrozen(dice.bounded(2) == 0);
                break;
            }
            QCOMPARE(model.addressBookCount() + model.localCount(), expected.size());
            if (model.isOrderFrozen())
                continue;
            verifyRows(model, expected);
        }
    }

private:
    static void verifyRows(const MucModel &model, const QMap<QString, MucData> &expected)
    {
        QStringList jids;
        const bool book = model.page() == MucModel::AddressBookPage;
        for (const MucData &room : expected) {
            if ((room.classify == Book || room.classify == Preferred) == book)
                jids.append(room.roomJid);
        }
        const auto key = [&expected](const QString &jid) {
            const MucData &room = expected[jid];
            return (room.classify == Preferred ? QStringLiteral("1|") : QStringLiteral("2|")) +
                   CChCharacterToPP().toPinyin(room.roomName, false).toLower();
        };
        std::sort(jids.begin(), jids.end(), [&key](const QString &a, const QString &b) {
            return qMakePair(key(a), a) < qMakePair(key(b), b);
        });
        QCOMPARE(book ? model.addressBookCount() : model.localCount(), jids.size());
        QCOMPARE(model.rowCount(), jids.size());
        for (int row = 0; row < jids.size(); ++row)
            QCOMPARE(model.index(row).data(264).toString(), jids.at(row));
    }
};

FRIENDUI_TEST(TstMucModel)
#include "tst_mucmodel.moc"
