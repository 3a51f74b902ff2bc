#include "backend/numbers/servicenumberlist.h"

#include "backend/reply.h"
#include "sample/samplechannels.h"

#include <QDateTime>

namespace {
constexpr int FirstExtra = 100000; // number of its code
constexpr char Prefix[] = "sn";

std::string menuOf(const SampleServiceNumber &number)
{
    std::string text;
    JsonText json(&text);
    json.open('[');
    if (number.hasMenu) {
        const auto entry = [&json](const char *name, const char *type, const char *value) {
            json.open('{').member("name", name).member("type", type);
            json.member("value", value).close('}');
        };
        json.open('{').member("name", "常见问题").open("subMenu", '[');
        entry("忘记密码", "click", "password");
        entry("连接无线网络", "click", "wifi");
        json.close(']').close('}');
        entry("使用手册", "view", "https://www.example.com/manual");
    }
    json.close(']');
    return text;
}

std::string channelOf(const SampleServiceNumber &number)
{
    for (const SampleChannel &channel : sampleChannels()) {
        if (channel.id != number.channel)
            continue;
        std::string text;
        JsonText json(&text);
        json.open('{').member("id", channel.id).member("name", channel.name);
        json.member("photoName", channel.pictureName).member("version", "1");
        json.member("welcome", QString::fromUtf8("您好，请问有什么可以帮您？"));
        json.flag("enableRobot", false).member("agentForm", qint64(0));
        json.member("agentOpenSession", qint64(1)).member("agentCloseSession", qint64(1));
        json.open("workgroupList", '[');
        for (const QString &group : channel.workGroups)
            json.element(group);
        json.close(']').close('}');
        return text;
    }
    return "null";
}

QString iconOf(const QString &code)
{
    return code + QLatin1String(".png");
}

ServiceNumber fromSample(const SampleServiceNumber &sample)
{
    ServiceNumber number;
    number.code = sample.code;
    number.name = sample.name;
    number.description = sample.description;
    if (sample.hasIcon)
        number.icon = iconOf(sample.code);
    number.kind = sample.kind;
    number.isInteractive = sample.isInteractive;
    number.isFolded = sample.isFolded;
    number.subject = sample.subject;
    number.contact = sample.contact;
    number.menu = menuOf(sample);
    number.channel = channelOf(sample);
    number.isClosed = sample.isClosed;
    return number;
}

ServiceNumber extra(int index)
{
    ServiceNumber number;
    number.code = QLatin1String(Prefix) + QString::number(FirstExtra + index);
    number.name = QString::fromUtf8("服务号 %1").arg(index + 1, 5, 10, QLatin1Char('0'));
    number.description = QString::fromUtf8("第 %1 个服务号").arg(index + 1);
    number.icon = iconOf(number.code);
    number.kind = index % 3;
    return number;
}

const SampleServiceNumber *sampleOf(const QString &code)
{
    for (const SampleServiceNumber &sample : sampleServiceNumbers()) {
        if (sample.code == code)
            return &sample;
    }
    return nullptr;
}
} // namespace

ServiceNumberList::ServiceNumberList() : m_version(QDateTime::currentSecsSinceEpoch()) {}

// -1: none.
int ServiceNumberList::indexOfExtra(const QString &code) const
{
    bool ok = false;
    const int index = code.mid(2).toInt(&ok) - FirstExtra;
    return ok && index >= 0 && index < m_extra && code == extra(index).code ? index : -1;
}

ServiceNumber ServiceNumberList::changed(ServiceNumber number) const
{
    const auto found = m_changes.constFind(number.code);
    if (found == m_changes.constEnd())
        return number;
    number.version = found->version;
    for (const Change &change : found->changes)
        change(&number);
    return number;
}

std::vector<ServiceNumber> ServiceNumberList::all() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<ServiceNumber> numbers;
    for (const SampleServiceNumber &sample : sampleServiceNumbers())
        numbers.push_back(changed(fromSample(sample)));
    for (int i = 0; i < m_extra; ++i)
        numbers.push_back(changed(extra(i)));
    return numbers;
}

std::optional<ServiceNumber> ServiceNumberList::find(const QString &code) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (const SampleServiceNumber *sample = sampleOf(code))
        return changed(fromSample(*sample));
    const int index = indexOfExtra(code);
    return index < 0 ? std::nullopt : std::make_optional(changed(extra(index)));
}

QString ServiceNumberList::codeOfIcon(const QString &fileName) const
{
    const QString code = fileName.section(QLatin1Char('.'), 0, 0);
    return iconOf(code) == fileName && find(code) ? code : QString();
}

qint64 ServiceNumberList::version() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_version;
}

void ServiceNumberList::setExtra(int count)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_extra = qBound(0, count, MostExtra);
    ++m_version;
}

void ServiceNumberList::setExtraAtStart(int count)
{
    setExtra(count);
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_extraAtStart = m_extra;
}

void ServiceNumberList::change(const QString &code, const Change &change)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Changes &changes = m_changes[code];
    changes.changes.push_back(change);
    changes.version = ++m_version;
}

void ServiceNumberList::reset()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_extra = m_extraAtStart;
    ++m_version;
    for (Changes &changes : m_changes) {
        if (!changes.changes.empty())
            changes.version = m_version;
        changes.changes.clear();
    }
}
