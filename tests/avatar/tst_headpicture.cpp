// Pictures as people have them, and as nobody wants them.
#include "detail/avatar/headpicture.h"
#include "tests/avatar/picturemaker.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QColorSpace>
#include <QTemporaryDir>

using HeadPicture::Flaw;
using HeadPicture::Picture;

Q_DECLARE_METATYPE(Flaw)

namespace {
const QSize Bound(300, 300);

// The nearest of the four colours of PictureMaker::quarters(), by its letter.
char colorAt(const QImage &image, int x, int y)
{
    const QColor c = image.pixelColor(x, y);
    if (c.red() > 128)
        return c.green() > 128 ? 'y' : 'r';
    return c.green() > 128 ? 'g' : (c.blue() > 128 ? 'b' : '?');
}

QByteArray colorsOf(const QImage &image)
{
    const int right = image.width() * 3 / 4;
    const int low = image.height() * 3 / 4;
    QByteArray colors;
    for (const QPoint &at : {QPoint(right / 3, low / 3), QPoint(right, low / 3),
                             QPoint(right / 3, low), QPoint(right, low)})
        colors += colorAt(image, at.x(), at.y());
    return colors;
}
} // namespace

class TstHeadPicture : public QObject
{
    Q_OBJECT

private slots:
    void standsUpright_data()
    {
        const Rows<int, QByteArray, QSize> row{"orientation", "colors", "size"};
        const QSize wide(80, 40);
        const QSize high(40, 80);
        row("upright", 1, "rgby", wide);
        row("mirrored", 2, "gryb", wide);
        row("upside down", 3, "ybgr", wide);
        row("upside down, mirrored", 4, "byrg", wide);
        row("mirrored, on its left side", 5, "rbgy", high);
        row("on its left side", 6, "bryg", high);
        row("mirrored, on its right side", 7, "ygbr", high);
        row("on its right side", 8, "gyrb", high);
    }
    void standsUpright()
    {
        QFETCH(int, orientation);
        const Picture picture = loaded(
            PictureMaker::jpegHeld(PictureMaker::quarters(QSize(80, 40)), orientation), "a.jpg");
        QVERIFY(picture.flaw == Flaw::None);
        QTEST(picture.image.size(), "size");
        QTEST(colorsOf(picture.image), "colors");
    }

    void takesWhatPeopleHave_data()
    {
        const Rows<QByteArray, QString> row{"bytes", "name"};
        const QImage image = PictureMaker::quarters(QSize(640, 480));
        row("PNG", PictureMaker::png(image), "a.png");
        row("JPEG", PictureMaker::jpeg(image), "a.jpeg");
        row("PNG, called JPEG", PictureMaker::png(image), "a.jpg");
        row("16 bits a colour", PictureMaker::png(image.convertToFormat(QImage::Format_RGBX64)),
            "a.png");
        row("palette", PictureMaker::png(image.convertToFormat(QImage::Format_Indexed8)), "a.png");
        row("animated", PictureMaker::animatedPng(image, image.mirrored()), "a.png");
        QByteArray withMore = PictureMaker::jpeg(image);
        withMore += QByteArray(1000, 'x');
        row("something after the end", withMore, "a.jpg");
        QImage wide = image;
        wide.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
        row("more colours than a screen", PictureMaker::png(wide), "a.png");
    }
    void takesWhatPeopleHave()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, name);
        const Picture picture = loaded(bytes, name);
        QVERIFY(picture.flaw == Flaw::None);
        QCOMPARE(picture.image.size(), QSize(640, 480));
        QCOMPARE(colorsOf(picture.image), QByteArray("rgby"));
        QCOMPARE(picture.shown.size(), QSize(300, 225));
        QCOMPARE(picture.image.format(), picture.image.hasAlphaChannel()
                                             ? QImage::Format_ARGB32_Premultiplied
                                             : QImage::Format_RGB32);
    }

    void printersColors()
    {
        const Picture picture = HeadPicture::load(sourceFile("tests/avatar/cmyk.jpg"), Bound);
        QVERIFY(picture.flaw == Flaw::None);
        const QColor cyan = picture.image.pixelColor(32, 32);
        QVERIFY2(cyan.red() < 40 && cyan.green() > 200 && cyan.blue() > 200,
                 qPrintable(cyan.name()));
    }

    void refusesTheRest_data()
    {
        const Rows<QByteArray, QString, Flaw> row{"bytes", "name", "flaw"};
        const QImage image = PictureMaker::quarters(QSize(640, 480));
        const QByteArray png = PictureMaker::png(image);
        const QByteArray jpeg = PictureMaker::jpeg(image);
        row("empty", QByteArray(), "a.png", Flaw::NoPicture);
        row("text", QByteArray("no picture"), "a.png", Flaw::NoPicture);
        row("PNG, half", png.left(png.size() / 2), "a.png", Flaw::NoPicture);
        row("JPEG, half", jpeg.left(jpeg.size() / 2), "a.jpg", Flaw::NoPicture);
        row("JPEG, nearly all", jpeg.left(jpeg.size() - 2), "a.jpg", Flaw::NoPicture);
        row("JPEG, its head", jpeg.left(200), "a.jpg", Flaw::NoPicture);
        row("bomb", PictureMaker::pngBomb(30000), "a.png", Flaw::TooLarge);
        row("one pixel too many", PictureMaker::pngBomb(8193), "a.png", Flaw::TooLarge);
        row("drawing", QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"),
            "a.png", Flaw::NoPicture);
        row("GIF", QByteArray::fromBase64("R0lGODlhAQABAIAAAP///wAAACwAAAAAAQABAAACAkQBADs="),
            "a.png", Flaw::NoPicture);
    }
    void refusesTheRest()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, name);
        const Picture picture = loaded(bytes, name);
        QTEST(picture.flaw, "flaw");
        QVERIFY(picture.image.isNull() && picture.shown.isNull());
    }

    void refusesWhatIsNoFile()
    {
        QVERIFY(HeadPicture::load(m_folder.filePath(QStringLiteral("none.png")), Bound).flaw ==
                Flaw::Missing);
        QVERIFY(HeadPicture::load(m_folder.path(), Bound).flaw == Flaw::Missing);
        QFile huge(m_folder.filePath(QStringLiteral("huge.jpg")));
        QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(HeadPicture::MaximumFileSize + 1));
        QVERIFY(HeadPicture::load(huge.fileName(), Bound).flaw == Flaw::TooLarge);
        QVERIFY(HeadPicture::of(QImage(), Bound).flaw == Flaw::NoPicture);
        QVERIFY(HeadPicture::of(QImage(8193, 1, QImage::Format_Mono), Bound).flaw ==
                Flaw::TooLarge);
    }

    void suffixes()
    {
        for (const char *good : {"a.png", "b.PNG", "c.Jpg", "d.e.jpeg"})
            QVERIFY2(HeadPicture::hasRightSuffix(QString::fromLatin1(good)), good);
        for (const char *bad : {"a.gif", "png", "a.png.exe", "a.jp", ""})
            QVERIFY2(!HeadPicture::hasRightSuffix(QString::fromLatin1(bad)), bad);
    }

private:
    Picture loaded(const QByteArray &bytes, const QString &name) const
    {
        writeFile(m_folder.filePath(name), bytes);
        return HeadPicture::load(m_folder.filePath(name), Bound);
    }

    QTemporaryDir m_folder;
};

FRIENDUI_TEST(TstHeadPicture)
#include "tst_headpicture.moc"
