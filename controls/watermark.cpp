#include "controls/watermark.h"

#include "common/clientpaths.h"
#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/skin.h"

#include <QDir>
#include <QFile>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QScreen>
#include <QtMath>

#include <cmath>

namespace {

constexpr int FontPixels = 14; // at 96 dots per inch
constexpr int TileSpace = 200; // pixels, as all below
constexpr int LineSpace = 50;
constexpr int ColumnOverlap = 90;
constexpr int OddRowShift = 60;
constexpr int TextGap = 100;
// A file name holds 255 bytes; the rest is for the colour and the suffix.
constexpr int MaximumNameBytes = 200;

QString colourText()
{
    const QString text = Skin::instance().watermarkColor();
    if (!text.isEmpty())
        return text;
    // The usual grey would outshine the text of a dark page.
    return Skin::instance().isDark() ? QStringLiteral("#2a2d33") : QStringLiteral("#e8e9eb");
}

QColor colourOf(const QString &text)
{
    const QColor named(text);
    return Skin::color(text, named.isValid() ? named : QColor(0xe8, 0xe9, 0xeb));
}

VcardInfo ownProfile()
{
    VcardInfo profile;
    ctx().vcard(ctx().ownJid(), &profile);
    return profile;
}

QString ownName(const VcardInfo &profile)
{
    FriendData own;
    own.jid = ctx().ownJid();
    return contactDisplayName(own, profile);
}

QFont textFont()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const qreal dpi = screen ? screen->logicalDotsPerInch() : 96;
    return skinFont(qRound(FontPixels * dpi / 96));
}

QImage draw(const QString &first, const QString &second, const QColor &colour)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const QFont font = textFont();
    const QFontMetrics metrics(font);
    const Watermark::Tiles tiles = Watermark::tiles(
        screen ? screen->availableSize() : QSize(1920, 1080), metrics.horizontalAdvance(first),
        metrics.horizontalAdvance(second), metrics.height(), metrics.ascent());
    // One byte a pixel: only the opacity differs, and the picture may be large.
    QImage opacity(tiles.image, QImage::Format_Alpha8);
    if (opacity.isNull())
        return opacity;
    opacity.fill(0);
    QPainter painter(&opacity);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.rotate(-Watermark::AngleDegrees);
    for (const Watermark::Cell &cell : tiles.cells) {
        painter.drawText(cell.first, first);
        painter.drawText(cell.second, second);
    }
    painter.end();
    QVector<QRgb> colours;
    for (int alpha = 0; alpha < 256; ++alpha)
        colours.append(qRgba(colour.red(), colour.green(), colour.blue(), alpha));
    opacity.reinterpretAsFormat(QImage::Format_Indexed8);
    opacity.setColorTable(colours);
    return opacity;
}

// Complete or not at all: a file that exists is never drawn again.
bool store(const QImage &image, const QString &file)
{
    QSaveFile out(file);
    return !image.isNull() && out.open(QIODevice::WriteOnly) && image.save(&out, "PNG") &&
           out.commit();
}

} // namespace

Watermark::Tiles Watermark::tiles(const QSize &desktop, int firstWidth, int secondWidth,
                                  int fontHeight, int ascent)
{
    Tiles result;
    const double slope = std::tan(Angle);
    result.image = QSize(int(desktop.width() / std::cos(Angle)),
                         int(slope * desktop.width() + desktop.height()));
    const int tileWidth = firstWidth + secondWidth + TileSpace;
    const int lineHeight = fontHeight + LineSpace;
    const int rows = qCeil(double(result.image.height()) / lineHeight);
    const int columns = qCeil(double(result.image.width()) / (tileWidth - ColumnOverlap));
    result.cells.reserve(rows * columns);
    for (int row = 0; row < rows; ++row) {
        const int top = row * lineHeight;
        // Turned, this keeps the beginnings of all rows on the left edge.
        const double left = (row % 2 ? OddRowShift : 0) - slope * top;
        for (int column = 0; column < columns; ++column) {
            const QPoint at(qRound(left + column * tileWidth), top + ascent);
            result.cells.append({at, at + QPoint(firstWidth + TextGap, 0)});
        }
    }
    return result;
}

QString Watermark::fileName(const QString &userName, const QString &colour)
{
    const auto safe = [](QString text) {
        const QString forbidden = QStringLiteral("\\/:*?\"<>|");
        for (QChar &c : text) {
            if (forbidden.contains(c) || c.category() == QChar::Other_Control)
                c = QLatin1Char('_');
        }
        return text;
    };
    QString name = safe(userName);
    while (name.toUtf8().size() > MaximumNameBytes)
        name.chop(name.at(name.size() - 1).isLowSurrogate() ? 2 : 1);
    return name + QLatin1Char('_') + safe(colour).left(32) + QStringLiteral(".png");
}

QString Watermark::sheet(const QString &objectName, const QString &file)
{
    // Between quotes only where a bare address could end too early.
    const auto isPlain = [](QChar c) {
        return c.isLetterOrNumber() || QStringLiteral(" /._-:#,@").contains(c);
    };
    QString url = file;
    if (!std::all_of(url.cbegin(), url.cend(), isPlain)) {
        url.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
        url.replace(QLatin1Char('"'), QLatin1String("\\\""));
        url = QLatin1Char('"') + url + QLatin1Char('"');
    }
    return QStringLiteral("QWidget#") + objectName + QStringLiteral("{background-image: url(") +
           url + QStringLiteral(");} ");
}

QString watermarkFile()
{
    const QString userFolder = ClientPaths::userFolder();
    if (userFolder.isEmpty())
        return QString();
    const VcardInfo profile = ownProfile();
    const QString name = ownName(profile);
    const QString colour = colourText();
    const QString folder = userFolder + QStringLiteral("/waterMark");
    const QString file = folder + QLatin1Char('/') + Watermark::fileName(name, colour);
    if (QFile::exists(file))
        return file;
    const QString code = displayText(profile.employeeCode);
    const QString second =
        code.isEmpty() ? name : name + QLatin1Char('(') + code + QLatin1Char(')');
    if (!QDir().mkpath(folder) ||
        !store(draw(QObject::tr("productName"), second, colourOf(colour)), file)) {
        LOG_ERROR("the watermark could not be stored: " << logText(file));
        return QString();
    }
    return file;
}

QString watermarkSheet(const QString &objectName, bool show)
{
    return Watermark::sheet(objectName, show ? watermarkFile() : QString());
}
