// A reply of the organisation services, read and ready to be handed over.
#pragma once

#include "org/orgparser.h"
#include "org/orgretry.h"

#include <QPointer>

#include <functional>
#include <memory>
#include <vector>

struct OrgAnswer
{
    bool ok = false;
    QString error;
    std::vector<OrgElementList> slices; // of children or a location: at least one
    OrgParser::SearchHits hits;

    // `sliceSize`: elements of a slice; 0: everything in one slice.
    static OrgAnswer read(OrgRequestKind kind, const QByteArray &utf8, int sliceSize);

    using Done = std::function<void(OrgAnswer *)>;
    // The same by another thread. `done` is called on the GUI thread, unless the
    // receiver is gone by then.
    static void readAside(OrgRequestKind kind, const QByteArray &utf8, int sliceSize,
                          QObject *receiver, const Done &done);
};
