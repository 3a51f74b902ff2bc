#include "webview/browsermodule.h"

#include "common/logging.h"
#include "common/platform.h"

#include <QFileInfo>
#include <QLibrary>

#include <optional>

namespace {
std::optional<MakeBrowser> &known()
{
    static std::optional<MakeBrowser> maker;
    return maker;
}
} // namespace

MakeBrowser BrowserModule::load()
{
    if (!known())
        known() = loadFrom(Platform::moduleFolder());
    return *known();
}

MakeBrowser BrowserModule::loadFrom(const QString &folder)
{
    const QFileInfo file(folder + QLatin1Char('/') +
                         Platform::libraryFileName(QStringLiteral("FriendUIWeb")));
    if (folder.isEmpty() || !file.isAbsolute() || !file.isFile()) {
        LOG_INFO("there is no browser module");
        return nullptr;
    }
    QLibrary library(file.filePath());
    library.setLoadHints(QLibrary::PreventUnloadHint); // its texts and types live on
    const auto maker = reinterpret_cast<MakeBrowser>(library.resolve(BrowserEntryPoint));
    if (!maker)
        LOG_ERROR("the browser module cannot be loaded: " << logText(library.errorString()));
    return maker;
}

void BrowserModule::replace(MakeBrowser maker)
{
    known() = maker;
}

void BrowserModule::reset()
{
    known().reset();
}
