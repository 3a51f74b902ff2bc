#include "bench/support/firstshow.h"

#include "bench/support/ratio.h"
#include "bench/support/samplecontacts.h"
#include "contacts/friendwidget.h"
#include "tests/support/fakecontext.h"

#include <QApplication>
#include <QProcess>
#include <QTreeView>

#include <cstdio>
#include <memory>

namespace {

constexpr int Contacts = 10000;
constexpr int Groups = 20;

const char *argumentFor(FirstShow::What what)
{
    return what == FirstShow::Pane ? "--first-show=pane" : "--first-show=empty-tree";
}

double show(FirstShow::What what)
{
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
    for (const What what : {EmptyTree, Pane}) {
        if (argc != 2 || qstrcmp(argv[1], argumentFor(what)) != 0)
            continue;
        const QApplication app(argc, argv);
        std::printf("%f\n", show(what));
        *exitCode = 0;
        return true;
    }
    return false;
}
