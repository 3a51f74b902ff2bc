// What a user can do with a service number, from a list, its menu or its window.
// `parent` is what the boxes stand over. Each may end with the host destroying the
// caller: nothing is to be done after it.
#pragma once

#include <QString>

class QWidget;

namespace ServiceCommands {

// The chat of a number that the user does not subscribe to is not opened.
void openChat(const QString &code);
void showHistory(const QString &code, QWidget *parent);

// Nothing happens while a change is under way. Offline the user is told so.
void subscribe(const QString &code, QWidget *parent);
// Asks first.
void unsubscribe(const QString &code, QWidget *parent);
// Whichever of the two there is to do.
void toggle(const QString &code, QWidget *parent);

} // namespace ServiceCommands
