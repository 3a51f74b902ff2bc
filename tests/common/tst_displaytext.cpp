// Names as other people may choose them.
#include "common/displaytext.h"
#include "tests/support/fakecontext.h"
#include "tests/support/testrunner.h"

#include <QTextBoundaryFinder>
#include <QTextDocument>

namespace {
QString utf8(const char *text)
{
    return QString::fromUtf8(text);
}

QString repeated(const QString &text, int times)
{
    return text.repeated(times);
}

int graphemes(const QString &text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int count = 0;
    while (finder.toNextBoundary() >= 0)
        ++count;
    return count;
}

FriendData contact(const char *remark, const char *nickName)
{
    FriendData data;
    data.jid = QStringLiteral("u1@corp.example");
    data.remark = utf8(remark);
    data.nickName = utf8(nickName);
    return data;
}
} // namespace

class TstDisplayText : public QObject
{
    Q_OBJECT

private slots:
    void namesAreMadeSafeToShow_data()
    {
        const Rows<QString, QString> row{"name", "shown"};
        row("empty", "", "");
        row("markup stays text", "<b>Li</b> & \"Co\"", "<b>Li</b> & \"Co\"");
        row("line ends become one blank", "a\r\n\t b", "a  b");
        row("controls at the ends vanish",
            "\n\x07"
            "a\x1b",
            "a");
        row("only controls", "\r\n", "");
        row("separators", utf8("a\u2028\u2029b"), "a b");
        row("C1 control", utf8("a\u0085b"), "a b");
        row("null", QStringLiteral("a") + QChar(0) + QLatin1String("b"), "ab");
        row("override", utf8("a\u202Efdp.exe\u202C"), "afdp.exe");
        row("isolates", utf8("\u2066a\u2069\u2067b\u2068"), "ab");
        row("Hebrew is isolated", utf8("שלום"), utf8("\u2068שלום\u2069"));
        row("Arabic amid Latin", utf8("a سلام"), utf8("\u2068a سلام\u2069"));
        row("high surrogate", QString(QChar(0xd83d)), utf8("\uFFFD"));
        row("low before high", QString(QChar(0xdc00)) + QChar(0xd800), utf8("\uFFFD\uFFFD"));
        row("emoji", utf8("😀 👨‍👩‍👧"), utf8("😀 👨‍👩‍👧"));
        row("few marks", utf8("e\u0301\u0302\u0303\u0304"), utf8("e\u0301\u0302\u0303\u0304"));
        row("flood of marks", QLatin1Char('e') + repeated(utf8("\u0301"), 100),
            utf8("e\u0301\u0301\u0301\u0301"));
        row("flood of joiners", QLatin1Char('e') + repeated(utf8("\u200D"), 100) + QLatin1Char('f'),
            utf8("e\u200D\u200D\u200D\u200Df"));
        row("64 letters", QString(64, QLatin1Char('x')), QString(64, QLatin1Char('x')));
        row("65 letters", QString(65, QLatin1Char('x')), QString(63, QLatin1Char('x')) + utf8("…"));
        row("64 letters of two units", repeated(utf8("😀"), 64), repeated(utf8("😀"), 64));
        row("65 letters of two units", repeated(utf8("😀"), 65),
            repeated(utf8("😀"), 63) + utf8("…"));
        row("65 letters with marks", repeated(utf8("e\u0301"), 65),
            repeated(utf8("e\u0301"), 63) + utf8("…"));
    }
    void namesAreMadeSafeToShow()
    {
        QFETCH(QString, name);
        QFETCH(QString, shown);
        QCOMPARE(displayText(name), shown);
        QCOMPARE(displayText(shown), shown);
    }

    void hugeNamesAreBounded_data()
    {
        const Rows<QString> row{"name"};
        row("letters", QString(1000000, QLatin1Char('x')));
        row("marks", QString(1000000, QChar(0x301)));
        row("marks on letters", repeated(utf8("e\u0301\u0301\u0301\u0301"), 200000));
        row("joined emoji", repeated(utf8("👩\u200D"), 300000));
        row("overrides", QString(1000000, QChar(0x202e)));
        row("line ends", QString(1000000, QLatin1Char('\n')));
        row("lone surrogates", QString(1000000, QChar(0xdc00)));
        row("conjoining letters", QString(1000000, QChar(0x1100)));
        row("Hebrew", QString(1000000, QChar(0x5d0)));
    }
    void hugeNamesAreBounded()
    {
        QFETCH(QString, name);
        const QString shown = displayText(name);
        QVERIFY(shown.size() <= 700);
        QVERIFY(graphemes(shown) <= MaximumGraphemes + 2); // the isolating pair
        for (const QChar c : shown)
            QVERIFY(c.unicode() >= 0x20);
    }

    void plainNamesAreNotCopied_data()
    {
        const Rows<QString> row{"name"};
        row("Latin", utf8("Müller-Lüdenscheidt, Dr."));
        row("Chinese", utf8("张三（研发）"));
        row("Cyrillic", utf8("Иван"));
    }
    void plainNamesAreNotCopied()
    {
        QFETCH(QString, name);
        QVERIFY(displayText(name).constData() == name.constData());
        QVERIFY(menuText(name).constData() == name.constData());
    }

    void toolTipsShowMarkupAsText_data()
    {
        const Rows<QString> row{"text"};
        row("plain", "Li Lei");
        row("tag", "<img src=/etc/passwd>");
        row("ampersand", "Li & Co");
        row("entities", "&lt;b&gt; &amp;");
        row("lines", "<a>\nb");
        row("end of the frame", "</qt><b>x</b>");
    }
    void toolTipsShowMarkupAsText()
    {
        QFETCH(QString, text);
        // What a tool tip does with its text.
        const QString tip = toolTipText(text);
        QTextDocument document;
        if (Qt::mightBeRichText(tip))
            document.setHtml(tip);
        else
            document.setPlainText(tip);
        QCOMPARE(document.toPlainText(), text);
    }

    void longToolTipsAreCut()
    {
        const QString tip = toolTipText(repeated(utf8("😀"), 5000));
        QVERIFY(tip.size() <= 2001);
        QVERIFY(tip.endsWith(utf8("😀…")));
    }

    void menusShowAmpersandsAndOneLine()
    {
        QCOMPARE(menuText(QStringLiteral("R&D && \tCtrl+Q")), QStringLiteral("R&&D &&&&  Ctrl+Q"));
    }

    void jidsAndUserIds()
    {
        FakeContext host;
        const HostContextScope scope(&host);
        QCOMPARE(jidUser(QStringLiteral("u1@corp.example/pc")), QStringLiteral("u1"));
        QCOMPARE(jidUser(QStringLiteral("u1")), QStringLiteral("u1"));
        QCOMPARE(jidUser(QStringLiteral("@x")), QString());
        QCOMPARE(makeJid(QStringLiteral("u1")), QStringLiteral("u1@corp.example"));
        QCOMPARE(makeJid(QStringLiteral("u1@other")), QStringLiteral("u1@other"));
        QCOMPARE(makeJid(QString()), QString());
    }

    void contactIsShownByTheFirstNameThatShows_data()
    {
        // nickName: of the profile
        const Rows<FriendData, QString, QString, QString> row{"friendData", "nickName", "userName",
                                                              "name"};
        row("remark", contact("小李", "n"), "p", "u", utf8("小李"));
        row("blank remark", contact(" \n", "n"), "p", "u", "p");
        row("roster's nick name", contact("", "n"), "", "u", "n");
        row("user name", contact("", ""), "", "u", "u");
        row("jid", contact("", ""), "", "", "u1");
        row("hostile remark", contact("a\nb", "n"), "", "", "a b");
    }
    void contactIsShownByTheFirstNameThatShows()
    {
        QFETCH(FriendData, friendData);
        QFETCH(QString, nickName);
        QFETCH(QString, userName);
        VcardInfo profile;
        profile.nickName = nickName;
        profile.userName = userName;
        QTEST(contactDisplayName(friendData, profile), "name");
        if (nickName.isEmpty() && userName.isEmpty())
            QTEST(contactDisplayName(friendData), "name");
    }

    void paragraphs_data()
    {
        const Rows<QString, QString> row{"text", "shown"};
        row("one line", utf8("关于我们"), utf8("关于我们"));
        row("lines", utf8("a\nb\r\nc\rd\u2028e"), utf8("a\nb\nc\nd\ne"));
        row("empty lines", utf8("\n\na\n\n \n\nb\n\n"), utf8("a\n\nb"));
        row("markup", utf8("<b>a</b> & b"), utf8("<b>a</b> & b"));
        row("controls", utf8("a\tb\u0007c\u202ed\u202c"), utf8("a b cd"));
        row("half a pair", QString(QChar(0xd83d)) + QLatin1Char('a'), utf8("\uFFFDa"));
        row("marks", utf8("a") + repeated(QChar(0x0301), 9),
            utf8("a") + repeated(QChar(0x0301), 4));
        row("nothing", utf8(" \n\t\n"), QString());
    }
    void paragraphs()
    {
        QFETCH(QString, text);
        QFETCH(QString, shown);
        QCOMPARE(paragraphText(text), shown);
        QCOMPARE(paragraphText(shown), shown);
    }

    void longParagraphs_data()
    {
        const Rows<QString> row{"text"};
        row("a line", repeated(utf8("x"), 100000));
        row("lines", repeated(utf8("line\n"), 100000));
        row("pairs", repeated(QString::fromUtf8("😀"), 50000));
        row("marks", utf8("a") + repeated(QChar(0x0301), 100000));
        row("just too long", repeated(utf8("x"), MaximumParagraph + 1));
    }
    void longParagraphs()
    {
        QFETCH(QString, text);
        const QString shown = paragraphText(text);
        QVERIFY(shown.size() <= MaximumParagraph);
        QVERIFY(shown.endsWith(QChar(0x2026)));
        QVERIFY(shown.size() < 2 || !shown.at(shown.size() - 2).isHighSurrogate());
        const QString whole = repeated(utf8("x"), MaximumParagraph - 2);
        QCOMPARE(paragraphText(whole), whole);
    }
};

FRIENDUI_TEST(TstDisplayText)
#include "tst_displaytext.moc"
