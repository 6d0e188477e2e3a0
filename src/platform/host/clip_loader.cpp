/*
 * Loads the module with the FFmpeg readers when the first clip needs it, from the folder next to
 * this library.
 */
#include "platform/host/clip_module.h"

#include <QLoggingCategory>

#include <atomic>
#include <cstdlib>
#include <filesystem>

#include <dlfcn.h>

namespace HostPlatform {

namespace {

Q_LOGGING_CATEGORY(mediaLog, "qvl.platform.media", QtWarningMsg)

using Opener = decltype(qvlOpenClip);

// The full path of this library. Determined when the library is loaded, because the path used then
// may be relative to the working directory of that moment.
char *const ownFile = [] {
    static const char inThisLibrary = 0;
    Dl_info info;
    return dladdr(&inThisLibrary, &info) ? realpath(info.dli_fname, nullptr) : nullptr;
}();

// Null when the module is missing. Never unloaded: its readers may be in use.
Opener *loadOpener()
{
    if (!ownFile)
        return nullptr;
    const auto module = std::filesystem::path(ownFile).replace_filename(QVL_CLIP_MODULE);
    void *const handle = dlopen(module.c_str(), RTLD_LAZY | RTLD_LOCAL);
    void *const function = handle ? dlsym(handle, "qvlOpenClip") : nullptr;
    if (!function)
        qCWarning(mediaLog, "clips are not measured: %s", dlerror());
    return reinterpret_cast<Opener *>(function);
}

} // namespace

Measure openInModule(Octets clip, const char *reader)
{
    static std::atomic<Opener *> opener = nullptr;
    if (!opener)
        opener = loadOpener();
    Measure measure;
    if (Opener *const open = opener)
        open(clip, reader, &measure);
    return measure;
}

} // namespace HostPlatform
