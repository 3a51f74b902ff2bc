// Windows about teams, one per key: what the managers of such windows share.
#pragma once

#include "common/logging.h"
#include "controls/windowregistry.h"
#include "virtualteam/teammessages.h"

#include <QApplication>

template <class Window> class TeamWindows
{
public:
    // What a manager logs when a window closes that it does not know.
    static constexpr const char *UnknownWindow =
        "CVirtualTeamInfoManager::onVirtualTeamInfoClosed,ERROR,窗口未被加入缓存中.";

    // At a time: the host's events open them, too, and may come by the thousand.
    static constexpr int Maximum = 50;

    // Raises the window of the key, also offline. Without one `make` makes it, or the
    // user is told that this cannot be done now.
    template <class Make> void show(const QString &key, Make make)
    {
        Window *window = m_windows.find(key);
        if (!window && m_windows.count() >= Maximum) {
            LOG_ERROR("too many windows about teams are open");
            return;
        }
        if (!window && TeamMessages::mayRequest(QApplication::activeWindow()))
            window = m_windows.findOrMake(key, make);
        if (!window)
            return;
        window->present();
        window->update();
    }

    Window *find(const QString &key) const { return m_windows.find(key); }

    // False when there was no window of the key.
    bool forget(const QString &key) { return m_windows.take(key) != nullptr; }

private:
    WindowRegistry<Window> m_windows;
};
