#include "host/hostskin.h"

#include "host/hoststyle.h"

#include <QApplication>
#include <QColor>
#include <QFont>

namespace {

struct Colours
{
    QColor window, base, alternate, text, secondary, button, hover, selected, theme, watermark;
};

Colours coloursOf(const QString &name)
{
    if (name == QLatin1String("dark")) {
        return {{32, 34, 38}, {24, 26, 29}, {29, 31, 35},  {230, 232, 235}, {150, 156, 165},
                {44, 47, 53}, {44, 48, 55}, {45, 82, 128}, {92, 156, 245},  {44, 47, 52}};
    }
    return {{243, 245, 248}, {255, 255, 255}, {248, 249, 251}, {32, 36, 42},   {96, 102, 112},
            {250, 251, 252}, {234, 240, 248}, {204, 225, 250}, {30, 108, 214}, {232, 233, 235}};
}

QString components(const QColor &colour)
{
    return QStringLiteral("%1,%2,%3").arg(colour.red()).arg(colour.green()).arg(colour.blue());
}

} // namespace

QPalette HostSkin::palette(const QString &name)
{
    const Colours c = coloursOf(name);
    QPalette palette(c.button, c.window);
    palette.setColor(QPalette::Window, c.window);
    palette.setColor(QPalette::Base, c.base);
    palette.setColor(QPalette::AlternateBase, c.alternate);
    palette.setColor(QPalette::Button, c.button);
    palette.setColor(QPalette::ToolTipBase, c.base);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                     QPalette::ToolTipText, QPalette::HighlightedText})
        palette.setColor(role, c.text);
    palette.setColor(QPalette::PlaceholderText, c.secondary);
    palette.setColor(QPalette::Highlight, c.selected);
    palette.setColor(QPalette::Link, c.theme);
    palette.setColor(QPalette::LinkVisited, c.theme);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, c.secondary);
    return palette;
}

SysUIData HostSkin::record(const QString &name)
{
    const Colours c = coloursOf(name);
    SysUIData skin;
    skin.skinName = name;
    skin.themeColor = components(c.theme);
    skin.textColor = components(c.text);
    skin.secondaryColor = components(c.secondary);
    skin.hoverColor = components(c.hover);
    skin.selectedColor = components(c.selected);
    skin.watermarkColor = components(c.watermark);
    return skin;
}

void HostSkin::setFont()
{
    // Without a desktop's settings the toolkit falls back to a large font that
    // lacks Chinese.
    QFont font = QApplication::font();
    font.setFamilies({QStringLiteral("Microsoft YaHei"), QStringLiteral("Noto Sans CJK SC"),
                      QStringLiteral("Noto Sans"), font.family()});
    font.setPointSizeF(10);
    QApplication::setFont(font);
}

void HostSkin::apply(const QString &name)
{
    QApplication::setPalette(palette(name));
    // A platform theme's style keeps colours of its own. Set anew each time, since
    // docks ask for their signs only then.
    QApplication::setStyle(new HostStyle);
}
