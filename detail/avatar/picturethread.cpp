#include "detail/avatar/picturethread.h"

#include "common/postroutine.h"

#include <QRunnable>
#include <QThreadPool>

namespace {
// Never destroyed: what it is told may still be on its way when the process ends.
struct Thread
{
    Thread() { pool.setMaxThreadCount(1); }

    QThreadPool pool;
    QObject receiver; // lives on the GUI thread
};

Thread &thread()
{
    static auto *only = new Thread;
    static const PostRoutine drain([] {
        only->pool.clear();
        only->pool.waitForDone();
    });
    return *only;
}
} // namespace

void PictureThread::run(const std::function<void()> &work, const std::function<void()> &deliver)
{
    Thread &on = thread();
    on.pool.start(QRunnable::create([&on, work, deliver] {
        work();
        QMetaObject::invokeMethod(&on.receiver, deliver, Qt::QueuedConnection);
    }));
}
