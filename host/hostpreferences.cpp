#include "host/hostpreferences.h"

#include "common/settingsfile.h"

namespace {
const QString languageKey()
{
    return QStringLiteral("/window/language");
}
const QString skinKey()
{
    return QStringLiteral("/window/skin");
}
const QString eventsKey()
{
    return QStringLiteral("/services/eventsReached");
}
const QString importKey()
{
    return QStringLiteral("/roster/imported");
}
} // namespace

HostPreferences::HostPreferences(const QString &dataFolder)
    : m_file(dataFolder + QLatin1String("/host.ini"))
{
}

QString HostPreferences::choice(const QString &key, const char *first, const char *second) const
{
    const QString value = SettingsFile(m_file).text(key);
    const bool known = value == QLatin1String(first) || value == QLatin1String(second);
    return known ? value : QString();
}

void HostPreferences::store(const QString &key, const QVariant &value) const
{
    SettingsFile file(m_file);
    if (file.setValue(key, value))
        file.save();
}

QString HostPreferences::language() const
{
    return choice(languageKey(), "zh_CN", "en");
}

QString HostPreferences::skin() const
{
    return choice(skinKey(), "light", "dark");
}

qint64 HostPreferences::eventsReached() const
{
    return qMax(qint64(0), SettingsFile(m_file).text(eventsKey()).toLongLong());
}

void HostPreferences::setEventsReached(qint64 number) const
{
    store(eventsKey(), QString::number(number));
}

bool HostPreferences::showsImport() const
{
    return SettingsFile(m_file).flag(importKey());
}

void HostPreferences::setLanguage(const QString &language) const
{
    store(languageKey(), language);
}

void HostPreferences::setSkin(const QString &skin) const
{
    store(skinKey(), skin);
}

void HostPreferences::setShowsImport(bool shows) const
{
    store(importKey(), shows);
}
