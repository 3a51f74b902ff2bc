// The windows that the host opens when the plug-in asks for them.
#include "host/hostapplication.h"
#include "host/mainwindow.h"
#include "host/tour/tourparts.h"
#include "host/tour/tourstage.h"
#include "host/windows/importreport.h"

#include <QTreeView>

namespace {

using Stage = TourStage;

TourMove contactChosen()
{
    return {"a contact's row is shown",
            [](Stage &s) {
                s.openPage(QStringLiteral("friends"));
                const QModelIndex group = s.firstGroupWithContacts(4);
                if (!group.isValid())
                    return;
                s.tree()->expand(group);
                s.jid = Stage::jidOf(s.otherContact(group, 1));
                s.tree()->setCurrentIndex(s.contact(s.jid));
            },
            [](Stage &s) {
                const QModelIndex row = s.contact(s.jid);
                return row.isValid() && !s.tree()->visualRect(row).isEmpty();
            }};
}

TourMove menuOf(bool ofGroup, const char *menu)
{
    return {"the row's menu opens",
            [ofGroup](Stage &s) {
                const QModelIndex row = s.contact(s.jid);
                s.contextMenu(ofGroup ? row.parent() : row);
            },
            [menu](Stage &s) { return s.openMenu(QLatin1String(menu)) != nullptr; },
            TourMove::Again};
}

std::vector<TourMove> opened(bool ofGroup, const char *action, const char *window)
{
    const char *menu = ofGroup ? "commonGroupMenu" : "commonSingleMenu";
    return {contactChosen(),
            menuOf(ofGroup, menu),
            {"the window opens",
             [=](Stage &s) { s.trigger(s.openMenu(QLatin1String(menu)), QLatin1String(action)); },
             [=](Stage &s) { return s.openWindow(window) != nullptr; }}};
}

TourMove importReported()
{
    return {"the report is shown",
            [](Stage &s) {
                const QStringList problems{QStringLiteral("line 12: a card without a name"),
                                           QStringLiteral("line 40: the card has no end")};
                auto *report = new ImportReport(QStringLiteral("people.vcf"),
                                                QStringLiteral("7 people, 2 cards left out"),
                                                problems, &s.window());
                report->open();
            },
            [](Stage &s) { return s.openWindow("ImportReport") != nullptr; }};
}

} // namespace

std::vector<TourStep> windowSteps()
{
    return {
        {"window-history", TourStep::Pane, opened(false, "msgrecord", "HistoryWindow")},
        {"window-people", TourStep::Pane, opened(true, "createMuc", "PeoplePicker")},
        {"window-mail", TourStep::Pane, opened(false, "sendemail", "RequestNote")},
        {"window-file", TourStep::Pane, opened(false, "sendFile", "QFileDialog")},
        {"window-import", TourStep::HostOnly, {importReported()}},
    };
}
