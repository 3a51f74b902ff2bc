// Waiting for the end that the outside wants.
#pragma once

// To be called before any thread is started: the signals are left to waitForEnd().
void prepareForEnd();
// Returns at a signal to end (SIGTERM, SIGINT; on Windows Ctrl+C, Ctrl+Break, the end of
// the console or of the session), or, with `withStdin`, when standard input ends.
void waitForEnd(bool withStdin);
