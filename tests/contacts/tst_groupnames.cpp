#include "contacts/groupnames.h"
#include "tests/support/testrunner.h"

#include <QTest>

class TstGroupNames : public QObject
{
    Q_OBJECT

private slots:
    void refuses_data();
    void refuses();
};

void TstGroupNames::refuses_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("refusal");
    const QString empty = QStringLiteral("teamnotempty");
    const QString taken = QStringLiteral("createexistedteam");
    QTest::newRow("empty") << "" << empty;
    QTest::newRow("blanks") << "  \t " << empty;
    QTest::newRow("ideographic blank") << QString(QChar(0x3000)) << empty;
    QTest::newRow("built in") << QString::fromUtf8("我的好友") << taken;
    QTest::newRow("frequent contacts") << QString::fromUtf8(" 常用联系人 ") << taken;
    QTest::newRow("taken") << "Sales" << taken;
    QTest::newRow("taken, with blanks") << " Sales " << taken;
    QTest::newRow("page of its own") << QObject::tr("latestContact") << taken;
    QTest::newRow("deleted contacts") << QObject::tr("contactsDeleted") << taken;
    QTest::newRow("another case") << "sales" << QString();
    QTest::newRow("part of a taken name") << "Sale" << QString();
    QTest::newRow("built in and more") << QString::fromUtf8("我的好友2") << QString();
}

void TstGroupNames::refuses()
{
    QFETCH(QString, name);
    QFETCH(QString, refusal);
    QCOMPARE(QString::fromLatin1(groupNameRefusal(name, {QStringLiteral("Sales")})), refusal);
}

FRIENDUI_TEST(TstGroupNames)
#include "tst_groupnames.moc"
