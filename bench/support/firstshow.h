// The first window of a process, which pays for fonts, style and back end once:
// measured in a process of its own.
#pragma once

namespace FirstShow {

enum What
{
    EmptyTree, // the toolkit's tree view without rows
    Pane,      // the contacts pane, with 10,000 contacts that the host knows
    BarePage,  // a page in the toolkit's web view
    Page       // the same in the client's browser, loaded for it
};

// CPU time until the first paint, in milliseconds, from a new process; negative
// when that failed.
double measure(What what);

// Whether the arguments ask this process to be that new one; then it shows, writes
// the time to standard output, and *exitCode is set.
bool isChild(int argc, char **argv, int *exitCode);

} // namespace FirstShow
