#include "detail/avatar/systempictures.h"

#include "Resources/frienduiresources.h"
#include "common/logging.h"
#include "http/fileservices.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <algorithm>

QStringList SystemPictures::namesIn(const QByteArray &xml)
{
    QStringList names;
    QXmlStreamReader reader(xml);
    if (!reader.readNextStartElement() || reader.name() != QLatin1String("avatars"))
        return names;
    while (names.size() < Maximum && reader.readNextStartElement()) {
        if (reader.name() != QLatin1String("avatar")) {
            reader.skipCurrentElement();
            continue;
        }
        const QString text = reader.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
        const QString name = QFileInfo(text).fileName();
        if (!reader.hasError() && FileServices::isSafeName(name) && !names.contains(name))
            names.append(name);
    }
    if (reader.hasError())
        LOG_ERROR("the list of system pictures is spoilt: " << logText(reader.errorString()));
    return names;
}

QStringList SystemPictures::names()
{
    constexpr qint64 LongestListing = 1024 * 1024; // bytes
    QFile listing(resourcePath(QStringLiteral("Resources/BaseConfig/SystemAvatar.xml")));
    QStringList found;
    if (listing.open(QIODevice::ReadOnly))
        found = namesIn(listing.read(LongestListing));
    const QStringList present = resourceNames(path(QString()));
    const auto isMissing = [&present](const QString &name) { return !present.contains(name); };
    found.erase(std::remove_if(found.begin(), found.end(), isMissing), found.end());
    return found;
}

QString SystemPictures::path(const QString &name)
{
    return QStringLiteral("Resources/SystemAvatar/") + name;
}
