#include "host/serviceaddressfile.h"

#include "common/settingsfile.h"

#include <QCoreApplication>
#include <QFile>

namespace {

// Those that have no built-in path stand here with theirs.
struct Address
{
    const char *key;
    const char *path;
};

constexpr Address addresses[] = {
    {"/Hosts/center", ""},
    {"/Hosts/ids", ""},
    {"/Hosts/vcs", ""},
    {"/Hosts/monitor", ""},
    {"/Hosts/web", ""},
    {"/searchOrg/searchorgurl", "/center/org/searchOrg.do"},
    {"/searchOrg/locateorgurl", "/center/org/locateOrg.do"},
    {"/searchOrg/fuzzysearchorgurl", "/center/org/fuzzySearchOrg.do"},
    {"/ImFile/downloadPointUrl", "/center/im/downloadFile.do"},
    {"/servicenum/subServiceNumUrl", "/center/isrv/subIsrv.do"},
    {"/servicenum/cancelServiceNumUrl", "/center/isrv/unsubIsrv.do"},
};

const char ClientKey[] = "/Passport/client_id";
const char ClientId[] = "friendui-host";

QString keyOf(const char *key)
{
    return QString::fromLatin1(key);
}

} // namespace

QString ServiceAddressFile::in(const QString &dataFolder)
{
    return dataFolder + QLatin1String("/allurl.ini");
}

bool ServiceAddressFile::write(const QString &file, const QString &baseAddress, QString *problem)
{
    SettingsFile settings(file);
    bool ok = settings.setValue(keyOf(ClientKey), QString::fromLatin1(ClientId));
    for (const Address &address : addresses)
        ok = ok &&
             settings.setValue(keyOf(address.key), baseAddress + QString::fromLatin1(address.path));
    if (ok && settings.save())
        return true;
    *problem = QCoreApplication::translate("ServiceAddressFile",
                                           "The file %1 with the addresses of the web services "
                                           "cannot be written.")
                   .arg(file);
    return false;
}

void ServiceAddressFile::clear(const QString &file)
{
    if (!QFile::exists(file))
        return;
    SettingsFile settings(file);
    settings.remove(keyOf(ClientKey));
    for (const Address &address : addresses)
        settings.remove(keyOf(address.key));
    settings.save();
}
