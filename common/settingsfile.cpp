#include "common/settingsfile.h"

#include "common/inicodec.h"
#include "common/initext.h"
#include "common/logging.h"
#include "common/platform.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cmath>

namespace {
// In one call: settings are also written off the GUI thread.
void logFailure(int line, const QString &text)
{
    CLogManger::instance().log(
        LogError, QStringLiteral("settingsfile.cpp:") + QString::number(line), logText(text));
}

bool hasFormat(const QString &path, SettingsFile::Format format)
{
    if (path.isEmpty())
        return false;
    // QSettings would make a file of that name in the working folder.
    return format == SettingsFile::Ini ? !path.startsWith(QLatin1String("HKEY_"))
                                       : Platform::hasRegistry();
}

std::unique_ptr<QSettings> openIni(const QString &path)
{
    auto settings = std::make_unique<QSettings>(path, QSettings::IniFormat);
    settings->setIniCodec(IniCodec::instance());
    return settings;
}

// A list of texts; invalid when one of the elements is something else. QSettings
// answers so for a list that has an element with "@" at its beginning.
QVariant asTexts(const QVariantList &list)
{
    QStringList texts;
    for (const QVariant &element : list) {
        if (int(element.type()) != QMetaType::QString)
            return QVariant();
        texts += element.toString();
    }
    return texts;
}

// The value in a form that needs no "@" in the file; invalid when there is none.
QVariant plainValue(const QVariant &value)
{
    switch (int(value.type())) {
    case QMetaType::UnknownType:
        return QStringLiteral("");
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return value;
    case QMetaType::QStringList:
    case QMetaType::QVariantList: {
        const QStringList texts = value.toStringList();
        return IniText::isWritable(texts.join(QLatin1Char(','))) ? QVariant(texts) : QVariant();
    }
    default:
        break;
    }
    if (!value.canConvert<QString>())
        return QVariant();
    const QString text = value.toString();
    return IniText::isWritable(text) ? QVariant(text) : QVariant();
}
} // namespace

SettingsFile::SettingsFile(const QString &path, Format format) : m_path(path)
{
    if (!hasFormat(path, format))
        return;
    if (format == Native) {
        m_settings = std::make_unique<QSettings>(path, QSettings::NativeFormat);
        return;
    }
    if (!examine())
        return;
    m_settings = openIni(path);
    if (m_marked) {
        // For QSettings the mark is an error, of which it tells once.
        (void)m_settings->allKeys();
        m_settings = openIni(path);
    }
}

SettingsFile::~SettingsFile() = default;

bool SettingsFile::examine()
{
    QFile file(m_path);
    if (!file.exists())
        return true;
    // Saving replaces the file by a new one, even one that cannot be read.
    if (!QFileInfo(m_path).isFile() || !file.open(QIODevice::ReadOnly)) {
        logFailure(__LINE__, m_path + QLatin1String(" cannot be read"));
        return false;
    }
    if (file.size() > MaximumSize) {
        logFailure(__LINE__, m_path + QLatin1String(" is too large for a settings file"));
        return false;
    }
    const QByteArray bytes = file.readAll();
    if (bytes.contains('\0') || IniText::holdsObjects(bytes)) {
        logFailure(__LINE__, m_path + QLatin1String(" holds values that are refused"));
        return false;
    }
    m_damaged = !IniText::isWellFormed(bytes);
    m_marked = IniText::hasByteOrderMark(bytes);
    return true;
}

bool SettingsFile::contains(const QString &key) const
{
    return value(key).isValid();
}

QVariant SettingsFile::value(const QString &key) const
{
    if (!m_settings || key.isEmpty())
        return QVariant();
    const QVariant found = m_settings->value(key);
    switch (int(found.type())) {
    case QMetaType::QString:
    case QMetaType::QStringList:
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
        return found;
    case QMetaType::QVariantList:
        return asTexts(found.toList());
    default:
        return QVariant();
    }
}

QString SettingsFile::text(const QString &key, const QString &fallback) const
{
    const QVariant found = value(key);
    if (!found.isValid())
        return fallback;
    return int(found.type()) == QMetaType::QStringList ? found.toStringList().join(QLatin1Char(','))
                                                       : found.toString();
}

QStringList SettingsFile::list(const QString &key) const
{
    const QVariant found = value(key);
    if (int(found.type()) == QMetaType::QStringList)
        return found.toStringList();
    // A list of one is stored as a text.
    const QString only = found.toString();
    return only.isEmpty() ? QStringList() : QStringList(only);
}

bool SettingsFile::flag(const QString &key) const
{
    return QVariant(text(key)).toBool();
}

int SettingsFile::number(const QString &key) const
{
    return text(key).toInt();
}

double SettingsFile::real(const QString &key) const
{
    const double number = text(key).toDouble();
    return std::isfinite(number) ? number : 0;
}

bool SettingsFile::setValue(const QString &key, const QVariant &value)
{
    if (!isWritable() || key.isEmpty())
        return false;
    const QVariant plain = plainValue(value);
    if (!plain.isValid()) {
        logFailure(__LINE__, key + QLatin1String(" cannot be set to this value"));
        return false;
    }
    m_settings->setValue(key, plain);
    return true;
}

bool SettingsFile::remove(const QString &key)
{
    // An empty key would remove everything.
    if (!isWritable() || key.isEmpty())
        return false;
    m_settings->remove(key);
    return true;
}

bool SettingsFile::save(int patience)
{
    if (!isWritable()) {
        logFailure(__LINE__, QLatin1Char('"') + m_path + QLatin1String("\" is left as it is"));
        return false;
    }
    if (m_settings->format() == QSettings::IniFormat)
        replaceFile(patience);
    else
        m_settings->sync();
    if (m_settings->status() == QSettings::NoError)
        return true;
    logFailure(__LINE__, m_path + QLatin1String(" cannot be written, status ") +
                             QString::number(m_settings->status()));
    return false;
}

// Somebody may open the file between the look and the replacement. QSettings keeps the
// changes for the process, and the error for its object: another one tries again.
void SettingsFile::replaceFile(int patience)
{
    constexpr int Attempts = 3;
    makeFileForOwner();
    const QDeadlineTimer deadline(patience);
    for (int attempt = 1;; ++attempt) {
        Platform::waitUntilClosed(m_path, int(deadline.remainingTime()));
        m_settings->sync();
        if (m_settings->status() == QSettings::NoError || attempt == Attempts)
            break;
        m_settings = openIni(m_path);
    }
    // The new file has not everywhere the old one's rights.
    Platform::restrictToOwner(m_path);
}

// The file is made before its content, since QSettings gives a new file the
// permissions that the system has by default, and keeps those of an old one.
void SettingsFile::makeFileForOwner() const
{
    if (!QFile::exists(m_path))
        QDir().mkpath(QFileInfo(m_path).path());
    Platform::makeFileForOwner(m_path);
}
