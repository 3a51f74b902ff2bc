// Lines for the names of teams: no more characters than a limit, and no half of one.
#pragma once

#include <QString>

class QLineEdit;

// What is beyond `length` UTF-16 units can be neither typed nor pasted; a surrogate
// pair that would be cut in two there is left out as a whole.
void limitLength(QLineEdit *line, int length);

// The text as a name is sent: trimmed, control characters as blanks, and without
// surrogates that have no partner.
QString asName(const QString &text);
