// What the tests of web requests share: a host that somebody is logged in to, and
// requests whose end is kept.
#pragma once

#include "http/chttpsession.h"
#include "http/cpassportloginserver.h"
#include "http/requestheaders.h"
#include "tests/support/fakecontext.h"
#include "tests/support/fakeserver.h"
#include "tests/support/files.h"
#include "tests/support/testcertificates.h"
#include "tests/support/testrunner.h"

#include <QFile>
#include <QTemporaryDir>

#include <memory>

struct WebHost
{
    FakeContext context;
    CPassportLoginServer passport;
    QTemporaryDir folder;
    HostContextScope scope{&context};

    WebHost()
    {
        context.passportServer = &passport;
        context.programFolder = folder.path();
        context.authorities = TestCertificates::authorityFile();
        addresses({});
    }

    // Writes the service address file: the centre, and further lines of it.
    void addresses(const QUrl &center, const QByteArray &lines = QByteArray())
    {
        writeFile(folder.filePath(QStringLiteral("allurl.ini")),
                  "[Hosts]\ncenter=" + center.toEncoded() + "\n" + lines);
    }
};

// A session and how it ended.
struct Call
{
    std::unique_ptr<CHttpSession> session = std::make_unique<CHttpSession>();
    int ends = 0;
    bool hadReply = false;
    int status = 0;
    QNetworkReply::NetworkError error = QNetworkReply::NoError;
    QString errorText;
    QByteArray body;

    Call()
    {
        QObject::connect(session.get(), &CHttpSession::signal_finished, session.get(),
                         [this](QNetworkReply *reply) { ended(reply); });
    }

    Call &throttled(qint16 kind = 0)
    {
        session->setThrottled(true);
        session->setRequestKind(kind);
        return *this;
    }
    Call &get(const QUrl &url)
    {
        session->get(RequestHeaders::request(url));
        return *this;
    }
    Call &post(const QUrl &url, const QString &form = QStringLiteral("a=1"))
    {
        session->post(RequestHeaders::formRequest(url), form);
        return *this;
    }
    bool waitForEnd() const
    {
        return QTest::qWaitFor([this] { return ends > 0; }, TestPatience);
    }
    bool succeeded() const { return ends == 1 && error == QNetworkReply::NoError && status == 200; }

private:
    void ended(QNetworkReply *reply)
    {
        ++ends;
        hadReply = reply;
        if (!reply)
            return;
        status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        error = reply->error();
        errorText = reply->errorString();
        body = reply->readAll();
    }
};
