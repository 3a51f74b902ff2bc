// What OrgTreeChanges needs of the model: the steps by which views are told.
#pragma once

#include <QAbstractItemModel>

class OrgTreeSteps : public QAbstractItemModel
{
    friend class OrgTreeChanges;

public:
    using QAbstractItemModel::QAbstractItemModel;
};
