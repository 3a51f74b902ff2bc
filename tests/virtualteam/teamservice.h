// The team services as a test scripts them: a user who is logged in, a host, and a
// server that answers what it is told. A path without an answer gets an empty success.
//
//     TeamService service;
//     service.answer("getAllVirtualTeam", R"({"vt":[{"vtId":"1","vtName":"A","role":2}]})");
//     ...
//     QCOMPARE(service.form(), QByteArray("vtId=1&pgId=0"));
#pragma once

#include "controls/tipbox.h"
#include "tests/support/fakehost.h"
#include "tests/support/fakeserver.h"
#include "tests/support/files.h"
#include "virtualteam/companynames.h"

#include <QTemporaryDir>

class TeamService
{
public:
    TeamService()
    {
        TipBox::setNextAnswers(TipBox::Cancel);
        host.context.user = QStringLiteral("u1");
        host.context.company = QStringLiteral("C1");
        host.context.baseFolder = folder.path();
        host.context.programFolder = folder.path();
        QByteArray ini = "[Hosts]\n";
        for (const char *name : {"center", "ids"})
            ini += QByteArray(name) + '=' + server.url().toEncoded() + '\n';
        writeFile(folder.filePath(QStringLiteral("allurl.ini")), ini);
        server.replyElsewhere([](const FakeRequest &) { return reply("{}"); });
    }
    ~TeamService()
    {
        TipBox::setNextAnswers(TipBox::ShowBox);
        CompanyNames::instance().clear();
    }

    static QByteArray path(const char *name) { return QByteArray("/center/vt/") + name + ".do"; }
    static FakeReply reply(const QByteArray &data, int code = 0)
    {
        return FakeReply::json("{\"code\":" + QByteArray::number(code) + ",\"data\":" + data + '}');
    }
    // By the last part of the service's path.
    void answer(const char *name, const QByteArray &data, int code = 0)
    {
        server.reply(path(name), reply(data, code));
    }
    // The service's next replies wait for server.release().
    void hold(const char *name, const QByteArray &data = "{}", int code = 0)
    {
        server.reply(path(name), reply(data, code).onRelease());
    }
    int count(const char *name) const { return server.count(path(name)); }
    // The form of the newest request, as it was sent.
    QByteArray form() const { return server.last().body; }

    void setOnline(bool online) { host.context.settings.setConnected(online); }
    // Since the test began.
    int boxes() const { return TipBox::count() - m_boxes; }
    QString told() const { return boxes() > 0 ? TipBox::lastText() : QString(); }

    QTemporaryDir folder;
    FakeServer server;
    FakeHost host;

private:
    const int m_boxes = TipBox::count();
};
