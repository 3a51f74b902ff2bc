#include "host/core/samplemessages.h"

#include "sample/samplechannels.h"

#include <algorithm>
#include <functional>

namespace {

constexpr const char *Texts[] = {
    "好的，收到",
    "Can you have a look at the draft?",
    "下午三点开会，别忘了",
    "在吗？",
    "谢谢！",
    "I'll be ten minutes late.",
    "文件已经发到邮箱了",
    "周报今天下班前交",
    "好的，稍后回复。",
    "1 < 2 && \"a\" > 'b' 这样写对吗？",
};
constexpr const char *Files[] = {"季度报告.pdf", "minutes-2024-06.docx", "设计稿 v3.zip",
                                 "budget & plan.xlsx"};
constexpr const char *Places[] = {"科技园 3 号楼", "Meeting room Berlin", "南京南站"};

QString fromUtf8(const char *text)
{
    return QString::fromUtf8(text);
}

template <std::size_t N> QString pick(const char *const (&table)[N], quint64 number)
{
    return fromUtf8(table[number % N]);
}

QString written(MessageBody::Kind kind, const std::function<void(MessageBody *)> &fill)
{
    MessageBody message;
    message.kind = kind;
    fill(&message);
    return writeMessageBody(message);
}

QString picture(const QString &name, const QString &caption = QString())
{
    return written(MessageBody::Picture, [&](MessageBody *message) {
        message->name = name;
        message->text = caption;
        message->size = 182044;
    });
}

QString file(const QString &name, qint64 size)
{
    return written(MessageBody::File, [&](MessageBody *message) {
        message->name = name;
        message->size = size;
    });
}

QString voice(int seconds)
{
    return written(MessageBody::Voice, [&](MessageBody *message) { message->seconds = seconds; });
}

QString location(const QString &name)
{
    return written(MessageBody::Location, [&](MessageBody *message) {
        message->name = name;
        message->text = fromUtf8("示例市示例路 1 号");
        message->latitude = 32.0603;
        message->longitude = 118.7969;
    });
}

QString link()
{
    return written(MessageBody::Link, [](MessageBody *message) {
        message->title = fromUtf8("新版考勤制度说明");
        message->text = fromUtf8("自下月起执行，请全员阅读。");
        message->url = QStringLiteral("https://www.corp.example/news/42?from=im");
    });
}

QString merged(const QString &name)
{
    return written(MessageBody::Merged, [&](MessageBody *message) {
        message->title = fromUtf8("%1 的聊天记录").arg(name);
        MessageBody part;
        part.sender = name;
        part.text = fromUtf8("方案我看过了，没有问题。");
        message->parts.append(part);
        part.sender = QStringLiteral("Alex");
        part.kind = MessageBody::Picture;
        part.text = QString();
        part.name = QStringLiteral("whiteboard.jpg");
        message->parts.append(part);
        part = MessageBody();
        part.sender = name;
        part.text = fromUtf8("那就按这个来。");
        message->parts.append(part);
        message->partCount = message->parts.size();
    });
}

QString recalled(const QString &name)
{
    return written(MessageBody::Recalled, [&](MessageBody *message) { message->sender = name; });
}

QString fromWorkGroup(const QString &name, const QString &text)
{
    if (name.isEmpty())
        return text;
    return written(MessageBody::WorkGroup, [&](MessageBody *message) {
        message->name = name;
        message->text = text;
    });
}

// --- History --------------------------------------------------------------------

// Moments relative to the first start.
struct Clock
{
    QDateTime now;

    // `part` of what has passed of today, so that it is today also shortly after
    // midnight.
    QDateTime today(double part) const
    {
        const QDateTime midnight = now.date().startOfDay();
        return midnight.addSecs(qint64(double(midnight.secsTo(now)) * part));
    }
    QDateTime before(int days, int hour, int minute) const
    {
        return QDateTime(now.date().addDays(-days), QTime(hour, minute));
    }
    QDateTime inYear(int yearsAgo, int month, int day) const
    {
        return QDateTime(QDate(now.date().year() - yearsAgo, month, day), QTime(14, 5));
    }
};

// Friends who still work here, beginning with the given place; of people of other
// companies external contacts follow, since they have few friends.
QString acquaintance(const SampleRoster &sample, int place)
{
    for (const bool inner : {true, false}) {
        if (!inner && !sample.isOutsider())
            break;
        for (int position = inner ? 1 : 0; position < sample.count(inner); ++position) {
            const SamplePerson person = sample.contact(position, inner).person;
            if (person.onJob && place-- == 0)
                return person.uid + QLatin1Char('@') + SampleCompany::domain();
        }
    }
    return QString();
}

QString room(int number)
{
    return QStringLiteral("r%1@conference.%2").arg(number).arg(SampleCompany::domain());
}

QString serviceNumber(const char *code)
{
    return QLatin1String(code) + QLatin1Char('@') + SampleCompany::domain();
}

void addPeople(const SampleRoster &sample, const Clock &at, QList<SampleMessages::Line> *lines)
{
    const auto who = [&](int place) { return acquaintance(sample, place); };
    *lines += {
        {who(0), false, 0, at.today(0.90), fromUtf8("早上好，评审材料准备好了吗？")},
        {who(0), true, 0, at.today(0.92), fromUtf8("差不多了，午饭前发给你。")},
        {who(0), false, 0, at.today(0.97), file(fromUtf8("评审意见.docx"), 48213)},
        {who(1), false, 0, at.today(0.85), picture(QStringLiteral("IMG_2041.jpg"))},
        {who(2), false, 0, at.today(0.80), voice(7)},
        {who(2), false, 0, at.today(0.81), voice(23)},
        {who(3), false, 0, at.today(0.60), location(fromUtf8("科技园 3 号楼"))},
        {who(3), true, 0, at.today(0.62), QStringLiteral("On my way.")},
        {who(4), false, 0, at.before(1, 17, 42), link()},
        {who(5), false, 0, at.before(1, 9, 15), fromUtf8("明天请假一天，有事打电话。")},
        {who(6), false, 0, at.before(3, 11, 3), merged(fromUtf8("李经理"))},
        {who(7), false, 0, at.before(5, 16, 20), recalled(QString())},
        {who(8), false, 0, at.before(12, 10, 0), QStringLiteral("See you at the fair!")},
        {who(9), true, 0, at.before(40, 18, 30), file(fromUtf8("合同扫描件.pdf"), 2411724)},
        {who(10), false, 0, at.inYear(1, 12, 31), fromUtf8("新年快乐！")},
        {who(11), false, 0, at.inYear(1, 6, 18),
         picture(QStringLiteral("team.png"), fromUtf8("合影"))},
        {who(12), false, 0, at.inYear(2, 3, 8), fromUtf8("资料已归档。")},
    };
}

void addRooms(const Clock &at, QList<SampleMessages::Line> *lines)
{
    *lines += {
        {room(1), false, 1, at.today(0.70), fromUtf8("周会改到四点，会议室不变。")},
        {room(1), false, 2, at.today(0.95), fromUtf8("收到")},
        {room(2), false, 0, at.before(1, 20, 11), QStringLiteral("Build 4711 is green.")},
        {room(2), true, 0, at.before(1, 20, 15), QStringLiteral("Ship it.")},
        {room(3), false, 4, at.before(2, 15, 0), picture(QStringLiteral("架构图.png"))},
        {room(4), false, 1, at.today(0.50), fromUtf8("今天吃面？")},
        {room(5), false, 0, at.before(7, 9, 0), link()},
        {room(8), false, 2, at.inYear(1, 11, 20), fromUtf8("周六下午两点，老地方。")},
    };
}

void addServices(const Clock &at, QList<SampleMessages::Line> *lines)
{
    const auto group = [](const char *name, const char *text) {
        return fromWorkGroup(fromUtf8(name), fromUtf8(text));
    };
    const auto service = [](int type, const char *title, const char *text) {
        return written(MessageBody::Service, [&](MessageBody *message) {
            message->serviceType = type;
            message->title = fromUtf8(title);
            message->text = fromUtf8(text);
        });
    };
    *lines += {
        {serviceNumber("sn2001"), false, 0, at.today(0.40),
         service(1, "公司获得年度创新奖", "点击查看详情")},
        {serviceNumber("sn2002"), false, 0, at.today(0.88),
         service(2, "请假申请待审批", "申请人：王小明，3 天")},
        {serviceNumber("sn2003"), false, 0, at.before(4, 10, 30),
         service(1, "Menu of the day", "Noodles, dumplings, salad")},
        {QStringLiteral("cs1001"), true, 0, at.before(1, 13, 0), fromUtf8("打印机连不上了")},
        {QStringLiteral("cs1001"), false, 0, at.before(1, 13, 2),
         group("电脑与网络", "您好，请重启一下打印机再试。")},
        {QStringLiteral("cs1004"), false, 0, at.before(21, 9, 45),
         group("Refunds", "Your refund has been approved.")},
        {sampleProductTeam(), false, 0, at.before(30, 8, 0),
         fromUtf8("欢迎使用！有问题随时找我们。")},
    };
}

} // namespace

QList<SampleMessages::Line> SampleMessages::history(const SampleRoster &sample,
                                                    const QDateTime &now)
{
    const Clock clock{now};
    QList<Line> lines;
    addPeople(sample, clock, &lines);
    addRooms(clock, &lines);
    addServices(clock, &lines);
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [](const Line &line) { return line.session.isEmpty(); }),
                lines.end());
    std::stable_sort(lines.begin(), lines.end(),
                     [](const Line &a, const Line &b) { return a.time < b.time; });
    return lines;
}

QString SampleMessages::body(quint64 number, const QString &name)
{
    const quint64 rest = number >> 8;
    switch (number % 20) {
    case 0:
    case 1:
        return picture(QStringLiteral("IMG_%1.jpg").arg(1000 + rest % 9000));
    case 2:
        return picture(QStringLiteral("screenshot.png"), pick(Texts, rest));
    case 3:
        return file(pick(Files, rest), qint64(rest % 9000000 + 1));
    case 4:
        return voice(int(rest % 59) + 1);
    case 5:
        return location(pick(Places, rest));
    case 6:
        return link();
    case 7:
        return merged(name);
    case 8:
        return recalled(name);
    default:
        return pick(Texts, rest);
    }
}

QString SampleMessages::serviceBody(quint64 number)
{
    return written(MessageBody::Service, [&](MessageBody *message) {
        message->serviceType = int(number % 3) + 1;
        message->title = fromUtf8("通知 %1").arg(number % 1000);
        message->text = pick(Texts, number >> 8);
    });
}

QString SampleMessages::channelBody(quint64 number, const QString &workGroup)
{
    return fromWorkGroup(workGroup, sampleChannelAnswer(number));
}

QString SampleMessages::closedBody(const QString &workGroup)
{
    return fromWorkGroup(workGroup, fromUtf8("现在不在服务时间，请留言，我们会尽快回复。"));
}
