#include "controls/skin.h"

#include "common/context.h"
#include "plugin/frienduisignalsender.h"

#include <QFontDatabase>
#include <QStringList>
#include <QWidget>

namespace {
const Skin::Colors lightColors{QColor(255, 255, 255), QColor(245, 246, 248), QColor(31, 35, 41),
                               QColor(96, 102, 112),  QColor(242, 243, 245), QColor(221, 232, 255),
                               QColor(38, 99, 235),   QColor(222, 224, 227), QColor(204, 48, 48),
                               QColor(22, 140, 68),   QColor(200, 120, 0),   QColor(204, 48, 48),
                               QColor(150, 155, 163)};
const Skin::Colors darkColors{QColor(27, 29, 33),    QColor(20, 22, 25),   QColor(232, 234, 238),
                              QColor(170, 175, 184), QColor(40, 43, 49),   QColor(42, 64, 112),
                              QColor(92, 148, 255),  QColor(54, 57, 64),   QColor(255, 105, 97),
                              QColor(74, 201, 120),  QColor(255, 181, 71), QColor(255, 105, 97),
                              QColor(124, 129, 139)};

bool namesADarkSkin(const SysUIData &record)
{
    if (record.skinName.contains(QLatin1String("dark"), Qt::CaseInsensitive))
        return true;
    // A host with skin names of its own tells by its text colour.
    const QColor text = Skin::color(record.textColor, QColor());
    return text.isValid() && text.lightness() > 128;
}
} // namespace

Skin &Skin::instance()
{
    static auto *skin = new Skin;
    return *skin;
}

Skin::Skin()
{
    setRecord(ctx().skin());
    connect(FriendUISignalSender::instance(), &FriendUISignalSender::signal_SkinChange, this,
            &Skin::setRecord);
}

QColor Skin::color(const QString &text, const QColor &fallback)
{
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != 3)
        return fallback;
    int rgb[3];
    for (int i = 0; i < 3; ++i) {
        bool ok = false;
        rgb[i] = parts.at(i).trimmed().toInt(&ok);
        if (!ok || rgb[i] < 0 || rgb[i] > 255)
            return fallback;
    }
    return QColor(rgb[0], rgb[1], rgb[2]);
}

void Skin::setRecord(const SysUIData &record)
{
    m_dark = namesADarkSkin(record);
    m_colors = m_dark ? darkColors : lightColors;
    m_colors.theme = color(record.themeColor, m_colors.theme);
    m_colors.text = color(record.textColor, m_colors.text);
    m_colors.secondary = color(record.secondaryColor, m_colors.secondary);
    m_colors.hover = color(record.hoverColor, m_colors.hover);
    m_colors.selected = color(record.selectedColor, m_colors.selected);
    m_watermarkColor = record.watermarkColor;
    emit changed();
}

QPalette Skin::palette() const
{
    QPalette palette(m_colors.text, m_colors.background, m_colors.background.lighter(110),
                     m_colors.background.darker(130), m_colors.border, m_colors.text,
                     m_dark ? m_colors.text : QColor(Qt::black), m_colors.background,
                     m_colors.background);
    palette.setColor(QPalette::Highlight, m_colors.selected);
    palette.setColor(QPalette::HighlightedText, m_colors.text);
    palette.setColor(QPalette::Button, m_dark ? m_colors.hover : QColor(246, 247, 249));
    palette.setColor(QPalette::ButtonText, m_colors.text);
    palette.setColor(QPalette::PlaceholderText, m_colors.secondary);
    palette.setColor(QPalette::Disabled, QPalette::Text, m_colors.offline);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, m_colors.offline);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, m_colors.offline);
    palette.setColor(QPalette::ToolTipBase, m_colors.background);
    palette.setColor(QPalette::ToolTipText, m_colors.text);
    palette.setColor(QPalette::Link, m_colors.theme);
    return palette;
}

QColor Skin::quietText(bool onSelectedRow) const
{
    // What steps back on the plain background would be hard to read on that of a
    // selected row.
    if (!onSelectedRow)
        return m_colors.secondary;
    constexpr qreal TextShare = 0.6;
    const auto blend = [](int text, int quiet) {
        return qRound(text * TextShare + quiet * (1 - TextShare));
    };
    return QColor(blend(m_colors.text.red(), m_colors.secondary.red()),
                  blend(m_colors.text.green(), m_colors.secondary.green()),
                  blend(m_colors.text.blue(), m_colors.secondary.blue()));
}

void followSkin(QWidget *widget)
{
    widget->setPalette(Skin::instance().palette());
    QObject::connect(&Skin::instance(), &Skin::changed, widget,
                     [widget] { widget->setPalette(Skin::instance().palette()); });
}

void followSkinAsField(QWidget *field)
{
    const auto apply = [field] {
        const Skin &skin = Skin::instance();
        QPalette palette = skin.palette();
        // One that is the same dark as the window could not be seen.
        if (skin.isDark())
            palette.setColor(QPalette::Base, skin.colors().hover);
        field->setPalette(palette);
    };
    apply();
    QObject::connect(&Skin::instance(), &Skin::changed, field, apply);
}

// The first family that is installed: to name one that is not costs a search for a
// substitute for every size, weight and script.
static QString skinFontFamily()
{
    const QStringList installed = QFontDatabase().families();
    // A Chinese Windows lists its fonts by their Chinese names.
    for (const char *family :
         {"Microsoft YaHei", "微软雅黑", "Noto Sans CJK SC", "WenQuanYi Micro Hei"}) {
        const QString name = QString::fromUtf8(family);
        if (!installed.contains(name, Qt::CaseInsensitive))
            continue;
        // For the style sheets, which name the first.
        if (name != QLatin1String("Microsoft YaHei"))
            QFont::insertSubstitution(QStringLiteral("Microsoft YaHei"), name);
        return name;
    }
    return QFont().family();
}

QFont skinFont(int pixelSize, QFont::Weight weight)
{
    static const auto *family = new QString(skinFontFamily());
    QFont font(*family);
    font.setPixelSize(pixelSize);
    font.setWeight(weight);
    return font;
}
