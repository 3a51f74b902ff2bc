#include "controls/hoverstates.h"

#include <algorithm>

HoverStates::State HoverStates::state() const
{
    if (m_shown.isEmpty())
        return m_openDue == Never ? Closed : Resting;
    return m_closeDue == Never ? Open : Closing;
}

void HoverStates::setRow(const QString &jid, qint64 now)
{
    if (jid == m_row)
        return;
    m_row = jid;
    m_openDue = jid.isEmpty() || jid == m_shown ? Never : now + RestTime;
    update(now);
}

void HoverStates::setOnCard(bool onCard, qint64 now)
{
    m_onCard = onCard && !m_shown.isEmpty();
    if (m_onCard) {
        m_row.clear();
        m_openDue = Never;
    }
    update(now);
}

void HoverStates::setHeld(bool held, qint64 now)
{
    m_held = held && !m_shown.isEmpty();
    update(now);
}

void HoverStates::open(const QString &jid)
{
    m_row = jid;
    m_shown = jid;
    m_openDue = Never;
    m_closeDue = Never;
}

void HoverStates::close()
{
    m_shown.clear();
    m_onCard = false;
    m_held = false;
    m_openDue = Never;
    m_closeDue = Never;
}

void HoverStates::update(qint64 now)
{
    const bool stays = m_shown.isEmpty() || m_onCard || m_held || m_row == m_shown;
    if (stays)
        m_closeDue = Never;
    else if (m_closeDue == Never)
        m_closeDue = now + GraceTime;
}

qint64 HoverStates::due() const
{
    if (m_openDue == Never || m_closeDue == Never)
        return std::max(m_openDue, m_closeDue);
    return std::min(m_openDue, m_closeDue);
}

bool HoverStates::advance(qint64 now)
{
    const qint64 next = due();
    if (next == Never || now < next)
        return false;
    if (next == m_closeDue) {
        m_closeDue = Never;
        m_shown.clear();
        return true;
    }
    if (m_held) {
        m_openDue = Never;
        return false;
    }
    open(m_row);
    return true;
}
