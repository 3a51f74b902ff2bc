// The list of the service numbers that the user subscribes to.
#pragma once

#include "controls/rowview.h"

class ServiceMenu;
class ServiceNumModel;

class CServiceNoTable : public RowView
{
    Q_OBJECT

public:
    explicit CServiceNoTable(QWidget *parent = nullptr);

    ServiceNumModel *model() const { return m_model; }

signals:
    // A row was chosen.
    void signal_showServiceNumInfo(const QString &code);
    void signal_unsubscribeServiceNum(const QString &code);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    CServiceNoTable(ServiceNumModel *model, QWidget *parent);

    ServiceNumModel *m_model;
    ServiceMenu *m_menu;
    QPersistentModelIndex m_pressedRow; // with the left button
};
