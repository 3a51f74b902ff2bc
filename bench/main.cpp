#include "bench/support/firstshow.h"
#include "bench/support/ratio.h"

#include <QApplication>

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int exitCode = 0;
    if (FirstShow::isChild(argc, argv, &exitCode))
        return exitCode;
    const QApplication app(argc, argv);
    return Ratio::run(argc, argv);
}
