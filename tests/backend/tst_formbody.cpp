// Fields off the wire: what is decoded, and what is refused.
#include "backend/formbody.h"
#include "tests/support/testrunner.h"

#include <QTest>

class TstFormBody : public QObject
{
    Q_OBJECT

private slots:
    void text_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("value"); // null: malformed
        QTest::newRow("plain") << QByteArray("a=b&k=v") << "v";
        QTest::newRow("escapes") << QByteArray("k=%e5%bc%a0%2C%2b%26")
                                 << QString::fromUtf8("张,+&");
        QTest::newRow("plus is a blank") << QByteArray("k=a+b") << "a b";
        QTest::newRow("equals in the value") << QByteArray("k=a=b") << "a=b";
        QTest::newRow("the first counts") << QByteArray("k=1&k=2") << "1";
        QTest::newRow("absent") << QByteArray("&&=x&a") << "";
        QTest::newRow("escape cut off") << QByteArray("k=%e5%b") << QString();
        QTest::newRow("no hexadecimal digits") << QByteArray("k=%zz") << QString();
        QTest::newRow("not UTF-8") << QByteArray("k=%ff%fe") << QString();
        QTest::newRow("UTF-8 cut off") << QByteArray("k=%e5%bc") << QString();
        QTest::newRow("surrogate in UTF-8") << QByteArray("k=%ed%a0%80") << QString();
        QTest::newRow("another is malformed") << QByteArray("x=%zz&k=v") << "v";
    }
    void text()
    {
        QFETCH(QByteArray, body);
        QFETCH(QString, value);
        const FormBody form = FormBody::parse(body.toStdString());
        if (value.isNull())
            QVERIFY_EXCEPTION_THROWN(form.text("k"), IllegalField);
        else
            QCOMPARE(form.text("k"), value);
    }

    void numbers_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<bool>("isGood"); // between 1 and 10
        QTest::newRow("least") << QByteArray("1") << true;
        QTest::newRow("most") << QByteArray("10") << true;
        QTest::newRow("below") << QByteArray("0") << false;
        QTest::newRow("above") << QByteArray("11") << false;
        QTest::newRow("negative") << QByteArray("-1") << false;
        QTest::newRow("beyond 64 bits") << QByteArray("18446744073709551617") << false;
        QTest::newRow("words") << QByteArray("ten") << false;
        QTest::newRow("empty") << QByteArray() << false;
    }
    void numbers()
    {
        QFETCH(QByteArray, value);
        QFETCH(bool, isGood);
        const FormBody form = FormBody::parse("k=" + value.toStdString());
        if (isGood)
            QCOMPARE(form.number("k", 1, 10), value.toLongLong());
        else
            QVERIFY_EXCEPTION_THROWN(form.number("k", 1, 10), IllegalField);
    }
};

FRIENDUI_TEST(TstFormBody)
#include "tst_formbody.moc"
