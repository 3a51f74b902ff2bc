// A page that can show itself and nothing else: no windows, dialogs, plug-ins or files,
// nothing kept beyond its life.
#pragma once

#include <QElapsedTimer>
#include <QWebPage>

class BrowserListener;

class WebKitPage : public QWebPage
{
    Q_OBJECT

public:
    WebKitPage(QNetworkAccessManager *network, BrowserListener *listener, QObject *parent);

    // The user has pressed a key or a button on the page: one link may follow from it.
    void noteInput();

protected:
    bool acceptNavigationRequest(QWebFrame *frame, const QNetworkRequest &request,
                                 NavigationType type) override;
    QWebPage *createWindow(WebWindowType type) override;
    QObject *createPlugin(const QString &, const QUrl &, const QStringList &,
                          const QStringList &) override;
    bool supportsExtension(Extension extension) const override;
    QString chooseFile(QWebFrame *frame, const QString &old) override;
    void javaScriptAlert(QWebFrame *frame, const QString &text) override;
    bool javaScriptConfirm(QWebFrame *frame, const QString &text) override;
    bool javaScriptPrompt(QWebFrame *frame, const QString &text, const QString &standard,
                          QString *result) override;
    void javaScriptConsoleMessage(const QString &text, int line, const QString &source) override;
    bool shouldInterruptJavaScript() override;

private:
    BrowserListener *m_listener;
    QElapsedTimer m_sinceInput; // invalid: no input that was not used up
};
