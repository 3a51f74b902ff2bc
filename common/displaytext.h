// Text from other people, as each place of the interface may show it, and the
// name that a contact is shown by.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QString>

// A name or another text of one line. Control characters and line ends become one
// blank, or nothing at the ends; characters that turn the reading direction are
// dropped, and a text with right-to-left letters is isolated from its
// surroundings; a lone surrogate becomes U+FFFD. At most MaximumGraphemes, the
// last of them an ellipsis when something is cut off, and at most four marks on a
// letter. The usual plain name comes back as the same shared string.
QString displayText(const QString &text);
inline constexpr int MaximumGraphemes = 64;

// A text of several lines, for a control set to plain text: cleaned as displayText()
// does it, but line ends stay, of empty lines at most one after the other. At most
// MaximumParagraph UTF-16 units, the last an ellipsis when something is cut off.
QString paragraphText(const QString &text);
inline constexpr int MaximumParagraph = 10000;

// For tool tips, which take text with "<" for markup: shown as it stands, lines
// included, at most 2,000 characters of it.
QString toolTipText(const QString &text);

// For actions and buttons, where "&" marks a key: a display text with "&" doubled.
QString menuText(const QString &text);

// For labels, boxes and the like, displayText() in a control set to plain text.

// The part of a jid before "@"; a text without "@" is returned as it is.
QString jidUser(const QString &jid);

// The jid of a user of the own server; returned as it is when empty or already a
// jid.
QString makeJid(const QString &uid);

// Remark, else nick name, else user name, else the user part of the jid; the first
// that shows anything, as a display text.
QString contactDisplayName(const FriendData &contact);
QString contactDisplayName(const FriendData &contact, const VcardInfo &profile);
// The same of whatever the host knows of the person, contact or not.
QString displayNameOf(const QString &jid);

// The text as the name of a file on every system: everything but letters, digits,
// "@", ".", "_" and "-" becomes "_", so does a dot at either end; at most 80
// characters, never empty, never the name of a Windows device.
QString safeFileName(const QString &text);

// Whether Windows takes the name, whatever its suffix, for a device such as "nul".
bool isReservedFileName(const QString &name);
