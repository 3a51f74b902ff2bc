// The latest contacts on screen: keys and menu, turned into requests of the host and
// into what the pane does.
#pragma once

#include "controls/rowview.h"

class LatestModel;
class SkinMenu;

class LatestView : public RowView
{
    Q_OBJECT

public:
    explicit LatestView(LatestModel *model, QWidget *parent = nullptr);

public slots:
    void slot_openChat(const QModelIndex &index);
    void slot_menuClick(QAction *action);
    void slot_messageSetting(QAction *action);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    QString cardJid(const QModelIndex &index) const override;

private:
    void setUpMenu();
    void prepareMenu(const QModelIndex &index);
    void askToClear();
    void locate(const QModelIndex &index);

    LatestModel *m_model;
    SkinMenu *m_menu = nullptr;
    SkinMenu *m_settingMenu = nullptr;
    QString m_menuJid; // whom the open menu is about
};
