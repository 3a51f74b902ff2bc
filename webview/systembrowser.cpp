#include "webview/systembrowser.h"

#include "common/logging.h"
#include "http/requesttext.h"
#include "http/serviceaddresses.h"

#include <QDesktopServices>
#include <QUrl>

bool SystemBrowser::open(const QUrl &url)
{
    if (ServiceAddresses::isWebAddress(url) && QDesktopServices::openUrl(url))
        return true;
    LOG_ERROR("not opened in a browser: " << logText(RequestText::address(url)));
    return false;
}
