// The approval windows, one per team.
#pragma once

#include "controls/windowregistry.h"

#include <QObject>

class CVirtualApply;

class CVirtualApplyMannger : public QObject
{
    Q_OBJECT

public:
    static CVirtualApplyMannger *instance();

    // `member`: who asked for the team. Raises the window that is there, also offline.
    void showVirtualApply(const QString &vtId, const QString &member);

private:
    CVirtualApplyMannger();
    WindowRegistry<CVirtualApply> m_windows;
};
