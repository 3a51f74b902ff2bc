// The watermark's picture, its file name and its style sheet.
#include "controls/watermark.h"
#include "tests/support/fakehost.h"
#include "tests/support/files.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTransform>
#include <QWidget>

#include <memory>

namespace {

constexpr int FontHeight = 20;
constexpr int Ascent = 15;

} // namespace

class TstWatermark : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_host = std::make_unique<FakeHost>();
        m_host->context.user = QStringLiteral("me");
        m_host->context.baseFolder = m_folder->path();
        VcardInfo own;
        own.nickName = QString::fromUtf8("王小明");
        own.employeeCode = QStringLiteral("10086");
        m_host->context.profiles.insert(QStringLiteral("me@corp.example"), own);
        setSkin(QStringLiteral("light"));
    }

    void cleanup()
    {
        setSkin(QStringLiteral("light"));
        m_host.reset();
    }

    void tilesCoverTheDesktop_data()
    {
        const Rows<QSize, int> row{"desktop", "textWidth"};
        row("small", QSize(800, 600), 60);
        row("laptop", QSize(1366, 768), 140);
        row("long texts", QSize(1920, 1080), 700);
        row("upright", QSize(1200, 1920), 90);
        row("5K", QSize(5120, 2880), 90);
    }

    void tilesCoverTheDesktop()
    {
        QFETCH(QSize, desktop);
        QFETCH(int, textWidth);
        const Watermark::Tiles tiles =
            Watermark::tiles(desktop, textWidth, textWidth, FontHeight, Ascent);
        QVERIFY(tiles.image.width() >= desktop.width());
        QVERIFY(tiles.image.height() >= desktop.height());
        // How far a row reaches, by its baseline.
        QMap<int, QPair<int, int>> reach;
        for (const Watermark::Cell &cell : tiles.cells) {
            QCOMPARE(cell.second.y(), cell.first.y());
            QCOMPARE(cell.second.x() - cell.first.x(), textWidth + 100);
            auto at = reach.find(cell.first.y());
            if (at == reach.end())
                at = reach.insert(cell.first.y(), {cell.first.x(), 0});
            at->first = qMin(at->first, cell.first.x());
            at->second = qMax(at->second, cell.first.x() + 2 * textWidth + 200);
        }
        // Every point of the desktop, turned back, lies between the ends of a row; the
        // beginning may leave room of a shifted row.
        QTransform turn;
        turn.rotate(-Watermark::AngleDegrees);
        const QTransform back = turn.inverted();
        for (int y = 0; y < desktop.height(); y += 20) {
            for (int x = 0; x < desktop.width(); x += 20) {
                const QPointF at = back.map(QPointF(x, y));
                const int baseline = int(at.y()) / (FontHeight + 50) * (FontHeight + 50) + Ascent;
                const auto row = reach.constFind(baseline);
                QVERIFY2(row != reach.constEnd(),
                         qPrintable(QStringLiteral("%1,%2").arg(x).arg(y)));
                QVERIFY2(at.x() >= row->first - 120 && at.x() <= row->second,
                         qPrintable(QStringLiteral("%1,%2").arg(x).arg(y)));
            }
        }
    }

    void pictureColour_data()
    {
        const Rows<QByteArray, QByteArray, QColor, QString> row{"skin", "told", "seen", "suffix"};
        row("none", "light", QByteArray(), QColor("#e8e9eb"), "_#e8e9eb.png");
        row("components", "light", "180,170,160", QColor(180, 170, 160), "_180,170,160.png");
        row("hexadecimal", "light", "#102030", QColor("#102030"), "_#102030.png");
        row("no colour", "light", "../x", QColor("#e8e9eb"), "_.._x.png");
        row("dark", "dark", QByteArray(), QColor("#2a2d33"), "_#2a2d33.png");
    }

    void pictureColour()
    {
        QFETCH(QByteArray, skin);
        QFETCH(QByteArray, told);
        QFETCH(QColor, seen);
        QFETCH(QString, suffix);
        setSkin(QString::fromLatin1(skin), told.constData());
        const QString file = watermarkFile();
        QVERIFY2(file.endsWith(suffix), qPrintable(file));
        const QImage image = QImage(file).convertToFormat(QImage::Format_ARGB32);
        QRgb strongest = 0;
        for (int y = 0; y < 200; ++y) {
            for (int x = 0; x < 400; ++x) {
                if (qAlpha(image.pixel(x, y)) > qAlpha(strongest))
                    strongest = image.pixel(x, y);
            }
        }
        QVERIFY(qAlpha(strongest) > 200);
        QCOMPARE(QColor(qRed(strongest), qGreen(strongest), qBlue(strongest)), seen);
    }

    void fileNames_data()
    {
        // expected: before "_#e8e9eb.png"
        const Rows<QString, QString> row{"name", "expected"};
        row("plain", "Anna Li", "Anna Li");
        row("Chinese", QString::fromUtf8("王小明"), QString::fromUtf8("王小明"));
        row("up", "../../../etc/passwd", ".._.._.._etc_passwd");
        row("absolute", "C:\\Windows\\x", "C__Windows_x");
        row("forbidden", "a*b?c\"d<e>f|g", "a_b_c_d_e_f_g");
        row("control", QStringLiteral("a\nb\tc").append(QChar(0)), "a_b_c_");
        row("sheet", "x);} Q{}", "x);} Q{}");
        row("long", QString(10000, QLatin1Char('n')), QString(200, QLatin1Char('n')));
        row("long Chinese", QString(500, QChar(0x738b)), QString(66, QChar(0x738b)));
    }

    void fileNames()
    {
        QFETCH(QString, name);
        QFETCH(QString, expected);
        QCOMPARE(Watermark::fileName(name, QStringLiteral("#e8e9eb")),
                 expected + QStringLiteral("_#e8e9eb.png"));
    }

    void sheetStaysASheet_data()
    {
        const Rows<QString, QString> row{"folder", "name"};
        const char *names[] = {"plain name",
                               "x);} QWidget#other{background-color:#00ff00} q{a:url(",
                               "a'b",
                               "a\"b",
                               "a\");} QWidget#other{background-color:#00ff00} q{a:url(\"",
                               "{} () % & ? $ ^ ` < >",
                               "../../up",
                               "back\\slash",
                               "a;b",
                               "#@,!~+=[]"};
        for (const char *name : names)
            row(name, "f", name);
        row("Chinese", "f", QString::fromUtf8("王（小）明"));
#ifdef Q_OS_UNIX
        for (const char *folder : {"it's", "\"quoted\"", "back\\slash", "(round) {curly}", "100 %"})
            row(folder, folder, "name");
#endif
    }

    void sheetStaysASheet()
    {
        QFETCH(QString, folder);
        QFETCH(QString, name);
        const QString path = m_folder->path() + QLatin1Char('/') + folder;
        QVERIFY(QDir().mkpath(path));
        const QString file =
            path + QLatin1Char('/') + Watermark::fileName(name, QStringLiteral("red"));
        QImage red(8, 8, QImage::Format_RGB32);
        red.fill(Qt::red);
        QVERIFY(red.save(file));

        QWidget page;
        page.setObjectName(QStringLiteral("orgWidget"));
        page.setAttribute(Qt::WA_StyledBackground);
        page.resize(60, 60);
        QWidget other(&page);
        other.setObjectName(QStringLiteral("other"));
        other.setAttribute(Qt::WA_StyledBackground);
        other.setGeometry(30, 30, 30, 30);
        page.setStyleSheet(Watermark::sheet(page.objectName(), file));
        const QImage seen = page.grab().toImage();
        QCOMPARE(QColor(seen.pixel(10, 10)), QColor(Qt::red));
        QVERIFY(QColor(seen.pixel(45, 45)) != QColor(0, 255, 0));
    }

    void existingFileIsUsed()
    {
        const QString file = watermarkFile();
        writeFile(file, "as it is");
        QCOMPARE(watermarkFile(), file);
        QCOMPARE(contentOf(file), QByteArray("as it is"));
    }

    void nowhereToStoreIt()
    {
        const QString none = QStringLiteral("QWidget#orgWidget{background-image: url();} ");
        m_host->context.baseFolder.clear();
        QCOMPARE(watermarkSheet(QStringLiteral("orgWidget"), true), none);
        // A file where the folder should be.
        m_host->context.baseFolder = m_folder->path();
        QFile inTheWay(m_folder->filePath(QStringLiteral("me")));
        QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        QCOMPARE(watermarkSheet(QStringLiteral("orgWidget"), true), none);
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FakeHost> m_host;
};

FRIENDUI_TEST(TstWatermark)
#include "tst_watermark.moc"
