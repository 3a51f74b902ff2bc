// vCards as address books write them, and files that are broken, huge or in another
// character set.
#include "host/vcard/vcardreader.h"
#include "tests/support/testrunner.h"

#include <QBuffer>
#include <QTextCodec>

namespace {
VCardReader::Result readBytes(QByteArray bytes, const VCardReader::Limits &limits = {})
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return VCardReader(limits).read(buffer);
}

QByteArray card(const QByteArray &lines, const QByteArray &version = "3.0")
{
    return "BEGIN:VCARD\r\nVERSION:" + version + "\r\n" + lines + "END:VCARD\r\n";
}

QByteArray encoded(const char *codec, const QByteArray &utf8)
{
    return QTextCodec::codecForName(codec)->fromUnicode(QString::fromUtf8(utf8));
}

// What a row expects, as one readable line.
QString summary(const VCard &c)
{
    QStringList phones, mails;
    for (const VCard::Address &phone : c.phones)
        phones.append(phone.value + (phone.mobile ? QStringLiteral("/m") : QString()) +
                      (phone.work ? QStringLiteral("/w") : QString()) +
                      (phone.home ? QStringLiteral("/h") : QString()) +
                      (phone.fax ? QStringLiteral("/f") : QString()));
    for (const VCard::Address &mail : c.mails)
        mails.append(mail.value);
    const QString comma = QStringLiteral(",");
    return QStringList{c.displayName(),
                       phones.join(comma),
                       mails.join(comma),
                       c.organisation,
                       c.unit,
                       c.title,
                       c.categories.join(comma),
                       c.uid}
        .join(QLatin1Char('|'));
}
} // namespace

class TstVCardReader : public QObject
{
    Q_OBJECT

private slots:
    void addressBooks_data()
    {
        const Rows<QByteArray, QString> row{"bytes", "expected"};

        row("3.0, web mail",
            card("FN:王小明\r\nN:王;小明;;;\r\n"
                 "EMAIL;TYPE=INTERNET;TYPE=WORK:xm@corp.example\r\n"
                 "TEL;TYPE=CELL:+86 120 0000 1111\r\nTEL;TYPE=WORKFAX:1\r\n"
                 "ORG:示例公司;研发部\r\nTITLE:工程师\r\n"
                 "CATEGORIES:myContacts,项目组\r\n"),
            QString::fromUtf8("王小明|+86 120 0000 1111/m,1|xm@corp.example|示例公司|研发部|"
                              "工程师|myContacts,项目组|"));
        row("3.0, desktop with groups and labels",
            card("PRODID:-//Example//Address Book 1//EN\r\nN:O'Brien;Aoife;;Dr.;\r\n"
                 "FN:Dr. Aoife O'Brien\r\n"
                 "item1.EMAIL;type=INTERNET;type=pref:aoife@corp.example\r\n"
                 "item1.X-ABLabel:_$!<Work>!$_\r\n"
                 "TEL;type=CELL;type=VOICE;type=pref:(120) 000-2222\r\n"
                 "TEL;type=HOME;type=FAX:5\r\n"
                 "PHOTO;ENCODING=b;TYPE=JPEG:/9j/4AAQSkZJRgABAQ\r\n"
                 " AAAQABAAD/2wBD\r\n"
                 "UID:5A1C-77\r\n"),
            QStringLiteral("Dr. Aoife O'Brien|(120) 000-2222/m,5/h/f|aoife@corp.example||||"
                           "|5A1C-77"));
        row("4.0, uris and quoted types",
            card("FN;PREF=1:Zoë Müller\r\nFN;LANGUAGE=en:Zoe Mueller\r\n"
                 "UID:urn:uuid:03a0e51f-d1aa-4385-8a53-e29025acd8af\r\n"
                 "TEL;VALUE=uri;TYPE=\"voice,cell\":tel:+49-120-3333\r\n"
                 "TEL;VALUE=uri;PREF=1;TYPE=work;X-A=\"a:b;c\":tel:+49-120-4444;ext=12\r\n"
                 "EMAIL;TYPE=work:zoe@corp.example\r\n"
                 "ORG:Example\\, Inc.;R\\;D;Lab\r\nROLE:Research\r\nGENDER:F\r\n"
                 "CATEGORIES:Work,R\\,D\r\n",
                 "4.0"),
            QString::fromUtf8("Zoë Müller|+49-120-3333/m,+49-120-4444;ext=12/w|"
                              "zoe@corp.example|Example, Inc.|R;D / Lab||Work,R,D|"
                              "03a0e51f-d1aa-4385-8a53-e29025acd8af"));
        row("2.1, phone, quoted-printable over several lines",
            card("N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E5=BC=A0;=E4=BC=\r\n=9F;;;\r\n"
                 "TEL;CELL;PREF:12000005555\r\nTEL;WORK:8001\r\n"
                 "ORG;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:A=3BB=2CC\r\n"
                 "PHOTO;ENCODING=BASE64;JPEG:/9j/4AAQSkZJRgABAQ\r\nAAAQABAAD2wBD\r\n\r\n",
                 "2.1"),
            QString::fromUtf8("张伟|12000005555/m,8001/w||A;B,C||||"));
        row("2.1, desktop, national character set",
            card("N;CHARSET=gb2312:" + encoded("GB18030", "李;娜") + "\r\n" +
                     "TITLE;CHARSET=gb2312;ENCODING=QUOTED-PRINTABLE:=BE=AD=C0=ED\r\n",
                 "2.1"),
            QString::fromUtf8("李娜|||||经理||"));
        row("folded inside a character",
            card(QByteArray("FN:") + "\xe6\xac" + "\r\n \xa7" +
                 "\xe9\x98\xb3\r\n\t\xe9\x94\x8b\r\n"),
            QString::fromUtf8("欧阳锋|||||||"));
        row("Chinese name from its parts", card("N:诸葛;亮;;;\r\n"),
            QString::fromUtf8("诸葛亮|||||||"));
        row("Latin name from its parts", card("N:Smith;Anna;Maria;;\r\n"),
            QStringLiteral("Anna Maria Smith|||||||"));
        row("company only", card("FN:\r\nN:;;;;\r\nORG:Example Ltd.\r\n"),
            QStringLiteral("Example Ltd.|||Example Ltd.||||"));
        row("markup, newlines and odd escapes", card("FN:<b>a\\nb\\,c\\;d\\\\e\\x</b>\r\n"),
            QStringLiteral("<b>a b,c;d\\e\\x</b>|||||||"));
        row("lower case, blanks, LF only, old Mac ends",
            "begin:vcard\nversion:3.0\nfn: Ann \r tel;type=cell:1\rtel;type=cell:2\n"
            "end:vcard\n",
            QStringLiteral("Ann tel;type=cell:1|2/m||||||"));
        row("a card within a card",
            card("N:Boss;Big\r\nAGENT:\r\nBEGIN:VCARD\r\nN:Agent;Small\r\nTEL:9\r\nEND:VCARD\r\n"
                 "TEL:1\r\n",
                 "2.1"),
            QStringLiteral("Big Boss|1||||||"));
        row("ends with a backslash and an unclosed quote", card("FN;X=\"oops:Ann\\\r\n"),
            QStringLiteral("Ann\\|||||||"));
    }
    void addressBooks()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, expected);
        const VCardReader::Result result = readBytes(bytes);
        QCOMPARE(result.cards.size(), 1);
        QCOMPARE(summary(result.cards.first()), expected);
        QVERIFY2(result.problems.isEmpty(), qPrintable(result.problems.value(0).text));
    }

    void encodings_data()
    {
        const Rows<QByteArray, QString> row{"bytes", "name"};
        const QByteArray chinese = card("FN:陈晓明\r\nORG:示例科技有限公司\r\n");
        const QByteArray western = card("FN:François Müller-Größe\r\nNOTE:déjà vu\r\n");
        const QString chineseName = QString::fromUtf8("陈晓明");
        const QString westernName = QString::fromUtf8("François Müller-Größe");
        row("UTF-8 with mark", "\xef\xbb\xbf" + chinese, chineseName);
        row("UTF-16 little endian with mark",
            QByteArray("\xff\xfe", 2) + encoded("UTF-16LE", chinese), chineseName);
        row("UTF-16 big endian with mark", QByteArray("\xfe\xff", 2) + encoded("UTF-16BE", chinese),
            chineseName);
        row("UTF-16 little endian, no mark", encoded("UTF-16LE", chinese), chineseName);
        row("UTF-16 big endian, no mark", encoded("UTF-16BE", western), westernName);
        row("GB18030, not announced", encoded("GB18030", chinese), chineseName);
        row("GB18030 beyond GB2312", encoded("GB18030", card("FN:陈镕明\r\n")),
            QString::fromUtf8("陈镕明"));
        row("Windows-1252, not announced", encoded("windows-1252", western), westernName);
        row("GB18030, announced as UTF-8", encoded("GB18030", card("FN;CHARSET=UTF-8:陈晓明\r\n")),
            chineseName);
        row("a decision made before",
            encoded("windows-1252", card("NOTE:déjà vu\r\nFN:Weiß-öß\r\n")),
            QString::fromUtf8("Weiß-öß"));
    }
    void encodings()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, name);
        const VCardReader::Result result = readBytes(bytes);
        QCOMPARE(result.cards.size(), 1);
        QCOMPARE(result.cards.first().displayName(), name);
        QVERIFY(result.problems.isEmpty());
    }

    void brokenCardsAreToldWithTheirLine_data()
    {
        const Rows<QByteArray, int, int, QList<int>> row{"bytes", "cards", "skipped", "lines"};
        const QByteArray good = card("FN:Good\r\n"); // four lines
        row("no name", good + card("TITLE:x\r\n") + good, 2, 1, QList<int>{5});
        row("no end", "BEGIN:VCARD\r\nFN:Lost\r\n" + good, 1, 1, QList<int>{1});
        row("cut off", good + "BEGIN:VCARD\r\nFN:Los", 1, 1, QList<int>{5});
        row("no property", card("FN:Good\r\nthis is none\r\nTEL:1\r\n"), 1, 0, QList<int>{4});
        row("folded lines are counted", card("NOTE:a\r\n b\r\n c\r\n=== \r\nFN:x\r\n"), 1, 0,
            QList<int>{6});
        row("text between the cards", good + "hello\r\nworld\r\n\r\n" + good, 2, 0, QList<int>{5});
        row("an end too many", good + "END:VCARD\r\n" + good, 2, 0, QList<int>{5});
        row("unknown character set", card("FN;CHARSET=x-klingon:Good\r\n"), 1, 0, QList<int>{3});
        row("binary in the middle", card("FN:Good\r\n" + QByteArray("\x00\x01\xff\xfe\n", 5)), 1, 0,
            QList<int>{4});
    }
    void brokenCardsAreToldWithTheirLine()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, cards);
        QFETCH(int, skipped);
        QFETCH(QList<int>, lines);
        const VCardReader::Result result = readBytes(bytes);
        QCOMPARE(result.cards.size(), cards);
        QCOMPARE(result.skipped, skipped);
        QList<int> told;
        for (const VCardReader::Problem &problem : result.problems) {
            told.append(problem.line);
            QVERIFY(!problem.text.isEmpty());
        }
        QCOMPARE(told, lines);
    }

    void filesThatAreNoVCards_data()
    {
        const Rows<QByteArray> row{"bytes"};
        row("empty", QByteArray());
        row("text", "name,phone\nAnn,1\n");
        row("picture", QByteArray("\x89PNG\r\n\x1a\n\x00\x00\x00", 11));
        row("zeroes", QByteArray(5000000, '\0'));
        row("one endless line", QByteArray(20000000, 'x'));
    }
    void filesThatAreNoVCards()
    {
        QFETCH(QByteArray, bytes);
        const VCardReader::Result result = readBytes(bytes);
        QVERIFY(!result.isVCard);
        QCOMPARE(result.problems.size(), 1);
        QCOMPARE(result.problems.first().line, 0);
    }

    void limits()
    {
        VCardReader::Limits limits;
        limits.lineBytes = 100;
        limits.propertiesPerCard = 5;
        limits.cards = 3;
        limits.problems = 2;
        const VCardReader::Result longLine = readBytes(
            card("FN:" + QByteArray(5000, 'n') + "\r\n " + QByteArray(5000, 'n') + "\r\nTEL:1\r\n"),
            limits);
        QCOMPARE(longLine.cards.first().displayName().size(), 97);
        QCOMPARE(longLine.cards.first().phones.size(), 1);
        QCOMPARE(longLine.problems.first().line, 3);

        const VCardReader::Result many =
            readBytes(card("FN:a\r\n") + card("FN:b\r\n" + QByteArray("TEL:1\r\n").repeated(9)) +
                          card("FN:c\r\n"),
                      limits);
        QCOMPARE(many.cards.size(), 2);
        QCOMPARE(many.problems.first().line, 5);

        const VCardReader::Result cards = readBytes(card("FN:a\r\n").repeated(9), limits);
        QCOMPARE(cards.cards.size(), 3);
        QCOMPARE(cards.problems.first().line, 13);

        const VCardReader::Result bad = readBytes(card("TITLE:a\r\n").repeated(50), limits);
        QCOMPARE(bad.problems.size(), 3); // and one that tells of the others
        QCOMPARE(bad.skipped, 50);
    }

    // A quadratic reader would need minutes for each of these.
    void largeFilesTakeTimeInProportion_data()
    {
        const Rows<QByteArray, int> row{"bytes", "cards"};
        row("many cards", card("FN:n\r\nTEL:1\r\n").repeated(30000), 30000);
        row("a picture of many lines",
            card("FN:n\r\nPHOTO;ENCODING=b:\r\n" + QByteArray(" AAAAAAAA\r\n").repeated(1000000)),
            1);
        row("folds without a colon", card("FN:n\r\nX\r\n" + QByteArray(" x\r\n").repeated(2000000)),
            1);
        row("soft line ends",
            card("FN:n\r\nNOTE;ENCODING=QUOTED-PRINTABLE:=\r\n" +
                 QByteArray("a=\r\n").repeated(2000000) + "b\r\n"),
            1);
    }
    void largeFilesTakeTimeInProportion()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, cards);
        QCOMPARE(readBytes(bytes).cards.size(), cards);
    }

    void randomBytesDoNoHarm()
    {
        const QByteArray seedText = card("N:a;b;c\r\nTEL;TYPE=\"x,y\":1\r\nNOTE;ENCODING="
                                         "QUOTED-PRINTABLE;CHARSET=GBK:=41=\r\n=42\\n\r\n");
        quint32 state = 12345;
        for (int round = 0; round < 3000; ++round) {
            QByteArray bytes = seedText + seedText;
            for (int i = 0; i < 12; ++i) {
                state = state * 1664525u + 1013904223u;
                bytes[int((state >> 8) % quint32(bytes.size()))] = char(state >> 24);
            }
            const VCardReader::Result result = readBytes(bytes);
            QVERIFY(result.cards.size() + result.skipped <= 4);
            QVERIFY(result.isVCard || result.problems.size() == 1);
        }
    }
};

FRIENDUI_TEST(TstVCardReader)
#include "tst_vcardreader.moc"
