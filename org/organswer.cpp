#include "org/organswer.h"

#include "common/postroutine.h"

#include <QCoreApplication>
#include <QRunnable>
#include <QThreadPool>

namespace {

QThreadPool &readers()
{
    static QThreadPool *const pool = [] {
        auto *made = new QThreadPool;
        made->setMaxThreadCount(1);
        // Nothing may be read while the process takes itself apart.
        static const PostRoutine drain([] {
            readers().clear();
            readers().waitForDone();
        });
        return made;
    }();
    return *pool;
}

class Reading : public QRunnable
{
public:
    Reading(OrgRequestKind kind, const QByteArray &utf8, int sliceSize, QObject *receiver,
            const OrgAnswer::Done &done)
        : m_kind(kind), m_utf8(utf8), m_sliceSize(sliceSize), m_receiver(receiver), m_done(done)
    {
    }

    void run() override
    {
        const auto answer =
            std::make_shared<OrgAnswer>(OrgAnswer::read(m_kind, m_utf8, m_sliceSize));
        // By way of the application, which is there as long as this thread is; the
        // receiver may be deleted at any moment, but only on the GUI thread.
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [answer, receiver = m_receiver, done = m_done] {
                if (receiver)
                    done(answer.get());
            },
            Qt::QueuedConnection);
    }

private:
    const OrgRequestKind m_kind;
    const QByteArray m_utf8;
    const int m_sliceSize;
    const QPointer<QObject> m_receiver;
    const OrgAnswer::Done m_done;
};

} // namespace

OrgAnswer OrgAnswer::read(OrgRequestKind kind, const QByteArray &utf8, int sliceSize)
{
    OrgAnswer answer;
    switch (kind) {
    case OrgRequestKind::Children:
        answer.ok = OrgParser::children(utf8, sliceSize, &answer.slices, &answer.error);
        break;
    case OrgRequestKind::Locate:
        answer.ok = OrgParser::location(utf8, sliceSize, &answer.slices, &answer.error);
        break;
    case OrgRequestKind::Search:
        answer.ok = OrgParser::search(utf8, &answer.hits, &answer.error);
        break;
    }
    return answer;
}

void OrgAnswer::readAside(OrgRequestKind kind, const QByteArray &utf8, int sliceSize,
                          QObject *receiver, const Done &done)
{
    readers().start(new Reading(kind, utf8, sliceSize, receiver, done));
}
