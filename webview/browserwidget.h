// A web page as a part of a window of the client. Works with the browser module; without
// it there is the system's browser (webview/systembrowser.h).
#pragma once

#include "webview/embeddedbrowser.h"
#include "webview/pagenetwork.h"

#include <QTimer>
#include <QUrl>
#include <QWidget>

class BrowserWidget : public QWidget, private BrowserListener
{
    Q_OBJECT

public:
    static constexpr int DefaultTimeout = 20000; // ms, from open() to the last byte

    // Loads the browser module at the first call.
    static bool isAvailable();

    // Only while isAvailable().
    explicit BrowserWidget(QWidget *parent = nullptr);
    ~BrowserWidget() override;

    // finished() follows once, unless another page is opened before; never inside this
    // call. Nothing but http and https is opened.
    void open(const QUrl &url);
    QUrl url() const { return m_url; } // of the last open()
    void setTimeout(int milliseconds);

signals:
    // A page that has come so far when the time is over, with only parts of it missing,
    // counts as shown.
    void finished(bool ok);
    // By the pointer or a key, never by the page itself.
    void linkClicked(const QUrl &url);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void pageFinished(bool ok) override;
    void linkPressed(const QUrl &url) override;
    bool mayLead(const QUrl &url) override;
    void end(bool ok);

    PageNetwork m_network;
    EmbeddedBrowser *m_browser;
    QTimer m_timer;
    QUrl m_url;
    int m_opened = 0; // counts the pages
    bool m_isLoading = false;
};
