#include "detail/addfriendresult.h"

#include "common/builtingroups.h"

#include <QObject>

namespace AddFriendResult {

int policyOf(const QString &config)
{
    if (config.contains(QLatin1String("ADD_FROM")) || config.contains(QLatin1String("ACCEPT_ALL")))
        return AcceptsAll;
    if (config.contains(QLatin1String("DENY_ALL")))
        return DeniesAll;
    const int number = config.trimmed().toInt();
    return number == AcceptsAll || number == DeniesAll ? number : AsksFirst;
}

QString successIcon()
{
    return QStringLiteral("Resources/images/CommonCtrls/qora_dialog_icon_success.png");
}

QString infoIcon()
{
    return QStringLiteral("Resources/images/CommonCtrls/qora_dialog_icon_info.png");
}

QString failIcon()
{
    return QStringLiteral("Resources/images/CommonCtrls/qora_dialog_icon_fail.png");
}

Row row(int mode, int policy)
{
    if (mode == Accepted || policy == AcceptsAll)
        return {Page::Result, true, QT_TRANSLATE_NOOP("QObject", "allowfriends"),
                QT_TRANSLATE_NOOP("QObject", "addsuccess"), successIcon()};
    if (policy == DeniesAll)
        return {Page::Result, true, QT_TRANSLATE_NOOP("QObject", "refusefriends"), nullptr,
                failIcon()};
    if (mode != JustOpened)
        return {Page::Form, false, QT_TRANSLATE_NOOP("QObject", "waitfriendsconfirm"), nullptr,
                infoIcon()};
    return {Page::Waiting, false, QT_TRANSLATE_NOOP("QObject", "gettinginformation"), nullptr,
            QString()};
}

const char *newGroupRefusal(const QString &name, const QStringList &existing)
{
    const QString trimmed = name.trimmed();
    if (trimmed.isEmpty())
        return QT_TRANSLATE_NOOP("QObject", "teamnotempty");
    if (existing.contains(trimmed) || trimmed == defaultGroupName() ||
        trimmed == frequentGroupName())
        return QT_TRANSLATE_NOOP("QObject", "teamexisted");
    if (trimmed == QObject::tr("latestContact") || trimmed == QObject::tr("contactsDeleted"))
        return QT_TRANSLATE_NOOP("QObject", "createdulicatedteam");
    return nullptr;
}

} // namespace AddFriendResult
