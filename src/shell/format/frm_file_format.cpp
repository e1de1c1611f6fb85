// SPDX-License-Identifier: MIT

#include "shell/format/frm_file_format.h"

#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "input/format_suspicions.h"
#include "input/text_file.h"
#include "platform/platform.h"
#include "shell/controls/picture_box.h"
#include "shell/controls/plain_tip.h"
#include "shell/format/format_grid.h"
#include "shell/format/sample_net.h"
#include "shell/format/suggestion_line.h"
#include "shell/styles/frm_symbol_select.h"
#include "stereo/symbols.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QSignalBlocker>

#include <algorithm>

namespace quandrel {

namespace {

constexpr int kDialogWidth = 960;
constexpr int kDialogHeight = 660;
constexpr int kLargestHeight = 840;
constexpr int kShareOfScreen = 82;   ///< per cent
constexpr double kSymbolScale = 110; ///< plot units from the centre of a symbol's box to its edge

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
    SuggestFormat();
    InitialiseOptButtons();
    DelimiterChanged();
    ConnectFormat();
    ConnectConventions();
    ConnectPlotAndButtons();
    ConnectSuggestions();
    // A larger screen has room for a larger net.
    const int room = screen()->availableSize().height() * kShareOfScreen / 100;
    resize(kDialogWidth, std::clamp(room, kDialogHeight, kLargestHeight));
    const int primary = choice_.primary;
    optPrimary[static_cast<std::size_t>(primary)]->setFocus();
}

void frmFileFormat::ReadFirstLines() {
    QString shown = "No file: the settings are for the next one";
    for (const NamedTable& table : question_.tables) {
        cboTable->addItem(QString::fromStdString(table.name));
    }
    const bool hasTables = !question_.tables.empty();
    cboTable->setVisible(hasTables);
    lblTable->setVisible(hasTables);
    if (hasTables) {
        lines_ = FirstLinesOfText(question_.tables.front().text, kSuggestedFrom);
        shown = "First lines of " + QString::fromStdString(FileTitleOf(question_.path));
    } else if (!question_.text.empty()) {
        lines_ = FirstLinesOfText(question_.text, kSuggestedFrom);
        shown = "First lines of the pasted text";
    } else if (!question_.path.empty()) {
        Result<std::vector<std::string>> lines = FirstLines(question_.path, kSuggestedFrom);
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

std::vector<std::string> frmFileFormat::ShownLines() const {
    const std::size_t count = std::min(lines_.size(), kPreviewLines);
    return {lines_.begin(), lines_.begin() + static_cast<std::ptrdiff_t>(count)};
}

void frmFileFormat::ReadTable(int table) {
    const std::string& text = question_.tables[static_cast<std::size_t>(table)].text;
    lines_ = FirstLinesOfText(text, kSuggestedFrom);
    choice_ = ownChoice_;
    SuggestFormat();
    TakeChoice(choice_);
}

void frmFileFormat::SuggestFormat() {
    suggestions_.clear();
    ownChoice_ = choice_;
    if (!question_.isRepeated && !choice_.kindIsStated) {
        SuggestionOptions options;
        options.kindIsFixed = joinsRows_;
        options.base = choice_;
        options.remembered = RememberedFormats();
        suggestions_ = SuggestFormats(lines_, options);
    }
    const bool isSure = !suggestions_.empty() && suggestions_.front().probability >= kSureEnough;
    if (isSure) {
        choice_ = suggestions_.front().choice;
        FollowPlotKind(choice_);
    }
    fraSuggestion->Show(suggestions_, isSure);
}

void frmFileFormat::TakeChoice(const FormatChoice& choice) {
    choice_ = choice;
    FollowPlotKind(choice_);
    InitialiseOptButtons();
    DelimiterChanged();
}

void frmFileFormat::LightRow(int row) {
    netSample->Light(row >= 0 ? std::optional(static_cast<std::size_t>(row)) : std::nullopt);
}

FormatAnswer frmFileFormat::Answer() const {
    FormatAnswer answer;
    answer.plotSecondary = PlotSecondary();
    answer.columnHeadings = choice_.columnHeadings;
    answer.table = static_cast<std::size_t>(std::max(cboTable->currentIndex(), 0));
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

void frmFileFormat::CheckMisMatch() {
    const Doubt doubt = IsUnknownFile(question_.path, ShownLines()) ? Doubt::All : Doubt::Misfits;
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
        // Qt shows a tip as rich text if it looks like it; these words come from a file.
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
    preview_ = SplitPreview(ShownLines(), choice_);
    ResetColumnCombos();
    CheckCombos();
    SetDataGrid();
    CheckMisMatch();
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
        reject(); // the question announces this
    }
    return false;
}

void frmFileFormat::SetDataGrid() {
    grdDataFormat->Show(preview_, choice_, palette());
    netSample->Show(lines_, choice_);
    netSample->setVisible(!lines_.empty());
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
    if (!preview_.heading.empty()) {
        RememberFormat({CellsOfLine(preview_.heading, choice_.delimiter), choice_});
    }
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
