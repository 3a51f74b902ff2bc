// Which events the monitor shows: by text in any column, by code, by direction.
#pragma once

#include "host/eventmonitor/wordfilter.h"

#include <QPair>
#include <QVector>

class EventFilter : public WordFilter
{
    Q_OBJECT

public:
    enum Direction
    {
        Both = -1,
        ToPlugin = 0,
        FromPlugin = 1
    };

    using WordFilter::WordFilter;

    // "4118" or "4118, 4360 4100-4199"; what is no number is ignored.
    void setCodes(const QString &codes);
    void setDirection(Direction direction);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    bool acceptsCode(int code) const;

    QVector<QPair<int, int>> m_codes;
    Direction m_direction = Both;
};
