// Fusion, with the few signs that it draws in black whatever the palette, with frames
// and menus' separators that are seen in the dark, and without pictures on the buttons of dialogs,
// which desktops switch on or off.
#pragma once

#include <QProxyStyle>

class HostStyle : public QProxyStyle
{
    Q_OBJECT

public:
    HostStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget = nullptr) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption *option = nullptr,
                       const QWidget *widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr,
                  const QWidget *widget = nullptr,
                  QStyleHintReturn *returned = nullptr) const override;
};
