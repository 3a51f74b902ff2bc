// A message's body as the chat shows it: plain text of one or more lines.
#pragma once

#include <QString>

// Never markup, whatever somebody else has written; at most some 20,000 characters.
QString messageText(const QString &body);
