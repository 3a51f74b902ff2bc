// The entry and exit lines of functions that several classes share: they name the class
// whose object it is.
#pragma once

#include "common/logging.h"

#include <QByteArray>

class ContactTreeScope
{
public:
    // `function`: as declared, without the class.
    ContactTreeScope(const char *file, int line, const char *className, const char *function)
        : m_text(QByteArray(className) + "::" + function), m_scope(file, line, m_text.constData())
    {
    }

private:
    const QByteArray m_text;
    const LogScope m_scope;
};

#define LOG_PAGE_SCOPE(function)                                                                   \
    const ContactTreeScope pageScope(__FILE__, __LINE__, m_kind.name, function)
