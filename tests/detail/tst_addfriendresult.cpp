// What a state of the request looks like, and which group names are refused.
#include "detail/addfriendresult.h"
#include "tests/support/testrunner.h"

using namespace AddFriendResult;

class TstAddFriendResult : public QObject
{
    Q_OBJECT

private slots:
    void rows_data()
    {
        // expected: page, text, status, icon
        const Rows<int, int, QString> row{"mode", "policy", "expected"};
        const QString accepted = QStringLiteral("result allowfriends addsuccess success");
        const QString refused = QStringLiteral("result refusefriends - fail");
        row("accepted before the policy came", 2, 0, accepted);
        row("accepted goes before refuses all", 2, 2, accepted);
        row("accepts all goes before just opened", 0, 1, accepted);
        row("refuses all goes before just opened", 0, 2, refused);
        row("any other policy", 1, -7, "form waitfriendsconfirm - info");
        row("just opened", 0, 0, "waiting gettinginformation - -");
        row("just opened, asks first", 0, 3, "waiting gettinginformation - -");
    }

    void rows()
    {
        QFETCH(int, mode);
        QFETCH(int, policy);
        const Row found = row(mode, policy);
        const char *const pages[] = {"waiting", "form", "result"};
        QString icon = found.icon.section(QLatin1Char('_'), -1);
        icon.chop(int(qstrlen(".png")));
        const auto orNone = [](const QString &text) {
            return text.isEmpty() ? QStringLiteral("-") : text;
        };
        QTEST((QStringList{QLatin1String(pages[int(found.page)]), QLatin1String(found.textKey),
                           orNone(QLatin1String(found.statusKey)), orNone(icon)}
                   .join(QLatin1Char(' '))),
              "expected");
        QCOMPARE(found.namesPerson, found.page == Page::Result);
    }

    void policies_data()
    {
        const Rows<QString, int> row{"config", "policy"};
        row("name", "ACCEPT_ALL", 1);
        row("name within", "{\"add\":\"ADD_FROM\"}", 1);
        row("refuses", "DENY_ALL", 2);
        row("number 1", "1", 1);
        row("number 2", " 2\n", 2);
        row("other number", "12", 3);
        row("asks", "NEED_CONFIRM", 3);
        row("empty", "", 3);
        row("in lower case", "accept_all", 3);
    }

    void policies()
    {
        QFETCH(QString, config);
        QTEST(policyOf(config), "policy");
    }

    void groupNames_data()
    {
        const Rows<QString, QString> row{"name", "refusal"};
        row("free", "Gamma", "");
        row("another case", "alpha", "");
        row("empty", "", "teamnotempty");
        row("blanks", " \t ", "teamnotempty");
        row("taken", "Alpha", "teamexisted");
        row("taken, with blanks", " Alpha ", "teamexisted");
        row("the default group, unlisted", QString::fromUtf8("我的好友"), "teamexisted");
        row("the frequent contacts", QString::fromUtf8("常用联系人"), "teamexisted");
        row("latest contacts", "latestContact", "createdulicatedteam");
        row("deleted contacts", " contactsDeleted", "createdulicatedteam");
    }

    void groupNames()
    {
        QFETCH(QString, name);
        const char *refusal =
            newGroupRefusal(name, {QStringLiteral("Alpha"), QStringLiteral("Beta")});
        QTEST(QString::fromLatin1(refusal ? refusal : ""), "refusal");
    }
};

FRIENDUI_TEST(TstAddFriendResult)
#include "tst_addfriendresult.moc"
