// The page of latest contacts on screen, with a host, a database and a clock of its
// own.
#pragma once

#include "common/localdatabase.h"
#include "contacts/latest/latestcontactstable.h"
#include "contacts/latest/latestmodel.h"
#include "contacts/latest/latestroles.h"
#include "contacts/latest/latestview.h"
#include "contacts/latest/mylatestfriendwidget.h"
#include "controls/tipbox.h"
#include "plugin/frienduisignalsender.h"
#include "tests/support/fakehost.h"
#include "tests/support/recordingactions.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

// Own jid me@corp.example; it is noon of 5 March 2026 until `now` is set.
class LatestFixture
{
public:
    explicit LatestFixture()
    {
        TipBox::setNextAnswers(TipBox::Cancel);
        LocalDatabase::instance().close();
        host.context.user = QStringLiteral("me");
        host.context.baseFolder = folder.path();
        make();
    }
    ~LatestFixture()
    {
        widget.reset();
        LocalDatabase::instance().close();
        TipBox::setNextAnswers(TipBox::ShowBox);
    }

    // Builds the page anew; what it knows then it has from the table.
    void make()
    {
        tester.reset();
        widget.reset();
        widget = std::make_unique<MyLatestFriendWidget>();
        widget->setClock([this] { return now; });
        widget->resize(300, 600);
        widget->show();
        widget->activateWindow();
        tester = std::make_unique<QAbstractItemModelTester>(
            model(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        settle();
    }
    // The end of this turn of the event loop: what was to be stored is stored.
    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    LatestModel *model() const { return widget->model(); }
    LatestView *view() const { return widget->view(); }

    static QString jid(const QString &user) { return user + QStringLiteral("@corp.example"); }
    static QString room(const QString &name)
    {
        return name + QStringLiteral("@conference.corp.example");
    }

    // "5 10:00" is that time of March 2026.
    static QString time(const QString &dayAndTime)
    {
        return QStringLiteral("2026-03-0%1:00").arg(dayAndTime);
    }
    MessageData message(const QString &from, const QString &body, const QString &when) const
    {
        MessageData made;
        made.sessionJid = from;
        made.fromJid = from;
        made.toJid = host.context.ownJid();
        made.body = body;
        made.time = time(when);
        return made;
    }
    void receive(const QString &from, const QString &body, const QString &when) const
    {
        FakeHost::send(Inbound::MessageReceived, true, message(from, body, when));
    }

    QStringList rows() const // users as shown
    {
        QStringList users;
        for (int row = 0; row < model()->rowCount(); ++row)
            users.append(model()->at(row).row.jid.section(QLatin1Char('@'), 0, 0));
        return users;
    }
    QVariant of(const QString &jid, int role) const { return model()->indexOf(jid).data(role); }

    // As stored, a connection of the plug-in's own not asked.
    DBFriendData stored(const QString &jid) const
    {
        DBFriendData row;
        if (!LatestContactsTable::find(jid, &row))
            row.jid.clear();
        return row;
    }

    QTemporaryDir folder;
    FakeHost host;
    RecordingActions actions;
    QDateTime now{QDate(2026, 3, 5), QTime(12, 0)};
    std::unique_ptr<MyLatestFriendWidget> widget;
    std::unique_ptr<QAbstractItemModelTester> tester;
};
