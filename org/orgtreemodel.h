// The organisation as a tree of rows: departments and employees, and under a
// department that is being asked for a row that says so, or that it failed. Rows
// are made for what is shown, in the order in which the service delivers them;
// the records stay in the cache.
//
// Elements may come in any order, more than once, under another parent, in circles:
// one without a way up to the root of at most 64 rows is kept aside until there is
// one.
#pragma once

#include "http/orgrecords.h"
#include "org/orgtreeroles.h"
#include "org/orgtreesteps.h"

#include <memory>

class OrgTreeModel : public OrgTreeSteps
{
    Q_OBJECT

public:
    using Children = OrgChildren;

    explicit OrgTreeModel(QObject *parent = nullptr);
    ~OrgTreeModel() override;

    // Where the records are kept, up to date before each addElements(); outlives the
    // model, or is taken away again with null. Without it the model keeps a copy.
    void setRecords(const OrgElementMap *records);

    // The id above the topmost rows, which are those with this parent or with none; a
    // change empties the model.
    void setRootId(const QString &rootId);
    QString rootId() const;

    // Adds new elements below their parents and updates the ones that are there, in
    // time proportional to their number.
    void addElements(const OrgElementList &elements);
    // Ignored for a department that is not known. While one without rows is loading or
    // has failed it has a row that says so; the root has none.
    void setChildrenState(const QString &departmentId, Children state);
    Children childrenState(const QString &departmentId) const;

    QModelIndex indexOf(const QString &id) const; // invalid: there is no row
    OrgRowKind kind(const QModelIndex &index) const;
    OrgElement element(const QModelIndex &index) const; // empty for the other kinds of row
    bool isEmpty() const;                               // no row at all

    // Lasts until the element itself arrives again.
    void setPresence(const QString &uid, int status, int device);

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
