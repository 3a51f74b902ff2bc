// The style sheets of the contact card and of what looks like it.
#pragma once

#include "hostapi/skinrecord.h"

class QString;
class QWidget;

// Gives the card's parts below `window` their sheets. Colours that the record leaves
// out, or that are none, come from the skin of now.
//
// Each part has its own: below a widget with a sheet every other one is styled too,
// which costs more than all the rest of opening a card.
void styleCard(QWidget *window, const SysUIData &skin);

// As QWidget::setStyleSheet(), which polishes everything again even when the sheet is
// the one that the widget has.
void changeStyleSheet(QWidget *widget, const QString &sheet);
