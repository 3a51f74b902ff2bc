// The page of the external contacts: people outside the user's company, in groups of
// their own.
#pragma once

#include <QWidget>

class ExternalFriendWidget : public QWidget
{
    Q_OBJECT

public:
    explicit ExternalFriendWidget(QWidget *parent = nullptr);
};
