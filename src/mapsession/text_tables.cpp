// SPDX-License-Identifier: MIT

#include "mapsession/text_tables.h"

#include "mapsession/table_plugin.h"

namespace quandrel {

SessionResult<std::vector<NamedTable>> ReadTextTables(const std::filesystem::path& programFolder,
                                                      const std::string& path) {
    const auto source = LoadTableSource(FindTablePlugin(TablePluginFolders(programFolder)));
    if (!source) {
        return SessionError{kSessionFileError,
                            "The plug-in for tables cannot be used. " + source.Error().text};
    }
    return (*source)->ReadTexts(path);
}

} // namespace quandrel
