// When the card opens and closes, on a clock of the test's own.
#include "controls/hoverstates.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"

namespace {

// One step, such as "300 a": at 300 ms the pointer comes to a's row. "-": to no row,
// "card" and "out": on the card and off it, "held" and "free": of what belongs to it,
// "open x": by other means, "close", and "." for time that passes.
void take(HoverStates *states, const QString &step)
{
    const qint64 now = step.section(QLatin1Char(' '), 0, 0).toInt();
    while (states->due() >= 0 && states->due() <= now)
        states->advance(states->due());
    const QString what = step.section(QLatin1Char(' '), 1);
    if (what == QLatin1String("card") || what == QLatin1String("out"))
        states->setOnCard(what == QLatin1String("card"), now);
    else if (what == QLatin1String("held") || what == QLatin1String("free"))
        states->setHeld(what == QLatin1String("held"), now);
    else if (what.startsWith(QLatin1String("open")))
        states->open(what.section(QLatin1Char(' '), 1));
    else if (what == QLatin1String("close"))
        states->close();
    else if (what != QLatin1String("."))
        states->setRow(what == QLatin1String("-") ? QString() : what, now);
}

// "-" closed, "r" resting, "a" open for a, "a?" about to close.
QString told(const HoverStates &states)
{
    switch (states.state()) {
    case HoverStates::Closed:
        return QStringLiteral("-");
    case HoverStates::Resting:
        return QStringLiteral("r");
    case HoverStates::Open:
        return states.shown();
    case HoverStates::Closing:
        return states.shown() + QLatin1Char('?');
    }
    return QString();
}

} // namespace

class TstHoverStates : public QObject
{
    Q_OBJECT

private slots:
    void scenarios_data()
    {
        const Rows<QString, QString> row{"steps", "states"};
        row("a rest opens", "0 a|499 .|500 .|9000 .", "r r a a");
        row("moves on the row are no new rest", "0 a|400 a|500 .", "r r a");
        row("left too soon", "0 a|499 -|2000 .", "r - -");
        row("rows that are crossed", "0 a|10 b|20 c|30 d|529 .|530 .", "r r r r r d");
        row("the way to the card", "0 a|500 .|600 -|899 card|5000 .|6000 out|6299 .|6300 .",
            "r a a? a a a? a? -");
        row("too late for the card", "0 a|500 .|600 -|900 .", "r a a? -");
        row("back to the row", "0 a|500 .|600 -|800 a|5000 .", "r a a? a a");
        row("from the card to its row", "0 a|500 .|600 card|700 out|710 a|9000 .", "r a a a? a a");
        row("another row takes over", "0 a|500 .|600 b|899 .|900 .|1099 .|1100 .",
            "r a a? a? r r b");
        row("another row on the way to the card", "0 a|500 .|600 b|700 card|9000 .", "r a a? a a");
        row("another row late in the grace", "0 a|500 .|600 -|850 b|900 .|1349 .|1350 .",
            "r a a? a? r r b");
        row("a box over the card",
            "0 a|500 .|600 card|650 held|660 out|9000 .|9100 free|9399 .|9400 .",
            "r a a a a a a? a? -");
        row("a box, then the card again",
            "0 a|500 .|600 card|650 held|660 out|700 card|800 free|9000 .", "r a a a a a a a");
        row("no other card under a box", "0 a|500 .|600 card|650 held|660 b|9000 .", "r a a a a a");
        row("a click on the row", "0 a|300 close|9000 .|9100 a|9900 .|9910 -|9920 a|10420 .",
            "r - - - - - r a");
        row("closed while open", "0 a|500 .|600 close|700 a|9000 .", "r a - - -");
        row("by others", "0 open x|5000 .|5100 -|5400 .", "x x x? -");
        row("by others, over a rest", "0 a|300 open x|900 .", "r x x");
        row("the pointer on a card that is none", "0 card|100 a|600 .|700 -|1000 .", "- r a a? -");
    }

    void scenarios()
    {
        QFETCH(QString, steps);
        HoverStates states;
        QStringList seen;
        const QStringList list = steps.split(QLatin1Char('|'));
        for (const QString &step : list) {
            take(&states, step);
            seen.append(told(states));
        }
        QTEST(seen.join(QLatin1Char(' ')), "states");
    }
};

FRIENDUI_TEST(TstHoverStates)
#include "tst_hoverstates.moc"
