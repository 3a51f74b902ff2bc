// The menu of a group chat: what it offers depends on the room and on what the user
// may do there.
#pragma once

#include "controls/skinmenu.h"

struct MucRow;

class MucMenu : public SkinMenu
{
    Q_OBJECT

public:
    explicit MucMenu(QWidget *parent);

    // The submenu of the setting of messages, which tells of its actions itself.
    SkinMenu *settings() const { return m_settings; }

    // Adapts all entries to a room. `settable`: whether its setting can be changed now.
    void prepare(const MucRow &room, bool settable);

    // The marks of the setting. A click toggles one, but the setting changes with the
    // service's answer: showSetting() puts them back.
    void setSilent(bool silent);
    void showSetting();

private:
    void offer(const char *key, bool may);

    SkinMenu *m_settings;
    QAction *m_addressBook; // its object name says which way it goes
    bool m_silent = false;
};
