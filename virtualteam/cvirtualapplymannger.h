// The approval windows, one per team.
#pragma once

#include "virtualteam/teamwindows.h"

#include <QObject>

class CVirtualApply;

class CVirtualApplyMannger : public QObject
{
    Q_OBJECT

public:
    static CVirtualApplyMannger *instance();

    // `member`: who asked for the team. Raises the window that is there, also offline.
    void showVirtualApply(const QString &vtId, const QString &member);

    CVirtualApply *window(const QString &vtId) const; // null: not open

public slots:
    void onVirtualApplyClosed(const QString &vtId);

private:
    CVirtualApplyMannger();
    TeamWindows<CVirtualApply> m_windows;
};
