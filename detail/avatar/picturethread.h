// The thread that reads and writes pictures, so that the window stays alive
// meanwhile: to decode a photograph takes many frames' time.
#pragma once

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

namespace PictureThread {

// Runs `work` on the thread, one after the other, and then `deliver` on the GUI thread.
// When the process ends what has not begun is dropped and the rest waited for.
void run(const std::function<void()> &work, const std::function<void()> &deliver);

// The same for work with a result; `done` is not called when `owner` is gone by then.
// Called on the GUI thread.
template <class Result, class Work, class Done> void run(QObject *owner, Work work, Done done)
{
    auto result = std::make_shared<Result>();
    run([result, work] { *result = work(); },
        [result, done, alive = QPointer<QObject>(owner)] {
            if (alive)
                done(std::move(*result));
        });
}

} // namespace PictureThread
