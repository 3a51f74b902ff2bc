// Settings files as people, other programs and attackers leave them.
#include "common/initext.h"
#include "common/settingsfile.h"
#include "tests/support/files.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QRect>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {
const QString key = QStringLiteral("/g/k");

bool isObject(const QVariant &value)
{
    if (value.type() == QVariant::List) {
        const QVariantList list = value.toList();
        return std::any_of(list.begin(), list.end(), isObject);
    }
    return value.isValid() && value.type() != QVariant::String &&
           value.type() != QVariant::StringList;
}
} // namespace

class TstSettingsFile : public QObject
{
    Q_OBJECT

private:
    FakeContext m_host;
    std::unique_ptr<LogCapture> m_log;
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;

private slots:
    void initTestCase() { setHostContext(&m_host); }
    void cleanupTestCase() { setHostContext(nullptr); }
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_file = m_folder->filePath(QStringLiteral("s.ini"));
        m_log = std::make_unique<LogCapture>(m_host);
    }

    void valuesAreReadTolerantly_data()
    {
        // text: with the fallback "-"
        const Rows<QByteArray, QString, QStringList, bool, int, double> row{
            "line", "text", "list", "flag", "number", "real"};
        const QStringList none;
        const auto one = [](const QString &text) { return QStringList(text); };
        row("absent", "other=1", "-", none, false, 0, 0.0);
        row("empty", "k=", "", none, false, 0, 0.0);
        row("text", "k=张三", QString::fromUtf8("张三"), one(QString::fromUtf8("张三")), true, 0,
            0.0);
        row("hand-written commas", "k=hello, world", "hello,world", QStringList{"hello", "world"},
            true, 0, 0.0);
        row("address with commas", "k=http://h/a,b", "http://h/a,b", QStringList{"http://h/a", "b"},
            true, 0, 0.0);
        row("quoted", "k=\"a, b;c\"", "a, b;c", one("a, b;c"), true, 0, 0.0);
        row("true", "k=true", "true", one("true"), true, 0, 0.0);
        row("false", "k=False", "False", one("False"), false, 0, 0.0);
        row("number", "k=-7", "-7", one("-7"), true, -7, -7.0);
        row("fraction", "k=1.5", "1.5", one("1.5"), true, 0, 1.5);
        row("beyond 32 bits", "k=99999999999", "99999999999", one("99999999999"), true, 0,
            99999999999.0);
        row("no finite number", "k=inf", "inf", one("inf"), true, 0, 0.0);
        row("text with @", "k=@@home", "@home", one("@home"), true, 0, 0.0);
        row("unknown @", "k=@home", "@home", one("@home"), true, 0, 0.0);
        row("@ in a list", "k=@a, b", "@a,b", QStringList{"@a", "b"}, true, 0, 0.0);
        row("invalid", "k=@Invalid()", "-", none, false, 0, 0.0);
        row("bytes", "k=@ByteArray(1)", "-", none, false, 0, 0.0);
        row("rectangle", "k=@Rect(1 2 3 4)", "-", none, false, 0, 0.0);
        row("bytes in a list", "k=a, @ByteArray(1)", "-", none, false, 0, 0.0);
    }
    void valuesAreReadTolerantly()
    {
        QFETCH(QByteArray, line);
        writeFile(m_file, "[g]\n" + line + '\n');
        const SettingsFile file(m_file);
        QTEST(file.text(key, QStringLiteral("-")), "text");
        QTEST(file.text(QStringLiteral("g/k"), QStringLiteral("-")), "text");
        QTEST(file.list(key), "list");
        QTEST(file.flag(key), "flag");
        QTEST(file.number(key), "number");
        QTEST(file.real(key), "real");
    }

    void writtenValuesAreReadAgain_data()
    {
        const Rows<QVariant> row{"value"};
        row("Chinese", QVariant(QString::fromUtf8("设置, \"引号\"; =[x]\\")));
        row("at", QVariant(QStringLiteral("@home")));
        row("lines", QVariant(QStringLiteral("a\nb\r\n\tc\x01")));
        row("blanks", QVariant(QStringLiteral("  a  ")));
        row("empty", QVariant(QStringLiteral("")));
        row("emoji", QVariant(QString::fromUtf8("😀")));
        row("list", QVariant(QStringList{"a, b", "@c", "", QString::fromUtf8("丁")}));
        row("flag", QVariant(true));
        row("number", QVariant(-14));
        row("fraction", QVariant(15.5));
    }
    void writtenValuesAreReadAgain()
    {
        QFETCH(QVariant, value);
        {
            SettingsFile file(m_file);
            QVERIFY(file.setValue(key, value));
            QVERIFY(file.save());
        }
        // QSettings has the first file's values in memory, but not the copy's.
        const QString copy = m_folder->filePath(QStringLiteral("copy.ini"));
        QVERIFY(QFile::copy(m_file, copy));
        const SettingsFile file(copy);
        QVERIFY(file.contains(key));
        if (value.type() == QVariant::StringList)
            QCOMPARE(file.list(key), value.toStringList());
        else
            QCOMPARE(file.text(key), value.toString());
    }

    void onlyPlainValuesAreWritten_data()
    {
        const Rows<QVariant> row{"value"};
        row("rectangle", QVariant(QRect(1, 2, 3, 4)));
        row("map", QVariant(QVariantMap{{QStringLiteral("a"), 1}}));
        row("text that reads as an object", QVariant(QStringLiteral("a, @Variant(x)")));
        row("with quotes inside", QVariant(QStringLiteral("a, @Va\"riant(x)")));
        row("in a list", QVariant(QStringList{"a", "@DateTime(x)"}));
    }
    void onlyPlainValuesAreWritten()
    {
        QFETCH(QVariant, value);
        SettingsFile file(m_file);
        QVERIFY(!file.setValue(key, value));
        QVERIFY(file.save());
        QVERIFY(!contentOf(m_file).contains("k="));
        QCOMPARE(m_log->linesWith("][ERROR][").size(), 1);
    }

    void filesThatHoldObjectsAreFound_data()
    {
        const Rows<QByteArray, bool> row{"line", "found"};
        row("variant", "k=@Variant(\\0\\0)", true);
        row("time", "k=@DateTime(\\0\\0)", true);
        row("blanks", "k = \t @Variant(x)", true);
        row("quoted", "k=\"@Variant(x)\"", true);
        row("partly quoted", "k=\"@Var\"iant(x)", true);
        row("in a list", "k=a, @Variant(x)", true);
        row("hexadecimal", "k=\\x40Variant(x)", true);
        row("long hexadecimal", "k=@\\x10000056\"\"ariant(x)", true);
        row("octal", "k=\\100Variant(x)", true);
        row("continued line", "k=@Vari\\\nant(x)", true);
        row("continued after the sign", "k=\\\r\n@Variant(x)", true);
        row("unknown escape", "k=@\\qVariant(x)", true);
        row("byte order mark", "k=\xef\xbb\xbf@Variant(x)", true);
        row("doubled sign", "k=@@Variant(x)", false);
        row("amid a text", "k=mail me@Variant(x)", false);
        row("other words", "k=@Varia, @Dave, @Variants(x)", false);
        row("bytes", "k=@ByteArray(x)", false);
        row("nothing", "", false);
    }
    void filesThatHoldObjectsAreFound()
    {
        QFETCH(QByteArray, line);
        QFETCH(bool, found);
        QCOMPARE(IniText::holdsObjects("[g]\n" + line + '\n'), found);
        QCOMPARE(IniText::holdsObjects("[g]\n" + line), found);
    }

    // Whatever QSettings itself makes an object of must have been found.
    void nothingThatQSettingsTakesForAnObjectIsMissed()
    {
        // A harmless object is the number 7.
        const QByteArrayList parts[] = {
            {"", "", "\"", "a,", "=", "b\",", "\\x20"},
            {"@", "\\x40\"\"", "\\100", "\\x10040\\q", "@@", "a@"},
            {"Variant(", "\\x56\"\"ariant(", "V\"ariant(\"", "DateTime(", "\\126ariant("},
            {"\\0\\0\\0\\x2\\0\\0\\0\\a)", "x)", ")"}};
        const QByteArrayList noise{"",  "",  "",  "",     "",     "\"",           "\\q",
                                   " ", ",", ";", "\\\n", "\\\"", "\xef\xbb\xbf", "\\x"};
        QRandomGenerator random(20);
        // Damaged objects make the toolkit complain.
        const auto oldHandler =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
        QByteArrayList missed;
        int objects = 0;
        for (int round = 0; round < 2000; ++round) {
            QByteArray content = "[g]\nk=";
            for (const QByteArrayList &part : parts) {
                content += noise.at(random.bounded(noise.size()));
                content += part.at(random.bounded(part.size()));
            }
            // A file of its own each, since QSettings keeps what it has parsed.
            const QString file = m_file + QString::number(round);
            writeFile(file, content);
            QSettings settings(file, QSettings::IniFormat);
            settings.setIniCodec("UTF-8");
            if (isObject(settings.value(key))) {
                ++objects;
                if (!IniText::holdsObjects(content))
                    missed += content;
            }
        }
        qInstallMessageHandler(oldHandler);
        QVERIFY2(missed.isEmpty(), missed.join('\n'));
        QVERIFY2(objects > 50, QByteArray::number(objects));
    }

    void badFilesAreNeverReplaced_data()
    {
        const Rows<QByteArray, bool> row{"content", "usable"};
        row("object", "[g]\nk=1\no=@Variant(x)\n", false);
        row("binary", QByteArray("[g]\nk=1\n\0\1\2", 12), false);
        row("too large", "[g]\nk=1\n;" + QByteArray(int(SettingsFile::MaximumSize), 'x'), false);
        row("line that is no setting", "[g]\nk=1\nno setting\n[h]\n", true);
        row("at the beginning", "no setting\n[g]\nk=1\n", true);
        row("half a section", "[g]\nk=1\n[h\n", true);
        row("open quote", "[g]\nk=1\nm=\"x\n[h]\nn=1\n", true);
    }
    void badFilesAreNeverReplaced()
    {
        QFETCH(QByteArray, content);
        QFETCH(bool, usable);
        writeFile(m_file, content);
        // QSettings itself finds nothing wrong the second time.
        for (int attempt = 1; attempt <= 2; ++attempt) {
            SettingsFile file(m_file);
            QCOMPARE(file.isUsable(), usable);
            QVERIFY(!file.isWritable());
            QCOMPARE(file.text(key), usable ? QStringLiteral("1") : QString());
            QVERIFY(!file.setValue(key, 2));
            QVERIFY(!file.remove(key));
            QVERIFY(!file.save());
            QVERIFY(m_log->linesWith("][ERROR][").size() >= attempt);
        }
        QVERIFY(contentOf(m_file) == content);

        // Once repaired, it is a settings file like others.
        writeFile(m_file, "[g]\nk=repaired\n");
        SettingsFile file(m_file);
        QVERIFY(file.isWritable());
        QCOMPARE(file.text(key), QStringLiteral("repaired"));
    }

    void handWrittenFilesCanBeChanged()
    {
        writeFile(m_file, "\xef\xbb\xbf; a \"comment\r\n\r\n[g]\r\nk=a\\\r\nb\r\n"
                          "  m = \"x\ny\"\r\nn=\\\"\n[h]\ni=😀");
        {
            SettingsFile file(m_file);
            QCOMPARE(file.text(QStringLiteral("/g/m")), QStringLiteral("x\ny"));
            QVERIFY(file.setValue(key, 2));
            QVERIFY(file.save());
        }
        // The rest of the file is as it was.
        QVERIFY(contentOf(m_file).contains("i=😀"));
        QVERIFY(contentOf(m_file).contains("k=2"));
        QVERIFY(contentOf(m_file).contains("n=\\\""));
    }

    void failedWriteIsReported_data()
    {
        const Rows<QString> row{"path"};
        row("a folder", QStringLiteral("folder"));
        row("below a file", QStringLiteral("file/s.ini"));
        row("below nothing", QString());
    }
    void failedWriteIsReported()
    {
        QFETCH(QString, path);
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
        writeFile(m_folder->filePath(QStringLiteral("file")), "x");
        SettingsFile file(path.isEmpty() ? path : m_folder->filePath(path));
        file.setValue(key, 1);
        QVERIFY(!file.save());
        QVERIFY(!m_log->linesWith("][ERROR][").isEmpty());
        QCOMPARE(contentOf(m_folder->filePath(QStringLiteral("file"))), QByteArray("x"));
    }

#ifdef Q_OS_UNIX
    void onlyTheOwnerReadsSettings()
    {
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther |
                            QFile::WriteOther | QFile::ExeOther | QFile::ExeGroup;
        const QString fresh = m_folder->filePath(QStringLiteral("new/folder/s.ini"));
        writeFile(m_file, "[g]\nk=1\n");
        QVERIFY(QFile::setPermissions(m_file, QFile::ReadOwner | QFile::WriteOwner | others));
        for (const QString &path : {m_file, fresh}) {
            SettingsFile file(path);
            QVERIFY(file.setValue(key, 2));
            QVERIFY(file.save());
            QVERIFY(!(QFile::permissions(path) & others));
            QVERIFY(contentOf(path).contains("k=2"));
        }
    }

    void fileThatCannotBeReadIsNotReplaced()
    {
        writeFile(m_file, "[g]\nk=1\n");
        QVERIFY(QFile::setPermissions(m_file, QFile::WriteOwner));
        QVERIFY(::chmod(QFile::encodeName(m_folder->path()).constData(), 0777) == 0);
        // The administrator reads every file.
        constexpr uid_t Nobody = 65534;
        const uid_t user = ::geteuid();
        if (user == 0)
            QVERIFY(::seteuid(Nobody) == 0);
        const auto restore = qScopeGuard([user] { (void)!::seteuid(user); });
        {
            SettingsFile file(m_file);
            QVERIFY(!file.setValue(key, 2));
            QVERIFY(!file.save());
        }
        QVERIFY(::seteuid(user) == 0);
        QVERIFY(QFile::setPermissions(m_file, QFile::ReadOwner));
        QCOMPARE(contentOf(m_file), QByteArray("[g]\nk=1\n"));
    }
#endif
};

FRIENDUI_TEST(TstSettingsFile)
#include "tst_settingsfile.moc"
