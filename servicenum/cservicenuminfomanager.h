// The windows of service numbers, at most one per number.
#pragma once

#include "controls/windowregistry.h"

#include <QObject>

class CServiceNumInfo;

class CServiceNumInfoManager : public QObject
{
    Q_OBJECT

public:
    // At a time: the host's events open them, too, and may come by the thousand.
    static constexpr int MaximumWindows = 50;

    static CServiceNumInfoManager *instance();

    // Opens or raises the number's window, also offline. Does nothing for an empty code,
    // nor for a new one with too many windows open.
    void showServiceNumInfo(const QString &code);

    CServiceNumInfo *window(const QString &code) const; // null: not open

public slots:
    void onServiceNumInfoClosed(const QString &code);

private:
    CServiceNumInfoManager();

    WindowRegistry<CServiceNumInfo> m_windows;
};
