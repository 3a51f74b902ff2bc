#include "host/eventmonitor/wordfilter.h"

#include <algorithm>

void WordFilter::setText(const QString &text)
{
    m_words = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    invalidateFilter();
}

bool WordFilter::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const int columns = sourceModel()->columnCount(parent);
    return std::all_of(m_words.begin(), m_words.end(), [&](const QString &word) {
        // From the front: what is dear to make comes last.
        for (int column = 0; column < columns; ++column) {
            const QModelIndex cell = sourceModel()->index(row, column, parent);
            if (cell.data().toString().contains(word, Qt::CaseInsensitive))
                return true;
        }
        return false;
    });
}
