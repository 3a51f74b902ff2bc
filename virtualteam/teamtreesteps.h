// What TeamTreeChanges needs of the model: the steps by which views are told.
#pragma once

#include <QAbstractItemModel>

class TeamTreeSteps : public QAbstractItemModel
{
    friend class TeamTreeChanges;

public:
    using QAbstractItemModel::QAbstractItemModel;
};
