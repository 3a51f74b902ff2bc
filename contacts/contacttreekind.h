// What tells one page of contacts from the other: the user's company and the people
// outside it have the same groups and rows, but answers and texts of their own.
#pragma once

#include "contacts/friendtreeroles.h"

// Texts are translation keys unless they are said to be shown as they stand; all are
// UTF-8 and live as long as the program.
struct ContactTreeKind
{
    const char *name;          // of the page's class, its object and its log lines
    RowKind rows;              // whose contacts it lists
    const char *expansionKey;  // settings key of the groups that are open
    const char *emptyListLine; // logged when a list brings nobody
    const char *failedText;    // the groups could not be loaded
    bool tellsFirstFailure;    // in a box, too, where nothing is listed yet
    const char *removalFailed; // "%1" is the contact's name, if it occurs
    const char *creationFailed;
    bool tellsEveryCreation;    // also of a group that somebody else has asked for
    const char *deletionFailed; // of a group; shown as it stands
    const char *renamingFailed; // of a group; shown as it stands
    bool tellsUnknownDeletion;  // in a box, too
    const char *button;         // of boxes, as it stands; null: the usual one

    bool isInner() const { return rows == ContactRow; }
};
