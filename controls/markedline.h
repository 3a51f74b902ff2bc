// A line of text with highlighted stretches: how wide it is, what of it fits, and its
// painting. All widths are device-independent pixels.
#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QMetaType>
#include <QPair>
#include <QString>
#include <QVector>

class QPainter;
class QRect;

// A stretch of a text to highlight: where it begins and how long it is.
using SearchMark = QPair<int, int>;
using SearchMarks = QVector<SearchMark>;

struct MarkedText
{
    QString text;
    SearchMarks marks;
};
Q_DECLARE_METATYPE(MarkedText)

class MarkedLine
{
public:
    explicit MarkedLine(const QFont &font);

    // In which nothing of the line is cut.
    int width(const MarkedText &line) const;
    // The line, or what of it fits with an ellipsis in the place of the rest. Of a line
    // that is cut on its right the first mark stays in sight.
    MarkedText fitted(const MarkedText &line, int width, Qt::TextElideMode mode) const;
    // From the side of `area` at which `direction` begins; the pen is the painter's.
    void paint(QPainter *painter, const QRect &area, const MarkedText &line,
               Qt::LayoutDirection direction) const;

private:
    int marksWidth(const MarkedText &line) const; // what bold letters take more

    const QFont m_font;
    const QFontMetrics m_metrics;
    const QFontMetrics m_boldMetrics;
};
