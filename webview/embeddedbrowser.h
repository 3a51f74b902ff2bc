// What the browser module and its user know of each other. The module is loaded at run
// time and shares no code with its user, hence nothing but virtual functions.
#pragma once

class QNetworkAccessManager;
class QUrl;
class QWidget;

// The browser's user: hears of what happens, and decides.
class BrowserListener
{
public:
    // The page of open() and all that belongs to it is there, or nothing more comes.
    virtual void pageFinished(bool ok) = 0;
    // Somebody has pressed a link, which the browser does not follow by itself.
    virtual void linkPressed(const QUrl &url) = 0;
    // Whether the page may lead there without having been asked to.
    virtual bool mayLead(const QUrl &url) = 0;

protected:
    ~BrowserListener() = default;
};

// One page at a time. A child of its parent widget, which deletes it.
class EmbeddedBrowser
{
public:
    virtual QWidget *widget() = 0;
    // Takes the place of the page that is shown, whatever that does.
    virtual void open(const QUrl &url) = 0;
    virtual void stop() = 0; // what is shown stays

protected:
    ~EmbeddedBrowser() = default;
};

// The module's one entry point. Everything is requested by way of `network`, which, like
// the listener, outlives the browser. Null when the module is of another version.
using MakeBrowser = EmbeddedBrowser *(*)(int version, QNetworkAccessManager *network,
                                         BrowserListener *listener, QWidget *parent);
constexpr char BrowserEntryPoint[] = "friendui_makeBrowser";
constexpr int BrowserVersion = 1;
