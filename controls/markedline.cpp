#include "controls/markedline.h"

#include "controls/skin.h"

#include <QPainter>
#include <QStyle>
#include <QTextLayout>

namespace {

constexpr int MarkOpacity = 64; // of 255
constexpr QChar Ellipsis(0x2026);

QFont bold(QFont font)
{
    font.setWeight(QFont::DemiBold); // seen on any ground, also a selected row's
    return font;
}

// Moves the marks by so many characters; what is outside of `begin` to `end` then goes.
SearchMarks clipped(const SearchMarks &marks, int by, int begin, int end)
{
    SearchMarks kept;
    for (const SearchMark &mark : marks) {
        const int from = qMax(mark.first + by, begin);
        const int to = qMin(mark.first + by + mark.second, end);
        if (from < to)
            kept.append({from, to - from});
    }
    return kept;
}

} // namespace

MarkedLine::MarkedLine(const QFont &font) : m_font(font), m_metrics(font), m_boldMetrics(bold(font))
{
}

int MarkedLine::marksWidth(const MarkedText &line) const
{
    int more = 0;
    for (const SearchMark &mark : line.marks) {
        const QString text = line.text.mid(mark.first, mark.second);
        // A part on its own is rounded up.
        more +=
            qMax(0, m_boldMetrics.horizontalAdvance(text) - m_metrics.horizontalAdvance(text)) + 1;
    }
    return more;
}

int MarkedLine::width(const MarkedText &line) const
{
    return m_metrics.horizontalAdvance(line.text) + marksWidth(line) + 1;
}

MarkedText MarkedLine::fitted(const MarkedText &line, int width, Qt::TextElideMode mode) const
{
    if (this->width(line) <= width)
        return line;
    // Less one for each of two roundings.
    const int room = qMax(0, width - marksWidth(line) - 2);
    MarkedText cut = line;
    if (mode == Qt::ElideRight && !line.marks.isEmpty()) {
        const int end = line.marks.first().first + line.marks.first().second;
        const QString left = line.text.left(end);
        const int ellipsis = m_metrics.horizontalAdvance(Ellipsis);
        const QString head = m_metrics.elidedText(left, Qt::ElideLeft, qMax(0, room - ellipsis));
        if (head != left && head.startsWith(Ellipsis)) {
            cut.text = head + line.text.mid(end);
            cut.marks = clipped(line.marks, head.size() - left.size(), 1, cut.text.size());
        }
    }
    const QString text = m_metrics.elidedText(cut.text, mode, room);
    if (text == cut.text)
        return cut;
    return {text, clipped(cut.marks, 0, 0, text.size() - 1)};
}

void MarkedLine::paint(QPainter *painter, const QRect &area, const MarkedText &line,
                       Qt::LayoutDirection direction) const
{
    QTextLayout layout(line.text, m_font);
    QTextOption option(QStyle::visualAlignment(direction, Qt::AlignLeft));
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(direction);
    layout.setTextOption(option);
    QColor marker = Skin::instance().colors().theme;
    marker.setAlpha(MarkOpacity);
    QVector<QTextLayout::FormatRange> formats;
    for (const SearchMark &mark : line.marks) {
        QTextCharFormat format;
        format.setBackground(marker);
        format.setFontWeight(QFont::DemiBold);
        formats.append({mark.first, mark.second, format});
    }
    layout.setFormats(formats);
    layout.beginLayout();
    QTextLine row = layout.createLine();
    row.setLineWidth(area.width());
    layout.endLayout();
    layout.draw(painter, QPointF(area.left(), area.top() + (area.height() - row.height()) / 2));
}
