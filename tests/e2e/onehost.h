// A back end in a process of its own, and the reference host of one of its users with the
// module in it, for tests that follow what people do to each other.
#pragma once

#include "host/hostapplication.h"
#include "host/mainwindow.h"
#include "host/tour/tourstage.h"
#include "host/webservices.h"
#include "host/windows/hostwindows.h"
#include "host/windows/notices.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

constexpr int WaitMs = 60000;

// The back end, ready to be used.
struct RunningServices
{
    QTemporaryDir folder;
    std::unique_ptr<BackendProcess> process;

    bool start()
    {
        BackendProcess::Options options;
        options.program = QStringLiteral(FRIENDUI_BACKEND);
        options.dataFolder = folder.filePath(QStringLiteral("backend"));
        process = std::make_unique<BackendProcess>(options);
        QSignalSpy ready(process.get(), &BackendProcess::ready);
        process->start();
        return ready.wait(WaitMs);
    }
    const BackendAddress &address() const { return process->address(); }
};

// A host of one of the users, as it is started from a command line.
struct OneHost
{
    QTemporaryDir folder;
    std::unique_ptr<HostApplication> application;
    std::unique_ptr<TourStage> stage;

    bool start(const QString &user, const BackendAddress &services)
    {
        HostOptions options;
        options.user = user;
        options.dataFolder = folder.path();
        options.pluginFile = QStringLiteral(FRIENDUI_MODULE);
        options.backendAddress = services.address;
        options.caFile = services.caFile;
        options.passwordFile = services.passwordFile;
        options.simulation = false;
        HostPlace place;
        QString problem;
        if (!settlePlace(&options, &place, &problem))
            return false;
        application = std::make_unique<HostApplication>(options, place);
        stage = std::make_unique<TourStage>(*application);
        return application->start() == ExitCode::Success && application->hasPane() &&
               QTest::qWaitFor(
                   [this] { return application->services()->state() == WebServices::Ready; },
                   WaitMs);
    }
    ~OneHost()
    {
        if (application)
            application->shutDown();
    }
    int notices() const { return application->window()->windows()->notices()->count(); }
};
