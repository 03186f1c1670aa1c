#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"

#include <gsf/gsf.h>

namespace brackwater {

namespace {

void dropMessage(const gchar*, GLogLevelFlags, const gchar*, gpointer) {}

/// The number of live objects, and the message handler from before the first.
int livingLibraries = 0;
GLogFunc handlerBefore = nullptr;

} // namespace

CompoundFileLibrary::CompoundFileLibrary() {
    if (livingLibraries++ > 0)
        return;
    handlerBefore = g_log_set_default_handler(dropMessage, nullptr);
    gsf_init();
}

CompoundFileLibrary::~CompoundFileLibrary() {
    if (--livingLibraries > 0)
        return;
    gsf_shutdown();
    g_log_set_default_handler(handlerBefore, nullptr);
}

} // namespace brackwater
