#include "shell/VUTesterBundle.h"

#include "shell/VUTesterSettings.h"

#include <dlfcn.h>

const VUTesterBundle &vutester_VistraUITesterFrameworkBundle()
{
    static const VUTesterBundle bundle = [] {
        VUTesterBundle b;
        // The library that defines the settings base is the module's bundle.
        Dl_info info{};
        if (dladdr(reinterpret_cast<const void *>(&VUTesterSettings::isTransientKey), &info) && info.dli_fname)
            b.m_libraryPath = QString::fromLocal8Bit(info.dli_fname);
        return b;
    }();
    return bundle;
}
