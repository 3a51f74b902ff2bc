// Lets Ctrl+C in the terminal and the system's request to end close the program
// as its window does: the log and the settings are written to their end.
#pragma once

class QObject;

// Call once, after the application object was made. A second signal ends the
// process at once. The helper object belongs to `parent`.
void quitOnSignals(QObject *parent);
