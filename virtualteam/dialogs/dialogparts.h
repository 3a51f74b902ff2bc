// What the dialogs of teams are put together from.
#pragma once

class QDialog;
class QFont;
class QLabel;
class QLayout;
class QWidget;
class SearchBox;
class StatePage;

namespace DialogParts {

constexpr int Edge = 20;        // device-independent pixels around a dialog's content, as all below
constexpr int ButtonWidth = 84; // at least
constexpr int ListWidth = 400;  // at least, of a list to choose from
constexpr int ListHeight = 420;

QLabel *label(QWidget *parent);      // a caption
QLabel *quietLabel(QWidget *parent); // a note in less important colour

// Of so many lines of text, Chinese ones included, which a font may make higher.
int textHeight(const QFont &font, int lines);

// A line above a list, for the box that searches in it. Esc clears the box, and closes
// the dialog when nothing is in it.
QLayout *searchLine(SearchBox *box, QDialog *dialog);

// What stands in the place of a list; `key` as for StatePage.
StatePage *loadingPage(QWidget *parent);
StatePage *failedPage(const char *key, QWidget *parent); // with the button "retry"
StatePage *emptyPage(const char *key, QWidget *parent);

} // namespace DialogParts
