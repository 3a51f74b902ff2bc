// The browser of the module, made by its entry point.
#pragma once

#include "webview/embeddedbrowser.h"

#include <QPointer>
#include <QWebView>

class WebKitPage;

class WebKitBrowser : public QWebView, public EmbeddedBrowser
{
    Q_OBJECT

public:
    WebKitBrowser(QNetworkAccessManager *network, BrowserListener *listener, QWidget *parent);
    ~WebKitBrowser() override;

    QWidget *widget() override { return this; }
    void open(const QUrl &url) override;
    void stop() override { QWebView::stop(); }

protected:
    bool event(QEvent *event) override;

private:
    QNetworkAccessManager *m_network;
    BrowserListener *m_listener;
    QObject m_pages; // their parent: the view would delete one while it still runs
    QPointer<WebKitPage> m_page;
};
