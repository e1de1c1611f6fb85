// SPDX-License-Identifier: MIT
//
// Styles and layers in scripts.

#include "batch_fixture.h"

#include <algorithm>
#include <string>
#include <vector>

namespace quandrel {
namespace {

class BatchFigure : public BatchTest {
protected:
    /// The commands after a plot of three planes.
    static std::string After(const std::string& commands) {
        return "open \"FOLDER/planes.txt\"; " + commands;
    }

    /// The layers of a dump, each "data/way", lowest first.
    std::vector<std::string> Layers(const std::string& commands) {
        std::vector<std::string> words;
        const nlohmann::json dump = Dump(After(commands));
        for (const auto& layer : dump["figure"]["layers"]) {
            words.push_back(layer["of"].get<std::string>() + "/"
                            + layer["shown"].get<std::string>());
        }
        return words;
    }
};

TEST_F(BatchFigure, PlotsBeginInClassicWithTheLayersOfTheirMode) {
    const nlohmann::json figure = Dump(After("symbols 1"))["figure"];
    EXPECT_EQ(figure["style"], "Classic");
    EXPECT_EQ(figure["ownLayers"], false);
    EXPECT_EQ(figure["layers"].front()["shown"], "net");
    EXPECT_EQ(figure["layers"][1]["of"], "main");
    EXPECT_EQ(figure["layers"][1]["shown"], "symbols");
}

TEST_F(BatchFigure, TakesStylesByNameAndFromFiles) {
    EXPECT_EQ(Dump(After("style journal"))["figure"]["style"], "Journal");
    EXPECT_EQ(Dump(After("style journal; style Classic; "))["figure"]["style"], "Classic");
    EXPECT_EQ(Dump(After("style journal; undo"))["figure"]["style"], "Classic");
    Write("thesis.json", R"({"name": "Thesis", "net": {"rimWidth": 1.25}})");
    EXPECT_EQ(Dump(After("style \"FOLDER/thesis.json\""))["figure"]["style"], "Thesis");
    ASSERT_EQ(Run(After("style \"FOLDER/thesis.json\"; save \"FOLDER/a.qpx\"")), "");
    EXPECT_EQ(Dump("open \"FOLDER/a.qpx\"")["figure"]["style"], "Thesis");
}

TEST_F(BatchFigure, KeepsThePlotWhenAStyleCannotBeRead) {
    Write("bad.json", R"({"net": {"rimWidth": "thick"}})");
    EXPECT_NE(Run(After("style \"FOLDER/bad.json\"")).find("net.rimWidth is wrong"),
              std::string::npos);
    EXPECT_NE(Run(After("style Nobody")).find("'Nobody' is neither a style nor a file"),
              std::string::npos);
}

TEST_F(BatchFigure, AddsLayersBelowResultsAndAboveRows) {
    const std::vector<std::string> mode = Layers("symbols 5");
    const std::vector<std::string> with = Layers("symbols 5; layer add main symbols");
    ASSERT_EQ(with.size(), mode.size() + 1);
    const auto at = std::find(with.begin(), with.end(), "main/symbols");
    ASSERT_NE(at, with.end());
    EXPECT_EQ(*(at - 1), "main/densitymarks");
    EXPECT_EQ((at + 1)->substr(0, 7), "results");
}

TEST_F(BatchFigure, MovesRemovesAndReturnsToTheMode) {
    const std::vector<std::string> mode = Layers("symbols 1");
    std::vector<std::string> moved = mode;
    std::swap(moved[0], moved[1]);
    EXPECT_EQ(Layers("symbols 1; layer move 1 2"), moved);
    std::vector<std::string> without = mode;
    without.erase(without.begin() + 1);
    EXPECT_EQ(Layers("symbols 1; layer remove 2"), without);
    EXPECT_EQ(Layers("symbols 1; layer remove 2; layer mode"), mode);
    EXPECT_EQ(Layers("symbols 1; layer remove 2; undo"), mode);
}

TEST_F(BatchFigure, ChangesAllPropertiesOfALayer) {
    const nlohmann::json layer = Dump(After(
        "symbols 1; layer change 2 name=\"Poles to beds\" hidden=yes colour=#b02030 "
        "opacity=0.5 symbol=3 size=1.5 halo=0.2 width=0.6 line=dotted"))["figure"]["layers"][1];
    EXPECT_EQ(layer["LayerName"], "Poles to beds");
    EXPECT_EQ(layer["LayerHidden"], -1);
    EXPECT_EQ(layer["LayerColour"], 0x3020b0);
    EXPECT_EQ(layer["LayerOpacity"], 0.5);
    EXPECT_EQ(layer["LayerSymbol"], 3);
    EXPECT_EQ(layer["LayerSize"], 1.5);
    EXPECT_EQ(layer["LayerHalo"], 0.2);
    EXPECT_EQ(layer["LayerWidth"], 0.6);
    const nlohmann::json again = Dump(After(
        "layer change 2 colour=#b02030 size=2; layer change 2 colour=style size=style"))["figure"]
                                                                                        ["layers"]
                                                                                        [1];
    EXPECT_EQ(again["LayerColour"], -1);
    EXPECT_EQ(again["LayerSize"], -1);
}

TEST_F(BatchFigure, AddsLayersOfAllDataOfThePlot) {
    Write("more.txt", "20\t100\n40\t250\n");
    const std::vector<std::string> layers =
        Layers("overlay \"FOLDER/more.txt\"; layer add overlay1 poles; layer add overlay1 bands "
               "palette=warm steps=4; layer add selection greatcircles");
    for (const char* layer : {"overlay1/poles", "overlay1/bands", "selection/greatcircles"}) {
        EXPECT_EQ(std::ranges::count(layers, layer), 1) << layer;
    }
}

TEST_F(BatchFigure, NamesTheEntriesOfARose) {
    const std::string rose = After("plot rose; ");
    const nlohmann::json figure = Dump(
        rose + "legend petals text=\"Strikes of faults\"; legend class 2 text=Veins")["figure"];
    ASSERT_EQ(figure["roseNames"].size(), 2U);
    EXPECT_EQ(figure["roseNames"][0]["entry"], "petals");
    EXPECT_EQ(figure["roseNames"][0]["text"], "Strikes of faults");
    EXPECT_EQ(figure["roseNames"][1]["index"], 2);
    EXPECT_FALSE(
        Dump(rose + "legend petals text=a; legend petals")["figure"].contains("roseNames"));
    EXPECT_FALSE(Dump(rose + "legend petals text=a; undo")["figure"].contains("roseNames"));
    const nlohmann::json kept = Dump(rose
                                     + "legend mean text=Mittel; save \"FOLDER/r.qpx\"; close; "
                                       "open \"FOLDER/r.qpx\"")["figure"];
    ASSERT_EQ(kept["roseNames"].size(), 1U);
    EXPECT_EQ(kept["roseNames"][0]["text"], "Mittel");
    EXPECT_NE(Run(rose + "legend petals text=" + std::string(2000, 'a')), "") << "too long";
    EXPECT_NE(Run(rose + "legend needles text=a"), "");
    EXPECT_NE(Run(rose + "legend class 1000 text=a"), "");
    EXPECT_NE(Run(After("plot equalarea; legend petals text=a")), "") << "a net has layers";
}

TEST_F(BatchFigure, RefusesWhatALayerCannotBe) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"layer add main flowers", "'flowers' is not a way to show data"},
        {"layer add nothing symbols", "'nothing' is not data"},
        {"layer add net symbols", "net cannot be shown as symbols"},
        {"layer add overlay0 symbols", "'overlay0' is not data"},
        {"layer add overlay1 symbols", "overlay1 cannot be shown as symbols"},
        {"layer add secondary symbols", "secondary cannot be shown as symbols"},
        {"layer add class1 symbols", "class1 cannot be shown as symbols"},
        {"layer add selection bandsymbols", "selection cannot be shown as bandsymbols"},
        {"symbols 1; layer add main symbols", "main is shown as symbols already"},
        {"layer change 99 size=2", "a layer is missing: a number from 1 to "},
        {"layer change 2 size=-3", "'-3' is beyond its limits"},
        {"layer change 2 colour=red", "'red' is not a colour such as #b02030"},
        {"layer change 2 flavour=sweet", "flavour"},
        {"layer move 1 99", "the new place is missing: a number from 1 to "},
        {"plot rose; layer remove 1", "a rose has no layers"},
    };
    for (const auto& [commands, message] : cases) {
        EXPECT_NE(Run(After(commands)).find(message), std::string::npos)
            << commands << ": " << Run(After(commands));
    }
}

} // namespace
} // namespace quandrel
