#include "controls/avatarstore.h"
#include "tests/support/fakehost.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QBuffer>
#include <QDataStream>
#include <QImage>
#include <QTemporaryDir>

namespace {

QByteArray encoded(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

// The left half red, the right half blue.
QImage halves(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixelColor(x, y, x < width / 2 ? Qt::red : Qt::blue);
    }
    return image;
}

quint32 checksum(const QByteArray &bytes) // CRC-32 as PNG has it
{
    quint32 crc = 0xffffffffu;
    for (const char byte : bytes) {
        crc ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) ? 0xedb88320u : 0u);
    }
    return crc ^ 0xffffffffu;
}

// A small PNG whose header claims any size.
QByteArray pngClaiming(quint32 width, quint32 height)
{
    QByteArray png = encoded(halves(8, 8), "PNG");
    QByteArray header;
    QDataStream out(&header, QIODevice::WriteOnly);
    out << width << height;
    png.replace(16, 8, header);
    QByteArray sum;
    QDataStream(&sum, QIODevice::WriteOnly) << checksum(png.mid(12, 17));
    png.replace(29, 4, sum);
    return png;
}

// A JPEG that says of itself to be turned by 90 degrees.
QByteArray turnedJpeg()
{
    QByteArray exif("\xff\xe1", 2);
    const QByteArray body(
        "Exif\0\0MM\0\x2a\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0\0\0\0\0", 32);
    exif.append(char(0)).append(char(body.size() + 2)).append(body);
    QByteArray jpeg = encoded(halves(64, 64), "JPEG");
    return jpeg.insert(2, exif);
}

// Two frames, the first red.
QByteArray animatedGif()
{
    return QByteArray("GIF89a\x01\0\x01\0\x80\0\0\xff\0\0\0\0\xff"
                      "\x2c\0\0\0\0\x01\0\x01\0\0\x02\x02\x44\x01\0"
                      "\x2c\0\0\0\0\x01\0\x01\0\0\x02\x02\x4c\x01\0\x3b",
                      50);
}

} // namespace

class TstAvatarStore : public QObject
{
    Q_OBJECT

private slots:
    void loads_data()
    {
        const Rows<QByteArray, QString, bool> row{"bytes", "name", "loads"};
        const QByteArray png = encoded(halves(64, 64), "PNG");
        row("png", png, "a.png", true);
        row("jpeg", encoded(halves(64, 64), "JPEG"), "a.jpg", true);
        row("bmp", encoded(halves(64, 64), "BMP"), "a.bmp", true);
        row("gif", animatedGif(), "a.gif", true);
        row("wrong suffix", png, "b.jpg", true);
        row("no suffix", png, "noname", true);
        row("text", "<svg/>", "t.png", false);
        row("other format", encoded(halves(64, 64), "PPM"), "p.ppm", false);
        row("other format in disguise", encoded(halves(64, 64), "XPM"), "p.png", false);
        row("vector",
            "<svg xmlns='http://www.w3.org/2000/svg' width='64' "
            "height='64'><rect width='64' height='64'/></svg>",
            "v.svg", false);
        row("empty", QByteArray(), "e.png", false);
        row("header only", png.left(33), "h.png", false);
        row("noise", QByteArray(5000, '\xa7'), "n.png", false);
        row("bomb", pngClaiming(30000, 30000), "bomb.png", false);
        row("long bomb", pngClaiming(8193, 1), "long.png", false);
        row("area bomb", pngClaiming(8000, 8000), "area.png", false);
        row("overflowing", pngClaiming(0x7fffffff, 0x7fffffff), "over.png", false);
        row("file too large", png + QByteArray(9 * 1024 * 1024, '\0'), "l.png", false);
    }

    void loads()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, name);
        QFETCH(bool, loads);
        const QImage image = AvatarStore::load(fileWith(bytes, name), 48);
        QCOMPARE(!image.isNull(), loads);
        if (loads)
            QCOMPARE(image.size(), QSize(48, 48));
        QVERIFY(AvatarStore::load(m_folder.filePath(QStringLiteral("missing.png")), 48).isNull());
        QVERIFY(AvatarStore::load(m_folder.path(), 48).isNull());
    }

    void turnsAsThePictureSays()
    {
        const QImage image =
            AvatarStore::load(fileWith(turnedJpeg(), QStringLiteral("turned.jpg")), 64);
        QCOMPARE(image.size(), QSize(64, 64));
        // Turned to the right: what was left is above.
        QVERIFY(image.pixelColor(32, 8).red() > 200);
        QVERIFY(image.pixelColor(32, 56).blue() > 200);
        QVERIFY(image.pixelColor(56, 8).red() > 200);
    }

    void cutsToASquare_data()
    {
        const Rows<QSize> row{"size"};
        row("wide", QSize(300, 100));
        row("high", QSize(100, 300));
        row("a line", QSize(8192, 1));
        row("a column", QSize(1, 8192));
        row("a dot", QSize(1, 1));
    }

    // The middle of the picture, as large as was asked for.
    void cutsToASquare()
    {
        QFETCH(QSize, size);
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::blue);
        const int side = qMin(size.width(), size.height());
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x)
                image.setPixelColor((size.width() - side) / 2 + x, (size.height() - side) / 2 + y,
                                    Qt::red);
        }
        const QImage loaded =
            AvatarStore::load(fileWith(encoded(image, "PNG"), QStringLiteral("cut.png")), 64);
        QCOMPARE(loaded.size(), QSize(64, 64));
        for (const QPoint &at : {QPoint(4, 4), QPoint(32, 32), QPoint(59, 59)})
            QVERIFY2(loaded.pixelColor(at).red() > 230 && loaded.pixelColor(at).blue() < 30,
                     qPrintable(loaded.pixelColor(at).name()));
    }

    void decodesLater()
    {
        const QString file = fileWith(encoded(halves(64, 64), "PNG"), QStringLiteral("later.png"));
        QSignalSpy ready(&AvatarStore::instance(), &AvatarStore::pictureReady);
        QVERIFY(!ask(file).isNull()); // the generated one
        QVERIFY(!isShown(file));
        QTRY_COMPARE(ready.count(), 1); // decoded once, though asked twice
        QCOMPARE(ready.first().first().toString(), file);
        QVERIFY(isShown(file));
        QVERIFY(!AvatarStore::instance().isBusy());
        ask(file, 1.5);
        QTRY_COMPARE(ready.count(), 2);
        QCOMPARE(ask(file, 1.5).size(), QSize(48, 48));
    }

    void remembersFailures()
    {
        const QString file = fileWith(pngClaiming(30000, 30000), QStringLiteral("bad.png"));
        QSignalSpy ready(&AvatarStore::instance(), &AvatarStore::pictureReady);
        ask(file);
        QTRY_COMPARE(ready.count(), 1);
        QVERIFY(!ask(file).isNull());
        QVERIFY(!AvatarStore::instance().isBusy()); // not tried again
    }

    void readsAgain()
    {
        const QString file = fileWith("no picture", QStringLiteral("again.png"));
        QSignalSpy ready(&AvatarStore::instance(), &AvatarStore::pictureReady);
        ask(file);
        QTRY_COMPARE(ready.count(), 1);
        fileWith(encoded(halves(64, 64), "PNG"), QStringLiteral("again.png"));
        QVERIFY(!isShown(file));
        AvatarStore::instance().refresh(file);
        QTRY_VERIFY(isShown(file));
        // Written anew while it is being decoded: the newer picture is shown in the end.
        fileWith("no picture", QStringLiteral("again.png"));
        AvatarStore::instance().refresh(file);
        ready.clear();
        ask(file);
        AvatarStore::instance().refresh(file);
        fileWith(encoded(halves(64, 64), "PNG"), QStringLiteral("again.png"));
        ask(file);
        QTRY_COMPARE(ready.count(), 2);
        QVERIFY(isShown(file));
    }

    void staysBounded()
    {
        // More generated avatars than the cache takes; the first is made anew.
        const auto generated = [](int i) {
            return AvatarStore::instance()
                .avatar(QString(), QStringLiteral("bounded%1").arg(i), QStringLiteral("A"), 128, 2)
                .cacheKey();
        };
        const qint64 first = generated(0);
        QCOMPARE(generated(0), first);
        for (int i = 1; i < 80; ++i) // 256 KiB each
            generated(i);
        QVERIFY(generated(0) != first);
    }

    // Who is no colleague is told from one without a look at the mark, and at once.
    void outsideTheCompany()
    {
        FakeHost host;
        const QString jid = QStringLiteral("eve@other.example");
        const auto avatar = [&] {
            return AvatarStore::instance()
                .avatar(QString(), jid, QStringLiteral("Eve"), 32, 1)
                .toImage();
        };
        const QImage colleague = avatar();
        host.context.cooperation.insert(jid, false);
        const QImage outside = avatar();
        const QPoint ground(6, 16); // beside the letters
        QVERIFY(colleague.pixelColor(ground).lightness() < 160);
        QVERIFY(outside.pixelColor(ground).lightness() > 200);
        host.context.cooperation.clear();
        QCOMPARE(avatar(), colleague);
    }

    void monograms_data()
    {
        const Rows<QString, QString> row{"name", "letters"};
        row("Chinese, three", QString::fromUtf8("张小伟"), QString::fromUtf8("小伟"));
        row("Chinese, one", QString::fromUtf8("张"), QString::fromUtf8("张"));
        row("Latin, two words", "ann smith", "AS");
        row("Latin, three words", "Ann Mary Smith", "AM");
        row("Latin, one word", "ann", "A");
        row("mixed", QString::fromUtf8("Ann 张"), QString::fromUtf8("张"));
        row("nothing", "", "?");
        row("blanks", "  \n ", "?");
        row("signs", "- (", "-");
        row("signs and a word", "(ann)", "(");
        row("digits", "007 bond", "0B");
    }

    void monograms()
    {
        QFETCH(QString, name);
        QFETCH(QString, letters);
        QCOMPARE(AvatarStore::monogram(name), letters);
        QVERIFY(AvatarStore::monogram(QString(100000, QChar(0xd83d)) + name).size() < 12);
        QVERIFY(AvatarStore::monogram(QLatin1Char('a') + QString(100000, QChar(0x301))).size() <
                12);
    }

private:
    QString fileWith(const QByteArray &bytes, const QString &name) const
    {
        writeFile(m_folder.filePath(name), bytes);
        return m_folder.filePath(name);
    }
    static QPixmap ask(const QString &file, qreal ratio = 1)
    {
        return AvatarStore::instance().avatar(file, QStringLiteral("u"), QStringLiteral("Ann Bo"),
                                              32, ratio);
    }
    // The picture's own pixels instead of the generated ones.
    static bool isShown(const QString &file)
    {
        const QColor color = ask(file).toImage().pixelColor(8, 16);
        return color.red() > 240 && color.green() < 20;
    }

    QTemporaryDir m_folder;
};

FRIENDUI_TEST(TstAvatarStore)
#include "tst_avatarstore.moc"
