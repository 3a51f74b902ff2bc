// The colours of everything that the plug-in paints. Follows the host's skin
// record; what the record leaves out comes from the light or the dark defaults.
#pragma once

#include "hostapi/skinrecord.h"

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>

class Skin : public QObject
{
    Q_OBJECT

public:
    struct Colors
    {
        QColor background;
        QColor side; // the entry column
        QColor text;
        QColor secondary;
        QColor hover;
        QColor selected;
        QColor theme;
        QColor border;
        QColor danger;
        QColor online;
        QColor away;
        QColor busy;
        QColor offline;
    };

    static Skin &instance();

    const Colors &colors() const { return m_colors; }
    bool isDark() const { return m_dark; }
    QPalette palette() const;
    // The colour of less important text, readable on the row behind it.
    QColor quietText(bool onSelectedRow) const;

    // As the host's record tells it: any text, empty for none.
    const QString &watermarkColor() const { return m_watermarkColor; }

    void setRecord(const SysUIData &record);

    // "180,180,180" as a colour; `fallback` for anything else.
    static QColor color(const QString &text, const QColor &fallback);

signals:
    void changed();

private:
    Skin();

    Colors m_colors;
    QString m_watermarkColor;
    bool m_dark = false;
};

// Keeps a widget's palette that of the skin, now and after every change.
void followSkin(QWidget *widget);
// The same for a field to type into, which must be told from the window around it.
void followSkinAsField(QWidget *field);

// The product's font family with fallbacks, at a size in device-independent pixels.
QFont skinFont(int pixelSize, QFont::Weight weight = QFont::Normal);
