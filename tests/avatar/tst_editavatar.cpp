// Changing the own picture: from choosing it to the profile that the host is given.
#include "controls/pictures.h"
#include "plugin/frienduisignalsender.h"
#include "tests/avatar/avatarfixture.h"
#include "tests/support/testrunner.h"

#include <QClipboard>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QPainter>
#include <QWindow>

#include <memory>

Q_DECLARE_METATYPE(FakeReply)

class TstEditAvatar : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_fixture = std::make_unique<AvatarFixture>();
        m_boxes = TipBox::count();
    }
    void cleanup() { m_fixture.reset(); }

    void oneDialog()
    {
        const QPointer<EditAvatar> first = m_fixture->open();
        QCOMPARE(m_fixture->open(), first.data());
        first->close();
        AvatarFixture::settle();
        QVERIFY(!first);
        QVERIFY(m_fixture->open());
    }

    void nothingChanged()
    {
        m_fixture->open();
        m_fixture->save();
        QCOMPARE(TipBox::lastText(), QStringLiteral("notmodify"));
        QVERIFY(m_fixture->dialog->isVisible());
        QCOMPARE(m_fixture->sentProfiles(), 0);
    }

    void thePresentPictureIsNoChange()
    {
        m_fixture->host.context.headPaths.insert(
            m_fixture->own,
            m_fixture->file("mine.jpg", PictureMaker::jpeg(PictureMaker::quarters({200, 200}))));
        m_fixture->open();
        QTRY_VERIFY(m_fixture->cut()->hasPicture());
        QCOMPARE(m_fixture->preview().pixelColor(30, 30).red(), 254);
        m_fixture->save();
        QCOMPARE(TipBox::lastText(), QStringLiteral("notmodify"));
        QTest::mouseClick(m_fixture->button("btnLocalPage"), Qt::LeftButton);
        QTest::keyClick(m_fixture->cut(), Qt::Key_Left);
        m_fixture->save();
        QTRY_COMPARE(m_fixture->sentProfiles(), 1);
    }

    void thePresentPictureIsPreviewedWhole()
    {
        QImage framed(300, 300, QImage::Format_RGB32);
        framed.fill(Qt::red);
        QPainter(&framed).fillRect(60, 60, 180, 180, Qt::blue);
        m_fixture->host.context.headPaths.insert(
            m_fixture->own, m_fixture->file("mine.png", PictureMaker::png(framed)));
        m_fixture->open();
        QTRY_COMPARE(m_fixture->preview().pixelColor(45, 5), QColor(Qt::red));
        QTest::mouseClick(m_fixture->button("btnLocalPage"), Qt::LeftButton);
        QCOMPARE(m_fixture->preview().pixelColor(45, 5), QColor(Qt::blue));
    }

    void aSystemPictureByItsName()
    {
        m_fixture->open();
        m_fixture->chooseSystem(4);
        const QImage drawn(resourcePath(QStringLiteral("Resources/SystemAvatar/5.png")));
        QCOMPARE(m_fixture->preview().size(), QSize(90, 90));
        QCOMPARE(m_fixture->preview("m_SmallAvatarLabel").size(), QSize(40, 40));
        QCOMPARE(m_fixture->preview().pixelColor(45, 5), drawn.pixelColor(100, 10));
        // What the host has learnt since the dialog was opened is kept.
        m_fixture->host.context.profiles[m_fixture->own].sign = QStringLiteral("newer");
        m_fixture->save();
        VcardInfo wanted = m_fixture->host.context.profiles.value(m_fixture->own);
        wanted.photoName = QStringLiteral("5.png");
        QCOMPARE(m_fixture->sent(), wanted);
        AvatarFixture::settle();
        QVERIFY(!m_fixture->dialog);
        QVERIFY(m_fixture->server.requests().isEmpty());
    }

    void aCutPictureIsUploaded()
    {
        m_fixture->open();
        m_fixture->load(3000);
        m_fixture->save();
        QTRY_COMPARE(m_fixture->sentProfiles(), 1);
        VcardInfo wanted = m_fixture->host.context.profiles.value(m_fixture->own);
        wanted.photoName = QStringLiteral("me_7.jpg");
        QCOMPARE(m_fixture->sent(), wanted);
        const QStringList stored = m_fixture->storedFiles();
        QCOMPARE(stored.size(), 1);
        const QString path =
            m_fixture->host.context.baseFolder + QStringLiteral("/me/designHeadImage/") + stored[0];
        QCOMPARE(QImage(path).size(), QSize(800, 800)); // of 1000
        const FakeRequest request = m_fixture->server.last();
        QVERIFY(request.body.contains(contentOf(path)));
        QVERIFY(request.body.contains("name=\"type\"\r\n\r\nhead"));
        AvatarFixture::settle();
        QVERIFY(!m_fixture->dialog);
    }

    void theLastChoiceCounts()
    {
        m_fixture->open();
        m_fixture->load(200);
        m_fixture->chooseSystem(0);
        QTest::mouseClick(m_fixture->button("btnLocalPage"), Qt::LeftButton);
        m_fixture->cut()->setFocus();
        QTest::keyClick(m_fixture->cut(), Qt::Key_Right); // the cut again
        QTest::mouseClick(m_fixture->button("btnSystemPage"), Qt::LeftButton);
        m_fixture->save();
        QTRY_COMPARE(m_fixture->sentProfiles(), 1);
        QCOMPARE(m_fixture->sent().photoName, QStringLiteral("me_7.jpg"));
    }

    void uploadsThatFail_data()
    {
        const Rows<FakeReply> row{"reply"};
        row("refused",
            FakeReply::json(R"({"SNRetCode":"1","SNRetMsg":"no","result":{"fileName":"x.jpg"}})"));
        row("no name", FakeReply::json(R"({"SNRetCode":"0","result":{}})"));
        row("a name that leads elsewhere",
            FakeReply::json(R"({"SNRetCode":"0","result":{"fileName":"../x.jpg"}})"));
        row("no JSON", FakeReply::of(200, "thank you"));
        row("error", FakeReply::of(500));
        FakeReply reply = FakeReply::json(AvatarFixture::Stored);
        row("cut off", reply.dropped(40));
    }
    void uploadsThatFail()
    {
        QFETCH(FakeReply, reply);
        m_fixture->server.reply(AvatarFixture::UploadPath, reply);
        m_fixture->open();
        m_fixture->load(300);
        const QImage before = m_fixture->preview();
        m_fixture->save();
        QVERIFY(!m_fixture->button("btnSave")->isEnabled());
        QTRY_VERIFY(TipBox::count() > m_boxes);
        QCOMPARE(TipBox::lastText(), QStringLiteral("uploadFail"));
        QVERIFY(m_fixture->dialog->isVisible());
        QCOMPARE(m_fixture->preview(), before);
        QCOMPARE(m_fixture->sentProfiles(), 0);
        m_fixture->server.reply(AvatarFixture::UploadPath, FakeReply::json(AvatarFixture::Stored));
        m_fixture->save(); // and now it works
        QTRY_COMPARE(m_fixture->sentProfiles(), 1);
    }

    void showsThatItIsBeingUploaded()
    {
        m_fixture->server.reply(AvatarFixture::UploadPath,
                                FakeReply::json(AvatarFixture::Stored).onRelease());
        m_fixture->open();
        m_fixture->load(300);
        m_fixture->save();
        QTRY_COMPARE(m_fixture->server.unanswered(), 1);
        const auto *progress =
            m_fixture->dialog->findChild<QWidget *>(QStringLiteral("uploadProgress"));
        QVERIFY(progress->isVisible());
        m_fixture->save();
        m_fixture->dialog->slot_SaveBtnclicked();
        m_fixture->dialog->loadLocalImage(m_fixture->folder.filePath(QStringLiteral("photo.png")));
        QVERIFY(!m_fixture->isBusy());
        m_fixture->server.release();
        QTRY_COMPARE(m_fixture->sentProfiles(), 1);
        QCOMPARE(m_fixture->server.count(AvatarFixture::UploadPath), 1);
    }

    void nothingAfterItsEnd_data()
    {
        const Rows<int> row{"end"};
        row("closed", 0);
        row("logged out", 1);
        row("another user", 2);
        row("another user, unannounced", 3);
    }
    void nothingAfterItsEnd()
    {
        QFETCH(int, end);
        m_fixture->server.reply(AvatarFixture::UploadPath,
                                FakeReply::json(AvatarFixture::Stored).onRelease());
        m_fixture->open();
        m_fixture->load(300);
        m_fixture->save();
        QTRY_COMPARE(m_fixture->server.unanswered(), 1);
        if (end >= 2)
            m_fixture->host.context.user = QStringLiteral("other");
        if (end == 0)
            m_fixture->dialog->close();
        else if (end == 1)
            emit FriendUISignalSender::instance()->signal_logout();
        else if (end == 2)
            emit FriendUISignalSender::instance()->signal_login();
        m_fixture->server.release();
        QTRY_VERIFY(!m_fixture->dialog);
        QTRY_COMPARE(m_fixture->server.unanswered(), 0);
        AvatarFixture::settle();
        QCOMPARE(m_fixture->sentProfiles(), 0);
        QCOMPARE(TipBox::count(), m_boxes);
    }

    void cannotBeSavedNow()
    {
        m_fixture->open();
        m_fixture->chooseSystem(1);
        m_fixture->host.context.settings.setConnected(false);
        m_fixture->save();
        QCOMPARE(TipBox::lastText(), QStringLiteral("notexecuteoperation"));
        m_fixture->host.context.settings.setConnected(true);
        QCOMPARE(m_fixture->sentProfiles(), 0);
        m_fixture->save();
        QCOMPARE(m_fixture->sentProfiles(), 1);
    }

    void anUnknownProfileIsNotWipedOut()
    {
        m_fixture->host.context.profiles.clear();
        m_fixture->open();
        QCOMPARE(m_fixture->host.count(Outbound::RequestProfile), 1);
        m_fixture->chooseSystem(1);
        m_fixture->save();
        QCOMPARE(TipBox::lastText(), QStringLiteral("ownProfileUnknown"));
        QCOMPARE(m_fixture->sentProfiles(), 0);
    }

    void notStoredHere()
    {
        writeFile(m_fixture->host.context.baseFolder, "no folder");
        m_fixture->open();
        m_fixture->load(300);
        m_fixture->save();
        QTRY_VERIFY(TipBox::count() > m_boxes);
        QCOMPARE(TipBox::lastText(), QStringLiteral("pictureNotStored"));
        QVERIFY(m_fixture->button("btnSave")->isEnabled());
        QVERIFY(m_fixture->server.requests().isEmpty());
    }

    void whatCannotBeOpened_data()
    {
        const Rows<QString, QByteArray, QString> row{"name", "bytes", "text"};
        const QByteArray png = PictureMaker::png(PictureMaker::quarters({9, 9}));
        row("not there", "", "", "filenotexistscannotmodify");
        row("another suffix", "a.gif", png, "typeerrorcannotmodify");
        row("no picture", "a.png", "text", "typeerrorcannotmodify");
        row("bomb", "a.png", PictureMaker::pngBomb(30000), "pictureTooLarge");
    }
    void whatCannotBeOpened()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        m_fixture->open();
        m_fixture->load(200);
        const QImage before = m_fixture->preview();
        const QString path = name.isEmpty() ? m_fixture->folder.filePath(QStringLiteral("none.png"))
                                            : m_fixture->file(qPrintable(name), bytes);
        m_fixture->dialog->loadLocalImage(path);
        QTRY_VERIFY(TipBox::count() > m_boxes);
        QTEST(TipBox::lastText(), "text");
        QCOMPARE(m_fixture->preview(), before);
        QVERIFY(m_fixture->button("btnSave")->isEnabled());
    }

    void theLastOneOpenedIsShown()
    {
        m_fixture->open();
        const QString large =
            m_fixture->file("A.PNG", PictureMaker::png(PictureMaker::quarters({2000, 1000})));
        const QString small =
            m_fixture->file("b.png", PictureMaker::png(PictureMaker::quarters({150, 150})));
        m_fixture->dialog->loadLocalImage(large);
        QFile::remove(large); // whether it was read in time is all the same
        m_fixture->dialog->loadLocalImage(small);
        QTRY_VERIFY(!m_fixture->isBusy());
        QCOMPARE(m_fixture->cut()->size(), QSize(150, 150));
        QCOMPARE(TipBox::count(), m_boxes);
    }

    void closedWhileItOpens()
    {
        m_fixture->open();
        m_fixture->dialog->loadLocalImage(
            m_fixture->file("a.png", PictureMaker::png(PictureMaker::quarters({2000, 1000}))));
        m_fixture->dialog->close();
        AvatarFixture::settle();
        QVERIFY(!m_fixture->dialog);
        m_fixture->open();
        m_fixture->load(100); // comes after the other
        QCOMPARE(m_fixture->cut()->size(), QSize(100, 100));
    }

    void droppedAndPasted()
    {
        m_fixture->open();
        QMimeData file;
        file.setUrls({QUrl::fromLocalFile(
            m_fixture->file("a.png", PictureMaker::png(PictureMaker::quarters({130, 140}))))});
        // As from another program, onto one of the dialog's parts.
        QWindow *window = m_fixture->dialog->windowHandle();
        const QPoint at = m_fixture->dialog->rect().center();
        QDragEnterEvent enter(at, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(at, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &drop);
        QTRY_COMPARE(m_fixture->cut()->size(), QSize(130, 140));
        QGuiApplication::clipboard()->setImage(PictureMaker::quarters({170, 160}));
        QTest::keySequence(m_fixture->dialog, QKeySequence::Paste);
        QTRY_COMPARE(m_fixture->cut()->size(), QSize(170, 160));
        QGuiApplication::clipboard()->setText(QStringLiteral("no picture"));
        QTest::keySequence(m_fixture->dialog, QKeySequence::Paste);
        QVERIFY(!m_fixture->isBusy());
    }

    void theButtonAsksForPictures()
    {
        m_fixture->open();
        m_fixture->dialog->slot_changeLocalPage();
        QTest::mouseClick(m_fixture->button("btnUpload"), Qt::LeftButton);
        auto *files = m_fixture->dialog->findChild<QFileDialog *>();
        QVERIFY(files);
        QCOMPARE(files->windowTitle(), QStringLiteral("selectpic"));
        QCOMPARE(files->nameFilters(),
                 QStringList(QStringLiteral("filetype (*.jpg *.jpeg *.png)")));
        emit files->fileSelected(
            m_fixture->file("a.png", PictureMaker::png(PictureMaker::quarters({99, 98}))));
        QTRY_COMPARE(m_fixture->cut()->size(), QSize(99, 98));
    }

    void truePaths()
    {
        const EditAvatar *dialog = m_fixture->open();
        const QString file = m_fixture->file("me.jpeg", "x");
        QCOMPARE(dialog->getTrueFilePath(file), file);
        QCOMPARE(dialog->getTrueFilePath(file.chopped(5)), file);
        const QString nobody = QStringLiteral("Resources/images/FriendDetail/defaultHead.png");
        QVERIFY(dialog->getTrueFilePath(QString()).endsWith(nobody));
        QVERIFY(dialog->getTrueFilePath(m_fixture->folder.path()).endsWith(nobody));
    }

private:
    std::unique_ptr<AvatarFixture> m_fixture;
    int m_boxes = 0; // shown before
};

FRIENDUI_TEST(TstEditAvatar)
#include "tst_editavatar.moc"
