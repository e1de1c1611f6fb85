// SPDX-License-Identifier: MIT

#include "mapsession/table_plugin.h"

#include <cstdlib>
#include <string>
#include <system_error>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace quandrel {
namespace {

namespace fs = std::filesystem;

#ifdef _WIN32

constexpr const char* kPluginFile = "quandrel_mapsession_gdal.dll";

/// Loads a library and returns its function, or nullptr and the reason.
TableSourceFunction LoadFunction(const fs::path& plugin, std::string& why) {
    const HMODULE library = LoadLibraryW(plugin.c_str());
    if (!library) {
        why = "Error " + std::to_string(GetLastError());
        return nullptr;
    }
    return reinterpret_cast<TableSourceFunction>(
        reinterpret_cast<void*>(GetProcAddress(library, kTableSourceFunction)));
}

#else

constexpr const char* kPluginFile = "quandrel_mapsession_gdal.so";

/// Loads a library and returns its function, or nullptr and the reason.
TableSourceFunction LoadFunction(const fs::path& plugin, std::string& why) {
    void* const library = dlopen(plugin.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        why = dlerror();
        return nullptr;
    }
    return reinterpret_cast<TableSourceFunction>(dlsym(library, kTableSourceFunction));
}

#endif

SessionError NotAvailable(const std::string& why) {
    return {kSessionFileError, "The map link is not available: " + why};
}

} // namespace

std::vector<fs::path> TablePluginFolders(const fs::path& programFolder) {
#ifdef QUANDREL_TEST_BUILD
    return TablePluginFolders(programFolder, PluginVariable::Followed);
#else
    return TablePluginFolders(programFolder, PluginVariable::Ignored);
#endif
}

std::vector<fs::path> TablePluginFolders(const fs::path& programFolder, PluginVariable variable) {
    std::vector<fs::path> folders;
    const char* const own = std::getenv("QUANDREL_PLUGIN_DIR");
    if (variable == PluginVariable::Followed && own != nullptr && *own != '\0') {
        folders.emplace_back(own);
    }
    folders.push_back(programFolder);
    folders.push_back(programFolder.parent_path() / "lib" / "quandrel" / "plugins");
    return folders;
}

fs::path FindTablePlugin(std::span<const fs::path> folders) {
    for (const fs::path& folder : folders) {
        std::error_code error;
        if (fs::is_regular_file(folder / kPluginFile, error)) {
            return folder / kPluginFile;
        }
    }
    return {};
}

SessionResult<std::shared_ptr<TableSource>> LoadTableSource(const fs::path& plugin) {
    if (plugin.empty()) {
        return NotAvailable(std::string(kPluginFile) + " is not installed");
    }
    std::string why;
    const TableSourceFunction make = LoadFunction(plugin, why);
    if (!make) {
        return NotAvailable(why.empty() ? plugin.string() + " is another library" : why);
    }
    std::shared_ptr<TableSource> source(make(kTableSourceVersion));
    if (!source) {
        return NotAvailable(plugin.string() + " belongs to another version");
    }
    return source;
}

} // namespace quandrel
