// The field for the name of a team: so many characters as a name may have, and no half
// of a surrogate pair where a longer text was pasted.
#pragma once

#include <QLineEdit>

class TeamNameEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit TeamNameEdit(QWidget *parent = nullptr);

    QString name() const { return text().trimmed(); }
};
