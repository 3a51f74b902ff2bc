// One change of OrgTreeModel: takes the elements in, and tells the views in as few
// steps as the change allows. Lives for one call.
#pragma once

#include "org/orgtreerows.h"
#include "org/orgtreesteps.h"

#include <QHash>
#include <QModelIndex>

#include <vector>

class OrgTreeChanges
{
public:
    OrgTreeChanges(OrgTreeSteps *model, OrgTreeRows *rows) : m_model(model), m_rows(rows) {}

    // False: it is none that can have a row.
    bool receive(const OrgElement &element);
    // Carries out what the elements said.
    void finish();

    void setPresence(quint32 number, int status, int device);
    // Shows, changes or takes away the row for the department's state.
    void updatePlaceholder(quint32 number, bool stateChanged);
    void removePlaceholder(quint32 number);

private:
    struct Departure
    {
        quint32 node;
        quint32 target; // None: to be taken out
    };
    using Departures = std::vector<Departure>;

    void place(quint32 number, const QString &parentId);
    void arrive(quint32 number, quint32 parent);
    void update(quint32 number, const OrgElement &element);
    void setParent(quint32 number, const QString &parentId);
    void insertArrivals();
    void changeKinds();

    void moveRows();
    void leave(quint32 source, const std::vector<quint32> &leaving);
    void placeTakenOut();
    void leaveInRuns(quint32 source, const Departures &going);
    Departures departures(quint32 source, const std::vector<quint32> &leaving);
    bool mayMove(quint32 number, quint32 target) const;
    bool areInARow(const Departures &leaving) const;
    void gatherAtTheEnd(quint32 source, const Departures &leaving);
    void moveRun(quint32 source, int first, int last, quint32 target);
    void takeOutRun(quint32 source, int first, int last);
    void announceChanges();

    QModelIndex index(quint32 number) const;

    OrgTreeSteps *const m_model;
    OrgTreeRows *const m_rows;
    quint32 m_lastHolder = OrgTreeRows::None; // of what was placed before
    std::vector<quint32> m_arrivedUnder;
    std::vector<quint32> m_changed;
    std::vector<quint32> m_newKind;
    std::vector<quint32> m_leaving;      // in the order of the elements
    QHash<quint32, QString> m_newParent; // of those that leave
    std::vector<quint32> m_takenOut;
};
