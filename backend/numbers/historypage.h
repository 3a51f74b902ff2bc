// What a service number has written, as a page for browsers.
#pragma once

#include <QByteArray>

struct ServiceNumber;

namespace HistoryPage {
constexpr int Pages = 2; // of each number; the first has the newest messages

// HTML in UTF-8. `page` from 1.
QByteArray write(const ServiceNumber &number, int page);
} // namespace HistoryPage
