// SPDX-License-Identifier: MIT
//
// Tables from files of map programs, read by GDAL. This is a library of its own, loaded when a map
// session starts, because GDAL adds much to a program's start time and memory.
//
// Input: the path of a file, from mapsession/table_plugin.h. Output: a table source
// (mapsession/table_source.h) with columns, rows and shapes, or the reason for a failure. No other
// part of the program uses GDAL.

#include "mapsession/gdal/gdal_text_tables.h"
#include "mapsession/gdal/gdal_tools.h"
#include "mapsession/gdal/gdal_written_table.h"
#include "mapsession/table_source.h"

#include <cpl_conv.h>
#include <cpl_error.h>
#include <cpl_string.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <array>
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

SessionColumnKind KindOf(OGRFieldType type) {
    const bool isNumber = type == OFTInteger || type == OFTInteger64 || type == OFTReal;
    return isNumber ? SessionColumnKind::Number : SessionColumnKind::Text;
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
        RegisterTextDrivers();
    }

    SessionResult<std::vector<NamedTable>> ReadTexts(const std::string& path) override {
        return TextTablesOf(path);
    }

    SessionResult<std::string> BytesOf(const WrittenTable& table,
                                       const std::string& ending) override {
        return BytesOfTable(table, ending);
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
            return RefusedFile(path);
        }
        return ReadAll(*dataset, path, file.stem().u8string());
    }

private:
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
                return RefusedFile(path);
            }
        }
        if (tables.empty()) {
            return RefusedFile(path);
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
