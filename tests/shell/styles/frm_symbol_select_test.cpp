// SPDX-License-Identifier: MIT

#include "shell/styles/frm_symbol_select.h"
#include "support/shell_test.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <memory>

namespace quandrel {
namespace {

constexpr SymbolRow kDown{5, 3, 2};
constexpr SymbolRow kUp{8, 7, 4};

class SymbolSelectTest : public EngineTest {
protected:
    void OpenBoth() {
        StyleQuestion question;
        question.title = "Rows & more";
        question.down = kDown;
        question.up = kUp;
        Open(question);
    }

    void OpenOne(const SymbolRow& style, StyleKind kind = StyleKind::Symbol) {
        StyleQuestion question;
        question.title = "Class 2: 1-2";
        question.kind = kind;
        question.down = style;
        Open(question);
    }

    void Open(const StyleQuestion& question) {
        picker_ = std::make_unique<frmSymbolSelect>(question, nullptr);
        picker_->show();
    }

    StylePatch& Symbol(std::size_t code) { return *picker_->picSymbolTypes[code]; }

    StylePatch& ColourCell(std::size_t index) { return *picker_->picColour[index]; }

    static void Click(StylePatch& cell, Qt::MouseButton button) {
        QTest::mouseClick(&cell, button);
    }

    std::unique_ptr<frmSymbolSelect> picker_;
};

/// How many pixels of a widget are red, or pink at the edge of a line.
int CountRed(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            count += colour.red() > 240 && colour.green() < 200 && colour.blue() < 200 ? 1 : 0;
        }
    }
    return count;
}

TEST_F(SymbolSelectTest, HasEveryControlByItsName) {
    OpenBoth();
    EXPECT_EQ(picker_->objectName(), "frmSymbolSelect");
    for (int code = 0; code <= 17; ++code) {
        ControlOf<StylePatch>(*picker_, "picSymbolTypes_" + std::to_string(code));
    }
    for (int colour = 0; colour < 25; ++colour) {
        ControlOf<StylePatch>(*picker_, "picColour_" + std::to_string(colour));
    }
    EXPECT_EQ(picker_->sldSymbSize->minimum(), 1);
    EXPECT_EQ(picker_->sldSymbSize->maximum(), 20);
    EXPECT_EQ(picker_->sldSymbSize->toolTip(), "Set the size of the selected symbol");
    EXPECT_EQ(picker_->optSymbol[0]->text().remove('&'), "Symbol for +ve dip/plunge values");
    EXPECT_EQ(picker_->optSymbol[1]->text().remove('&'), "Symbol for -ve dip/plunge values");
    ControlOf<StylePatch>(*picker_, "picCurrentSymbol_0");
    ControlOf<StylePatch>(*picker_, "picCurrentSymbol_1");
}

TEST_F(SymbolSelectTest, GivesBackWhatItWasGiven) {
    OpenBoth();
    EXPECT_EQ(picker_->DownSymbolColourIndex(), 5);
    EXPECT_EQ(picker_->DownSymbolShape(), 3);
    EXPECT_EQ(picker_->DownSymbolSize(), 2);
    EXPECT_EQ(picker_->UpSymbolColourIndex(), 8);
    EXPECT_EQ(picker_->UpSymbolShape(), 7);
    EXPECT_EQ(picker_->UpSymbolSize(), 4);
}

TEST_F(SymbolSelectTest, ShowsTheStyleInItsCells) {
    OpenBoth();
    EXPECT_TRUE(Symbol(3).isChecked());
    EXPECT_TRUE(ColourCell(5).isChecked());
    EXPECT_EQ(picker_->sldSymbSize->value(), 2);
    picker_->optSymbol[1]->click();
    EXPECT_TRUE(Symbol(7).isChecked());
    EXPECT_TRUE(ColourCell(8).isChecked());
    EXPECT_EQ(picker_->sldSymbSize->value(), 4);
    EXPECT_EQ(picker_->spnSymbSize->value(), 4);
    EXPECT_EQ(picker_->Down(), kDown);
    EXPECT_EQ(picker_->Up(), kUp);
}

TEST_F(SymbolSelectTest, LeftButtonChoosesForDownAndRightButtonForUp) {
    OpenBoth();
    Click(Symbol(12), Qt::LeftButton);
    Click(Symbol(13), Qt::RightButton);
    EXPECT_TRUE(picker_->optSymbol[1]->isChecked());
    EXPECT_TRUE(Symbol(13).isChecked());
    Click(ColourCell(19), Qt::RightButton);
    Click(ColourCell(9), Qt::LeftButton);
    EXPECT_TRUE(picker_->optSymbol[0]->isChecked());
    EXPECT_TRUE(Symbol(12).isChecked());
    EXPECT_EQ(picker_->Down(), (SymbolRow{9, 12, 2}));
    EXPECT_EQ(picker_->Up(), (SymbolRow{19, 13, 4}));
}

TEST_F(SymbolSelectTest, EverySymbolAndColourCanBePicked) {
    OpenOne(kDown);
    for (std::size_t code = 0; code < 18; ++code) {
        Click(Symbol(code), Qt::LeftButton);
        EXPECT_EQ(picker_->DownSymbolShape(), static_cast<int>(code));
    }
    for (std::size_t colour = 0; colour < 25; ++colour) {
        Click(ColourCell(colour), Qt::LeftButton);
        EXPECT_EQ(picker_->DownSymbolColourIndex(), static_cast<int>(colour));
    }
}

TEST_F(SymbolSelectTest, OneStyleTakesEitherButton) {
    OpenOne(kDown);
    EXPECT_EQ(picker_->optSymbol[0], nullptr);
    EXPECT_EQ(ControlOf<QLabel>(*picker_, "lblTitle").text(), "Class 2: 1-2");
    Click(Symbol(4), Qt::RightButton);
    EXPECT_EQ(picker_->DownSymbolShape(), 4);
}

TEST_F(SymbolSelectTest, ARightClickThatEndsOutsideChoosesNothing) {
    OpenOne(kDown);
    QTest::mousePress(&Symbol(4), Qt::RightButton);
    QTest::mouseRelease(&Symbol(4), Qt::RightButton, {}, QPoint(-50, -50));
    EXPECT_EQ(picker_->Down(), kDown);
}

TEST_F(SymbolSelectTest, SliderAndBoxSetTheSizeOfTheChosenRow) {
    OpenBoth();
    picker_->sldSymbSize->setValue(20);
    EXPECT_EQ(picker_->DownSymbolSize(), 20);
    EXPECT_EQ(picker_->spnSymbSize->value(), 20);
    picker_->optSymbol[1]->click();
    picker_->spnSymbSize->setValue(1);
    EXPECT_EQ(picker_->UpSymbolSize(), 1);
    EXPECT_EQ(picker_->sldSymbSize->value(), 1);
    EXPECT_EQ(picker_->DownSymbolSize(), 20);
}

TEST_F(SymbolSelectTest, ASizeBeyondTheSliderStaysUntilItIsMoved) {
    OpenOne({5, 3, 45});
    EXPECT_EQ(picker_->sldSymbSize->value(), 20);
    Click(Symbol(4), Qt::LeftButton);
    EXPECT_EQ(picker_->Down(), (SymbolRow{5, 4, 45}));
    picker_->sldSymbSize->setValue(19);
    EXPECT_EQ(picker_->DownSymbolSize(), 19);
}

TEST_F(SymbolSelectTest, ACodeWithoutACellChecksNone) {
    OpenOne({5, 50, 2});
    for (StylePatch* cell : picker_->picSymbolTypes) {
        EXPECT_FALSE(cell->isChecked());
    }
    EXPECT_EQ(picker_->DownSymbolShape(), 50);
}

TEST_F(SymbolSelectTest, KeysGoThroughTheCells) {
    OpenBoth();
    picker_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(picker_.get()));
    EXPECT_EQ(picker_->focusWidget(), &Symbol(3));
    QTest::keyClick(picker_->focusWidget(), Qt::Key_Right);
    EXPECT_EQ(picker_->DownSymbolShape(), 4);
    QTest::keyClick(picker_->focusWidget(), Qt::Key_Down);
    EXPECT_EQ(picker_->DownSymbolShape(), 13) << "nine further on";
    QTest::keyClick(picker_->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(picker_->focusWidget(), &ColourCell(5));
    QTest::keyClick(picker_->focusWidget(), Qt::Key_Left);
    EXPECT_EQ(picker_->DownSymbolColourIndex(), 4);
    QTest::keyClick(picker_->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(picker_->focusWidget(), picker_->sldSymbSize);
    EXPECT_EQ(picker_->Up(), kUp);
}

TEST_F(SymbolSelectTest, KeysChooseForTheRowWhoseOptionIsOn) {
    OpenBoth();
    picker_->optSymbol[1]->click();
    Symbol(9).setFocus();
    QTest::keyClick(&Symbol(9), Qt::Key_Space);
    EXPECT_EQ(picker_->UpSymbolShape(), 9);
    EXPECT_EQ(picker_->Down(), kDown);
}

TEST_F(SymbolSelectTest, DrawsTheSampleInColourAndSize) {
    OpenOne({8, 3, 3}); // a red square
    StylePatch& sample = *picker_->picCurrentSymbol[0];
    const int small = CountRed(sample);
    EXPECT_GT(small, 20);
    picker_->sldSymbSize->setValue(8);
    EXPECT_GT(CountRed(sample), 3 * small);
    Click(Symbol(0), Qt::LeftButton);
    EXPECT_EQ(CountRed(sample), 0) << "hidden";
}

TEST_F(SymbolSelectTest, KeepsTheLargestSymbolsWithinTheSample) {
    for (std::int16_t code = 2; code <= 17; ++code) {
        OpenOne({8, code, 20});
        const QImage image = picker_->picCurrentSymbol[0]->grab().toImage();
        for (int i = 2; i < image.width() - 2; ++i) {
            for (const QPoint at : {QPoint(i, 1), QPoint(i, image.height() - 2), QPoint(1, i),
                                    QPoint(image.width() - 2, i)}) {
                const QColor colour = image.pixelColor(at);
                EXPECT_FALSE(colour.red() > 200 && colour.green() < 60) << code;
            }
        }
    }
}

TEST_F(SymbolSelectTest, PicksFillsOfRoses) {
    OpenOne({8, 0, 1}, StyleKind::Fill);
    EXPECT_EQ(picker_->picSymbolTypes.size(), 8U);
    ControlOf<StylePatch>(*picker_, "picPatternStyles_7");
    EXPECT_FALSE(picker_->sldSymbSize->isVisible());
    StylePatch& sample = *picker_->picCurrentSymbol[0];
    const int solid = CountRed(sample);
    EXPECT_GT(solid, 60 * 60);
    Click(Symbol(2), Qt::LeftButton);
    const int hatched = CountRed(sample);
    EXPECT_GT(hatched, 0);
    EXPECT_LT(hatched, solid / 2);
    Click(Symbol(1), Qt::LeftButton);
    EXPECT_EQ(CountRed(sample), 0) << "transparent";
    EXPECT_EQ(picker_->Down(), (SymbolRow{8, 1, 1}));
}

TEST_F(SymbolSelectTest, ChangesNoTable) {
    const auto before = gSymbolTable;
    OpenBoth();
    Click(Symbol(4), Qt::LeftButton);
    ControlOf<QPushButton>(*picker_, "cmdOK").click();
    EXPECT_EQ(picker_->result(), QDialog::Accepted);
    EXPECT_EQ(gSymbolTable, before);
}

TEST_F(SymbolSelectTest, TakesEnterForOkAndEscForCancel) {
    OpenOne(kDown);
    EXPECT_TRUE(ControlOf<QPushButton>(*picker_, "cmdOK").isDefault());
    QTest::keyClick(picker_.get(), Qt::Key_Return);
    EXPECT_EQ(picker_->result(), QDialog::Accepted);
    OpenOne(kDown);
    QTest::keyClick(picker_.get(), Qt::Key_Escape);
    EXPECT_EQ(picker_->result(), QDialog::Rejected);
    EXPECT_FALSE(picker_->isVisible());
}

TEST_F(SymbolSelectTest, NamesEveryCellForScreenReaders) {
    OpenBoth();
    for (StylePatch* cell : picker_->picSymbolTypes) {
        EXPECT_FALSE(cell->accessibleName().isEmpty());
        EXPECT_FALSE(cell->toolTip().isEmpty());
    }
    EXPECT_EQ(ColourCell(8).accessibleName(), "Colour 8: red (red 255, green 0, blue 0)");
}

TEST_F(SymbolSelectTest, AskingGivesBothStylesOrNothing) {
    StyleQuestion question;
    question.title = "Rows";
    question.down = kDown;
    question.up = kUp;
    const auto answer = [&question](bool takes) {
        QTimer::singleShot(0, [takes] {
            auto* picker = static_cast<frmSymbolSelect*>(QApplication::activeModalWidget());
            Click(*picker->picSymbolTypes[4], Qt::LeftButton);
            Click(*picker->picColour[9], Qt::RightButton);
            takes ? picker->accept() : picker->reject();
        });
        return AskStyle(question, nullptr);
    };
    EXPECT_FALSE(answer(false));
    const std::optional<ChosenStyles> both = answer(true);
    ASSERT_TRUE(both);
    EXPECT_EQ(both->down, (SymbolRow{5, 4, 2}));
    EXPECT_EQ(both->up, (SymbolRow{9, 7, 4}));
}

} // namespace
} // namespace quandrel
