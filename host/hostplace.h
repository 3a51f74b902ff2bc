// Who the host is started as, where it keeps what is that user's, and whose back end it
// uses: settled before there is a window, from the command line and from what stands on
// the disk.
//
// A data folder belongs to one user. Without --data the first user has the platform's
// folder for application data, anybody else a folder below it; these hosts share one back
// end, which whoever starts first runs for all of them.
#pragma once

#include "host/commandline.h"

#include <QStringList>

struct HostPlace
{
    QString user; // a uid of the sample company
    QString folder;
    QString backendFolder; // of the back end that this host would start
    // Data folders of hosts that may run a back end already; in these it is looked for.
    QStringList backendsOfOthers;
    bool mayStartBackend = true;
};

// The platform's folder for application data.
QString defaultDataFolder();

// Sets `people` of the options to the number of the back end that is joined, unless it
// was given. False with *problem set, a text for the terminal: nobody has that uid, the
// folder is another user's, or no host runs with the folder to join.
bool settlePlace(HostOptions *options, HostPlace *place, QString *problem);
