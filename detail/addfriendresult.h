// What the add-contact window shows for the state of a request, and which names a
// new group may have there: tables without widgets.
#pragma once

#include <QString>
#include <QStringList>

namespace AddFriendResult {

enum Mode
{
    JustOpened = 0, // the person's policy is not known yet
    PolicyKnown = 1,
    Accepted = 2
};

// How a person takes contact requests.
enum Policy
{
    NoPolicy = 0,
    AcceptsAll = 1,
    DeniesAll = 2,
    AsksFirst = 3 // as every other value
};

// From the text of the host: names, or the numbers above.
int policyOf(const QString &config);

enum class Page
{
    Waiting,
    Form,
    Result
};

struct Row
{
    Page page;
    bool namesPerson; // the text begins with the person's name
    const char *textKey;
    const char *statusKey; // null: none
    QString icon;          // empty: none
};

Row row(int mode, int policy);

QString successIcon();
QString infoIcon();
QString failIcon();

// The translation key of the reason why a group may not be called so, null when it
// may; `existing` are the names of the user's groups. Blanks around a name do not
// count.
const char *newGroupRefusal(const QString &name, const QStringList &existing);

} // namespace AddFriendResult
