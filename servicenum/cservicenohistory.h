// The messages of a service number, on a web page: in the window where the browser module
// is there, in the system's browser where it is not.
#pragma once

#include "controls/basedialog.h"

#include <QUrl>

class BrowserWidget;
class ElidedLabel;
class SkinButton;
class StateStack;

class CServiceNoHistory : public BaseDialog
{
    Q_OBJECT

public:
    // Opens or raises the one window. The page that is shown already is not loaded
    // again, also when the window was closed since. `name`: anybody's text, the code's
    // place when empty.
    static void showHistory(const QString &code, const QString &name);

public slots:
    // A page of the same host opens in the window, one of another in the system's
    // browser when the user agrees; nothing but http and https.
    void slot_openLink(const QUrl &url);
    void slot_loadFinished(bool res);
    void slot_secondPageLoadFinished(bool res);

protected:
    void changeEvent(QEvent *event) override;

private:
    explicit CServiceNoHistory(QWidget *parent);
    void makeTitleButtons();
    void retranslate();
    void show(const QString &code, const QString &name);
    void load();
    void loadInside();
    void loadOutside();
    void showState(const char *key, bool mayRetry = false);
    void showPage(BrowserWidget *page, bool ok);
    void giveFocus(QWidget *page);
    void retry();
    void back();
    void toggleSize();

    QString m_code;
    QUrl m_url;
    bool m_hasFailed = false; // the first page
    int m_loads = 0;          // begun so far

    StateStack *m_states;
    BrowserWidget *m_first = nullptr;
    BrowserWidget *m_second = nullptr; // of a link; null: none
    ElidedLabel *m_where;              // the host of a page that opened elsewhere
    SkinButton *m_back;
    SkinButton *m_restore;
};
