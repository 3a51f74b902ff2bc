// The line that lists show of a message.
#include "messages/messagebody.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

class TstMessageSummary : public QObject
{
    Q_OBJECT

private slots:
    void tellsWhatWasSent_data()
    {
        const Rows<QString, QString, QString> row{"body", "english", "chinese"};
        // Apostrophes stand for quotation marks.
        const auto both = [&row](const char *name, const char *body, const char *shown) {
            row(name, body, shown, shown);
        };
        both("text", "Lunch at\n noon?", "Lunch at  noon?");
        both("broken object", "{'type':'file'", "{\"type\":\"file\"");
        both("wrapped text", "{'type':'text','text':'{a}'}", "{a}");
        both("work group", "{'type':'workgroup','name':'IT','text':'ready'}", "[IT] ready");
        row("picture", "{'type':'picture'}", "[Picture]", u8"[图片]");
        row("caption", "{'type':'picture','text':'cap'}", "[Picture] cap", u8"[图片] cap");
        row("file", "{'type':'file','name':'/x/a.pdf'}", "[File] a.pdf", u8"[文件] a.pdf");
        row("voice", "{'type':'voice','seconds':'12'}", "[Voice] 12\"", u8"[语音] 12\"");
        row("voice of no length", "{'type':'voice'}", "[Voice]", u8"[语音]");
        row("location", "{'type':'location','name':' ','text':'1 Road'}", "[Location] 1 Road",
            u8"[位置] 1 Road");
        row("link", "{'type':'link','title':'T','url':'http://a.example'}", "[Link] T",
            u8"[链接] T");
        row("bare link", "{'type':'link','url':'http://a.example/x'}", "[Link] a.example",
            u8"[链接] a.example");
        row("merged", "{'type':'merged','title':'T'}", "[Chat history] T", u8"[聊天记录] T");
        row("service", "{'type':'service','text':'b'}", "[Service message] b", u8"[服务消息] b");
        row("no work group", "{'type':'workgroup','text':'b'}", "[Customer service] b",
            u8"[客服] b");
        row("recalled", "{'type':'recalled','sender':'%1 Anna'}", "%1 Anna took back a message",
            u8"%1 Anna撤回了一条消息");
        row("recalled by nobody", "{'type':'recalled'}", "A message was taken back",
            u8"消息已撤回");
        row("unknown", "{'type':'poll','text':'vote'}", "[Message of an unknown kind] vote",
            u8"[暂不支持的消息] vote");
    }

    void tellsWhatWasSent()
    {
        QFETCH(QString, body);
        QFETCH(QString, english);
        QFETCH(QString, chinese);
        body.replace(QLatin1Char('\''), QLatin1Char('"'));
        {
            const Language language(QStringLiteral("en"));
            QCOMPARE(messageSummary(body), english);
        }
        const Language language(QStringLiteral("zh_CN"));
        QCOMPARE(messageSummary(body), chinese);
    }

    void hostileTexts()
    {
        const Language language(QStringLiteral("en"));
        const QString hostile =
            QStringLiteral(u"a\u202e<img src=x>\n\u2028\u0007") + QString(5000, QLatin1Char('m'));
        for (MessageBody::Kind kind :
             {MessageBody::Text, MessageBody::File, MessageBody::WorkGroup, MessageBody::Merged,
              MessageBody::Recalled, MessageBody::Unknown}) {
            MessageBody message;
            message.kind = kind;
            message.text = message.title = message.name = message.sender = hostile;
            const QString line = messageSummary(message);
            QVERIFY(line.contains(QLatin1String("<img src=x>"))); // shown, never obeyed
            QVERIFY(!line.contains(QChar(0x202e)));
            QVERIFY(!line.contains(QLatin1Char('\n')));
            QVERIFY(!line.contains(QChar(0x2028)));
            QVERIFY2(line.size() < 200, qPrintable(QString::number(line.size())));
        }
    }

    void longText_data()
    {
        const Rows<QString> row{"body"};
        row("letters", QString(1 << 20, QLatin1Char('m')));
        row("braces", QString(1 << 20, QLatin1Char('{')));
        row("an object", QStringLiteral("{\"type\":\"text\",\"text\":\"%1\"}")
                             .arg(QString(1 << 20, QLatin1Char('m'))));
    }

    void longText()
    {
        QFETCH(QString, body);
        const QString line = messageSummary(body);
        QVERIFY(line.size() <= 64);
        QVERIFY(body.startsWith(line.left(20)));
    }
};

FRIENDUI_TEST(TstMessageSummary)
#include "tst_messagesummary.moc"
