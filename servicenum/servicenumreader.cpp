#include "servicenum/servicenumreader.h"

#include "http/jsonfields.h"

#include <QSet>

#include <json/writer.h>

#include <string>
#include <utility>

namespace {

using Number = CServiceNumData;
using Channel = CSChannelData;

constexpr JsonField<Number> numberFields[] = {{"channel", nullptr},
                                              {"contactWay", &Number::contactWay},
                                              {"description", &Number::description},
                                              {"fold", nullptr},
                                              {"iServiceCode", &Number::code},
                                              {"icon", &Number::icon},
                                              {"isBindApp", nullptr},
                                              {"isInteractive", nullptr},
                                              {"isSub", nullptr},
                                              {"menuList", nullptr},
                                              {"name", &Number::name},
                                              {"status", nullptr},
                                              {"subType", nullptr},
                                              {"subject", &Number::subject},
                                              {"version", &Number::version}};

constexpr JsonField<Channel> channelFields[] = {{"agentCloseSession", nullptr},
                                                {"agentForm", nullptr},
                                                {"agentOpenSession", nullptr},
                                                {"enableRobot", nullptr},
                                                {"id", &Channel::id},
                                                {"name", &Channel::name},
                                                {"photoName", &Channel::photoName},
                                                {"version", &Channel::version},
                                                {"workgroupList", nullptr}};

static_assert(areInOrder(numberFields) && areInOrder(channelFields));

QStringList texts(const Json::Value &array)
{
    QStringList list;
    if (array.isArray())
        for (const Json::Value &entry : array)
            list.append(JsonReader::toText(entry));
    list.removeAll(QString());
    return list;
}

Channel readChannel(const Json::Value &object)
{
    Channel channel;
    SharedTexts shared;
    readFields(object, channelFields, &shared, &channel,
               [&](std::string_view name, const Json::Value &value) {
                   if (name == "agentForm")
                       channel.agentForm = JsonReader::toInt32(value);
                   else if (name == "agentOpenSession")
                       channel.agentOpenSession = JsonReader::toInt32(value);
                   else if (name == "agentCloseSession")
                       channel.agentCloseSession = JsonReader::toInt32(value);
                   else if (name == "enableRobot")
                       channel.enableRobot = JsonReader::toFlag(value);
                   else
                       channel.workgroups = texts(value);
               });
    return channel;
}

QString jsonText(const Json::Value &value)
{
    if (value.isNull())
        return QString();
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "";
    builder["emitUTF8"] = true;
    return QString::fromStdString(Json::writeString(builder, value));
}

bool Number::*flagOf(std::string_view name)
{
    return name == "fold"            ? &Number::fold
           : name == "isBindApp"     ? &Number::isBindApp
           : name == "isInteractive" ? &Number::isInteractive
           : name == "isSub"         ? &Number::isSub
                                     : nullptr;
}

void readOther(std::string_view name, const Json::Value &value, Number *number)
{
    if (bool Number::*flag = flagOf(name)) {
        number->*flag = JsonReader::toFlag(value);
    } else if (name == "menuList") {
        number->menuList = jsonText(value);
    } else if (name == "status") {
        number->status = JsonReader::toInt32(value);
    } else if (name == "subType") {
        number->subType = JsonReader::toInt32(value);
    } else if (value.isObject()) {
        number->channel = readChannel(value);
        number->hasChannel = true;
    }
}

Number read(const Json::Value &object, SharedTexts *shared)
{
    Number number;
    readFields(
        object, numberFields, shared, &number,
        [&](std::string_view name, const Json::Value &value) { readOther(name, value, &number); });
    return number;
}

} // namespace

CServiceNumData ServiceNumReader::number(const Json::Value &object)
{
    SharedTexts shared;
    return read(object, &shared);
}

QList<CServiceNumData> ServiceNumReader::numbers(const Json::Value &array)
{
    QList<Number> list;
    if (!array.isArray())
        return list;
    SharedTexts shared;
    QSet<QString> known;
    for (const Json::Value &entry : array) {
        Number number = read(entry, &shared);
        if (number.code.isEmpty() || known.contains(number.code))
            continue;
        known.insert(number.code);
        list.append(std::move(number));
    }
    return list;
}
