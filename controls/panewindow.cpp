#include "controls/panewindow.h"

#include "plugin/frienduimessageprocess.h"

#include <QWidget>

QWidget *paneWindow()
{
    FriendUIMessageProcess *hub = FriendUIMessageProcess::instance();
    return hub->hasPane() ? hub->getFriendWidget()->window() : nullptr;
}
