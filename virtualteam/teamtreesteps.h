// What TeamTreeChanges needs of the model: the steps by which views are told, and how
// deep it goes.
#pragma once

#include <QAbstractItemModel>

class TeamTreeSteps : public QAbstractItemModel
{
    friend class TeamTreeChanges;

public:
    static constexpr int MaximumDepth = 64; // levels of sub-groups that are shown

    using QAbstractItemModel::QAbstractItemModel;
};
