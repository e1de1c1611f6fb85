// SPDX-License-Identifier: MIT

#include "classify/class_fixture.h"
#include "shell/classes/class_boxes.h"
#include "shell/styles/frm_symbol_select.h"
#include "support/shell_test.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>

namespace quandrel {
namespace {

class ClassBoxesTest : public ClassTest {
protected:
    void Open(StyleKind kind = StyleKind::Symbol) {
        boxes_ = std::make_unique<ClassBoxes>(kind);
        boxes_->Load(SettingsOfActivePlot(), StylesOfClasses(kFirstClassStyle));
        boxes_->show();
    }

    /// A plot with the numbers 0 to 10 and a few types, classified by the numbers in ranges of 2.
    void OpenRanges() {
        AddNumbers({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
        Open();
        boxes_->ChooseKind(ClassKind::Numbers);
    }

    void OpenTypes(std::initializer_list<const char*> types) {
        AddTexts(types);
        Open();
        boxes_->ChooseKind(ClassKind::Types);
    }

    /// Puts a text into a box as a user types it.
    static void Type(QLineEdit& box, const QString& text) {
        box.setFocus();
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, text);
    }

    static QStringList ShownTexts(std::span<QLineEdit* const> list) {
        QStringList texts;
        for (const QLineEdit* box : list) {
            if (!box->isHidden()) {
                texts << box->text();
            }
        }
        return texts;
    }

    [[nodiscard]] QStringList Ranges() const { return ShownTexts(boxes_->txtRange); }

    [[nodiscard]] QStringList TypeRanges() const { return ShownTexts(boxes_->txtTypeRange); }

    [[nodiscard]] QStringList Types() const { return ShownTexts(boxes_->txtType); }

    void ChooseRanges(RangeProcedure procedure) {
        boxes_->cboRange->setCurrentIndex(static_cast<int>(procedure));
    }

    void ChooseTypes(TypeProcedure procedure) {
        boxes_->cboType->setCurrentIndex(static_cast<int>(procedure));
    }

    std::unique_ptr<ClassBoxes> boxes_;
};

TEST_F(ClassBoxesTest, HasEveryControlByItsNameAndTip) {
    Open();
    const std::string excluding = "Select base number of classes EXCLUDING excess value class";
    EXPECT_EQ(ControlOf<QComboBox>(*boxes_, "cboNumClasses_0").toolTip().toStdString(), excluding);
    EXPECT_EQ(ControlOf<QComboBox>(*boxes_, "cboNumClasses_1").toolTip().toStdString(), excluding);
    const auto entries = [](const QComboBox& list) {
        QStringList texts;
        for (int i = 0; i < list.count(); ++i) {
            texts << list.itemText(i);
        }
        return texts;
    };
    EXPECT_EQ(entries(ControlOf<QComboBox>(*boxes_, "cboRange")),
              QStringList({"Equal Ranges", "StdDev splits", "Last Used", "Custom!"}));
    EXPECT_EQ(boxes_->cboRange->toolTip(), "Select procedure for selecting ranges");
    EXPECT_EQ(entries(ControlOf<QComboBox>(*boxes_, "cboType")),
              QStringList({"First found", "Ascending", "Descending", "Last Used", "Custom!"}));
    EXPECT_EQ(boxes_->cboType->toolTip(), "Select procedure for selecting classes");
    for (int i = 0; i < 20; ++i) {
        ControlOf<QLineEdit>(*boxes_, "txtRange_" + std::to_string(i));
        ControlOf<QLineEdit>(*boxes_, "txtTypeRange_" + std::to_string(i));
    }
    for (int i = 0; i < 11; ++i) {
        EXPECT_EQ(ControlOf<QLineEdit>(*boxes_, "txtType_" + std::to_string(i)).placeholderText(),
                  "Type" + QString::number(i + 1));
    }
    for (int i = 0; i < 12; ++i) {
        ControlOf<StylePatch>(*boxes_, "picPlotBox_" + std::to_string(i));
    }
    EXPECT_EQ(ControlOf<QCheckBox>(*boxes_, "chkTypeNumeric").text().remove('&'),
              "Treat as Numeric");
    EXPECT_EQ(ControlOf<QCheckBox>(*boxes_, "chkCaseSensitive").text().remove('&'),
              "Case sensitive");
    EXPECT_EQ(ControlOf<QCheckBox>(*boxes_, "chkShowOthers_1").toolTip(),
              "Check to retain excess high values as separate class");
    EXPECT_EQ(ControlOf<QCheckBox>(*boxes_, "chkShowOthers_4").text(), "Other data?");
}

TEST_F(ClassBoxesTest, NothingCanBeUsedWithoutAKind) {
    AddNumbers({1, 2});
    Open();
    EXPECT_EQ(boxes_->Kind(), ClassKind::None);
    EXPECT_FALSE(boxes_->cboRange->isEnabled());
    EXPECT_FALSE(boxes_->txtRange[0]->isEnabled());
    EXPECT_FALSE(boxes_->picPlotBox[1]->isEnabled());
    EXPECT_FALSE(boxes_->chkShowOthers[kLowNumbers]->isEnabled());
}

TEST_F(ClassBoxesTest, AFirstKindShowsEqualRanges) {
    OpenRanges();
    EXPECT_EQ(Ranges(), QStringList({"0", "2", "2", "4", "4", "6", "6", "8", "8", "10"}));
    EXPECT_EQ(boxes_->cboNumClasses[0]->currentText(), "5");
    EXPECT_EQ(boxes_->cboRange->currentText(), "Equal Ranges");
    EXPECT_EQ(boxes_->lblRanges->text(), "Ranges of Thickness");
    EXPECT_EQ(boxes_->chkShowOthers[kLowNumbers]->text(), "< 0: show?");
    EXPECT_EQ(boxes_->chkShowOthers[kHighNumbers]->text(), "> 10: show?");
    EXPECT_EQ(boxes_->Settings().mode, kClassesByNumber);
}

TEST_F(ClassBoxesTest, TheNumberOfClassesRefillsTheRanges) {
    OpenRanges();
    boxes_->cboNumClasses[0]->setCurrentIndex(1);
    EXPECT_EQ(Ranges(), QStringList({"0", "5", "5", "10"}));
    boxes_->cboNumClasses[0]->setCurrentIndex(9);
    EXPECT_EQ(Ranges().size(), 20);
    EXPECT_EQ(boxes_->Settings().numbers.limits.base, 10);
}

TEST_F(ClassBoxesTest, DeviationSplitsAreShownRoundedAndKeptInFull) {
    OpenRanges();
    boxes_->cboNumClasses[0]->setCurrentIndex(1);
    ChooseRanges(RangeProcedure::DeviationSplits);
    // Mean 5, standard deviation sqrt(110 / 10) = 3.3166...
    EXPECT_EQ(Ranges(), QStringList({"1.683", "5.0", "5.0", "8.317"}));
    EXPECT_NEAR(boxes_->Settings().numbers.limits.limits[0], 5 - std::sqrt(11.0), 1e-12);
    EXPECT_EQ(boxes_->chkShowOthers[kLowNumbers]->text(), "< 1.683: show?") << "as in the box";
}

TEST_F(ClassBoxesTest, DeviationSplitsOfOneClassAreRefused) {
    OpenRanges();
    boxes_->cboNumClasses[0]->setCurrentIndex(0);
    Expect("You must select at least two classes for this option.");
    ChooseRanges(RangeProcedure::DeviationSplits);
    EXPECT_EQ(boxes_->cboRange->currentText(), "Equal Ranges");
    EXPECT_EQ(Ranges(), QStringList({"0", "10"}));
    boxes_->cboNumClasses[0]->setCurrentIndex(1);
    ChooseRanges(RangeProcedure::DeviationSplits);
    Expect("You must select at least two classes for this option.");
    boxes_->cboNumClasses[0]->setCurrentIndex(0);
    EXPECT_EQ(boxes_->cboNumClasses[0]->currentText(), "2");
}

TEST_F(ClassBoxesTest, TypingALimitMakesTheRangesCustom) {
    OpenRanges();
    Type(*boxes_->txtRange[3], "4.5");
    EXPECT_EQ(boxes_->cboRange->currentText(), "Custom!");
    EXPECT_EQ(boxes_->txtRange[4]->text(), "4.5") << "the same limit, as the next one's lower one";
    EXPECT_EQ(boxes_->Settings().numbers.limits.limits[2], 4.5);
    Type(*boxes_->txtRange[6], "7");
    EXPECT_EQ(boxes_->txtRange[5]->text(), "7");
    Type(*boxes_->txtRange[0], "-1");
    Type(*boxes_->txtRange[9], "11");
    EXPECT_EQ(boxes_->Settings().numbers.limits.limits[0], -1);
    EXPECT_EQ(boxes_->Settings().numbers.limits.top, 11);
    EXPECT_EQ(boxes_->chkShowOthers[kLowNumbers]->text(), "< -1: show?");
    EXPECT_EQ(boxes_->chkShowOthers[kHighNumbers]->text(), "> 11: show?");
}

TEST_F(ClassBoxesTest, ABoxTypedBackToItsTextHasItsFullValueAgain) {
    AddNumbers({0, 1});
    Open();
    boxes_->ChooseKind(ClassKind::Numbers);
    boxes_->cboNumClasses[0]->setCurrentIndex(2);
    const QString third = boxes_->txtRange[1]->text();
    EXPECT_EQ(third, "0.33333");
    Type(*boxes_->txtRange[1], "0.5");
    EXPECT_EQ(boxes_->Settings().numbers.limits.limits[1], 0.5);
    Type(*boxes_->txtRange[1], third);
    EXPECT_EQ(boxes_->Settings().numbers.limits.limits[1], 1.0 / 3);
}

TEST_F(ClassBoxesTest, ATextThatIsNoNumberIsMarkedAndFound) {
    OpenRanges();
    EXPECT_EQ(boxes_->GoToFault(), "");
    const QColor usual = boxes_->txtRange[3]->palette().color(QPalette::Base);
    for (const char* text : {"x", "", "1.2.3"}) {
        Type(*boxes_->txtRange[3], text);
        EXPECT_NE(boxes_->txtRange[3]->palette().color(QPalette::Base), usual) << text;
        EXPECT_EQ(boxes_->Settings().numbers.limits.limits[2], 4) << text;
        boxes_->txtRange[0]->setFocus();
        EXPECT_EQ(boxes_->GoToFault(), "A class limit is not a number.") << text;
        EXPECT_EQ(boxes_->focusWidget(), boxes_->txtRange[3]) << text;
        Type(*boxes_->txtRange[3], "4");
    }
    EXPECT_EQ(boxes_->txtRange[3]->palette().color(QPalette::Base), usual);
    EXPECT_EQ(boxes_->GoToFault(), "");
}

TEST_F(ClassBoxesTest, FaultsOfAnotherPageDoNotCount) {
    AddValued(1, "slate");
    Open();
    boxes_->ChooseKind(ClassKind::Numbers);
    Type(*boxes_->txtRange[1], "x");
    boxes_->ChooseKind(ClassKind::Types);
    EXPECT_EQ(boxes_->GoToFault(), "");
    boxes_->ChooseKind(ClassKind::None);
    EXPECT_EQ(boxes_->GoToFault(), "");
}

TEST_F(ClassBoxesTest, LimitsAreReadAndShownWithAComma) {
    gDecimalIsComma = true;
    AddNumbers({0, 5});
    Open();
    boxes_->ChooseKind(ClassKind::Numbers);
    boxes_->cboNumClasses[0]->setCurrentIndex(1);
    EXPECT_EQ(boxes_->txtRange[1]->text(), "2,5");
    Type(*boxes_->txtRange[1], "3,25");
    EXPECT_EQ(boxes_->Settings().numbers.limits.limits[1], 3.25);
}

TEST_F(ClassBoxesTest, TellsOfLimitsThatDoNotAscend) {
    OpenRanges();
    EXPECT_EQ(boxes_->lblClassNote->text(), "");
    Type(*boxes_->txtRange[3], "99");
    EXPECT_TRUE(boxes_->lblClassNote->text().startsWith("The limits do not ascend"));
    EXPECT_EQ(boxes_->GoToFault(), "") << "not refused";
    Type(*boxes_->txtRange[3], "4");
    EXPECT_EQ(boxes_->lblClassNote->text(), "");
}

TEST_F(ClassBoxesTest, LastUsedBringsBackWhatThePlotHas) {
    AddNumbers({0, 10});
    ClassSettings used;
    used.mode = kClassesByNumber;
    used.numbers.limits.base = 2;
    used.numbers.limits.limits = {3, 7};
    used.numbers.limits.top = 8;
    ActiveRecord().ClassTable = TableOfSettings(used, {});
    ActiveRecord().ClassMode = kClassesByNumber;
    Open();
    EXPECT_EQ(boxes_->Kind(), ClassKind::Numbers);
    EXPECT_EQ(boxes_->cboRange->currentText(), "Last Used");
    EXPECT_EQ(Ranges(), QStringList({"3", "7", "7", "8"}));
    ChooseRanges(RangeProcedure::EqualRanges);
    EXPECT_EQ(Ranges(), QStringList({"0", "5", "5", "10"}));
    ChooseRanges(RangeProcedure::LastUsed);
    EXPECT_EQ(Ranges(), QStringList({"3", "7", "7", "8"}));
    boxes_->cboNumClasses[0]->setCurrentIndex(2);
    EXPECT_EQ(Ranges(), QStringList({"3", "7", "7", "8", "8", "8"}));
    EXPECT_EQ(boxes_->cboRange->currentText(), "Custom!");
}

TEST_F(ClassBoxesTest, TypesAreFoundAndOrdered) {
    OpenTypes({"slate", "marl", "Slate", "coal"});
    EXPECT_EQ(boxes_->lblTypes->text(), "Types of Rock");
    EXPECT_EQ(Types(), QStringList({"slate", "marl", "coal"}));
    EXPECT_EQ(boxes_->cboType->currentText(), "First found");
    EXPECT_EQ(boxes_->Settings().mode, kClassesByName);
    ChooseTypes(TypeProcedure::Ascending);
    EXPECT_EQ(Types(), QStringList({"coal", "marl", "slate"}));
    ChooseTypes(TypeProcedure::Descending);
    EXPECT_EQ(Types(), QStringList({"slate", "marl", "coal"}));
    boxes_->chkCaseSensitive->click();
    boxes_->cboNumClasses[1]->setCurrentIndex(3);
    EXPECT_EQ(Types().size(), 4);
    EXPECT_TRUE(Types().contains("Slate") && Types().contains("slate"));
    EXPECT_TRUE(boxes_->Settings().caseSensitive);
}

TEST_F(ClassBoxesTest, TypingANameMakesTheTypesCustom) {
    OpenTypes({"slate", "marl"});
    Type(*boxes_->txtType[1], "gabbro");
    EXPECT_EQ(boxes_->cboType->currentText(), "Custom!");
    EXPECT_EQ(boxes_->Settings().names[1], "gabbro");
    boxes_->cboNumClasses[1]->setCurrentIndex(10);
    EXPECT_EQ(boxes_->Settings().names[1], "gabbro") << "typed names stay";
    EXPECT_EQ(Types().size(), 11);
    Type(*boxes_->txtType[10], "eleventh");
    EXPECT_EQ(boxes_->Settings().names[10], "eleventh");
}

TEST_F(ClassBoxesTest, TypesAsNumbersHaveRanges) {
    OpenTypes({"1", "3", "5"});
    boxes_->chkTypeNumeric->click();
    EXPECT_EQ(boxes_->Settings().mode, kClassesByTextNumber);
    EXPECT_EQ(boxes_->lblTypes->text(), "Ranges of Rock");
    EXPECT_EQ(TypeRanges(), QStringList({"1", "3", "3", "5", "5", "5"}));
    EXPECT_TRUE(Types().isEmpty());
    EXPECT_FALSE(boxes_->chkCaseSensitive->isEnabled());
    EXPECT_EQ(boxes_->cboNumClasses[1]->count(), 10);
    Type(*boxes_->txtTypeRange[5], "9");
    EXPECT_EQ(boxes_->Settings().textNumbers.limits.top, 9);
    EXPECT_EQ(boxes_->cboType->currentText(), "Custom!");
    EXPECT_EQ(boxes_->lblClassNote->text(), "");
    boxes_->chkTypeNumeric->click();
    EXPECT_EQ(boxes_->Settings().mode, kClassesByName);
    EXPECT_EQ(Types(), QStringList({"1", "3", "5"}));
    EXPECT_EQ(boxes_->cboNumClasses[1]->count(), 11);
}

TEST_F(ClassBoxesTest, TellsWhenNoTypeIsANumber) {
    OpenTypes({"slate", "marl"});
    EXPECT_EQ(boxes_->lblClassNote->text(), "");
    boxes_->chkTypeNumeric->click();
    EXPECT_EQ(boxes_->lblClassNote->text(), "None of the types is a number.");
}

TEST_F(ClassBoxesTest, OuterClassesAreKeptByTheirBoxes) {
    OpenRanges();
    boxes_->chkShowOthers[kLowNumbers]->setChecked(false);
    EXPECT_FALSE(boxes_->Settings().numbers.keepLow);
    EXPECT_FALSE(boxes_->picPlotBox[0]->isEnabled());
    EXPECT_FALSE(boxes_->picPlotBox[11]->isEnabled());
    boxes_->chkShowOthers[kHighNumbers]->setChecked(true);
    EXPECT_TRUE(boxes_->Settings().numbers.keepHigh);
    EXPECT_TRUE(boxes_->picPlotBox[11]->isEnabled());
    boxes_->ChooseKind(ClassKind::None);
    EXPECT_FALSE(boxes_->picPlotBox[11]->isEnabled());
}

TEST_F(ClassBoxesTest, EachFlagHasItsOwnBox) {
    AddValued(1, "3");
    Open();
    boxes_->ChooseKind(ClassKind::Types);
    boxes_->chkShowOthers[kOtherNames]->click();
    EXPECT_TRUE(boxes_->Settings().keepOthers);
    boxes_->chkTypeNumeric->click();
    EXPECT_FALSE(boxes_->Settings().textNumbers.keepLow);
    boxes_->chkShowOthers[kLowTextNumbers]->click();
    boxes_->chkShowOthers[kHighTextNumbers]->click();
    EXPECT_TRUE(boxes_->Settings().textNumbers.keepLow);
    EXPECT_TRUE(boxes_->Settings().textNumbers.keepHigh);
    EXPECT_TRUE(boxes_->chkShowOthers[kOtherNames]->isHidden());
}

TEST_F(ClassBoxesTest, PatchesShowTheStylesOfTheirClasses) {
    OpenRanges();
    const ClassStyles styles = StylesOfClasses(kFirstClassStyle);
    EXPECT_EQ(boxes_->picPlotBox[0]->Style(), styles[0]);
    EXPECT_EQ(boxes_->picPlotBox[5]->Style(), styles[5]);
    EXPECT_EQ(boxes_->picPlotBox[11]->Style(), styles[6]) << "above five ranges: class 7";
    EXPECT_EQ(boxes_->picPlotBox[2]->accessibleName(), "Symbol of class 3: 2-4");
    EXPECT_TRUE(boxes_->picPlotBox[6]->isHidden());
}

TEST_F(ClassBoxesTest, APatchTellsItsClassWhenItIsClicked) {
    OpenRanges();
    boxes_->disconnect(boxes_.get()); // without the picker
    QSignalSpy clicked(boxes_.get(), &ClassBoxes::PatchClicked);
    QTest::mouseClick(boxes_->picPlotBox[3], Qt::LeftButton);
    boxes_->chkShowOthers[kHighNumbers]->setChecked(true);
    boxes_->picPlotBox[11]->setFocus();
    QTest::keyClick(boxes_->picPlotBox[11], Qt::Key_Space);
    ASSERT_EQ(clicked.size(), 2);
    EXPECT_EQ(clicked[0][0].toInt(), 4);
    EXPECT_EQ(clicked[1][0].toInt(), 7);
}

TEST_F(ClassBoxesTest, APatchOpensThePickerAndTakesItsStyle) {
    OpenRanges();
    const auto table = gSymbolTable;
    QSignalSpy changed(boxes_.get(), &ClassBoxes::Changed);
    QString title;
    const auto answer = [&](bool takes) {
        QTimer::singleShot(0, boxes_.get(), [&title, takes] {
            auto* picker = static_cast<frmSymbolSelect*>(QApplication::activeModalWidget());
            title = ControlOf<QLabel>(*picker, "lblTitle").text();
            picker->picSymbolTypes[13]->click();
            picker->sldSymbSize->setValue(9);
            takes ? picker->accept() : picker->reject();
        });
    };
    const SymbolRow before = boxes_->Styles()[2];
    answer(false);
    boxes_->picPlotBox[2]->click();
    EXPECT_EQ(title, "Symbol of class 3: 2-4");
    EXPECT_EQ(boxes_->Styles()[2], before);
    EXPECT_EQ(changed.size(), 0);
    answer(true);
    boxes_->picPlotBox[2]->click();
    EXPECT_EQ(boxes_->Styles()[2], (SymbolRow{before[0], 13, 9}));
    EXPECT_EQ(boxes_->picPlotBox[2]->Style(), (SymbolRow{before[0], 13, 9}));
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(gSymbolTable, table) << "a copy";
}

TEST_F(ClassBoxesTest, PatchesOfRosesPickFills) {
    AddNumbers({0, 10});
    Open(StyleKind::Fill);
    boxes_->ChooseKind(ClassKind::Numbers);
    EXPECT_EQ(boxes_->picPlotBox[2]->accessibleName(), "Fill of class 3: 2-4");
    std::size_t cells = 0;
    QTimer::singleShot(0, boxes_.get(), [&cells] {
        auto* picker = static_cast<frmSymbolSelect*>(QApplication::activeModalWidget());
        cells = picker->picSymbolTypes.size();
        picker->reject();
    });
    boxes_->picPlotBox[2]->click();
    EXPECT_EQ(cells, 8U);
}

TEST_F(ClassBoxesTest, TellsOfEveryChangeByTheUserAndOfNoneByTheProgram) {
    AddValued(1, "slate");
    AddValued(3, "marl");
    Open();
    QSignalSpy changed(boxes_.get(), &ClassBoxes::Changed);
    boxes_->ChooseKind(ClassKind::Numbers);
    boxes_->Load(boxes_->Settings(), boxes_->Styles());
    boxes_->ChooseKind(ClassKind::Types);
    boxes_->ChooseKind(ClassKind::Numbers);
    EXPECT_EQ(changed.size(), 0);
    qsizetype expected = 0;
    boxes_->cboNumClasses[0]->setCurrentIndex(2);
    EXPECT_EQ(changed.size(), ++expected);
    ChooseRanges(RangeProcedure::EqualRanges);
    EXPECT_EQ(changed.size(), ++expected);
    boxes_->chkShowOthers[kHighNumbers]->click();
    EXPECT_EQ(changed.size(), ++expected);
    boxes_->txtRange[1]->setFocus();
    QTest::keyClick(boxes_->txtRange[1], Qt::Key_5);
    EXPECT_EQ(changed.size(), ++expected);
    boxes_->ChooseKind(ClassKind::Types);
    boxes_->chkCaseSensitive->click();
    EXPECT_EQ(changed.size(), ++expected);
    boxes_->chkTypeNumeric->click();
    EXPECT_EQ(changed.size(), ++expected);
}

TEST_F(ClassBoxesTest, AModeWhoseColumnIsMissingCountsAsNone) {
    AddTexts({"slate"});
    ActiveRecord().HasAppendedNumeric = 0;
    ActiveRecord().ClassMode = kClassesByNumber;
    Open();
    EXPECT_EQ(boxes_->Kind(), ClassKind::None);
    EXPECT_EQ(boxes_->Settings().mode, kNotClassified);
    EXPECT_TRUE(boxes_->lblTypes->isVisible()) << "what there is";
}

TEST_F(ClassBoxesTest, KeepTheirSizeWhenTheKindChanges) {
    AddValued(1, "slate");
    Open();
    boxes_->resize(boxes_->minimumSizeHint());
    const int height = boxes_->height();
    for (const ClassKind kind : {ClassKind::Numbers, ClassKind::Types, ClassKind::Numbers}) {
        boxes_->ChooseKind(kind);
        boxes_->grab();
        EXPECT_EQ(boxes_->height(), height);
        EXPECT_EQ(boxes_->minimumSizeHint().height(), height);
    }
}

TEST_F(ClassBoxesTest, ThePlotDoesNotChange) {
    OpenRanges();
    boxes_->cboNumClasses[0]->setCurrentIndex(7);
    Type(*boxes_->txtRange[0], "-5");
    EXPECT_EQ(NumberOf(ActiveRecord().ClassTable[kBaseRow][kNumberClasses]), 0);
    EXPECT_EQ(ActiveRecord().ClassMode, kNotClassified);
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), 50302U);
}

} // namespace
} // namespace quandrel
