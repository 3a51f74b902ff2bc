// Where a program's words go: to whoever started it, as UTF-8 where the system has no
// encoding of its own for that. A program without a console of its own on Windows writes
// to that of the program which started it. Not a part of the module. Thread-safe.
#pragma once

#include <QString>

namespace Terminal {

enum Reader
{
    Nobody, // a program that runs by itself
    User
};

void say(const QString &text);      // to the standard output
void complain(const QString &text); // to the standard error
// Why the program ends. Where a complaint could not be seen, the user is shown it in a
// window and closes that.
void refuse(const QString &text, Reader reader);

} // namespace Terminal
