#include "tests/plugin/samplepayload.h"

#include "hostapi/hostrecords.h"

#include <QHash>
#include <QTest>

#include <functional>

namespace {

// Values differ from field to field, so that two swapped fields show.
template <class T> void fill(T &value, int &seed);

template <class T> void fillList(T &list, int &seed)
{
    for (int i = 0; i < 2; ++i) {
        typename T::value_type element{};
        fill(element, seed);
        list.append(element);
    }
}

template <class K, class V> void fillMap(QMap<K, V> &map, int &seed)
{
    for (int i = 0; i < 2; ++i) {
        K key{};
        fill(key, seed);
        fill(map[key], seed);
    }
}

void fillValue(QString &text, int &seed)
{
    text = QString::fromUtf8("文本 %1").arg(++seed);
}
void fillValue(bool &flag, int &seed)
{
    flag = ++seed % 2 != 0;
}
void fillValue(qint32 &number, int &seed)
{
    number = ++seed;
}
void fillValue(qint64 &number, int &seed)
{
    number = ++seed;
}
void fillValue(QStringList &list, int &seed)
{
    fillList(list, seed);
}
template <class T> void fillValue(QList<T> &list, int &seed)
{
    fillList(list, seed);
}
template <class K, class V> void fillValue(QMap<K, V> &map, int &seed)
{
    fillMap(map, seed);
}
template <class E> std::enable_if_t<std::is_enum_v<E>> fillValue(E &value, int &seed)
{
    value = E(++seed);
}
template <class R>
std::enable_if_t<RecordStream::IsRecord<R>::value> fillValue(R &record, int &seed)
{
    std::apply([&seed](auto &...field) { (fill(field, seed), ...); }, R::fieldsOf(record));
}

template <class T> void fill(T &value, int &seed)
{
    fillValue(value, seed);
}

struct TypeFunctions
{
    std::function<void(QDataStream &, int &)> writeSample;
    std::function<void(QDataStream &, const void *)> writeValue;
};

template <class T> TypeFunctions functionsOf()
{
    return {[](QDataStream &out, int &seed) {
                T value{};
                fill(value, seed);
                out << value;
            },
            [](QDataStream &out, const void *value) { out << *static_cast<const T *>(value); }};
}

TypeFunctions functionsFor(QByteArray type)
{
    static const QHash<QByteArray, TypeFunctions> types = {
        {"QString", functionsOf<QString>()},
        {"bool", functionsOf<bool>()},
        {"int", functionsOf<qint32>()},
        {"QStringList", functionsOf<QStringList>()},
        {"VcardInfo", functionsOf<VcardInfo>()},
        {"MessageData", functionsOf<MessageData>()},
        {"MucData", functionsOf<MucData>()},
        {"MucData::MucClassify", functionsOf<MucData::MucClassify>()},
        {"SysUIData", functionsOf<SysUIData>()},
        {"CSChannelData", functionsOf<CSChannelData>()},
        {"CServiceNumData", functionsOf<CServiceNumData>()},
        {"QList<CServiceNumData>", functionsOf<QList<CServiceNumData>>()},
        {"QList<FriendData>", functionsOf<QList<FriendData>>()},
        {"QList<GroupData>", functionsOf<QList<GroupData>>()},
        {"QList<SearchFriendResultData>", functionsOf<QList<SearchFriendResultData>>()},
        {"QMap<QString,PresenceData>", functionsOf<QMap<QString, PresenceData>>()},
        {"CApplicationData", functionsOf<CApplicationData>()},
        {"QMap<QString,QString>", functionsOf<QMap<QString, QString>>()},
        {"QMap<QString,bool>", functionsOf<QMap<QString, bool>>()},
    };
    type.replace('&', "");
    const TypeFunctions functions = types.value(type);
    if (!functions.writeSample)
        QTest::qFail("no sample for the type " + type, __FILE__, __LINE__);
    return functions;
}

} // namespace

QByteArray samplePayload(const EventInfo &info)
{
    QByteArray payload;
    QDataStream out(&payload, QIODevice::WriteOnly);
    int seed = 0;
    for (const auto &field : EventCatalogue::payloadFields(info)) {
        if (const auto write = functionsFor(field.type.toLatin1()).writeSample)
            write(out, seed);
    }
    return payload;
}

void writeArgument(QDataStream &out, const QByteArray &type, const void *value)
{
    if (const auto write = functionsFor(type).writeValue)
        write(out, value);
}
