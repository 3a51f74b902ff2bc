#include "host/core/embeddedcore.h"
#include "host/filetransfers.h"
#include "host/hostapplication.h"
#include "host/mainwindow.h"
#include "host/tour/tourparts.h"
#include "host/tour/tourstage.h"
#include "host/webservices.h"
#include "host/windows/hostwindows.h"

#include <QLineEdit>
#include <QTreeView>

namespace {

using Stage = TourStage;

constexpr char Results[] = "SearchResultView";

constexpr int IdRole = 258;

int found(const Stage &s)
{
    const QTreeView *view = s.list(Results);
    return view ? view->model()->rowCount() : 0;
}

void type(Stage &s, const QString &text)
{
    QLineEdit *box = s.searchBox();
    if (!box)
        return;
    box->setFocus();
    box->clear();
    for (const QChar letter : text)
        Stage::keyTo(box, 0, QString(letter));
}

// What is typed for a contact's name, as a Chinese reader types it: its first letters.
TourMove contactChosen()
{
    return {"there is a contact with a Chinese name",
            [](Stage &s) {
                const QList<FriendData> contacts = s.host().core()->contacts();
                for (const FriendData &contact : contacts) {
                    const bool isChinese = contact.nickName.size() == 3 &&
                                           contact.nickName.at(0).script() == QChar::Script_Han;
                    if (!isChinese || contact.jid == s.host().core()->ownJid() ||
                        !contact.remark.isEmpty() || contact.onJob == 0)
                        continue;
                    s.jid = contact.jid;
                    s.name = contact.nickName;
                    s.target = contact.spell.section(QLatin1Char('|'), -1);
                    return;
                }
            },
            [](Stage &s) { return !s.jid.isEmpty() && !s.name.isEmpty(); }};
}

TourMove typed(const QString &text)
{
    return {"the box has the text and results are shown", [text](Stage &s) { type(s, text); },
            [](Stage &s) { return found(s) > 0; }};
}

TourMove nameTyped()
{
    return {"the contact is among the results", [](Stage &s) { type(s, s.name.left(2)); },
            [](Stage &s) {
                const QTreeView *view = s.list(Results);
                for (int row = 0; view && row < found(s); ++row) {
                    if (view->model()->index(row, 0).data(IdRole).toString() == s.jid)
                        return true;
                }
                return false;
            }};
}

// The people search knows the whole company, the plug-in only contacts.
TourMove strangersAdded()
{
    return {"somebody who is no contact has been added", [](Stage &s) { type(s, s.name.left(1)); },
            [](Stage &s) {
                const QTreeView *view = s.list(Results);
                FriendData known;
                for (int row = 0; view && row < found(s); ++row) {
                    const QString id = view->model()->index(row, 0).data(IdRole).toString();
                    if (id.contains(QLatin1Char('@')) && id.startsWith(QLatin1Char('u')) &&
                        !s.host().core()->contact(id, &known))
                        return true;
                }
                return false;
            }};
}

TourMove nothingFound()
{
    return {"the page says that nothing was found",
            [](Stage &s) { type(s, QStringLiteral("zzqqxx")); },
            [](Stage &s) {
                return s.shownWidget(QStringLiteral("searchNothing")) != nullptr && found(s) == 0;
            }};
}

TourMove located()
{
    return {"the contact's row in the tree is current",
            [](Stage &s) {
                QTreeView *view = s.list(Results);
                if (!view)
                    return;
                view->setCurrentIndex(s.row(Results, IdRole, s.jid));
                view->setFocus();
                Stage::keyTo(view, Qt::Key_Return, QString(), Qt::ControlModifier);
            },
            [](Stage &s) { return s.tree() && Stage::jidOf(s.tree()->currentIndex()) == s.jid; }};
}

} // namespace

std::vector<TourStep> searchSteps()
{
    const TourMove light{"the window is light and Chinese",
                         [](Stage &s) {
                             s.window().windows()->transfers()->cancelAll();
                             s.window().setSkin(QStringLiteral("light"));
                             s.window().setLanguage(QStringLiteral("zh_CN"));
                         },
                         {}};
    const TourMove dark{"the window is dark and English",
                        [](Stage &s) {
                            s.window().setSkin(QStringLiteral("dark"));
                            s.window().setLanguage(QStringLiteral("en"));
                        },
                        {}};
    return {
        {"search-initials", TourStep::Pane, {light, servicesReady(), typed(QStringLiteral("l"))}},
        {"search-name", TourStep::Pane, {contactChosen(), nameTyped()}},
        {"search-pinyin", TourStep::Pane, {typed(QStringLiteral("zhang"))}},
        {"search-company", TourStep::Pane, {contactChosen(), servicesReady(), strangersAdded()}},
        {"search-nothing", TourStep::Pane, {servicesReady(), nothingFound()}},
        {"search-rooms", TourStep::Pane, {typed(QString::fromUtf8("项目"))}},
        {"search-located", TourStep::Pane, {contactChosen(), nameTyped(), located()}},
        {"search-dark", TourStep::Pane, {dark, typed(QStringLiteral("wang"))}},
        {"search-ended",
         TourStep::Pane,
         {{"the skin and the language are again those of the start",
           [](Stage &s) {
               s.window().setSkin(s.host().options().skin);
               s.window().setLanguage(s.host().options().language);
               type(s, QStringLiteral("wang"));
               Stage::keyTo(s.searchBox(), Qt::Key_Escape);
           },
           [](Stage &s) { return s.searchBox()->text().isEmpty() && !s.list(Results); }}}},
    };
}
