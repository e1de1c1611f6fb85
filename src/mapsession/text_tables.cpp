// SPDX-License-Identifier: MIT

#include "mapsession/text_tables.h"

#include "mapsession/table_plugin.h"

#include <memory>

namespace quandrel {

namespace {

SessionResult<std::shared_ptr<TableSource>> Plugin(const std::filesystem::path& programFolder) {
    auto source = LoadTableSource(FindTablePlugin(TablePluginFolders(programFolder)));
    if (!source) {
        return SessionError{kSessionFileError,
                            "The plug-in for tables cannot be used. " + source.Error().text};
    }
    return source;
}

} // namespace

SessionResult<std::vector<NamedTable>> ReadTextTables(const std::filesystem::path& programFolder,
                                                      const std::string& path) {
    const auto source = Plugin(programFolder);
    if (!source) {
        return source.Error();
    }
    return (*source)->ReadTexts(path);
}

SessionResult<std::string> BytesOfTableFile(const std::filesystem::path& programFolder,
                                            const WrittenTable& table, const std::string& ending) {
    const auto source = Plugin(programFolder);
    if (!source) {
        return source.Error();
    }
    return (*source)->BytesOf(table, ending);
}

} // namespace quandrel
