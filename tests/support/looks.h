// What tests of appearance share. With FRIENDUI_ARTEFACTS set to a folder the pictures
// are left there to look at.
#pragma once

#include "controls/skin.h"
#include "tests/support/rows.h"

#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QTest>
#include <QTranslator>
#include <QWidget>

#include <cmath>

inline void keepPicture(const QImage &image, const QString &name)
{
    const QString folder = qEnvironmentVariable("FRIENDUI_ARTEFACTS");
    if (!folder.isEmpty() && QDir().mkpath(folder))
        image.save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
}

// The widget as it is on a screen of that ratio.
inline QImage pictureOf(QWidget *widget, qreal ratio)
{
    QImage image(widget->size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Skin::instance().colors().background);
    widget->render(&image);
    return image;
}

// A row for each skin, language and ratio, in columns of these names.
inline void addLooks(const QVector<qreal> &ratios = {1.0})
{
    const Rows<QString, QString, qreal> row{"skin", "language", "ratio"};
    for (const char *skin : {"light", "dark"}) {
        for (const char *language : {"zh_CN", "en"}) {
            for (const qreal ratio : ratios)
                row(qPrintable(QStringLiteral("%1 %2 %3x")
                                   .arg(QLatin1String(skin), QLatin1String(language))
                                   .arg(ratio)),
                    QLatin1String(skin), QLatin1String(language), ratio);
        }
    }
}

inline void setSkin(const QString &name, const char *watermarkColour = "")
{
    SysUIData record;
    record.skinName = name;
    record.watermarkColor = QString::fromLatin1(watermarkColour);
    Skin::instance().setRecord(record);
}

// The ratio of two colours' luminances, from 1 to 21; text needs 4.5.
inline double contrast(const QColor &a, const QColor &b)
{
    const auto luminance = [](const QColor &color) {
        const auto linear = [](double c) {
            return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF()) + 0.05;
    };
    return qMax(luminance(a), luminance(b)) / qMin(luminance(a), luminance(b));
}

// "zh_CN" or "en", as long as it exists.
class Language
{
public:
    explicit Language(const QString &name)
    {
        if (!m_translator.load(QStringLiteral("friendui_") + name,
                               qEnvironmentVariable("FRIENDUI_BIN") +
                                   QStringLiteral("/translations")))
            QTest::qFail("the language cannot be loaded", __FILE__, __LINE__);
        QCoreApplication::installTranslator(&m_translator);
    }

private:
    QTranslator m_translator; // removes itself
};
