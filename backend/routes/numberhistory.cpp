// What service numbers have written. For everybody: the browser that shows it has no
// ticket, and nothing of it is personal.
#include "backend/call.h"
#include "backend/context.h"
#include "backend/numbers/historypage.h"
#include "backend/routes/routes.h"

#include <optional>

namespace {
Reply history(const Call &call, const ServiceNumberList &numbers)
{
    try {
        const std::optional<ServiceNumber> number = numbers.find(call.form.text("id"));
        const qint64 page = call.form.number("page", 1, HistoryPage::Pages, 1);
        if (number)
            return Reply::bytes(HistoryPage::write(*number, int(page)), "text/html; charset=utf-8")
                .with("Content-Security-Policy", "default-src 'none'; style-src 'unsafe-inline'")
                .with("X-Content-Type-Options", "nosniff");
    } catch (const IllegalField &) {
        // as a number that does not exist
    }
    return Reply::ofStatus(404);
}
} // namespace

void addNumberHistory(Services *services, BackEndContext &context)
{
    services->get("/center/isrvHis/pcMsg.do", Services::Open,
                  [&context](const Call &call) { return history(call, context.numbers); });
}
