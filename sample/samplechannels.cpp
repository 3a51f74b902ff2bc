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

namespace {
struct Row
{
    const char *name, *description;
    int kind;
};

constexpr Row rows[] = {
    {"公司新闻", "每天一条公司新闻", 0},
    {"待办审批", "需要您处理的申请", 1},
    {"Canteen", "Menu of the day", 2},
    {"IT 服务台", "电脑、账号和网络的问题，随时可以问", 2},
    {"人事政策", "制度、假期与福利的通知", 0},
    {"会议助手", "会议室预订与会议提醒", 1},
    {"Travel & Expenses", "Bookings, receipts, refunds", 1},
    {"安全提醒", "钓鱼邮件、密码和设备安全", 0},
    {"薪酬查询", "每月工资单", 1},
    {"班车时刻", "班车线路与到站时间", 2},
    {"公告归档", "往年公告，只供查阅", 0},
    {"培训学院", "课程安排与报名", 2},
    {"图书角", "新书上架与借阅到期提醒", 2},
    {"Release Notes", "What is new in our products", 0},
    {"运维告警", "系统告警与恢复通知", 1},
    {"合同助手", "合同到期与用印进度", 1},
    {"访客登记", "访客到达提醒", 1},
    {"健身社", "每周活动安排", 2},
    {"Design Review", "Drafts waiting for comments", 1},
    {"采购进度", "订单与到货通知", 1},
    {"客户之声", "每周客户反馈摘要", 0},
    {"Quality & <Reliability>", "Test reports of the week", 0},
    {"党群工会", "工会活动与慰问", 2},
    {"天气与路况", "上下班路上的天气和路况", 2},
    {"停车管理", "车位预约与车牌登记", 2},
    {"Brand Centre — logos, templates and photographs for everybody",
     "Everything that carries our name", 2},
};
constexpr int Subscribed = 3;

// What is special about some of them.
void addSpecials(QVector<SampleServiceNumber> *numbers)
{
    const auto number = [numbers](int code) -> SampleServiceNumber & {
        return (*numbers)[code - 2001];
    };
    number(2001).subject = fromUtf8("新闻中心");
    number(2002).contact = QStringLiteral("8001");
    SampleServiceNumber &desk = number(2004);
    desk.subject = fromUtf8("信息技术部");
    desk.contact = QStringLiteral("8888");
    desk.channel = QStringLiteral("cs1001");
    desk.hasMenu = true;
    number(2009).isClosed = true;
    number(2010).hasIcon = false;
    number(2011).isInteractive = false;
    number(2023).isFolded = true;
}
} // namespace

const QVector<SampleServiceNumber> &sampleServiceNumbers()
{
    static const QVector<SampleServiceNumber> numbers = [] {
        QVector<SampleServiceNumber> made;
        for (const Row &row : rows) {
            SampleServiceNumber number;
            number.code = QStringLiteral("sn%1").arg(2001 + made.size());
            number.name = fromUtf8(row.name);
            number.description = fromUtf8(row.description);
            number.kind = row.kind;
            number.isSubscribed = made.size() < Subscribed;
            made.append(number);
        }
        addSpecials(&made);
        return made;
    }();
    return numbers;
}

QString sampleChannelAnswer(quint64 number)
{
    return fromUtf8(Answers[number % (sizeof Answers / sizeof *Answers)]);
}
