#include "common/inicodec.h"

#include <utility>

namespace {
constexpr int Utf8Mib = 106;
} // namespace

QTextCodec *IniCodec::instance()
{
    static QTextCodec *codec = new IniCodec;
    return codec;
}

QByteArray IniCodec::name() const
{
    return QByteArrayLiteral("FriendUI-INI-UTF-8");
}

int IniCodec::mibEnum() const
{
    return -20417; // any that no other codec has
}

QString IniCodec::convertToUnicode(const char *in, int length, ConverterState *state) const
{
    return codecForMib(Utf8Mib)->toUnicode(in, length, state);
}

QByteArray IniCodec::convertFromUnicode(const QChar *in, int length, ConverterState *) const
{
    // A file is written from its beginning to its end on one thread.
    static thread_local QChar firstHalf;
    if (length == 1 && in->isHighSurrogate()) {
        firstHalf = *in;
        return QByteArray();
    }
    const QChar before = std::exchange(firstHalf, QChar());
    if (length == 1 && in->isLowSurrogate()) {
        const QChar pair[] = {before, *in};
        return before.isNull() ? QByteArray() : QString(pair, 2).toUtf8();
    }
    return QString::fromRawData(in, length).toUtf8();
}
