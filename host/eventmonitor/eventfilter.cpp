#include "host/eventmonitor/eventfilter.h"

#include "host/eventmonitor/eventmodel.h"

#include <QRegularExpression>

#include <algorithm>

void EventFilter::setCodes(const QString &codes)
{
    static const QRegularExpression range(QStringLiteral("(\\d{1,9})(?:\\s*-\\s*(\\d{1,9}))?"));
    m_codes.clear();
    auto matches = range.globalMatch(codes);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const int first = match.captured(1).toInt();
        m_codes.append({first, match.captured(2).isEmpty() ? first : match.captured(2).toInt()});
    }
    invalidateFilter();
}

void EventFilter::setDirection(Direction direction)
{
    m_direction = direction;
    invalidateFilter();
}

bool EventFilter::acceptsCode(int code) const
{
    return m_codes.isEmpty() ||
           std::any_of(m_codes.begin(), m_codes.end(), [code](const QPair<int, int> &range) {
               return code >= range.first && code <= range.second;
           });
}

bool EventFilter::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const auto cell = [&](int column) { return sourceModel()->index(row, column, parent); };
    if (m_direction != Both && cell(0).data(EventModel::DirectionRole).toInt() != m_direction)
        return false;
    if (!acceptsCode(cell(0).data(EventModel::CodeRole).toInt()))
        return false;
    return WordFilter::filterAcceptsRow(row, parent);
}
