// The keys of the client's settings files. Their odd spellings are those of the
// files that users have, and stay.
#pragma once

#include <QLatin1String>

namespace SettingsKeys {

// Version file.
inline constexpr QLatin1String InstalledVersion{"ThisVersion/thisversion"};
inline constexpr QLatin1String ProductTitle{"/ThisVersion/title"};

// User settings file: loaded at log-in.
inline constexpr QLatin1String AutoLogin{"/basicSetting/autoLogin"};
inline constexpr QLatin1String AutoLaunch{"/basicSetting/autoLunch"};
inline constexpr QLatin1String LoginPresence{"/basicSetting/autoLogin_statu"};
inline constexpr QLatin1String WarnOnClose{"/basicSetting/mainwindowWarn"};
inline constexpr QLatin1String HideMainWindow{"/basicSetting/hideMainWindow"};
inline constexpr QLatin1String CloseMainWindow{"/basicSetting/closeMainWindow"};
inline constexpr QLatin1String CloseVoice{"/basicSetting/closeVoice"};
inline constexpr QLatin1String ReopenDialogs{"/basicSetting/openUnColsedDialog"};
inline constexpr QLatin1String CloseAllDialogs{"/basicSetting/alwaysCloseAllDialog"};
inline constexpr QLatin1String NotAllUsers{"/basicSetting/notAllIMUser"};
inline constexpr QLatin1String HasExistingContacts{"/basicSetting/haveExistFriend"};
inline constexpr QLatin1String RemoteAllowed{"/basicSetting/remoteAllow"};
inline constexpr QLatin1String TransferFolder{"/msgSetting/transfilepath"};
inline constexpr QLatin1String AllowShake{"/msgSetting/allowShaked"};
inline constexpr QLatin1String MessageSync{"/msgSetting/msgSync"};
inline constexpr QLatin1String NotAutoSort{"/msgSetting/NotAutoSort"};
inline constexpr QLatin1String ShowAllRooms{"/msgSetting/showAllRoom"};
inline constexpr QLatin1String ChangeToAway{"/statusSetting/ChangeToAway"};
inline constexpr QLatin1String AwayMinutes{"/statusSetting/awayMinute"};
inline constexpr QLatin1String ChangeToBusy{"/statusSetting/ChangeToBusy"};
inline constexpr QLatin1String AutoReply{"/statusSetting/IsAutoReply"};
inline constexpr QLatin1String AutoReplyText{"/statusSetting/NewAutoReplyStr"};
inline constexpr QLatin1String AutoReplyTexts{"/statusSetting/NewAutoReplyList"};
inline constexpr QLatin1String FastReplyText{"/statusSetting/NewFastReplyStr"};
inline constexpr QLatin1String FastReplyTexts{"/statusSetting/NewFastReplyList"};
inline constexpr QLatin1String CatchMessageHotkey{"/hotkeySetting/CatchMsgHotkey"};
inline constexpr QLatin1String ScreenshotHotkey{"/hotkeySetting/CutPictureHotKey"};
inline constexpr QLatin1String SendHotkey{"/hotkeySetting/SendMsgFastkey"};
inline constexpr QLatin1String HideWhileCapturing{"/hotkeySetting/SnapHide"};
inline constexpr QLatin1String FilesAllAllowed{"/safeSetting/allAllowed"};
inline constexpr QLatin1String FilesSomeAllowed{"/safeSetting/someAllowed"};
inline constexpr QLatin1String FilesAllForbidden{"/safeSetting/allForbidden"};
inline constexpr QLatin1String NeedHide{"/HideSetting/NeedHide"};
inline constexpr QLatin1String CanBeSearched{"/privacySetting/CanSearch"};
inline constexpr QLatin1String CompanyInfoVisible{"/privacySetting/CanViewCompanyInfo"};
inline constexpr QLatin1String MobileVisible{"/privacySetting/CanViewMobile"};
inline constexpr QLatin1String BubbleMode{"/msgSetting/airBubbleMode"};
inline constexpr QLatin1String BurnHintOpened{"/BurnMsg/FirstOpenBurn"};
inline constexpr QLatin1String BurnHintRead{"/BurnMsg/FirstReadBurnMsg"};
inline constexpr QLatin1String RecallHint{"/RecallMsg/FirstRecallMsg"};
inline constexpr QLatin1String SyncMode{"/msgSetting/SynchroMode"};

// The two font groups, and the names in either.
inline constexpr QLatin1String ChatFontGroup{"/chatFontSetting"};
inline constexpr QLatin1String AgentChatFontGroup{"/agentChatFontSetting"};
inline constexpr QLatin1String FontFamily{"/fontfamily"};
inline constexpr QLatin1String FontBold{"/isbold"};
inline constexpr QLatin1String FontItalic{"/isitalic"};
inline constexpr QLatin1String FontSize{"/fontsize"};
inline constexpr QLatin1String FontSizeRewritten{"/fontSizeRewrited"};
inline constexpr QLatin1String FontUnderline{"/hasunderline"};
inline constexpr QLatin1String FontColor{"/textcolor"};

// User settings file: read and written where they are needed.
inline constexpr QLatin1String Language{"/languageSetting/language"};
inline constexpr QLatin1String SkinName{"/SkinSetting/SkinName"};
inline constexpr QLatin1String ChatBubble{"/SkinSetting/ChatBubble"};
inline constexpr QLatin1String SkinWidgetOpen{"/SkinSetting/SkinWidgetOpen"};
inline constexpr QLatin1String AlphaBackground{"/SkinSetting/AlphaBackground"};
inline constexpr QLatin1String AlphaWhite{"/SkinSetting/AlphaWhite"};
inline constexpr QLatin1String PaintPicture{"/SkinSetting/BPaintPic"};
inline constexpr QLatin1String WindowHeight{"/RectNew/height"};
inline constexpr QLatin1String WindowWidth{"/RectNew/width"};
inline constexpr QLatin1String WindowLeftWidth{"/RectNew/leftwidth"};
inline constexpr QLatin1String ChatLeftWidth{"/chatDialogSize/leftWidth"};
inline constexpr QLatin1String RemindBirthday{"/reminder/birthday"};
inline constexpr QLatin1String RemindHire{"/reminder/hire"};
inline constexpr QLatin1String RemindList{"/reminder/evremindList"};
inline constexpr QLatin1String LatestStatusId{"/dynamic/latestStatusId"};
inline constexpr QLatin1String ReceivedFileFolder{"/defaulOpenPath/RecevieFilePath"};
inline constexpr QLatin1String ReceivedPictureFolder{"/defaulOpenPath/ReceviePicPath"};
inline constexpr QLatin1String ReceivedVideoFolder{"/defaulOpenPath/RecevieVedioPath"};
inline constexpr QLatin1String SavePictureFolder{"/defaulOpenPath/savePicPath"};
inline constexpr QLatin1String AddHeadFolder{"/defaulOpenPath/addHeadPath"};
inline constexpr QLatin1String AddFileFolder{"/defaulOpenPath/addFilePath"};
inline constexpr QLatin1String AddPictureFolder{"/defaulOpenPath/addPictruePath"};
inline constexpr QLatin1String AddEmotionFolder{"/defaulOpenPath/addEmotionPath"};
inline constexpr QLatin1String UploadFolder{"/uploadpath/path"};
inline constexpr QLatin1String ActivityWidgetOpen{"/Activity/ActivityWidgetOpen"};
inline constexpr QLatin1String IsAgent{"/basicSetting/isagent"};
inline constexpr QLatin1String SaveToRoot{"/msgSetting/SaveToRoot"};
inline constexpr QLatin1String SaveToDocuments{"/msgSetting/SaveToMyDoc"};
inline constexpr QLatin1String SaveToChosen{"/msgSetting/SaveToMyChosen"};
inline constexpr QLatin1String MessageFileFolder{"/msgSetting/msgfilepath"};

} // namespace SettingsKeys
