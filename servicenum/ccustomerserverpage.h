// The page of the customer-service channels.
#pragma once

#include <QStringList>
#include <QWidget>

class CCustomerServerListView;
class QLabel;
class QStackedWidget;

class CCustomerServerPage : public QWidget
{
    Q_OBJECT

public:
    explicit CCustomerServerPage(QWidget *parent = nullptr);

    CCustomerServerListView *list() const { return m_list; }

    // Shows the channels that were delivered, with the pins as they are stored. The
    // first show of the page does it, too.
    void reload();
    // Makes the channel's row current and shows it; false when it was not delivered.
    bool locateChannel(const QString &id);

public slots:
    void slot_TopChannelIDListChanged(QList<QString> listTopChannelID);

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void connectSources();
    void loadOnce();
    void readPins();
    void showState();
    void retranslate();
    void colourTitle();

    QLabel *m_title;
    QStackedWidget *m_pages;
    CCustomerServerListView *m_list;
    QWidget *m_emptyPage;
    bool m_loaded = false;
    bool m_pinsRead = false;
};
