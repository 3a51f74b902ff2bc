// Reading lists of many entries: a table says which members of an entry are which texts
// of a record, and equal texts of the list can share their memory.
#pragma once

#include "http/jsonreader.h"

#include <QHash>

#include <string_view>

// A text of its own, without the room to grow that decoding leaves.
inline QString squeezedText(const Json::Value &value)
{
    QString text = JsonReader::toText(value);
    text.squeeze();
    return text;
}

// The texts that many entries of one reply have in common.
class SharedTexts
{
public:
    QString of(const Json::Value &value)
    {
        const char *begin = nullptr, *end = nullptr;
        if (!value.isString() || !value.getString(&begin, &end))
            return squeezedText(value);
        const QByteArray bytes = QByteArray::fromRawData(begin, int(end - begin));
        const auto known = m_known.constFind(bytes);
        if (known != m_known.constEnd())
            return *known;
        return *m_known.insert(QByteArray(begin, bytes.size()), squeezedText(value));
    }

private:
    QHash<QByteArray, QString> m_known;
};

template <class Record> struct JsonField
{
    std::string_view name;
    QString Record::*text; // null: for `other` of readFields()
    bool isShared = false;
};

template <class Record, size_t Count>
constexpr bool areInOrder(const JsonField<Record> (&fields)[Count])
{
    for (size_t i = 1; i < Count; ++i)
        if (!(fields[i - 1].name < fields[i].name))
            return false;
    return true;
}

// `fields` are in the order of their names, which is the order in which jsoncpp keeps
// the members: both are gone through once, where a search for each would cost more than
// parsing the entry. `other(name, value)` is called for those that are no text.
template <class Record, size_t Count, class Other>
void readFields(const Json::Value &entry, const JsonField<Record> (&fields)[Count],
                SharedTexts *shared, Record *record, const Other &other)
{
    if (!entry.isObject())
        return;
    const JsonField<Record> *field = fields;
    for (auto member = entry.begin(); member != entry.end(); ++member) {
        const char *end = nullptr;
        const char *const begin = member.memberName(&end);
        const std::string_view name(begin, size_t(end - begin));
        while (field != fields + Count && field->name < name)
            ++field;
        if (field == fields + Count)
            break;
        if (field->name != name)
            continue;
        if (field->text)
            record->*field->text = field->isShared ? shared->of(*member) : squeezedText(*member);
        else
            other(name, *member);
    }
}
