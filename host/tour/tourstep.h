// A tour as data: steps, each a few moves and then a picture. A move does
// something and waits until it shows; nothing waits a fixed time.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

class TourStage;

struct TourMove
{
    const char *what;                       // told when it does not succeed: "the menu opens"
    std::function<void(TourStage &)> act;   // may be empty; may open a modal dialog
    std::function<bool(TourStage &)> until; // may be missing: done when acted
    // Acted once more from time to time while it does not show: what it needs may not have
    // been there yet. For what is harmless to do twice, and opens no modal dialog.
    bool again = false;
    static constexpr bool Again = true;
};

struct TourStep
{
    enum Need
    {
        HostOnly,
        Pane // fails at once when the plug-in has not been loaded
    };

    const char *name; // also of the picture; unique
    Need need;
    std::vector<TourMove> moves;

    // Not empty: the step runs in a process of its own, with these arguments and
    // environment variables ("NAME=value") added; the moves are those of there.
    QStringList arguments = {};
    QStringList environment = {};

    bool ownProcess() const { return !arguments.isEmpty() || !environment.isEmpty(); }
};

// All steps in their order.
const std::vector<TourStep> &tourSteps();
