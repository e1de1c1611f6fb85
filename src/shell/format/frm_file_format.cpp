// SPDX-License-Identifier: MIT

#include "shell/format/frm_file_format.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "input/format_suspicions.h"
#include "input/text_file.h"
#include "platform/platform.h"
#include "shell/controls/picture_box.h"
#include "shell/controls/plain_tip.h"
#include "shell/format/format_grid.h"
#include "shell/styles/frm_symbol_select.h"
#include "stereo/symbols.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTabWidget>

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr int kDialogWidth = 960;
constexpr int kDialogHeight = 660;
constexpr int kShownHeading = 30;    ///< characters of a heading in the list of a selector
constexpr int kScrollBarRoom = 24;   ///< beside the entries of a list
constexpr int kFewestColumns = 10;   ///< that the selectors offer
constexpr double kSymbolScale = 110; ///< plot units from the middle of a symbol's box to its edge

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

/// The typed name, or the one before when nothing is left of it.
std::string NameIn(const QComboBox& list, const std::string& before) {
    const std::string name = list.currentText().trimmed().toStdString();
    return name.empty() ? before : name;
}

/// Sets a list to a text, which is added when the list does not have it.
void ShowInList(QComboBox& list, const std::string& text) {
    const QString entry = QString::fromStdString(text);
    if (list.findText(entry) < 0) {
        list.addItem(entry);
    }
    list.setCurrentIndex(list.findText(entry));
}

} // namespace

frmFileFormat::frmFileFormat(const FormatQuestion& question, QWidget* parent)
    : QDialog(parent)
    , question_(question)
    , choice_(ChoiceOf(question))
    , joinsRows_(JoinsRows(question))
    , symbolRows_(SymbolRowsOf(question)) {
    setObjectName("frmFileFormat");
    setWindowTitle("File structure and data conventions");
    for (std::size_t i = 0; i < symbols_.size(); ++i) {
        symbols_[i] = gSymbolTable[static_cast<std::size_t>(symbolRows_[i])];
    }
    MakePages();
    SetOrder();
    ReadFirstLines();
    InitialiseOptButtons();
    DelimiterChanged();
    ConnectFormat();
    ConnectConventions();
    ConnectPlotAndButtons();
    resize(kDialogWidth, kDialogHeight);
    const int primary = choice_.primary;
    optPrimary[static_cast<std::size_t>(primary)]->setFocus();
}

void frmFileFormat::ReadFirstLines() {
    QString shown = "No file: the settings are for the next one";
    if (!question_.text.empty()) {
        lines_ = FirstLinesOfText(question_.text, kPreviewLines);
        shown = "First lines of the pasted text";
    } else if (!question_.path.empty()) {
        Result<std::vector<std::string>> lines = FirstLines(question_.path, kPreviewLines);
        const QString title = QString::fromStdString(FileTitleOf(question_.path));
        if (lines) {
            lines_ = std::move(*lines);
            shown = "First lines of " + title;
        } else {
            shown = title + ": " + QString::fromStdString(lines.Error());
        }
        lblPreview->setToolTip(PlainTip(QString::fromStdString(question_.path)));
    }
    previewTitle_ = shown;
    lblPreview->setText(shown);
}

FormatAnswer frmFileFormat::Answer() const {
    FormatAnswer answer;
    answer.plotSecondary = PlotSecondary();
    answer.columnHeadings = choice_.columnHeadings;
    answer.frequencyColumn = choice_.numericAppended && choice_.numberIsFrequency;
    return answer;
}

bool frmFileFormat::PlotSecondary() const {
    return choice_.plotSecondary && choice_.secondary != kNoSecondary;
}

std::string frmFileFormat::HeaderString() const {
    return preview_.heading;
}

std::string frmFileFormat::AppendedNumericName() const {
    return choice_.numericName;
}

std::string frmFileFormat::AppendedNonNumericName() const {
    return choice_.nonNumericName;
}

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
    choice.planeSeparator = cboSeparator[0]->currentText().toStdString();
    choice.lineSeparator = cboSeparator[1]->currentText().toStdString();
    choice.delimiter = cboDelim->currentData().toString().toStdString();
    choice.columnHeadings = chkTableHeadings->isChecked();
    choice.plotSecondary = chkSecondaryData->isChecked();
    return choice;
}

void frmFileFormat::FormatChanged() {
    if (loading_) {
        return;
    }
    FormatChoice changed = ChoiceOfControls();
    if (!CanHaveSecondary(changed, changed.secondary)) {
        changed.secondary = kNoSecondary;
        const QScopedValueRollback loading(loading_, true);
        optSecondary[0]->setChecked(true);
    }
    FollowFormat(choice_, changed);
    FollowPlotKind(changed);
    choice_ = changed;
    ResetColumnCombos();
    CheckCombos();
    SetDataGrid();
    CheckMisMatch();
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

void frmFileFormat::CheckMisMatch() {
    const Doubt doubt = IsUnknownFile(question_.path, lines_) ? Doubt::All : Doubt::Misfits;
    std::vector<std::string> reasons = FormatMisfits(choice_, preview_, doubt);
    if (joinsRows_) {
        const std::vector<std::string> more = PlotMisfits(choice_, ActiveRecord());
        reasons.insert(reasons.end(), more.begin(), more.end());
    }
    QStringList texts;
    for (const std::string& reason : reasons) {
        texts << QString::fromStdString(reason);
    }
    lblMismatchReasons->setText(
        texts.value(0)
        + (texts.size() > 1 ? QString(" (and %1 more)").arg(texts.size() - 1) : QString()));
    for (QLabel* label : {lblDataMismatch, lblMismatchReasons}) {
        // A tip is rich text when it looks like it; these words come from a file.
        label->setToolTip(texts.isEmpty()
                              ? QString()
                              : "<p>" + texts.join('\n').toHtmlEscaped().replace('\n', "</p><p>")
                                    + "</p>");
        label->setAccessibleDescription(texts.join(' '));
    }
    lblDataMismatch->parentWidget()->setVisible(!texts.isEmpty());
    lblDataMismatch->setVisible(!texts.isEmpty());
}

void frmFileFormat::DelimiterChanged() {
    preview_ = SplitPreview(lines_, choice_);
    ResetColumnCombos();
    CheckCombos();
    SetDataGrid();
    CheckMisMatch();
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
    LoadColumnCombos();
}

void frmFileFormat::LoadColumnCombos() {
    const QScopedValueRollback loading(loading_, true);
    const std::array<bool, kColumnSlots> used = ColumnsInUse(choice_);
    for (std::size_t slot = 0; slot < cboColumns.size(); ++slot) {
        cboColumns[slot]->setCurrentIndex(used[slot] ? choice_.columns[slot] : -1);
    }
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

bool frmFileFormat::CheckColumnValidity() {
    for (const ColumnProblem& problem : ColumnProblems(choice_)) {
        const bool isFault = problem.buttons == Buttons::Ok;
        const Button answer =
            gPlatform.prompts->Ask({gCaption, problem.text,
                                    isFault ? Icon::Exclamation : Icon::Question, problem.buttons});
        if (isFault || answer != Button::Ok) {
            GoToSelector(problem.slot);
            return false;
        }
    }
    return true;
}

bool frmFileFormat::CheckPlotType() {
    if (question_.command == kNoLoadCommand) {
        return true; // nothing is plotted
    }
    const std::optional<std::string> text = PlotTypeQuestion(choice_);
    if (!text || AskToGoOn(*text)) {
        return true;
    }
    if (choice_.plotDataKind == kNoDataKind) {
        reject(); // as the question says
    }
    return false;
}

void frmFileFormat::SetDataGrid() {
    grdDataFormat->Show(preview_, choice_, palette());
}

std::int16_t frmFileFormat::SetConventions() const {
    return ConventionCode(choice_);
}

void frmFileFormat::SetGlobalSettings() {
    quandrel::SetGlobalSettings(choice_);
    for (std::size_t i = 0; i < symbols_.size(); ++i) {
        gSymbolTable[static_cast<std::size_t>(symbolRows_[i])] = symbols_[i];
    }
}

void frmFileFormat::accept() {
    if (!CheckColumnValidity() || !CheckPlotType()) {
        return;
    }
    if (choice_.plotDataKind == kNoDataKind) {
        choice_.kindIsStated = false;
        FollowPlotKind(choice_);
    }
    SetGlobalSettings();
    if (!SaveFormatSettings(chkSaveSettings[0]->isChecked(), chkSaveSettings[1]->isChecked(),
                            chkSaveSettings[2]->isChecked())) {
        Tell("The settings could not be saved.");
    }
    QDialog::accept();
}

void frmFileFormat::ChoosePlotKind(std::int16_t kind) {
    choice_.plotDataKind = kind;
    choice_.kindIsStated = true;
    ShowPlotKind();
}

void frmFileFormat::ShowPlotKind() {
    for (std::int16_t kind = kPlanes; kind <= kPolarLines; ++kind) {
        QPushButton* button = cmdDataType[static_cast<std::size_t>(kind)];
        const bool isChosen = choice_.plotDataKind == kind;
        const QSignalBlocker quiet(*button);
        button->setChecked(isChosen);
        QPalette colours = palette();
        if (isChosen) {
            colours.setColor(QPalette::Button, colours.color(QPalette::Highlight));
            colours.setColor(QPalette::ButtonText, colours.color(QPalette::HighlightedText));
        }
        button->setPalette(colours);
        button->setEnabled(CanPlotAs(choice_, kind));
    }
}

void frmFileFormat::DrawSymbols() {
    for (std::size_t i = 0; i < symbols_.size(); ++i) {
        Surface& picture = picCurrentSymbol[i]->Picture();
        picture.Clear(kWhite);
        picture.SetUserScale({-kSymbolScale, kSymbolScale, kSymbolScale, -kSymbolScale});
        const SymbolRow& symbol = symbols_[i];
        DrawSymbol(picture, 0, 0, symbol[kPlaceColour], symbol[kPlaceSymbol], symbol[kPlaceSize],
                   0);
        picCurrentSymbol[i]->update();
    }
}

void frmFileFormat::RestoreSymbols() {
    for (std::size_t i = 0; i < symbols_.size(); ++i) {
        symbols_[i] = FirstSymbol(symbolRows_[i]);
    }
    DrawSymbols();
}

void frmFileFormat::ChangeSymbols() {
    StyleQuestion question;
    question.title = "Rows to come";
    question.down = symbols_[0];
    question.up = symbols_[1];
    if (const std::optional<ChosenStyles> chosen = AskStyle(question, this)) {
        symbols_ = {chosen->down, chosen->up};
        DrawSymbols();
    }
}

void frmFileFormat::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && grdDataFormat != nullptr) {
        ColourLabels();
        ShowPlotKind();
        SetDataGrid();
    }
}

} // namespace quandrel
