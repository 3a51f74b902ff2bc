// Fills the friend tree of an EmbeddedCore from a vCard file. A contact's id comes
// from its UID (without one, from its name and first address), so that importing
// the file again updates the contacts instead of doubling them. Remarks and moves
// that the user made since are kept, unless the contact's category in the file
// changed.
//
// The first category is the friend group, "myContacts" excepted, which address
// books give to everybody; a card without one joins the default group. A card of
// kind "group" gives its name to its members that have no category.
#pragma once

#include <QIODevice>
#include <QString>
#include <QStringList>

class EmbeddedCore;

struct VCardImportSummary
{
    bool ok = false; // the file was read; some of its cards may still be skipped
    int added = 0;
    int updated = 0;
    int unchanged = 0;
    int skipped = 0;      // cards that could not be used, or came twice
    QStringList problems; // "line 12: ..."; first the unreadable, then the repeated

    // One line for a status bar or a console.
    QString text() const;
};

VCardImportSummary importVCardFile(const QString &fileName, EmbeddedCore *core);
VCardImportSummary importVCards(QIODevice &device, EmbeddedCore *core); // open for reading
