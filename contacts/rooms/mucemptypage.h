// What stands in the place of the list of group chats while there are none of its
// kind: what the kind is for, and a link that creates one.
#pragma once

#include "contacts/rooms/mucmodel.h"

#include <QWidget>

class QLabel;
class QPushButton;

class MucEmptyPage : public QWidget
{
    Q_OBJECT

public:
    explicit MucEmptyPage(QWidget *parent = nullptr);

    void setKind(MucModel::Page kind);

signals:
    void createClicked();

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void retranslate();

    MucModel::Page m_kind = MucModel::AddressBookPage;
    QLabel *m_text;
    QLabel *m_explanation;
    QPushButton *m_link;
};
