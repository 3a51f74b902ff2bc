// An organisation request, the server that answers it, and the passport behind it.
#pragma once

#include "http/cpassportloginserver.h"
#include "org/httporgfun.h"
#include "tests/support/fakehost.h"
#include "tests/support/fakeserver.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

// Refreshes when it is told to.
class Passport : public CPassportLoginServer
{
public:
    void ManualRefreshAuthID() override
    {
        ++refreshes;
        if (answers)
            QMetaObject::invokeMethod(
                this, [this] { finish(); }, Qt::QueuedConnection);
    }
    void UserOverdue() override { ++overdue; }
    void finish()
    {
        setAuthId(QStringLiteral("fresh"));
        finishRefresh(true);
    }
    int refreshes = 0, overdue = 0;
    bool answers = true;
};

class OrgRequestFixture : public QObject
{
    Q_OBJECT

protected:
    enum Kind
    {
        Children,
        Locate,
        Search
    };

    void setUp();
    void tearDown();

    // A reply with so many people.
    static QByteArray employees(int count);
    HttpOrgFun *start(Kind kind);
    // Success, failure, not there, done; of the request started last.
    QVector<int> signalCounts() const;
    void writeAddresses(const QString &address);

    std::unique_ptr<FakeHost> host;
    std::unique_ptr<FakeServer> server;
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<Passport> passport;
    QVector<std::shared_ptr<QSignalSpy>> m_spies;
};
