#include "http/redirectrules.h"
#include "tests/support/testrunner.h"

namespace {

bool isService(const QUrl &url)
{
    return RedirectRules::isSamePlace(QUrl(QStringLiteral("https://ids.corp.example")), url);
}

RedirectRules::Hop judge(const QString &first, const QString &from, const QString &location,
                         int hops = 0)
{
    return RedirectRules::judge(QUrl(first), QUrl(from), QUrl(location), hops, 20, isService);
}

} // namespace

class TstRedirectRules : public QObject
{
    Q_OBJECT

private slots:
    void followed_data()
    {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("location");
        QTest::addColumn<QString>("target");
        QTest::addColumn<bool>("trusted");
        const QString start = QStringLiteral("https://im.corp.example/center/a.do?x=1");
        const auto row = [&](const char *name, const char *location, const char *target,
                             bool trusted) {
            QTest::newRow(name) << start << start << location << target << trusted;
        };
        row("relative query", "b.do?y=%2C", "https://im.corp.example/center/b.do?y=%2C", true);
        row("relative to the root", "/t", "https://im.corp.example/t", true);
        row("its usual port", "https://im.corp.example:443/t", "https://im.corp.example:443/t",
            true);
        row("host in capitals", "https://IM.corp.example/t", "https://im.corp.example/t", true);
        row("another port", "https://im.corp.example:8443/t", "https://im.corp.example:8443/t",
            false);
        row("another host", "//evil.example/t", "https://evil.example/t", false);
        row("host as the beginning of another", "https://im.corp.example.evil.example/",
            "https://im.corp.example.evil.example/", false);
        row("a service", "https://ids.corp.example/ids/login", "https://ids.corp.example/ids/login",
            true);
        row("a service on another port", "https://ids.corp.example:444/",
            "https://ids.corp.example:444/", false);

        QTest::newRow("encryption added") << "http://im.corp.example/a"
                                          << "http://im.corp.example/a"
                                          << "https://im.corp.example/a"
                                          << "https://im.corp.example/a" << true;
        QTest::newRow("encryption and another port") << "http://im.corp.example:8080/a"
                                                     << "http://im.corp.example:8080/a"
                                                     << "https://im.corp.example/a"
                                                     << "https://im.corp.example/a" << false;
        // Trust is about where the request was made for, not about who redirects.
        QTest::newRow("a stranger to itself") << start << "https://evil.example/a"
                                              << "/b"
                                              << "https://evil.example/b" << false;
        QTest::newRow("a stranger back to the beginning")
            << start << "https://evil.example/a" << start << start << true;
    }

    void followed()
    {
        QFETCH(QString, first);
        QFETCH(QString, from);
        QFETCH(QString, location);
        QFETCH(bool, trusted);
        const RedirectRules::Hop hop = judge(first, from, location);
        QVERIFY(hop.isFollowed());
        QTEST(hop.url.toString(), "target");
        QCOMPARE(hop.trusted, trusted);
    }

    void refused_data()
    {
        QTest::addColumn<QString>("location");
        QTest::addColumn<int>("refusal");
        const auto row = [](const char *location, QNetworkReply::NetworkError refusal) {
            QTest::newRow(location) << QString::fromLatin1(location) << int(refusal);
        };
        row("http://im.corp.example/a", QNetworkReply::InsecureRedirectError);
        row("http://ids.corp.example/a", QNetworkReply::InsecureRedirectError);
        row("file:///etc/hostname", QNetworkReply::ProtocolUnknownError);
        row("ftp://im.corp.example/a", QNetworkReply::ProtocolUnknownError);
        row("data:text/plain,a", QNetworkReply::ProtocolUnknownError);
        row("qrc:/a", QNetworkReply::ProtocolUnknownError);
        row("javascript:alert(1)", QNetworkReply::ProtocolUnknownError);
        row("https:///a", QNetworkReply::ProtocolUnknownError);
        row("https://im.corp.example:99999/", QNetworkReply::ProtocolUnknownError);
    }

    void refused()
    {
        QFETCH(QString, location);
        QFETCH(int, refusal);
        const QString from = QStringLiteral("https://im.corp.example/a");
        const RedirectRules::Hop hop = judge(from, from, location);
        QCOMPARE(int(hop.refusal), refusal);
        QVERIFY(!hop.trusted);
    }

    void chainOfHops()
    {
        const QString from = QStringLiteral("https://im.corp.example/a");
        QVERIFY(judge(from, from, from, 19).isFollowed());
        QCOMPARE(judge(from, from, from, 20).refusal, QNetworkReply::TooManyRedirectsError);
    }

    // The network layer would send it as an authorisation of the server's choosing.
    void userInformation()
    {
        const QString from = QStringLiteral("https://im.corp.example/a");
        QCOMPARE(judge(from, from, QStringLiteral("https://u:p@evil.example/a")).url.toString(),
                 QStringLiteral("https://evil.example/a"));
    }
};

FRIENDUI_TEST(TstRedirectRules)
#include "tst_redirectrules.moc"
