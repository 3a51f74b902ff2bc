#include "host/tour/tour.h"

#include "common/terminal.h"
#include "host/hostapplication.h"
#include "host/tour/tourdriver.h"
#include "host/tour/tourstage.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>

int runTour(HostApplication &host)
{
    const HostOptions &options = host.options();
    for (const QString &name : options.tourSteps) {
        const auto &steps = tourSteps();
        const bool known = std::any_of(steps.begin(), steps.end(), [&](const TourStep &step) {
            return name == QLatin1String(step.name);
        });
        if (!known) {
            Terminal::complain(QStringLiteral("tour: there is no step \"%1\"\n").arg(name));
            return ExitCode::BadArguments;
        }
    }
    const QString folder = QDir(options.tourFolder).absolutePath();
    if (!QDir().mkpath(folder)) {
        Terminal::complain(QStringLiteral("tour: the folder %1 cannot be made\n").arg(folder));
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
    if (!driver.failures().isEmpty())
        Terminal::complain(QStringLiteral("tour: these steps failed:\n  %1\n")
                               .arg(driver.failures().join(QLatin1String("\n  "))));
    return driver.failures().isEmpty() ? ExitCode::Success : ExitCode::TourFailed;
}
