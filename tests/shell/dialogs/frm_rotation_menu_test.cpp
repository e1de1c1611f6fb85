// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "platform/scripted/recording_surface.h"
#include "rotation/rotate_data.h"
#include "shell/dialogs/frm_rotation_menu.h"
#include "support/plot_rows.h"
#include "support/shell_test.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>

namespace quandrel {
namespace {

class RotationMenuTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotKind = kEqualArea;
        gPrimaryDataType = kPrimaryPlane;
        gSecondaryDataType = kNoSecondary;
        ForgetRotation();
        AddLines("lines", {{0, 0}, {30, 120}, {60, 350}});
        dialog = std::make_unique<frmRotationMenu>(nullptr, [this] { ++previewChanges; });
        dialog->show();
    }

    void TearDown() override {
        dialog.reset();
        ForgetRotation();
        EngineTest::TearDown();
    }

    using Rows = std::vector<std::pair<std::int32_t, std::int32_t>>;

    int AddLines(const std::string& title, const Rows& rows) {
        const int slot = NewPlot();
        PlotRecord& record = ActiveRecord();
        record.PlotTitle = title;
        record.PlotKind = kEqualArea;
        record.PrimaryFormat = kPrimaryLine;
        record.DataKind = kLines;
        for (const auto& [plunge, trend] : rows) {
            AddRow(plunge, trend);
        }
        return slot;
    }

    /// A plot of two beds with a line in each; the appended line of the first is invalid.
    void AddBeds() {
        AddLines("beds", {{30, 90}, {60, 270}});
        PlotRecord& record = ActiveRecord();
        record.PrimaryFormat = kPrimaryPlane;
        record.DataKind = kPlanes;
        record.SecondaryFormat = kSecondaryLine;
        int secondary = 1;
        GrowDataColumns(secondary, 2);
        gData2Dip.At(gActivePlot, 1) = 10;
        gData2Az.At(gActivePlot, 1) = 20;
        gData2Dip.At(gActivePlot, 2) = 10;
        gData2Az.At(gActivePlot, 2) = 350;
        record.HasAppendedLine = kTrue;
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Line));
        gAppLineDip.At(gActivePlot, 1) = kInvalidAppendedLine;
        gAppLineDip.At(gActivePlot, 2) = 0;
        gAppLineAz.At(gActivePlot, 2) = 0;
        RebuildRowTable(gActivePlot);
        dialog->FollowActivePlot();
    }

    static Rows RowsNow() {
        Rows rows;
        for (std::int32_t row = 1; row <= ActiveRecord().NumLoadedData; ++row) {
            rows.emplace_back(gDataDip(gActivePlot, row), gDataAz(gActivePlot, row));
        }
        return rows;
    }

    template <class Control>
    Control& Of(const std::string& name) {
        return ControlOf<Control>(*dialog, name);
    }

    void Choose(int index) { Of<QRadioButton>("optRotate_" + std::to_string(index)).click(); }

    void Type(int box, const char* text) { dialog->txtRotAngle[Place(box)]->setText(text); }

    void Type(const char* first, const char* second, const char* third) {
        Type(0, first);
        Type(1, second);
        Type(2, third);
    }

    std::string Text(int box) { return dialog->txtRotAngle[Place(box)]->text().toStdString(); }

    static std::size_t Place(int index) { return static_cast<std::size_t>(index); }

    [[nodiscard]] bool CanGo() const { return dialog->cmdRotGo[0]->isEnabled(); }

    void Go() { dialog->cmdRotGo[0]->click(); }

    /// The places at which a preview is drawn.
    std::vector<Point> Previewed() {
        RecordingSurface surface(1000, 1000);
        dialog->DrawPreview(surface);
        EXPECT_EQ(surface.Operations().size(), 1U);
        EXPECT_EQ(surface.State(), DrawState{});
        return surface.Operations().at(0).points;
    }

    void Focus(QLineEdit& box) {
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        box.setFocus();
        ASSERT_TRUE(box.hasFocus());
    }

    std::unique_ptr<frmRotationMenu> dialog;
    int previewChanges = 0;
};

TEST_F(RotationMenuTest, HasEveryControlByItsNameAndCaption) {
    const std::map<std::string, std::string> captions = {
        {"optRotate_0", "Unfold about Appended fold axis"},
        {"optRotate_1", "Unfold about selected fold axis"},
        {"optRotate_2", "Rotate about a given rot'n axis"},
        {"optRotate_3", " Rotate a given plane to vertical"},
        {"optRotate_4", "Rotate a given line to vertical"},
        {"chkUnfoldOption", "Force lines to lie within beds "},
        {"cmdRotGo_0", "Rotate Plot"},
        {"cmdRotGo_1", "Cancel"},
    };
    for (const auto& [name, caption] : captions) {
        EXPECT_EQ(Of<QAbstractButton>(name).text().remove('&').toStdString(), caption) << name;
        EXPECT_FALSE(Of<QAbstractButton>(name).text() == QString::fromStdString(caption)) << name;
    }
    for (int i = 0; i < kRotationOptions; ++i) {
        EXPECT_EQ(dialog->optRotate[Place(i)]->text().remove('&').toStdString(),
                  OptionOfRotation(i + 1).caption);
    }
    EXPECT_EQ(Of<QPushButton>("cmdRotGo_0").toolTip(), "Process selection");
    EXPECT_EQ(Of<QPushButton>("cmdRotGo_1").toolTip(), "Exit rotation dialog");
    EXPECT_EQ(Of<QCheckBox>("chkUnfoldOption").toolTip(),
              "Indicate if lines lie exactly within the unfolded beds (avoids rounding errors)");
    EXPECT_TRUE(Of<QPushButton>("cmdRotGo_0").isDefault());
    EXPECT_EQ(Of<QLabel>("lblRotMenu_3").text().remove('&'), "Pitch");
    EXPECT_EQ(Of<QLabel>("lblRotMenu_4").text().remove('&'), "Sense");
    EXPECT_TRUE(dialog->isModal() == false && dialog->windowFlags().testFlag(Qt::Tool));
}

TEST_F(RotationMenuTest, ShowsTheFramesAndLabelsOfTheOption) {
    struct Case {
        int option;
        const char* orientation; ///< heading; empty when the frame is not shown
        const char* first;
        const char* second;
        const char* angle;
        const char* degrees;
        bool pitch;
        bool force;
    };

    const Case cases[] = {
        {0, "", "", "", "", "", false, true},
        {1, "Fold Axis", "Plunge", "Azimuth", "", "", false, true},
        {2, "Rotation Axis", "Plunge", "Azimuth", "Rotation Angle", "degrees", false, false},
        {3, "Plane to Rotate", "Dip", "azimuth", "New Strike", "", true, false},
        {4, "Line to Rotate", "Plunge", "azimuth", "", "", false, false},
    };
    AddBeds();
    const QSize size = dialog->size();
    for (const Case& c : cases) {
        Choose(c.option);
        const auto title = [this](std::size_t frame) {
            const QGroupBox& box = *dialog->fraRotMenu[frame];
            return box.isVisible() ? box.title().remove('&').toStdString() : std::string();
        };
        const auto label = [this](std::size_t i) {
            return dialog->lblRotMenu[i]->text().remove('&').toStdString();
        };
        EXPECT_EQ(title(0), c.orientation) << c.option;
        EXPECT_EQ(title(1), c.angle) << c.option;
        EXPECT_EQ(title(2), c.pitch ? "Horizontal line" : "") << c.option;
        EXPECT_EQ(label(0), c.first) << c.option;
        EXPECT_EQ(label(1), c.second) << c.option;
        EXPECT_EQ(label(2), c.degrees) << c.option;
        EXPECT_EQ(dialog->chkUnfoldOption->isEnabled(), c.force) << c.option;
        EXPECT_EQ(dialog->lblRotInfo->text().toStdString(), OptionOfRotation(c.option + 1).help);
        EXPECT_EQ(dialog->size(), size) << "it keeps its size";
    }
}

TEST_F(RotationMenuTest, TakesItsCaptionFromThePlotAndFollowsIt) {
    EXPECT_EQ(dialog->windowTitle(), "Rotate: lines");
    Type("10", "20", "30");
    AddLines("others", {{10, 20}});
    dialog->FollowActivePlot();
    EXPECT_EQ(dialog->windowTitle(), "Rotate: others");
    EXPECT_EQ(Previewed().size(), 1U);
    EXPECT_EQ(Text(0), "10") << "what was typed stays";
    dialog->close();
    dialog->show();
    EXPECT_EQ(Text(0), "") << "and is gone with the dialog";
    EXPECT_FALSE(dialog->HasPreview());
    gActivePlot = 0;
    dialog->FollowActivePlot();
    EXPECT_EQ(dialog->windowTitle(), "Rotation Variables");
    EXPECT_FALSE(CanGo());
}

TEST_F(RotationMenuTest, CanGoWhenAllBoxesInUseAreInRange) {
    struct Case {
        int option;
        std::array<const char*, 4> boxes;
        const char* sense;
        bool good;
    };

    const Case cases[] = {
        {2, {"", "", "", ""}, "", false},           {2, {"90", "360", "-360", ""}, "", true},
        {2, {"91", "360", "10", ""}, "", false},    {2, {"90", "361", "10", ""}, "", false},
        {2, {"90", "360", "-361", ""}, "", false},  {2, {"-1", "0", "10", ""}, "", false},
        {2, {"x", "0", "10", ""}, "", false},       {2, {"12.5", "0", "0.5", "99"}, "?", true},
        {3, {"40", "120", "20", "30"}, "SW", true}, {3, {"40", "120", "20", "30"}, "x", false},
        {3, {"40", "120", "20", ""}, "SW", false},  {3, {"40", "120", "20", "91"}, "SW", false},
        {4, {"40", "120", "x", "x"}, "x", true},    {4, {"40", "", "", ""}, "", false},
    };
    for (const Case& c : cases) {
        Choose(c.option);
        for (int box = 0; box < 4; ++box) {
            Type(box, c.boxes[Place(box)]);
        }
        dialog->txtRotAngleSense->setText(c.sense);
        EXPECT_EQ(CanGo(), c.good) << c.option << " " << c.boxes[0] << " " << c.boxes[2];
        EXPECT_EQ(dialog->lblRotStatus->text().isEmpty(), c.good) << "it says what is missing";
        EXPECT_EQ(dialog->HasPreview(), c.good);
    }
}

TEST_F(RotationMenuTest, ANewStrikeStopsAtAFullTurn) {
    const std::pair<const char*, const char*> typed[] = {
        {"360", "360"},     {"361", "36"},     {"400", "40"},  {"-45", "45"},    {"3600", "360"},
        {"359.9", "359.9"}, {"360.5", "360."}, {"060", "060"}, {"12,5", "12,5"}, {"9x", "9"},
    };
    Choose(3);
    for (const auto& [keys, text] : typed) {
        Type(2, "");
        QTest::keyClicks(dialog->txtRotAngle[2], keys);
        EXPECT_EQ(Text(2), text) << keys;
    }
    Choose(2);
    Type(2, "");
    QTest::keyClicks(dialog->txtRotAngle[2], "-450");
    EXPECT_EQ(Text(2), "-450") << "a rotation angle is only checked";
    Choose(3);
    EXPECT_EQ(Text(2), "") << "it is not a strike";
    Type(2, "30");
    Choose(2);
    EXPECT_EQ(Text(2), "30");
}

TEST_F(RotationMenuTest, RotatesThePlotAndCloses) {
    // About the vertical, 30 degrees are added to each trend.
    Type("90", "0", "30");
    Go();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(RowsNow(), (Rows{{0, 30}, {30, 150}, {60, 20}}));
    EXPECT_EQ(ActiveRecord().RotationState, kRotateAboutAxis);
    EXPECT_NE(ActiveRecord().Modified, 0);
    EXPECT_TRUE(CanUndoRotation());
    EXPECT_FALSE(dialog->HasPreview());
    EXPECT_EQ(gRotFocusBox, kNoRotationFocus);
}

TEST_F(RotationMenuTest, EnterIsRotatePlotAndEscapeIsCancel) {
    Type("90", "0", "30");
    QTest::keyClick(dialog->txtRotAngle[2], Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(RowsNow()[1], std::pair(30, 150));
    dialog->show();
    Type("90", "0", "30");
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(RowsNow()[1], std::pair(30, 150));
}

TEST_F(RotationMenuTest, CancelLeavesNoTrace) {
    const Rows rows = RowsNow();
    ActiveRecord().Modified = 0;
    ActiveRecord().RowsChanged = 0;
    Type("90", "0", "30");
    EXPECT_TRUE(dialog->HasPreview());
    dialog->cmdRotGo[1]->click();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_FALSE(dialog->HasPreview());
    EXPECT_EQ(RowsNow(), rows);
    EXPECT_EQ(ActiveRecord().RotationState, 0);
    EXPECT_EQ(ActiveRecord().Modified, 0);
    EXPECT_EQ(ActiveRecord().RowsChanged, 0);
    EXPECT_FALSE(CanUndoRotation());
}

TEST_F(RotationMenuTest, ForcesLinesIntoBedsWhenUnfoldingAlone) {
    AddBeds();

    struct Case {
        int option;
        bool force;
        std::int16_t state;
    };

    for (const Case& c :
         {Case{0, true, -1}, {0, false, 1}, {1, true, -2}, {1, false, 2}, {2, true, 3}}) {
        dialog->show();
        Choose(1);
        dialog->chkUnfoldOption->setChecked(c.force);
        Choose(c.option);
        Type("0", "0", "0");
        Go();
        EXPECT_EQ(ActiveRecord().RotationState, c.state) << c.option;
        EXPECT_TRUE(UndoRotation());
    }
}

TEST_F(RotationMenuTest, TellsHowManyRowsWereLeft) {
    AddBeds();
    Choose(0);
    Go();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(status.Text(), "1 row without a valid appended line was left unrotated.");
    EXPECT_EQ(RowsNow()[0], std::pair(30, 90));
    EXPECT_EQ(RowsNow()[1].first, 0) << "its axis lies in it: it unfolds to horizontal";
}

TEST_F(RotationMenuTest, SaysWhyAPlotCannotBeUnfolded) {
    Expect("The data in this plot are not linked to any planes which can be unfolded.");
    Choose(1);
    EXPECT_TRUE(dialog->optRotate[1]->isChecked());
    gSecondaryDataType = kSecondaryLine;
    Expect("you are currently not focussed on a plot containing the Secondary data.");
    Choose(1);
    ActiveRecord().SecondaryFormat = kSecondaryLine;
    Expect("is not compatible with this type of");
    Choose(1);
    Type("0", "0", "0");
    EXPECT_FALSE(dialog->HasPreview());
    Expect("is not compatible with this type of");
    Go();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(ActiveRecord().RotationState, 0);
    Choose(4);
    AddBeds();
    Choose(1);
}

TEST_F(RotationMenuTest, OffersAppendedAxesToPlotsThatHaveThem) {
    EXPECT_FALSE(dialog->optRotate[0]->isEnabled());
    EXPECT_FALSE(dialog->optRotate[0]->toolTip().isEmpty());
    const std::int32_t first = gActivePlot;
    AddBeds();
    EXPECT_TRUE(dialog->optRotate[0]->isEnabled());
    EXPECT_TRUE(dialog->optRotate[0]->toolTip().isEmpty());
    Choose(0);
    EXPECT_TRUE(CanGo()) << "no box is in use";
    gActivePlot = first;
    dialog->FollowActivePlot();
    EXPECT_FALSE(dialog->optRotate[0]->isEnabled());
    EXPECT_TRUE(dialog->optRotate[2]->isChecked());
}

TEST_F(RotationMenuTest, PreviewsTheRowsAtTheirNewPlaces) {
    // A horizontal line to the north, turned by a quarter about the vertical, lies to the east;
    // a vertical one stays.
    const int slot = AddLines("axes", {{0, 0}, {90, 0}});
    dialog->FollowActivePlot();
    const int before = previewChanges;
    Type("90", "0", "90");
    EXPECT_GT(previewChanges, before);
    EXPECT_EQ(Previewed(), (std::vector<Point>{{1000, 0}, {0, 0}}));
    EXPECT_EQ(gDataAz(slot, 1), 0);
    Type(2, "-90");
    EXPECT_EQ(Previewed()[0], (Point{-1000, 0}));
    gDataSymbol.At(slot, 1) = MakeSymbolCode(1, 0, 4);
    dialog->FollowActivePlot();
    EXPECT_EQ(Previewed(), (std::vector<Point>{{0, 0}})) << "hidden rows stay hidden";
    Type(2, "x");
    EXPECT_FALSE(dialog->HasPreview());
}

TEST_F(RotationMenuTest, TakesTheLineUnderThePointer) {
    Focus(*dialog->txtRotAngle[1]);
    dialog->TakePick({0, 0}, Qt::NoModifier);
    EXPECT_EQ(Text(0), "90");
    EXPECT_EQ(dialog->HintAt({-1000, 0}, Qt::NoModifier), "Rotation Axis: 0/270");
    EXPECT_EQ(Text(0), "90") << "a hint fills nothing";
    dialog->TakePick({-1000, 0}, Qt::NoModifier);
    EXPECT_EQ(Text(0) + "/" + Text(1), "0/270");
    dialog->TakePick({0, 1050}, Qt::NoModifier);
    EXPECT_EQ(Text(1), "270") << "beside the net";
    EXPECT_EQ(dialog->HintAt({0, 1050}, Qt::NoModifier), "");
    Type(2, "10");
    EXPECT_TRUE(CanGo());
}

TEST_F(RotationMenuTest, TakesPlaneStrikeAndSenseByTheBoxInFocus) {
    Choose(3);
    Focus(*dialog->txtRotAngle[0]);
    // The pole of a vertical plane is horizontal, its trend opposite to the dip direction.
    dialog->TakePick({0, 1000}, Qt::NoModifier);
    EXPECT_EQ(Text(0) + "/" + Text(1), "90/180");
    Focus(*dialog->txtRotAngle[2]);
    // East-north-east by 27 degrees from east: azimuth 63.43.
    const Point at{600, 300};
    dialog->TakePick(at, Qt::NoModifier);
    EXPECT_EQ(Text(2), "060");
    dialog->TakePick(at, Qt::ShiftModifier);
    EXPECT_EQ(Text(2), "065");
    dialog->TakePick(at, Qt::ControlModifier);
    EXPECT_EQ(Text(2), "063");
    EXPECT_EQ(dialog->HintAt(at, Qt::ControlModifier), "New Strike: 063");
    Focus(*dialog->txtRotAngle[3]);
    EXPECT_EQ(gRotFocusBox, kNewStrikeFocus) << "a pitch is not read off the net";
    Focus(*dialog->txtRotAngleSense);
    dialog->TakePick(at, Qt::NoModifier);
    EXPECT_EQ(dialog->txtRotAngleSense->text(), "NE");
    EXPECT_EQ(Text(0) + "/" + Text(1) + " " + Text(2), "90/180 063");
    Choose(2);
    EXPECT_EQ(gRotFocusBox, kOrientationFocus);
}

TEST_F(RotationMenuTest, TakesNothingForARoseOrWithoutBoxes) {
    AddBeds();
    Choose(0);
    EXPECT_EQ(dialog->HintAt({0, 0}, Qt::NoModifier), "");
    Choose(2);
    EXPECT_NE(dialog->HintAt({0, 0}, Qt::NoModifier), "");
    ActiveRecord().PlotKind = kRose;
    EXPECT_EQ(dialog->HintAt({0, 0}, Qt::NoModifier), "");
    dialog->TakePick({0, 0}, Qt::NoModifier);
    EXPECT_EQ(Text(0), "");
}

TEST_F(RotationMenuTest, HasUniqueMnemonicsInEachOption) {
    AddBeds();
    for (int option = 0; option < kRotationOptions; ++option) {
        Choose(option);
        std::set<QString> keys;
        const auto take = [&keys](const QString& text) {
            const auto at = text.indexOf('&');
            if (at >= 0) {
                EXPECT_TRUE(keys.insert(text.mid(at + 1, 1).toLower()).second)
                    << text.toStdString();
            }
        };
        for (const auto* button : dialog->findChildren<QAbstractButton*>()) {
            take(button->text());
        }
        const auto boxes = dialog->findChildren<QLineEdit*>();
        for (const auto* label : dialog->findChildren<QLabel*>()) {
            if (label->isVisible()) {
                take(label->text());
            }
        }
        for (const auto* frame : dialog->findChildren<QGroupBox*>()) {
            if (frame->isVisible()) {
                take(frame->title());
            }
        }
        EXPECT_GE(keys.size(), 8U);
        for (const auto* box : boxes) {
            EXPECT_TRUE(!box->isVisible() || !box->accessibleName().isEmpty())
                << box->objectName().toStdString();
        }
    }
}

TEST_F(RotationMenuTest, GoesThroughAllBoxesByTab) {
    Choose(3);
    Type("40", "120", "20");
    Type(3, "30");
    dialog->txtRotAngleSense->setText("SW");
    Focus(*dialog->txtRotAngle[0]);
    std::vector<QString> visited;
    for (int i = 0; i < 7; ++i) {
        visited.push_back(dialog->focusWidget()->objectName());
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(visited, (std::vector<QString>{"txtRotAngle_0", "txtRotAngle_1", "txtRotAngle_2",
                                             "txtRotAngle_3", "txtRotAngleSense", "cmdRotGo_0",
                                             "cmdRotGo_1"}));
    EXPECT_EQ(dialog->focusWidget(), dialog->optRotate[3]);
}

} // namespace
} // namespace quandrel
