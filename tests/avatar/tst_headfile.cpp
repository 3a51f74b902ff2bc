// What of a cut picture is stored, and where it cannot be.
#include "detail/avatar/headfile.h"
#include "detail/avatar/headpicture.h"
#include "tests/avatar/picturemaker.h"
#include "tests/support/files.h"
#include "tests/support/smallfilesystem.h"
#include "tests/support/testrunner.h"

#include <QColorSpace>
#include <QRegularExpression>
#include <QTemporaryDir>

class TstHeadFile : public QObject
{
    Q_OBJECT

private slots:
    void sizes_data()
    {
        const Rows<int, int> row{"cut", "stored"};
        row("larger", 1000, 800);
        row("one larger", 801, 800);
        row("just as large", 800, 800);
        row("smaller", 600, 600);
        row("tiny", 1, 1);
    }
    void sizes()
    {
        QFETCH(int, cut);
        QFETCH(int, stored);
        const QString file = HeadFile::store(
            HeadFile::finished(PictureMaker::quarters(QSize(cut, cut))), m_folder.path());
        const QImage image(file, "jpg");
        QCOMPARE(image.size(), QSize(stored, stored));
    }

    void nothingButPixels()
    {
        const QString original = m_folder.filePath(QStringLiteral("original.jpg"));
        writeFile(original, PictureMaker::jpegHeld(PictureMaker::quarters(QSize(200, 200)), 6));
        QVERIFY(contentOf(original).contains("GPS"));
        QImage cut = HeadPicture::load(original, QSize(300, 300)).image;
        cut.setText(QStringLiteral("Comment"), QStringLiteral("at home"));
        cut.setColorSpace(QColorSpace(QColorSpace::SRgb));
        const QByteArray stored =
            contentOf(HeadFile::store(HeadFile::finished(cut), m_folder.path()));
        QVERIFY(stored.startsWith("\xff\xd8"));
        for (const char *trace : {"Exif", "GPS", "at home", "ICC_PROFILE"})
            QVERIFY2(!stored.contains(trace), trace);
    }

    void whiteWhereOneSeesThrough()
    {
        QImage clear(100, 100, QImage::Format_ARGB32_Premultiplied);
        clear.fill(Qt::transparent);
        QCOMPARE(HeadFile::finished(clear).pixelColor(50, 50), QColor(Qt::white));
    }

    void eachUnderItsOwnName()
    {
        const QString folder = m_folder.filePath(QStringLiteral("deep/in"));
        const QImage picture = PictureMaker::quarters(QSize(8, 8));
        QStringList names;
        for (int i = 0; i < 20; ++i)
            names += HeadFile::store(picture, folder);
        QVERIFY(!names.contains(QString()));
        QCOMPARE(names.removeDuplicates(), 0);
        const QRegularExpression form(QStringLiteral("/deep/in/\\d{17}\\.jpg$"));
        QVERIFY2(form.match(names.first()).hasMatch(), qPrintable(names.first()));
    }

    void whereItCannotBeStored()
    {
        const QImage picture = PictureMaker::quarters(QSize(800, 800));
        QVERIFY(HeadFile::store(picture, QString()).isEmpty());
        const QString file = m_folder.filePath(QStringLiteral("file"));
        writeFile(file, "no folder");
        QVERIFY(HeadFile::store(picture, file).isEmpty());
        SmallFileSystem disk(m_folder.filePath(QStringLiteral("disk")), QStringLiteral("8k"));
        if (!disk.isMounted())
            QSKIP("no file system can be mounted here");
        QImage noise(800, 800, QImage::Format_RGB32);
        for (int y = 0; y < 800; ++y)
            for (int x = 0; x < 800; ++x)
                noise.setPixel(x, y, QRgb(x * 7919 + y * 104729) * 2654435761U);
        QVERIFY(HeadFile::store(noise, disk.folder()).isEmpty());
        QVERIFY(QDir(disk.folder()).entryList(QDir::Files).isEmpty());
        QVERIFY(disk.makeReadOnly());
        QVERIFY(HeadFile::store(PictureMaker::quarters(QSize(8, 8)), disk.folder()).isEmpty());
    }

    void thumbnailsAreSharp()
    {
        QPixmap large = QPixmap::fromImage(PictureMaker::quarters(QSize(3000, 3000)));
        const QPixmap small = HeadFile::thumbnail(large, 90, 2);
        QCOMPARE(small.size(), QSize(180, 180));
        QCOMPARE(small.devicePixelRatioF(), 2.0);
        const QImage image = small.toImage();
        QCOMPARE(image.pixelColor(85, 85), QColor(Qt::red));
        QCOMPARE(image.pixelColor(95, 95), QColor(Qt::yellow));
    }

private:
    QTemporaryDir m_folder;
};

FRIENDUI_TEST(TstHeadFile)
#include "tst_headfile.moc"
