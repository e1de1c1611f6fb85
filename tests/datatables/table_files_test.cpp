// SPDX-License-Identifier: MIT
//
// Spreadsheets and tables of map data as plots: the files are written by GDAL, and read by the
// program through its plug-in.

#include "batch/batch_fixture.h"
#include "input/table_files.h"
#include "mapsession/gdal/written_tables.h"
#include "session/start.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace quandrel {
namespace {

constexpr int kTableRows = 200;

struct Bed {
    double dip;
    double dipDirection;
    std::string rock;
    double x;
    double y;
};

Bed BedOf(int row) {
    return {row % 90 + 0.5, row * 7 % 3600 / 10.0, row % 3 == 0 ? "marl \"a\"" : "schist",
            7 + row / 1024.0, 46 - row / 512.0};
}

/// Writes the beds of 200 rows, with their places as points or in two columns.
void WriteBeds(const std::string& driver, const std::string& path, bool hasPoints) {
    std::vector<const char*> options;
    if (driver == "MapInfo File") {
        options.push_back("BOUNDS=0,0,64,64"); // its coordinates are parts of them
    }
    Writer writer(driver, path, "beds", hasPoints ? wkbPoint : wkbNone, {}, options);
    writer.AddField("dipdir", OFTReal);
    writer.AddField("dip", OFTReal);
    writer.AddField("rock", OFTString, 20);
    if (!hasPoints) {
        writer.AddField("x", OFTReal);
        writer.AddField("y", OFTReal);
    }
    for (int row = 1; row <= kTableRows; ++row) {
        const Bed bed = BedOf(row);
        const OGRFeatureUniquePtr feature = writer.NewFeature();
        feature->SetField("dipdir", bed.dipDirection);
        feature->SetField("dip", bed.dip);
        feature->SetField("rock", bed.rock.c_str());
        if (hasPoints) {
            OGRPoint point(bed.x, bed.y);
            feature->SetGeometry(&point);
        } else {
            feature->SetField("x", bed.x);
            feature->SetField("y", bed.y);
        }
        writer.Add(*feature);
    }
}

std::string TextOfBeds() {
    std::string text = "dipdir,dip,rock,x,y\n";
    for (int row = 1; row <= kTableRows; ++row) {
        const Bed bed = BedOf(row);
        std::string direction = std::to_string(bed.dipDirection);
        std::string dip = std::to_string(bed.dip);
        char place[64];
        std::snprintf(place, sizeof place, "%.10f,%.10f", bed.x, bed.y);
        text += direction + "," + dip + "," + bed.rock + "," + place + "\n";
    }
    return text;
}

class TableFilesTest : public BatchTest {
protected:
    void SetUp() override {
        BatchTest::SetUp();
        setenv("QUANDREL_PLUGIN_DIR", QUANDREL_PLUGIN_FOLDER, 1);
        UseTablePlugin("/");
    }

    void TearDown() override {
        TableFiles::now = {};
        unsetenv("QUANDREL_PLUGIN_DIR");
        BatchTest::TearDown();
    }

    /// Rows, texts and names of the plot of a file.
    nlohmann::json PlotOf(const std::string& name, const std::string& format = "auto") {
        const nlohmann::json dump = Dump("format " + format + "; open \"FOLDER/" + name + "\"");
        return {{"rows", dump["rows"]},
                {"count", dump["record"]["NumValidData"]},
                {"kind", dump["record"]["DataKind"]},
                {"text", dump["record"]["AppNonNumName"]}};
    }

    /// Expects the places of the beds, to the digits of the coarsest kind of file.
    static void ExpectPlaces(const nlohmann::json& rows, const std::string& name) {
        ASSERT_EQ(rows["places"].size(), std::size_t{kTableRows}) << name;
        for (int row = 1; row <= kTableRows; ++row) {
            const nlohmann::json& place = rows["places"][static_cast<std::size_t>(row) - 1];
            EXPECT_NEAR(place[0].get<double>(), BedOf(row).x, 1e-7) << name;
            EXPECT_NEAR(place[1].get<double>(), BedOf(row).y, 1e-7) << name;
        }
    }

    [[nodiscard]] std::string PathOf(const std::string& name) const {
        return (folder / name).string();
    }

    /// What a file that is refused is told to be.
    std::string Refusal(const std::string& name) {
        log.str("");
        EXPECT_NE(Run("format auto; open \"" + name + "\""), "") << name;
        return log.str();
    }
};

TEST_F(TableFilesTest, OfAllKindsGiveEqualPlots) {
    Write("beds.csv", TextOfBeds());
    const nlohmann::json expected = PlotOf("beds.csv");
    ASSERT_EQ(expected["count"], kTableRows);
    ExpectPlaces(expected["rows"], "beds.csv");
    WriteBeds("XLSX", PathOf("beds.xlsx"), false);
    WriteBeds("ODS", PathOf("beds.ods"), false);
    WriteBeds("GPKG", PathOf("beds.gpkg"), true);
    WriteBeds("ESRI Shapefile", PathOf("beds.shp"), true);
    WriteBeds("GeoJSON", PathOf("beds.geojson"), true);
    WriteBeds("MapInfo File", PathOf("beds.tab"), true);
    for (const char* name :
         {"beds.xlsx", "beds.ods", "beds.gpkg", "beds.shp", "beds.geojson", "beds.tab"}) {
        nlohmann::json plot = PlotOf(name);
        ExpectPlaces(plot["rows"], name);
        plot["rows"]["places"] = expected["rows"]["places"];
        EXPECT_EQ(plot, expected) << name;
    }
}

TEST_F(TableFilesTest, AreWrittenAndReadBack) {
    WriteBeds("GPKG", PathOf("beds.gpkg"), true);
    const std::string opened = "format auto; open \"FOLDER/beds.gpkg\"; ";
    const nlohmann::json expected = PlotOf("beds.gpkg");
    ASSERT_EQ(expected["rows"]["places"].size(), std::size_t{kTableRows});
    for (const char* name : {"out.xlsx", "out.gpkg", "out.csv", "out.qpx"}) {
        ASSERT_EQ(Run(opened + "save \"FOLDER/" + name + "\""), "") << name << log.str();
        EXPECT_EQ(PlotOf(name), expected) << name;
    }
    const auto written = ReadTables(PathOf("out.gpkg"));
    ASSERT_TRUE(written);
    EXPECT_TRUE(written->front().text.starts_with("dip\tdip direction\trock\tx\ty\n"))
        << written->front().text.substr(0, 80);
}

TEST_F(TableFilesTest, AnyTextIsWrittenAsItIs) {
    Write("odd.txt", "30\t120\t=1+1\n45\t270\t<b>&amp;\n60\t10\t0012\n61\t11\t\n"
                     "62\t12\t\"a \"\"b\"\"\"\n63\t13\t\u03b1\u4e2d\n");
    const std::string opened = "format columns=0,1,2,3,4,5,6,7,8,2 appended=text textname=DIP; "
                               "open \"FOLDER/odd.txt\"; ";
    const nlohmann::json expected = Dump(opened)["rows"]["gAppText"];
    for (const char* name : {"odd.xlsx", "odd.gpkg"}) {
        ASSERT_EQ(Run(opened + "save \"FOLDER/" + name + "\""), "") << name << log.str();
        EXPECT_EQ(Dump("format header=yes columns=0,1,2,3,4,5,6,7,8,2 appended=text; open "
                       "\"FOLDER/"
                       + std::string(name) + "\"")["rows"]["gAppText"],
                  expected)
            << name;
        const auto written = ReadTables(PathOf(name));
        ASSERT_TRUE(written);
        EXPECT_TRUE(written->front().text.starts_with("dip\tdip direction\tDIP 2\n"))
            << written->front().text.substr(0, 80);
    }
}

TEST_F(TableFilesTest, ThatCannotBeWrittenLeaveTheFormerFile) {
    Write("p.txt", "30\t120\n");
    Write("kept.xlsx", "former");
    TableFiles::now.write = [](const WrittenTable&, const std::string&) -> Result<std::string> {
        return Failure{"no room"};
    };
    EXPECT_NE(Run("open \"FOLDER/p.txt\"; save \"FOLDER/kept.xlsx\""), "");
    EXPECT_NE(log.str().find("no room"), std::string::npos) << log.str();
    TableFiles::now.write = {};
    log.str("");
    EXPECT_NE(Run("open \"FOLDER/p.txt\"; save \"FOLDER/kept.xlsx\""), "");
    EXPECT_NE(log.str().find("need the plug-in for tables"), std::string::npos) << log.str();
    std::ifstream file(PathOf("kept.xlsx"), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "former");
}

TEST_F(TableFilesTest, HeadingsOfSheetsAreFoundAsInText) {
    // A heading of numbers only in text form, and a title above it.
    Writer writer("XLSX", PathOf("titled.xlsx"), "beds", wkbNone);
    writer.AddField("Field1", OFTString);
    writer.AddField("Field2", OFTString);
    for (const auto& [first, second] :
         {std::pair{"dip", "dip direction"}, std::pair{"52", "142"}, std::pair{"43", "35"}}) {
        const OGRFeatureUniquePtr feature = writer.NewFeature();
        feature->SetField(0, first);
        feature->SetField(1, second);
        writer.Add(*feature);
    }
    writer.Dataset().FlushCache(true);
    const auto tables = ReadTables(PathOf("titled.xlsx"));
    ASSERT_TRUE(tables) << tables.Error();
    EXPECT_EQ(tables->front().name, "beds");
    EXPECT_NE(tables->front().text.find("dip\tdip direction\n52\t142\n43\t35\n"), std::string::npos)
        << tables->front().text;
}

TEST_F(TableFilesTest, ASheetIsChosenByItsName) {
    {
        Writer writer("XLSX", PathOf("two.xlsx"), "notes", wkbNone);
        writer.AddField("remark", OFTString);
        const OGRFeatureUniquePtr remark = writer.NewFeature();
        remark->SetField(0, "none");
        writer.Add(*remark);
        OGRLayer* beds = writer.Dataset().CreateLayer("beds", nullptr, wkbNone, nullptr);
        OGRFieldDefn dip("dip", OFTReal);
        OGRFieldDefn direction("dip direction", OFTReal);
        ASSERT_EQ(beds->CreateField(&dip), OGRERR_NONE);
        ASSERT_EQ(beds->CreateField(&direction), OGRERR_NONE);
        for (const double angle : {20.0, 30.0, 40.0}) {
            const OGRFeatureUniquePtr row(OGRFeature::CreateFeature(beds->GetLayerDefn()));
            row->SetField(0, angle);
            row->SetField(1, 5 * angle);
            ASSERT_EQ(beds->CreateFeature(row.get()), OGRERR_NONE);
        }
    }
    EXPECT_NE(Refusal("FOLDER/two.xlsx").find("no format can be suggested"), std::string::npos);
    EXPECT_EQ(PlotOf("two.xlsx", "primary=plane header=yes columns=0,1 table=beds")["count"], 3);
    log.str("");
    EXPECT_NE(Run("format table=other; open \"FOLDER/two.xlsx\""), "");
    EXPECT_NE(log.str().find("the file has no table 'other'"), std::string::npos) << log.str();
}

TEST_F(TableFilesTest, BrokenFilesAreToldAndLoadNothing) {
    WriteBeds("XLSX", PathOf("whole.xlsx"), false);
    WriteBeds("GPKG", PathOf("whole.gpkg"), true);
    for (const std::string ending : {"xlsx", "gpkg"}) {
        std::ifstream file(PathOf("whole." + ending), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        for (const std::size_t part : {std::size_t{0}, std::size_t{10}, bytes.size() / 2}) {
            Write("cut." + ending, bytes.substr(0, part));
            EXPECT_NE(Refusal("FOLDER/cut." + ending).find("cannot be opened"), std::string::npos)
                << ending << " " << part;
        }
    }
    Write("words.geojson", "{\"type\": \"FeatureCollection\", \"features\": [");
    EXPECT_NE(Refusal("FOLDER/words.geojson").find("cannot be opened"), std::string::npos);
}

TEST_F(TableFilesTest, CutFilesOfAllKindsAreNeverHalfLoaded) {
    const std::array<std::array<std::string, 3>, 7> kKinds = {{{"XLSX", "xlsx", "xlsx"},
                                                               {"ODS", "ods", "ods"},
                                                               {"GPKG", "gpkg", "gpkg"},
                                                               {"ESRI Shapefile", "shp", "shp"},
                                                               {"ESRI Shapefile", "shp", "dbf"},
                                                               {"GeoJSON", "geojson", "geojson"},
                                                               {"MapInfo File", "tab", "dat"}}};
    for (const auto& [driver, ending, part] : kKinds) {
        const bool hasPoints = driver != "XLSX" && driver != "ODS";
        WriteBeds(driver, PathOf("cut." + ending), hasPoints);
        const auto whole = std::filesystem::file_size(PathOf("cut." + part));
        for (const double share : {0.9, 0.5, 0.1}) {
            std::filesystem::resize_file(
                PathOf("cut." + part),
                static_cast<std::uintmax_t>(static_cast<double>(whole) * share));
            const auto tables = ReadTables(PathOf("cut." + ending));
            EXPECT_FALSE(tables) << driver << " " << part << " " << share << "\n"
                                 << (tables ? tables->front().text.substr(0, 200) : "");
        }
    }
}

TEST_F(TableFilesTest, ABrokenRowIsTold) {
    WriteBeds("ESRI Shapefile", PathOf("cut.shp"), true);
    std::filesystem::resize_file(PathOf("cut.dbf"),
                                 std::filesystem::file_size(PathOf("cut.dbf")) / 2);
    const std::string told = Refusal("FOLDER/cut.shp");
    EXPECT_NE(told.find("of \"cut\")"), std::string::npos) << told;
    EXPECT_NE(told.find("(row "), std::string::npos) << told;
}

TEST_F(TableFilesTest, VirtualAndRemoteSourcesAreRefused) {
    for (const char* name : {"/vsimem/beds.xlsx", "/vsicurl/http://127.0.0.1/beds.geojson",
                             "http://127.0.0.1/beds.geojson", "/vsizip/a.zip/beds.shp"}) {
        EXPECT_NE(Run(std::string("format auto; open \"") + name + "\""), "") << name;
        EXPECT_FALSE(ReadTables(name)) << name;
    }
    Write("seam.tab", "!table\n!version 300\nDefinition Table\n  Type NATIVE\n\"\\IsSeamless\" = "
                      "\"TRUE\"\n");
    const auto seamless = ReadTables(PathOf("seam.tab"));
    ASSERT_FALSE(seamless);
    EXPECT_NE(seamless.Error().find("takes its rows from other files"), std::string::npos);
}

TEST_F(TableFilesTest, TextsWithTheirEndingsStayTexts) {
    Write("beds.tab", "dip\tdip direction\n52\t142\n43\t35\n");
    EXPECT_FALSE(IsTableFile(PathOf("beds.tab")));
    EXPECT_EQ(PlotOf("beds.tab")["count"], 2);
    EXPECT_TRUE(IsTableFile("Beds.XLSX"));
    EXPECT_FALSE(IsTableFile("beds.csv"));
}

TEST_F(TableFilesTest, WithoutThePluginTheyAreToldToNeedIt) {
    WriteBeds("XLSX", PathOf("beds.xlsx"), false);
    setenv("QUANDREL_PLUGIN_DIR", "/nowhere", 1);
    EXPECT_NE(Refusal("FOLDER/beds.xlsx").find("The plug-in for tables cannot be used."),
              std::string::npos);
    TableFiles::now.read = {};
    EXPECT_NE(Refusal("FOLDER/beds.xlsx").find("need the plug-in for tables"), std::string::npos);
}

TEST_F(TableFilesTest, SuggestionsAreMadeForThem) {
    WriteBeds("ODS", PathOf("beds.ods"), false);
    ASSERT_EQ(Run("suggest \"FOLDER/beds.ods\""), "");
    const auto list = nlohmann::json::parse(out.str());
    ASSERT_FALSE(list.empty());
    EXPECT_GE(list[0]["probability"].get<double>(), 0.9);
}

} // namespace
} // namespace quandrel
