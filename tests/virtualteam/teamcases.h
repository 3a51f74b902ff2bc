// Every operation of the team services with what it sends and what its signal says.
#pragma once

#include "virtualteam/httpvirtualteamoperation.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <functional>

struct TeamCase
{
    const char *name;
    const char *service; // the last part of its path
    std::function<void(CHttpVirtualTeamOperation *)> call;
    QByteArray form;
    QByteArray data;      // of a success
    const char *success;  // the signal's arguments, as text
    const char *failure;  // the same, the code where "%1" is
    const char *slotName; // of the reply
};

const QVector<TeamCase> &teamCases();

// Calls `told` with each signal that comes and with its arguments as text: "1|vt7|0".
void watchAll(CHttpVirtualTeamOperation *operation,
              const std::function<void(const QString &arguments)> &told);
