// Pinyin of three-character names against other ways to get it.
#include "bench/support/ratio.h"
#include "common/cchcharactertopp.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QStringList>
#include <QTextCodec>
#include <QThread>

#include <benchmark/benchmark.h>
#include <unicode/translit.h>

#include <memory>
#include <vector>

namespace {
// Characters of GB2312's first level, so that every peer knows them.
QStringList sampleNames(int count)
{
    QTextCodec *gbk = QTextCodec::codecForName("GBK");
    QRandomGenerator random(3);
    QStringList names;
    while (names.size() < count) {
        QByteArray bytes;
        for (int i = 0; i < 3; ++i) {
            bytes += char(random.bounded(0xB0, 0xD7));
            bytes += char(random.bounded(0xA1, 0xFF));
        }
        names << gbk->toUnicode(bytes);
    }
    return names;
}

const QStringList &names()
{
    static const auto *list = new QStringList(sampleNames(10000));
    return *list;
}

// A round converts every name `times` times; each result is a string of its own.
template <class Convert> double perName(int times, Convert &&convert)
{
    return Ratio::cpuPerUnit(double(times) * names().size(), [&] {
        for (int i = 0; i < times; ++i) {
            for (const QString &name : names()) {
                QString pinyin = convert(name);
                benchmark::DoNotOptimize(pinyin);
            }
        }
    });
}

double ours()
{
    const CChCharacterToPP converter;
    const auto convert = [&](const QString &name) { return converter.toPinyin(name, false); };
    // A core that waited for the other process is slow at first; the peer's rounds
    // begin in the same way.
    perName(100, convert);
    return perName(100, convert);
}

Ratio::Pair againstIcu()
{
    UErrorCode status = U_ZERO_ERROR;
    const std::shared_ptr<icu::Transliterator> latin(icu::Transliterator::createInstance(
        icu::UnicodeString("Han-Latin"), UTRANS_FORWARD, status));
    if (U_FAILURE(status))
        return {{}, {}, u_errorName(status)};
    return {ours, [latin] {
                return perName(1, [&](const QString &name) {
                    icu::UnicodeString text(reinterpret_cast<const char16_t *>(name.utf16()),
                                            name.size());
                    latin->transliterate(text);
                    return QString(reinterpret_cast<const QChar *>(text.getBuffer()),
                                   text.length());
                });
            }};
}

// A node process that answers each line with the cost of one more round.
class NodePeer
{
public:
    NodePeer()
    {
        const QString folder = QStringLiteral(FRIENDUI_BENCH_PEERS);
        if (!QDir(folder + QStringLiteral("/node_modules/pinyin-pro")).exists()) {
            m_problem = "pinyin-pro is not installed (npm ci in bench/peers)";
            return;
        }
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QStringLiteral("node"), {folder + QStringLiteral("/pinyin.js")});
        if (!m_process.waitForStarted())
            m_problem = "node cannot be started";
        else if (ask(names().join(QLatin1Char(',')).toUtf8()).isEmpty())
            m_problem = "the node peer does not answer";
    }
    ~NodePeer()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }

    std::string problem() const { return m_problem; }

    double round()
    {
        bool ok = false;
        const double cost = ask("round").trimmed().toDouble(&ok);
        return ok ? cost : -1;
    }

private:
    QByteArray ask(const QByteArray &line)
    {
        m_process.write(line + '\n');
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(60000))
                return {};
        }
        return m_process.readLine();
    }

    QProcess m_process;
    std::string m_problem;
};

Ratio::Pair againstPinyinPro()
{
    const auto peer = std::make_shared<NodePeer>();
    // Threads of the other process tidy up for a while after its round.
    constexpr unsigned long RestMs = 200;
    const auto rested = [] {
        QThread::msleep(RestMs);
        return ours();
    };
    return {rested, [peer] { return peer->round(); }, peer->problem()};
}

// The same conversion by one codec call a name and a table of syllables by row
// and cell: what the bytes of the encoding suggest.
class CodecPeer
{
public:
    CodecPeer()
    {
        for (int row = 16; row <= 87; ++row) {
            for (int cell = 1; cell <= 94; ++cell) {
                const char bytes[] = {char(row + 160), char(cell + 160)};
                const QString character = m_codec->toUnicode(bytes, 2);
                m_syllables[size_t(row * 100 + cell)] =
                    CChCharacterToPP::syllable(character.at(0)).toLatin1();
            }
        }
    }

    QString toPinyin(const QString &name) const
    {
        const QByteArray bytes = m_codec->fromUnicode(name);
        QByteArray pinyin;
        pinyin.reserve(3 * bytes.size());
        for (int i = 0; i + 1 < bytes.size(); i += 2) {
            const int row = uchar(bytes.at(i)) - 160;
            pinyin += m_syllables[size_t(row * 100 + uchar(bytes.at(i + 1)) - 160)];
        }
        return QString::fromLatin1(pinyin);
    }

private:
    const QTextCodec *m_codec = QTextCodec::codecForName("GB2312");
    std::vector<QByteArray> m_syllables = std::vector<QByteArray>(8800);
};

Ratio::Pair againstCodec()
{
    const auto peer = std::make_shared<CodecPeer>();
    return {ours, [peer] {
                return perName(10, [&](const QString &name) { return peer->toPinyin(name); });
            }};
}

const bool registered[] = {
    Ratio::add({"Pinyin, ICU Han-Latin", "name", Ratio::timesFaster(600)}, againstIcu),
    Ratio::add({"Pinyin, pinyin-pro", "name", Ratio::timesFaster(130)}, againstPinyinPro),
    Ratio::add({"Pinyin, codec call and table", "name", Ratio::timesFaster(9)}, againstCodec),
    Ratio::add({"Pinyin, size of the table", "table", Ratio::atMost(64 * 1024), "bytes", 1},
               [] {
                   return Ratio::Pair{[] { return double(CChCharacterToPP::tableSize()); }, {}};
               }),
};
} // namespace
