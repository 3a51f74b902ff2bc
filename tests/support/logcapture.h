// The log lines that a test causes.
//
//     LogCapture log(host.context);
//     ...
//     QCOMPARE(log.linesWith("refused").size(), 1);
#pragma once

#include "tests/support/fakecontext.h"

#include <QStringList>

// Gives the context a running log thread. The thread and its file are the
// process's: every capture sees the lines since its own construction.
class LogCapture
{
public:
    explicit LogCapture(FakeContext &context);

    // Waits until everything logged so far has been written.
    QStringList lines() const;
    QStringList linesWith(const char *text) const;

private:
    int m_skip = 0; // lines that were there before
};
