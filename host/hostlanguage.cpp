#include "host/hostlanguage.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

HostLanguage::HostLanguage(QObject *parent) : QObject(parent) {}

HostLanguage::~HostLanguage() = default;

QString HostLanguage::systemLanguage()
{
    return QLocale::system().language() == QLocale::Chinese ? QStringLiteral("zh_CN")
                                                            : QStringLiteral("en");
}

void HostLanguage::install(const QString &folder, const QString &pattern)
{
    const QDir directory(folder);
    const QStringList files = directory.entryList({pattern}, QDir::Files, QDir::Name);
    for (const QString &file : files) {
        auto translator = std::make_unique<QTranslator>();
        if (translator->load(directory.filePath(file)) &&
            QCoreApplication::installTranslator(translator.get()))
            m_translators.push_back(std::move(translator));
    }
}

void HostLanguage::apply(const QString &language)
{
    if (language == m_current)
        return;
    m_current = language;
    m_translators.clear(); // a translator removes itself
    QLocale::setDefault(QLocale(language));
    install(QLibraryInfo::location(QLibraryInfo::TranslationsPath),
            QStringLiteral("qtbase_%1.qm").arg(language));
    const QString here = QCoreApplication::applicationDirPath();
    const QString pattern = QStringLiteral("*_%1.qm").arg(language);
    for (const QString &folder :
         {QStringLiteral(":/translations"), QStringLiteral(":/FriendUI/translations"),
          here + QLatin1String("/translations"),
          here + QLatin1String("/../share/friendui/translations")})
        install(folder, pattern);
}
