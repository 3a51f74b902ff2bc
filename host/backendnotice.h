// How hosts of the same machine share a back end: the one that has started it leaves a
// file in its data folder that tells where it is, and takes it away at its end. Only the
// owner can read it. A lock beside it tells whether the host that wrote it still runs.
#pragma once

#include "host/backendprocess.h"

#include <QLockFile>

#include <memory>

struct SharedBackend
{
    BackendAddress address; // without a control port: that is the starter's
    int people = 0;         // of its sample company
    quint64 seed = 0;
};

class BackendNotice
{
public:
    ~BackendNotice() { withdraw(); }

    // Writes the notice into a data folder, in place of an earlier one. False with
    // *problem set when another host's stands there or the folder cannot be written.
    bool publish(const QString &folder, const SharedBackend &backend, QString *problem);
    void withdraw();

    // What a host that runs now tells in this folder; false: none does, or the file is
    // not one of these. What a killed host has left behind is removed.
    static bool read(const QString &folder, SharedBackend *backend);

private:
    QString m_file;
    std::unique_ptr<QLockFile> m_lock;
};
