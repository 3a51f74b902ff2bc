#include "backend/eventbell.h"

#include <algorithm>

EventBell::Seat::Seat(EventBell &bell, const QString &uid) : m_bell(bell), m_uid(uid)
{
    const std::lock_guard<std::mutex> lock(bell.m_mutex);
    m_heard = bell.m_rung;
    std::list<Seat *> &seats = bell.m_seats;
    const auto isOwn = [&uid](const Seat *seat) { return seat->m_uid == uid; };
    if (std::count_if(seats.begin(), seats.end(), isOwn) >= SeatsPerUser) {
        const auto longest = std::find_if(seats.begin(), seats.end(), isOwn);
        (*longest)->m_mayStay = false;
        seats.erase(longest);
        bell.m_changed.notify_all();
    }
    m_mayStay = seats.size() < size_t(Seats);
    if (m_mayStay)
        seats.push_back(this);
}

EventBell::Seat::~Seat()
{
    const std::lock_guard<std::mutex> lock(m_bell.m_mutex);
    m_bell.m_seats.remove(this);
}

bool EventBell::Seat::wait(Clock::time_point deadline)
{
    std::unique_lock<std::mutex> lock(m_bell.m_mutex);
    const auto isEnded = [this] { return !m_mayStay || !m_bell.m_isOn; };
    const bool isWoken = m_bell.m_changed.wait_until(
        lock, deadline, [&] { return isEnded() || m_bell.m_rung != m_heard; });
    m_heard = m_bell.m_rung;
    return isWoken && !isEnded();
}

void EventBell::ring()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    ++m_rung;
    m_changed.notify_all();
}

void EventBell::setOn(bool on)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isOn = on;
    m_changed.notify_all();
}
