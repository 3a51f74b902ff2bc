// Files on their way to the back end, whole and in parts.
#include "http/fileservices.h"
#include "tests/http/servicefixture.h"
#include "tests/support/testrunner.h"

#include <QCryptographicHash>

Q_DECLARE_METATYPE(FakeReply)

namespace {
constexpr char UploadPath[] = "/center/im/uploadFile.do";
constexpr char ObjectPath[] = "/center/im/getObjectId.do";
constexpr char PartPath[] = "/center/im/uploadMultipart.do";
constexpr char CompletePath[] = "/center/im/uploadMultipartComplete.do";
constexpr char AbortPath[] = "/center/im/uploadMultipartAbort.do";
constexpr char RenewPath[] = "/center/im/updateUploadMultipartAuth.do";

constexpr char Stored[] = R"({"SNRetCode":"0","SNRetMsg":"","result":{"fileName":"u1_3.png"}})";
constexpr char Refused[] = R"({"SNRetCode":"1","SNRetMsg":"no picture","errorCode":"E01"})";
constexpr char Begun[] = R"({"SNRetCode":"0","result":{"objectId":"o1"}})";
constexpr char PartStored[] = R"({"SNRetCode":"0","result":{"partNumber":1}})";

QByteArray md5(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
}

// The value of one part of a multipart form.
QByteArray partOf(const QByteArray &form, const QByteArray &name)
{
    const int head = form.indexOf("form-data; name=\"" + name + '"');
    const int begin = form.indexOf("\r\n\r\n", head) + 4;
    const int end = form.indexOf("\r\n--", begin);
    return head < 0 ? QByteArray() : form.mid(begin, end - begin);
}

// Some bytes that a form must not change, in three parts of which the last is short.
QByteArray manyBytes()
{
    QByteArray bytes(int(MultipartUpload::PartSize) * 2 + 777, '\r');
    for (int i = 0; i < bytes.size(); i += 101)
        bytes[i] = char(i);
    return bytes;
}
} // namespace

class TstFileUploads : public QObject
{
    Q_OBJECT

private slots:
    void wholeFileArrives()
    {
        ServiceFixture fixture;
        fixture.server.reply(UploadPath, FakeReply::json(Stored));
        const QByteArray bytes = QByteArray("\x89PNG\r\n\0\xff", 8).repeated(50000);
#ifdef Q_OS_WIN // where no name has quotes
        const QString name = QString::fromUtf8("头'像'.png");
        const QByteArray sentName = "头'像'.png";
#else
        const QString name = QString::fromUtf8("头\"像\".png");
        const QByteArray sentName = "头%22像%22.png";
#endif
        const QString file = fixture.makeFile(name, bytes);
        FileUpload upload;
        QSignalSpy finished(&upload, &FileTransfer::finished);
        QSignalSpy progress(&upload, &FileTransfer::progress);
        upload.start(file, QStringLiteral("head"));
        QVERIFY(finished.isEmpty());
        const HttpResponseData result = resultOf(finished);
        QVERIFY2(result.ok, qPrintable(result.message));
        QCOMPARE(result.code, 0);
        QCOMPARE(result.fileName, QStringLiteral("u1_3.png"));

        const QByteArray form = fixture.server.last().body;
        QCOMPARE(partOf(form, "file"), bytes);
        QCOMPARE(partOf(form, "type"), QByteArray("head"));
        QCOMPARE(partOf(form, "md5"), md5(bytes));
        QVERIFY(form.contains("filename=\"" + sentName + '"'));
        QVERIFY(fixture.server.last().header("Content-Type").startsWith("multipart/form-data"));
        QVERIFY(!progress.isEmpty());
        QCOMPARE(progress.last(), (QVariantList{qint64(bytes.size()), qint64(bytes.size())}));
    }

    void failedUploads_data()
    {
        // message: part of it
        const Rows<FakeReply, int, QString> row{"reply", "code", "message"};
        row("refused", FakeReply::json(Refused), 1, "no picture");
        row("no name", FakeReply::json(R"({"SNRetCode":"0"})"), -1, "name");
        row("name with a path",
            FakeReply::json(R"({"SNRetCode":"0","result":{"fileName":"../../x.png"}})"), -1,
            "name");
        row("other envelope", FakeReply::json(R"({"code":10001})"), 10001, "");
        row("status 500", FakeReply::of(500, Stored), -1, "");
        row("no JSON", FakeReply::of(200, "<html>"), -1, "");
        row("cut off", FakeReply::json(Stored).dropped(100), -1, "");
    }

    void failedUploads()
    {
        QFETCH(FakeReply, reply);
        QFETCH(int, code);
        QFETCH(QString, message);
        ServiceFixture fixture;
        fixture.server.reply(UploadPath, reply);
        FileUpload upload;
        QSignalSpy finished(&upload, &FileTransfer::finished);
        upload.start(fixture.makeFile(QStringLiteral("a.png"), "x"), QStringLiteral("head"));
        const HttpResponseData result = resultOf(finished);
        QVERIFY(!result.ok);
        QCOMPARE(result.code, code);
        QVERIFY2(result.message.contains(message), qPrintable(result.message));
        QVERIFY(result.fileName.isEmpty());
    }

    void notEvenSent_data()
    {
        const Rows<QString, bool> row{"file", "hasAddress"};
        row("missing file", "missing.png", true);
        row("folder", ".", true);
        row("too large", "large.bin", true);
        row("no address", "small.bin", false);
    }

    void notEvenSent()
    {
        QFETCH(QString, file);
        QFETCH(bool, hasAddress);
        ServiceFixture fixture;
        QFile(fixture.makeFile(QStringLiteral("large.bin"), ""))
            .resize(FileUpload::MaximumSize + 1);
        fixture.makeFile(QStringLiteral("small.bin"), "x");
        if (!hasAddress)
            fixture.write("[ImFile]\nuploadFileUrl=\n");
        FileUpload upload;
        QSignalSpy finished(&upload, &FileTransfer::finished);
        upload.start(fixture.folder.filePath(file), QStringLiteral("head"));
        QVERIFY(finished.isEmpty());
        const HttpResponseData result = resultOf(finished);
        QVERIFY(!result.ok);
        QVERIFY(!result.message.isEmpty());
        QVERIFY(fixture.server.requests().isEmpty());
    }

    void cancelledInTheMiddle_data()
    {
        // sent: requests when it is cancelled
        const Rows<int> row{"sent"};
        row("while the file is read", 0);
        row("while the answer is awaited", 1);
    }

    void cancelledInTheMiddle()
    {
        QFETCH(int, sent);
        ServiceFixture fixture;
        fixture.server.reply(UploadPath, FakeReply::json(Stored).onRelease());
        FileUpload upload;
        QSignalSpy finished(&upload, &FileTransfer::finished);
        upload.cancel(); // before it has begun
        upload.start(fixture.makeFile(QStringLiteral("a.png"), "x"), QStringLiteral("head"));
        QTRY_COMPARE(fixture.server.requests().size(), sent);
        upload.cancel();
        upload.cancel();
        QVERIFY(finished.isEmpty());
        QVERIFY(!resultOf(finished).ok);
        fixture.server.release();
        FileUpload next; // by its end, the other would have come to one, too
        QSignalSpy nextFinished(&next, &FileTransfer::finished);
        fixture.server.reply(UploadPath, FakeReply::json(Stored));
        next.start(fixture.folder.filePath(QStringLiteral("a.png")), QStringLiteral("head"));
        QVERIFY(resultOf(nextFinished).ok);
        QCOMPARE(finished.size(), 1);
        QCOMPARE(fixture.server.requests().size(), sent + 1);
    }

    void partsArriveInOrder()
    {
        ServiceFixture fixture;
        fixture.server.reply(ObjectPath,
                             FakeReply::json(R"({"SNRetCode":"0","result":{"objectId":"o&1"}})"));
        fixture.server.reply(PartPath, FakeReply::json(PartStored));
        fixture.server.reply(CompletePath, FakeReply::json(Stored));
        const QByteArray bytes = manyBytes();
        MultipartUpload upload;
        QSignalSpy finished(&upload, &FileTransfer::finished);
        QSignalSpy progress(&upload, &FileTransfer::progress);
        upload.start(fixture.makeFile(QStringLiteral("film.bin"), bytes));
        const HttpResponseData result = resultOf(finished);
        QVERIFY2(result.ok, qPrintable(result.message));
        QCOMPARE(result.fileName, QStringLiteral("u1_3.png"));

        const QVector<FakeRequest> sent = fixture.server.requests();
        QCOMPARE(sent.size(), 5);
        QCOMPARE(sent.first().body, QByteArray("fileName=film.bin&fileSize=") +
                                        QByteArray::number(bytes.size()) + "&md5=" + md5(bytes));
        QByteArray received;
        for (int i = 1; i <= 3; ++i) {
            const QByteArray form = sent.at(i).body;
            QCOMPARE(partOf(form, "objectId"), QByteArray("o&1"));
            QCOMPARE(partOf(form, "partNumber"), QByteArray::number(i));
            QCOMPARE(partOf(form, "md5"), md5(partOf(form, "file")));
            received += partOf(form, "file");
        }
        QVERIFY(received == bytes);
        QCOMPARE(sent.last().body, QByteArray("objectId=o%261&parts=3"));

        qint64 before = 0;
        for (const QVariantList &step : qAsConst(progress)) {
            QVERIFY(step.value(0).toLongLong() >= before);
            before = step.value(0).toLongLong();
            QCOMPARE(step.value(1).toLongLong(), qint64(bytes.size()));
        }
        QCOMPARE(before, qint64(bytes.size()));
    }

    void failedPartIsSentAgain_data()
    {
        // replies: to the parts
        const Rows<QVector<FakeReply>, bool, int> row{"replies", "ok", "sendings"};
        const FakeReply good = FakeReply::json(PartStored);
        const FakeReply bad = FakeReply::json(Refused);
        const FakeReply forbidden = FakeReply::of(403);
        using Replies = QVector<FakeReply>;
        row("second sending", Replies{FakeReply::of(503), good}, true, 2);
        row("last sending", Replies{bad, bad, bad, good}, true, 4);
        row("given up", Replies{bad, bad, bad, bad, good}, false, 4);
        row("each part has its own", Replies{bad, bad, good, bad, bad, good}, true, 6);
        row("authority renewed", Replies{forbidden, good}, true, 2);
    }

    void failedPartIsSentAgain()
    {
        QFETCH(QVector<FakeReply>, replies);
        QFETCH(bool, ok);
        ServiceFixture fixture;
        fixture.server.reply(ObjectPath, FakeReply::json(Begun));
        fixture.server.reply(PartPath, replies);
        fixture.server.reply(RenewPath,
                             FakeReply::json(R"({"SNRetCode":"0","result":{"token":"t9"}})"));
        fixture.server.reply(CompletePath, FakeReply::json(Stored));
        fixture.server.reply(AbortPath, FakeReply::json(R"({"SNRetCode":"0"})"));
        MultipartUpload upload;
        QSignalSpy finished(&upload, &FileTransfer::finished);
        const int parts = replies.count() > 5 ? 2 : 1;
        const QByteArray bytes(int(MultipartUpload::PartSize) * (parts - 1) + 1, 'x');
        upload.start(fixture.makeFile(QStringLiteral("a.bin"), bytes));
        const HttpResponseData result = resultOf(finished);
        QVERIFY2(result.ok == ok, qPrintable(result.message));
        QCOMPARE(result.code, ok ? 0 : 1);
        QTEST(fixture.server.count(PartPath), "sendings");
        QCOMPARE(fixture.server.count(CompletePath), ok ? 1 : 0);
        QTRY_COMPARE(fixture.server.count(AbortPath), ok ? 0 : 1);
        const bool renewed = fixture.server.count(RenewPath) > 0;
        QCOMPARE(renewed, replies.first().status == 403);
        if (renewed)
            QCOMPARE(fixture.server.requests().at(3).header("Token"), QByteArray("t9"));
    }

    // Whichever way it ends, the back end is told to forget what it has.
    void partsAreForgotten_data()
    {
        const Rows<bool> row{"isDeleted"};
        row("cancelled", false);
        row("deleted", true);
    }

    void partsAreForgotten()
    {
        QFETCH(bool, isDeleted);
        ServiceFixture fixture;
        fixture.server.reply(ObjectPath, FakeReply::json(Begun));
        fixture.server.reply(PartPath, FakeReply::json(PartStored).onRelease());
        fixture.server.reply(AbortPath, FakeReply::json(R"({"SNRetCode":"0"})"));
        auto upload = std::make_unique<MultipartUpload>();
        QSignalSpy finished(upload.get(), &FileTransfer::finished);
        upload->start(fixture.makeFile(QStringLiteral("a.bin"), "abc"));
        QTRY_COMPARE(fixture.server.count(PartPath), 1);
        if (isDeleted)
            upload.reset();
        else
            upload->cancel();
        QTRY_COMPARE(fixture.server.count(AbortPath), 1);
        QCOMPARE(fixture.server.last().body, QByteArray("objectId=o1"));
        QTRY_COMPARE(finished.size(), isDeleted ? 0 : 1);
        QCOMPARE(fixture.server.count(CompletePath), 0);
    }
};

FRIENDUI_TEST(TstFileUploads)
#include "tst_fileuploads.moc"
