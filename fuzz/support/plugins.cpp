/*
 * Qt's plugins for programs that are copied to systems without Qt: the folder "plugins" next to the
 * program, if there is one. Qt has no setting for it in programs without a QCoreApplication.
 */
#include <cstdlib>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

// True for the initialization of the variable.
[[maybe_unused]] const bool isSet = [] {
    std::error_code error;
    const fs::path plugins = fs::read_symlink("/proc/self/exe", error).parent_path() / "plugins";
    return fs::is_directory(plugins, error) && setenv("QT_PLUGIN_PATH", plugins.c_str(), 0) == 0;
}();

} // namespace
