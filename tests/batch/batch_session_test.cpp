// SPDX-License-Identifier: MIT

#include "batch_fixture.h"
#include "core/atomic_file.h"
#include "core/data_format.h"
#include "core/plot_store.h"
#include "qt/plot_picture.h"
#include "stereo/axis_rows.h"
#include "support/qt_application.h"

#include <QImage>
#include <nlohmann/json.hpp>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace quandrel {
namespace {

const ::testing::Environment* const application =
    ::testing::AddGlobalTestEnvironment(new QtApplication);

class Batch : public BatchTest {};

TEST_F(Batch, DumpsAPlotWhole) {
    const nlohmann::json json = Dump("open \"FOLDER/planes.txt\"");
    EXPECT_EQ(json["slot"], 1);
    EXPECT_EQ(json["title"], "planes.txt: 1   [Planes]     ");
    EXPECT_EQ(json["record"]["NumValidData"], 3);
    EXPECT_EQ(json["record"]["ClassTable"].size(), 13U);
    EXPECT_EQ(json["rows"]["gDataDip"], (std::vector<int>{30, 45, 60}));
    EXPECT_EQ(json["rows"]["gDataSymbol"][0], "050302");
    EXPECT_EQ(json["table"]["index"].size(), 3U);
    EXPECT_EQ(json["load"]["rowsValid"], 3);
    EXPECT_EQ(json["legend"][0], "Data: planes.txt");
    EXPECT_FALSE(json["operations"].empty());
    EXPECT_FALSE(json["rows"].contains("gAppText"));
}

TEST_F(Batch, TellsTheLineOfTheFirstCommandThatFails) {
    EXPECT_EQ(Run("blank\nblank\nnonsense 1\nblank"), "line 3: nonsense: there is no such command");
    EXPECT_EQ(Run("replot"), "line 1: replot: no plot is open");
    EXPECT_EQ(Run("blank \"x"), "line 1: a quote is not closed");
}

TEST_F(Batch, CommentsAndQuotesAreWords) {
    EXPECT_EQ(Run("# all of this is a comment; nonsense\nblank # so is this\n"
                  "set DescriptionText \"two words; \\\"and\\\" a # sign\"\nget DescriptionText"),
              "");
    EXPECT_EQ(out.str(), "two words; \"and\" a # sign\n");
}

TEST_F(Batch, SetsAndGetsFieldsAndCells) {
    EXPECT_EQ(Run("blank; set RoseSectorSize 22.5; get RoseSectorSize; set ClassTable[2][1] slate; "
                  "get ClassTable[2][1]; get OverlayKind"),
              "");
    EXPECT_TRUE(out.str().starts_with("22.5\nslate\n[0,0,"));
    for (const char* const bad :
         {"set Nothing 1", "set OverlayRows[0] 9", "set NumData 5", "set PlotKind 7",
          "set PlotKind x", "set PlotKind 1.5", "set OverlayKind 1", "set OverlayKind[99] 1",
          "set OverlayKind[ 1", "set RoseShape 99999", "set DataKind", "get Nothing",
          "get AppendedMin[0][0]"}) {
        EXPECT_NE(Run(std::string("blank; ") + bad), "") << bad;
    }
}

TEST_F(Batch, WordsThatACommandDoesNotKnowAreRefusedByName) {
    const std::vector<std::pair<std::string, std::string>> lines = {
        {"open \"FOLDER/planes.txt\" b", "'b' is one word too many"},
        {"open a=b.txt",
         "'a=b.txt' is not an argument of the command; put words with '=' in quotes"},
        {"merge a b", "'b' is one word too many"},
        {"overlay a b", "'b' is one word too many"},
        {"blank x", "'x' is one word too many"},
        {"close x", "'x' is one word too many"},
        {"activate 1 2", "'2' is one word too many"},
        {"answer", "a button is missing"},
        {"answer ok maybe", "'maybe' is not a button"},
        {"answer button=ok", "'button=ok' is not a button"},
        {"data planes lines", "'lines' is one word too many"},
        {"plot equalarea rose", "'rose' is one word too many"},
        {"symbols 0 1", "'1' is one word too many"},
        {"set DataKind 1 2", "'2' is one word too many"},
        {"get DataKind PlotKind", "'PlotKind' is one word too many"},
        {"replot x", "'x' is one word too many"},
        {"recalculate now=yes",
         "'now=yes' is not an argument of the command; put words with '=' in quotes"},
        {"stats foo", "'foo' is not one of normal, advanced, reference"},
        {"stats normal advanced", "'advanced' is one word too many"},
        {"save a.txt b.txt", "'b.txt' is one word too many"},
        {"dump a.json b.json", "'b.json' is one word too many"},
        {"export a.png sise=3", "'sise=3' is not an argument of the command"},
        {"export a.png b.png", "'b.png' is one word too many"},
        {"export a.png size", "'size' lacks a value"},
        {"export a.png size=100 size=200", "'size' is given twice"},
    };
    for (const auto& [line, error] : lines) {
        const std::string name = line.substr(0, line.find(' '));
        EXPECT_EQ(Run("blank\n" + line), "line 2: " + name + ": " + error);
    }
    EXPECT_EQ(Run("blank; stats normal; stats advanced; answer ok cancel"), "");
}

TEST_F(Batch, AWordMayBeginWithAnEqualsSign) {
    EXPECT_EQ(
        Run("blank; set DescriptionText =5; get DescriptionText; set DescriptionText \"a=b\"; "
            "get DescriptionText"),
        "");
    EXPECT_EQ(out.str(), "=5\na=b\n");
}

TEST_F(Batch, TheSetThatIsShownIsPlottedAsWhatItIs) {
    Write("faults.txt", "60\t90\t20\t350\n");
    const std::string open = "open \"FOLDER/faults.txt\"";
    const std::string format = "columns=0,1,2,2,3,2 primary=plane ";
    const auto shown =
        Dump("format " + format + "secondary=line data=planes showsecondary=yes; " + open);
    EXPECT_EQ(shown["record"]["DataKind"], kLines);
    EXPECT_NEAR(shown["table"]["plunge"][0], 20 * 3.141592653589793 / 180, 1e-12);
    const auto set = Dump("format " + format + "secondary=line data=planes; " + open
                          + "; set ShowSecondary -1; replot");
    EXPECT_EQ(set["record"]["DataKind"], kLines);
    EXPECT_EQ(set["table"], shown["table"]);
    const auto back = Dump("format " + format + "secondary=line showsecondary=yes; " + open
                           + "; set ShowSecondary 0; replot");
    EXPECT_EQ(back["record"]["DataKind"], kPlanes);
    EXPECT_NEAR(back["table"]["plunge"][0], 30 * 3.141592653589793 / 180, 1e-12);
    const auto polar =
        Dump("format " + format + "secondary=line data=polar; " + open + "; set ShowSecondary 1");
    EXPECT_EQ(polar["record"]["DataKind"], kPolarLines);
    const auto planes =
        Dump("format " + format + "secondary=plane data=lines; " + open + "; set ShowSecondary 1");
    EXPECT_EQ(planes["record"]["DataKind"], kPlanes);
    EXPECT_NEAR(planes["table"]["plunge"][0], 70 * 3.141592653589793 / 180, 1e-12);
    EXPECT_EQ(Run("open \"FOLDER/planes.txt\"; set ShowSecondary 1"),
              "line 1: set: the plot holds no secondary set");
    EXPECT_EQ(Run("open \"FOLDER/planes.txt\"; set ShowSecondary 0"), "");
}

TEST_F(Batch, ADumpThatCannotBeWrittenNamesItsPath) {
    EXPECT_EQ(Run("blank; dump \"FOLDER\""),
              "line 1: dump: '" + folder.string() + "' could not be written: it is a folder");
}

TEST_F(Batch, AFieldThatMovesRowsMovesThem) {
    const auto areas = Dump("open \"FOLDER/planes.txt\"")["table"]["x"];
    const auto angles = Dump("open \"FOLDER/planes.txt\"; set PlotKind 2; replot")["table"]["x"];
    EXPECT_NE(areas, angles);
    EXPECT_EQ(angles, Dump("open \"FOLDER/planes.txt\"; plot equalangle")["table"]["x"]);
}

TEST_F(Batch, WrongFormatsAreRefusedWhole) {
    for (const char* const bad :
         {"format primary=cube", "format conventions=7", "format conventions=0",
          "format columns=1,x", "format columns=1,2,3,4,5,6,7,8,9,10,11", "format delimiter=pipe",
          "format colour=red", "format appended=line,thing", "format header=perhaps",
          "format plane", "format plane=9"}) {
        EXPECT_NE(Run(bad), "") << bad;
    }
    EXPECT_NE(Run("format primary=line delimiter=pipe"), "");
    EXPECT_EQ(Run("format data=lines header"),
              "line 1: format: 'header' lacks a value: header=...");
    EXPECT_EQ(Run("format columns="), "line 1: format: 'columns' lacks a value: columns=...");
    EXPECT_EQ(Run("format numericname= textname=\"\" appended="), "") << "a name may be empty";
    EXPECT_EQ(Run("format data=lines data=planes"), "line 1: format: 'data' is given twice");
}

TEST_F(Batch, ConventionsMayBeStatedByTheirParts) {
    Write("q.txt", "30\tN20E\n");
    const auto json = Dump("format primary=line line=pt notation=quadrant plane=1 data=lines; "
                           "open \"FOLDER/q.txt\"");
    EXPECT_EQ(json["rows"]["gDataAz"][0], 20);
}

TEST_F(Batch, BoxesAreToldWithTheirAnswers) {
    Write("bad.txt", "30\t120\n99\t1\n40\t130\n");
    EXPECT_EQ(Run("answer abort; open \"FOLDER/bad.txt\"; get NumValidData"), "");
    EXPECT_EQ(out.str(), "1\n");
    EXPECT_NE(log.str().find("-> Abort"), std::string::npos);
    EXPECT_EQ(Run("open \"FOLDER/bad.txt\"; get NumValidData"), "");
    EXPECT_EQ(out.str(), "2\n");
    EXPECT_NE(log.str().find("-> Ignore"), std::string::npos);
    EXPECT_NE(Run("answer perhaps"), "");
}

TEST_F(Batch, AFileThatDoesNotLoadEndsTheScript) {
    EXPECT_NE(Run("open \"FOLDER/none.txt\""), "");
    EXPECT_NE(Run("open"), "");
    Write("letters.txt", "nothing here\n");
    EXPECT_NE(Run("open \"FOLDER/letters.txt\""), "");
    EXPECT_NE(Run("merge \"FOLDER/planes.txt\""), "");
}

TEST_F(Batch, MergesOverlaysActivatesAndCloses) {
    EXPECT_EQ(Run("open \"FOLDER/planes.txt\"; overlay \"FOLDER/planes.txt\""),
              "line 1: overlay: '" + (folder / "planes.txt").string() + "' was not loaded");
    Write("more.txt", "10\t20\n");
    EXPECT_EQ(Run("open \"FOLDER/planes.txt\"; overlay \"FOLDER/more.txt\"; blank; activate 1; "
                  "get OverlayRows[1]; close; activate 2; get NumData"),
              "");
    EXPECT_EQ(out.str(), "1\n0\n");
    EXPECT_NE(Run("blank; activate 2"), "");
    EXPECT_NE(Run("blank; activate 0"), "");
}

TEST_F(Batch, PressesPlotDataAndSymbolButtons) {
    EXPECT_EQ(Run("open \"FOLDER/planes.txt\"; data lines; get DataKind; symbols 2; "
                  "get PlotSymbolMode; recalculate; replot; stats"),
              "");
    EXPECT_TRUE(out.str().starts_with("2\n3\n")) << out.str();
    EXPECT_NE(out.str().find("3 rows read, 3 of them data; 0 lines without data, 0 invalid."),
              std::string::npos);
    EXPECT_NE(Run("open \"FOLDER/planes.txt\"; answer cancel; data lines"), "");
    EXPECT_NE(Run("blank; symbols 99"), "");
    EXPECT_NE(Run("blank; plot pie"), "");
}

TEST_F(Batch, PicturesHaveTheSizeAskedFor) {
    ASSERT_EQ(Run("open \"FOLDER/planes.txt\"; export \"FOLDER/net.png\" size=300 part=net; "
                  "export \"FOLDER/whole.PNG\" size=300"),
              "");
    const QImage net(QString::fromStdString((folder / "net.png").string()));
    const QImage whole(QString::fromStdString((folder / "whole.PNG").string()), "PNG");
    EXPECT_EQ(net.size(), QSize(300, 300));
    EXPECT_EQ(whole.height(), 300);
    EXPECT_GT(whole.width(), 300);
    // The primitive: dark on the rim at the south, white just inside it.
    const double factor = 300.0 / 2200;
    EXPECT_LT(net.pixelColor(150, static_cast<int>(150 + 1000 * factor)).lightness(), 160);
    EXPECT_EQ(net.pixelColor(20, 20), QColor(Qt::white));
}

TEST_F(Batch, LargePicturesAreThoseDrawnInOnePiece) {
    const std::vector<std::string> plots = {
        "symbols 0; girdle 1 45/120; smallcircle 1 40 120 20; set DescriptionText \"Some beds\"",
        "symbols 6; griddensity 20", "rose sector=20 type=0", "symbols 3"};
    for (const std::string& plot : plots) {
        std::string commands = "open \"FOLDER/planes.txt\"; " + plot;
        commands.replace(commands.find("FOLDER"), 6, folder.string());
        const auto parsed = ParseScript(commands, CommandBreak::SemicolonToo);
        ASSERT_TRUE(parsed);
        BatchSession session(out, log);
        ASSERT_EQ(session.Run(*parsed), "") << plot;
        PictureOptions options;
        options.size = 700;
        const std::string whole = (folder / "whole.png").string();
        const std::string bands = (folder / "bands.png").string();
        ASSERT_EQ(SavePlotPicture(whole, options), "");
        options.bandBytes = std::size_t{61} * 1038 * 4;
        ASSERT_EQ(SavePlotPicture(bands, options), "");
        EXPECT_EQ(QImage(QString::fromStdString(whole)), QImage(QString::fromStdString(bands)))
            << plot;
    }
}

TEST_F(Batch, VectorPicturesKeepTheirTexts) {
    ASSERT_EQ(Run("open \"FOLDER/planes.txt\"; export \"FOLDER/a.svg\"; export \"FOLDER/a.pdf\""),
              "");
    std::ostringstream svg;
    svg << std::ifstream(folder / "a.svg").rdbuf();
    EXPECT_NE(svg.str().find("Poles to planes"), std::string::npos);
    EXPECT_GT(std::filesystem::file_size(folder / "a.pdf"), 1000U);
}

/// Rows that have contours.
constexpr const char* kCluster = "30\t120\n31\t121\n29\t119\n30\t121\n";

TEST_F(Batch, PartsOfAPlotAreGroupsWithTitlesInSvg) {
    Write("cluster.txt", kCluster);
    ASSERT_EQ(Run("open \"FOLDER/cluster.txt\"; symbols 5; export \"FOLDER/a.svg\"; "
                  "export \"FOLDER/net.svg\" part=net"),
              "");
    const auto textOf = [this](const char* name) {
        std::ostringstream svg;
        svg << std::ifstream(folder / name).rdbuf();
        return svg.str();
    };
    const std::string whole = textOf("a.svg");
    for (const char* group :
         {"<g id=\"net\">\n<title>Net</title>", "<g id=\"contours\">\n<title>Contours</title>",
          "<g id=\"legend\">\n<title>Legend</title>",
          "<g id=\"statistics\">\n<title>Statistics</title>"}) {
        EXPECT_NE(whole.find(group), std::string::npos) << group;
    }
    const std::string net = textOf("net.svg");
    EXPECT_NE(net.find("<g id=\"contours\">"), std::string::npos);
    EXPECT_EQ(net.find("<g id=\"legend\">"), std::string::npos);
}

TEST_F(Batch, CopiesInSvgHaveTheSizesOfTheirBoxes) {
    Write("cluster.txt", kCluster);
    const auto parsed = ParseScript("open \"" + (folder / "cluster.txt").string() + "\"; symbols 5",
                                    CommandBreak::SemicolonToo);
    ASSERT_TRUE(parsed);
    BatchSession session(out, log);
    ASSERT_EQ(session.Run(*parsed), "");
    const std::string copied = PlotSvg(PlotImagePart::Net, {QSize(400, 400), QSize(160, 300)});
    EXPECT_NE(copied.find("viewBox=\"0 0 300 300\""), std::string::npos);
    EXPECT_NE(copied.find("<g id=\"contours\">"), std::string::npos);
    const std::string legend = PlotSvg(PlotImagePart::Legend, {QSize(400, 400), QSize(160, 300)});
    EXPECT_NE(legend.find("viewBox=\"0 0 120 225\""), std::string::npos);
    EXPECT_NE(legend.find("Data: cluster.txt"), std::string::npos);
    EXPECT_EQ(legend.find("<g id=\"contours\">"), std::string::npos);
}

TEST_F(Batch, PicturesThatCannotBeWrittenAreTold) {
    for (const char* const bad :
         {"export \"FOLDER/a.gif\"", "export", "export \"FOLDER/no/such/a.png\"",
          "export \"FOLDER/a.png\" size=9", "export \"FOLDER/a.png\" size=many",
          "export \"FOLDER/a.png\" part=half", "export /dev/full.png/a.png", "save", "dump"}) {
        EXPECT_NE(Run(std::string("blank; ") + bad), "") << bad;
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "a.png"));
}

TEST_F(Batch, SavesAndReadsBackWithoutStatingTheFormat) {
    EXPECT_EQ(Run("format conventions=2; open \"FOLDER/planes.txt\"; save \"FOLDER/s.txt\""), "");
    const auto json = Dump("open \"FOLDER/s.txt\"");
    EXPECT_EQ(json["record"]["NumValidData"], 3);
    EXPECT_EQ(json["record"]["PlotTitle"], "s.txt: 1");
}

TEST_F(Batch, AScriptStartsFromAFirstRunWhateverCameBefore) {
    EXPECT_EQ(Run("format primary=line delimiter=comma conventions=13 decimalcomma=yes"), "");
    const auto json = Dump("open \"FOLDER/planes.txt\"");
    EXPECT_EQ(json["record"]["PrimaryFormat"], kPrimaryPlane);
    EXPECT_EQ(json["record"]["NumValidData"], 3);
}

/// The lines of the examples' page that run the program, as commands.
std::vector<std::string> ExampleCommands() {
    std::vector<std::string> commands;
    std::ifstream stream(std::string(QUANDREL_SOURCE_DIR "/examples/README.md"));
    for (std::string line; std::getline(stream, line);) {
        const std::size_t format = line.find("--format '");
        if (line.rfind("quandrel-batch examples/", 0) != 0 || format == std::string::npos) {
            continue;
        }
        const std::size_t end = line.find('\'', format + 10);
        const std::string file = line.substr(15, line.find(' ', 15) - 15);
        commands.push_back("format " + line.substr(format + 10, end - format - 10) + "\nopen \""
                           + std::string(QUANDREL_SOURCE_DIR "/").append(file) + "\"");
    }
    return commands;
}

TEST_F(Batch, EveryExampleLoadsWithTheFormatThatItsPageStates) {
    const std::vector<std::string> commands = ExampleCommands();
    EXPECT_EQ(commands.size(), 18U);
    for (const std::string& command : commands) {
        const auto json = Dump(command + "\n");
        EXPECT_GE(json["load"]["rowsValid"], 20) << command;
        EXPECT_EQ(json["load"]["invalidLines"], 0) << command;
        EXPECT_EQ(json["load"]["badNumeric"], 0) << command;
    }
}

TEST_F(Batch, AllExamplesDrawInBothNets) {
    for (const std::string& command : ExampleCommands()) {
        EXPECT_EQ(Run(command + "\nplot equalangle\nexport \"FOLDER/p.png\" size=200\n"), "")
            << command;
    }
}

TEST_F(Batch, DensitiesAndStatisticsAreInTheDump) {
    std::string cluster;
    for (int i = 0; i < 20; ++i) {
        cluster += std::to_string(30 + i % 3) + "\t120\n";
    }
    Write("cluster.txt", cluster);
    const nlohmann::json json = Dump("open \"FOLDER/cluster.txt\"; griddensity 35; symbols 5");
    EXPECT_EQ(json["densityGrid"]["size"], 30) << "the slider snaps down to tens";
    EXPECT_EQ(json["densityGrid"]["step"], 66);
    EXPECT_EQ(json["densityGrid"]["first"], -1066);
    EXPECT_EQ(json["densityGrid"]["counts"].size(), 33U);
    EXPECT_EQ(json["contours"]["levels"], (std::vector<int>{5, 10, 20, 40, 80}))
        << "one of twenty is five per cent";
    EXPECT_FALSE(json["contours"]["segments"].empty());
    EXPECT_NE(json["statsNormal"].get<std::string>().find("No. of Data = 20"), std::string::npos);
    EXPECT_NE(json["statsAdvanced"].get<std::string>().find("Shape parameter, gamma"),
              std::string::npos);
    const double sum = json["statsReference"]["eigenvalue 1"].get<double>()
                       + json["statsReference"]["eigenvalue 2"].get<double>()
                       + json["statsReference"]["eigenvalue 3"].get<double>();
    EXPECT_NEAR(sum, 1, 1e-12);
}

TEST_F(Batch, AGridDensityOutsideTheSliderIsRefused) {
    EXPECT_NE(Run("open \"FOLDER/planes.txt\"; griddensity 5"), "");
    EXPECT_NE(Run("open \"FOLDER/planes.txt\"; griddensity 151"), "");
    EXPECT_EQ(Run("open \"FOLDER/planes.txt\"; griddensity 150"), "");
}

TEST_F(Batch, ResultsFollowTheFieldsThatWereSet) {
    Write("lines.txt", "30\t120\n45\t270\n60\t10\n-20\t40\n");
    const std::string open = "format primary=line data=lines; open \"FOLDER/lines.txt\"; ";

    struct Case {
        const char* set;
        const char* pressed;
    };

    const Case cases[] = {
        {"set DataKind 3", "data polar"},      {"set DataKind 1", "data planes"},
        {"set PlotKind 2", "plot equalangle"}, {"set PlotSymbolMode 6", "symbols 5"},
        {"set PlotSymbolMode 4", "symbols 3"},
    };
    for (const Case& c : cases) {
        const auto set = Dump(open + c.set);
        const auto pressed = Dump(open + c.pressed);
        for (const char* const part : {"statsNormal", "statsAdvanced", "statsReference",
                                       "operations", "legend", "table", "rows"}) {
            EXPECT_EQ(set[part], pressed[part]) << c.set << ": " << part;
        }
        for (const char* const kind : {"normal", "advanced", "reference"}) {
            const std::string stats = std::string("; stats ") + kind;
            EXPECT_EQ(Run(open + c.set + stats), "");
            const std::string afterSet = out.str();
            EXPECT_EQ(Run(open + c.pressed + stats), "");
            EXPECT_EQ(afterSet, out.str()) << c.set << stats;
        }
    }
}

TEST_F(Batch, APictureFollowsTheFieldsThatWereSet) {
    const auto pixels = [this](const std::string& commands) {
        EXPECT_EQ(
            Run("open \"FOLDER/planes.txt\"; " + commands + "; export \"FOLDER/p.png\" size=200"),
            "");
        return QImage(QString::fromStdString((folder / "p.png").string()));
    };
    EXPECT_EQ(pixels("set PlotSymbolMode 5"), pixels("symbols 4"));
    EXPECT_NE(pixels("set PlotSymbolMode 5"), pixels("replot"));
    EXPECT_EQ(pixels("set PlotKind 2"), pixels("plot equalangle"));
    EXPECT_NE(pixels("set PlotKind 2"), pixels("replot"));
}

/// Lines in a ring about the vertical, which have a cone of about 25 degrees.
constexpr const char* kRing = "60\t0\n60\t40\n60\t80\n60\t120\n60\t160\n60\t200\n60\t240\n"
                              "60\t280\n60\t320\n";

TEST_F(Batch, TheConeIsDrawnWhenItIsOn) {
    Write("ring.txt", kRing);
    const std::string open = "format primary=line data=lines; open \"FOLDER/ring.txt\"";
    const std::size_t without = Dump(open)["operations"].size();
    EXPECT_GT(Dump(open + "; cone on")["operations"].size(), without);
    EXPECT_EQ(Dump(open + "; cone on; cone off")["operations"].size(), without);
    EXPECT_EQ(Run("blank; cone perhaps"), "line 1: cone: 'perhaps' is not one of off, on");
    EXPECT_EQ(Run("cone on"), "line 1: cone: no plot is open");
}

TEST_F(Batch, TheConeIsPrintedWhenItIsOn) {
    Write("ring.txt", kRing);
    const std::string open = "format primary=line data=lines; open \"FOLDER/ring.txt\"; ";
    ASSERT_EQ(Run(open + "cone on"), "");
    EXPECT_TRUE(out.str().starts_with("95% confidence cone: axis 90.00 - ")) << out.str();
    const std::string angle = out.str().substr(out.str().rfind(' ') + 1);
    const auto json = Dump(open + "replot");
    EXPECT_NEAR(std::stod(angle), json["statsReference"]["95% cone semi-angle"].get<double>(),
                0.005);
    ASSERT_EQ(Run(open + "cone off"), "");
    EXPECT_EQ(out.str(), "");
    ASSERT_EQ(Run("blank; cone on"), "");
    EXPECT_EQ(out.str(), "95% confidence cone: none, for the data are not symmetric about their "
                         "principal axis, or too few\n");
}

TEST_F(Batch, TheConeIsNotSaved) {
    Write("ring.txt", kRing);
    const std::string folderName = folder.string();
    const auto commands =
        ParseScript("format primary=line data=lines\nopen \"" + folderName
                        + "/ring.txt\"\ncone on\nsave \"" + folderName + "/saved.txt\"\n",
                    CommandBreak::LineOnly);
    const auto reading =
        ParseScript("open \"" + folderName + "/saved.txt\"\n", CommandBreak::LineOnly);
    ASSERT_TRUE(commands && reading);
    BatchSession session(out, log);
    ASSERT_EQ(session.Run(*commands), "");
    EXPECT_TRUE(ActiveRecord().ShowConfidenceCone);
    ASSERT_EQ(session.Run(*reading), "");
    EXPECT_EQ(ActiveRecord().NumValidData, 9);
    EXPECT_FALSE(ActiveRecord().ShowConfidenceCone);
}

TEST_F(Batch, TheReferenceTellsWhatIsPrintedOtherwise) {
    Write("right_angle.txt", "0\t0\n0\t90\n");
    const auto dump = Dump("format primary=line data=lines; open \"FOLDER/right_angle.txt\"");
    const auto json = dump["statsReference"];
    EXPECT_EQ(json["n"], 2);
    EXPECT_EQ(json["eigenvalue 3"], 0.5) << "a plain number where both agree";
    EXPECT_TRUE(json["axis 2 plunge"].is_null());
    EXPECT_TRUE(json["zeta"].is_null()) << "a number or nothing";
    EXPECT_EQ(dump["statsPrinted"]["zeta"], "99999.00");
    EXPECT_FALSE(dump["statsPrinted"].contains("eigenvalue 3"));
    for (const auto& [name, value] : json.items()) {
        EXPECT_TRUE(value.is_number() || value.is_null()) << name;
    }
    for (const auto& [name, value] : dump["statsPrinted"].items()) {
        EXPECT_TRUE(value.is_string()) << name;
    }
    EXPECT_EQ(Run("format primary=line data=lines; open \"FOLDER/right_angle.txt\"; "
                  "stats reference"),
              "");
    EXPECT_NE(out.str().find("\nzeta = undetermined (printed 99999.00)\n"), std::string::npos)
        << out.str();
}

TEST_F(Batch, TheReferenceIsPrintedInFull) {
    EXPECT_EQ(Run("open \"FOLDER/planes.txt\"; stats reference"), "");
    EXPECT_NE(out.str().find("n = 3\n"), std::string::npos) << out.str();
    EXPECT_NE(out.str().find("eigenvalue 3 = 0."), std::string::npos);
}

TEST_F(Batch, AWorkspaceOfAPlotSavedAsTextBringsItBack) {
    EXPECT_EQ(Run("open \"FOLDER/planes.txt\"; save \"FOLDER/beds.txt\"; "
                  "workspace save \"FOLDER/w.qwo\""),
              "");
    EXPECT_EQ(
        Run("format data=lines; workspace open \"FOLDER/w.qwo\"; get FileTitle; get DataKind"), "");
    EXPECT_EQ(out.str(), "beds.txt\n1\n");
}

TEST_F(Batch, AWorkspaceThatIsNotSavedSaysWhy) {
    const std::string open = "open \"FOLDER/planes.txt\"; ";
    const std::string lead = "line 1: workspace: '" + (folder / "u.qwo").string()
                             + "' was not saved: Plot 1: planes.txt: 1 ";
    EXPECT_EQ(Run(open + "answer yes; workspace save \"FOLDER/u.qwo\""),
              lead + "has no file yet: save it first");
    EXPECT_EQ(Run(open + "answer cancel; workspace save \"FOLDER/u.qwo\""),
              lead + "has unsaved data, and the question about it was cancelled");
    EXPECT_EQ(Run("workspace save \"FOLDER/u.qwo\""),
              "line 1: workspace: '" + (folder / "u.qwo").string()
                  + "' was not saved: it would list no plot");
    const std::string nowhere = (folder / "none" / "u.qwo").string();
    EXPECT_EQ(Run(open + "save \"FOLDER/a.qpx\"; workspace save \"" + nowhere + "\""),
              "line 1: workspace: '" + nowhere
                  + "' was not saved: " + WriteFileAtomically(nowhere, "x"));
}

TEST_F(Batch, ATextKeepsTheLinesWithoutDataWhereItIsAskedTo) {
    Write("notes.txt", "30\t120\nsheared contact\n45\t270\n");
    const auto saved = [this](const std::string& words) {
        EXPECT_EQ(Run("open \"FOLDER/notes.txt\"; save \"FOLDER/saved.txt\"" + words), "");
        std::ifstream stream(folder / "saved.txt", std::ios::binary);
        return std::string{std::istreambuf_iterator<char>(stream), {}};
    };
    EXPECT_EQ(saved("").find("sheared contact"), std::string::npos);
    EXPECT_NE(saved(" lines=all").find("sheared contact"), std::string::npos);
    EXPECT_EQ(saved("").find("sheared contact"), std::string::npos) << "only for that save";
    EXPECT_EQ(Run("open \"FOLDER/notes.txt\"; save \"FOLDER/x.txt\" lines=some"),
              "line 1: save: 'some' is not a value of lines: all");
    EXPECT_EQ(Run("open \"FOLDER/notes.txt\"; save \"FOLDER/x.qpx\" lines=all"),
              "line 1: save: lines=all is for text files: a plot file has all lines");
    EXPECT_FALSE(std::filesystem::exists(folder / "x.txt"));
    EXPECT_FALSE(std::filesystem::exists(folder / "x.qpx"));
}

TEST_F(Batch, ATextHasDecimalsUnlessWholeDegreesAreAskedFor) {
    Write("survey.txt", "47.3\t218.60\n45\t7\n");
    const auto saved = [this](const std::string& words) {
        EXPECT_EQ(Run("open \"FOLDER/survey.txt\"; save \"FOLDER/saved.txt\"" + words), "");
        std::ifstream stream(folder / "saved.txt", std::ios::binary);
        return std::string{std::istreambuf_iterator<char>(stream), {}};
    };
    EXPECT_TRUE(saved("").ends_with("\r\n47.3\t218.6\r\n45\t7\r\n"));
    EXPECT_TRUE(saved(" whole").ends_with("\r\n47\t219\r\n45\t7\r\n"));
    EXPECT_TRUE(saved(" lines=all whole").ends_with("\r\n47\t219\r\n45\t7\r\n"));
    EXPECT_EQ(Run("open \"FOLDER/survey.txt\"; save \"FOLDER/x.qpx\" whole"),
              "line 1: save: whole is for text files: a plot file has all decimals");
    EXPECT_FALSE(std::filesystem::exists(folder / "x.qpx"));
}

TEST_F(Batch, APointThatIsAddedKeepsItsDecimals) {
    Write("survey.txt", "45\t7\n");
    EXPECT_EQ(Run("open \"FOLDER/survey.txt\"; addpoint 47.3 218.6; save \"FOLDER/saved.txt\""),
              "");
    std::ifstream stream(folder / "saved.txt", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_TRUE(text.ends_with("\r\n45\t7\r\n47.3\t218.6\r\n")) << text;
}

TEST_F(Batch, ARoseByClassesSaysThatNoneAreSet) {
    Write("rocks.txt", "30\t120\t2\tslate\n45\t270\t3\tmarl\n");
    const std::string open = "format primary=plane delimiter=tab columns=0,1,2,3,4,5,6,7,2,3 "
                             "appended=numeric,text numericname=size textname=rock; "
                             "open \"FOLDER/rocks.txt\"; ";
    ASSERT_EQ(Run(open + "rose classify=type"), "");
    EXPECT_NE(log.str().find("No classes of rock are set. Set them under Classification of sectors "
                             "in the rose dialog, or by classify in a script."),
              std::string::npos)
        << log.str();
    ASSERT_EQ(Run(open
                  + "classify mode=3 classes=2 names=slate,marl; rose classify=type; "
                    "get RoseType"),
              "");
    EXPECT_EQ(log.str().find("No classes"), std::string::npos) << log.str();
}

TEST_F(Batch, AWorkspaceNamesTheFilesThatItMisses) {
    Write("w.qwo", "[Files List]\nplanes.txt\ngone.txt\n");
    for (const char* command : {"workspace open", "open"}) {
        EXPECT_EQ(Run(std::string(command) + " \"FOLDER/w.qwo\""), "");
        EXPECT_NE(log.str().find("w.qwo: 1 of 2 files opened\nnot opened: "), std::string::npos);
        EXPECT_NE(log.str().find("/gone.txt\n"), std::string::npos);
    }
}

TEST_F(Batch, AWorkspaceBringsItsPlotsBack) {
    const std::string open = "format data=planes; open \"FOLDER/planes.txt\"; ";
    ASSERT_EQ(Run(open + "save \"FOLDER/a.qpx\"; " + open
                  + "plot equalangle; save \"FOLDER/b.qpx\"; "
                    "workspace save \"FOLDER/w.qwo\""),
              "");
    EXPECT_EQ(Run("workspace open \"FOLDER/w.qwo\"; get PlotKind; activate 1; get PlotKind; "
                  "get NumValidData"),
              "");
    EXPECT_EQ(out.str(), "2\n1\n3\n");
    EXPECT_NE(Run("workspace open \"FOLDER/none.qwo\""), "");
    EXPECT_NE(Run("workspace mend \"FOLDER/w.qwo\""), "");
}

TEST_F(Batch, DerivedPlotsAndRotationsAreCommands) {
    Write("faults.txt", "60\t90\t60\t90\n50\t270\t50\t270\n");
    const std::string open =
        "format primary=plane secondary=line delimiter=tab columns=0,1,2,2,3 data=planes; "
        "open \"FOLDER/faults.txt\"; ";
    EXPECT_NE(Run(open + "kinematic 0"), "") << "no row says how it moved";
    EXPECT_NE(Run(open + "kinematic 0 sense=left"), "");
    ASSERT_EQ(Run(open + "kinematic 0 sense=normal; get NumData; get AxesTitle"), "");
    EXPECT_EQ(out.str(), "4\nP & T\n");
    ASSERT_EQ(Run(open
                  + "overlaysecondary on; get SelectedOverlay; symbols 10; "
                    "get NumSymbolsInPlot"),
              "");
    EXPECT_EQ(out.str(), "1\n3\n");
    ASSERT_EQ(Run(open + "secondary; get ShowSecondary; get DataKind"), "");
    EXPECT_EQ(out.str(), "-1\n2\n");
    const auto dump = Dump(open + "rotate op=3 axis=0,0 angle=90");
    EXPECT_NE(dump["record"]["Modified"], 0);
    EXPECT_NE(Run(open + "intersections"), "") << "a line is not a plane";
    out.str({});
    EXPECT_NE(Run(open + "kinematic 0 sense=normal; plot rose").find(kMixedRoseRefusal),
              std::string::npos);
    EXPECT_NE(Run(open + "kinematic 0 sense=normal; set PlotKind 3").find(kMixedRoseRefusal),
              std::string::npos);
    EXPECT_NE(Run(open + "kinematic 0 sense=normal; rose sector=20").find(kMixedRoseRefusal),
              std::string::npos);
    out.str({});
    ASSERT_EQ(Run(open + "kinematic 1 sense=normal; plot rose; get AxesTitle; stats normal"), "");
    EXPECT_TRUE(out.str().starts_with("T\n")) << out.str();
    EXPECT_NE(out.str().find("(sense assumed: the hanging walls moved down)"), std::string::npos)
        << "on a rose too: " << out.str();
}

TEST_F(Batch, ADumpOfAPlotFileShowsWhatStandsBesideItsRows) {
    const auto dump =
        Dump("open \"" + std::string(QUANDREL_TEST_DATA) + "/persistence/version_9_5.qpx\"");
    EXPECT_FALSE(dump.at("annotations").empty());
    EXPECT_FALSE(dump["annotations"][0].at("LineNodes").is_null());
    EXPECT_EQ(dump.at("smallCircles").size(), 5U);
    EXPECT_TRUE(dump.at("gridCount").is_number());
    EXPECT_GT(dump.at("window").at("width"), 0);
}

TEST_F(Batch, ParallelPlanesAreNoRowsWhateverBecomesOfTheirPlot) {
    Write("pairs.txt", "45\t0\t45\t90\n0\t10\t30\t90\n45\t360\t45\t0\n70\t20\t50\t200\n");
    const std::string made =
        "format primary=plane secondary=plane delimiter=tab columns=0,1,2,2,3 data=planes; "
        "open \"FOLDER/pairs.txt\"; intersections; ";
    const auto turned = Dump(made + "rotate op=3 axis=10,20 angle=100");
    EXPECT_EQ(turned["record"]["NumValidData"], 3);
    const std::vector<int> plunges = turned["rows"]["gDataDip"];
    EXPECT_EQ(std::ranges::count(plunges, -90), 1) << "the mark stays";
    EXPECT_EQ(std::ranges::count_if(plunges, [](int plunge) { return plunge >= 0; }), 3)
        << "lines have no sense";
    ASSERT_EQ(Run(made + "plot rose; stats"), "");
    EXPECT_NE(out.str().find("No. of Data = 3\r\n"), std::string::npos) << out.str();
    for (const char* const name : {"i.qpx", "i.txt"}) {
        const std::string path = "\"FOLDER/" + std::string(name) + "\"";
        ASSERT_EQ(Run(made + "save " + path + "; close; open " + path + "; get NumValidData"), "");
        EXPECT_EQ(out.str(), "3\n") << name;
    }
}

TEST_F(Batch, PlotsOfBothAxesKeepThemApart) {
    Write("faults.txt", "60\t90\t60\t90\n60\t90\t-60\t90\n");
    const std::string open =
        "format primary=plane secondary=line delimiter=tab columns=0,1,2,2,3 data=planes; "
        "open \"FOLDER/faults.txt\"; kinematic 0; ";
    // P 75/270 and 15/090, T 15/090 and 75/270: each pair lies in the plane 90/000.
    const auto dump = Dump(open);
    ASSERT_TRUE(dump.contains("axes"));
    for (const char* axis : {"P", "T"}) {
        const auto& of = dump["axes"][axis];
        EXPECT_EQ(of["count"], 2) << axis;
        EXPECT_NEAR(of["E1"]["eigenvalue"].get<double>(), 0, 1e-6);
        EXPECT_NEAR(of["girdle"]["dip"].get<double>(), 90, 1e-4);
        EXPECT_NEAR(std::fmod(of["girdle"]["dipDirection"].get<double>(), 180), 0, 1e-4);
    }
    EXPECT_TRUE(dump["statsReference"].contains("P n"));
    EXPECT_TRUE(dump["statsReference"].contains("T n"));
    for (const char* refused :
         {"symbols 3", "symbols 4", "symbols 5", "symbols 6", "set PlotSymbolMode 6"}) {
        const std::string error = Run(open + refused);
        EXPECT_NE(error.find("kinematic 1, kinematic 2"), std::string::npos) << refused << error;
    }
    EXPECT_EQ(Run(open + "symbols 0"), "");
    ASSERT_EQ(Run(open + "stats"), "");
    EXPECT_NE(out.str().find("T extension axes\r\nNo. of Data = 2"), std::string::npos)
        << out.str();
}

TEST_F(Batch, FaultsWithAxesKeepTheirMovementWhenTheyTurnOver) {
    Write("faults.txt", "30\t90\t30\t90\n");
    const std::string open =
        "format primary=plane secondary=line delimiter=tab columns=0,1,2,2,3 data=planes; "
        "open \"FOLDER/faults.txt\"; ";
    // The plane then dips 70 to the west, with its other side up: what went down goes up.
    const auto plain = Dump(open + "rotate op=3 axis=0,0 angle=100");
    EXPECT_EQ(std::abs(plain["rows"]["gDataDip"][0].get<int>()),
              std::abs(plain["rows"]["gData2Dip"][0].get<int>()));
    EXPECT_GE(plain["rows"]["gData2Dip"][0], 0) << "a line without sense";
    const auto slip =
        Dump(open + "kinematic 0 sense=normal; activate 1; rotate op=3 axis=0,0 angle=100");
    EXPECT_EQ(slip["rows"]["gData2Dip"][0].get<int>(), -plain["rows"]["gData2Dip"][0].get<int>());
}

TEST_F(Batch, AUndoneRotationLeavesTheRowsAsTheyWere) {
    const std::string open = "format data=planes; open \"FOLDER/planes.txt\"; ";
    const auto before = Dump(open);
    const auto after = Dump(open + "rotate op=3 axis=10,20 angle=33; rotate undo");
    EXPECT_EQ(before["rows"], after["rows"]);
    EXPECT_EQ(Run(open + "rotate undo"), "line 1: rotate: there is no rotation to undo");
}

} // namespace
} // namespace quandrel
