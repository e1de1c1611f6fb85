// SPDX-License-Identifier: MIT

#include "mapsession/gdal/gdal_written_table.h"

#include "mapsession/gdal/gdal_tools.h"

#include <cpl_vsi.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cstddef>
#include <cstdint>

namespace quandrel {

namespace {

constexpr const char* kSpreadsheet = ".xlsx";
constexpr const char* kGeoPackage = ".gpkg";

constexpr std::size_t kMostRowsOfSheet = (1U << 20U) - 1;

/// Names of GeoPackages that no heading has.
constexpr const char* kIdOption = "FID=quandrel_row";
constexpr const char* kPointOption = "GEOMETRY_NAME=quandrel_place";

/// A file in memory, which is removed with this.
class FileInMemory {
public:
    explicit FileInMemory(const std::string& ending)
        : path_("/vsimem/quandrel-table-" + std::to_string(reinterpret_cast<std::uintptr_t>(this))
                + ending) {}

    ~FileInMemory() { VSIUnlink(path_.c_str()); }

    FileInMemory(const FileInMemory&) = delete;
    FileInMemory& operator=(const FileInMemory&) = delete;

    [[nodiscard]] const std::string& Path() const { return path_; }

    [[nodiscard]] std::string Bytes() const {
        vsi_l_offset length = 0;
        const GByte* const bytes = VSIGetMemFileBuffer(path_.c_str(), &length, FALSE);
        return bytes == nullptr ? std::string() : std::string(bytes, bytes + length);
    }

private:
    std::string path_;
};

/// Writes a table to a layer of a file.
class TableWriter {
public:
    TableWriter(const WrittenTable& table, GDALDataset& file, bool hasPoints)
        : table_(table)
        , hasPlaceColumns_(!hasPoints && !table.places.empty()) {
        CPLStringList options;
        if (hasPoints) {
            options.AddString(kIdOption);
            options.AddString(kPointOption);
        }
        layer_ = file.CreateLayer(table.name.c_str(), nullptr,
                                  hasPoints && !table.places.empty() ? wkbPoint : wkbNone, options);
    }

    /// False when the file did not take all of it.
    [[nodiscard]] bool Write() {
        if (layer_ == nullptr || !AddFields()) {
            return false;
        }
        for (std::size_t row = 0; row < table_.rows.size(); ++row) {
            if (!AddRow(row)) {
                return false;
            }
        }
        return true;
    }

private:
    [[nodiscard]] bool AddField(const std::string& heading, bool isNumber) {
        OGRFieldDefn field(heading.c_str(), isNumber ? OFTReal : OFTString);
        return layer_->CreateField(&field) == OGRERR_NONE;
    }

    [[nodiscard]] bool AddFields() {
        for (const WrittenTable::Column& column : table_.columns) {
            if (!AddField(column.heading, column.isNumber)) {
                return false;
            }
        }
        return !hasPlaceColumns_ || (AddField("x", true) && AddField("y", true));
    }

    [[nodiscard]] bool AddRow(std::size_t row) {
        OGRFeature feature(layer_->GetLayerDefn());
        int field = 0;
        for (const std::string& cell : table_.rows[row]) {
            if (!cell.empty() && table_.columns[static_cast<std::size_t>(field)].isNumber) {
                feature.SetField(field, CPLAtof(cell.c_str()));
            } else if (!cell.empty()) {
                feature.SetField(field, cell.c_str());
            }
            ++field;
        }
        if (!table_.places.empty() && table_.places[row]) {
            AddPlace(*table_.places[row], field, feature);
        }
        return layer_->CreateFeature(&feature) == OGRERR_NONE;
    }

    void AddPlace(const WrittenTable::Place& place, int field, OGRFeature& feature) const {
        if (hasPlaceColumns_) {
            feature.SetField(field, place[0]);
            feature.SetField(field + 1, place[1]);
        } else {
            const OGRPoint point(place[0], place[1]);
            feature.SetGeometry(&point);
        }
    }

    const WrittenTable& table_;
    bool hasPlaceColumns_; ///< of a spreadsheet, in place of points
    OGRLayer* layer_ = nullptr;
};

SessionError NotWritten() {
    const std::string reason = CPLGetLastErrorMsg();
    return {kSessionFileError,
            "The table could not be written" + (reason.empty() ? "" : ": " + Utf8(reason.c_str()))};
}

} // namespace

SessionResult<std::string> BytesOfTable(const WrittenTable& table, const std::string& ending) {
    const QuietGdal quiet;
    const bool isMap = ending == kGeoPackage;
    GDALDriver* const driver =
        isMap || ending == kSpreadsheet
            ? GetGDALDriverManager()->GetDriverByName(isMap ? "GPKG" : "XLSX")
            : nullptr;
    if (driver == nullptr) {
        return SessionError{kSessionFileError, "There is no writer for " + ending};
    }
    if (!isMap && table.rows.size() > kMostRowsOfSheet) {
        return SessionError{kSessionFileError, "A sheet holds no more than "
                                                   + std::to_string(kMostRowsOfSheet)
                                                   + " rows below its headings"};
    }
    const FileInMemory memory(ending);
    GDALDatasetUniquePtr file(driver->Create(memory.Path().c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    // Only GeoPackages have transactions; without one each row would be one.
    if (!file || (isMap && file->StartTransaction() != OGRERR_NONE)
        || !TableWriter(table, *file, isMap).Write()
        || (isMap && file->CommitTransaction() != OGRERR_NONE)) {
        return NotWritten();
    }
    CPLErrorReset();
    file.reset(); // writes what is left
    std::string bytes = memory.Bytes();
    if (CPLGetLastErrorType() >= CE_Failure || bytes.empty()) {
        return NotWritten();
    }
    return bytes;
}

} // namespace quandrel
