// SPDX-License-Identifier: MIT

#include "mapsession/gdal/gdal_text_tables.h"

#include "mapsession/gdal/gdal_tools.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace quandrel {

namespace {

namespace fs = std::filesystem;

/// The formats that are read; no others are tried.
constexpr std::array<const char*, 7> kDrivers = {
    "XLSX", "ODS", "GPKG", "ESRI Shapefile", "GeoJSON", "MapInfo File", nullptr};

constexpr GIntBig kMostRows = 1 << 20; ///< of a sheet

/// Sheets are read as they are: a guess could turn headings into data, or data into headings.
class PlainSheets {
public:
    PlainSheets() {
        for (const auto& [option, value] : kOptions) {
            CPLSetThreadLocalConfigOption(option, value);
        }
    }

    ~PlainSheets() {
        for (const auto& [option, value] : kOptions) {
            CPLSetThreadLocalConfigOption(option, nullptr);
        }
    }

    PlainSheets(const PlainSheets&) = delete;
    PlainSheets& operator=(const PlainSheets&) = delete;

private:
    static constexpr std::array<std::pair<const char*, const char*>, 4> kOptions = {{
        {"OGR_XLSX_HEADERS", "DISABLE"},
        {"OGR_XLSX_FIELD_TYPES", "STRING"},
        {"OGR_ODS_HEADERS", "DISABLE"},
        {"OGR_ODS_FIELD_TYPES", "STRING"},
    }};
};

/// Whether a file takes its rows from other tables, by the words of its own language.
bool NamesOtherTables(const std::string& path) {
    if (!EQUAL(CPLGetExtension(path.c_str()), "tab")) {
        return false;
    }
    std::ifstream stream(fs::u8path(path), std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(stream), {});
    std::ranges::transform(text, text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text.find("isseamless") != std::string::npos
           || text.find("create view") != std::string::npos;
}

/// A cell as the line parser reads it back: on one line, without tabs, in quotes where it begins
/// with one.
void AddCell(std::string cell, std::string& line) {
    std::ranges::replace_if(
        cell, [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
    if (!cell.starts_with('"')) {
        line += cell;
        return;
    }
    line += '"';
    for (const char c : cell) {
        line += c == '"' ? std::string("\"\"") : std::string(1, c);
    }
    line += '"';
}

bool IsOfPoints(OGRLayer& layer) {
    return wkbFlatten(layer.GetGeomType()) == wkbPoint;
}

std::string HeadingsOf(const OGRFeatureDefn& definition, bool hasPlaces) {
    std::string line;
    for (int i = 0; i < definition.GetFieldCount(); ++i) {
        line += i > 0 ? "\t" : "";
        AddCell(Utf8(definition.GetFieldDefn(i)->GetNameRef()), line);
    }
    return line + (hasPlaces ? (line.empty() ? "x\ty" : "\tx\ty") : "") + "\n";
}

std::string PlaceOf(const OGRFeature& feature) {
    const OGRGeometry* const geometry = feature.GetGeometryRef();
    if (geometry == nullptr || geometry->IsEmpty()
        || wkbFlatten(geometry->getGeometryType()) != wkbPoint) {
        return "\t";
    }
    return NumberText(geometry->toPoint()->getX()) + "\t" + NumberText(geometry->toPoint()->getY());
}

bool HasFailed() {
    return CPLGetLastErrorType() >= CE_Failure;
}

/// @param isSheet       its first row is one of the file
/// @param[out] badRow   the first row that cannot be read, or 0
std::string TextOfLayer(OGRLayer& layer, bool isSheet, GIntBig& badRow) {
    const OGRFeatureDefn& definition = *layer.GetLayerDefn();
    const bool hasPlaces = !isSheet && IsOfPoints(layer);
    std::string text = isSheet ? std::string() : HeadingsOf(definition, hasPlaces);
    GIntBig line = 0;
    for (const OGRFeatureUniquePtr& feature : layer) {
        // Rows that a sheet leaves out are blank lines, so that lines have the numbers of rows.
        for (++line; isSheet && line < feature->GetFID() && line < kMostRows; ++line) {
            text += '\n';
        }
        for (int i = 0; i < definition.GetFieldCount(); ++i) {
            text += i > 0 ? "\t" : "";
            AddCell(CellOf(*feature, i), text);
        }
        text += hasPlaces ? (definition.GetFieldCount() > 0 ? "\t" : "") + PlaceOf(*feature) : "";
        text += '\n';
        if (HasFailed()) {
            badRow = line;
            return text;
        }
    }
    badRow = HasFailed() ? line + 1 : 0;
    return text;
}

} // namespace

void RegisterTextDrivers() {
    RegisterOGRXLSX();
    RegisterOGRODS();
}

SessionResult<std::vector<NamedTable>> TextTablesOf(const std::string& path) {
    // Some formats would take a name that is not a file for a network address or for data.
    std::error_code error;
    const fs::path file = fs::u8path(path);
    if (!fs::is_regular_file(file, error)) {
        return SessionError{kSessionFileError, "There is no file " + path};
    }
    if (NamesOtherTables(path)) {
        return SessionError{kSessionFileError,
                            "The table " + path + " takes its rows from other files"};
    }
    const QuietGdal quiet;
    const PlainSheets plain;
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(
        path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY, kDrivers.data(), nullptr, nullptr));
    if (!dataset) {
        return RefusedFile(path);
    }
    const std::string driver = dataset->GetDriverName();
    const bool isSheet = driver == "XLSX" || driver == "ODS";
    std::vector<NamedTable> tables;
    for (OGRLayer* const layer : dataset->GetLayers()) {
        CPLErrorReset();
        GIntBig badRow = 0;
        tables.push_back({Utf8(layer->GetName()), TextOfLayer(*layer, isSheet, badRow)});
        if (badRow > 0) {
            SessionError refused = RefusedFile(path);
            refused.text +=
                " (row " + std::to_string(badRow) + " of \"" + tables.back().name + "\")";
            return refused;
        }
    }
    if (tables.empty()) {
        return RefusedFile(path);
    }
    return tables;
}

} // namespace quandrel
