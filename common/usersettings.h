// The user's settings as they are loaded at log-in. What the values mean is up to
// the client's settings dialogs; most are kept as the text in the file.
#pragma once

#include "common/context.h"

#include <QDate>
#include <QString>
#include <QStringList>

struct ChatFontSettings
{
    QString family;
    bool bold = false;
    bool italic = false;
    double size = 14; // points
    bool sizeRewritten = false;
    bool underline = false;
    QString color;
};

struct UserSettings
{
    QString month; // of the log-in, "yyyyMM"
    QString userId;
    QString userFolder; // this and the files: empty for a user id that is refused
    QString settingsFile;
    QString localDatabaseFile;

    QString autoLogin, autoLaunch, loginPresence;
    QString warnOnClose, hideMainWindow, closeMainWindow, closeVoice;
    QString reopenDialogs, closeAllDialogs;
    QString notAllUsers, hasExistingContacts, remoteAllowed;
    QString transferFolder, allowShake, messageSync, notAutoSort, showAllRooms;
    QString changeToAway, awayMinutes, changeToBusy;
    QString autoReply, autoReplyText;
    QStringList autoReplyTexts;
    QString fastReplyText;
    QStringList fastReplyTexts;
    QString catchMessageHotkey, screenshotHotkey, sendHotkey, hideWhileCapturing;
    QString filesAllAllowed, filesSomeAllowed, filesAllForbidden;
    ChatFontSettings chatFont;
    int needHide = 0;
    QString canBeSearched, companyInfoVisible, mobileVisible; // "1" = yes
    QString bubbleMode;
    QString burnHintOpened, burnHintRead, recallHint;
    QString syncMode;
    ChatFontSettings agentChatFont;
};

// Loads the settings of a user and completes the file: each font size is reset to
// 14 once, and a privacy setting that is empty becomes "1". Call on the GUI thread.
UserSettings loadUserSettings(const QString &userId = ctx().userId(),
                              const QDate &today = QDate::currentDate());

// What was loaded last; defaults before the first load.
const UserSettings &userSettings();
// Loads for the user that the context names, if there is one.
void reloadUserSettings();
