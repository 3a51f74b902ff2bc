// The remark of a contact, edited in a box.
#pragma once

#include <QString>

class QWidget;

// Opens the box over `parent`. A changed remark goes to the host, whose answer changes
// what is shown; an unchanged one is told. Does nothing for who is no contact.
void editRemark(QWidget *parent, const QString &jid);
