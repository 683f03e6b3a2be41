// SPDX-License-Identifier: GPL-3.0-or-later
// The three functions that VST 3 workstations look for.
#include "daw/vst3/Vst3Factory.h"

extern "C" {

SMTG_EXPORT_SYMBOL bool ModuleEntry(void*);
SMTG_EXPORT_SYMBOL bool ModuleExit();

bool ModuleEntry(void*) { return true; }

bool ModuleExit() { return true; }

} // extern "C"

Steinberg::IPluginFactory* PLUGIN_API GetPluginFactory()
{
    Vst3Factory* factory = Vst3Factory::instance();
    factory->addRef();
    return factory;
}
