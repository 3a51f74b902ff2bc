// The friend tree's page: the contacts of the user's company, the own row among them.
#pragma once

#include "contacts/contacttreepage.h"

#include <QStringList>

class FriendTreeWidget : public ContactTreePage
{
    Q_OBJECT

public:
    explicit FriendTreeWidget(QWidget *parent = nullptr);

    // Rows show the presence 1 while set.
    void setPresenceUnknown(bool unknown);

public slots:
    void slot_BatchAddFriendFial(QStringList listUids);
    void slot_myStatusChanged();
    void slot_updateMySelfInfo();

protected:
    void showEmptyPage() override;
    void emptyPageClicked() override;
};
