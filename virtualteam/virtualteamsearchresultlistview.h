// The members found in the user's teams. A click or Enter leads to the member's team.
#pragma once

#include "controls/foundlist.h"

#include <QPersistentModelIndex>

class SkinMenu;
class TeamSearchModel;

class VirtualTeamSearchResultListView : public FoundList
{
    Q_OBJECT

public:
    // Box and model are not owned and must outlive the view.
    VirtualTeamSearchResultListView(SearchBox *box, TeamSearchModel *model,
                                    QWidget *parent = nullptr);

    // As a click on the row.
    void choose(const QModelIndex &index);

signals:
    // Who was chosen; followed by signal_expendVirtualTeam().
    void memberChosen(const QString &vtId, const QString &userId);
    void signal_expendVirtualTeam(QString vtId);

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    void makeMenu();
    void selectAction(QAction *action);

    TeamSearchModel *m_model;
    SkinMenu *m_menu = nullptr;
    QString m_menuTeam, m_menuUser;     // that the menu is about
    QPersistentModelIndex m_pressedRow; // with the left button
};
