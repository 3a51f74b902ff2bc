// Cuts a vCard stream into unfolded lines, as bytes: some exporters fold in the
// middle of a character. Reads in blocks and holds one line at a time, however
// large the file is. UTF-16 is turned into UTF-8 on the way.
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QScopedPointer>
#include <QTextDecoder>

class VCardLines
{
public:
    // A line longer than `longest` bytes loses its end. The device must be open.
    VCardLines(QIODevice *device, int longest);
    ~VCardLines();

    // The next unfolded line; false at the end.
    bool next();
    const QByteArray &line() const { return m_line; }
    int number() const { return m_number; } // of the line's first part, from 1 on
    bool isTruncated() const { return m_truncated; }
    qint64 bytesRead() const { return m_bytesRead; }

private:
    bool readBlock();
    void chooseEncoding(QByteArray *block);
    bool physicalLine(QByteArray *line);
    void classify();
    bool continues(const QByteArray &part) const;
    void append(const QByteArray &part);

    QIODevice *m_device;
    int m_longest;
    QScopedPointer<QTextDecoder> m_decoder; // only for UTF-16
    QByteArray m_block;
    int m_at = 0;
    bool m_first = true;
    bool m_skipLineFeed = false; // the block before ended in a carriage return
    qint64 m_bytesRead = 0;

    QByteArray m_line, m_ahead;
    int m_physical = 0; // lines taken from the stream so far
    int m_number = 0;
    bool m_hasAhead = false;
    bool m_truncated = false;
    bool m_aheadTruncated = false;
    bool m_partTruncated = false;
    bool m_headIsKnown = false;
    bool m_quotedPrintable = false;
    bool m_base64 = false;
};
