#include "backend/formbody.h"

#include <QTextCodec>

#include <algorithm>

namespace {
int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    c = char(c | 0x20);
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

// False when an escape is broken.
bool percentDecoded(const std::string &encoded, std::string *bytes)
{
    for (size_t i = 0; i < encoded.size(); ++i) {
        if (encoded[i] != '%') {
            *bytes += encoded[i] == '+' ? ' ' : encoded[i];
            continue;
        }
        const int high = i + 1 < encoded.size() ? hexDigit(encoded[i + 1]) : -1;
        const int low = i + 2 < encoded.size() ? hexDigit(encoded[i + 2]) : -1;
        if (high < 0 || low < 0)
            return false;
        *bytes += char(high * 16 + low);
        i += 2;
    }
    return true;
}
} // namespace

FormBody::Field FormBody::checked(const std::string &bytes)
{
    QTextCodec::ConverterState state;
    static QTextCodec *const utf8 = QTextCodec::codecForName("UTF-8");
    Field field;
    field.text = utf8->toUnicode(bytes.data(), int(bytes.size()), &state);
    field.isSound = state.invalidChars == 0 && state.remainingChars == 0;
    return field;
}

FormBody::Field FormBody::decoded(const std::string &encoded)
{
    std::string bytes;
    if (percentDecoded(encoded, &bytes))
        return checked(bytes);
    return {QString(), false};
}

FormBody FormBody::parse(const std::string &encoded)
{
    FormBody form;
    for (size_t begin = 0; begin < encoded.size();) {
        const size_t end = std::min(encoded.find('&', begin), encoded.size());
        const std::string pair = encoded.substr(begin, end - begin);
        begin = end + 1;
        const size_t equals = pair.find('=');
        std::string name;
        if (!percentDecoded(pair.substr(0, equals), &name) || name.empty())
            continue;
        const std::string value = equals == std::string::npos ? "" : pair.substr(equals + 1);
        form.m_fields.emplace(name, decoded(value));
    }
    return form;
}

void FormBody::set(const std::string &name, const std::string &value)
{
    m_fields.emplace(name, checked(value));
}

bool FormBody::has(const char *name) const
{
    return m_fields.count(name) != 0;
}

QString FormBody::text(const char *name) const
{
    const auto found = m_fields.find(name);
    if (found == m_fields.end())
        return {};
    if (!found->second.isSound)
        throw IllegalField(name);
    return found->second.text;
}

QString FormBody::required(const char *name) const
{
    const QString value = text(name);
    if (value.isEmpty())
        throw IllegalField(name);
    return value;
}

qint64 FormBody::number(const char *name, qint64 least, qint64 most) const
{
    bool ok = false;
    const qint64 value = required(name).toLongLong(&ok);
    if (!ok || value < least || value > most)
        throw IllegalField(name);
    return value;
}

qint64 FormBody::number(const char *name, qint64 least, qint64 most, qint64 otherwise) const
{
    return has(name) ? number(name, least, most) : otherwise;
}

bool FormBody::flag(const char *name) const
{
    const QString value = required(name);
    const bool yes = value == QLatin1String("1") || value == QLatin1String("true");
    if (!yes && value != QLatin1String("0") && value != QLatin1String("false"))
        throw IllegalField(name);
    return yes;
}
