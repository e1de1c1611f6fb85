// SPDX-License-Identifier: MIT
//
// How many actions lead from a file, a text or a folder to a right plot.

#include "core/measured_rows.h"
#include "drawing/layer_list.h"
#include "drawing/plot_state.h"
#include "edit/marks/girdles.h"
#include "edit/rows/paste_rows.h"
#include "session/drops.h"
#include "shell/format/frm_file_format.h"
#include "support/main_window_test.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

#include <filesystem>

namespace quandrel {
namespace {

constexpr const char* kBeds = "dipdir,dip,rock\n142,52,schist\n35,43,marble\n300,20,schist\n"
                              "150,60,schist\n40,40,marble\n290,30,schist\n";

class FirstPlot : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        gSettings.newPlots.style = {"Screen", ""};
        gPlatform.clipboard = &ownClipboard;
        prompts.OnFormat([this](const FormatQuestion& question) -> std::optional<FormatAnswer> {
            frmFileFormat dialog(question, main.get());
            dialog.show();
            if (!presses) {
                return std::nullopt;
            }
            Act([&] { ControlOf<QPushButton>(dialog, "cmdButtons_0").click(); });
            return dialog.result() == QDialog::Accepted ? std::optional(dialog.Answer())
                                                        : std::nullopt;
        });
    }

    /// An action of the user.
    void Act(const std::function<void()>& action) {
        ++actions;
        action();
    }

    /// Opens a file by the menu, a file dialog, and OK in the format dialog.
    void OpenByMenu(const std::string& name, const std::string& text) {
        prompts.QueueOpenPath(WriteFile(name, text));
        ++actions; // the choice of the file
        Act([&] { Press("mnuFileLoad_0"); });
    }

    void Drop(const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        DropData(data);
    }

    void DropData(const QMimeData& data) {
        QDragEnterEvent enter({100, 100}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(main.get(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent event({100, 100}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(main.get(), &event);
        QCoreApplication::processEvents();
    }

    void ExpectBeds() {
        ASSERT_TRUE(IsOpenSlot(gActivePlot));
        EXPECT_EQ(ActiveRecord().NumValidData, 6);
        EXPECT_EQ(ActiveRecord().DataKind, kPlanes);
        EXPECT_EQ(gDataDip.At(gActivePlot, 1), 52);
        EXPECT_EQ(gDataAz.At(gActivePlot, 1), 142);
        EXPECT_EQ(ActiveRecord().AppNonNumName, "rock");
    }

    MemoryClipboard ownClipboard;
    bool presses = true; ///< OK is pressed in the format dialog
    int actions = 0;
};

TEST_F(FirstPlot, TakesThreeActions) {
    OpenByMenu("beds.csv", kBeds);
    ExpectBeds();
    EXPECT_EQ(actions, 3);
}

TEST_F(FirstPlot, WithContoursPolesAndGirdleInTheJournalStyleTakesSix) {
    OpenByMenu("beds.csv", kBeds);
    Act([&] { ToggleSymbolLayer(gActivePlot, 5); }); // Ctrl and a click on the contours' button
    Act([&] { Press("mnuViewBestGirdle"); });
    Act([&] { Press("mnuPlotStyle_2"); });
    EXPECT_EQ(actions, 6);
    ExpectBeds();
    const auto shows = [](std::int16_t way) {
        const std::vector<FigureLayer> layers = LayersOf(ActivePlot());
        return std::ranges::any_of(layers, [way](const FigureLayer& layer) {
            return layer.LayerOf == kLayerOfMainRows && layer.LayerShow == way
                   && layer.LayerHidden == 0;
        });
    };
    EXPECT_TRUE(shows(kShowContours) || shows(kShowBands));
    EXPECT_TRUE(shows(kShowSymbols));
    EXPECT_TRUE(IsGirdleShown(kGirdleItem));
    EXPECT_EQ(ActiveRecord().StyleName, kJournalStyle);
    EXPECT_NE(ActiveRecord().LayerVisible[kLegendLayer], 0);
    EXPECT_TRUE(Action("mnuViewBestGirdle").isChecked());
}

TEST_F(FirstPlot, FromTheClipboardTakesTwo) {
    std::string table = kBeds;
    std::ranges::replace(table, ',', '\t'); // as spreadsheets copy
    ownClipboard.SetText(table);
    main->UpdatePlotState();
    ASSERT_TRUE(Action("mnuEditSelection_4").isEnabled());
    Act([&] { Press("mnuEditSelection_4"); });
    ExpectBeds();
    EXPECT_EQ(actions, 2);
}

TEST_F(FirstPlot, FromTheClipboardEqualsThatOfTheFile) {
    std::string table = "dip direction,dip,rock,x,y\n";
    for (int row = 1; row <= 200; ++row) {
        table += std::to_string(row * 7 % 360) + "." + std::to_string(row % 10) + ","
                 + std::to_string(row % 90) + (row % 3 == 0 ? ",marl," : ",schist,")
                 + std::to_string(651000 + row) + ".25," + std::to_string(5200000 - row) + "\n";
    }
    OpenByMenu("beds.csv", table);
    const int file = gActivePlot;
    std::ranges::replace(table, ',', '\t');
    ASSERT_TRUE(PasteAsPlot(table));
    const int pasted = gActivePlot;
    ASSERT_NE(pasted, file);
    ASSERT_EQ(RecordOf(file).NumValidData, 200);
    EXPECT_EQ(RecordOf(pasted).NumValidData, 200);
    EXPECT_EQ(RecordOf(pasted).DataKind, RecordOf(file).DataKind);
    EXPECT_EQ(RecordOf(pasted).AppNonNumName, RecordOf(file).AppNonNumName);
    for (std::int32_t row = 1; row <= 200; ++row) {
        EXPECT_EQ(MeasuredAttitude(PlotOf(pasted).rows, RowAngles::Primary, row),
                  MeasuredAttitude(PlotOf(file).rows, RowAngles::Primary, row));
        EXPECT_EQ(gAppText(pasted, row), gAppText(file, row));
        EXPECT_EQ(MapPlaceOf(PlotOf(pasted).rows, row),
                  (MapPlace{651000.25 + row, 5200000.0 - row}));
        EXPECT_EQ(MapPlaceOf(PlotOf(file).rows, row), MapPlaceOf(PlotOf(pasted).rows, row));
    }
}

TEST_F(FirstPlot, IsNotLeftEmptyByAPasteThatIsCancelled) {
    ownClipboard.SetText(kBeds);
    presses = false;
    main->UpdatePlotState();
    Press("mnuEditSelection_4");
    EXPECT_EQ(CountOpenPlots(), 0);
    ownClipboard.SetText("no rows 1\nat all 2\n");
    presses = true;
    prompts.Expect("2 lines of the text are not data and were not pasted.", Button::Ok);
    Press("mnuEditSelection_4");
    EXPECT_EQ(CountOpenPlots(), 0);
}

TEST_F(FirstPlot, ComesFromADroppedText) {
    QMimeData data;
    data.setText(kBeds);
    DropData(data);
    ExpectBeds();
}

TEST_F(FirstPlot, SeveralTablesAreAskedAboutOnce) {
    const QList<QUrl> urls = {
        QUrl::fromLocalFile(QString::fromStdString(WriteFile("a.csv", kBeds))),
        QUrl::fromLocalFile(QString::fromStdString(WriteFile("b.csv", kBeds))),
        QUrl::fromLocalFile(QString::fromStdString(WriteFile("c.csv", kBeds)))};
    prompts.Expect("Make a plot of each of these 3 tables?", Button::Cancel);
    Drop(urls);
    EXPECT_EQ(CountOpenPlots(), 0);
    prompts.Expect("Make a plot of each of these 3 tables?", Button::Yes);
    Drop(urls);
    EXPECT_EQ(CountOpenPlots(), 3);
    prompts.Expect("Make a plot of each of these 3 tables?", Button::No);
    Drop(urls);
    ASSERT_EQ(CountOpenPlots(), 4);
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 2);
}

TEST_F(FirstPlot, AFolderIsItsTables) {
    std::filesystem::create_directory(folder / "field");
    WriteFile("field/a.csv", kBeds);
    WriteFile("field/notes.doc", "no table");
    Drop({QUrl::fromLocalFile(QString::fromStdString((folder / "field").string()))});
    EXPECT_EQ(CountOpenPlots(), 1);
    ExpectBeds();
}

} // namespace
} // namespace quandrel
