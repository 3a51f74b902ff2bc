// The browser as a module beside the code that loads it, which can be missing or broken.
#include "common/platform.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"
#include "webview/browsermodule.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

class TstBrowserModule : public QObject
{
    Q_OBJECT

private slots:
    void foundBesideTheCodeAlone()
    {
        QCOMPARE(QDir(Platform::moduleFolder()).canonicalPath(),
                 QDir(QCoreApplication::applicationDirPath()).canonicalPath());
        const QTemporaryDir empty;
        QVERIFY(!BrowserModule::loadFrom(empty.path()));
        QVERIFY(!BrowserModule::loadFrom(QString()));
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(Platform::moduleFolder()));
        QVERIFY(!BrowserModule::loadFrom(QStringLiteral(".")));
        QVERIFY(QDir::setCurrent(before));
    }

    void broken_data()
    {
        const Rows<QByteArray> row{"content"};
        row("empty", "");
        row("no module", "#!/bin/sh\n");
        row("cut off", QByteArray("\x7f"
                                  "ELF\2\1\1",
                                  7) +
                           QByteArray(9, '\0'));
    }

    void broken()
    {
        QFETCH(QByteArray, content);
        const QTemporaryDir folder;
        for (const char *name : {"/libFriendUIWeb.so", "/FriendUIWeb.dll"})
            writeFile(folder.path() + QLatin1String(name), content);
        QVERIFY(!BrowserModule::loadFrom(folder.path()));
    }

    void ofAnotherVersion()
    {
        const MakeBrowser maker = BrowserModule::load();
        if (!maker)
            QSKIP("the browser module was not built: QtWebKit is missing");
        QVERIFY(!maker(BrowserVersion + 1, nullptr, nullptr, nullptr));
    }
};

FRIENDUI_TEST(TstBrowserModule)
#include "tst_browsermodule.moc"
