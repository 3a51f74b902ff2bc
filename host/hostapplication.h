// Puts the reference host together: core, context, bus, window, plug-in.
#pragma once

#include "host/commandline.h"
#include "host/hostplace.h"

#include <QLockFile>

#include <memory>

class CoreNotifier;
class EmbeddedCore;
class EventLog;
class ExternalNews;
class ExternalRoster;
class HostBus;
class HostContext;
class HostLanguage;
class LeverMenu;
class MainWindow;
class PersonPictures;
class PresenceSimulator;
class ServiceEvents;
class SubscriptionNews;
class TeamNews;
class WebLog;
class WebServices;

class HostApplication
{
public:
    HostApplication(const HostOptions &options, const HostPlace &place);
    ~HostApplication();
    HostApplication(const HostApplication &) = delete;
    HostApplication &operator=(const HostApplication &) = delete;

    // Opens the data, makes the window and loads the plug-in. An ExitCode; on
    // failure the reason is on the standard error.
    int start();

    // Ends the back end and writes the rest of the log. Called after the event loop
    // has ended.
    void shutDown();

    MainWindow *window() const { return m_window.get(); }
    LeverMenu *levers() const { return m_levers; }
    HostContext *context() const { return m_context; }
    HostBus *bus() const { return m_bus.get(); }
    EventLog *log() const { return m_log.get(); }
    EmbeddedCore *core() const { return m_core.get(); }
    WebServices *services() const { return m_services.get(); }
    const HostOptions &options() const { return m_options; }
    bool hasPane() const;

    // For a second process that is to look the same with data of its own.
    QStringList tourArguments() const;

private:
    void refuse(const QString &problem) const;
    bool openFolder(QString *problem);
    void chooseLook();
    int openCore();
    void prepareServices();
    void buildWindow();
    void addLevers();
    void followEvents();
    void startWithoutRoster();
    bool loadPane(const QString &file);
    int importPeople();

    HostOptions m_options;
    HostPlace m_place;
    const QString m_folder;
    QString m_pluginFile;
    std::unique_ptr<QLockFile> m_lock;
    std::unique_ptr<EmbeddedCore> m_core;
    std::unique_ptr<PresenceSimulator> m_simulator;
    // Never deleted: the plug-in keeps the pointer until the process ends.
    HostContext *m_context = nullptr;
    std::unique_ptr<EventLog> m_log;
    std::unique_ptr<WebLog> m_webLog;
    std::unique_ptr<WebServices> m_services;
    std::unique_ptr<HostBus> m_bus;
    std::unique_ptr<HostLanguage> m_language;
    std::unique_ptr<CoreNotifier> m_notifier;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<ServiceEvents> m_events;
    std::unique_ptr<ExternalRoster> m_external;
    std::unique_ptr<PersonPictures> m_pictures;
    std::unique_ptr<TeamNews> m_teamNews;
    std::unique_ptr<ExternalNews> m_externalNews;
    std::unique_ptr<SubscriptionNews> m_subscriptionNews;
    LeverMenu *m_levers = nullptr;
    bool m_sessionStarted = false;
};
