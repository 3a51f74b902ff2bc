#include "http/requestthrottle.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

template <class List, class Value> bool removeOne(List &list, const Value *value)
{
    const auto at = std::find(list.begin(), list.end(), value);
    if (at == list.end())
        return false;
    list.erase(at);
    return true;
}

} // namespace

RequestThrottle &RequestThrottle::instance()
{
    static RequestThrottle process;
    return process;
}

void RequestThrottle::startNextLater()
{
    if (qApp)
        QMetaObject::invokeMethod(
            qApp, [] { instance().startNext(); }, Qt::QueuedConnection);
}

RequestThrottle::Admission RequestThrottle::admit(Entry *entry, Lane lane)
{
    Queue &queue = lane == Lane::Pictures ? m_pictures : m_others;
    // Whoever waits goes first, even while a place is free for a moment.
    if (!queue.isFull() && queue.waiting.empty()) {
        queue.active.push_back(entry);
        return Admission::Active;
    }
    if (int(queue.waiting.size()) >= MaximumWaiting)
        return Admission::Refused;
    queue.waiting.push_back(entry);
    return Admission::Waiting;
}

void RequestThrottle::leave(const Entry *entry)
{
    for (Queue *queue : {&m_others, &m_pictures})
        if (removeOne(queue->active, entry) || removeOne(queue->waiting, entry))
            return;
}

void RequestThrottle::startNext()
{
    for (Queue *queue : {&m_others, &m_pictures})
        while (Entry *next = queue->takeNext())
            next->turnCame();
}

int RequestThrottle::active(Lane lane) const
{
    return int(queue(lane).active.size());
}

int RequestThrottle::waiting(Lane lane) const
{
    return int(queue(lane).waiting.size());
}

RequestThrottle::Entry *RequestThrottle::Queue::takeNext()
{
    if (isFull() || waiting.empty())
        return nullptr;
    Entry *next = waiting.front();
    waiting.pop_front();
    active.push_back(next);
    return next;
}
