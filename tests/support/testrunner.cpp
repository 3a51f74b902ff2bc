#include "tests/support/testrunner.h"

#include "tests/support/ownhome.h"

#include <QApplication>
#include <QCursor>
#include <QMap>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <memory>

namespace {
QMap<QByteArray, TestFactory> &factories()
{
    static QMap<QByteArray, TestFactory> map;
    return map;
}
} // namespace

bool registerTestClass(const char *name, const TestFactory &factory)
{
    factories().insert(name, factory);
    return true;
}

int runTestClasses(int argc, char **argv)
{
    QTemporaryDir folder;
    const OwnHome home(folder.path());
    if (!home.isInForce()) {
        std::fprintf(stderr, "the user's folders are not those of the tests\n");
        return 1;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    // The pointer of a real screen stays clear of the windows.
    if (QGuiApplication::platformName() == QLatin1String("windows"))
        QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());

    QStringList arguments = app.arguments();
    QByteArray only;
    if (arguments.size() > 1 && factories().contains(arguments.at(1).toLatin1()))
        only = arguments.takeAt(1).toLatin1();
    else if (arguments.size() > 1 && arguments.at(1).startsWith(QLatin1String("Tst"))) {
        std::fprintf(stderr, "no test class %s in this executable\n", argv[1]);
        return 1;
    }

    int failed = 0;
    for (auto at = factories().constBegin(); at != factories().constEnd(); ++at) {
        if (!only.isEmpty() && at.key() != only)
            continue;
        const std::unique_ptr<QObject> test(at.value()());
        failed += QTest::qExec(test.get(), arguments) == 0 ? 0 : 1;
    }
    // As an application ends: what still runs is told.
    QTimer::singleShot(0, &app, &QCoreApplication::quit);
    QApplication::exec();
    return failed;
}

int main(int argc, char **argv)
{
    return runTestClasses(argc, argv);
}
