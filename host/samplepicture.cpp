#include "host/samplepicture.h"

#include "host/messagingcore.h"
#include "sample/samplechannels.h"

#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPixmap>

namespace {
constexpr int Side = 96; // pixels
constexpr int HueStep = 67;

int hueOf(const QString &name, int variant)
{
    int hue = variant * HueStep;
    for (const QChar c : name)
        hue = (hue * 31 + c.unicode()) % 360;
    return (hue + variant * HueStep) % 360;
}

void drawUnlessThere(const QString &folder, const QString &fileName, const QString &name)
{
    if (!fileName.isEmpty() && !QFileInfo::exists(folder + QLatin1Char('/') + fileName))
        SamplePicture::draw(folder, fileName, name);
}
} // namespace

QString SamplePicture::draw(const QString &folder, const QString &fileName, const QString &text,
                            int variant)
{
    QPixmap picture(Side, Side);
    picture.fill(QColor::fromHsv(hueOf(fileName, variant), 150, 150));
    QPainter painter(&picture);
    QFont font = painter.font();
    font.setPixelSize(Side / 2);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(picture.rect(), Qt::AlignCenter, text.trimmed().left(1).toUpper());
    painter.end();
    const QString path = folder + QLatin1Char('/') + fileName;
    return QDir().mkpath(folder) && picture.save(path) ? path : QString();
}

void SamplePicture::drawServices(const MessagingCore &core, const QString &folder)
{
    const QList<CSChannelData> channels = core.channels();
    for (const CSChannelData &channel : channels)
        drawUnlessThere(folder, channel.photoName, channel.name);
    for (const SampleServiceNumber &number : sampleServiceNumbers()) {
        if (number.hasIcon)
            drawUnlessThere(folder, number.code + QStringLiteral(".png"), number.name);
    }
}
