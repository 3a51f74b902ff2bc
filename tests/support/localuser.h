// A user who is logged in, with a data folder and a local database of their own, for
// as long as the object lives.
#pragma once

#include "common/localdatabase.h"
#include "tests/support/fakecontext.h"

#include <QCoreApplication>
#include <QTemporaryDir>

class LocalUser
{
public:
    LocalUser() : m_scope(&host)
    {
        host.user = QStringLiteral("u1");
        host.baseFolder = folder.path();
        LocalDatabase::instance().close();
    }
    ~LocalUser()
    {
        LocalDatabase::instance().close();
        // Signals that the next test would take for its own.
        QCoreApplication::removePostedEvents(&LocalDatabase::instance());
    }

    QString file() const { return folder.path() + QLatin1String("/u1/localData.db"); }

    QTemporaryDir folder;
    FakeContext host;

private:
    HostContextScope m_scope;
};
