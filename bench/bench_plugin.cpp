// What the module costs a host: loading it, and showing its pane.
#include "bench/support/firstshow.h"
#include "bench/support/ratio.h"
#include "hostapi/plugininterface.h"

#include <QPluginLoader>

#include <dlfcn.h>

namespace {

// Many in one round: a single one is too short to be measured.
constexpr int Loads = 50;

double loadModule()
{
    bool loaded = true;
    const double cost = Ratio::cpuPerUnit(Loads, [&] {
        for (int i = 0; i < Loads; ++i) {
            QPluginLoader loader(QStringLiteral(FRIENDUI_MODULE));
            loader.setLoadHints(QLibrary::LoadHints());
            loaded = loaded && qobject_cast<PluginInterface *>(loader.instance());
            loaded = loader.unload() && loaded;
        }
    });
    return loaded ? cost : -1;
}

double loadEmptyLibrary()
{
    bool loaded = true;
    const double cost = Ratio::cpuPerUnit(Loads, [&] {
        for (int i = 0; i < Loads; ++i) {
            void *handle = dlopen(FRIENDUI_EMPTY_LIBRARY, RTLD_LAZY);
            loaded = loaded && handle && dlclose(handle) == 0;
        }
    });
    return loaded ? cost : -1;
}

const bool registered[] = {
    Ratio::add({"Loading the module, dlopen of an empty library", "load", Ratio::atMostTimes(2)},
               [] {
                   return Ratio::Pair{loadModule, loadEmptyLibrary};
               }),
    Ratio::add({"First show of 10,000 cached contacts, first empty tree view", "show",
                Ratio::atMostTimes(3), "ms"},
               [] {
                   return Ratio::Pair{[] { return FirstShow::measure(FirstShow::Pane); },
                                      [] { return FirstShow::measure(FirstShow::EmptyTree); }};
               }),
};

} // namespace
