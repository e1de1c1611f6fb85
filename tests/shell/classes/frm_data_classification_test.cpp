// SPDX-License-Identifier: MIT

#include "classify/class_fixture.h"
#include "shell/classes/class_boxes.h"
#include "shell/classes/frm_data_classification.h"
#include "support/shell_test.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <map>
#include <memory>
#include <set>

namespace quandrel {
namespace {

class ClassificationDialogTest : public ClassTest {
protected:
    void SetUp() override {
        ClassTest::SetUp();
        AddValued(0, "slate");
        AddValued(4, "marl");
        AddValued(5, "slate");
        AddValued(10, "7");
    }

    void Open(std::function<void(int)> preferences = {}) {
        dialog_ = std::make_unique<frmDataClassification>(nullptr, std::move(preferences));
        dialog_->show();
    }

    void Choose(ClassKind kind) {
        dialog_->optDataClassif[static_cast<std::size_t>(kind)]->setChecked(true);
    }

    static void Type(QLineEdit& box, const QString& text) {
        box.setFocus();
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, text);
    }

    [[nodiscard]] QString Figure(NumericStatsLabel label) const {
        return dialog_->lblNumericStats[label]->text();
    }

    std::unique_ptr<frmDataClassification> dialog_;
};

TEST_F(ClassificationDialogTest, HasEveryControlByItsNameAndCaption) {
    Open();
    EXPECT_EQ(dialog_->windowTitle(), "Data Classification dialog");
    EXPECT_EQ(dialog_->objectName(), "frmDataClassification");
    const std::map<std::string, std::string> captions = {
        {"optDataClassif_0", "None"},
        {"optDataClassif_1", "by numeric value"},
        {"optDataClassif_2", "by alphanumeric type"},
        {"optClassifPlotType_0", "Classified data points"},
        {"optClassifPlotType_1", "Gridded values"},
        {"optClassifPlotType_2", "Contoured gridded values"},
        {"optClassifPlotType_3", "Contours with grid points"},
        {"optClassifPlotType_4", "Contours with data points"},
        {"chkGridValues_0", "Cumulative"},
        {"chkGridValues_1", "Mean"},
        {"OKButton", "OK"},
        {"CancelButton", "Cancel"},
        {"cmdApply", "Apply"},
    };
    for (const auto& [name, caption] : captions) {
        EXPECT_EQ(ControlOf<QAbstractButton>(*dialog_, name).text().remove('&').toStdString(),
                  caption);
    }
    ControlOf<QPushButton>(*dialog_, "cmdPreferences");
    ControlOf<QLineEdit>(*dialog_, "txtMinValue");
    for (int i = 0; i < 8; ++i) {
        ControlOf<QLabel>(*dialog_, "lblNumericStats_" + std::to_string(i));
    }
    std::set<QString> frames;
    for (const QGroupBox* box : dialog_->findChildren<QGroupBox*>()) {
        frames.insert(box->title());
    }
    for (const char* title : {"Stereo Data Classification", "Numeric plot type",
                              "Grid values used:", "Null value setting", "Numeric data stats"}) {
        EXPECT_TRUE(frames.contains(title)) << title;
    }
}

TEST_F(ClassificationDialogTest, ShowsTheStatisticsOfTheNumbers) {
    Open();
    EXPECT_EQ(Figure(kStatsMinimum), "0");
    EXPECT_EQ(Figure(kStatsMaximum), "10");
    EXPECT_EQ(Figure(kStatsMean), "4.75");
    EXPECT_EQ(Figure(kStatsDeviation), "4.113") << "sqrt(50.75 / 3)";
    EXPECT_EQ(Figure(kStatsMeansMin), "\u2013") << "no grid yet";
    EXPECT_EQ(dialog_->lblValues->text(),
              "4 of 4 rows have a number, 4 different ones; 3 different types");
}

TEST_F(ClassificationDialogTest, TakesLimitsFromTheGridThatItShows) {
    Open();
    Choose(ClassKind::Numbers);
    QLineEdit& top =
        *dialog_->boxes->txtRange[2 * dialog_->boxes->Settings().numbers.limits.base - 1];
    EXPECT_EQ(top.text(), "10") << "the greatest number";
    dialog_->optClassifPlotType[1]->setChecked(true);
    dialog_->chkGridValues[0]->setChecked(true);
    EXPECT_EQ(top.text(), "19") << "all four lie on one place: the sum of them";
    dialog_->chkGridValues[1]->setChecked(true);
    EXPECT_EQ(top.text(), "4.75") << "the mean of them";
    dialog_->optClassifPlotType[0]->setChecked(true);
    EXPECT_EQ(top.text(), "10");
    Type(*dialog_->boxes->txtRange[0], "1");
    dialog_->optClassifPlotType[1]->setChecked(true);
    EXPECT_EQ(top.text(), "10") << "limits of the user's own stay";
}

TEST_F(ClassificationDialogTest, ShowsTheRangesOfTheGrids) {
    ActiveRecord().GridSize = 10;
    auto& grid = gGridValues[static_cast<std::size_t>(gActivePlot)];
    grid = std::make_unique<GridValues>();
    for (auto& layer : *grid) {
        for (auto& row : layer) {
            row.fill(kUnsetValue);
        }
    }
    (*grid)[0][2][2] = 1.5; // means
    (*grid)[0][2][3] = 2.5;
    (*grid)[1][2][2] = 30; // sums
    (*grid)[1][2][3] = 40;
    gGridCount[static_cast<std::size_t>(gActivePlot)] = 1;
    Open();
    EXPECT_EQ(Figure(kStatsMeansMin), "1.5");
    EXPECT_EQ(Figure(kStatsMeansMax), "2.5");
    EXPECT_EQ(Figure(kStatsSumsMin), "30");
    EXPECT_EQ(Figure(kStatsSumsMax), "40");
}

TEST_F(ClassificationDialogTest, OkClassifiesAndCloses) {
    Open();
    Choose(ClassKind::Numbers);
    dialog_->boxes->cboNumClasses[0]->setCurrentIndex(1); // 0 to 5 to 10
    dialog_->OKButton->click();
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(dialog_->result(), QDialog::Accepted);
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.ClassMode, kClassesByNumber);
    EXPECT_EQ(record.NumClassified, 4);
    EXPECT_EQ(NumberOf(record.ClassTable[kLowestRow + 1][kNumberClasses]), 5);
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), CodeOfClass(2));
    EXPECT_EQ(gDataSymbol(gActivePlot, 3), CodeOfClass(3));
}

TEST_F(ClassificationDialogTest, ApplyClassifiesAndStays) {
    Open();
    Choose(ClassKind::Types);
    dialog_->cmdApply->click();
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(ActiveRecord().ClassMode, kClassesByName);
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), CodeOfClass(2));
    EXPECT_EQ(gDataSymbol(gActivePlot, 2), CodeOfClass(3));
    EXPECT_TRUE(dialog_->optDataClassif[2]->isChecked());
    EXPECT_EQ(dialog_->boxes->cboType->currentText(), "Last Used") << "the plot has them now";
}

TEST_F(ClassificationDialogTest, CancelChangesNothing) {
    const auto table = gSymbolTable;
    Open();
    Choose(ClassKind::Numbers);
    ClassStyles styles = dialog_->boxes->Styles();
    styles[0] = {8, 13, 7};
    dialog_->boxes->SetStyles(styles);
    dialog_->optClassifPlotType[2]->setChecked(true);
    Type(*dialog_->txtMinValue, "5");
    dialog_->CancelButton->click();
    EXPECT_FALSE(dialog_->isVisible());
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.ClassMode, kNotClassified);
    EXPECT_EQ(record.NumClasses, 0);
    EXPECT_EQ(NumberOf(record.ClassTable[kBaseRow][kNumberClasses]), 0);
    EXPECT_EQ(GridBackground(record), 0);
    EXPECT_EQ(gSymbolTable, table);
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), 50302U);
}

TEST_F(ClassificationDialogTest, StylesGoToThePlotWithApply) {
    Open();
    Choose(ClassKind::Numbers);
    ClassStyles styles = dialog_->boxes->Styles();
    styles[1] = {8, 13, 7};
    dialog_->boxes->SetStyles(styles);
    dialog_->cmdApply->click();
    EXPECT_EQ(gSymbolTable[kFirstClassStyle + 1], (SymbolRow{8, 13, 7}));
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), MakeSymbolCode(8, 13, 7)) << "class 2 from 0 on";
}

TEST_F(ClassificationDialogTest, NoneGivesBackTheLoadedSymbols) {
    Open();
    Choose(ClassKind::Numbers);
    dialog_->cmdApply->click();
    ASSERT_NE(gDataSymbol(gActivePlot, 1), 50302U);
    Choose(ClassKind::None);
    dialog_->cmdApply->click();
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), 50302U);
    EXPECT_EQ(ActiveRecord().NumClassified, 0);
}

TEST_F(ClassificationDialogTest, PlotTypeGridValueAndBackgroundAreStored) {
    for (std::int16_t type = 0; type <= 4; ++type) {
        Open();
        Choose(ClassKind::Numbers);
        dialog_->optClassifPlotType[static_cast<std::size_t>(type)]->setChecked(true);
        dialog_->OKButton->click();
        EXPECT_EQ(ActiveRecord().NumClasses, type);
    }
    Open();
    EXPECT_TRUE(dialog_->optClassifPlotType[4]->isChecked());
    EXPECT_TRUE(dialog_->chkGridValues[1]->isChecked());
    EXPECT_EQ(dialog_->txtMinValue->text(), "0");
    dialog_->chkGridValues[0]->click();
    EXPECT_FALSE(dialog_->chkGridValues[1]->isChecked()) << "exactly one";
    Type(*dialog_->txtMinValue, "-2.5");
    dialog_->OKButton->click();
    EXPECT_EQ(GridValueShown(ActiveRecord()), ClassGridValue::Cumulative);
    EXPECT_EQ(GridBackground(ActiveRecord()), -2.5);
    Open();
    EXPECT_TRUE(dialog_->chkGridValues[0]->isChecked());
    EXPECT_EQ(dialog_->txtMinValue->text(), "-2.5");
    Type(*dialog_->txtMinValue, "");
    dialog_->OKButton->click();
    EXPECT_EQ(GridBackground(ActiveRecord()), std::nullopt) << "contours end at empty nodes";
}

TEST_F(ClassificationDialogTest, TheBackgroundIsReadByTheRegionalDelimiter) {
    gDecimalIsComma = true;
    Open();
    Choose(ClassKind::Numbers);
    dialog_->optClassifPlotType[2]->setChecked(true);
    Type(*dialog_->txtMinValue, "1,5");
    dialog_->OKButton->click();
    EXPECT_EQ(GridBackground(ActiveRecord()), 1.5);
    Open();
    EXPECT_EQ(dialog_->txtMinValue->text(), "1,5");
}

TEST_F(ClassificationDialogTest, ABackgroundThatIsNotTouchedKeepsItsDigits) {
    ActiveRecord().ClassStats[kGridChoice][kBackground] = 1.0 / 3;
    Open();
    Choose(ClassKind::Numbers);
    dialog_->OKButton->click();
    EXPECT_EQ(GridBackground(ActiveRecord()), 1.0 / 3);
}

TEST_F(ClassificationDialogTest, TextsThatAreNoNumbersAreRefused) {
    Open();
    Choose(ClassKind::Numbers);
    Type(*dialog_->boxes->txtRange[1], "x");
    Expect("A class limit is not a number.");
    dialog_->OKButton->click();
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(dialog_->focusWidget(), dialog_->boxes->txtRange[1]);
    EXPECT_EQ(ActiveRecord().ClassMode, kNotClassified);
    Type(*dialog_->boxes->txtRange[1], "2");
    dialog_->optClassifPlotType[2]->setChecked(true);
    Type(*dialog_->txtMinValue, "none");
    Expect("The minimum possible background value is not a number.");
    dialog_->OKButton->click();
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_EQ(dialog_->focusWidget(), dialog_->txtMinValue);
    EXPECT_EQ(ActiveRecord().ClassMode, kNotClassified);
    dialog_->optClassifPlotType[0]->setChecked(true); // without contours it does not matter
    dialog_->OKButton->click();
    EXPECT_EQ(ActiveRecord().ClassMode, kClassesByNumber);
    EXPECT_EQ(GridBackground(ActiveRecord()), 0);
}

TEST_F(ClassificationDialogTest, WarnsOfDecimalDelimiters) {
    AddNumbers({kInvalidNumber, kInvalidNumber, kInvalidNumber, kInvalidNumber});
    Open();
    Choose(ClassKind::Numbers);
    dialog_->boxes->chkShowOthers[kLowNumbers]->setChecked(false);
    Expect("Only 50.0% of your Appended data contributed valid values");
    dialog_->OKButton->click();
    EXPECT_EQ(ActiveRecord().NumClassified, 4);
}

TEST_F(ClassificationDialogTest, EnablesOnlyWhatThePlotHas) {
    struct Case {
        bool numbers;
        bool texts;
    };

    for (const Case& c :
         {Case{true, true}, Case{true, false}, Case{false, true}, Case{false, false}}) {
        ActiveRecord().HasAppendedNumeric = c.numbers ? kTrue : std::int16_t{0};
        ActiveRecord().HasAppendedText = c.texts ? kTrue : std::int16_t{0};
        Open();
        EXPECT_TRUE(dialog_->optDataClassif[0]->isEnabled());
        EXPECT_EQ(dialog_->optDataClassif[1]->isEnabled(), c.numbers);
        EXPECT_EQ(dialog_->optDataClassif[2]->isEnabled(), c.texts);
        EXPECT_EQ(dialog_->optDataClassif[1]->toolTip(),
                  c.numbers ? "Classes of Thickness" : "The data have no appended numbers");
        EXPECT_EQ(dialog_->optDataClassif[2]->toolTip(),
                  c.texts ? "Classes of Rock" : "The data have no appended texts");
    }
}

TEST_F(ClassificationDialogTest, OptionsOfGridsFollowThePlotType) {
    Open();
    const auto expect = [this](bool type, bool grid, bool background) {
        EXPECT_EQ(dialog_->optClassifPlotType[0]->isEnabled(), type);
        EXPECT_EQ(dialog_->chkGridValues[0]->isEnabled(), grid);
        EXPECT_EQ(dialog_->txtMinValue->isEnabled(), background);
        for (const QWidget* control : std::initializer_list<const QWidget*>{
                 dialog_->optClassifPlotType[0], dialog_->chkGridValues[0], dialog_->txtMinValue}) {
            EXPECT_FALSE(control->toolTip().isEmpty());
        }
    };
    expect(false, false, false);
    Choose(ClassKind::Numbers);
    expect(true, false, false);
    dialog_->optClassifPlotType[kGriddedValues]->setChecked(true);
    expect(true, true, false);
    for (const ClassPlotType contours :
         {kContouredGriddedValues, kContoursWithGridPoints, kContoursWithDataPoints}) {
        dialog_->optClassifPlotType[static_cast<std::size_t>(contours)]->setChecked(true);
        expect(true, true, true);
    }
    EXPECT_EQ(dialog_->txtMinValue->toolTip(),
              "Set the value for background null values for contoured numeric values");
    Choose(ClassKind::Types);
    expect(false, false, false);
}

TEST_F(ClassificationDialogTest, PreferencesOpenAtTheSymbols) {
    Open();
    EXPECT_FALSE(dialog_->cmdPreferences->isEnabled());
    EXPECT_FALSE(dialog_->cmdPreferences->toolTip().isEmpty());
    int tab = -1;
    Open([&tab](int asked) {
        tab = asked;
        gSymbolTable[kFirstClassStyle + 3] = {1, 2, 3};
    });
    ClassStyles edited = dialog_->boxes->Styles();
    edited[0] = {8, 13, 7};
    dialog_->boxes->SetStyles(edited);
    dialog_->cmdPreferences->click();
    EXPECT_EQ(tab, 0);
    EXPECT_EQ(dialog_->boxes->Styles()[3], (SymbolRow{1, 2, 3})) << "what changed there";
    EXPECT_EQ(dialog_->boxes->Styles()[0], (SymbolRow{8, 13, 7})) << "what was edited here";
}

TEST_F(ClassificationDialogTest, FollowsTheActivePlot) {
    const int first = gActivePlot;
    NewPlot();
    ActiveRecord().HasAppendedNumeric = kTrue;
    ActiveRecord().AppNumName = "Length";
    AddNumbers({20, 30});
    const int second = gActivePlot;
    gActivePlot = first;
    Open();
    Choose(ClassKind::Numbers);
    dialog_->FollowActivePlot();
    EXPECT_TRUE(dialog_->optDataClassif[1]->isChecked()) << "the same plot: nothing is lost";
    gActivePlot = second;
    dialog_->FollowActivePlot();
    EXPECT_TRUE(dialog_->optDataClassif[0]->isChecked());
    EXPECT_EQ(Figure(kStatsMaximum), "30");
    EXPECT_EQ(dialog_->boxes->lblRanges->text(), "Ranges of Length");
    gActivePlot = first;
    dialog_->cmdApply->click();
    EXPECT_EQ(ActiveRecord().ClassMode, kNotClassified) << "what is shown is another plot's";
}

TEST_F(ClassificationDialogTest, BeginsAnewWhenItComesUpAgain) {
    Open();
    Choose(ClassKind::Numbers);
    dialog_->CancelButton->click();
    dialog_->FollowActivePlot();
    dialog_->show();
    EXPECT_TRUE(dialog_->optDataClassif[0]->isChecked());
}

TEST_F(ClassificationDialogTest, TakesEnterForOkAndEscForCancel) {
    Open();
    EXPECT_TRUE(dialog_->OKButton->isDefault());
    QTest::keyClick(dialog_.get(), Qt::Key_Return);
    EXPECT_EQ(dialog_->result(), QDialog::Accepted);
    Open();
    QTest::keyClick(dialog_.get(), Qt::Key_Escape);
    EXPECT_EQ(dialog_->result(), QDialog::Rejected);
    EXPECT_FALSE(dialog_->isVisible());
}

TEST_F(ClassificationDialogTest, HasUniqueMnemonicsOnEachPage) {
    Open();
    for (const ClassKind kind : {ClassKind::Numbers, ClassKind::Types}) {
        Choose(kind);
        std::map<QString, QString> owners;
        const auto take = [&owners](const QString& text) {
            const auto at = text.indexOf('&');
            if (at >= 0) {
                const QString key = text.mid(at + 1, 1).toLower();
                EXPECT_EQ(owners.count(key), 0U)
                    << text.toStdString() << " and " << owners[key].toStdString();
                owners[key] = text;
            }
        };
        for (const auto* button : dialog_->findChildren<QAbstractButton*>()) {
            if (button->isVisible()) {
                take(button->text());
            }
        }
        for (const auto* label : dialog_->findChildren<QLabel*>()) {
            if (label->isVisible()) {
                take(label->text());
            }
        }
        EXPECT_GE(owners.size(), 10U);
    }
}

TEST_F(ClassificationDialogTest, GoesThroughAllControlsByTab) {
    Open();
    dialog_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog_.get()));
    Choose(ClassKind::Numbers);
    dialog_->optClassifPlotType[2]->setChecked(true);
    dialog_->boxes->cboNumClasses[0]->setCurrentIndex(1);
    dialog_->boxes->chkShowOthers[kHighNumbers]->setChecked(true);
    dialog_->optDataClassif[1]->setFocus();
    std::vector<std::string> visited;
    for (int i = 0; i < 40; ++i) {
        QTest::keyClick(dialog_->focusWidget(), Qt::Key_Tab);
        visited.push_back(dialog_->focusWidget()->objectName().toStdString());
        if (visited.back() == "optDataClassif_1") {
            break;
        }
    }
    const std::vector<std::string> expected = {
        "optClassifPlotType_0", "chkGridValues_0", "txtMinValue",
        "cboNumClasses_0",      "cboRange",        "picPlotBox_0",
        "chkShowOthers_0",      "picPlotBox_1",    "txtRange_0",
        "txtRange_1",           "picPlotBox_2",    "txtRange_3",
        "picPlotBox_11",        "chkShowOthers_1", "OKButton",
        "CancelButton",         "cmdApply",        "optDataClassif_1"};
    EXPECT_EQ(visited, expected);
}

TEST_F(ClassificationDialogTest, FitsIntoASmallScreen) {
    Open();
    Choose(ClassKind::Numbers);
    dialog_->boxes->cboNumClasses[0]->setCurrentIndex(9);
    Type(*dialog_->boxes->txtRange[3], "-99"); // with a note
    for (const ClassKind kind : {ClassKind::Numbers, ClassKind::Types, ClassKind::None}) {
        Choose(kind);
        dialog_->grab();
        EXPECT_LE(dialog_->minimumSizeHint().width(), 1000);
        EXPECT_LE(dialog_->minimumSizeHint().height(), 740);
    }
}

} // namespace
} // namespace quandrel
