#include "common/usersettings.h"

#include "common/clientpaths.h"
#include "common/logging.h"
#include "common/settingsfile.h"
#include "common/settingskeys.h"

#include <variant>

namespace {
namespace Keys = SettingsKeys;

struct Setting
{
    // A privacy setting is a text whose empty value is completed to "1".
    struct Privacy
    {
        QString UserSettings::*member;
    };
    using Member = std::variant<QString UserSettings::*, QStringList UserSettings::*,
                                int UserSettings::*, Privacy, ChatFontSettings UserSettings::*>;

    QLatin1String key; // of a font: its group
    Member member;
};

// In the order of loading.
constexpr Setting settings[] = {
    {Keys::AutoLogin, &UserSettings::autoLogin},
    {Keys::AutoLaunch, &UserSettings::autoLaunch},
    {Keys::LoginPresence, &UserSettings::loginPresence},
    {Keys::WarnOnClose, &UserSettings::warnOnClose},
    {Keys::HideMainWindow, &UserSettings::hideMainWindow},
    {Keys::CloseMainWindow, &UserSettings::closeMainWindow},
    {Keys::CloseVoice, &UserSettings::closeVoice},
    {Keys::ReopenDialogs, &UserSettings::reopenDialogs},
    {Keys::CloseAllDialogs, &UserSettings::closeAllDialogs},
    {Keys::NotAllUsers, &UserSettings::notAllUsers},
    {Keys::HasExistingContacts, &UserSettings::hasExistingContacts},
    {Keys::RemoteAllowed, &UserSettings::remoteAllowed},
    {Keys::TransferFolder, &UserSettings::transferFolder},
    {Keys::AllowShake, &UserSettings::allowShake},
    {Keys::MessageSync, &UserSettings::messageSync},
    {Keys::NotAutoSort, &UserSettings::notAutoSort},
    {Keys::ShowAllRooms, &UserSettings::showAllRooms},
    {Keys::ChangeToAway, &UserSettings::changeToAway},
    {Keys::AwayMinutes, &UserSettings::awayMinutes},
    {Keys::ChangeToBusy, &UserSettings::changeToBusy},
    {Keys::AutoReply, &UserSettings::autoReply},
    {Keys::AutoReplyText, &UserSettings::autoReplyText},
    {Keys::AutoReplyTexts, &UserSettings::autoReplyTexts},
    {Keys::FastReplyText, &UserSettings::fastReplyText},
    {Keys::FastReplyTexts, &UserSettings::fastReplyTexts},
    {Keys::CatchMessageHotkey, &UserSettings::catchMessageHotkey},
    {Keys::ScreenshotHotkey, &UserSettings::screenshotHotkey},
    {Keys::SendHotkey, &UserSettings::sendHotkey},
    {Keys::HideWhileCapturing, &UserSettings::hideWhileCapturing},
    {Keys::FilesAllAllowed, &UserSettings::filesAllAllowed},
    {Keys::FilesSomeAllowed, &UserSettings::filesSomeAllowed},
    {Keys::FilesAllForbidden, &UserSettings::filesAllForbidden},
    {Keys::ChatFontGroup, &UserSettings::chatFont},
    {Keys::NeedHide, &UserSettings::needHide},
    {Keys::CanBeSearched, Setting::Privacy{&UserSettings::canBeSearched}},
    {Keys::CompanyInfoVisible, Setting::Privacy{&UserSettings::companyInfoVisible}},
    {Keys::MobileVisible, Setting::Privacy{&UserSettings::mobileVisible}},
    {Keys::BubbleMode, &UserSettings::bubbleMode},
    {Keys::BurnHintOpened, &UserSettings::burnHintOpened},
    {Keys::BurnHintRead, &UserSettings::burnHintRead},
    {Keys::RecallHint, &UserSettings::recallHint},
    {Keys::SyncMode, &UserSettings::syncMode},
    {Keys::AgentChatFontGroup, &UserSettings::agentChatFont},
};

// Reads one setting into its member, and completes the file where it must be.
struct Reader
{
    SettingsFile &file;
    UserSettings &result;
    QString key;
    bool &changed;

    void write(const QString &name, const QVariant &value)
    {
        file.setValue(name, value);
        changed = true; // saving tells of a file that cannot be
    }

    void operator()(QString UserSettings::*member) { result.*member = file.text(key); }
    void operator()(QStringList UserSettings::*member) { result.*member = file.list(key); }
    void operator()(int UserSettings::*member) { result.*member = file.number(key); }
    void operator()(Setting::Privacy privacy)
    {
        QString &value = result.*privacy.member;
        value = file.text(key);
        if (value.isEmpty()) {
            value = QStringLiteral("1");
            write(key, value);
        }
    }
    void operator()(ChatFontSettings UserSettings::*member)
    {
        ChatFontSettings &font = result.*member;
        font.family = file.text(key + Keys::FontFamily);
        font.bold = file.flag(key + Keys::FontBold);
        font.italic = file.flag(key + Keys::FontItalic);
        font.size = file.real(key + Keys::FontSize);
        font.sizeRewritten = file.flag(key + Keys::FontSizeRewritten);
        if (!font.sizeRewritten) {
            constexpr int ResetSize = 14;
            font.size = ResetSize;
            font.sizeRewritten = true;
            write(key + Keys::FontSize, ResetSize);
            write(key + Keys::FontSizeRewritten, true);
        }
        font.underline = file.flag(key + Keys::FontUnderline);
        font.color = file.text(key + Keys::FontColor);
    }
};
} // namespace

UserSettings loadUserSettings(const QString &userId, const QDate &today)
{
    LOG_SCOPE("loadUserSettings(const QString &userId, const QDate &today)");
    UserSettings result;
    result.month = today.toString(QStringLiteral("yyyyMM"));
    result.userId = userId;
    result.userFolder = ClientPaths::userFolder(userId);
    result.settingsFile = ClientPaths::userSettingsFile(userId);
    result.localDatabaseFile = ClientPaths::localDatabaseFile(userId);

    SettingsFile file(result.settingsFile);
    bool changed = false;
    for (const Setting &setting : settings)
        std::visit(Reader{file, result, setting.key, changed}, setting.member);
    if (changed && !result.settingsFile.isEmpty())
        file.save();
    return result;
}

namespace {
UserSettings &current()
{
    static auto *loaded = new UserSettings;
    return *loaded;
}
} // namespace

const UserSettings &userSettings()
{
    return current();
}

void reloadUserSettings()
{
    if (!ctx().userId().isEmpty())
        current() = loadUserSettings();
}
