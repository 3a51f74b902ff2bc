// A program that the host starts beside itself.
#pragma once

class QProcess;

namespace ChildProcess {

// To be called before the start: on Windows the program gets no console window, and hears
// nothing of what is typed in the host's console.
void startUnseen(QProcess *process);

} // namespace ChildProcess
