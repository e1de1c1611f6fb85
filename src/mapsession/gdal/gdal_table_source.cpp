// SPDX-License-Identifier: MIT
//
// Tables from files of map programs, read by GDAL. This is a library of its own, loaded when a map
// session starts, because GDAL adds much to a program's start time and memory.
//
// Input: the path of a file, from mapsession/table_plugin.h. Output: a table source
// (mapsession/table_source.h) with columns, rows and shapes, or the reason for a failure. No other
// part of the program uses GDAL.

#include "mapsession/table_source.h"

#include <cpl_conv.h>
#include <cpl_error.h>
#include <cpl_string.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <memory>
#include <new>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

/// The formats that are read; no others are tried.
constexpr std::array<const char*, 6> kDrivers = {
    "MapInfo File", "ESRI Shapefile", "GPKG", "GeoJSON", "CSV", nullptr};

/// Coordinates in a text file are in columns of these names; numbers are recognised by their form.
constexpr std::array<const char*, 5> kCsvOptions = {
    "AUTODETECT_TYPE=YES", "KEEP_GEOM_COLUMNS=YES",
    "X_POSSIBLE_NAMES=x,x_coord,xcoord,x_coordinate,easting,east,lon,long,longitude",
    "Y_POSSIBLE_NAMES=y,y_coord,ycoord,y_coordinate,northing,north,lat,latitude", nullptr};

/// Suppresses GDAL's console messages while it lives; the last one is available.
class QuietGdal {
public:
    QuietGdal() {
        CPLErrorReset();
        CPLPushErrorHandler(CPLQuietErrorHandler);
    }

    ~QuietGdal() { CPLPopErrorHandler(); }

    QuietGdal(const QuietGdal&) = delete;
    QuietGdal& operator=(const QuietGdal&) = delete;
};

/// A text of the file as UTF-8. A file that does not state its encoding is taken as Western
/// European.
std::string Utf8(const char* text) {
    if (CPLIsUTF8(text, -1)) {
        return text;
    }
    char* const recoded = CPLRecode(text, "CP1252", CPL_ENC_UTF8);
    std::string utf8 = recoded;
    CPLFree(recoded);
    return utf8;
}

template <class Number>
std::string NumberText(Number number) {
    if (!std::isfinite(number)) {
        return {};
    }
    std::array<char, 400> buffer{};
    const std::to_chars_result end = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                                   number, std::chars_format::fixed);
    return {buffer.data(), end.ptr};
}

SessionColumnKind KindOf(OGRFieldType type) {
    const bool isNumber = type == OFTInteger || type == OFTInteger64 || type == OFTReal;
    return isNumber ? SessionColumnKind::Number : SessionColumnKind::Text;
}

std::string CellOf(const OGRFeature& feature, int field) {
    if (!feature.IsFieldSetAndNotNull(field)) {
        return {};
    }
    const OGRFieldDefn& definition = *feature.GetFieldDefnRef(field);
    switch (definition.GetType()) {
    case OFTInteger:
    case OFTInteger64:
        return std::to_string(feature.GetFieldAsInteger64(field));
    case OFTReal:
        return definition.GetSubType() == OFSTFloat32
                   ? NumberText(static_cast<float>(feature.GetFieldAsDouble(field)))
                   : NumberText(feature.GetFieldAsDouble(field));
    default:
        return Utf8(feature.GetFieldAsString(field));
    }
}

void AddCurve(const OGRSimpleCurve& curve, MapPartKind kind, SessionTable& table) {
    std::vector<MapPoint> points;
    points.reserve(static_cast<std::size_t>(curve.getNumPoints()));
    for (int i = 0; i < curve.getNumPoints(); ++i) {
        points.push_back({curve.getX(i), curve.getY(i)});
    }
    table.AddPart(kind, points);
}

/// Adds a geometry, which must not have curves, to the table's last row. Parts other than points,
/// lines and areas are left out.
void AddGeometry(const OGRGeometry& geometry, SessionTable& table) {
    if (geometry.IsEmpty()) {
        return;
    }
    const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
    if (type == wkbPoint) {
        const MapPoint point{geometry.toPoint()->getX(), geometry.toPoint()->getY()};
        table.AddPart(MapPartKind::Points, std::span(&point, 1));
    } else if (type == wkbLineString) {
        AddCurve(*geometry.toLineString(), MapPartKind::Line, table);
    } else if (type == wkbPolygon || type == wkbTriangle) {
        for (const OGRLinearRing* const ring : *geometry.toPolygon()) {
            AddCurve(*ring, MapPartKind::Ring, table);
        }
    } else if (OGR_GT_IsSubClassOf(type, wkbGeometryCollection)) {
        for (const OGRGeometry* const part : *geometry.toGeometryCollection()) {
            AddGeometry(*part, table);
        }
    }
}

void AddShape(const OGRFeature& feature, SessionTable& table) {
    const OGRGeometry* const geometry = feature.GetGeometryRef();
    if (!geometry) {
        return;
    }
    if (!geometry->hasCurveGeometry()) {
        AddGeometry(*geometry, table);
        return;
    }
    const std::unique_ptr<OGRGeometry> straight(geometry->getLinearGeometry());
    if (straight) {
        AddGeometry(*straight, table);
    }
}

SessionTable ReadLayer(OGRLayer& layer, const std::string& name, const std::string& path) {
    SessionTable table(name, path);
    const OGRFeatureDefn& definition = *layer.GetLayerDefn();
    const int fields = definition.GetFieldCount();
    for (int i = 0; i < fields; ++i) {
        const OGRFieldDefn& field = *definition.GetFieldDefn(i);
        table.AddColumn(Utf8(field.GetNameRef()), KindOf(field.GetType()));
    }
    std::vector<std::string> cells(static_cast<std::size_t>(fields));
    for (const OGRFeatureUniquePtr& feature : layer) {
        for (int i = 0; i < fields; ++i) {
            cells[static_cast<std::size_t>(i)] = CellOf(*feature, i);
        }
        table.AddRow(cells);
        AddShape(*feature, table);
    }
    return table;
}

class GdalTableSource : public TableSource {
public:
    GdalTableSource() {
        RegisterOGRTAB();
        RegisterOGRShape();
        RegisterOGRGeoPackage();
        RegisterOGRGeoJSON();
        RegisterOGRCSV();
    }

    SessionResult<std::vector<SessionTable>> OpenTables(const std::string& path) override {
        // Some formats would take a name that is not a file for a network address or for data.
        std::error_code error;
        const fs::path file = fs::u8path(path);
        if (!fs::is_regular_file(file, error)) {
            return SessionError{kSessionFileError, "There is no file " + path};
        }
        const QuietGdal quiet;
        const bool isCsv = EQUAL(CPLGetExtension(path.c_str()), "csv");
        const GDALDatasetUniquePtr dataset(
            GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY, kDrivers.data(),
                              isCsv ? kCsvOptions.data() : nullptr, nullptr));
        if (!dataset) {
            return Refused(path);
        }
        return ReadAll(*dataset, path, file.stem().u8string());
    }

private:
    static SessionError Refused(const std::string& path) {
        std::string text = "The file " + path + " cannot be opened as a table";
        if (const char* const why = CPLGetLastErrorMsg(); why && *why != '\0') {
            text += ": " + Utf8(why);
        }
        return {kSessionFileError, text};
    }

    static SessionResult<std::vector<SessionTable>>
    ReadAll(GDALDataset& dataset, const std::string& path, const std::u8string& stem) {
        const bool isOnly = dataset.GetLayerCount() == 1;
        std::vector<SessionTable> tables;
        for (OGRLayer* const layer : dataset.GetLayers()) {
            CPLErrorReset();
            const std::string name =
                isOnly ? std::string(stem.begin(), stem.end()) : Utf8(layer->GetName());
            tables.push_back(ReadLayer(*layer, name, path));
            if (CPLGetLastErrorType() >= CE_Failure) {
                return Refused(path);
            }
        }
        if (tables.empty()) {
            return Refused(path);
        }
        return tables;
    }
};

} // namespace
} // namespace quandrel

#ifdef _WIN32
#define QUANDREL_EXPORT __declspec(dllexport)
#else
#define QUANDREL_EXPORT __attribute__((visibility("default")))
#endif

extern "C" QUANDREL_EXPORT quandrel::TableSource* QuandrelMakeTableSource(int version) {
    if (version != quandrel::kTableSourceVersion) {
        return nullptr;
    }
    return new (std::nothrow) quandrel::GdalTableSource;
}
