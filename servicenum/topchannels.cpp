#include "servicenum/topchannels.h"

#include "common/context.h"
#include "common/localdatabase.h"
#include "common/logging.h"

namespace {

QString selectPins()
{
    return QStringLiteral("SELECT UserID, TopChannelList FROM cstopchannel WHERE UserID = ?");
}

QString insertUser()
{
    return QStringLiteral("INSERT INTO cstopchannel (UserID, TopChannelList) VALUES (?, ?)");
}

QString updatePins()
{
    return QStringLiteral("UPDATE cstopchannel SET TopChannelList = ? WHERE UserID = ?");
}

// The stored list of a user; nothing when the user has no row.
bool readRow(const QString &user, std::optional<QString> *list)
{
    LocalDatabase &database = LocalDatabase::instance();
    if (!database.isOpen())
        return false;
    QSqlQuery query = database.prepared(selectPins());
    query.bindValue(0, user);
    if (!database.run(&query, "TopChannels::load"))
        return false;
    if (query.next())
        *list = query.value(1).toString();
    query.finish();
    return true;
}

// Never null, which would be stored as no text at all.
QString joined(const QStringList &ids)
{
    QString list = QStringLiteral("");
    for (const QString &id : ids) {
        const int length = list.size() + id.size() + (list.isEmpty() ? 0 : 1);
        if (!TopChannels::canPin(id) || length > TopChannels::MaximumLength) {
            LOG_WARN("no room to keep channel " << logText(id) << " pinned");
            continue;
        }
        if (!list.isEmpty())
            list += QLatin1Char(',');
        list += id;
    }
    return list;
}

} // namespace

bool TopChannels::canPin(const QString &id)
{
    return !id.isEmpty() && !id.contains(QLatin1Char(','));
}

std::optional<QStringList> TopChannels::load()
{
    std::optional<QString> list;
    if (ctx().userId().isEmpty() || !readRow(ctx().userId(), &list))
        return std::nullopt;
    QStringList ids = list.value_or(QString()).split(QLatin1Char(','), Qt::SkipEmptyParts);
    ids.removeDuplicates();
    return ids;
}

bool TopChannels::store(const QStringList &ids)
{
    const QString user = ctx().userId();
    if (user.isEmpty()) {
        LOG_ERROR("nobody is logged in to keep pinned channels for");
        return false;
    }
    LocalDatabase &database = LocalDatabase::instance();
    const QString list = joined(ids);
    return database.inTransaction([&] {
        std::optional<QString> before;
        if (!readRow(user, &before))
            return false;
        if (!before &&
            !database.run(insertUser(), {user, QStringLiteral("")}, "TopChannels::store"))
            return false;
        return database.run(updatePins(), {list, user}, "TopChannels::store");
    });
}
