// The host's skin record.
#pragma once

#include "hostapi/recordstream.h"

#include <QMetaType>
#include <QString>

// Colours are texts of three decimal components, such as "180,180,180". An empty
// or unreadable one means the default of the light or the dark skin.
struct SysUIData
{
    QString skinName; // "light", "dark", or the host's own name
    QString themeColor;
    QString textColor;
    QString secondaryColor; // less important text
    QString hoverColor;
    QString selectedColor;
    QString watermarkColor;
    qint32 alpha = 255; // 0..255, of the pane's background

    template <class Self> static auto fieldsOf(Self &r)
    {
        return std::tie(r.skinName, r.themeColor, r.textColor, r.secondaryColor, r.hoverColor,
                        r.selectedColor, r.watermarkColor, r.alpha);
    }
};

Q_DECLARE_METATYPE(SysUIData)
