// A page widget, shown, and a scripted server that is the centre of the services.
#pragma once

#include "http/cpassportloginserver.h"
#include "tests/http/servicefixture.h"
#include "tests/support/testrunner.h"
#include "webview/browserwidget.h"

#include <QApplication>

inline FakeReply html(const QByteArray &body)
{
    return FakeReply::of(200, "<html><body>" + body + "</body></html>")
        .header("Content-Type", "text/html; charset=utf-8");
}

#define NEED_BROWSER()                                                                             \
    if (!BrowserWidget::isAvailable())                                                             \
    QSKIP("the browser module was not built: QtWebKit is missing")

struct BrowserFixture
{
    ServiceFixture services;
    FakeServer &server = services.server;
    BrowserWidget widget;
    QSignalSpy finished{&widget, &BrowserWidget::finished};
    QSignalSpy links{&widget, &BrowserWidget::linkClicked};

    BrowserFixture()
    {
        widget.resize(400, 300);
        widget.show();
    }

    // How the page ended.
    bool opens(const QUrl &url)
    {
        finished.clear();
        widget.open(url);
        return finished.wait(TestPatience) && finished.first().first().toBool();
    }
    bool opens(const QByteArray &body)
    {
        server.reply("/page", html(body));
        return opens(server.url(QStringLiteral("/page")));
    }
    // In the middle of the page's first line, where the tests put their links.
    void click()
    {
        QWidget *page = widget.focusProxy();
        QTest::mouseClick(page, Qt::LeftButton, Qt::NoModifier, QPoint(30, 20));
    }
};
