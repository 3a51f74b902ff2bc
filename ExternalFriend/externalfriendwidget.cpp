#include "ExternalFriend/externalfriendwidget.h"

ExternalFriendWidget::ExternalFriendWidget(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("ExternalFriendWidget"));
}
