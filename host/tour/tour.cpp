#include "host/tour/tour.h"

#include "host/hostapplication.h"
#include "host/tour/tourdriver.h"
#include "host/tour/tourstage.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <cstdio>

int runTour(HostApplication &host)
{
    const HostOptions &options = host.options();
    for (const QString &name : options.tourSteps) {
        const auto &steps = tourSteps();
        const bool known = std::any_of(steps.begin(), steps.end(), [&](const TourStep &step) {
            return name == QLatin1String(step.name);
        });
        if (!known) {
            std::fprintf(stderr, "tour: there is no step \"%s\"\n", qPrintable(name));
            return ExitCode::BadArguments;
        }
    }
    const QString folder = QDir(options.tourFolder).absolutePath();
    if (!QDir().mkpath(folder)) {
        std::fprintf(stderr, "tour: the folder %s cannot be made\n", qPrintable(folder));
        return ExitCode::StorageFailed;
    }
    TourStage stage(host);
    TourDriver driver(&stage, folder, options.tourSteps);
    QObject::connect(&driver, &TourDriver::finished, qApp, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    driver.start();
    QCoreApplication::exec();
    if (!host.hasPane())
        return ExitCode::PluginFailed;
    return driver.failures().isEmpty() ? ExitCode::Success : ExitCode::TourFailed;
}
