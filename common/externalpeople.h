// Who is of the user's own company and who is not, for every list and card that marks
// the others.
#pragma once

#include <QString>

// Whether the host says that the person is an external contact, or somebody outside the
// company who has asked to become one. Nothing is guessed: an unknown jid is not external.
bool isExternal(const QString &jid);
