#include "servicenum/servicenumbers.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "plugin/frienduisignalsender.h"
#include "servicenum/chttpservicenum.h"

#include <QHash>
#include <QScopedValueRollback>
#include <QSet>
#include <QTimer>

#include <utility>

namespace {
using Hub = FriendUISignalSender;
using Operation = CHttpServiceNum;

} // namespace

struct ServiceNumbers::Private
{
    const QString user = ctx().userId();
    State state = Unasked;
    bool isLoading = false;
    QString version; // of the list; empty: none came yet
    QHash<QString, CServiceNumData> known;
    QStringList order;    // of the subscriptions, by code
    QSet<QString> listed; // the same
    // What was decided while the list was on its way, which may not tell of it.
    QHash<QString, bool> decidedMeanwhile;
    QSet<QString> busy;
    QSet<QString> refreshing;
    QStringList unknown; // subscribed to, without a record
    // The parent of everything that is on its way for this user.
    std::unique_ptr<QObject> requests = std::make_unique<QObject>();

    void list(const QString &code)
    {
        listed.insert(code);
        order.append(code);
    }
};

ServiceNumbers &ServiceNumbers::instance()
{
    static auto *numbers = new ServiceNumbers;
    return *numbers;
}

ServiceNumbers::ServiceNumbers() : d(std::make_unique<Private>())
{
    follow();
}

ServiceNumbers::~ServiceNumbers() = default;

void ServiceNumbers::follow()
{
    const Hub *hub = Hub::instance();
    const auto unlessOwn = [this](auto take) {
        return [this, take](const auto &...arguments) {
            if (!m_isAnnouncing)
                take(arguments...);
        };
    };
    connect(hub, &Hub::signal_notifySubServiceNum, this,
            unlessOwn([this](const QString &code, const QString &, bool ok, const QString &error) {
                subscriptionAnswered(code, ok, error);
            }));
    connect(hub, &Hub::signal_notifyCancelSubServiceNum, this,
            unlessOwn([this](const QString &code, const QString &, bool ok) {
                cancellationAnswered(code, ok);
            }));
    connect(hub, &Hub::signal_notifyAddServiceNum, this,
            unlessOwn([this](const QList<CServiceNumData> &numbers) { add(numbers); }));
    connect(hub, &Hub::signal_notifyUpdateServiceNum, this,
            unlessOwn([this](const QString &jid, const CServiceNumData &number) {
                recordCame(jidUser(jid), number);
            }));
    connect(hub, &Hub::signal_notifyServiceNumData, this,
            [this](const CServiceNumData &number) { note({number}); });
    connect(&m_icons, &ServiceIcons::ready, this, &ServiceNumbers::iconReady);
    connect(hub, &Hub::signal_login, this, [this] {
        if (d->user != ctx().userId())
            clear();
    });
    connect(hub, &Hub::signal_logout, this, &ServiceNumbers::clear);
    connect(hub, &Hub::signal_isConnected, this, [this](bool connected) {
        if (connected && d->state == Failed)
            load();
    });
}

void ServiceNumbers::clear()
{
    m_icons.clear();
    d = std::make_unique<Private>();
    emit stateChanged();
}

// --- The list -----------------------------------------------------------------------

ServiceNumbers::State ServiceNumbers::state() const
{
    return d->state;
}

QList<CServiceNumData> ServiceNumbers::subscriptions() const
{
    QList<CServiceNumData> numbers;
    numbers.reserve(d->order.size());
    for (const QString &code : qAsConst(d->order))
        numbers.append(d->known.value(code));
    return numbers;
}

void ServiceNumbers::load()
{
    if (d->isLoading)
        return;
    d->isLoading = true;
    d->decidedMeanwhile.clear();
    sendList();
    if (d->state == Ready)
        return;
    d->state = Loading;
    emit stateChanged();
}

void ServiceNumbers::sendList()
{
    auto *operation = new Operation(d->requests.get());
    connect(operation, &Operation::signal_notifyAddServiceNum, this,
            [this, operation](const QList<CServiceNumData> &numbers) {
                listCame(numbers, operation->version());
            });
    connect(operation, &Operation::signal_failed, this, &ServiceNumbers::listFailed);
    operation->getMyServiceNum(d->version);
}

void ServiceNumbers::listFailed()
{
    d->isLoading = false;
    if (d->state == Ready)
        return;
    d->state = Failed;
    emit stateChanged();
}

void ServiceNumbers::listCame(const QList<CServiceNumData> &numbers, const QString &version)
{
    d->isLoading = false;
    d->state = Ready;
    const bool isUnchanged = numbers.isEmpty() && !version.isEmpty() && version == d->version;
    if (isUnchanged) {
        emit stateChanged();
        return;
    }
    d->version = version;
    takeList(numbers);
    emit stateChanged();
}

void ServiceNumbers::takeList(QList<CServiceNumData> numbers)
{
    const QStringList before = std::exchange(d->order, {});
    d->listed.clear();
    const auto decided = std::exchange(d->decidedMeanwhile, {});
    for (auto it = decided.cbegin(); it != decided.cend(); ++it)
        if (it.value() && d->known.contains(it.key()))
            numbers.append(d->known.value(it.key()));
    QList<CServiceNumData> fresh;
    QStringList different;
    for (CServiceNumData &number : numbers) {
        number.isSub = decided.value(number.code, true);
        if (d->listed.contains(number.code))
            continue;
        if (number.isSub)
            d->list(number.code);
        const bool wasKnown = d->known.contains(number.code);
        if (!store(number))
            continue;
        if (wasKnown)
            different.append(number.code);
        if (number.isSub)
            fresh.append(number);
    }
    QStringList gone;
    for (const QString &code : before)
        if (!d->listed.contains(code))
            gone.append(code);
    for (CServiceNumData &number : d->known) {
        if (!number.isSub || d->listed.contains(number.code))
            continue;
        number.isSub = false;
        different.append(number.code);
    }
    announce([&](Hub *hub) {
        if (!fresh.isEmpty())
            emit hub->signal_notifyAddServiceNum(fresh);
        for (const QString &code : qAsConst(gone))
            emit hub->signal_notifyCancelSubServiceNum(code, QString(), true);
    });
    for (const QString &code : qAsConst(different))
        emit changed(code);
}

// What the rest of the pane is to know, without hearing of it again oneself.
template <class Send> void ServiceNumbers::announce(Send send)
{
    const QScopedValueRollback<bool> own(m_isAnnouncing, true);
    send(Hub::instance());
}

// --- Records ------------------------------------------------------------------------

const CServiceNumData *ServiceNumbers::find(const QString &code) const
{
    const auto at = d->known.constFind(code);
    return at == d->known.constEnd() ? nullptr : &at.value();
}

bool ServiceNumbers::isSubscribed(const QString &code) const
{
    const CServiceNumData *number = find(code);
    return number && number->isSub;
}

// Whether something is different now.
bool ServiceNumbers::store(CServiceNumData number)
{
    const auto at = d->known.find(number.code);
    if (at == d->known.end()) {
        d->known.insert(number.code, std::move(number));
        return true;
    }
    if (*at == number)
        return false;
    if (at->icon != number.icon)
        m_icons.forget(number.code);
    *at = std::move(number);
    return true;
}

void ServiceNumbers::note(const QList<CServiceNumData> &numbers)
{
    for (CServiceNumData number : numbers) {
        if (number.code.isEmpty())
            continue;
        if (d->state == Ready || find(number.code))
            number.isSub = isSubscribed(number.code);
        const QString code = number.code;
        if (store(std::move(number)))
            emit changed(code);
    }
}

void ServiceNumbers::recordCame(const QString &code, CServiceNumData number)
{
    if (code.isEmpty())
        return;
    number.code = code;
    note({number});
}

void ServiceNumbers::refresh(const QString &code)
{
    if (code.isEmpty() || d->refreshing.contains(code))
        return;
    d->refreshing.insert(code);
    auto *operation = new Operation(d->requests.get());
    connect(operation, &Operation::signal_notifyUpdateServiceNum, this,
            [this](const QString &asked, const CServiceNumData &number) {
                d->refreshing.remove(asked);
                const CServiceNumData *known = find(asked);
                if (number.code.isEmpty() && !known) {
                    emit detailFailed(asked);
                    return;
                }
                CServiceNumData newest = number.code.isEmpty() ? *known : number;
                const bool toList = isSubscribed(asked);
                if (d->state == Ready || known)
                    newest.isSub = toList;
                const bool isNew = store(newest);
                if (isNew && toList)
                    announce([&](Hub *hub) {
                        emit hub->signal_notifyUpdateServiceNum(makeJid(asked), newest);
                    });
                emit changed(asked);
            });
    connect(operation, &Operation::signal_failed, this, [this, code] {
        d->refreshing.remove(code);
        emit detailFailed(code);
    });
    const CServiceNumData *known = find(code);
    operation->getServiceNumInfo(code, known ? known->version : QString());
}

// --- Subscriptions --------------------------------------------------------------------

bool ServiceNumbers::isBusy(const QString &code) const
{
    return d->busy.contains(code);
}

void ServiceNumbers::subscribe(const QString &code)
{
    if (code.isEmpty() || isBusy(code))
        return;
    d->busy.insert(code);
    auto *operation = new Operation(d->requests.get());
    connect(operation, &Operation::signal_notifySubServiceNum, this,
            [this](const QString &asked, const QString &, bool ok, const QString &error) {
                d->busy.remove(asked);
                subscriptionAnswered(asked, ok, error);
            });
    operation->subServiceNum(code);
    emit changed(code);
}

void ServiceNumbers::unsubscribe(const QString &code)
{
    if (code.isEmpty() || isBusy(code))
        return;
    d->busy.insert(code);
    auto *operation = new Operation(d->requests.get());
    connect(operation, &Operation::signal_notifyCancelSubServiceNum, this,
            [this](const QString &asked, const QString &group, bool ok) {
                d->busy.remove(asked);
                cancellationAnswered(asked, ok);
                if (ok)
                    announce([&](Hub *hub) {
                        emit hub->signal_notifyCancelSubServiceNum(asked, group, true);
                    });
            });
    operation->cancelSubServiceNum(code);
    emit changed(code);
}

void ServiceNumbers::subscriptionAnswered(const QString &code, bool ok, const QString &errorText)
{
    if (ok) {
        setSubscribed(code, true);
        return;
    }
    LOG_ERROR("subscription failed, code=" << logText(code) << ", error=" << logText(errorText));
    emit changed(code);
    emit subscriptionFailed(code, errorText);
}

void ServiceNumbers::cancellationAnswered(const QString &code, bool ok)
{
    if (ok) {
        setSubscribed(code, false);
        return;
    }
    LOG_ERROR("the end of a subscription failed, code=" << logText(code));
    emit changed(code);
    emit cancellationFailed(code);
}

void ServiceNumbers::setSubscribed(const QString &code, bool subscribed)
{
    if (code.isEmpty())
        return;
    if (d->isLoading)
        d->decidedMeanwhile.insert(code, subscribed);
    const auto number = d->known.find(code);
    if (number == d->known.end()) {
        if (subscribed) {
            d->unknown.append(code);
            if (d->unknown.size() == 1)
                QTimer::singleShot(0, d->requests.get(), [this] { fetchUnknown(); });
        }
        return;
    }
    const bool wasListed = d->listed.contains(code);
    number->isSub = subscribed;
    if (subscribed && !wasListed)
        d->list(code);
    else if (!subscribed && d->listed.remove(code))
        d->order.removeOne(code);
    const CServiceNumData record = *number;
    if (subscribed && !wasListed)
        announce([&](Hub *hub) { emit hub->signal_notifyAddServiceNum({record}); });
    emit changed(code);
    if (subscribed != wasListed)
        emit stateChanged();
}

// Numbers that the host, or another window of the user's, has subscribed to.
void ServiceNumbers::fetchUnknown()
{
    QStringList codes = std::exchange(d->unknown, {});
    codes.removeDuplicates();
    auto *operation = new Operation(d->requests.get());
    connect(operation, &Operation::signal_notifyAddServiceNum, this,
            [this, codes](const QList<CServiceNumData> &numbers) {
                QList<CServiceNumData> asked;
                for (const CServiceNumData &number : numbers)
                    if (codes.contains(number.code))
                        asked.append(number);
                add(asked);
                announce([&](Hub *hub) { emit hub->signal_notifyAddServiceNum(asked); });
            });
    connect(operation, &Operation::signal_failed, this, &ServiceNumbers::load);
    QStringList none;
    for (int i = 0; i < codes.size(); ++i)
        none.append(QString());
    operation->getServiceNumInfoList(codes, none);
}

void ServiceNumbers::add(const QList<CServiceNumData> &numbers)
{
    bool isNew = false;
    for (CServiceNumData number : numbers) {
        if (number.code.isEmpty())
            continue;
        const QString code = number.code;
        if (d->isLoading)
            d->decidedMeanwhile.insert(code, true);
        const bool wasListed = d->listed.contains(code);
        number.isSub = true;
        const bool isChanged = store(std::move(number));
        if (!wasListed)
            d->list(code);
        isNew = isNew || !wasListed;
        if (isChanged)
            emit changed(code);
    }
    if (isNew)
        emit stateChanged();
}

QString ServiceNumbers::icon(const QString &code)
{
    const CServiceNumData *number = find(code);
    return m_icons.icon(code, number ? number->icon : QString());
}
