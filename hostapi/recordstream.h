// Streaming of the records that travel in host events.
//
// A record lists its members once, in wire order:
//
//     struct GroupData {
//         QString id, name;
//         template <class Self> static auto fieldsOf(Self &r) { return std::tie(r.id, r.name); }
//     };
//
// and is then readable and writable with QDataStream. Reading never trusts a
// container's count: a count larger than the bytes that are left yields an empty
// container and the status ReadCorruptData, instead of a huge reservation.
#pragma once

#include <QDataStream>
#include <QIODevice>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <tuple>
#include <type_traits>
#include <utility>

namespace RecordStream {

template <class T, class = void> struct IsRecord : std::false_type
{
};
template <class T>
struct IsRecord<T, std::void_t<decltype(T::fieldsOf(std::declval<T &>()))>> : std::true_type
{
};

// Reads a container's element count. False, with the stream marked corrupt, when
// fewer bytes are left than elements are announced.
inline bool readCount(QDataStream &stream, quint32 *count)
{
    *count = 0;
    stream >> *count;
    if (stream.status() != QDataStream::Ok) {
        *count = 0;
        return false;
    }
    if (!stream.device() || qint64(*count) > stream.device()->bytesAvailable()) {
        *count = 0;
        stream.setStatus(QDataStream::ReadCorruptData);
        return false;
    }
    return true;
}

template <class T> void read(QDataStream &stream, T &value)
{
    stream >> value;
}

template <class List> void readList(QDataStream &stream, List &list)
{
    list.clear();
    quint32 count = 0;
    if (!readCount(stream, &count))
        return;
    for (quint32 i = 0; i < count; ++i) {
        typename List::value_type element{};
        read(stream, element);
        if (stream.status() != QDataStream::Ok) {
            list.clear();
            return;
        }
        list.append(std::move(element));
    }
}

template <class T> void read(QDataStream &stream, QList<T> &list)
{
    readList(stream, list);
}
inline void read(QDataStream &stream, QStringList &list)
{
    readList(stream, list);
}

template <class Key, class Value> void read(QDataStream &stream, QMap<Key, Value> &map)
{
    map.clear();
    quint32 count = 0;
    if (!readCount(stream, &count))
        return;
    for (quint32 i = 0; i < count; ++i) {
        Key key{};
        Value value{};
        read(stream, key);
        read(stream, value);
        if (stream.status() != QDataStream::Ok) {
            map.clear();
            return;
        }
        map.insert(key, value);
    }
}

// Reads the next value of a sequence. A stream that has failed goes on delivering
// whatever bytes come next, so nothing is read from it any more: the value stays
// as it is.
template <class T> void readNext(QDataStream &stream, T &value)
{
    if (stream.status() == QDataStream::Ok)
        read(stream, value);
}

} // namespace RecordStream

template <class Record>
std::enable_if_t<RecordStream::IsRecord<Record>::value, QDataStream &>
operator<<(QDataStream &stream, const Record &record)
{
    std::apply([&stream](const auto &...field) { (stream << ... << field); },
               Record::fieldsOf(record));
    return stream;
}

template <class Record>
std::enable_if_t<RecordStream::IsRecord<Record>::value, QDataStream &>
operator>>(QDataStream &stream, Record &record)
{
    std::apply([&stream](auto &...field) { (RecordStream::readNext(stream, field), ...); },
               Record::fieldsOf(record));
    return stream;
}

// Member-wise equality, for records whose operator== compares only a key.
template <class Record> bool sameFields(const Record &a, const Record &b)
{
    return Record::fieldsOf(a) == Record::fieldsOf(b);
}
