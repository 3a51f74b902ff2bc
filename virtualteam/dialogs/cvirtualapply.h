// What is asked of the approver of a new team.
#pragma once

#include "controls/basedialog.h"

class CVirtualApply : public BaseDialog
{
    Q_OBJECT

public:
    CVirtualApply(const QString &vtId, const QString &member);
};
