// SPDX-License-Identifier: MIT

#include "input/table_files.h"

#include "core/letter_case.h"
#include "input/text_file.h"

#include <algorithm>
#include <array>

namespace quandrel {

namespace {

constexpr const char* kMapInfoEnding = ".tab";
constexpr std::array<const char*, 7> kEndings = {".xlsx",    ".ods", ".gpkg",       ".shp",
                                                 ".geojson", ".mif", kMapInfoEnding};

} // namespace

TableFiles TableFiles::now;

bool HasTableEnding(const std::string& path) {
    const std::string lower = LowerCase(path);
    return std::ranges::any_of(kEndings,
                               [&lower](const char* ending) { return lower.ends_with(ending); });
}

bool IsTableFile(const std::string& path) {
    if (LowerCase(path).ends_with(kMapInfoEnding)) {
        constexpr std::string_view kStart = "!table";
        const Result<std::string> start = FirstBytes(path, kStart.size());
        return start && LowerCase(*start) == kStart;
    }
    return HasTableEnding(path);
}

Result<std::vector<NamedTable>> ReadTables(const std::string& path) {
    if (!TableFiles::now.read) {
        return Failure{"Spreadsheets and tables of map data need the plug-in for tables, which is "
                       "not installed. Save the table as text (CSV), and open that."};
    }
    return TableFiles::now.read(path);
}

Result<std::string> BytesOfTable(const WrittenTable& table, const std::string& ending) {
    if (!TableFiles::now.write) {
        return Failure{"Spreadsheets and GeoPackages need the plug-in for tables, which is not "
                       "installed. Save the rows as text (CSV)."};
    }
    return TableFiles::now.write(table, ending);
}

Result<std::string> TextOfFile(const std::string& path, std::vector<NamedTable>& tables) {
    tables.clear();
    if (!IsTableFile(path)) {
        return ReadTextBytes(path);
    }
    Result<std::vector<NamedTable>> read = ReadTables(path);
    if (!read || read->empty()) {
        return Failure{read ? "The file has no table." : read.Error()};
    }
    tables = std::move(*read);
    return tables.front().text;
}

} // namespace quandrel
