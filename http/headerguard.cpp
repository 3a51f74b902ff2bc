#include "http/headerguard.h"

#include <QMetaMethod>
#include <QNetworkReply>

#ifdef FRIENDUI_PRIVATE_QT
#include <private/qobject_p.h>
#endif

#include <cstring>

namespace {

constexpr char CutProperty[] = "friendui_headersCut";

#ifdef FRIENDUI_PRIVATE_QT

using Headers = QList<QPair<QByteArray, QByteArray>>;

// By name; the types of its arguments are compared when it is called.
int arrivalOfHeaders(const QMetaObject *meta)
{
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        if (meta->method(i).name() == "replyDownloadMetaData")
            return i;
    }
    return -1;
}

class Guard : public QObject
{
public:
    Guard(QNetworkReply *reply, int maximum)
        : QObject(reply), m_method(arrivalOfHeaders(reply->metaObject())), m_maximum(maximum)
    {
        reply->installEventFilter(this);
    }

    bool eventFilter(QObject *reply, QEvent *event) override
    {
        if (event->type() != QEvent::MetaCall || m_method < 0)
            return false;
        auto *call = static_cast<QMetaCallEvent *>(event);
        if (call->id() == m_method && call->args() && call->types()[1] == qMetaTypeId<Headers>())
            cut(reply, static_cast<Headers *>(call->args()[1]));
        return false;
    }

private:
    void cut(QObject *reply, Headers *headers) const
    {
        if (headers->size() <= m_maximum)
            return;
        headers->erase(headers->begin() + m_maximum + 1, headers->end());
        reply->setProperty(CutProperty, true);
    }

    const int m_method;
    const int m_maximum;
};

#endif

} // namespace

bool HeaderGuard::isAvailable()
{
#ifdef FRIENDUI_PRIVATE_QT
    static const bool same = std::strcmp(qVersion(), QT_VERSION_STR) == 0;
    return same;
#else
    return false;
#endif
}

void HeaderGuard::watch(QNetworkReply *reply, int maximum)
{
#ifdef FRIENDUI_PRIVATE_QT
    if (isAvailable())
        new Guard(reply, maximum); // goes with the reply
#else
    Q_UNUSED(reply)
    Q_UNUSED(maximum)
#endif
}

bool HeaderGuard::hasCut(const QNetworkReply *reply)
{
    return reply->property(CutProperty).isValid();
}
