#include "http/serviceaddresses.h"

#include "common/clientpaths.h"
#include "common/logging.h"
#include "common/settingsfile.h"

#include <algorithm>
#include <iterator>

namespace {
enum HostGroup
{
    Center,
    Ids,
    Vcs,
    Monitor,
    Web
};

enum Scheme
{
    Https,
    Http
};

struct Service
{
    const char *key;
    const char *path; // null: no address without the file
    HostGroup host;
    Scheme scheme = Https;
    const char *page = nullptr; // of the web host, to which the log-in sends on
};

#include "http/servicetable.inc"

// In the reserved domain: a client that nobody configured reaches no stranger.
struct NamedHost
{
    const char *name;
    const char *address;
};
constexpr NamedHost hosts[] = {
    {"center", "https://center.im.invalid"}, {"ids", "https://ids.im.invalid"},
    {"vcs", "https://vcs.im.invalid"},       {"monitor", "https://monitor.im.invalid"},
    {"web", "https://web.im.invalid"},
};

const Service *find(const QString &key)
{
    const auto *const end = std::end(services);
    const auto *const at = std::find_if(std::begin(services), end, [&](const Service &service) {
        return key == QLatin1String(service.key);
    });
    return at == end ? nullptr : at;
}

// Empty for what is no address of the web.
QString webAddress(const QString &key, const QString &text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty() || ServiceAddresses::isWebAddress(QUrl(trimmed)))
        return trimmed;
    LOG_ERROR("the service address of " << logText(key) << " is refused");
    return QString();
}

QString hostAddress(const SettingsFile &file, const NamedHost &host)
{
    const QString key = QLatin1String("/Hosts/") + QLatin1String(host.name);
    QString address = webAddress(key, file.text(key, QLatin1String(host.address)));
    while (address.endsWith(QLatin1Char('/')))
        address.chop(1);
    return address;
}

// A service in plain HTTP does not answer on the port of its host's HTTPS.
QString withScheme(const QString &host, Scheme scheme)
{
    QUrl url(host);
    if (scheme == Https || url.scheme() == QLatin1String("http"))
        return host;
    url.setScheme(QStringLiteral("http"));
    url.setPort(-1);
    return url.toString(QUrl::FullyEncoded);
}

QString builtIn(const SettingsFile &file, const Service &service)
{
    if (!service.path)
        return QString();
    const QString host = hostAddress(file, hosts[service.host]);
    if (host.isEmpty())
        return QString();
    QString address = withScheme(host, service.scheme) + QLatin1String(service.path);
    if (service.page) {
        const QString page = hostAddress(file, hosts[Web]) + QLatin1String(service.page);
        address += QLatin1String("?service=") + QLatin1String(QUrl::toPercentEncoding(page));
    }
    return address;
}

QString lookUp(const SettingsFile &file, const QString &key)
{
    if (file.contains(key))
        return webAddress(key, file.text(key));
    const Service *service = find(key);
    return service ? builtIn(file, *service) : QString();
}

SettingsFile addressFile()
{
    return SettingsFile(ClientPaths::serviceAddressFile());
}
} // namespace

QString ServiceAddresses::address(const QString &key)
{
    return lookUp(addressFile(), key);
}

QString ServiceAddresses::address(const char *key)
{
    return address(QString::fromUtf8(key));
}

QString ServiceAddresses::builtInAddress(const QString &key)
{
    const Service *service = find(key);
    return service ? builtIn(addressFile(), *service) : QString();
}

QString ServiceAddresses::value(const char *key)
{
    return addressFile().text(QString::fromUtf8(key));
}

QStringList ServiceAddresses::keysWithAddress()
{
    QStringList keys;
    for (const Service &service : services)
        keys += QString::fromUtf8(service.key);
    return keys;
}

QStringList ServiceAddresses::keysWithoutAddress()
{
    QStringList keys;
    for (const char *key : keysOfTheFile)
        keys += QString::fromUtf8(key);
    return keys;
}

QString ServiceAddresses::host(const QString &group)
{
    for (const NamedHost &host : hosts) {
        if (group == QLatin1String(host.name))
            return hostAddress(addressFile(), host);
    }
    return QString();
}

bool ServiceAddresses::isSameHost(const QUrl &one, const QUrl &other)
{
    const int standard = one.scheme() == QLatin1String("https") ? 443 : 80;
    return one.scheme() == other.scheme() && one.host() == other.host() &&
           one.port(standard) == other.port(standard);
}

bool ServiceAddresses::isWebAddress(const QUrl &url)
{
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http"));
}

bool ServiceAddresses::isServiceHost(const QUrl &url)
{
    if (!isWebAddress(url))
        return false;
    const SettingsFile file = addressFile();
    for (const NamedHost &host : hosts) {
        if (ServiceAddresses::isSameHost(url, QUrl(hostAddress(file, host))))
            return true;
    }
    const auto isNamed = [&](const char *name) {
        const QString key = QString::fromUtf8(name);
        return file.contains(key) &&
               ServiceAddresses::isSameHost(url, QUrl(file.text(key).trimmed()));
    };
    return std::any_of(std::begin(services), std::end(services),
                       [&](const Service &service) { return isNamed(service.key); }) ||
           std::any_of(std::begin(keysOfTheFile), std::end(keysOfTheFile), isNamed);
}
