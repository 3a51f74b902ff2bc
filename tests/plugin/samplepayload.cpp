#include "tests/plugin/samplepayload.h"

#include "hostapi/hostrecords.h"

#include <QHash>
#include <QTest>

#include <functional>

namespace {

template <class T> void fill(T &value, SampleValues &values);

template <class T> void fillList(T &list, SampleValues &values)
{
    for (int i = values.size(); i > 0; --i) {
        typename T::value_type element{};
        fill(element, values);
        list.append(element);
    }
}

template <class K, class V> void fillMap(QMap<K, V> &map, SampleValues &values)
{
    for (int i = values.size(); i > 0; --i) {
        K key{};
        fill(key, values);
        fill(map[key], values);
    }
}

void fillValue(QString &text, SampleValues &values)
{
    text = values.text();
}
void fillValue(bool &flag, SampleValues &values)
{
    flag = values.number() % 2 != 0;
}
void fillValue(qint32 &number, SampleValues &values)
{
    number = values.number();
}
void fillValue(qint64 &number, SampleValues &values)
{
    number = values.number();
}
void fillValue(QStringList &list, SampleValues &values)
{
    fillList(list, values);
}
template <class T> void fillValue(QList<T> &list, SampleValues &values)
{
    fillList(list, values);
}
template <class K, class V> void fillValue(QMap<K, V> &map, SampleValues &values)
{
    fillMap(map, values);
}
template <class E> std::enable_if_t<std::is_enum_v<E>> fillValue(E &value, SampleValues &values)
{
    value = E(values.number());
}
template <class R>
std::enable_if_t<RecordStream::IsRecord<R>::value> fillValue(R &record, SampleValues &values)
{
    std::apply([&values](auto &...field) { (fill(field, values), ...); }, R::fieldsOf(record));
}

template <class T> void fill(T &value, SampleValues &values)
{
    fillValue(value, values);
}

struct TypeFunctions
{
    std::function<void(QDataStream &, SampleValues &)> writeSample;
    std::function<void(QDataStream &, const void *)> writeValue;
};

template <class T> TypeFunctions functionsOf()
{
    return {[](QDataStream &out, SampleValues &values) {
                T value{};
                fill(value, values);
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

QString SampleValues::text()
{
    return QString::fromUtf8("文本 %1").arg(number());
}

QByteArray samplePayload(const EventInfo &info)
{
    SampleValues values;
    return samplePayload(info, values);
}

QByteArray samplePayload(const EventInfo &info, SampleValues &values)
{
    QByteArray payload;
    QDataStream out(&payload, QIODevice::WriteOnly);
    for (const auto &field : EventCatalogue::payloadFields(info)) {
        if (const auto write = functionsFor(field.type.toLatin1()).writeSample)
            write(out, values);
    }
    return payload;
}

void writeArgument(QDataStream &out, const QByteArray &type, const void *value)
{
    if (const auto write = functionsFor(type).writeValue)
        write(out, value);
}
