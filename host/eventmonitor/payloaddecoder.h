// Makes the payload of an event readable, from its description in the event
// catalogue. Payloads come from separately built modules: nothing in them is
// trusted, neither counts nor lengths.
#pragma once

#include "hostapi/eventcatalogue.h"

#include <QByteArray>
#include <QJsonValue>
#include <QString>
#include <QVector>

struct PayloadNode
{
    QString name; // empty for an element of a list
    QString type;
    QString value;                 // of a leaf; masked when it is a secret
    QVector<PayloadNode> children; // of a record, list or map
    int count = 0;                 // elements announced by a list or map
    bool quoted = false;           // the value is a text
    bool isContainer = false;
};

struct DecodedPayload
{
    enum Status
    {
        Complete,
        Truncated, // ends before the last field
        Corrupt,   // a count or length that the bytes cannot hold
        TrailingBytes,
        Undescribed, // the catalogue does not tell the fields
        Shortened    // decoding stopped early on purpose
    };

    QVector<PayloadNode> fields;
    Status status = Complete;
    int bytesLeft = 0;       // with TrailingBytes and Undescribed
    bool hasSecrets = false; // something was masked; the bytes must not be shown

    QString summary() const; // one line
    QString text() const;    // one field per line, indented
    QJsonValue json() const;
    QString statusText() const; // empty when complete
};

namespace PayloadDecoder {

enum Depth
{
    // A long list in the last field is not read on behind what is kept of it, so
    // that a roster of 100,000 people does not hold the window up.
    Brief, // keeps the first 3 elements of each list
    Full   // keeps up to 500
};

// `info` null: an unknown code.
DecodedPayload decode(const EventInfo *info, const QByteArray &payload, Depth depth);

// Offset, bytes and characters of up to `limit` bytes.
QString hexDump(const QByteArray &bytes, int limit = 4096);

// Whether the value of a field of this name must not be shown.
bool isSecret(const QString &fieldName);

} // namespace PayloadDecoder
