// The page of external contacts on screen, fed by a host of its own.
#pragma once

#include "ExternalFriend/externalfriendwidget.h"
#include "contacts/friendtreemodel.h"
#include "contacts/friendtreeview.h"
#include "controls/inputbox.h"
#include "controls/skinmenu.h"
#include "controls/tipbox.h"
#include "tests/contacts/contactmaker.h"
#include "tests/support/fakehost.h"
#include "tests/support/recordingactions.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

inline FriendData makeExternal(const QString &user, const QString &name,
                               const QString &groupId = QStringLiteral("e1"))
{
    FriendData contact = makeContact(user, name, groupId);
    contact.outside = 1;
    return contact;
}

// Own jid me@corp.example. The external groups e1 "Clients" and e2 "Partners", the first of
// them open; in e1 xena (online) and yuri, in e2 zora. The company's contact is anna, in
// the group g1.
class ExternalPageFixture
{
public:
    enum Filling
    {
        Nothing,
        Everybody
    };
    explicit ExternalPageFixture(Filling filling = Everybody)
    {
        TipBox::setNextAnswers(TipBox::Cancel);
        host.context.user = QStringLiteral("me");
        host.context.baseFolder = folder.path();
        if (filling == Everybody) {
            host.context.innerGroups = {{QStringLiteral("g1"), QStringLiteral("Alpha")}};
            host.context.externalGroups = {{QStringLiteral("e1"), QStringLiteral("Clients")},
                                           {QStringLiteral("e2"), QStringLiteral("Partners")}};
            host.context.addContact(makeContact(QStringLiteral("anna"), QStringLiteral("anna")));
            add("xena");
            add("yuri");
            add("zora", "e2");
            host.context.presences.insert(jidOf(QStringLiteral("xena")), makePresence(1));
        }
        make();
    }
    ~ExternalPageFixture() { TipBox::setNextAnswers(TipBox::ShowBox); }
    ExternalPageFixture(const ExternalPageFixture &) = delete;
    ExternalPageFixture &operator=(const ExternalPageFixture &) = delete;

    // Builds the page anew, as after a restart.
    void make()
    {
        tester.reset();
        page = std::make_unique<ExternalFriendWidget>();
        page->resize(284, 600);
        page->show();
        page->activateWindow();
        view = page->view();
        model = page->model();
        tester = std::make_unique<QAbstractItemModelTester>(
            model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        view->setFocus();
        settle();
    }
    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    void add(const char *user, const char *group = "e1")
    {
        host.context.addContact(makeExternal(QString::fromLatin1(user), QString::fromLatin1(user),
                                             QString::fromLatin1(group)));
    }
    QModelIndex contact(const char *user) const
    {
        return model->contactIndex(jidOf(QLatin1String(user)));
    }
    QStringList rows(const char *groupId) const // users as shown
    {
        QStringList users;
        const QModelIndex parent = model->groupIndex(QLatin1String(groupId));
        for (int row = 0; parent.isValid() && row < model->rowCount(parent); ++row) {
            const QString id = model->index(row, 0, parent).data(FriendTreeRole::Id).toString();
            users.append(id.section(QLatin1Char('@'), 0, 0));
        }
        return users;
    }
    // The object name of what is shown below the buttons.
    QString shown() const
    {
        const QWidgetList parts = page->findChildren<QWidget *>();
        for (const QWidget *part : parts) {
            const QString name = part->objectName();
            const bool isPage = part == view || part->inherits("StatePage");
            if (isPage && part->isVisible())
                return name;
        }
        return QString();
    }
    QAbstractButton *button(const char *name) const
    {
        return page->findChild<QAbstractButton *>(QLatin1String(name));
    }
    SkinMenu *openMenuOf(const char *user) const
    {
        view->selectionModel()->setCurrentIndex(contact(user), QItemSelectionModel::ClearAndSelect);
        view->slot_contextMenu(view->visualRect(contact(user)).center());
        return qobject_cast<SkinMenu *>(QApplication::activePopupWidget());
    }

    QTemporaryDir folder;
    FakeHost host;
    RecordingActions actions;
    std::unique_ptr<ExternalFriendWidget> page;
    FriendTreeView *view = nullptr;   // of the page
    FriendTreeModel *model = nullptr; // of the page
    std::unique_ptr<QAbstractItemModelTester> tester;
};
