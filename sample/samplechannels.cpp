#include "sample/samplechannels.h"

#include "sample/samplecompany.h"

namespace {

QString fromUtf8(const char *text)
{
    return QString::fromUtf8(text);
}

constexpr const char *Answers[] = {
    "您好，很高兴为您服务。",
    "您的问题已经转给同事，请稍候。",
    "Thank you for asking. A colleague will be with you in a minute.",
    "已为您登记，工单编号 20240731。",
    "请问还有其他可以帮您的吗？",
};

} // namespace

QString sampleProductTeam()
{
    return QStringLiteral("team@") + SampleCompany::domain();
}

const QVector<SampleChannel> &sampleChannels()
{
    static const QVector<SampleChannel> channels = {
        {QStringLiteral("cs1001"),
         fromUtf8("IT 服务台"),
         QStringLiteral("cs1001.png"),
         {fromUtf8("电脑与网络"), fromUtf8("账号与密码"), fromUtf8("会议设备")},
         0,
         0,
         true,
         false},
        {QStringLiteral("cs1002"),
         fromUtf8("人事咨询"),
         QStringLiteral("cs1002.png"),
         {fromUtf8("薪酬福利"), fromUtf8("考勤休假")},
         9,
         18,
         true,
         false},
        {QStringLiteral("cs1003"),
         fromUtf8("行政后勤"),
         QStringLiteral("cs1003.png"),
         {fromUtf8("办公用品")},
         9,
         18,
         false,
         false},
        {QStringLiteral("cs1004"),
         QStringLiteral("Travel & Expenses"),
         QStringLiteral("cs1004.png"),
         {QStringLiteral("Flights"), QStringLiteral("Refunds")},
         8,
         20,
         true,
         false},
        {QStringLiteral("cs1005"),
         fromUtf8("客户投诉处理"),
         QString(),
         {fromUtf8("一线受理"), fromUtf8("二线升级"), fromUtf8("回访")},
         0,
         0,
         true,
         true},
        {QStringLiteral("cs1006"), fromUtf8("法务与合同"), QString(), {}, 10, 16, false, false},
        {sampleProductTeam(),
         fromUtf8("产品团队"),
         QStringLiteral("team.png"),
         {},
         0,
         0,
         true,
         false},
    };
    return channels;
}

const QVector<SampleServiceNumber> &sampleServiceNumbers()
{
    static const QVector<SampleServiceNumber> numbers = {
        {QStringLiteral("sn2001"), fromUtf8("公司新闻"), fromUtf8("每天一条公司新闻")},
        {QStringLiteral("sn2002"), fromUtf8("待办审批"), fromUtf8("需要您处理的申请")},
        {QStringLiteral("sn2003"), QStringLiteral("Canteen"), QStringLiteral("Menu of the day")},
    };
    return numbers;
}

QString sampleChannelAnswer(quint64 number)
{
    return fromUtf8(Answers[number % (sizeof Answers / sizeof *Answers)]);
}
