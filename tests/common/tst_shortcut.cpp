// Desktop shortcuts: made for jids of any form, and nothing else is deleted.
#include "common/desktopshortcut.h"
#include "common/displaytext.h"
#include "common/platform.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {
QString desktop()
{
    return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
}

QStringList entries()
{
    return QDir(desktop()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden |
                                     QDir::System);
}

// Never the desktop of whoever runs the tests: it is emptied.
bool isOwnDesktop()
{
    const QString home = qEnvironmentVariable("HOME");
    return !home.isEmpty() && desktop().startsWith(home + QLatin1Char('/'));
}
} // namespace

class TstShortcut : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QVERIFY2(isOwnDesktop(), qPrintable(desktop()));
        QVERIFY(QDir().mkpath(desktop()));
    }
    void cleanup()
    {
        if (isOwnDesktop())
            QDir(desktop()).removeRecursively();
    }

    void createdAndRemovedOnTheDesktop_data()
    {
        const Rows<QString, QString> row{"jid", "fileName"};
        row("plain", "u1@corp.example", "u1@corp.example.lnk");
        row("traversal", "../../x", "___.._x.lnk");
        row("absolute", "/etc/passwd", "_etc_passwd.lnk");
        row("other stream", "a:b\\c", "a_b_c.lnk");
        row("hidden", ".bashrc", "_bashrc.lnk");
        row("Chinese", QString::fromUtf8("张三@corp"), QString::fromUtf8("张三@corp.lnk"));
        row("null and line break", QStringLiteral("a") + QChar(0) + QLatin1String("\nb"),
            "a__b.lnk");
        row("long", QString(10000, QLatin1Char('x')),
            QString(80, QLatin1Char('x')) + QLatin1String(".lnk"));
    }
    void createdAndRemovedOnTheDesktop()
    {
        QFETCH(QString, jid);
        QFETCH(QString, fileName);
        const QString link = desktop() + QLatin1Char('/') + fileName;
        QVERIFY(DesktopShortcut::create(jid));
        QCOMPARE(entries(), QStringList(fileName));
        QCOMPARE(QFileInfo(link).symLinkTarget(), QCoreApplication::applicationFilePath());
        QVERIFY(DesktopShortcut::create(jid)); // renewed
        QVERIFY(DesktopShortcut::remove(jid));
        QCOMPARE(entries(), QStringList());
        QVERIFY(!DesktopShortcut::remove(jid));
    }

    void removeLeavesOtherFilesAlone()
    {
        const QString outside = desktop() + QLatin1String("/../x.lnk");
        writeFile(outside, "precious");
        QVERIFY(!DesktopShortcut::remove(QStringLiteral("../x")));
        QCOMPARE(contentOf(outside), QByteArray("precious"));
        QFile::remove(outside);

        // A link outside, which could be deleted, stays as well.
        QVERIFY(QFile::link(QCoreApplication::applicationFilePath(), outside));
        QVERIFY(!DesktopShortcut::remove(QStringLiteral("../x")));
        QVERIFY(!contentOf(outside).isEmpty());
        QFile::remove(outside);
    }

    void fileThatIsNoLinkStays()
    {
        const QString file = DesktopShortcut::file(QStringLiteral("u1"));
        writeFile(file, "precious");
        QVERIFY(!DesktopShortcut::remove(QStringLiteral("u1")));
        QVERIFY(!DesktopShortcut::create(QStringLiteral("u1")));
        QCOMPARE(contentOf(file), QByteArray("precious"));
    }

#ifdef Q_OS_UNIX
    void linkToAProgramThatIsGoneIsRemoved()
    {
        const QString link = DesktopShortcut::file(QStringLiteral("u1"));
        QVERIFY(QFile::link(QStringLiteral("/no/such/program"), link));
        QVERIFY(DesktopShortcut::remove(QStringLiteral("u1")));
        QVERIFY(!QFileInfo(link).isSymLink());
    }
#endif

    void nobodyHasNoShortcut()
    {
        QVERIFY(!DesktopShortcut::create(QString()));
        QVERIFY(!DesktopShortcut::remove(QString()));
    }

    void namesOfDevicesAreAvoided_data()
    {
        const Rows<QString, QString> row{"text", "name"};
        row("device", "NUL", "_NUL");
        row("with suffix", "con.txt", "_con.txt");
        row("numbered", "Com1", "_Com1");
        row("superscript number", QString::fromUtf8("LPT²"), QString::fromUtf8("_LPT²"));
        row("longer", "console", "console");
        row("dots at the end", "a..", "a__");
        row("nothing left", "", "_");
        row("lone surrogate", QString(QChar(0xd800)), "_");
    }
    void namesOfDevicesAreAvoided()
    {
        QFETCH(QString, text);
        QTEST(safeFileName(text), "name");
    }

    void onlyRegularFilesAreRestrictedToTheOwner()
    {
        const QFile::Permissions before = QFile::permissions(desktop());
        QVERIFY(!Platform::restrictToOwner(desktop()));
        QCOMPARE(QFile::permissions(desktop()), before);
        QVERIFY(!Platform::restrictToOwner(desktop() + QLatin1String("/missing")));
    }
};

FRIENDUI_TEST(TstShortcut)
#include "tst_shortcut.moc"
