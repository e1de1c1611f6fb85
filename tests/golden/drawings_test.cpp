// SPDX-License-Identifier: MIT
//
// What the program draws, operation by operation: the contents of all surfaces and boxes after a
// script must equal the reference file with the script's name.

#include "core/plot_store.h"
#include "golden/drawing_text.h"
#include "golden/golden_file.h"
#include "golden/script_run.h"
#include "platform/scripted/recording_form.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <set>
#include <sstream>
#include <vector>

namespace quandrel {
namespace {

/// A text of several lines under a name; nothing for an empty one.
std::string Section(const std::string& name, const std::string& text) {
    std::string section;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        line.erase(std::remove(line.begin(), line.end(), '\r'), line.end());
        section += "| " + line + "\n";
    }
    return section.empty() ? section : name + "\n" + section;
}

std::string TextOfPlot(int slot) {
    const auto& form = static_cast<const RecordingForm&>(FormOf(slot));
    const std::string name = "plot " + std::to_string(slot);
    std::string text = Section(name + ", caption", form.Caption());
    text += Section(name + ", number", form.Told(PlotBox::NumberOfData));
    text += Section(name + ", fabric", form.Told(PlotBox::Fabric));
    text += Section(name + ", description", form.Told(PlotBox::Description));
    text += Section(name + ", statistics", form.Told(PlotBox::StatsNormal));
    text += Section(name + ", advanced statistics", form.Told(PlotBox::StatsAdvanced));
    text += TextOfDrawing(DrawingOf(name + ", net", form.Plot()));
    return text + TextOfDrawing(DrawingOf(name + ", legend", form.Legend()));
}

std::string TextOfPage(const RecordedPage& page) {
    std::string text;
    for (std::size_t i = 0; i < page.parts.size(); ++i) {
        const PageRect& rect = page.parts[i].rect;
        std::ostringstream name;
        name << "page, part " << i + 1 << " at " << std::lround(rect.left * 10) << " "
             << std::lround(rect.top * 10) << " tenths of a millimetre";
        text += TextOfDrawing(DrawingOf(name.str(), page.parts[i].surface));
    }
    return text;
}

/// Everything that a script leaves on surfaces and in boxes.
std::string MadeBy(const std::string& script) {
    ScriptRun run;
    run.Play(script);
    std::string text = Section("printed", run.Printed()) + Section("told", run.Told());
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        text += IsOpenSlot(slot) ? TextOfPlot(slot) : "";
    }
    for (const RecordedPage& page : run.Pages()) {
        text += TextOfPage(page);
    }
    return text;
}

class Drawings : public ::testing::TestWithParam<std::string> {};

TEST_P(Drawings, AreAsTheReferenceHasThem) {
    ExpectGolden(GetParam(), MadeBy(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Of, Drawings, ::testing::ValuesIn(NamesIn(ScriptFolder())),
                         [](const auto& parameter) { return parameter.param; });

TEST(DecimalsOff, AreDrawnAsTheRoundedFile) {
    ScriptRun measured;
    measured.Play("decimals_off");
    const std::string drawn = TextOfPlot(1);
    ScriptRun rounded; // halves to even
    std::ofstream(rounded.Folder() / "phone.txt", std::ios::binary)
        << "47 119\n52 121\n45 109\n50 126\n0 360\n61 90\n45 120\n50 117\n89 12\n";
    rounded.Play("decimals_off");
    EXPECT_EQ(TextOfPlot(1), drawn);
    EXPECT_NE(drawn.find("drawing"), std::string::npos);
}

TEST(DrawingsFolder, HoldsNoReferenceThatNothingMakes) {
    std::vector<std::string> made = NamesIn(ScriptFolder());
    made.insert(made.end(), {"files", "settings"});
    const std::set<std::string> names(made.begin(), made.end());
    for (const std::string& name : NamesIn(GoldenFolder())) {
        EXPECT_TRUE(names.contains(name)) << name;
    }
}

} // namespace
} // namespace quandrel
