// SPDX-License-Identifier: MIT
//
// Map files for tests, written by GDAL.

#pragma once

#include <gtest/gtest.h>
#include <ogrsf_frmts.h>

#include <array>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quandrel {

namespace fs = std::filesystem;

inline constexpr int kRows = 5000;

/// What a row of the files holds. Of 91 rows one has a dip above 90 degrees.
struct Measurement {
    double x;
    double y;
    double dip;
    double dipDirection;
    int number;
    std::string type;
};

inline Measurement MeasurementOf(int row) {
    static constexpr std::array<const char*, 3> kTypes = {"bedding", "joint", "F\xC3\xA4lte"};
    return {2600000 + row % 71 * 10.5,
            1200000 + row / 71 * 7.25,
            row % 91 + 0.5,
            row * 7 % 3600 / 10.0,
            row * 3 - 10,
            kTypes[static_cast<std::size_t>(row % 3)]};
}

/// A folder for one test, removed with it.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = (fs::temp_directory_path() / "quandrel_tables_XXXXXX").string();
        path = mkdtemp(name.data());
    }

    ~ScratchFolder() { fs::remove_all(path); }

    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] std::string File(const std::string& name) const { return (path / name).string(); }

    fs::path path;
};

/// Makes a dataset with one layer.
class Writer {
public:
    Writer(const std::string& driver, const std::string& path, const std::string& layerName,
           OGRwkbGeometryType type, std::vector<const char*> options = {},
           std::vector<const char*> layerOptions = {}) {
        GDALAllRegister();
        CPLSetConfigOption("OGR_SQLITE_SYNCHRONOUS", "OFF");
        options.push_back(nullptr);
        layerOptions.push_back(nullptr);
        dataset_.reset(
            GetGDALDriverManager()
                ->GetDriverByName(driver.c_str())
                ->Create(path.c_str(), 0, 0, 0, GDT_Unknown, const_cast<char**>(options.data())));
        layer_ = dataset_->CreateLayer(layerName.c_str(), nullptr, type,
                                       const_cast<char**>(layerOptions.data()));
    }

    void AddField(const char* name, OGRFieldType type, int width = 0) {
        OGRFieldDefn field(name, type);
        field.SetWidth(width);
        ASSERT_EQ(layer_->CreateField(&field), OGRERR_NONE);
    }

    [[nodiscard]] OGRFeatureUniquePtr NewFeature() const {
        return OGRFeatureUniquePtr(OGRFeature::CreateFeature(layer_->GetLayerDefn()));
    }

    void Add(OGRFeature& feature, const char* wkt = nullptr) {
        if (wkt) {
            OGRGeometry* geometry = nullptr;
            OGRGeometryFactory::createFromWkt(wkt, nullptr, &geometry);
            feature.SetGeometryDirectly(geometry);
        }
        ASSERT_EQ(layer_->CreateFeature(&feature), OGRERR_NONE);
    }

    GDALDataset& Dataset() { return *dataset_; }

private:
    GDALDatasetUniquePtr dataset_;
    OGRLayer* layer_ = nullptr;
};

inline void WriteMeasurements(const std::string& driver, const std::string& path,
                              std::vector<const char*> options = {}) {
    Writer writer(driver, path, fs::path(path).stem().string(), wkbPoint, std::move(options));
    writer.AddField("Dip", OFTReal);
    writer.AddField("DipDir", OFTReal);
    writer.AddField("Number", OFTInteger);
    writer.AddField("Type", OFTString, 20);
    for (int row = 1; row <= kRows; ++row) {
        const Measurement measurement = MeasurementOf(row);
        const OGRFeatureUniquePtr feature = writer.NewFeature();
        feature->SetField("Dip", measurement.dip);
        feature->SetField("DipDir", measurement.dipDirection);
        feature->SetField("Number", measurement.number);
        // These formats hold western characters.
        const bool isWestern = driver == "MapInfo File";
        const std::string& type = measurement.type;
        feature->SetField("Type", isWestern && row % 3 == 2 ? "F\xE4lte" : type.c_str());
        OGRPoint point(measurement.x, measurement.y);
        feature->SetGeometry(&point);
        writer.Add(*feature);
    }
}

} // namespace quandrel
