#include "host/vcard/vcardlines.h"

#include <QTextCodec>

namespace {
constexpr int BlockSize = 65536;
constexpr qint64 LongestRun = 4194304; // bytes without a line end: no text file
constexpr int LongestHead = 1000;      // bytes before the colon that are looked at

bool looksLikeBase64(const QByteArray &part)
{
    for (const char c : part) {
        const bool fits = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                          (c >= '0' && c <= '9') || c == '+' || c == '/' || c == '=';
        if (!fits)
            return false;
    }
    return !part.isEmpty();
}
} // namespace

VCardLines::VCardLines(QIODevice *device, int longest) : m_device(device), m_longest(longest) {}

VCardLines::~VCardLines() = default;

void VCardLines::chooseEncoding(QByteArray *block)
{
    const char *codec = nullptr;
    if (block->startsWith("\xef\xbb\xbf"))
        block->remove(0, 3);
    else if (block->startsWith("\xff\xfe") || (block->size() > 1 && !block->at(1)))
        codec = "UTF-16LE";
    else if (block->startsWith("\xfe\xff") || (block->size() > 1 && !block->at(0)))
        codec = "UTF-16BE";
    if (codec)
        m_decoder.reset(QTextCodec::codecForName(codec)->makeDecoder());
}

bool VCardLines::readBlock()
{
    while (true) {
        QByteArray block = m_device->read(BlockSize);
        if (block.isEmpty())
            return false;
        m_bytesRead += block.size();
        if (m_first)
            chooseEncoding(&block);
        if (m_decoder) {
            QString text = m_decoder->toUnicode(block);
            if (m_first && text.startsWith(QChar::ByteOrderMark))
                text.remove(0, 1);
            block = text.toUtf8();
        }
        m_first = false;
        m_block = block;
        m_at = 0;
        if (m_skipLineFeed && m_block.startsWith('\n'))
            m_at = 1;
        m_skipLineFeed = false;
        if (m_at < m_block.size())
            return true;
    }
}

// Lines end in CR LF, LF or CR.
bool VCardLines::physicalLine(QByteArray *line)
{
    line->clear();
    m_partTruncated = false;
    bool any = false;
    qint64 taken = 0;
    while (m_at < m_block.size() || readBlock()) {
        any = true;
        int end = m_at;
        while (end < m_block.size() && m_block.at(end) != '\n' && m_block.at(end) != '\r')
            ++end;
        const int room = m_longest - line->size();
        line->append(m_block.constData() + m_at, qMin(room, end - m_at));
        m_partTruncated = m_partTruncated || end - m_at > room;
        taken += end - m_at;
        m_at = end;
        if (end == m_block.size() && taken < LongestRun)
            continue;
        if (end == m_block.size())
            break;
        ++m_at;
        if (m_block.at(end) == '\r') {
            if (m_at == m_block.size())
                m_skipLineFeed = true;
            else if (m_block.at(m_at) == '\n')
                ++m_at;
        }
        break;
    }
    if (any)
        ++m_physical;
    return any;
}

// Looks at the head again only until its colon has come: a line may have any
// number of parts.
void VCardLines::classify()
{
    if (m_headIsKnown)
        return;
    const int colon = m_line.indexOf(':');
    if (colon < 0 && m_line.size() < LongestHead)
        return;
    m_headIsKnown = true;
    const QByteArray head = m_line.left(qBound(0, colon, LongestHead)).toUpper();
    m_quotedPrintable = head.contains("QUOTED-PRINTABLE");
    m_base64 = head.contains("BASE64") || head.contains("ENCODING=B");
}

bool VCardLines::continues(const QByteArray &part) const
{
    if (m_quotedPrintable && m_line.endsWith('='))
        return true;
    if (part.startsWith(' ') || part.startsWith('\t'))
        return true;
    // Old phones fold pictures without the blank.
    return m_base64 && looksLikeBase64(part);
}

void VCardLines::append(const QByteArray &part)
{
    int from = part.startsWith(' ') || part.startsWith('\t') ? 1 : 0;
    if (m_quotedPrintable && m_line.endsWith('=')) {
        m_line.chop(1);
        from = 0;
    }
    const int room = m_longest - m_line.size();
    m_line.append(part.constData() + from, qMax(0, qMin(room, part.size() - from)));
    m_truncated = m_truncated || part.size() - from > room;
    classify();
}

bool VCardLines::next()
{
    if (!m_hasAhead) {
        m_hasAhead = physicalLine(&m_ahead);
        m_aheadTruncated = m_partTruncated;
        if (!m_hasAhead)
            return false;
    }
    m_line = m_ahead;
    m_truncated = m_aheadTruncated;
    m_number = m_physical;
    m_headIsKnown = m_quotedPrintable = m_base64 = false;
    classify();
    while ((m_hasAhead = physicalLine(&m_ahead))) {
        m_aheadTruncated = m_partTruncated;
        if (!continues(m_ahead))
            break;
        append(m_ahead);
        m_truncated = m_truncated || m_aheadTruncated;
    }
    return true;
}
