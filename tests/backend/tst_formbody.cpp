// Fields off the wire: what is decoded, and what is refused.
#include "backend/formbody.h"
#include "tests/support/testrunner.h"

class TstFormBody : public QObject
{
    Q_OBJECT

private slots:
    void text_data()
    {
        // value: null: malformed
        const Rows<QByteArray, QString> row{"body", "value"};
        row("plain", "a=b&k=v", "v");
        row("escapes", "k=%e5%bc%a0%2C%2b%26", QString::fromUtf8("张,+&"));
        row("plus is a blank", "k=a+b", "a b");
        row("equals in the value", "k=a=b", "a=b");
        row("the first counts", "k=1&k=2", "1");
        row("absent", "&&=x&a", "");
        row("escape cut off", "k=%e5%b", QString());
        row("no hexadecimal digits", "k=%zz", QString());
        row("not UTF-8", "k=%ff%fe", QString());
        row("UTF-8 cut off", "k=%e5%bc", QString());
        row("surrogate in UTF-8", "k=%ed%a0%80", QString());
        row("another is malformed", "x=%zz&k=v", "v");
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
        // isGood: between 1 and 10
        const Rows<QByteArray, bool> row{"value", "isGood"};
        row("least", "1", true);
        row("most", "10", true);
        row("below", "0", false);
        row("above", "11", false);
        row("negative", "-1", false);
        row("beyond 64 bits", "18446744073709551617", false);
        row("words", "ten", false);
        row("empty", QByteArray(), false);
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
