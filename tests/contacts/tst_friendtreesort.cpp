#include "contacts/friendtreerows.h"
#include "contacts/friendtreesort.h"
#include "tests/contacts/contactmaker.h"
#include "tests/support/testrunner.h"

#include <memory>
#include <random>

namespace {
const QString Own = QStringLiteral("me@corp.example");
}

class TstFriendTreeSort : public QObject
{
    Q_OBJECT

private slots:
    void blocks_data()
    {
        const Rows<QString, bool, int, int, QString> row{"jid", "onJob", "pc", "mobile", "key"};
        const QString other = QStringLiteral("u1@corp.example");
        row("own, offline", Own, true, 0, 0, "0|1LI");
        row("own, left", Own, false, 1, 0, "2|LI");
        row("online", other, true, 1, 0, "0|2LI");
        row("do not disturb", other, true, 4, 0, "0|2LI");
        row("mobile only", other, true, 0, 1, "0|2LI");
        row("offline", other, true, 0, 0, "1|LI");
        row("left, online", other, false, 1, 1, "2|LI");
    }

    void blocks()
    {
        QFETCH(QString, jid);
        QFETCH(bool, onJob);
        QFETCH(int, pc);
        QFETCH(int, mobile);
        QFETCH(QString, key);
        FriendData contact;
        contact.jid = jid;
        contact.onJob = onJob ? 1 : 0;
        const auto block = FriendTreeSort::block(contact, makePresence(pc, mobile), jid == Own);
        QCOMPARE(FriendTreeSort::contactKey(block, QString::fromUtf8("李")), key);
    }

    void ordersNames_data()
    {
        const Rows<QString, QString> row{"first", "second"};
        row("Latin before Chinese", "anna", QString::fromUtf8("张伟"));
        row("Chinese before Latin", QString::fromUtf8("白雪"), "carl");
        row("case ignored", "Bob", "carl");
        row("case ignored, other way", "bob", "Carl");
        row("a name and a longer one", QString::fromUtf8("王"), QString::fromUtf8("王芳"));
        row("digits first", "007", "anna");
        row("an underscore before letters", "zhang_san", "zhangsan");
        row("an underscore late in a long name", "abcdefghijklmnopqrs_t", "abcdefghijklmnopqrsat");
        row("differ in the 15th letter", "abcdefghijklmna", "abcdefghijklmnb");
        row("differ in the 16th letter", "abcdefghijklmnoa", "abcdefghijklmnob");
        row("one ends at the 15th letter", "abcdefghijklmno", "abcdefghijklmnoa");
        row("long equal beginning in Chinese", QString::fromUtf8("上海分公司人力资源部陈"),
            QString::fromUtf8("上海分公司人力资源部周"));
        // U+4E02 and its like are in GBK alone: they have no pinyin.
        row("sixteen characters without pinyin", QString(16, QChar(0x4e02)) + QStringLiteral("a"),
            QString(16, QChar(0x4e02)) + QStringLiteral("b"));
    }

    void ordersNames()
    {
        QFETCH(QString, first);
        QFETCH(QString, second);
        const auto contactNamed = [](const QString &name, const QString &jid) {
            auto contact = std::make_unique<FriendTreeContact>();
            contact->record.jid = jid;
            contact->place = {name, FriendTreeSort::Block::Offline};
            return contact;
        };
        // The jids are in the other order, so that they cannot decide in its place.
        const auto a = contactNamed(first, QStringLiteral("z"));
        const auto b = contactNamed(second, QStringLiteral("a"));
        const FriendTreeRow rowA = FriendTreeOrder::rowFor(a.get());
        const FriendTreeRow rowB = FriendTreeOrder::rowFor(b.get());
        QVERIFY(FriendTreeOrder::before(rowA, rowB));
        QVERIFY(!FriendTreeOrder::before(rowB, rowA));
    }

    // The fast comparison answers as comparing the keys as texts would.
    void agreesWithTheKeys()
    {
        const QString alphabet = QString::fromUtf8("aAbBzZ_09[~ .@-王张李安") + QChar(0x4e02) +
                                 QChar(0xe9) + QChar(0xd800) + QChar(0xdc00);
        std::mt19937 random(20240611);
        const auto below = [&random](int bound) { return int(random() % quint32(bound)); };
        for (int round = 0; round < 20000; ++round) {
            FriendTreeContact contacts[2];
            FriendTreeRow rows[2];
            QString keys[2];
            const QString common(below(18), alphabet.at(below(alphabet.size())));
            for (int i = 0; i < 2; ++i) {
                QString name = common;
                for (int left = below(5); left > 0; --left)
                    name += alphabet.at(below(alphabet.size()));
                const auto block = FriendTreeSort::Block(below(4));
                contacts[i].place = {name, block};
                rows[i] = FriendTreeOrder::rowFor(&contacts[i]);
                keys[i] = FriendTreeSort::contactKey(block, name);
            }
            const int expected = keys[0].compare(keys[1], Qt::CaseInsensitive);
            const bool before = FriendTreeOrder::before(rows[0], rows[1]);
            const bool after = FriendTreeOrder::before(rows[1], rows[0]);
            if (before != (expected < 0) || after != (expected > 0))
                QFAIL(qPrintable(QStringLiteral("round %1: \"%2\" and \"%3\"")
                                     .arg(round)
                                     .arg(keys[0].toHtmlEscaped(), keys[1].toHtmlEscaped())));
        }
    }

    void groupKeys()
    {
        QCOMPARE(FriendTreeSort::groupKey(QString::fromUtf8("常用联系人")),
                 QString::fromUtf8("1|常用联系人"));
        QCOMPARE(FriendTreeSort::groupKey(QString::fromUtf8("常用联系人2")),
                 QString::fromUtf8("2|常用联系人2"));
        QCOMPARE(FriendTreeSort::groupKey(QStringLiteral("Sales")), QStringLiteral("2|Sales"));
    }
};

FRIENDUI_TEST(TstFriendTreeSort)
#include "tst_friendtreesort.moc"
