// The list of results: its keys and its menu.
#pragma once

#include "contacts/search/searchindex.h"
#include "controls/foundlist.h"

class SearchResultModel;
class SkinMenu;

class SearchResultView : public FoundList
{
    Q_OBJECT

public:
    SearchResultView(SearchBox *box, SearchResultModel *model, QWidget *parent = nullptr);

signals:
    // What the user wants of a row.
    void openRequested(const SearchEntry &entry);
    void locateRequested(const SearchEntry &entry);
    void organisationRequested(const SearchEntry &entry);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    QString cardJid(const QModelIndex &index) const override;

private:
    void buildMenu();
    void prepareMenu();
    void choose(QAction *action);
    SearchEntry entryAt(const QModelIndex &index) const;

    SearchResultModel *m_model;
    SkinMenu *m_menu = nullptr;
    SearchEntry m_menuEntry; // what the open menu is about
};
