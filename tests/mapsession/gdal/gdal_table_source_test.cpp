// SPDX-License-Identifier: MIT
//
// Files that GDAL writes, read back through the library of readers and a whole session.

#include "mapsession/embedded_sessions.h"
#include "mapsession/table_plugin.h"
#include "written_tables.h"

#include <dlfcn.h>

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <fstream>

namespace quandrel {
namespace {

SessionResult<std::vector<SessionTable>> Read(const std::string& path) {
    static const auto source =
        LoadTableSource(fs::path(QUANDREL_PLUGIN_FOLDER) / "quandrel_mapsession_gdal.so");
    EXPECT_TRUE(source);
    return (*source)->OpenTables(path);
}

double NumberOf(std::string_view text) {
    double number = std::nan("");
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

void ExpectMeasurements(const SessionTable& table) {
    ASSERT_EQ(table.RowCount(), kRows);
    int column = 1;
    while (table.Column(column).name != "Dip") {
        ASSERT_LT(++column, table.ColumnCount());
    }
    EXPECT_EQ(table.Column(column + 1).name, "DipDir");
    EXPECT_EQ(table.Column(column + 2).kind, SessionColumnKind::Number);
    EXPECT_EQ(table.Column(column + 3).kind, SessionColumnKind::Text);
    for (int row = 1; row <= kRows; ++row) {
        const Measurement measurement = MeasurementOf(row);
        ASSERT_EQ(NumberOf(table.Cell(row, column)), measurement.dip) << row;
        ASSERT_EQ(NumberOf(table.Cell(row, column + 1)), measurement.dipDirection) << row;
        ASSERT_EQ(table.Cell(row, column + 2), std::to_string(measurement.number)) << row;
        ASSERT_EQ(table.Cell(row, column + 3), measurement.type) << row;
        const MapShape shape = table.ShapeOf(row);
        ASSERT_EQ(shape.size(), 1U) << row;
        ASSERT_EQ(shape[0].kind, MapPartKind::Points);
        // Some of the formats store coordinates as steps of a grid, here of a few centimetres.
        ASSERT_NEAR(shape[0].points[0].x, measurement.x, 0.03) << row;
        ASSERT_NEAR(shape[0].points[0].y, measurement.y, 0.03) << row;
    }
}

struct Format {
    const char* driver;
    const char* file;
    const char* option;
};

class EveryFormat : public testing::TestWithParam<Format> {};

TEST_P(EveryFormat, GivesBackFiveThousandPoints) {
    const ScratchFolder scratch;
    const std::string path = scratch.File(GetParam().file);
    std::vector<const char*> options;
    if (GetParam().option) {
        options.push_back(GetParam().option);
    }
    WriteMeasurements(GetParam().driver, path, options);
    const auto tables = Read(path);
    ASSERT_TRUE(tables) << tables.Error().text;
    ASSERT_EQ(tables->size(), 1U);
    EXPECT_EQ(tables->front().Name(), "measured dips");
    EXPECT_EQ(tables->front().Path(), path);
    ExpectMeasurements(tables->front());
}

INSTANTIATE_TEST_SUITE_P(GdalTableSource, EveryFormat,
                         testing::Values(Format{"MapInfo File", "measured dips.tab", nullptr},
                                         Format{"MapInfo File", "measured dips.mif", "FORMAT=MIF"},
                                         Format{"ESRI Shapefile", "measured dips.shp", nullptr},
                                         Format{"GPKG", "measured dips.gpkg", nullptr},
                                         Format{"GeoJSON", "measured dips.geojson", nullptr}),
                         [](const auto& information) {
                             return fs::path(information.param.file).extension().string().substr(1);
                         });

TEST(GdalTableSource, ReadsTextsWithCoordinateColumns) {
    const ScratchFolder scratch;

    struct Row {
        const char* file;
        const char* text;
    };

    const std::vector<Row> files = {
        {"a.csv", "X,Y,Dip\n10.5,-20,45\n11,21,\n"},
        {"b.csv", "Dip;Y_COORD;X_COORD\n45;-20;10.5\n;21;11\n"},
        {"c.csv", "Northing,Dip,Easting\n-20,45,10.5\n21,,11\n"},
    };
    for (const Row& row : files) {
        std::ofstream(scratch.path / row.file) << row.text;
        const auto tables = Read(scratch.File(row.file));
        ASSERT_TRUE(tables) << row.file;
        const SessionTable& table = tables->front();
        ASSERT_EQ(table.RowCount(), 2) << row.file;
        ASSERT_EQ(table.ColumnCount(), 3) << row.file;
        ASSERT_EQ(table.ShapeOf(1).size(), 1U) << row.file;
        EXPECT_EQ(table.ShapeOf(1)[0].points[0], (MapPoint{10.5, -20})) << row.file;
        EXPECT_EQ(table.ShapeOf(2)[0].points[0], (MapPoint{11, 21})) << row.file;
        for (int column = 1; column <= 3; ++column) {
            EXPECT_EQ(table.Column(column).kind, SessionColumnKind::Number) << row.file;
            if (table.Column(column).name == "Dip") {
                EXPECT_EQ(table.Cell(1, column), "45");
                EXPECT_EQ(table.Cell(2, column), "");
            }
        }
    }
}

TEST(GdalTableSource, ReadsATextWithoutCoordinatesAsRowsAlone) {
    const ScratchFolder scratch;
    std::ofstream(scratch.path / "plain.csv") << "Dip,Name\n45,a\n50,b\n";
    const auto tables = Read(scratch.File("plain.csv"));
    ASSERT_TRUE(tables);
    EXPECT_EQ(tables->front().RowCount(), 2);
    EXPECT_FALSE(tables->front().IsMappable());
}

TEST(GdalTableSource, ReadsLinesAreasAndCollections) {
    const ScratchFolder scratch;
    const std::string path = scratch.File("shapes.geojson");
    {
        Writer writer("GeoJSON", path, "shapes", wkbUnknown);
        writer.AddField("id", OFTInteger);
        for (const char* const wkt :
             {"LINESTRING (0 0, 10 0, 10 10)",
              "POLYGON ((0 0, 9 0, 9 9, 0 9, 0 0), (3 3, 3 6, 6 6, 6 3, 3 3))",
              "MULTIPOINT ((1 1), (2 2), (3 3))",
              "MULTIPOLYGON (((0 0, 1 0, 1 1, 0 0)), ((5 5, 6 5, 6 6, 5 5)))",
              "GEOMETRYCOLLECTION (POINT (7 7), LINESTRING (7 7, 8 8))"}) {
            writer.Add(*writer.NewFeature(), wkt);
        }
        writer.Add(*writer.NewFeature());
    }
    const auto tables = Read(path);
    ASSERT_TRUE(tables);
    const SessionTable& table = tables->front();
    ASSERT_EQ(table.RowCount(), 6);
    const auto kinds = [&table](int row) {
        std::string text;
        for (const MapShapePart& part : table.ShapeOf(row)) {
            text += "PLR"[static_cast<int>(part.kind)] + std::to_string(part.points.size());
        }
        return text;
    };
    EXPECT_EQ(kinds(1), "L3");
    EXPECT_EQ(kinds(2), "R5R5");
    EXPECT_EQ(kinds(3), "P1P1P1");
    EXPECT_EQ(kinds(4), "R4R4");
    EXPECT_EQ(kinds(5), "P1L2");
    EXPECT_EQ(kinds(6), "");
    EXPECT_GT(DistanceToShape({4.5, 4.5}, table.ShapeOf(2)), 0); // in the hole
}

TEST(GdalTableSource, OpensEachLayerOfAFileAsATable) {
    const ScratchFolder scratch;
    const std::string path = scratch.File("area.gpkg");
    {
        Writer writer("GPKG", path, "dips", wkbPoint);
        writer.AddField("Dip", OFTReal);
        writer.Add(*writer.NewFeature(), "POINT (1 2)");
        OGRLayer* const second = writer.Dataset().CreateLayer("faults", nullptr, wkbPoint, nullptr);
        ASSERT_NE(second, nullptr);
    }
    const auto tables = Read(path);
    ASSERT_TRUE(tables);
    ASSERT_EQ(tables->size(), 2U);
    EXPECT_EQ((*tables)[0].Name(), "dips");
    EXPECT_EQ((*tables)[1].Name(), "faults");
    EXPECT_EQ((*tables)[1].RowCount(), 0);
}

TEST(GdalTableSource, ReadsATableWithoutRows) {
    const ScratchFolder scratch;
    const std::string path = scratch.File("none.tab");
    {
        Writer writer("MapInfo File", path, "none", wkbPoint);
        writer.AddField("Dip", OFTReal);
    }
    const auto tables = Read(path);
    ASSERT_TRUE(tables) << tables.Error().text;
    EXPECT_EQ(tables->front().RowCount(), 0);
    EXPECT_EQ(tables->front().ColumnCount(), 1);
}

TEST(GdalTableSource, GivesEmptyCellsForValuesThatAreNotThere) {
    const ScratchFolder scratch;
    const std::string path = scratch.File("nulls.gpkg");
    {
        Writer writer("GPKG", path, "nulls", wkbPoint);
        writer.AddField("Dip", OFTReal);
        writer.AddField("Name", OFTString);
        const OGRFeatureUniquePtr feature = writer.NewFeature();
        feature->SetFieldNull(0);
        feature->SetField(1, "x");
        writer.Add(*feature, "POINT EMPTY");
    }
    const auto tables = Read(path);
    ASSERT_TRUE(tables);
    EXPECT_EQ(tables->front().Cell(1, 1), "");
    EXPECT_EQ(tables->front().Cell(1, 2), "x");
    EXPECT_FALSE(tables->front().IsMappable());
}

TEST(GdalTableSource, TellsWhatItCannotRead) {
    const ScratchFolder scratch;
    std::ofstream(scratch.path / "broken.tab") << "!table\n!version 300\nnothing of the kind\n";
    std::ofstream(scratch.path / "broken.shp") << "shape?";
    std::ofstream(scratch.path / "empty.csv");
    std::ofstream(scratch.path / "picture.png") << "\x89PNG\r\n";
    const std::vector<std::string> paths = {
        scratch.File("nowhere.tab"),
        scratch.File("broken.tab"),
        scratch.File("broken.shp"),
        scratch.File("picture.png"),
        scratch.path.string(),
        "",
        "{\"type\": \"Point\", \"coordinates\": [1, 2]}",
        "/vsimem/x.geojson",
    };
    for (const std::string& path : paths) {
        const auto tables = Read(path);
        ASSERT_FALSE(tables) << path;
        EXPECT_EQ(tables.Error().code, kSessionFileError);
        EXPECT_NE(tables.Error().text.find(path), std::string::npos);
    }
}

TEST(GdalTableSource, TellsATableWhoseRowsAreCutOff) {
    const ScratchFolder scratch;
    WriteMeasurements("MapInfo File", scratch.File("cut.tab"));
    fs::resize_file(scratch.path / "cut.dat", fs::file_size(scratch.path / "cut.dat") / 2);
    const auto tables = Read(scratch.File("cut.tab"));
    ASSERT_FALSE(tables);
    EXPECT_EQ(tables.Error().code, kSessionFileError);
}

TEST(QuandrelMakeTableSource, RefusesAnotherVersion) {
    const std::string file =
        (fs::path(QUANDREL_PLUGIN_FOLDER) / "quandrel_mapsession_gdal.so").string();
    void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    const auto make = reinterpret_cast<TableSourceFunction>(dlsym(library, kTableSourceFunction));
    ASSERT_NE(make, nullptr);
    EXPECT_EQ(make(kTableSourceVersion + 1), nullptr);
    EXPECT_NE(std::unique_ptr<TableSource>(make(kTableSourceVersion)), nullptr);
}

TEST(EmbeddedMapSessions, LeadsFromAFileToASelection) {
    setenv("QUANDREL_PLUGIN_DIR", QUANDREL_PLUGIN_FOLDER, 1);
    const ScratchFolder scratch;
    const std::string path = scratch.File("dips.tab");
    WriteMeasurements("MapInfo File", path);
    EmbeddedMapSessions sessions(scratch.path, nullptr);
    EXPECT_TRUE(sessions.IsRegistered());
    const std::unique_ptr<MapSession> session = sessions.Start();
    ASSERT_NE(session, nullptr) << sessions.StartError();

    ASSERT_TRUE(session->Do("Open Table \"" + path + "\"").IsDone());
    EXPECT_EQ(session->Eval("TableInfo(dips,8)").text, "5000");
    ASSERT_TRUE(session->Do("Fetch Rec 4999 From dips").IsDone());
    EXPECT_EQ(session->Eval("dips.Col(3)").text, std::to_string(4999 * 3 - 10));
    ASSERT_TRUE(session->Do("Map From dips").IsDone());

    // Rows 1 to 70 and 71 to 141 of the grid of 71 columns lie on the first two lines; the left
    // edge is column 0, which row 71 begins.
    const MapReply found = session->Eval("SearchRect(1,2600000,1199999,2600021.5,1200008)");
    EXPECT_EQ(found.text, "5"); // rows 1 and 2; 71, 72 and 73
    std::string rows;
    for (int i = 1; i <= 5; ++i) {
        rows += session->Eval("SearchInfo(" + std::to_string(i) + ",2)").text + " ";
    }
    EXPECT_EQ(rows, "1 2 71 72 73 ");
    ASSERT_TRUE(session->Do("Select * From dips Where RowID = 71 or RowID = 73").IsDone());
    EXPECT_EQ(session->Eval("SelectionInfo(3)").text, "2");
    unsetenv("QUANDREL_PLUGIN_DIR");
}

} // namespace
} // namespace quandrel
