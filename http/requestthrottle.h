// Who may send and who has to wait. Pictures have a lane of their own, so that a
// thousand of them delay nothing else. Knows no network: an entry is whatever can
// be told that its turn has come. GUI thread only.
#pragma once

#include <deque>
#include <vector>

class RequestThrottle
{
public:
    static constexpr int MaximumPictures = 5; // at a time
    static constexpr int MaximumOthers = 20;
    static constexpr int MaximumWaiting = 1000; // in each lane

    enum class Lane
    {
        Others,
        Pictures
    };

    class Entry
    {
    public:
        virtual ~Entry() = default;
        // The entry is active now. May call admit() and leave().
        virtual void turnCame() = 0;
    };

    enum class Admission
    {
        Active,  // it may send now
        Waiting, // turnCame() will tell
        Refused  // too many wait already
    };

    // The one of this process.
    static RequestThrottle &instance();

    // An entry stays until leave(); it must not be admitted twice.
    Admission admit(Entry *entry, Lane lane);
    // Active or waiting; anything else is ignored. Nobody's turn comes before
    // startNext().
    void leave(const Entry *entry);
    // Gives the free places of both lanes to those who wait longest.
    void startNext();
    // The same from the event loop, for one who may be about to take those away that
    // wait behind it.
    static void startNextLater();

    int active(Lane lane) const;
    int waiting(Lane lane) const;

private:
    struct Queue
    {
        const int limit;
        std::vector<const Entry *> active;
        std::deque<Entry *> waiting;

        bool isFull() const { return int(active.size()) >= limit; }
        Entry *takeNext();
    };
    const Queue &queue(Lane lane) const { return lane == Lane::Pictures ? m_pictures : m_others; }

    Queue m_others{MaximumOthers, {}, {}};
    Queue m_pictures{MaximumPictures, {}, {}};
};
