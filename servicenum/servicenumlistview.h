// The service numbers that were found. A click on a row, or Enter, opens its number; a
// click on its button, or Space, subscribes to it or ends that.
#pragma once

#include "controls/foundlist.h"

class ServiceMenu;
class ServiceNumListDelegate;
class ServiceNumModel;

class ServiceNumListView : public FoundList
{
    Q_OBJECT

public:
    // The box is not owned and must outlive the list.
    explicit ServiceNumListView(SearchBox *box, QWidget *parent = nullptr);

    ServiceNumModel *model() const { return m_model; }
    // Where the button of a row is, in the viewport.
    QRect buttonArea(const QModelIndex &index) const;

signals:
    void signal_subscribeServiceNum(const QString &code);
    void signal_unsubscribeServiceNum(const QString &code);
    void signal_showServiceNumInfo(const QString &code);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    ServiceNumListView(SearchBox *box, ServiceNumModel *model, QWidget *parent);
    QModelIndex buttonAt(const QPoint &pos) const; // the row whose button is there
    void setHot(const QModelIndex &index, bool isPressed);
    void pressButton(const QModelIndex &index);
    void showInfo(const QModelIndex &index);

    ServiceNumModel *m_model;
    ServiceNumListDelegate *m_delegate;
    ServiceMenu *m_menu;
    QPersistentModelIndex m_pressedRow;    // with the left button, beside its button
    QPersistentModelIndex m_pressedButton; // with the left button
};
