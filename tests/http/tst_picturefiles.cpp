// Pictures: fetched once, kept, and given up when the user changes.
#include "http/fileservices.h"
#include "tests/http/servicefixture.h"
#include "tests/support/testrunner.h"

namespace {
QString name(int i)
{
    return QStringLiteral("u%1.png").arg(i);
}

FakeReply picture(const FakeRequest &request)
{
    return FakeReply::of(200, "picture of " + request.path);
}

QByteArrayList namesOf(const QVector<FakeRequest> &requests)
{
    QByteArrayList names;
    for (const FakeRequest &request : requests)
        names += request.path.mid(request.path.indexOf('=') + 1);
    return names;
}
} // namespace

class TstPictureFiles : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { PictureFiles::instance().stop(); }

    void fetchedOnceAndKept()
    {
        ServiceFixture fixture;
        fixture.server.replyElsewhere(picture);
        PictureFiles &files = PictureFiles::instance();
        QSignalSpy ready(&files, &PictureFiles::ready);
        QVERIFY(files.file(name(1)).isEmpty());
        QVERIFY(files.file(name(1)).isEmpty());
        QTRY_COMPARE(ready.size(), 1);
        const QString local = files.file(name(1));
        QCOMPARE(ready.first(), (QVariantList{name(1), local}));
        QVERIFY(local.startsWith(fixture.host.baseFolder + QStringLiteral("/u1/headImage/")));
        QVERIFY(contentOf(local).startsWith("picture of"));
        QCOMPARE(fixture.server.requests().size(), 1);
    }

    void namesStayApart()
    {
        ServiceFixture fixture;
        fixture.server.replyElsewhere(picture);
        PictureFiles &files = PictureFiles::instance();
        QSignalSpy ready(&files, &PictureFiles::ready);
        const QStringList names{QStringLiteral("a b.png"), QStringLiteral("a_b.png"),
                                QStringLiteral("A_b.png"), QString::fromUtf8("李.png")};
        for (const QString &each : names)
            files.file(each);
        QTRY_COMPARE(ready.size(), names.size());
        QStringList locals;
        for (const QString &each : names)
            locals += files.file(each).toLower(); // one folder for all cases on some systems
        QCOMPARE(locals.removeDuplicates(), 0);
        for (const QString &unsafe : {QStringLiteral("../x.png"), QString(), QStringLiteral("..")})
            QVERIFY(files.file(unsafe).isEmpty());
        QCOMPARE(fixture.server.requests().size(), names.size());
    }

    // What the host has of a person is newer than what a service tells.
    void thePicturesOfTheProgram()
    {
        ServiceFixture fixture;
        PictureFiles &files = PictureFiles::instance();
        const QString name = QStringLiteral("7.png");
        const QString local = files.file(name);
        QVERIFY(QFileInfo(local).isAbsolute());
        QVERIFY(local.endsWith(QStringLiteral("/SystemAvatar/7.png")));
        QVERIFY(contentOf(local).startsWith("\x89PNG"));
        QCOMPARE(files.ofPerson(QStringLiteral("u9@corp.example"), name), local);
        fixture.host.user.clear(); // they are everybody's
        QCOMPARE(files.file(name), local);
        QVERIFY(files.file(QStringLiteral("../SystemAvatar/7.png")).isEmpty());
        QCOMPARE(fixture.server.requests().size(), 0);
    }

    void ofPersonByTheHostFirst()
    {
        ServiceFixture fixture;
        PictureFiles &files = PictureFiles::instance();
        const QString jid = QStringLiteral("u1@corp.example");
        const QString photo = QStringLiteral("../../") + name(1);
        QVERIFY(files.ofPerson(jid, QString()).isEmpty());
        fixture.host.headPaths.insert(name(1), QStringLiteral("/of-name.png"));
        QCOMPARE(files.ofPerson(jid, photo), QStringLiteral("/of-name.png"));
        fixture.host.headPaths.insert(jid, QStringLiteral("/of-person.png"));
        QCOMPARE(files.ofPerson(jid, photo), QStringLiteral("/of-person.png"));
        QVERIFY(files.ofRow(QString(), jid).isEmpty()); // the profile names none
        fixture.host.profiles[jid].photoName = photo;
        QCOMPARE(files.ofRow(QString(), jid), QStringLiteral("/of-person.png"));
        QCOMPARE(files.ofRow(QStringLiteral("/of-row.png"), jid), QStringLiteral("/of-row.png"));
        QCOMPARE(fixture.server.requests().size(), 0);
    }

    void unknownIsNotAskedForAgain_data()
    {
        const Rows<int> row{"status"};
        row("unknown", 404);
        row("service is down", 503);
    }

    void unknownIsNotAskedForAgain()
    {
        QFETCH(int, status);
        ServiceFixture fixture;
        fixture.server.replyElsewhere([=](const FakeRequest &request) {
            return request.path.endsWith("u1.png") ? FakeReply::of(status) : picture(request);
        });
        PictureFiles &files = PictureFiles::instance();
        QSignalSpy ready(&files, &PictureFiles::ready);
        for (int round = 0; round < 3; ++round) {
            QVERIFY(files.file(name(1)).isEmpty());
            files.file(name(10 + round)); // whose turn comes after
            QTRY_COMPARE(ready.size(), round + 1);
        }
        QTRY_COMPARE(fixture.server.unanswered(), 0);
        QVERIFY(files.file(name(1)).isEmpty());
        QCOMPARE(namesOf(fixture.server.requests()).count("u1.png"), 1);
    }

    void lastAskedForComesFirst()
    {
        ServiceFixture fixture;
        fixture.server.replyElsewhere([](const FakeRequest &r) { return picture(r).onRelease(); });
        PictureFiles &files = PictureFiles::instance();
        QSignalSpy ready(&files, &PictureFiles::ready);
        for (int i = 0; i < 8; ++i)
            files.file(name(i));
        files.file(name(5)); // asked for again
        while (ready.size() < 8) {
            // One behind the other, whatever connections they come by.
            QTRY_COMPARE(fixture.server.requests().size(),
                         qMin(8, PictureFiles::AtATime + ready.size()));
            fixture.server.release(1);
            QVERIFY(ready.wait(TestPatience));
        }
        QCOMPARE(namesOf(fixture.server.requests()).mid(4),
                 (QByteArrayList{"u5.png", "u7.png", "u6.png", "u4.png"}));
        QCOMPARE(fixture.server.mostUnanswered(), PictureFiles::AtATime);
    }

    void longestWaitingIsGivenUp()
    {
        ServiceFixture fixture;
        fixture.server.replyElsewhere([](const FakeRequest &r) { return picture(r).onRelease(); });
        PictureFiles &files = PictureFiles::instance();
        constexpr int surplus = 3;
        constexpr int all = PictureFiles::AtATime + PictureFiles::MaximumWaiting + surplus;
        for (int i = 0; i < all; ++i)
            files.file(name(i));
        QTRY_COMPARE(fixture.server.requests().size(), PictureFiles::AtATime);
        fixture.server.replyElsewhere(picture);
        QSignalSpy ready(&files, &PictureFiles::ready);
        fixture.server.release();
        QTRY_COMPARE_WITH_TIMEOUT(ready.size(), all - surplus, 60000); // hundreds of files
        for (int i = 0; i < surplus; ++i)
            QVERIFY(!QFile::exists(fixture.host.baseFolder + QStringLiteral("/u1/headImage/") +
                                   name(PictureFiles::AtATime + i)));
    }

    void nothingGoesOnForAnotherUser_data()
    {
        const Rows<QString> row{"next"};
        row("another", "u2");
        row("nobody", "");
    }

    void nothingGoesOnForAnotherUser()
    {
        QFETCH(QString, next);
        ServiceFixture fixture;
        fixture.server.replyElsewhere([](const FakeRequest &r) { return picture(r).onRelease(); });
        PictureFiles &files = PictureFiles::instance();
        QSignalSpy ready(&files, &PictureFiles::ready);
        for (int i = 0; i < 8; ++i)
            files.file(name(i));
        QTRY_COMPARE(fixture.server.requests().size(), PictureFiles::AtATime);
        fixture.host.user = next;
        fixture.server.replyElsewhere(picture);
        QVERIFY(files.file(name(100)).isEmpty());
        fixture.server.release();
        QTRY_COMPARE(ready.size(), next.isEmpty() ? 0 : 1);
        if (!next.isEmpty())
            QVERIFY(files.file(name(100)).contains(QLatin1String("/u2/headImage/")));
        QVERIFY(QDir(fixture.host.baseFolder + QStringLiteral("/u1/headImage"))
                    .entryList(QDir::Files)
                    .isEmpty());
    }
};

FRIENDUI_TEST(TstPictureFiles)
#include "tst_picturefiles.moc"
