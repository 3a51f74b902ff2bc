#include "bench/support/firstshow.h"

#include "bench/support/countingserver.h"
#include "bench/support/ratio.h"
#include "bench/support/samplecontacts.h"
#include "contacts/friendwidget.h"
#include "tests/support/fakecontext.h"
#include "webview/browserwidget.h"

#include <QApplication>
#include <QEventLoop>
#include <QLibrary>
#include <QProcess>
#include <QTreeView>

#include <cstdio>
#include <memory>

namespace {

constexpr int Contacts = 10000;
constexpr int Groups = 20;

const char *argumentFor(FirstShow::What what)
{
    switch (what) {
    case FirstShow::EmptyTree:
        return "--first-show=empty-tree";
    case FirstShow::Pane:
        return "--first-show=pane";
    case FirstShow::BarePage:
        return "--first-show=bare-page";
    case FirstShow::Page:
        return "--first-show=page";
    }
    return "";
}

bool showInBareView(const QUrl &url)
{
    using Show = bool (*)(const QUrl &);
    QLibrary library(QCoreApplication::applicationDirPath() + QLatin1String("/libbare_webview.so"));
    library.setLoadHints(QLibrary::PreventUnloadHint);
    const auto show = reinterpret_cast<Show>(library.resolve("showBarePage"));
    return show && show(url);
}

bool showInBrowser(const QUrl &url)
{
    if (!BrowserWidget::isAvailable())
        return false;
    BrowserWidget browser;
    browser.resize(640, 520);
    browser.show();
    QEventLoop loop;
    bool isShown = false;
    QObject::connect(&browser, &BrowserWidget::finished, &loop, [&](bool ok) {
        isShown = ok;
        loop.quit();
    });
    browser.open(url);
    loop.exec();
    browser.repaint();
    return isShown;
}

double showPage(FirstShow::What what)
{
    FakeContext host;
    const HostContextScope scope(&host);
    const CountingServer server("text/html", "<html><body><p>A message.</p></body></html>", 0);
    bool isShown = false;
    const double cost = Ratio::cpuPerUnit(1e6, [&] {
        isShown =
            what == FirstShow::Page ? showInBrowser(server.url()) : showInBareView(server.url());
    });
    return isShown ? cost : -1;
}

double show(FirstShow::What what)
{
    if (what == FirstShow::Page || what == FirstShow::BarePage)
        return showPage(what);
    FakeContext host;
    const HostContextScope scope(&host);
    host.innerGroups = sampleGroups(Groups);
    const QList<FriendData> contacts = sampleContacts(Contacts, Groups);
    for (const FriendData &contact : contacts)
        host.addContact(contact);
    std::unique_ptr<QWidget> window;
    return Ratio::cpuPerUnit(1e6, [&] {
        if (what == FirstShow::Pane)
            window = std::make_unique<FriendWidget>();
        else
            window = std::make_unique<QTreeView>();
        window->resize(360, 640);
        window->show();
        QApplication::processEvents();
    });
}

} // namespace

double FirstShow::measure(What what)
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(argumentFor(what))});
    if (!child.waitForFinished(60000) || child.exitCode() != 0)
        return -1;
    bool ok = false;
    const double milliseconds = child.readAllStandardOutput().trimmed().toDouble(&ok);
    return ok ? milliseconds : -1;
}

bool FirstShow::isChild(int argc, char **argv, int *exitCode)
{
    for (const What what : {EmptyTree, Pane, BarePage, Page}) {
        if (argc != 2 || qstrcmp(argv[1], argumentFor(what)) != 0)
            continue;
        const QApplication app(argc, argv);
        std::printf("%f\n", show(what));
        *exitCode = 0;
        return true;
    }
    return false;
}
