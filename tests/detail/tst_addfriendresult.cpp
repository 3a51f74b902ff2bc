// What a state of the request looks like, and which group names are refused.
#include "detail/addfriendresult.h"
#include "tests/support/testrunner.h"

#include <QTest>

using namespace AddFriendResult;

class TstAddFriendResult : public QObject
{
    Q_OBJECT

private slots:
    void rows_data();
    void rows();
    void policies_data();
    void policies();
    void groupNames_data();
    void groupNames();
};

void TstAddFriendResult::rows_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("policy");
    QTest::addColumn<QString>("expected"); // page, text, status, icon
    const QString accepted = QStringLiteral("result allowfriends addsuccess success");
    const QString refused = QStringLiteral("result refusefriends - fail");
    QTest::newRow("accepted before the policy came") << 2 << 0 << accepted;
    QTest::newRow("accepted goes before refuses all") << 2 << 2 << accepted;
    QTest::newRow("accepted by who asks first") << 2 << 3 << accepted;
    QTest::newRow("accepts all") << 1 << 1 << accepted;
    QTest::newRow("accepts all goes before just opened") << 0 << 1 << accepted;
    QTest::newRow("refuses all") << 1 << 2 << refused;
    QTest::newRow("refuses all goes before just opened") << 0 << 2 << refused;
    QTest::newRow("asks first") << 1 << 3 << "form waitfriendsconfirm - info";
    QTest::newRow("any other policy") << 1 << -7 << "form waitfriendsconfirm - info";
    QTest::newRow("just opened") << 0 << 0 << "waiting gettinginformation - -";
    QTest::newRow("just opened, asks first") << 0 << 3 << "waiting gettinginformation - -";
}

void TstAddFriendResult::rows()
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

void TstAddFriendResult::policies_data()
{
    QTest::addColumn<QString>("config");
    QTest::addColumn<int>("policy");
    QTest::newRow("name") << "ACCEPT_ALL" << 1;
    QTest::newRow("name within") << "{\"add\":\"ADD_FROM\"}" << 1;
    QTest::newRow("refuses") << "DENY_ALL" << 2;
    QTest::newRow("number 1") << "1" << 1;
    QTest::newRow("number 2") << " 2\n" << 2;
    QTest::newRow("other number") << "12" << 3;
    QTest::newRow("asks") << "NEED_CONFIRM" << 3;
    QTest::newRow("empty") << "" << 3;
    QTest::newRow("in lower case") << "accept_all" << 3;
}

void TstAddFriendResult::policies()
{
    QFETCH(QString, config);
    QTEST(policyOf(config), "policy");
}

void TstAddFriendResult::groupNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("refusal");
    QTest::newRow("free") << "Gamma"
                          << "";
    QTest::newRow("another case") << "alpha"
                                  << "";
    QTest::newRow("empty") << ""
                           << "teamnotempty";
    QTest::newRow("blanks") << " \t "
                            << "teamnotempty";
    QTest::newRow("taken") << "Alpha"
                           << "teamexisted";
    QTest::newRow("taken, with blanks") << " Alpha "
                                        << "teamexisted";
    QTest::newRow("the default group, unlisted") << QString::fromUtf8("我的好友") << "teamexisted";
    QTest::newRow("the frequent contacts") << QString::fromUtf8("常用联系人") << "teamexisted";
    QTest::newRow("latest contacts") << "latestContact"
                                     << "createdulicatedteam";
    QTest::newRow("deleted contacts") << " contactsDeleted"
                                      << "createdulicatedteam";
}

void TstAddFriendResult::groupNames()
{
    QFETCH(QString, name);
    const char *refusal = newGroupRefusal(name, {QStringLiteral("Alpha"), QStringLiteral("Beta")});
    QTEST(QString::fromLatin1(refusal ? refusal : ""), "refusal");
}

FRIENDUI_TEST(TstAddFriendResult)
#include "tst_addfriendresult.moc"
