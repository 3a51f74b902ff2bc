#include "http/managerpool.h"

#include "common/postroutine.h"

#include <QNetworkCookie>
#include <QNetworkCookieJar>

#include <utility>

namespace {

class EmptiableJar : public QNetworkCookieJar
{
public:
    using QNetworkCookieJar::QNetworkCookieJar;
    void empty() { setAllCookies({}); }
};

} // namespace

ManagerLease::ManagerLease(ManagerLease &&other) noexcept
    : m_manager(std::exchange(other.m_manager, nullptr))
{
}

ManagerLease &ManagerLease::operator=(ManagerLease &&other) noexcept
{
    std::swap(m_manager, other.m_manager);
    return *this;
}

ManagerLease::~ManagerLease()
{
    giveBack();
}

void ManagerLease::giveBack()
{
    if (m_manager)
        ManagerPool::instance().takeBack(std::exchange(m_manager, nullptr));
}

ManagerPool &ManagerPool::instance()
{
    // Never destroyed: sessions of static owners may outlive any static.
    static auto *pool = new ManagerPool;
    return *pool;
}

ManagerPool::ManagerPool()
{
    m_rest.setInterval(KeptIdle);
    m_rest.setSingleShot(true);
    QObject::connect(&m_rest, &QTimer::timeout, [this] { clear(); });
    static const PostRoutine closing(close);
}

ManagerLease ManagerPool::lend()
{
    if (m_idle.empty()) {
        auto *manager = new QNetworkAccessManager;
        ++m_made;
        manager->setCookieJar(new EmptiableJar(manager));
        return ManagerLease(manager);
    }
    QNetworkAccessManager *manager = m_idle.back().release();
    m_idle.pop_back();
    static_cast<EmptiableJar *>(manager->cookieJar())->empty();
    return ManagerLease(manager);
}

QNetworkAccessManager *ManagerPool::shared()
{
    if (!m_shared) {
        m_shared = std::make_unique<QNetworkAccessManager>();
        ++m_made;
    }
    return m_shared.get();
}

void ManagerPool::clear()
{
    m_idle.clear();
}

void ManagerPool::takeBack(QNetworkAccessManager *manager)
{
    if (m_closed) {
        delete manager;
        return;
    }
    if (idle() >= MaximumIdle) {
        // Its last reply may be in somebody's hands still.
        manager->deleteLater();
        return;
    }
    m_idle.emplace_back(manager);
    m_rest.start();
}

// The managers' threads must not run on while the process takes itself apart.
void ManagerPool::close()
{
    ManagerPool &pool = instance();
    pool.m_closed = true;
    pool.m_rest.stop();
    pool.m_shared.reset();
    pool.clear();
}
