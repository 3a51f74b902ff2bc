// Waiting for the end that the outside wants.
#pragma once

// To be called before any thread is started: the signals are left to waitForEnd().
void prepareForEnd();
// Returns at SIGTERM or SIGINT, or, with `withStdin`, when standard input ends.
void waitForEnd(bool withStdin);
