// A program that is asked to end as from its terminal.
#pragma once

class QProcess;

namespace ConsoleProcess {

// To be called before it is started: it gets a console of its own where there are such.
void prepare(QProcess *process);
// The signal to end; Ctrl+Break on Windows. False: it could not be sent.
bool askToEnd(QProcess *process);

} // namespace ConsoleProcess
