// One test executable holds several test classes. A class announces itself with
// FRIENDUI_TEST(Class) in its .cpp; the executable's arguments are the name of
// the class to run (all, without one) and Qt Test's own. With it come the headers
// that every test needs.
#pragma once

#include "tests/support/rows.h"

#include <QObject>
#include <QSignalSpy>
#include <QTest>

#include <functional>

using TestFactory = std::function<QObject *()>;

// Returns a value so that it can initialise a static.
bool registerTestClass(const char *name, const TestFactory &factory);

// Runs the classes in a home and configuration folder of their own, which is
// removed at the end. The result is the number of classes that failed.
int runTestClasses(int argc, char **argv);

// Waiting has a longer end than Qt's five seconds: a loaded machine is no fault.
#undef QTRY_VERIFY
#undef QTRY_VERIFY2
#undef QTRY_COMPARE
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, TestPatience)
#define QTRY_VERIFY2(condition, text) QTRY_VERIFY2_WITH_TIMEOUT(condition, text, TestPatience)
#define QTRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, TestPatience)
constexpr int TestPatience = 30000; // ms

#define FRIENDUI_TEST(Class)                                                                       \
    static const bool registered_##Class =                                                         \
        registerTestClass(#Class, [] { return static_cast<QObject *>(new Class); });
