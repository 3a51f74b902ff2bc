// The addresses of the back end's services, by key. The service address file
// (ClientPaths::serviceAddressFile()) answers first; what it lacks has a built-in
// path on one of a few hosts, which the same file can name in its group "Hosts":
//
//     [Hosts]
//     center=https://im.corp.example
//
// The file is read at each call, because an administrator may change it. A service
// in plain HTTP has its host's name but not its port, unless the host group is plain
// HTTP itself.
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

namespace ServiceAddresses {

// The address of a key such as "/searchOrg/searchorgurl". Empty when neither the
// file nor the catalogue has one, when the file names it empty, or when it is
// neither http nor https.
QString address(const QString &key);
QString address(const char *key);

// The text of a key that is no address, such as "/Passport/client_id": what the
// file has, or empty.
QString value(const char *key);

// What would be answered without the key in the file; empty for none.
QString builtInAddress(const QString &key);

// All keys of the catalogue: those with a built-in address, and those without.
QStringList keysWithAddress();
QStringList keysWithoutAddress();

// The base address of a host group: "center", "ids", "vcs", "monitor" or "web".
QString host(const QString &group);

// Whether it is an http or https address with a host.
bool isWebAddress(const QUrl &url);

// Whether scheme, host and port are the same.
bool isSameHost(const QUrl &one, const QUrl &other);

// Whether credentials may be sent there: the scheme, host and port are those of a
// host group or of an address in the file.
bool isServiceHost(const QUrl &url);

} // namespace ServiceAddresses
