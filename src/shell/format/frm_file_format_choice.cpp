// SPDX-License-Identifier: MIT
//
// Reads the format choice from the controls of the format dialog, and shows it in them.

#include "shell/format/format_grid.h"
#include "shell/format/frm_file_format.h"

#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QScopedValueRollback>

#include <algorithm>

namespace quandrel {

namespace {

constexpr int kShownHeading = 30;  ///< characters of a heading in the list of a selector
constexpr int kScrollBarRoom = 24; ///< beside the entries of a list
constexpr int kFewestColumns = 10; ///< that the selectors list

/// Codes of the secondary formats in the order of their captions.
constexpr std::array<std::int16_t, 6> kSecondaryCodes = {
    kNoSecondary, kSecondaryLine, kSecondaryPlane, kPitchInPlane, kTrendInPlane, kHadeInPlane};

/// The index of the chosen button of an array, or -1.
template <std::size_t N>
int Chosen(const std::array<QRadioButton*, N>& options) {
    for (std::size_t i = 0; i < N; ++i) {
        if (options[i] != nullptr && options[i]->isChecked()) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

/// The typed name, or the previous one if the typed name is blank.
std::string NameIn(const QComboBox& list, const std::string& before) {
    const std::string name = list.currentText().trimmed().toStdString();
    return name.empty() ? before : name;
}

/// Selects a text in a list; adds it if the list does not have it.
void ShowInList(QComboBox& list, const std::string& text) {
    const QString entry = QString::fromStdString(text);
    if (list.findText(entry) < 0) {
        list.addItem(entry);
    }
    list.setCurrentIndex(list.findText(entry));
}

} // namespace

void frmFileFormat::InitialiseOptButtons() {
    const QScopedValueRollback loading(loading_, true);
    const FormatChoice& choice = choice_;
    optPrimary[static_cast<std::size_t>(choice.primary)]->setChecked(true);
    const auto* const secondary =
        std::find(kSecondaryCodes.begin(), kSecondaryCodes.end(), choice.secondary);
    optSecondary[static_cast<std::size_t>(secondary - kSecondaryCodes.begin())]->setChecked(true);
    chkAppended[0]->setChecked(choice.lineAppended);
    chkAppended[1]->setChecked(choice.numericAppended);
    chkAppended[2]->setChecked(choice.nonNumericAppended);
    chkFreqIsAppended->setChecked(choice.numberIsFrequency);
    cboAppName[0]->setCurrentText(QString::fromStdString(choice.numericName));
    cboAppName[1]->setCurrentText(QString::fromStdString(choice.nonNumericName));
    optPlaneConv[static_cast<std::size_t>(choice.planeConvention)]->setChecked(true);
    optLineConv[choice.lineIsTrendFirst ? 1 : 0]->setChecked(true);
    optDirnConv[choice.isQuadrant ? 0 : 1]->setChecked(true);
    optNegativePlunge[static_cast<std::size_t>(choice.negativePlunge)]->setChecked(true);
    chkComments[0]->setChecked(choice.comments.hash);
    chkComments[1]->setChecked(choice.comments.percent);
    chkComments[2]->setChecked(choice.comments.slashes);
    chkPairs->setChecked(choice.pairsInCells);
    ShowInList(*cboSeparator[0], choice.planeSeparator);
    ShowInList(*cboSeparator[1], choice.lineSeparator);
    const QString delimiter = QString::fromStdString(choice.delimiter);
    if (cboDelim->findData(delimiter) < 0) {
        cboDelim->addItem(delimiter, delimiter);
    }
    cboDelim->setCurrentIndex(cboDelim->findData(delimiter));
    chkTableHeadings->setChecked(choice.columnHeadings);
    chkSecondaryData->setChecked(choice.plotSecondary);
}

FormatChoice frmFileFormat::ChoiceOfControls() const {
    FormatChoice choice = choice_;
    choice.primary = static_cast<std::int16_t>(Chosen(optPrimary));
    choice.secondary = kSecondaryCodes[static_cast<std::size_t>(Chosen(optSecondary))];
    choice.lineAppended = chkAppended[0]->isChecked();
    choice.numericAppended = chkAppended[1]->isChecked();
    choice.nonNumericAppended = chkAppended[2]->isChecked();
    choice.numberIsFrequency = chkFreqIsAppended->isChecked();
    choice.numericName = NameIn(*cboAppName[0], choice.numericName);
    choice.nonNumericName = NameIn(*cboAppName[1], choice.nonNumericName);
    choice.planeConvention = Chosen(optPlaneConv);
    choice.lineIsTrendFirst = optLineConv[1]->isChecked();
    choice.isQuadrant = optDirnConv[0]->isChecked();
    choice.negativePlunge =
        optNegativePlunge[1]->isChecked() ? NegativePlunge::Vector : NegativePlunge::LowerEnd;
    choice.comments = {chkComments[0]->isChecked(), chkComments[1]->isChecked(),
                       chkComments[2]->isChecked()};
    choice.pairsInCells = chkPairs->isChecked();
    choice.planeSeparator = cboSeparator[0]->currentText().toStdString();
    choice.lineSeparator = cboSeparator[1]->currentText().toStdString();
    choice.delimiter = cboDelim->currentData().toString().toStdString();
    choice.columnHeadings = chkTableHeadings->isChecked();
    choice.plotSecondary = chkSecondaryData->isChecked();
    return choice;
}

void frmFileFormat::CheckCombos() {
    SetPrimaryCombos();
    SetSecondaryCombos();
    const std::array<bool, kColumnSlots> used = ColumnsInUse(choice_);
    const std::array<std::string, kColumnSlots> names = ColumnNames(choice_);
    for (int slot = kSlotAppendedPlunge; slot <= kSlotText; ++slot) {
        SetCombo(slot, used[static_cast<std::size_t>(slot)], names[static_cast<std::size_t>(slot)]);
    }
    for (std::size_t i = 0; i < optSecondary.size(); ++i) {
        optSecondary[i]->setEnabled(CanHaveSecondary(choice_, kSecondaryCodes[i]));
    }
    cboAppName[0]->setEnabled(choice_.numericAppended);
    cboAppName[1]->setEnabled(choice_.nonNumericAppended);
    chkFreqIsAppended->setEnabled(choice_.numericAppended);
    const bool hasAppended =
        choice_.lineAppended || choice_.numericAppended || choice_.nonNumericAppended;
    lblOtherData[0]->setVisible(choice_.secondary == kNoSecondary);
    lblOtherData[1]->setVisible(!hasAppended);
    chkSecondaryData->setEnabled(choice_.secondary != kNoSecondary && !joinsRows_);
    chkSecondaryData->setToolTip(joinsRows_
                                     ? "The rows are plotted by the set that the plot shows already"
                                     : "The secondary set is plotted in place of the primary one");
    cmdUseSaved->setEnabled(HasSavedColumns());
    cmdUseSaved->setToolTip(HasSavedColumns()
                                ? "Takes the columns, the secondary format and the appended values "
                                  "that were saved last"
                                : "No column settings have been saved yet");
    lblConventions->setText(QString::fromStdString(ConventionsText(SetConventions())));
    ColourLabels();
    ShowPlotKind();
}

void frmFileFormat::SetPrimaryCombos() {
    const std::array<bool, kColumnSlots> used = ColumnsInUse(choice_);
    const std::array<std::string, kColumnSlots> names = ColumnNames(choice_);
    for (std::size_t slot = kSlotDip; slot <= kSlotSense; ++slot) {
        SetCombo(static_cast<int>(slot), used[slot], names[slot]);
    }
}

void frmFileFormat::SetSecondaryCombos() {
    const std::array<bool, kColumnSlots> used = ColumnsInUse(choice_);
    const std::array<std::string, kColumnSlots> names = ColumnNames(choice_);
    for (std::size_t slot = kSlotSecondaryDip; slot <= kSlotSecondarySense; ++slot) {
        SetCombo(static_cast<int>(slot), used[slot], names[slot]);
    }
}

void frmFileFormat::SetCombo(int slot, bool inUse, const std::string& name) {
    const auto index = static_cast<std::size_t>(slot);
    const std::string longName = LongColumnNames(choice_)[index];
    lblColumns[index]->setText(QString::fromStdString(name));
    lblColumns[index]->setEnabled(inUse);
    cboColumns[index]->setEnabled(inUse);
    cboColumns[index]->setAccessibleName("Column of " + QString::fromStdString(longName));
}

void frmFileFormat::ColourLabels() {
    for (std::size_t slot = 0; slot < lblColumns.size(); ++slot) {
        QLabel& label = *lblColumns[slot];
        const bool inUse = label.isEnabled();
        label.setAutoFillBackground(inUse);
        QPalette colours = palette();
        if (inUse) {
            const auto colour = ItemColour(static_cast<int>(slot), ItemPlace::Heading, palette());
            colours.setColor(QPalette::Window, colour);
        }
        label.setPalette(colours);
    }
    QPalette muted = palette();
    muted.setColor(QPalette::WindowText, MutedText(muted));
    for (QLabel* sample : lblPlaneSample) {
        if (sample != nullptr) {
            sample->setPalette(muted);
        }
    }
    QPalette warning = palette();
    const bool isDark = warning.color(QPalette::Base).lightness() < 128;
    warning.setColor(QPalette::WindowText, isDark ? QColor(255, 190, 90) : QColor(160, 50, 0));
    lblDataMismatch->setPalette(warning);
}

void frmFileFormat::StoreColumns() {
    for (std::size_t slot = 0; slot < cboColumns.size(); ++slot) {
        if (cboColumns[slot]->isEnabled() && cboColumns[slot]->currentIndex() >= 0) {
            choice_.columns[slot] = cboColumns[slot]->currentIndex();
        }
    }
}

void frmFileFormat::ResetColumnCombos() {
    const std::array<bool, kColumnSlots> used = ColumnsInUse(choice_);
    int columns = std::max(preview_.columns, kFewestColumns);
    for (std::size_t slot = 0; slot < used.size(); ++slot) {
        columns = used[slot] ? std::max(columns, choice_.columns[slot] + 1) : columns;
    }
    columns = std::min(columns, kPreviewColumns);
    const QScopedValueRollback loading(loading_, true);
    for (QComboBox* list : cboColumns) {
        list->clear();
        for (int column = 0; column < columns; ++column) {
            list->addItem(QString::number(column + 1),
                          QString::fromStdString(preview_.HeadingOf(column)).left(kShownHeading));
        }
        list->view()->setMinimumWidth(list->view()->sizeHintForColumn(0) + kScrollBarRoom);
    }
    FillPlaceLists(columns);
    LoadColumnCombos();
}

void frmFileFormat::FillPlaceLists(int columns) {
    const PlaceColumns& place = choice_.placeColumns;
    columns = std::min(std::max({columns, place.x + 1, place.y + 1}), kPreviewColumns);
    for (QComboBox* list : cboPlace) {
        list->clear();
        list->addItem("-", QString("none"));
        for (int column = 0; column < columns; ++column) {
            list->addItem(QString::number(column + 1),
                          QString::fromStdString(preview_.HeadingOf(column)).left(kShownHeading));
        }
        list->view()->setMinimumWidth(list->view()->sizeHintForColumn(0) + kScrollBarRoom);
    }
}

void frmFileFormat::StorePlaceColumns() {
    choice_.placeColumns = {cboPlace[0]->currentIndex() - 1, cboPlace[1]->currentIndex() - 1};
}

void frmFileFormat::LoadColumnCombos() {
    const QScopedValueRollback loading(loading_, true);
    const std::array<bool, kColumnSlots> used = ColumnsInUse(choice_);
    for (std::size_t slot = 0; slot < cboColumns.size(); ++slot) {
        cboColumns[slot]->setCurrentIndex(used[slot] ? choice_.columns[slot] : -1);
    }
    cboPlace[0]->setCurrentIndex(choice_.placeColumns.x + 1);
    cboPlace[1]->setCurrentIndex(choice_.placeColumns.y + 1);
}

void frmFileFormat::LoadSavedSettings() {
    LoadSavedColumns(choice_);
    FollowPlotKind(choice_);
    InitialiseOptButtons();
    DelimiterChanged();
}

void frmFileFormat::SetInitialColumns() {
    choice_.columns = InitialColumns(choice_);
    DelimiterChanged();
}

void frmFileFormat::GoToSelector(int slot) {
    tabConventions->setCurrentIndex(0);
    cboColumns[static_cast<std::size_t>(slot)]->setFocus();
}

} // namespace quandrel
