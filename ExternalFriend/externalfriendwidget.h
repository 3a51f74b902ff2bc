// The page of the external contacts: people outside the user's company, in groups of
// their own. The tree is that of the company's contacts; above it stand the ways to
// find somebody and to ask the host for everything again.
#pragma once

#include "contacts/contacttreepage.h"

class ElidedLabel;
class LoadingOverlay;
class QLabel;
class SkinButton;

class ExternalFriendWidget : public ContactTreePage
{
    Q_OBJECT

public:
    explicit ExternalFriendWidget(QWidget *parent = nullptr);

protected:
    // Groups that the user has made are worth showing; the default one alone is not.
    bool hasRows() const override;
    void showEmptyPage() override;
    void showState() override;
    void changeEvent(QEvent *event) override;

private:
    void layOut();
    QWidget *link(QWidget *parent);
    void showWaiting();
    void retranslate();
    void loadAtFirst();
    void findPeople();
    void refresh();

    ElidedLabel *m_title;
    SkinButton *m_add;
    SkinButton *m_refresh;
    QWidget *m_body; // the tree, or what stands in its place
    LoadingOverlay *m_overlay;
    QWidget *m_hint; // groups, but nobody in them
    QLabel *m_hintText;
};
