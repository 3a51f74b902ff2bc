#include "Resources/frienduiresources.h"
#include "tests/support/testrunner.h"

#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QMovie>
#include <QXmlStreamReader>

namespace {
const auto Root = QStringLiteral(":/FriendUI/Resources/");

QStringList filesBelow(const QString &folder, const QString &pattern)
{
    QStringList files;
    QDirIterator at(folder, {pattern}, QDir::Files, QDirIterator::Subdirectories);
    while (at.hasNext())
        files.append(at.next());
    return files;
}
} // namespace

class TstPictures : public QObject
{
    Q_OBJECT

private slots:
    // Loading the module must not register anything: this is its only moment to see.
    void initTestCase()
    {
        const QString probe = Root + QStringLiteral("images/FriendDetail/defaultHead.png");
        QVERIFY(!QFile::exists(probe));
        initFriendUiResources();
        QVERIFY(QFile::exists(probe));
        initFriendUiResources();
        QVERIFY(QFile::exists(probe));
    }

    void everyPictureHasADoubleSize()
    {
        const QStringList files =
            filesBelow(Root + QStringLiteral("images"), QStringLiteral("*.png"));
        QVERIFY(!files.isEmpty());
        for (const QString &file : files) {
            const QImage image(file);
            QVERIFY2(!image.isNull(), qPrintable(file));
            if (file.contains(QLatin1String("@2x")))
                continue;
            const QString large = file.chopped(4) + QStringLiteral("@2x.png");
            QVERIFY2(QImage(large).size() == image.size() * 2, qPrintable(large));
        }
    }

    // They are tinted by painting a colour through their alpha channel.
    void glyphsAreOneColour()
    {
        QFETCH(QString, pattern);
        const QStringList files = filesBelow(Root + QStringLiteral("images"), pattern);
        QVERIFY(!files.isEmpty());
        for (const QString &file : files) {
            const QImage image = QImage(file).convertToFormat(QImage::Format_ARGB32);
            int opaque = 0;
            int clear = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QRgb pixel = image.pixel(x, y);
                    if (qAlpha(pixel) > 0)
                        QVERIFY2((pixel & 0xffffff) == 0, qPrintable(file));
                    opaque += qAlpha(pixel) > 128 ? 1 : 0;
                    clear += qAlpha(pixel) == 0 ? 1 : 0;
                }
            }
            QVERIFY2(opaque > 0 && clear > 0, qPrintable(file));
        }
    }

    void glyphsAreOneColour_data()
    {
        const Rows<QString> row{"pattern"};
        row("entries", QStringLiteral("entry_*.png"));
        row("arrows", QStringLiteral("arrow_*.png"));
        row("glyphs", QStringLiteral("glyph_*.png"));
    }

    void loadingAnimationTurns()
    {
        for (const int scale : {1, 2}) {
            QMovie movie(Root + QStringLiteral("images/SearchFriend/qora_Loading%1.gif")
                                    .arg(scale == 2 ? QStringLiteral("@2x") : QString()));
            QVERIFY(movie.isValid());
            QVERIFY(movie.frameCount() > 1);
            QVERIFY(movie.jumpToFrame(0));
            const QImage first = movie.currentImage();
            QCOMPARE(first.width(), 32 * scale);
            QCOMPARE(qAlpha(first.pixel(0, 0)), 0);
            QVERIFY(movie.jumpToFrame(1));
            QVERIFY(movie.currentImage() != first);
        }
    }

    void systemAvatars()
    {
        QFile listing(Root + QStringLiteral("BaseConfig/SystemAvatar.xml"));
        QVERIFY(listing.open(QIODevice::ReadOnly));
        QXmlStreamReader reader(&listing);
        QStringList names;
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::StartElement &&
                reader.name() == QLatin1String("avatar"))
                names.append(reader.readElementText());
        }
        QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
        QVERIFY(names.size() >= 24);
        QCOMPARE(names.removeDuplicates(), 0);
        for (const QString &name : names) {
            const QImage image(Root + QStringLiteral("SystemAvatar/") + name);
            QVERIFY2(image.width() == image.height() && image.width() >= 180, qPrintable(name));
        }
    }

    void copiedBesideTheExecutables()
    {
        const QString copy = qEnvironmentVariable("FRIENDUI_BIN") + QStringLiteral("/Resources/");
        for (const QString &file : filesBelow(Root, QStringLiteral("*"))) {
            QFile inside(file);
            QFile outside(copy + file.mid(Root.size()));
            QVERIFY2(outside.open(QIODevice::ReadOnly), qPrintable(outside.fileName()));
            QVERIFY(inside.open(QIODevice::ReadOnly));
            QVERIFY2(inside.readAll() == outside.readAll(), qPrintable(outside.fileName()));
        }
    }
};

FRIENDUI_TEST(TstPictures)
#include "tst_pictures.moc"
