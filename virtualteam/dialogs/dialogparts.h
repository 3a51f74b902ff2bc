// What the dialogs of teams are put together from.
#pragma once

class QAbstractItemView;
class QLabel;
class QWidget;

namespace DialogParts {

constexpr int Edge = 20; // device-independent pixels around a dialog's content

QLabel *label(QWidget *parent);      // a caption
QLabel *quietLabel(QWidget *parent); // a note in less important colour

// A list of rows inside a form: with a frame, and room for so many rows at least.
void frame(QAbstractItemView *list, int rows);

} // namespace DialogParts
