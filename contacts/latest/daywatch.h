// Tells when texts that depend on the day have to be read anew: at midnight, and when
// the clock or the time zone was changed or the machine has slept.
#pragma once

#include <QDateTime>
#include <QObject>
#include <QTimer>

#include <functional>

class DayWatch : public QObject
{
    Q_OBJECT

public:
    using Clock = std::function<QDateTime()>;

    explicit DayWatch(QObject *parent = nullptr);

    QDateTime now() const { return m_clock(); }
    void setClock(const Clock &clock);

    // While nobody looks it rests; beginning to watch it looks at once.
    void setActive(bool active);

    // How long until it looks again, in ms: never beyond midnight by much, and never
    // so long that a change of the clock goes unseen.
    int msToNextLook() const;

    // Looks whether the day or the offset from UTC is another one.
    void look();

signals:
    void turned();

private:
    Clock m_clock;
    QTimer m_timer;
    bool m_active = false;
    QDate m_day;
    int m_offset = 0; // from UTC, in seconds
};
