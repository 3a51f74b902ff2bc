// The list of customer-service channels: opens their conversations and pins them.
#pragma once

#include "controls/rowview.h"
#include "hostapi/servicerecords.h"

#include <QPersistentModelIndex>

class ChannelModel;
class SkinMenu;

class CCustomerServerListView : public RowView
{
    Q_OBJECT

public:
    explicit CCustomerServerListView(QWidget *parent = nullptr);

    ChannelModel *model() const { return m_model; }

    // Makes the channel's row current and shows it; false when it has none.
    bool locate(const QString &id);

signals:
    // The newest pin first; also channels that the host has not delivered.
    void signal_TopChannelIDListChanged(QList<QString> listTopChannelID);

public slots:
    void slot_notifyAddChannel(CSChannelData channelData);
    void slot_notifyRemoveChannel(QString strChannelID);
    void slot_OpenCSChannel(QString strChannelId);
    void slot_notifyUpdateChannelHead(const QString &strChannelId, const QString &strIconPath);
    void slot_selectAction(QAction *action);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    explicit CCustomerServerListView(ChannelModel *model, QWidget *parent);
    void makeMenu();
    void channelGone(const QString &id);
    void open(const QString &id);
    void openConversation(const QString &id);
    void pin(const QString &id, bool top);

    ChannelModel *m_model;
    SkinMenu *m_menu = nullptr;
    QString m_menuChannel;              // that the menu is about
    QPersistentModelIndex m_pressedRow; // with the left button
};
