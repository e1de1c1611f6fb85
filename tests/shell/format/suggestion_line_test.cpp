// SPDX-License-Identifier: MIT
//
// Suggestions in the data format dialog, and the net of its first rows.

#include "file_format_fixture.h"
#include "shell/format/format_grid.h"
#include "shell/format/sample_net.h"
#include "shell/format/suggestion_line.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace quandrel {
namespace {

class SuggestionsOfDialog : public FileFormatTest {
protected:
    frmFileFormat& OpenText(const std::string& text, bool isRepeated = false) {
        FormatQuestion question;
        question.command = "New";
        question.path = WriteFile("beds.csv", text);
        question.isRepeated = isRepeated;
        return Open(question);
    }

    static QString TextOf(const frmFileFormat& dialog) {
        return dialog.fraSuggestion->lblSuggestion->text();
    }
};

constexpr const char* kSure = "dipdir;dip;rock\n142;52;schist\n35;43;marble\n";
constexpr const char* kUnsure = "strike,dip\n10,30\n120,45\n170,80\n95,20\n";

TEST_F(SuggestionsOfDialog, OneThatIsSureFillsTheDialog) {
    frmFileFormat& dialog = OpenText(kSure);
    EXPECT_TRUE(dialog.fraSuggestion->isVisible());
    EXPECT_EQ(TextOf(dialog), "Suggested from the headings. Change what is wrong.");
    EXPECT_EQ(dialog.cboDelim->currentData().toString(), ";");
    EXPECT_TRUE(dialog.chkTableHeadings->isChecked());
    EXPECT_EQ(dialog.cboColumns[kSlotDip]->currentIndex(), 1);
    EXPECT_EQ(dialog.AppendedNonNumericName(), "rock");
    PressOk();
    EXPECT_TRUE(IsAccepted());
    EXPECT_EQ(gConventions, kDipDirectionDip);
}

TEST_F(SuggestionsOfDialog, TheOwnSettingsComeBack) {
    frmFileFormat& dialog = OpenText(kSure);
    ASSERT_TRUE(dialog.fraSuggestion->cmdOwnSettings->isEnabled());
    Press("cmdOwnSettings");
    EXPECT_EQ(dialog.cboDelim->currentData().toString(), ",");
    EXPECT_FALSE(dialog.chkTableHeadings->isChecked());
    EXPECT_FALSE(dialog.fraSuggestion->cmdOwnSettings->isEnabled());
    EXPECT_EQ(TextOf(dialog), "The file may be:");
    Press("cmdUseSuggestion");
    EXPECT_EQ(dialog.cboDelim->currentData().toString(), ";");
}

TEST_F(SuggestionsOfDialog, OthersAreOnlyListed) {
    frmFileFormat& dialog = OpenText(kUnsure);
    EXPECT_TRUE(dialog.fraSuggestion->isVisible());
    EXPECT_EQ(TextOf(dialog), "The file may be:");
    EXPECT_FALSE(dialog.chkTableHeadings->isChecked());
    EXPECT_TRUE(Of<QComboBox>("cboSuggestions").itemText(0).startsWith("55%: planes"));
    EXPECT_TRUE(Of<QComboBox>("cboSuggestions").toolTip().contains("below 180"));
    Press("cmdUseSuggestion");
    EXPECT_TRUE(dialog.chkTableHeadings->isChecked());
    EXPECT_EQ(dialog.cboColumns[kSlotDip]->currentIndex(), 1);
    EXPECT_TRUE(dialog.optPlaneConv[kStrikeDipRightHand]->isChecked());
}

TEST_F(SuggestionsOfDialog, WhatTheUserSetsStays) {
    frmFileFormat& dialog = OpenText(kSure);
    Press("optPrimary_3");
    Press("chkAppended_2");
    PressOk();
    EXPECT_EQ(gPrimaryDataType, kPrimaryLine);
    EXPECT_FALSE(gFileNonNumericAppended);
    EXPECT_EQ(gFileDelimiter, ";");
    static_cast<void>(dialog);
}

TEST_F(SuggestionsOfDialog, NoneIsMadeWhereTheDialogOpensAgainOrTheTextStatesItsFormat) {
    EXPECT_FALSE(OpenText(kSure, true).fraSuggestion->isVisible());
    EXPECT_FALSE(OpenText("/T1\n45\t120\n").fraSuggestion->isVisible());
    EXPECT_FALSE(OpenText("").fraSuggestion->isVisible());
}

TEST_F(SuggestionsOfDialog, TheFormatOfTheSameHeadingsIsTaken) {
    OpenText(kUnsure);
    Press("cmdUseSuggestion");
    Press("optPlaneConv_2"); // the user knows that these are dip directions
    PressOk();
    ASSERT_TRUE(IsAccepted());
    frmFileFormat& again = OpenText("Strike,Dip\n10,31\n122,45\n170,81\n95,20\n");
    EXPECT_TRUE(again.optPlaneConv[kDipDirectionDip]->isChecked());
    EXPECT_EQ(TextOf(again), "Suggested from the headings. Change what is wrong.");
}

TEST_F(SuggestionsOfDialog, PlacesOnTheMapHaveListsOfColumns) {
    frmFileFormat& dialog = OpenText("x,dip,dip direction,y\n651234,52,142,5200100\n"
                                     "651235,43,35,5200101\n");
    EXPECT_EQ(dialog.cboPlace[0]->currentIndex(), 1) << "none comes first";
    EXPECT_EQ(dialog.cboPlace[1]->currentIndex(), 4);
    EXPECT_TRUE(dialog.grdDataFormat->horizontalHeaderItem(3)->toolTip().endsWith("map y"));
    dialog.cboPlace[1]->setCurrentIndex(0);
    EXPECT_TRUE(dialog.grdDataFormat->horizontalHeaderItem(3)->toolTip().endsWith("is not read"));
    Press("chkAppended_2");
    EXPECT_EQ(dialog.cboPlace[0]->currentIndex(), 1) << "other changes leave it";
    dialog.cboPlace[1]->setCurrentIndex(4);
    PressOk();
    ASSERT_TRUE(IsAccepted());
    EXPECT_EQ(gSettings.format.placeColumns, (PlaceColumns{0, 3}));
    frmFileFormat& other = OpenText("dip,dip direction\n52,142\n43,35\n");
    EXPECT_EQ(other.cboPlace[0]->currentIndex(), 0) << "the places of another file do not stay";
}

TEST_F(SuggestionsOfDialog, CommentsAndPairsHaveBoxes) {
    frmFileFormat& dialog = OpenText("# 1979\nsite,plane\nA,045/60SE\nB,230/45NW\nC,10/20E\n");
    EXPECT_TRUE(dialog.chkComments[0]->isChecked());
    EXPECT_TRUE(dialog.chkPairs->isChecked());
    Press("chkComments_1");
    PressOk();
    ASSERT_TRUE(IsAccepted());
    EXPECT_EQ(gSettings.format.comments, (CommentMarks{true, true, false}));
    EXPECT_TRUE(gSettings.format.pairsInCells);
}

TEST_F(SuggestionsOfDialog, TheNetShowsTheRowsAsTheyAreRead) {
    frmFileFormat& dialog = OpenText(kSure);
    auto& caption = Of<QLabel>("lblSample");
    EXPECT_EQ(caption.text(), "2 rows as poles");
    Press("optPrimary_3"); // a plunge of 142 is none
    EXPECT_EQ(caption.text(), "1 row as lines");
    Press("cmdOwnSettings");
    EXPECT_EQ(caption.text(), "0 rows as poles");
    static_cast<void>(dialog);
}

TEST_F(SuggestionsOfDialog, PointingInTheNetFindsTheLineAndTheOtherWayRound) {
    frmFileFormat& dialog = OpenText(kSure);
    dialog.netSample->onPointed(2);
    EXPECT_EQ(dialog.grdDataFormat->currentRow(), 2);
    auto& picture = Of<QWidget>("picSample");
    const QImage lit = picture.grab().toImage();
    dialog.grdDataFormat->setCurrentCell(1, 0);
    EXPECT_NE(picture.grab().toImage(), lit);
    dialog.grdDataFormat->setCurrentCell(0, 0); // the heading is no row
    const QImage none = picture.grab().toImage();
    EXPECT_NE(none, lit);
}

TEST_F(SuggestionsOfDialog, TheTableOfAFileIsChosen) {
    FormatQuestion question;
    question.command = "New";
    question.path = "/field/beds.xlsx";
    question.tables = {{"notes", "remark\nnone\n"}, {"beds", "trend\tplunge\n142\t52\n35\t43\n"}};
    frmFileFormat& dialog = Open(question);
    ASSERT_TRUE(dialog.cboTable->isVisible());
    EXPECT_FALSE(dialog.fraSuggestion->isVisible()) << "the notes hold no rows";
    dialog.cboTable->setCurrentIndex(1);
    EXPECT_EQ(TextOf(dialog), "Suggested from the headings. Change what is wrong.");
    EXPECT_EQ(Of<QLabel>("lblSample").text(), "2 rows as lines");
    EXPECT_EQ(dialog.grdDataFormat->rowCount(), 3);
    PressOk();
    EXPECT_EQ(dialog.Answer().table, 1U);
    EXPECT_EQ(gPrimaryDataType, kPrimaryLine);
    Open();
    EXPECT_FALSE(dialog_->cboTable->isVisible()) << "a text is one table";
}

} // namespace
} // namespace quandrel
