// The sign of the team views that something runs: a note in the corner, so that what
// is known stays readable. Short work ends before it is seen.
#pragma once

#include "controls/loadingoverlay.h"

#include <QTimer>

class WaitWgt : public LoadingOverlay
{
    Q_OBJECT

public:
    static constexpr int Delay = 300; // ms

    explicit WaitWgt(QWidget *area);

    void setBusy(bool busy);

private:
    QTimer m_delay;
};
