#include "backend/numbers/historypage.h"

#include "backend/numbers/servicenumberlist.h"

#include <QDateTime>
#include <QUrl>

namespace {
constexpr int MessagesOfPage = 8;
constexpr int HoursBetween = 31;

constexpr const char *Messages[] = {
    "本周安排已更新，请留意时间变化。",
    "Dear colleagues, the new edition is out. Have a look when you have a minute.",
    "系统将于周六 22:00 至 24:00 维护，届时服务暂停。",
    "您关注的事项已有新的进展。",
    "A reminder: please hand in what is due by Friday & tell us what is missing.",
    "感谢大家的反馈，我们已逐条答复。",
    "节假日服务时间：9:00–18:00。",
};

constexpr char Head[] =
    "<!DOCTYPE html>\n<html lang=\"zh-CN\">\n<head>\n<meta charset=\"utf-8\">\n"
    "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>%1</title>\n"
    "<style>\nbody { margin: 0 auto; max-width: 640px; padding: 12px 16px;"
    " font: 14px/1.6 \"Microsoft Yahei\", \"Noto Sans CJK SC\", sans-serif;"
    " color: #333; background: #f5f6f8; }\n"
    "h1 { font-size: 18px; }\nh2 { margin: 20px 0 6px; font-size: 12px; font-weight: normal;"
    " color: #888; text-align: center; }\n"
    "p { margin: 0 0 8px; padding: 10px 14px; background: #fff; border-radius: 6px; }\n"
    "time { color: #888; font-size: 12px; }\nnav { margin: 20px 0; text-align: center; }\n"
    "a { color: #0a7cca; }\n</style>\n</head>\n<body>\n<h1>%1</h1>\n";
} // namespace

QByteArray HistoryPage::write(const ServiceNumber &number, int page)
{
    const QString name = number.name.toHtmlEscaped();
    QString html = QString::fromUtf8(Head).arg(name);
    const uint start = qHash(number.code, 0);
    const QDateTime now = QDateTime::currentDateTime();
    QString day;
    for (int i = 0; i < MessagesOfPage; ++i) {
        const int place = (page - 1) * MessagesOfPage + i;
        const QDateTime time = now.addSecs(-3600 * qint64(HoursBetween) * (place + 1));
        const QString date = time.toString(QStringLiteral("yyyy-MM-dd"));
        if (date != day)
            html += QStringLiteral("<h2>%1</h2>\n").arg(date);
        day = date;
        const char *text = Messages[(start + uint(place)) % std::size(Messages)];
        html += QStringLiteral("<p><time>%1</time><br>%2</p>\n")
                    .arg(time.toString(QStringLiteral("hh:mm")),
                         QString::fromUtf8(text).toHtmlEscaped());
    }
    if (page == 1)
        html += QStringLiteral("<p>%1</p>\n").arg(number.description.toHtmlEscaped());
    const int other = page == 1 ? 2 : 1;
    const QString id = QString::fromLatin1(QUrl::toPercentEncoding(number.code));
    html += QString::fromUtf8("<nav><a href=\"?id=%1&amp;page=%2\">%3</a> · "
                              "<a href=\"https://www.example.com/\">www.example.com</a></nav>\n"
                              "</body>\n</html>\n")
                .arg(id)
                .arg(other)
                .arg(page == 1 ? QString::fromUtf8("更早的消息") : QString::fromUtf8("最新的消息"));
    return html.toUtf8();
}
