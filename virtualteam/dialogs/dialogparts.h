// What the dialogs of teams are put together from.
#pragma once

class QFont;
class QLabel;
class QWidget;

namespace DialogParts {

constexpr int Edge = 20;        // device-independent pixels around a dialog's content
constexpr int ButtonWidth = 84; // at least

QLabel *label(QWidget *parent);      // a caption
QLabel *quietLabel(QWidget *parent); // a note in less important colour

// Of so many lines of text, Chinese ones included, which a font may make higher.
int textHeight(const QFont &font, int lines);

} // namespace DialogParts
