// The messages of a service number, on a web page.
#pragma once

#include <QString>

class CServiceNoHistory
{
public:
    static void showHistory(const QString &code, const QString &name);
};
