// The page of the service numbers that the user subscribes to.
#pragma once

#include <QTimer>
#include <QWidget>

class AddServiceEntry;
class CServiceNoTable;
class NoticeLine;
class SearchBox;
class StateStack;

class CServiceNoWidget : public QWidget
{
    Q_OBJECT

public:
    // With fewer subscriptions than this nobody needs to filter them.
    static constexpr int FilterFrom = 12;

    // Loads nothing before it is first shown.
    explicit CServiceNoWidget(QWidget *parent = nullptr);

    CServiceNoTable *list() const { return m_list; }

signals:
    void signal_showServiceNumInfo(const QString &code);
    void signal_showServiceNumberSearchWidget();

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void layOut();
    void connectParts();
    void connectNumbers();
    void load();
    void loadIfSeen();
    void follow(); // brings the rows in line with the subscriptions
    void tellRefused(const QString &code);
    void passFocus();
    void filter();
    void leaveFilter();
    void showState();
    void retranslate();

    SearchBox *m_filter;
    AddServiceEntry *m_add;
    QWidget *m_listPage;
    CServiceNoTable *m_list;
    StateStack *m_states;
    NoticeLine *m_notice;
    bool m_started = false;
    QTimer m_pause; // until the list follows the next news
    bool m_isBehind = false;
    QString m_refused; // the number whose subscription could not be ended
};
