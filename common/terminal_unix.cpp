#include "common/terminal.h"

#include <cstdio>

namespace {
void write(FILE *file, const QString &text)
{
    // One call, so that lines of two threads do not mix.
    std::fputs(text.toLocal8Bit().constData(), file);
    std::fflush(file);
}
} // namespace

void Terminal::say(const QString &text)
{
    write(stdout, text);
}

void Terminal::complain(const QString &text)
{
    write(stderr, text);
}

void Terminal::refuse(const QString &text, Reader)
{
    complain(text);
}
