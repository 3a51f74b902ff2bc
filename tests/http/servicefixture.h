// A user who is logged in, and a scripted server that is every host of the service
// address file.
#pragma once

#include "http/fileservices.h"
#include "tests/support/fakecontext.h"
#include "tests/support/fakeserver.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QDir>
#include <QTemporaryDir>

struct ServiceFixture
{
    QTemporaryDir folder;
    FakeServer server;
    FakeContext host;
    HostContextScope scope{&host};
    QByteArray addresses; // what the file holds

    ServiceFixture()
    {
        host.user = QStringLiteral("u1");
        host.programFolder = folder.path();
        host.baseFolder = folder.filePath(QStringLiteral("users"));
        const QByteArray address = server.url().toEncoded();
        QByteArray ini = "[Hosts]\n";
        for (const char *name : {"center", "ids", "vcs", "monitor", "web"})
            ini += QByteArray(name) + '=' + address + '\n';
        write(ini + "[ImFile]\ndownloadPointUrl=" + address + "center/im/downloadFile.do\n");
    }

    // The whole service address file.
    void write(const QByteArray &ini)
    {
        addresses = ini;
        writeFile(folder.filePath(QStringLiteral("allurl.ini")), ini);
    }

    void append(const QByteArray &ini) { write(addresses + ini); }

    QString makeFile(const QString &name, const QByteArray &bytes) const
    {
        writeFile(folder.filePath(name), bytes);
        return folder.filePath(name);
    }
};

// What a transfer ends with; waits for it, which for megabytes may be long.
inline HttpResponseData resultOf(QSignalSpy &finished)
{
    if (finished.isEmpty())
        finished.wait(4 * TestPatience);
    return finished.value(0).value(0).value<HttpResponseData>();
}
