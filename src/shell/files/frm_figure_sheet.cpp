// SPDX-License-Identifier: MIT

#include "shell/files/frm_figure_sheet.h"

#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "core/settings_value.h"
#include "drawing/figure_page.h"
#include "platform/platform.h"
#include "qt/sheet_picture.h"
#include "sheet/sheet_content.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTimer>

#include <algorithm>
#include <array>
#include <utility>

namespace quandrel {

namespace {

constexpr int kPreviewDelay = 80; ///< milliseconds, so that typing is not slowed down
constexpr int kFreeWidth = 4;     ///< of cboWidth
constexpr std::array kWidths = {kColumnWidth, kHalfPageWidth, kPageWidth, kSlideWidth};

QString NameOfPanel(const FigureSheet& sheet, std::size_t panel) {
    static constexpr std::array kKinds = {"Plot", "Fabric", "Statistics", "Text"};
    const SheetPanel& shown = sheet.panels[panel];
    std::string name = LetterOf(sheet, panel);
    name += name.empty() ? "" : "  ";
    name += kKinds.at(static_cast<std::size_t>(shown.kind));
    for (const std::string& part :
         {shown.title, shown.name.empty() ? FileTitleOf(shown.file) : shown.name}) {
        name += part.empty() ? "" : ", " + part;
    }
    return QString::fromStdString(name);
}

} // namespace

frmFigureSheet::frmFigureSheet(QWidget* parent)
    : QDialog(parent, Qt::Tool)
    , timer_(new QTimer(this)) {
    setObjectName("frmFigureSheet");
    setWindowTitle("Figure");
    timer_->setSingleShot(true);
    connect(timer_, &QTimer::timeout, this, [this] { ShowPreview(); });
    MakeControls();
    Connect();
    ShowSheet();
}

void frmFigureSheet::Connect() {
    for (QComboBox* list : {cboLetters, cboLegend, cboStyle, cboWidth}) {
        connect(list, &QComboBox::currentIndexChanged, this, [this] { TakePage(); });
    }
    for (QDoubleSpinBox* box : {spnWidth, spnGap, spnGapDown}) {
        connect(box, &QDoubleSpinBox::valueChanged, this, [this] { TakePage(); });
    }
    connect(spnColumns, &QSpinBox::valueChanged, this, [this] { TakePage(); });
    connect(txtCaption, &QLineEdit::textChanged, this, [this] { TakePage(); });
    for (QSpinBox* box : {spnSpanColumns, spnSpanRows}) {
        connect(box, &QSpinBox::valueChanged, this, [this] { TakePanel(); });
    }
    for (QLineEdit* box : {txtTitle, txtText}) {
        connect(box, &QLineEdit::textChanged, this, [this] { TakePanel(); });
    }
    connect(lstPanels, &QListWidget::currentRowChanged, this, [this] { ShowPanel(); });
    connect(cmdAdd, &QPushButton::clicked, this, [this] { AddPanel(); });
    connect(cmdRemove, &QPushButton::clicked, this, [this] { RemovePanel(); });
    connect(cmdUp, &QPushButton::clicked, this, [this] { MovePanel(-1); });
    connect(cmdDown, &QPushButton::clicked, this, [this] { MovePanel(1); });
    connect(cmdUpdate, &QPushButton::clicked, this, [this] { UpdateFromPlots(); });
    connect(cmdUndo, &QPushButton::clicked, this, [this] { GoTo(&SheetHistory::Undo); });
    connect(cmdRedo, &QPushButton::clicked, this, [this] { GoTo(&SheetHistory::Redo); });
    connect(
        lstPanels->model(), &QAbstractItemModel::rowsMoved, this,
        [this](const QModelIndex&, int from, int, const QModelIndex&, int to) {
            TakeOrder(from, to > from ? to - 1 : to);
        },
        Qt::QueuedConnection); // the list is filled again, after the drag
    connect(cmdCopyCaption, &QPushButton::clicked, this, [this] {
        gPlatform.clipboard->SetText(txtPreviewCaption->toPlainText().toStdString());
    });
    connect(cmdOpen, &QPushButton::clicked, this, [this] { AskAndOpen(); });
    connect(cmdSave, &QPushButton::clicked, this, [this] { (void)Save(); });
    connect(cmdExport, &QPushButton::clicked, this, [this] { Export(); });
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
}

/// Shows the whole sheet in the controls.
void frmFigureSheet::ShowSheet() {
    const std::array<QSignalBlocker, 9> quiet = {
        QSignalBlocker(cboLetters), QSignalBlocker(cboLegend),  QSignalBlocker(cboStyle),
        QSignalBlocker(cboWidth),   QSignalBlocker(spnWidth),   QSignalBlocker(spnGap),
        QSignalBlocker(spnColumns), QSignalBlocker(txtCaption), QSignalBlocker(spnGapDown)};
    const auto* const width = std::ranges::find(kWidths, sheet_.width);
    cboWidth->setCurrentIndex(static_cast<int>(width - kWidths.begin()));
    spnWidth->setValue(sheet_.width);
    spnWidth->setEnabled(cboWidth->currentIndex() == kFreeWidth);
    spnColumns->setValue(sheet_.columns);
    spnGap->setValue(sheet_.gapAcross);
    spnGapDown->setValue(sheet_.gapDown);
    cboLetters->setCurrentIndex(static_cast<int>(sheet_.letters));
    cboLegend->setCurrentIndex(static_cast<int>(sheet_.legend));
    // A style of a file stays that of the sheet until another one is chosen.
    cboStyle->setCurrentIndex(cboStyle->findText(QString::fromStdString(sheet_.style)));
    txtCaption->setText(QString::fromStdString(sheet_.caption));
    const int row = lstPanels->currentRow();
    {
        const QSignalBlocker still(lstPanels);
        lstPanels->clear();
        for (std::size_t i = 0; i < sheet_.panels.size(); ++i) {
            auto* item = new QListWidgetItem(NameOfPanel(sheet_, i), lstPanels);
            item->setFlags(item->flags() & ~Qt::ItemIsDropEnabled); // dropped between, not on it
        }
        lstPanels->setCurrentRow(std::clamp(row, 0, std::max(lstPanels->count() - 1, 0)));
    }
    ShowPanel();
    Changed();
}

/// Shows the properties of the panel that is chosen in the list.
void frmFigureSheet::ShowPanel() {
    const int row = lstPanels->currentRow();
    const bool isChosen = row >= 0;
    const SheetPanel panel = isChosen ? sheet_.panels[static_cast<std::size_t>(row)] : SheetPanel();
    const std::array<QSignalBlocker, 4> quiet = {QSignalBlocker(txtTitle), QSignalBlocker(txtText),
                                                 QSignalBlocker(spnSpanColumns),
                                                 QSignalBlocker(spnSpanRows)};
    txtTitle->setText(QString::fromStdString(panel.title));
    txtText->setText(QString::fromStdString(panel.text));
    spnSpanColumns->setMaximum(sheet_.columns);
    spnSpanColumns->setValue(panel.columns);
    spnSpanRows->setValue(panel.rows);
    for (QWidget* control :
         std::initializer_list<QWidget*>{txtTitle, spnSpanColumns, spnSpanRows, cmdRemove}) {
        control->setEnabled(isChosen);
    }
    txtText->setEnabled(isChosen && panel.kind == PanelKind::Text);
    cmdUp->setEnabled(row > 0);
    cmdDown->setEnabled(isChosen && row + 1 < lstPanels->count());
}

void frmFigureSheet::TakePage() {
    const int index = cboWidth->currentIndex();
    spnWidth->setEnabled(index == kFreeWidth);
    if (index != kFreeWidth) {
        const QSignalBlocker quiet(spnWidth);
        spnWidth->setValue(kWidths.at(static_cast<std::size_t>(index)));
    }
    sheet_.width = spnWidth->value();
    sheet_.height = sheet_.width == kSlideWidth ? kSlideHeight : 0;
    sheet_.columns = spnColumns->value();
    sheet_.gapAcross = spnGap->value();
    sheet_.gapDown = spnGapDown->value();
    sheet_.letters = static_cast<SheetLetters>(cboLetters->currentIndex());
    sheet_.legend = static_cast<LegendPlace>(cboLegend->currentIndex());
    if (cboStyle->currentIndex() >= 0) {
        sheet_.style = cboStyle->currentText().toStdString();
    }
    sheet_.caption = txtCaption->text().toStdString();
    for (SheetPanel& panel : sheet_.panels) {
        panel.columns = std::min(panel.columns, sheet_.columns);
    }
    ShowPanel();
    Changed();
}

void frmFigureSheet::TakePanel() {
    const int row = lstPanels->currentRow();
    if (row < 0) {
        return;
    }
    const auto place = static_cast<std::size_t>(row);
    SheetPanel& panel = sheet_.panels[place];
    panel.title = txtTitle->text().toStdString();
    panel.text = txtText->text().toStdString();
    panel.columns = spnSpanColumns->value();
    panel.rows = spnSpanRows->value();
    lstPanels->item(row)->setText(NameOfPanel(sheet_, place));
    Changed();
}

void frmFigureSheet::AddPanel() {
    Record();
    SheetPanel panel;
    panel.kind = static_cast<PanelKind>(cboKind->currentIndex());
    if (panel.kind != PanelKind::Text) {
        const Result<SheetPanel> made = IsOpenSlot(gActivePlot)
                                            ? PanelOfPlot(panel.kind, ActivePlot())
                                            : Result<SheetPanel>(Failure{"no plot is open"});
        if (!made) {
            Tell("The panel cannot be added: " + made.Error() + ".");
            return;
        }
        panel = *made;
    } else {
        panel.text = "Text";
    }
    if (sheet_.panels.size() < kMostPanels) {
        sheet_.panels.push_back(panel);
        Record();
        ShowSheet();
        lstPanels->setCurrentRow(lstPanels->count() - 1);
    }
}

void frmFigureSheet::RemovePanel() {
    Record();
    sheet_.panels.erase(sheet_.panels.begin() + lstPanels->currentRow());
    Record();
    ShowSheet();
}

void frmFigureSheet::MovePanel(int by) {
    TakeOrder(lstPanels->currentRow(), lstPanels->currentRow() + by);
}

/// Moves a panel in the sheet to another place.
void frmFigureSheet::TakeOrder(int from, int to) {
    Record();
    quandrel::MovePanel(sheet_, static_cast<std::size_t>(from), static_cast<std::size_t>(to));
    Record();
    ShowSheet();
    lstPanels->setCurrentRow(to);
}

/// Takes the present state of the plots that are open, and reports panels whose plot is not.
void frmFigureSheet::UpdateFromPlots() {
    std::vector<const Plot*> plots;
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (IsOpenSlot(slot)) {
            plots.push_back(&PlotOf(slot));
        }
    }
    const Result<UpdatedSheet> updated = UpdatedFrom(plots, sheet_);
    if (!updated) {
        Tell("The figure cannot be updated: " + updated.Error() + ".");
        return;
    }
    Record();
    sheet_ = updated->sheet;
    Record();
    contents_.reset(); // files of panels may have changed too
    ShowSheet();
    std::string names;
    for (const std::size_t panel : updated->unchanged) {
        names += "\n" + NameOfPanel(sheet_, panel).toStdString();
    }
    if (!names.empty()) {
        Tell("The plots of these panels are not open, or have the same name:" + names,
             Icon::Information);
    }
}

void frmFigureSheet::Record() {
    history_.Record(sheet_);
    ShowSteps();
}

void frmFigureSheet::BeginHistory() {
    history_.Begin(sheet_);
    ShowSteps();
}

void frmFigureSheet::ShowSteps() {
    cmdUndo->setEnabled(history_.CanUndo());
    cmdRedo->setEnabled(history_.CanRedo());
}

/// Takes the sheet of another step.
void frmFigureSheet::GoTo(const FigureSheet& (SheetHistory::*step)()) {
    Record();
    sheet_ = (history_.*step)();
    ShowSteps();
    ShowSheet();
}

void frmFigureSheet::Changed() {
    timer_->start(kPreviewDelay);
}

void frmFigureSheet::ShowPreview() {
    Record();
    if (!contents_ || shown_ != sheet_.panels) {
        contents_ = ContentOf(sheet_, gSettings);
        shown_ = sheet_.panels;
    }
    const auto ofContents = [this](const auto& use) {
        using Made = decltype(use(**contents_));
        return *contents_ ? use(**contents_) : Made(Failure{contents_->Error()});
    };
    const Result<std::string> caption =
        ofContents([this](const auto& contents) { return CaptionOfSheet(sheet_, contents); });
    txtPreviewCaption->setPlainText(QString::fromStdString(caption ? *caption : std::string()));
    const double density = lblPreview->devicePixelRatioF();
    const QSize room = (lblPreview->size() * density).expandedTo({1, 1});
    const Result<QImage> image =
        ofContents([&](const auto& contents) { return SheetImage(sheet_, contents, room); });
    if (image) {
        QPixmap pixmap = QPixmap::fromImage(*image);
        pixmap.setDevicePixelRatio(density);
        lblPreview->setPixmap(pixmap);
    } else {
        lblPreview->clear();
    }
    const bool isEmpty = sheet_.panels.empty();
    std::string note = image ? std::string() : image.Error();
    note = note.empty() && !caption ? caption.Error() : note;
    lblNote->setText(isEmpty ? QString("Add the plot in front with Add.")
                             : QString::fromStdString(note));
    cmdExport->setEnabled(static_cast<bool>(image));
    cmdSave->setEnabled(!isEmpty);
    cmdCopyCaption->setEnabled(static_cast<bool>(caption) && !isEmpty);
}

void frmFigureSheet::closeEvent(QCloseEvent* event) {
    if (MayLose()) {
        sheet_ = {};
        saved_ = {};
        path_.clear();
        BeginHistory();
        ShowSheet();
        QDialog::closeEvent(event);
    } else {
        event->ignore();
    }
}

void frmFigureSheet::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    Changed();
}

void frmFigureSheet::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    Changed();
}

} // namespace quandrel
