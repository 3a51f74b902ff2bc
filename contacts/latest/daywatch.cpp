#include "contacts/latest/daywatch.h"

#include <algorithm>

namespace {
// A timer does not run while the machine sleeps and does not know the time of day, so
// the clock is looked at now and then.
constexpr qint64 LongestRestMs = 60 * 1000;
// Behind midnight, since a timer may be early.
constexpr qint64 BehindMidnightMs = 50;
} // namespace

DayWatch::DayWatch(QObject *parent) : QObject(parent), m_clock(&QDateTime::currentDateTime)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &DayWatch::look);
    look();
}

void DayWatch::setClock(const Clock &clock)
{
    m_clock = clock;
    look();
}

void DayWatch::setActive(bool active)
{
    m_active = active;
    m_timer.stop();
    if (active)
        look();
}

int DayWatch::msToNextLook() const
{
    const QDateTime current = m_clock();
    const qint64 toMidnight = current.msecsTo(current.date().addDays(1).startOfDay());
    return int(std::clamp(toMidnight + BehindMidnightMs, qint64(0), LongestRestMs));
}

void DayWatch::look()
{
    const QDateTime current = m_clock();
    const bool other = current.date() != m_day || current.offsetFromUtc() != m_offset;
    m_day = current.date();
    m_offset = current.offsetFromUtc();
    if (m_active)
        m_timer.start(msToNextLook());
    if (other)
        emit turned();
}
