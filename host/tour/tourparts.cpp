#include "host/tour/tourparts.h"

#include "host/hostapplication.h"
#include "host/tour/backendlevers.h"
#include "host/tour/tourstage.h"
#include "host/webservices.h"

#include <QAbstractButton>

using Stage = TourStage;

TourMove leverPulled(const char *command, const QByteArray &json)
{
    return {"the back end takes the lever",
            [=](Stage &s) {
                s.done = false;
                s.done = BackendLevers::pull(s.host().services()->address(), command, json);
            },
            [](Stage &s) { return s.done; }};
}

TourMove partShown(const char *window, const char *part)
{
    return {"the window shows it", {}, [=](Stage &s) { return s.part(window, part) != nullptr; }};
}

TourMove buttonPressed(const char *window, const char *button)
{
    return {"the button is pressed",
            [=](Stage &s) {
                auto *found = s.part<QAbstractButton>(window, button);
                s.done = found != nullptr;
                if (found)
                    found->click();
            },
            [](Stage &s) { return s.done; }, TourMove::Again};
}

TourMove windowShown(const char *window)
{
    return {"the window opens", {}, [=](Stage &s) { return s.openWindow(window) != nullptr; }};
}

TourMove paneShows(const char *entry, const char *widget)
{
    return {"the page is shown", [=](Stage &s) { s.openPage(QLatin1String(entry)); },
            [=](Stage &s) { return s.shownWidget(QLatin1String(widget)) != nullptr; },
            TourMove::Again};
}
