// Files from the back end: stored whole or not at all.
#include "common/platform.h"
#include "http/chttpsession.h"
#include "http/fileservices.h"
#include "tests/http/servicefixture.h"
#include "tests/support/testrunner.h"

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#endif

Q_DECLARE_METATYPE(FakeReply)

namespace {
constexpr char DownloadPath[] = "/center/im/downloadFile.do";

QByteArray file()
{
    return QByteArray("0123456789").repeated(30000);
}
} // namespace

class TstFileDownload : public QObject
{
    Q_OBJECT

private slots:
    void storesWhatArrived()
    {
        ServiceFixture fixture;
        fixture.server.reply(DownloadPath, FakeReply::of(200, file()));
        const QString target = fixture.folder.filePath(QStringLiteral("new/folder/a.png"));
        FileDownload download;
        QSignalSpy finished(&download, &FileTransfer::finished);
        QSignalSpy progress(&download, &FileTransfer::progress);
        download.start(QString::fromUtf8("a&b 李.png"), target);
        QVERIFY(finished.isEmpty());
        const HttpResponseData result = resultOf(finished);
        QVERIFY2(result.ok, qPrintable(result.message));
        QCOMPARE(result.localPath, target);
        QVERIFY(contentOf(target) == file());
        QCOMPARE(fixture.server.last().path,
                 QByteArray(DownloadPath) + "?name=a%26b%20%E6%9D%8E.png");
        QCOMPARE(fixture.server.last().method, QByteArray("GET"));
        QCOMPARE(progress.last().value(0).toLongLong(), qint64(file().size()));
        QVERIFY(Platform::isOwnerOnly(target));
    }

    // What was there stays, and nothing is left beside it.
    void failuresLeaveTheOldFile_data()
    {
        const Rows<FakeReply, int> row{"reply", "code"};
        row("unknown", FakeReply::of(404, "<html>"), int(FileDownload::NotThere));
        row("refused", FakeReply::of(403, "<html>"), -1);
        row("cut off", FakeReply::of(200, file()).dropped(200000), -1);
        row("no file", FakeReply::of(204), -1);
        row("log-in is over",
            FakeReply::json(R"({"code":10001})").header("passport.login.flag", "true"), -1);
        row("unknown behind a redirect", FakeReply::redirect(302, "/gone"),
            int(FileDownload::NotThere));
        row("to another scheme", FakeReply::redirect(302, "file:///etc/hostname"), -1);
    }

    void failuresLeaveTheOldFile()
    {
        QFETCH(FakeReply, reply);
        QFETCH(int, code);
        ServiceFixture fixture;
        fixture.server.reply(DownloadPath, reply);
        QVERIFY(QDir(fixture.folder.path()).mkdir(QStringLiteral("files")));
        const QString target = fixture.makeFile(QStringLiteral("files/a.png"), "old");
        FileDownload download;
        QSignalSpy finished(&download, &FileTransfer::finished);
        download.start(QStringLiteral("a.png"), target);
        const HttpResponseData result = resultOf(finished);
        QVERIFY(!result.ok);
        QCOMPARE(result.code, code);
        QVERIFY(!result.message.isEmpty());
        QCOMPARE(contentOf(target), QByteArray("old"));
        QCOMPARE(QDir(fixture.folder.filePath(QStringLiteral("files"))).entryList(QDir::Files),
                 QStringList(QStringLiteral("a.png")));
    }

    void redirectIsFollowed()
    {
        ServiceFixture fixture;
        fixture.server.reply(DownloadPath, FakeReply::redirect(302, "/store/7"));
        fixture.server.reply("/store/7", FakeReply::of(200, "bytes"));
        const QString target = fixture.folder.filePath(QStringLiteral("a.png"));
        FileDownload download;
        QSignalSpy finished(&download, &FileTransfer::finished);
        download.start(QStringLiteral("a.png"), target);
        QVERIFY(resultOf(finished).ok);
        QCOMPARE(contentOf(target), QByteArray("bytes"));
    }

    void unsafeNames_data()
    {
        const Rows<QString> row{"name"};
        row("empty", "");
        row("parent", "..");
        row("path", "../../etc/passwd");
        row("other separator", "..\\x.png");
        row("absolute", "/etc/passwd");
        row("drive", "C:x.png");
        row("NUL", QString(QStringLiteral("a") + QChar(0) + QStringLiteral(".png")));
        row("line end", "a\r\n.png");
        row("device", "nul.png");
        row("too long", QString(256, QLatin1Char('a')));
    }

    void unsafeNames()
    {
        QFETCH(QString, name);
        ServiceFixture fixture;
        fixture.server.reply(DownloadPath, FakeReply::of(200, "x"));
        const QString target = fixture.folder.filePath(QStringLiteral("a.png"));
        FileDownload download;
        QSignalSpy finished(&download, &FileTransfer::finished);
        download.start(name, target);
        QVERIFY(finished.isEmpty());
        QVERIFY(!resultOf(finished).ok);
        QVERIFY(fixture.server.requests().isEmpty());
        QVERIFY(!QFile::exists(target));
    }

    void folderThatCannotBe()
    {
        ServiceFixture fixture;
        const QString inTheWay = fixture.makeFile(QStringLiteral("file"), "x");
        FileDownload download;
        QSignalSpy finished(&download, &FileTransfer::finished);
        download.start(QStringLiteral("a.png"), inTheWay + QStringLiteral("/a.png"));
        const HttpResponseData result = resultOf(finished);
        QVERIFY(!result.ok);
        QVERIFY(result.message.contains(QLatin1String("written")));
        QVERIFY(fixture.server.requests().isEmpty());
    }

    void diskTakesNoMore()
    {
#ifdef Q_OS_UNIX
        ServiceFixture fixture;
        fixture.server.reply(DownloadPath, FakeReply::of(200, file()));
        const QString target = fixture.folder.filePath(QStringLiteral("a.png"));
        FileDownload download;
        QSignalSpy finished(&download, &FileTransfer::finished);

        rlimit before{};
        QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
        const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit small = before;
        small.rlim_cur = 100000;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &small), 0);
        download.start(QStringLiteral("a.png"), target);
        const HttpResponseData result = resultOf(finished);
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, oldHandler);

        QVERIFY(!result.ok);
        QVERIFY2(result.message.contains(QLatin1String("written")), qPrintable(result.message));
        QVERIFY(!QFile::exists(target));
        QCOMPARE(QDir(fixture.folder.path()).entryList(QDir::Files),
                 QStringList(QStringLiteral("allurl.ini")));
#else
        QSKIP("needs a limit on the size of files");
#endif
    }

    void cancelledInTheMiddle()
    {
        ServiceFixture fixture;
        fixture.server.reply(DownloadPath, FakeReply::of(200, file()).trickled(1));
        const QString target = fixture.folder.filePath(QStringLiteral("a.png"));
        FileDownload download;
        QSignalSpy finished(&download, &FileTransfer::finished);
        QSignalSpy progress(&download, &FileTransfer::progress);
        download.start(QStringLiteral("a.png"), target);
        QTRY_VERIFY(!progress.isEmpty());
        download.cancel();
        QVERIFY(finished.isEmpty());
        QVERIFY(!resultOf(finished).ok);
        QCOMPARE(finished.size(), 1);
        QVERIFY(!QFile::exists(target));
        QCOMPARE(QDir(fixture.folder.path()).entryList(QDir::Files),
                 QStringList(QStringLiteral("allurl.ini")));
    }

    void largerThanAPicture()
    {
        ServiceFixture fixture;
        fixture.server.reply(
            DownloadPath,
            FakeReply::of(200, QByteArray(int(FileDownload::MaximumPicture) + 1, 'x')));
        const QString target = fixture.folder.filePath(QStringLiteral("a.png"));
        FileDownload download;
        QSignalSpy finished(&download, &FileTransfer::finished);
        download.start(QStringLiteral("a.png"), target, true);
        QVERIFY(!resultOf(finished).ok);
        QVERIFY(!QFile::exists(target));
    }
};

FRIENDUI_TEST(TstFileDownload)
#include "tst_filedownload.moc"
