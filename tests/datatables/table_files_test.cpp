// SPDX-License-Identifier: MIT
//
// Spreadsheets and tables of map data as plots: the files are written by GDAL, and read by the
// program through its plug-in.

#include "batch/batch_fixture.h"
#include "input/table_files.h"
#include "mapsession/gdal/written_tables.h"
#include "session/start.h"

#include <cstdlib>

namespace quandrel {
namespace {

constexpr int kTableRows = 200;

struct Bed {
    double dip;
    double dipDirection;
    std::string rock;
};

Bed BedOf(int row) {
    return {row % 90 + 0.5, row * 7 % 3600 / 10.0, row % 3 == 0 ? "marl \"a\"" : "schist"};
}

/// Writes the beds of 200 rows, each with a place.
void WriteBeds(const std::string& driver, const std::string& path, bool hasPlaces) {
    Writer writer(driver, path, "beds", hasPlaces ? wkbPoint : wkbNone);
    writer.AddField("dipdir", OFTReal);
    writer.AddField("dip", OFTReal);
    writer.AddField("rock", OFTString, 20);
    for (int row = 1; row <= kTableRows; ++row) {
        const Bed bed = BedOf(row);
        const OGRFeatureUniquePtr feature = writer.NewFeature();
        feature->SetField("dipdir", bed.dipDirection);
        feature->SetField("dip", bed.dip);
        feature->SetField("rock", bed.rock.c_str());
        if (hasPlaces) {
            OGRPoint point(7 + row * 0.001, 46);
            feature->SetGeometry(&point);
        }
        writer.Add(*feature);
    }
}

std::string TextOfBeds() {
    std::string text = "dipdir,dip,rock\n";
    for (int row = 1; row <= kTableRows; ++row) {
        const Bed bed = BedOf(row);
        std::string direction = std::to_string(bed.dipDirection);
        std::string dip = std::to_string(bed.dip);
        text += direction + "," + dip + "," + bed.rock + "\n";
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
        TableFiles::now.read = {};
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
    WriteBeds("XLSX", PathOf("beds.xlsx"), false);
    WriteBeds("ODS", PathOf("beds.ods"), false);
    WriteBeds("GPKG", PathOf("beds.gpkg"), true);
    WriteBeds("ESRI Shapefile", PathOf("beds.shp"), true);
    WriteBeds("GeoJSON", PathOf("beds.geojson"), true);
    WriteBeds("MapInfo File", PathOf("beds.tab"), true);
    for (const char* name :
         {"beds.xlsx", "beds.ods", "beds.gpkg", "beds.shp", "beds.geojson", "beds.tab"}) {
        EXPECT_EQ(PlotOf(name), expected) << name;
    }
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
