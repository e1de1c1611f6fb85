// SPDX-License-Identifier: MIT
//
// Every example in the first plot window of a common screen: its boxes show the whole of their
// texts.

#include "core/plot_store.h"
#include "core/settings.h"
#include "drawing/draw_plot.h"
#include "drawing/legend.h"
#include "drawing/plot_driver.h"
#include "orientation/number_text.h"
#include "platform/scripted/recording_surface.h"
#include "platform/scripted/scripted_prompts.h"
#include "session/start.h"
#include "shell/controls/picture_box.h"
#include "stereo/legend_line.h"
#include "stereo/window_drawing.h"
#include "support/main_window_test.h"

#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QScrollBar>

#include <fstream>
#include <map>
#include <sstream>

namespace quandrel {
namespace {

using Words = std::map<std::string, std::string>;

struct Example {
    std::string file;
    Words format;
};

/// key=value words, of which a value may be in quotes.
Words WordsOf(const std::string& text) {
    Words words;
    std::istringstream stream(text);
    std::string key;
    while (std::getline(stream >> std::ws, key, '=')) {
        std::string value;
        if (stream.peek() == '"') {
            stream.get();
            std::getline(stream, value, '"');
        } else {
            stream >> value;
        }
        words[key] = value;
    }
    return words;
}

/// The examples with the formats that their page states.
std::vector<Example> Examples() {
    std::vector<Example> examples;
    std::ifstream page(std::string(QUANDREL_SOURCE_DIR "/examples/README.md"));
    const std::string lead = "quandrel-batch examples/";
    const std::string option = " --format '";
    for (std::string line; std::getline(page, line);) {
        const std::size_t format = line.find(option);
        if (line.rfind(lead, 0) != 0 || format == std::string::npos) {
            continue;
        }
        const std::size_t begin = format + option.size();
        examples.push_back({line.substr(lead.size(), format - lead.size()),
                            WordsOf(line.substr(begin, line.find('\'', begin) - begin))});
    }
    return examples;
}

void UseFormat(Words words) {
    const std::map<std::string, std::int16_t> primaries = {
        {"directions", kDirections}, {"plane", kPrimaryPlane}, {"line", kPrimaryLine}};
    const std::map<std::string, std::int16_t> secondaries = {
        {"", kNoSecondary},       {"pitch", kPitchInPlane}, {"trend", kTrendInPlane},
        {"line", kSecondaryLine}, {"hade", kHadeInPlane},   {"plane", kSecondaryPlane}};
    const std::map<std::string, std::int16_t> kinds = {
        {"planes", kPlanes}, {"lines", kLines}, {"polar", kPolarLines}};
    const std::map<std::string, std::string> delimiters = {
        {"tab", "\t"}, {"space", " "}, {"comma", ","}, {"semicolon", ";"}, {"any", ""}};
    gPrimaryDataType = primaries.at(words["primary"]);
    gSecondaryDataType = secondaries.at(words["secondary"]);
    gPlotDataKind = kinds.at(words["data"]);
    gFileDelimiter = delimiters.at(words["delimiter"]);
    gConventions = static_cast<std::int16_t>(ParseNumber(words["conventions"]));
    gSettings.format.hasHeadings = words["header"] == "yes";
    const std::string& appended = words["appended"];
    gFileLineAppended = appended.find("line") != std::string::npos;
    gFileNumericAppended = appended.find("numeric") != std::string::npos;
    gFileNonNumericAppended = appended.find("text") != std::string::npos;
    std::istringstream columns(words["columns"]);
    std::string column;
    for (auto& setting : gFileColumnSettings) {
        std::getline(columns, column, ',');
        setting = static_cast<std::int16_t>(ParseNumber(column));
    }
}

class ExampleWindows : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        gPlatform.prompts = &answers_;
    }

    void TearDown() override {
        gPlatform.prompts = &prompts;
        MainWindowTest::TearDown();
    }

    /// Opens an example as the only plot, on a main window that fills a screen.
    int OpenExample(const Example& example, QSize screen) {
        main->resize(screen);
        QCoreApplication::sendPostedEvents();
        UseFormat(example.format);
        main->OpenFiles(
            {QString(QUANDREL_SOURCE_DIR "/examples/") + QString::fromStdString(example.file)});
        QCoreApplication::sendPostedEvents();
        return gActivePlot;
    }

    /// The lines of the legend that are cut off, or lie outside its box.
    static QStringList CutLines(const frmPlotForms& form) {
        const QSize size = form.picLegendBox->PictureSize();
        const QSize net = form.picStereoArea->PictureSize();
        RecordingSurface plot(net.width(), net.height());
        RecordingSurface legend(size.width(), size.height());
        DrawPlot(ActivePlot(), PaperDrawing(ActiveRecord(), plot, legend));
        QStringList drawn;
        for (const DrawOperation& operation : legend.Operations()) {
            if (operation.kind == DrawOperation::Kind::Text) {
                drawn << QString::fromStdString(operation.text);
            }
        }
        QStringList cut;
        for (const LegendLine& line :
             LegendLines(ActivePlot(), gSettings.styles, gSettings.notation.formulas)) {
            const QString text = QString::fromStdString(line.text);
            if (!text.isEmpty() && !drawn.contains(text)) {
                cut << text;
            }
        }
        return cut;
    }

    static void ExpectWhole(int slot, const std::string& what) {
        const frmPlotForms& form = FormOfSlot(slot);
        EXPECT_EQ(CutLines(form).join(" | ").toStdString(), "") << what << ": legend";
        const QPlainTextEdit& box = *form.txtStatsBox[0];
        EXPECT_TRUE(box.isVisible()) << what;
        EXPECT_EQ(box.verticalScrollBar()->maximum(), 0) << what << ": statistics";
        EXPECT_EQ(box.horizontalScrollBar()->maximum(), 0) << what << ": statistics";
    }

private:
    /// Formats are taken as they are set; reports of lines without data are read.
    ScriptedPrompts answers_{ScriptedPrompts::Mode::Batch};
};

constexpr QSize kScreens[] = {{1366, 738}, {1600, 970}};

TEST_F(ExampleWindows, TheFirstPlotTakesTheHeightAndMostOfTheWidth) {
    for (const QSize& screen : kScreens) {
        const int slot = OpenExample(Examples().front(), screen);
        const QRect room = Room().viewport()->rect();
        const QRect place = FormOfSlot(slot).geometry();
        EXPECT_EQ(place.height(), room.height());
        EXPECT_GE(place.width(), 0.6 * room.width());
        EXPECT_TRUE(room.contains(place));
        Press("mnuFileClose_1");
    }
}

TEST_F(ExampleWindows, LegendAndStatisticsOfEveryExampleAreSeenWhole) {
    const std::vector<Example> examples = Examples();
    ASSERT_GE(examples.size(), 18U);
    for (const QSize& screen : kScreens) {
        for (const Example& example : examples) {
            const int slot = OpenExample(example, screen);
            ASSERT_TRUE(IsOpenSlot(slot)) << example.file;
            ExpectWhole(slot, example.file + " on " + std::to_string(screen.width()));
            Press("mnuFileClose_1");
        }
    }
}

} // namespace
} // namespace quandrel
