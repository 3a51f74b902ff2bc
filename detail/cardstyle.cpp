#include "detail/cardstyle.h"

#include "controls/skin.h"

#include <QWidget>

namespace {

// Numbers only: what a record brings never gets into a style sheet as it is.
QString components(const QColor &color)
{
    return QStringLiteral("%1,%2,%3").arg(color.red()).arg(color.green()).arg(color.blue());
}

QString rgb(const QColor &color)
{
    return QStringLiteral("rgb(%1)").arg(components(color));
}

const QColor failure(255, 134, 90);
const QColor strip(244, 244, 244);
const QColor administrator(248, 182, 43);

QString reloadButton(const QColor &text)
{
    return QStringLiteral("QPushButton#btnReLoad{border:none;background:transparent;"
                          "text-align:left;padding:6px;font-size:12px;color:%1;}"
                          "QPushButton#btnReLoad:hover{color:%2;text-decoration:underline;}"
                          "QPushButton#btnReLoad:pressed{color:%3;}")
        .arg(rgb(text), rgb(failure), rgb(failure.darker(120)));
}

// Does nothing for a part that the window lacks.
void stylePart(const QWidget *window, const char *name, const QString &sheet)
{
    if (auto *part = window->findChild<QWidget *>(QLatin1String(name)))
        changeStyleSheet(part, sheet);
}

} // namespace

void styleCard(QWidget *window, const SysUIData &skin)
{
    const Skin::Colors &colors = Skin::instance().colors();
    const QColor text = Skin::color(skin.textColor, colors.text);
    const QString alpha = QString::number(qBound(0, skin.alpha, 255));
    // A strip that is light on a dark skin would glare.
    const QString stripAlpha = QString::number(Skin::instance().isDark() ? 24 : 255);
    stylePart(window, "name",
              QStringLiteral("QLineEdit#name{border:none;background:transparent;"
                             "font-family:Microsoft YaHei; font-size:14px; color:%1;}")
                  .arg(rgb(text)));
    stylePart(window, "titleWidget",
              QStringLiteral("QWidget#titleWidget{background-color:rgba(%1, %2); "
                             "font-family:'Microsoft Yahei';}")
                  .arg(components(colors.side), alpha));
    stylePart(window, "reloadWidget",
              QStringLiteral("QWidget#reloadWidget{background-color: rgba(%1, %2); "
                             "font-family:'Microsoft Yahei';font-size: 12px; }")
                      .arg(components(strip), stripAlpha) +
                  reloadButton(text));
    stylePart(window, "lblAdmin",
              QStringLiteral("QLabel#lblAdmin{color:%1;background-color:rgb(66,48,14);"
                             "border-radius:3px;padding:1px 6px;}")
                  .arg(rgb(administrator)));
}

void changeStyleSheet(QWidget *widget, const QString &sheet)
{
    if (widget->styleSheet() != sheet)
        widget->setStyleSheet(sheet);
}
