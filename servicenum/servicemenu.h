// The context menu of a row in a list of service numbers.
#pragma once

#include "controls/skinmenu.h"

class ServiceMenu : public SkinMenu
{
    Q_OBJECT

public:
    explicit ServiceMenu(QWidget *parent);

    // Which number the menu is about; what cannot be done with it is not offered.
    void setNumber(const QString &code);
    QString number() const { return m_code; }

private:
    void select(QAction *action);

    QString m_code;
};
