// What is loaded at log-in, and what that completes in the file.
#include "common/clientpaths.h"
#include "common/settingsfile.h"
#include "common/settingskeys.h"
#include "common/usersettings.h"
#include "tests/support/files.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QDir>
#include <QTemporaryDir>

#include <memory>

class TstUserSettings : public QObject
{
    Q_OBJECT

private:
    FakeContext m_host;
    std::unique_ptr<LogCapture> m_log;
    QTemporaryDir *m_folder = nullptr;

    void fill(const QByteArray &content)
    {
        QVERIFY(QDir().mkpath(ClientPaths::userFolder()));
        writeFile(ClientPaths::userSettingsFile(), content);
    }
    static QByteArray content() { return textOf(ClientPaths::userSettingsFile()); }

private slots:
    void initTestCase() { setHostContext(&m_host); }
    void cleanupTestCase() { setHostContext(nullptr); }
    void init()
    {
        m_folder = new QTemporaryDir;
        m_host.baseFolder = m_folder->path();
        m_host.user = QStringLiteral("u1");
    }
    void cleanup() { delete m_folder; }

    void newUserGetsTheDefaults()
    {
        const UserSettings settings = loadUserSettings(QStringLiteral("u1"), QDate(2026, 3, 9));
        QCOMPARE(settings.month, QStringLiteral("202603"));
        QCOMPARE(settings.settingsFile, m_folder->path() + QLatin1String("/u1/newConfig.ini"));
        QCOMPARE(settings.autoLogin, QString());
        QCOMPARE(settings.autoReplyTexts, QStringList());
        QCOMPARE(settings.needHide, 0);
        QCOMPARE(settings.chatFont.size, 14.0);
        QCOMPARE(settings.canBeSearched, QStringLiteral("1"));

        // The systems order a section's lines in ways of their own.
        for (const char *section : {"[chatFontSetting]\n", "[agentChatFontSetting]\n"}) {
            QVERIFY(
                content().contains(section + QByteArray("fontSizeRewrited=true\nfontsize=14\n")) ||
                content().contains(section + QByteArray("fontsize=14\nfontSizeRewrited=true\n")));
        }
        QVERIFY(content().contains(
            "[privacySetting]\nCanSearch=1\nCanViewCompanyInfo=1\nCanViewMobile=1\n"));
        QVERIFY(!content().contains("202603"));
    }

    void valuesComeFromTheFile()
    {
        fill("[basicSetting]\nautoLunch=1\nopenUnColsedDialog=no\n"
             "[statusSetting]\nNewAutoReplyStr=hello, world\n"
             "NewAutoReplyList=\"开会, 稍后\", b\nNewFastReplyList=only\n"
             "[HideSetting]\nNeedHide=3\n[privacySetting]\nCanSearch=0\nCanViewMobile=\n"
             "[msgSetting]\nSynchroMode=2\n"
             "[agentChatFontSetting]\nfontfamily=\"A, B\"\nisbold=true\nfontsize=15.5\n"
             "fontSizeRewrited=true\ntextcolor=\"1,2,3\"\n");
        const UserSettings settings = loadUserSettings();
        QCOMPARE(settings.autoLaunch, QStringLiteral("1"));
        QCOMPARE(settings.reopenDialogs, QStringLiteral("no"));
        QCOMPARE(settings.autoReplyText, QStringLiteral("hello,world"));
        QCOMPARE(settings.autoReplyTexts,
                 (QStringList{QString::fromUtf8("开会, 稍后"), QStringLiteral("b")}));
        QCOMPARE(settings.fastReplyTexts, QStringList(QStringLiteral("only")));
        QCOMPARE(settings.needHide, 3);
        QCOMPARE(settings.canBeSearched, QStringLiteral("0"));
        QCOMPARE(settings.mobileVisible, QStringLiteral("1"));
        QCOMPARE(settings.syncMode, QStringLiteral("2"));
        QCOMPARE(settings.agentChatFont.family, QStringLiteral("A, B"));
        QVERIFY(settings.agentChatFont.bold);
        QVERIFY(!settings.agentChatFont.italic);
        QCOMPARE(settings.agentChatFont.size, 15.5);
        QCOMPARE(settings.agentChatFont.color, QStringLiteral("1,2,3"));
        QCOMPARE(settings.chatFont.size, 14.0); // a group of its own
    }

    void fontSizeIsResetOnce()
    {
        fill("[chatFontSetting]\nfontsize=30\n");
        QCOMPARE(loadUserSettings().chatFont.size, 14.0);
        {
            SettingsFile file(ClientPaths::userSettingsFile());
            file.setValue(QString(SettingsKeys::ChatFontGroup) + SettingsKeys::FontSize, 16);
            QVERIFY(file.save());
        }
        QCOMPARE(loadUserSettings().chatFont.size, 16.0);
        QVERIFY(content().contains("fontsize=16"));
    }

    void valuesOfTheWrongKindReadAsDefaults()
    {
        fill("[HideSetting]\nNeedHide=many\n[basicSetting]\nautoLogin=@ByteArray(x)\n"
             "[chatFontSetting]\nfontSizeRewrited=true\nfontsize=inf\nisbold=@Rect(1 2 3 4)\n");
        const UserSettings settings = loadUserSettings();
        QCOMPARE(settings.needHide, 0);
        QCOMPARE(settings.autoLogin, QString());
        QCOMPARE(settings.chatFont.size, 0.0);
        QVERIFY(!settings.chatFont.bold);
    }

    void badFileYieldsUsableSettingsAndStays_data()
    {
        const Rows<QByteArray, QString> row{"file", "autoLogin"};
        row("object", "[basicSetting]\nautoLogin=1\nx=@Variant(\\0\\x7f)\n", QString());
        row("line that is no setting", "[basicSetting]\nautoLogin=1\nnone\n", QStringLiteral("1"));
    }
    void badFileYieldsUsableSettingsAndStays()
    {
        QFETCH(QByteArray, file);
        fill(file);
        m_log = std::make_unique<LogCapture>(m_host);
        const UserSettings settings = loadUserSettings();
        QTEST(settings.autoLogin, "autoLogin");
        QCOMPARE(settings.chatFont.size, 14.0);
        QCOMPARE(settings.canBeSearched, QStringLiteral("1"));
        QCOMPARE(content(), file);
        QVERIFY(!m_log->linesWith("][ERROR][").filter(QLatin1String("newConfig.ini")).isEmpty());
    }

    void userIdThatLeadsElsewhereTouchesNothing()
    {
        m_host.baseFolder = m_folder->path() + QLatin1String("/base");
        QVERIFY(QDir().mkpath(m_host.baseFolder));
        const UserSettings settings = loadUserSettings(QStringLiteral("../other"));
        QCOMPARE(settings.settingsFile, QString());
        QCOMPARE(settings.chatFont.size, 14.0);
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList(QStringLiteral("base")));
    }
};

FRIENDUI_TEST(TstUserSettings)
#include "tst_usersettings.moc"
