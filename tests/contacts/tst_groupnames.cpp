#include "contacts/groupnames.h"
#include "tests/support/testrunner.h"

class TstGroupNames : public QObject
{
    Q_OBJECT

private slots:
    void refuses_data()
    {
        const Rows<QString, QString> row{"name", "refusal"};
        const QString empty = QStringLiteral("teamnotempty");
        const QString taken = QStringLiteral("createexistedteam");
        row("empty", "", empty);
        row("blanks", "  \t ", empty);
        row("ideographic blank", QString(QChar(0x3000)), empty);
        row("built in", QString::fromUtf8("我的好友"), taken);
        row("frequent contacts", QString::fromUtf8(" 常用联系人 "), taken);
        row("taken", "Sales", taken);
        row("taken, with blanks", " Sales ", taken);
        row("page of its own", QObject::tr("latestContact"), taken);
        row("deleted contacts", QObject::tr("contactsDeleted"), taken);
        row("another case", "sales", QString());
        row("part of a taken name", "Sale", QString());
        row("built in and more", QString::fromUtf8("我的好友2"), QString());
    }

    void refuses()
    {
        QFETCH(QString, name);
        QTEST(QString::fromLatin1(groupNameRefusal(name, {QStringLiteral("Sales")})), "refusal");
    }
};

FRIENDUI_TEST(TstGroupNames)
#include "tst_groupnames.moc"
