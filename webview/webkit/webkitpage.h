// A page that can show itself and nothing else: no scripts, windows, plug-ins or files,
// nothing kept beyond its life. Scripts are off because the engine cannot be made to end
// one that runs for ever, and the client with it.
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

private:
    BrowserListener *m_listener;
    QElapsedTimer m_sinceInput; // invalid: no input that was not used up
};
