// Where requests wait until there may be something new for their users. A waiting
// request occupies a thread of the server, so that there is a limited number of
// seats. All functions may be called from any thread.
#pragma once

#include <QString>

#include <chrono>
#include <condition_variable>
#include <list>
#include <mutex>

class EventBell
{
public:
    using Clock = std::chrono::steady_clock;

    static constexpr int Seats = 48;       // far below the threads of the server
    static constexpr int SeatsPerUser = 3; // who sat there longest gives way

    // A seat for the time of a request; ask before looking for something new.
    class Seat
    {
    public:
        Seat(EventBell &bell, const QString &uid);
        ~Seat();
        Seat(const Seat &) = delete;
        Seat &operator=(const Seat &) = delete;

        // Until the bell has rung since the last call, or the seat was taken. False: the
        // time is over, or the request is to end now because there is no seat for it.
        bool wait(Clock::time_point deadline);

    private:
        friend class EventBell;
        EventBell &m_bell;
        const QString m_uid;
        quint64 m_heard;
        bool m_mayStay = false;
    };

    void ring();
    void setOn(bool on); // off: nobody waits

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::list<Seat *> m_seats; // longest first
    quint64 m_rung = 0;
    bool m_isOn = false;
};
