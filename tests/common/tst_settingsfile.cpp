// Settings files as people, other programs and attackers leave them.
#include "common/initext.h"
#include "common/settingsfile.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QRect>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {
const QString key = QStringLiteral("/g/k");

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool isObject(const QVariant &value)
{
    if (value.type() == QVariant::List) {
        const QVariantList list = value.toList();
        return std::any_of(list.begin(), list.end(), isObject);
    }
    return value.isValid() && value.type() != QVariant::String &&
           value.type() != QVariant::StringList;
}

void fill(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
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
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("text"); // with the fallback "-"
        QTest::addColumn<QStringList>("list");
        QTest::addColumn<bool>("flag");
        QTest::addColumn<int>("number");
        QTest::addColumn<double>("real");
        const QStringList none;
        const auto one = [](const QString &text) { return QStringList(text); };
        QTest::newRow("absent") << QByteArray("other=1") << "-" << none << false << 0 << 0.0;
        QTest::newRow("empty") << QByteArray("k=") << "" << none << false << 0 << 0.0;
        QTest::newRow("text") << QByteArray("k=张三") << QString::fromUtf8("张三")
                              << one(QString::fromUtf8("张三")) << true << 0 << 0.0;
        QTest::newRow("hand-written commas") << QByteArray("k=hello, world") << "hello,world"
                                             << QStringList{"hello", "world"} << true << 0 << 0.0;
        QTest::newRow("address with commas") << QByteArray("k=http://h/a,b") << "http://h/a,b"
                                             << QStringList{"http://h/a", "b"} << true << 0 << 0.0;
        QTest::newRow("quoted") << QByteArray("k=\"a, b;c\"") << "a, b;c" << one("a, b;c") << true
                                << 0 << 0.0;
        QTest::newRow("true") << QByteArray("k=true") << "true" << one("true") << true << 0 << 0.0;
        QTest::newRow("false") << QByteArray("k=False") << "False" << one("False") << false << 0
                               << 0.0;
        QTest::newRow("number") << QByteArray("k=-7") << "-7" << one("-7") << true << -7 << -7.0;
        QTest::newRow("fraction") << QByteArray("k=1.5") << "1.5" << one("1.5") << true << 0 << 1.5;
        QTest::newRow("beyond 32 bits") << QByteArray("k=99999999999") << "99999999999"
                                        << one("99999999999") << true << 0 << 99999999999.0;
        QTest::newRow("no finite number")
            << QByteArray("k=inf") << "inf" << one("inf") << true << 0 << 0.0;
        QTest::newRow("text with @")
            << QByteArray("k=@@home") << "@home" << one("@home") << true << 0 << 0.0;
        QTest::newRow("unknown @")
            << QByteArray("k=@home") << "@home" << one("@home") << true << 0 << 0.0;
        QTest::newRow("@ in a list")
            << QByteArray("k=@a, b") << "@a,b" << QStringList{"@a", "b"} << true << 0 << 0.0;
        QTest::newRow("invalid") << QByteArray("k=@Invalid()") << "-" << none << false << 0 << 0.0;
        QTest::newRow("bytes") << QByteArray("k=@ByteArray(1)") << "-" << none << false << 0 << 0.0;
        QTest::newRow("rectangle")
            << QByteArray("k=@Rect(1 2 3 4)") << "-" << none << false << 0 << 0.0;
        QTest::newRow("bytes in a list")
            << QByteArray("k=a, @ByteArray(1)") << "-" << none << false << 0 << 0.0;
    }
    void valuesAreReadTolerantly()
    {
        QFETCH(QByteArray, line);
        fill(m_file, "[g]\n" + line + '\n');
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
        QTest::addColumn<QVariant>("value");
        QTest::newRow("Chinese") << QVariant(QString::fromUtf8("设置, \"引号\"; =[x]\\"));
        QTest::newRow("at") << QVariant(QStringLiteral("@home"));
        QTest::newRow("lines") << QVariant(QStringLiteral("a\nb\r\n\tc\x01"));
        QTest::newRow("blanks") << QVariant(QStringLiteral("  a  "));
        QTest::newRow("empty") << QVariant(QStringLiteral(""));
        QTest::newRow("emoji") << QVariant(QString::fromUtf8("😀"));
        QTest::newRow("list") << QVariant(QStringList{"a, b", "@c", "", QString::fromUtf8("丁")});
        QTest::newRow("flag") << QVariant(true);
        QTest::newRow("number") << QVariant(-14);
        QTest::newRow("fraction") << QVariant(15.5);
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
        QTest::addColumn<QVariant>("value");
        QTest::newRow("rectangle") << QVariant(QRect(1, 2, 3, 4));
        QTest::newRow("map") << QVariant(QVariantMap{{QStringLiteral("a"), 1}});
        QTest::newRow("text that reads as an object") << QVariant(QStringLiteral("a, @Variant(x)"));
        QTest::newRow("with quotes inside") << QVariant(QStringLiteral("a, @Va\"riant(x)"));
        QTest::newRow("in a list") << QVariant(QStringList{"a", "@DateTime(x)"});
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
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<bool>("found");
        QTest::newRow("variant") << QByteArray("k=@Variant(\\0\\0)") << true;
        QTest::newRow("time") << QByteArray("k=@DateTime(\\0\\0)") << true;
        QTest::newRow("blanks") << QByteArray("k = \t @Variant(x)") << true;
        QTest::newRow("quoted") << QByteArray("k=\"@Variant(x)\"") << true;
        QTest::newRow("partly quoted") << QByteArray("k=\"@Var\"iant(x)") << true;
        QTest::newRow("in a list") << QByteArray("k=a, @Variant(x)") << true;
        QTest::newRow("hexadecimal") << QByteArray("k=\\x40Variant(x)") << true;
        QTest::newRow("long hexadecimal") << QByteArray("k=@\\x10000056\"\"ariant(x)") << true;
        QTest::newRow("octal") << QByteArray("k=\\100Variant(x)") << true;
        QTest::newRow("continued line") << QByteArray("k=@Vari\\\nant(x)") << true;
        QTest::newRow("continued after the sign") << QByteArray("k=\\\r\n@Variant(x)") << true;
        QTest::newRow("unknown escape") << QByteArray("k=@\\qVariant(x)") << true;
        QTest::newRow("byte order mark") << QByteArray("k=\xef\xbb\xbf@Variant(x)") << true;
        QTest::newRow("doubled sign") << QByteArray("k=@@Variant(x)") << false;
        QTest::newRow("amid a text") << QByteArray("k=mail me@Variant(x)") << false;
        QTest::newRow("other words") << QByteArray("k=@Varia, @Dave, @Variants(x)") << false;
        QTest::newRow("bytes") << QByteArray("k=@ByteArray(x)") << false;
        QTest::newRow("nothing") << QByteArray("") << false;
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
            fill(file, content);
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
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("usable");
        QTest::newRow("object") << QByteArray("[g]\nk=1\no=@Variant(x)\n") << false;
        QTest::newRow("binary") << QByteArray("[g]\nk=1\n\0\1\2", 12) << false;
        QTest::newRow("too large")
            << "[g]\nk=1\n;" + QByteArray(int(SettingsFile::MaximumSize), 'x') << false;
        QTest::newRow("line that is no setting")
            << QByteArray("[g]\nk=1\nno setting\n[h]\n") << true;
        QTest::newRow("at the beginning") << QByteArray("no setting\n[g]\nk=1\n") << true;
        QTest::newRow("half a section") << QByteArray("[g]\nk=1\n[h\n") << true;
        QTest::newRow("open quote") << QByteArray("[g]\nk=1\nm=\"x\n[h]\nn=1\n") << true;
    }
    void badFilesAreNeverReplaced()
    {
        QFETCH(QByteArray, content);
        QFETCH(bool, usable);
        fill(m_file, content);
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
        fill(m_file, "[g]\nk=repaired\n");
        SettingsFile file(m_file);
        QVERIFY(file.isWritable());
        QCOMPARE(file.text(key), QStringLiteral("repaired"));
    }

    void handWrittenFilesCanBeChanged()
    {
        fill(m_file, "\xef\xbb\xbf; a \"comment\r\n\r\n[g]\r\nk=a\\\r\nb\r\n"
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
        QTest::addColumn<QString>("path");
        QTest::newRow("a folder") << QStringLiteral("folder");
        QTest::newRow("below a file") << QStringLiteral("file/s.ini");
        QTest::newRow("below nothing") << QString();
    }
    void failedWriteIsReported()
    {
        QFETCH(QString, path);
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
        fill(m_folder->filePath(QStringLiteral("file")), "x");
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
        fill(m_file, "[g]\nk=1\n");
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
        fill(m_file, "[g]\nk=1\n");
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
