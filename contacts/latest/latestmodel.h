// The rows of the latest contacts: pinned ones first, then the newest first.
#pragma once

#include "contacts/latest/latestentry.h"
#include "controls/keyedlistmodel.h"

#include <functional>

struct LatestPlace
{
    bool pinned = false;
    qint64 order = 0;

    friend bool operator==(const LatestPlace &a, const LatestPlace &b)
    {
        return a.pinned == b.pinned && a.order == b.order;
    }
    friend bool operator<(const LatestPlace &a, const LatestPlace &b)
    {
        return a.pinned != b.pinned ? a.pinned : a.order > b.order;
    }
};

class LatestModel : public KeyedListModel<LatestEntry, LatestPlace>
{
public:
    using Clock = std::function<QDateTime()>;

    explicit LatestModel(QObject *parent = nullptr);

    // Roles are LatestRole's.
    QVariant data(const QModelIndex &index, int role) const override;

    // What the shown times are told by.
    void setClock(const Clock &clock) { m_clock = clock; }
    // The day has changed: tells of all times.
    void timeTextsChanged();

protected:
    QString keyOf(const LatestEntry &entry) const override { return entry.row.jid; }
    LatestPlace placeOf(const LatestEntry &entry) const override
    {
        return {entry.row.isTop != 0, entry.order};
    }
    bool isShown(const LatestEntry &entry) const override;

private:
    QString accessibleText(const LatestEntry &entry) const;
    QString timeText(const LatestEntry &entry) const;

    Clock m_clock;
};
