// Names as other people may choose them.
#include "common/displaytext.h"
#include "tests/support/fakecontext.h"
#include "tests/support/testrunner.h"

#include <QTest>
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
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("shown");
        QTest::newRow("empty") << ""
                               << "";
        QTest::newRow("markup stays text") << "<b>Li</b> & \"Co\""
                                           << "<b>Li</b> & \"Co\"";
        QTest::newRow("line ends become one blank") << "a\r\n\t b"
                                                    << "a  b";
        QTest::newRow("controls at the ends vanish") << "\n\x07"
                                                        "a\x1b"
                                                     << "a";
        QTest::newRow("only controls") << "\r\n"
                                       << "";
        QTest::newRow("separators") << utf8("a\u2028\u2029b") << "a b";
        QTest::newRow("C1 control") << utf8("a\u0085b") << "a b";
        QTest::newRow("null") << QStringLiteral("a") + QChar(0) + QLatin1String("b") << "ab";
        QTest::newRow("override") << utf8("a\u202Efdp.exe\u202C") << "afdp.exe";
        QTest::newRow("isolates") << utf8("\u2066a\u2069\u2067b\u2068") << "ab";
        QTest::newRow("Hebrew is isolated") << utf8("שלום") << utf8("\u2068שלום\u2069");
        QTest::newRow("Arabic amid Latin") << utf8("a سلام") << utf8("\u2068a سلام\u2069");
        QTest::newRow("high surrogate") << QString(QChar(0xd83d)) << utf8("\uFFFD");
        QTest::newRow("low before high")
            << QString(QChar(0xdc00)) + QChar(0xd800) << utf8("\uFFFD\uFFFD");
        QTest::newRow("emoji") << utf8("😀 👨‍👩‍👧")
                               << utf8("😀 👨‍👩‍👧");
        QTest::newRow("few marks")
            << utf8("e\u0301\u0302\u0303\u0304") << utf8("e\u0301\u0302\u0303\u0304");
        QTest::newRow("flood of marks") << QLatin1Char('e') + repeated(utf8("\u0301"), 100)
                                        << utf8("e\u0301\u0301\u0301\u0301");
        QTest::newRow("flood of joiners")
            << QLatin1Char('e') + repeated(utf8("\u200D"), 100) + QLatin1Char('f')
            << utf8("e\u200D\u200D\u200D\u200Df");
        QTest::newRow("64 letters")
            << QString(64, QLatin1Char('x')) << QString(64, QLatin1Char('x'));
        QTest::newRow("65 letters")
            << QString(65, QLatin1Char('x')) << QString(63, QLatin1Char('x')) + utf8("…");
        QTest::newRow("64 letters of two units")
            << repeated(utf8("😀"), 64) << repeated(utf8("😀"), 64);
        QTest::newRow("65 letters of two units")
            << repeated(utf8("😀"), 65) << repeated(utf8("😀"), 63) + utf8("…");
        QTest::newRow("65 letters with marks")
            << repeated(utf8("e\u0301"), 65) << repeated(utf8("e\u0301"), 63) + utf8("…");
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
        QTest::addColumn<QString>("name");
        QTest::newRow("letters") << QString(1000000, QLatin1Char('x'));
        QTest::newRow("marks") << QString(1000000, QChar(0x301));
        QTest::newRow("marks on letters") << repeated(utf8("e\u0301\u0301\u0301\u0301"), 200000);
        QTest::newRow("joined emoji") << repeated(utf8("👩\u200D"), 300000);
        QTest::newRow("overrides") << QString(1000000, QChar(0x202e));
        QTest::newRow("line ends") << QString(1000000, QLatin1Char('\n'));
        QTest::newRow("lone surrogates") << QString(1000000, QChar(0xdc00));
        QTest::newRow("conjoining letters") << QString(1000000, QChar(0x1100));
        QTest::newRow("Hebrew") << QString(1000000, QChar(0x5d0));
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
        QTest::addColumn<QString>("name");
        QTest::newRow("Latin") << utf8("Müller-Lüdenscheidt, Dr.");
        QTest::newRow("Chinese") << utf8("张三（研发）");
        QTest::newRow("Cyrillic") << utf8("Иван");
    }
    void plainNamesAreNotCopied()
    {
        QFETCH(QString, name);
        QVERIFY(displayText(name).constData() == name.constData());
        QVERIFY(menuText(name).constData() == name.constData());
    }

    void toolTipsShowMarkupAsText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << "Li Lei";
        QTest::newRow("tag") << "<img src=/etc/passwd>";
        QTest::newRow("ampersand") << "Li & Co";
        QTest::newRow("entities") << "&lt;b&gt; &amp;";
        QTest::newRow("lines") << "<a>\nb";
        QTest::newRow("end of the frame") << "</qt><b>x</b>";
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
        QTest::addColumn<FriendData>("friendData");
        QTest::addColumn<QString>("nickName"); // of the profile
        QTest::addColumn<QString>("userName");
        QTest::addColumn<QString>("name");
        QTest::newRow("remark") << contact("小李", "n") << "p"
                                << "u" << utf8("小李");
        QTest::newRow("blank remark") << contact(" \n", "n") << "p"
                                      << "u"
                                      << "p";
        QTest::newRow("roster's nick name") << contact("", "n") << ""
                                            << "u"
                                            << "n";
        QTest::newRow("user name") << contact("", "") << ""
                                   << "u"
                                   << "u";
        QTest::newRow("jid") << contact("", "") << ""
                             << ""
                             << "u1";
        QTest::newRow("hostile remark") << contact("a\nb", "n") << ""
                                        << ""
                                        << "a b";
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
};

FRIENDUI_TEST(TstDisplayText)
#include "tst_displaytext.moc"
