// The reference host's window: the contacts pane on the left, chats in the
// middle, the event monitor below, and the switches for connection, presence,
// language and skin.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QMainWindow>
#include <QTimer>

class ChatArea;
class EventLog;
class EventMonitor;
class HostBus;
class HostContext;
class HostLanguage;
class HostWindows;
class MessagingCore;
class PaneArea;
class WebLog;
class WebMonitor;
class WebServices;
class QActionGroup;
class QComboBox;
class QDockWidget;
class QLabel;
class QTabWidget;
class QToolBar;

class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    struct Parts
    {
        MessagingCore *core;
        HostContext *context;
        HostBus *bus;
        EventLog *log;
        HostLanguage *language;
        QMenu *levers;                   // may be null: a core without levers
        WebServices *services = nullptr; // both may be null: a host without them
        WebLog *webLog = nullptr;
    };

    // None of the parts is owned; all outlive the window.
    explicit MainWindow(const Parts &parts, QWidget *parent = nullptr);

    PaneArea *paneArea() const { return m_pane; }
    ChatArea *chats() const { return m_chats; }
    EventMonitor *monitor() const { return m_monitor; }
    WebMonitor *webMonitor() const { return m_webMonitor; }
    HostWindows *windows() const { return m_windows; }

    void setLanguage(const QString &language);
    // Changes the palette, the context's answer, and tells the plug-in.
    void setSkin(const QString &name);
    QString skin() const { return m_skin; }
    QString language() const;
    void setConnected(bool connected);
    void showMonitor(bool shown);
    void showWebMonitor(); // the same window, the list of web requests in front
    void showNote(const QString &text);

signals:
    // By the user, in a menu of the window.
    void languageChosen(const QString &language);
    void skinChosen(const QString &name);

protected:
    void changeEvent(QEvent *event) override;

private:
    void buildCentre();
    void buildMonitor();
    void buildActions();
    void buildMenus(QMenu *levers);
    void buildToolBar(QMenu *levers);
    void buildStatusBar();
    void connectCore();
    void connectServices();
    void showServices();
    void showNoticeCount();
    void showConnection();
    void showOwnPresence();
    void countLater(int what);
    void count();
    void retranslate();
    void retranslatePresence();
    QAction *addChoice(QActionGroup *group, const QString &value);

    Parts m_parts;
    PaneArea *m_pane;
    ChatArea *m_chats;
    HostWindows *m_windows;
    EventMonitor *m_monitor;
    WebMonitor *m_webMonitor;
    QTabWidget *m_monitors;
    QDockWidget *m_dock;
    QToolBar *m_toolBar;

    QMenu *m_sessionMenu, *m_viewMenu, *m_languageMenu, *m_skinMenu, *m_presenceMenu;
    QAction *m_online, *m_serviceRetry, *m_noticeAction, *m_quit, *m_toggleMonitor;
    QActionGroup *m_presences, *m_languages, *m_skins;
    QComboBox *m_presenceBox;
    QLabel *m_connection, *m_services, *m_counts;

    QString m_skin;
    QTimer m_countTimer;
    int m_toCount = 0;
    int m_contactCount = 0, m_groupCount = 0, m_onlineCount = 0;
};
