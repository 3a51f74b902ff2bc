#include "host/hostapplication.h"

#include "common/context.h"
#include "common/logfilewriter.h"
#include "common/logging.h"
#include "common/terminal.h"
#include "host/attention.h"
#include "host/chatlevers.h"
#include "host/companylevers.h"
#include "host/core/embeddedcore.h"
#include "host/core/presencesimulator.h"
#include "host/core/vcardimport.h"
#include "host/corenotifier.h"
#include "host/datafolder.h"
#include "host/eventlog.h"
#include "host/externalnews.h"
#include "host/externalroster.h"
#include "host/hostbus.h"
#include "host/hostcontext.h"
#include "host/hostlanguage.h"
#include "host/hostpreferences.h"
#include "host/hostskin.h"
#include "host/levermenu.h"
#include "host/mainwindow.h"
#include "host/panearea.h"
#include "host/personpictures.h"
#include "host/pluginloader.h"
#include "host/requesttable.h"
#include "host/samplepicture.h"
#include "host/serviceevents.h"
#include "host/servicelevers.h"
#include "host/subscriptionnews.h"
#include "host/teamnews.h"
#include "host/weblog.h"
#include "host/webservices.h"
#include "host/windows/hostwindows.h"
#include "host/windows/importreport.h"
#include "hostapi/eventcodes.h"
#include "hostapi/plugininterface.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QTimer>

namespace {

constexpr quint64 SimulationSeed = 1;

QString line(const QString &text)
{
    return QStringLiteral("friendui-host: %1\n").arg(text);
}

void tell(const QString &text)
{
    Terminal::complain(line(text));
}

} // namespace

HostApplication::HostApplication(const HostOptions &options, const HostPlace &place)
    : m_options(options), m_place(place), m_folder(place.folder)
{
}

HostApplication::~HostApplication()
{
    m_externalNews.reset();
    m_teamNews.reset();
    // The pane goes with the window; until then everything it calls is alive.
    m_window.reset();
    if (m_bus)
        m_bus->setPlugin(nullptr, QString());
    m_subscriptionNews.reset();
    m_pictures.reset();
    m_external.reset();
    m_events.reset();
    // The context stays, without what goes now.
    m_services.reset();
    if (m_context)
        m_context->setWebLog(nullptr);
}

int HostApplication::start()
{
    QString problem;
    if (!openFolder(&problem)) {
        refuse(problem);
        return ExitCode::StorageFailed;
    }
    chooseLook();
    m_pluginFile = m_options.pluginFile.isEmpty() ? defaultPluginFile() : m_options.pluginFile;
    const int opened = openCore();
    if (opened != ExitCode::Success)
        return opened;

    // Before anything else of the host or the plug-in runs: it starts the log.
    m_context = new HostContext(m_core.get(), m_folder);
    setHostContext(m_context);
    LOG_INFO("the reference host " << QCoreApplication::applicationVersion() << " starts; data in "
                                   << logText(m_folder) << ", plug-in " << logText(m_pluginFile));
    if (!m_context->logWriter()->isOpen())
        tell(QCoreApplication::translate("HostApplication", "The log file %1 cannot be written.")
                 .arg(m_context->logFile()));
    HostSkin::setFont();
    prepareServices();
    buildWindow();

    // First the import, so that the pane starts with the people.
    const int imported = m_options.importFile.isEmpty() ? ExitCode::Success : importPeople();
    loadPane(m_pluginFile);
    // Its display has no window manager to enlarge the window with.
    if (QGuiApplication::platformName() == QLatin1String("vnc"))
        m_window->showMaximized();
    else
        m_window->show();
    // Behind the first picture of the window, which needs no service.
    QTimer::singleShot(0, m_services.get(), &WebServices::start);
    return imported;
}

// Why the program does not start.
void HostApplication::refuse(const QString &problem) const
{
    const bool isTour = !m_options.tourFolder.isEmpty();
    Terminal::refuse(line(problem), isTour ? Terminal::Nobody : Terminal::User);
}

// The lock comes before anything is deleted or read.
bool HostApplication::openFolder(QString *problem)
{
    if (QFileInfo::exists(m_folder)) {
        m_lock = lockDataFolder(m_folder, problem);
        if (!m_lock)
            return false;
    }
    if ((m_options.reset && !resetDataFolder(m_folder, problem)) ||
        !prepareDataFolder(m_folder, m_place.user, problem))
        return false;
    if (!m_lock)
        m_lock = lockDataFolder(m_folder, problem);
    return m_lock != nullptr;
}

// What was asked for, else what was chosen the last time, else the system's. First
// of all, since the core's messages need the language.
void HostApplication::chooseLook()
{
    const HostPreferences preferences(m_folder);
    if (m_options.language.isEmpty())
        m_options.language = preferences.language();
    if (m_options.language.isEmpty())
        m_options.language = HostLanguage::systemLanguage();
    if (m_options.skin.isEmpty())
        m_options.skin = preferences.skin();
    if (m_options.skin.isEmpty())
        m_options.skin = QStringLiteral("light");
    m_language = std::make_unique<HostLanguage>();
    m_language->apply(m_options.language);
}

int HostApplication::openCore()
{
    EmbeddedCore::Options options;
    options.folder = m_folder + QLatin1String("/core");
    options.people = m_options.people;
    options.user = m_place.user;
    const bool sampleWanted = m_options.peopleGiven || !HostPreferences(m_folder).showsImport();
    options.sampleFriends = m_options.importFile.isEmpty() && sampleWanted;
    m_core = std::make_unique<EmbeddedCore>(options);
    QString problem;
    if (!m_core->open(&problem)) {
        refuse(problem);
        return ExitCode::StorageFailed;
    }
    if (!m_core->notice().isEmpty())
        tell(m_core->notice());
    if (m_options.offline)
        m_core->setConnected(false);
    m_simulator = std::make_unique<PresenceSimulator>(m_core.get(), SimulationSeed);
    return ExitCode::Success;
}

void HostApplication::prepareServices()
{
    WebServices::Options options;
    if (m_options.noBackend)
        options.source = WebServices::None;
    else if (!m_options.backendAddress.isEmpty())
        options.source = WebServices::Named;
    options.named.address = m_options.backendAddress;
    if (!m_options.caFile.isEmpty())
        options.named.caFile = QFileInfo(m_options.caFile).absoluteFilePath();
    options.named.password = BackendProcess::passwordIn(m_options.passwordFile);
    options.found.process.dataFolder = m_place.backendFolder;
    options.found.process.people = m_options.people;
    options.found.process.controlPort = m_options.backendControlPort;
    options.found.mayStart = m_place.mayStartBackend;
    options.found.shareIn = m_folder;
    options.found.lookedIn = m_place.backendsOfOthers;
    m_webLog = std::make_unique<WebLog>();
    m_context->setWebLog(m_webLog.get());
    m_services = std::make_unique<WebServices>(m_context, options);
}

void HostApplication::buildWindow()
{
    m_log = std::make_unique<EventLog>();
    m_bus = std::make_unique<HostBus>(m_log.get());
    m_levers = new LeverMenu(m_core.get(), m_simulator.get());
    m_window = std::make_unique<MainWindow>(
        MainWindow::Parts{m_core.get(), m_context, m_bus.get(), m_log.get(), m_language.get(),
                          m_levers, m_services.get(), m_webLog.get()});
    m_levers->setParent(m_window.get(), m_levers->windowFlags());
    m_notifier = std::make_unique<CoreNotifier>(m_core.get(), m_bus.get(), m_context);
    const HostContext *context = m_context;
    new Attention({m_core.get(), m_window->windows()->notices(),
                   [context](const QString &jid) { return context->sessionNotify(jid) != 0; }},
                  m_window.get());

    addLevers();
    followEvents();
    installRequestHandlers(*m_bus,
                           {m_core.get(), m_window->windows(), m_external.get(), m_pictures.get()});

    m_window->setLanguage(m_language->current());
    m_window->setSkin(m_options.skin);
    for (const QString &operation : m_options.failing)
        m_levers->setFailing(operation, true);
    for (const QString &operation : m_options.silent)
        m_levers->setSilent(operation, true);
    m_levers->setSimulating(m_options.simulation);
    startWithoutRoster();

    const WebServices *services = m_services.get(); // it still tells while it is destroyed
    CoreNotifier *notifier = m_notifier.get();
    QObject::connect(services, &WebServices::changed, notifier, [services, notifier] {
        if (services->state() == WebServices::Ready)
            notifier->announceServices();
    });
    QObject::connect(
        m_window.get(), &MainWindow::languageChosen, m_window.get(),
        [this](const QString &value) { HostPreferences(m_folder).setLanguage(value); });
    QObject::connect(m_window.get(), &MainWindow::skinChosen, m_window.get(),
                     [this](const QString &value) { HostPreferences(m_folder).setSkin(value); });
    QObject::connect(m_window->paneArea(), &PaneArea::retryWanted, m_window.get(),
                     [this] { loadPane(m_pluginFile); });
    QObject::connect(m_window->paneArea(), &PaneArea::fileChosen, m_window.get(),
                     [this](const QString &file) { loadPane(file); });
    for (const QString &notice : {m_core->notice(), m_context->notice()}) {
        if (!notice.isEmpty())
            m_window->showNote(notice);
    }
}

// What happens at the web services, and what is asked of them for the plug-in.
void HostApplication::followEvents()
{
    MessagingCore *core = m_core.get();
    HostBus *bus = m_bus.get();
    Notices *notices = m_window->windows()->notices();
    m_events = std::make_unique<ServiceEvents>();
    ServiceEvents *events = m_events.get();
    events->goOnFrom(HostPreferences(m_folder).eventsReached());
    QObject::connect(events, &ServiceEvents::reached, m_window.get(),
                     [this](qint64 since) { HostPreferences(m_folder).setEventsReached(since); });
    m_external = std::make_unique<ExternalRoster>(
        ExternalRoster::Parts{m_services.get(), events, core, bus});
    m_pictures = std::make_unique<PersonPictures>(
        PersonPictures::Parts{m_services.get(), events, m_external.get(), core, bus});
    m_teamNews =
        std::make_unique<TeamNews>(TeamNews::Parts{events, core, bus, m_webLog.get(), notices});
    m_externalNews = std::make_unique<ExternalNews>(
        ExternalNews::Parts{events, m_external.get(), core, m_context, bus, notices});
    QObject::connect(m_teamNews.get(), &TeamNews::note, m_window.get(), &MainWindow::showNote);
    QObject::connect(m_external.get(), &ExternalRoster::note, m_window.get(),
                     &MainWindow::showNote);
    QObject::connect(m_pictures.get(), &PersonPictures::note, m_window.get(),
                     &MainWindow::showNote);
    m_subscriptionNews = std::make_unique<SubscriptionNews>(
        SubscriptionNews::Parts{m_services.get(), events, core, bus});
    events->follow(m_services.get(), core);
}

void HostApplication::addLevers()
{
    const QString pictures = m_context->pictureFolder();
    SamplePicture::drawServices(*m_core, pictures);
    auto *levers = new ChatLevers(m_core.get(), pictures, m_levers);
    m_levers->addSeparator();
    m_levers->addMenu(levers);
    QObject::connect(levers, &ChatLevers::note, m_window.get(), &MainWindow::showNote);
    QObject::connect(levers, &ChatLevers::reloadChannelsWanted, m_bus.get(),
                     [this] { m_bus->notify(Inbound::ReloadChannels); });
    auto *services =
        new ServiceLevers({m_services.get(), m_core.get(), m_bus.get(), pictures}, m_levers);
    m_levers->addMenu(services);
    QObject::connect(services, &ServiceLevers::note, m_window.get(), &MainWindow::showNote);
    HostWindows *windows = m_window->windows();
    auto *company = new CompanyLevers(
        m_services.get(), m_place.user,
        [windows](const auto &picked) {
            windows->pickColleague(CompanyLevers::tr("Who approves new teams"), picked);
        },
        m_levers);
    m_levers->addMenu(company);
    QObject::connect(company, &CompanyLevers::note, m_window.get(), &MainWindow::showNote);
}

// A group list that fails is seen only where no earlier one is shown instead.
void HostApplication::startWithoutRoster()
{
    const QStringList levers = m_options.failing + m_options.silent;
    if (!levers.contains(QLatin1String("all")) && !levers.contains(QLatin1String("RequestGroups")))
        return;
    m_context->setRosterKnown(false);
    QObject::connect(m_core.get(), &MessagingCore::groupsReceived, m_window.get(),
                     [this] { m_context->setRosterKnown(true); });
}

bool HostApplication::loadPane(const QString &file)
{
    m_pluginFile = file;
    const LoadedPlugin loaded = loadPlugin(file, m_context, m_bus.get());
    QWidget *pane = loaded.plugin ? loaded.plugin->getMainWidget(m_window.get()) : nullptr;
    if (!pane) {
        const QString problem =
            loaded.plugin
                ? QCoreApplication::translate("HostApplication", "The plug-in has no pane.")
                : loaded.problem;
        LOG_ERROR("plug-in " << loaded.file << ": " << problem);
        tell(loaded.file + QLatin1String(": ") + problem);
        m_window->paneArea()->setProblem(loaded.file, problem);
        return false;
    }
    m_window->paneArea()->setPane(pane);
    m_window->setSkin(m_window->skin());
    m_notifier->startSession();
    return true;
}

int HostApplication::importPeople()
{
    const VCardImportSummary summary = importVCardFile(m_options.importFile, m_core.get());
    if (summary.ok)
        HostPreferences(m_folder).setShowsImport(true);
    // Of a file that could not be used, the summary is the first problem.
    const QStringList details = summary.problems.mid(summary.ok ? 0 : 1);
    for (const QString &problem : details)
        tell(m_options.importFile + QLatin1String(": ") + problem);
    if (summary.ok)
        tell(summary.text());
    else
        refuse(summary.text());
    m_window->showNote(summary.text());
    if (!details.isEmpty()) {
        auto *report =
            new ImportReport(m_options.importFile, summary.text(), details, m_window.get());
        QMetaObject::invokeMethod(report, &QDialog::open, Qt::QueuedConnection);
    }
    return summary.ok ? ExitCode::Success : ExitCode::ImportFailed;
}

bool HostApplication::hasPane() const
{
    return m_window && m_window->paneArea()->pane();
}

QStringList HostApplication::tourArguments() const
{
    // What such a process shows needs no web services.
    QStringList arguments{QStringLiteral("--no-backend"),
                          QStringLiteral("--user"),
                          m_place.user,
                          QStringLiteral("--people"),
                          QString::number(m_options.people),
                          QStringLiteral("--plugin"),
                          m_pluginFile,
                          QStringLiteral("--lang"),
                          m_options.language,
                          QStringLiteral("--skin"),
                          m_options.skin};
    if (!m_options.importFile.isEmpty())
        arguments += {QStringLiteral("--import"), m_options.importFile};
    return arguments;
}

void HostApplication::shutDown()
{
    if (m_services)
        m_services->stop();
    if (m_context)
        m_context->shutDown();
}
