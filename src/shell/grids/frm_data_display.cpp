// SPDX-License-Identifier: MIT

#include "shell/grids/frm_data_display.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "platform/platform.h"
#include "shell/controls/control_kit.h"
#include "shell/grids/data_display_model.h"
#include "shell/grids/row_grid.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>

#include <new>
#include <utility>

namespace quandrel {

namespace {

constexpr const char* kCaptionStem = "Data for Plot: ";
constexpr const char* kNotShown = "Couldn't display this data properly";
constexpr const char* kEditsWait =
    "There are edits: OK writes them into the plot, Discard Edits drops them";
constexpr const char* kHowToEdit = "Double click a cell to edit it";
constexpr const char* kReadOnly = "The files as they are: nothing can be edited here";
constexpr int kNarrowestWindow = 460;
constexpr int kWidestWindow = 960;
constexpr int kUsualHeight = 460;

} // namespace

frmDataDisplay::frmDataDisplay(DataDisplayMode mode, QWidget* parent, std::function<void()> edited)
    : QDialog(parent)
    , grdRawData(new RowGrid)
    , txtCellContents(new QLineEdit(grdRawData->viewport()))
    , lblEdits(new QLabel)
    , cmdAddRow(new QPushButton("&Add Row"))
    , cmdDiscard(new QPushButton("&Discard Edits"))
    , cmdOK(new QPushButton("OK"))
    , mode_(mode)
    , editsApplied_(std::move(edited)) {
    setObjectName("frmDataDisplay");
    setWindowTitle(kCaptionStem);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    MakeLayout();
    Connect();
    ShowEdits();
    resize(kNarrowestWindow, kUsualHeight);
}

frmDataDisplay::~frmDataDisplay() {
    SetModel(nullptr);
}

void frmDataDisplay::MakeLayout() {
    const bool isRaw = mode_ == DataDisplayMode::Raw;
    grdRawData->setObjectName("grdRawData");
    grdRawData->setAccessibleName(isRaw ? "Lines of the files" : "Rows of the plot");
    txtCellContents->setObjectName("txtCellContents");
    txtCellContents->setAccessibleName("Contents of the cell");
    txtCellContents->hide();
    lblEdits->setObjectName("lblEdits");
    lblEdits->setTextFormat(Qt::PlainText);
    lblEdits->setWordWrap(true);
    cmdAddRow->setObjectName("cmdAddRow");
    cmdAddRow->setToolTip("Begins a new row at the end of the grid");
    cmdDiscard->setObjectName("cmdDiscard");
    cmdDiscard->setToolTip("Discards what was typed");
    cmdOK->setObjectName("cmdOK");
    cmdOK->setToolTip(isRaw ? "Closes the window" : "Writes the edits into the plot and closes");
    auto* line = new QHBoxLayout;
    for (QPushButton* button : {cmdAddRow, cmdDiscard}) {
        button->setVisible(!isRaw);
        line->addWidget(button);
    }
    line->addWidget(lblEdits, 1);
    line->addWidget(cmdOK);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(grdRawData, 1);
    layout->addLayout(line);
    cmdOK->setDefault(true);
    TabOrder().Then(grdRawData).Then(cmdAddRow).Then(cmdDiscard).Then(cmdOK);
}

void frmDataDisplay::Connect() {
    grdRawData->installEventFilter(this);
    grdRawData->viewport()->installEventFilter(this);
    txtCellContents->installEventFilter(this);
    grdRawData->onPicked = [this] { SelectFromGrid(); };
    connect(grdRawData, &QTableView::doubleClicked, this, &frmDataDisplay::BeginEdit);
    connect(txtCellContents, &QLineEdit::textChanged, this, &frmDataDisplay::ShowVerdict);
    for (const QScrollBar* bar :
         {grdRawData->verticalScrollBar(), grdRawData->horizontalScrollBar()}) {
        connect(bar, &QScrollBar::valueChanged, this, &frmDataDisplay::PlaceEditor);
    }
    connect(grdRawData->horizontalHeader(), &QHeaderView::sectionResized, this,
            &frmDataDisplay::PlaceEditor);
    connect(cmdAddRow, &QPushButton::clicked, this, &frmDataDisplay::AddRow);
    connect(cmdDiscard, &QPushButton::clicked, this, &frmDataDisplay::DiscardEdits);
    connect(cmdOK, &QPushButton::clicked, this, &QWidget::close);
}

std::unique_ptr<DataDisplayModel> frmDataDisplay::ModelOf(int slot, QString& reason) const {
    reason = kNotShown;
    if (!IsOpenSlot(slot)) {
        return nullptr;
    }
    try {
        if (mode_ == DataDisplayMode::Processed) {
            return std::make_unique<PlotDataModel>(slot);
        }
        Result<RawData> raw = RawData::Read(slot);
        if (raw) {
            return std::make_unique<RawDataModel>(std::move(*raw));
        }
        reason = QString::fromStdString(raw.Error());
    } catch (const std::bad_alloc&) {
        reason = kNotShown;
    }
    return nullptr;
}

bool frmDataDisplay::ShowData(int slot) {
    if (gBusy || applying_) {
        return false;
    }
    ConfirmEdit();
    if (slot != Slot() || !HasEdits()) {
        ApplyEdits();
        QString reason;
        std::unique_ptr<DataDisplayModel> model = ModelOf(slot, reason);
        if (model == nullptr) {
            Tell(reason.toStdString());
            return false;
        }
        SetModel(std::move(model));
    }
    if (isHidden()) {
        FitWidth();
    }
    show();
    raise();
    activateWindow();
    return true;
}

void frmDataDisplay::SetModel(std::unique_ptr<DataDisplayModel> model) {
    DropEdit();
    grdRawData->setModel(model.get());
    model_ = std::move(model);
    plot_ =
        mode_ == DataDisplayMode::Processed ? static_cast<PlotDataModel*>(model_.get()) : nullptr;
    if (model_ != nullptr) {
        setWindowTitle(model_->Caption());
        grdRawData->FitColumns();
        grdRawData->setCurrentIndex(QModelIndex());
        SelectionChanged();
        grdRawData->setFocus();
    }
    ShowEdits();
}

void frmDataDisplay::FitWidth() {
    const QMargins margins = layout()->contentsMargins();
    const int wanted = grdRawData->horizontalHeader()->length()
                       + grdRawData->verticalScrollBar()->sizeHint().width()
                       + 2 * grdRawData->frameWidth() + margins.left() + margins.right();
    resize(qBound(kNarrowestWindow, wanted, kWidestWindow), height());
}

int frmDataDisplay::Slot() const {
    return model_ != nullptr ? model_->Slot() : 0;
}

bool frmDataDisplay::HasEdits() const {
    return plot_ != nullptr && plot_->Grid().HasEdits();
}

void frmDataDisplay::SelectFromGrid() {
    if (model_ == nullptr || !IsOpenSlot(model_->Slot())) {
        return;
    }
    const QScopedValueRollback selecting(selecting_, true);
    model_->Select(grdRawData->PickedRows());
    ShowSelectionInOtherGrid();
}

void frmDataDisplay::ShowSelectionInOtherGrid() {
    if (other_ != nullptr) {
        other_->SelectionChanged();
    }
}

void frmDataDisplay::SelectionChanged() {
    if (selecting_ || model_ == nullptr || !IsOpenSlot(model_->Slot())) {
        return;
    }
    grdRawData->PickRows(model_->LitRowsOfGrid());
}

void frmDataDisplay::FollowPlot() {
    if (applying_ || model_ == nullptr) {
        return;
    }
    if (!IsOpenSlot(model_->Slot())) {
        PlotClosed();
        return;
    }
    setWindowTitle(model_->Caption());
    if (plot_ != nullptr && plot_->Grid().IsStale()) {
        ConfirmEdit();
        const int columns = plot_->columnCount();
        if (const auto lost = plot_->Grid().LostRows()) {
            plot_->RowsRemoved(*lost);
        } else {
            plot_->Refill();
        }
        if (plot_->columnCount() != columns) {
            grdRawData->FitColumns();
        }
        SelectionChanged();
    } else {
        model_->CellsChanged();
    }
    ShowEdits();
}

void frmDataDisplay::RowsRemoved(int slot, std::span<const std::int32_t> points) {
    if (plot_ == nullptr || plot_->Slot() != slot) {
        return;
    }
    ConfirmEdit();
    plot_->RowsRemoved(points);
    SelectionChanged();
    ShowEdits();
}

void frmDataDisplay::ApplyEdits() {
    ConfirmEdit();
    if (!HasEdits() || applying_ || gBusy) {
        return;
    }
    GridEditReport report;
    {
        const QScopedValueRollback applying(applying_, true);
        report = plot_->Apply();
    }
    SelectionChanged();
    ShowEdits();
    if (editsApplied_) {
        editsApplied_();
    }
    if (const std::string note = NoteOnGridEdits(report); !note.empty()) {
        gPlatform.status->SetText(note);
    }
}

void frmDataDisplay::PlotClosed() {
    SetModel(nullptr);
    hide();
}

void frmDataDisplay::closeEvent(QCloseEvent* event) {
    if (gBusy || applying_) {
        event->ignore(); // the edits could not be written
        return;
    }
    ApplyEdits();
    SetModel(nullptr);
    QDialog::closeEvent(event);
}

void frmDataDisplay::reject() {
    if (HasEdits()) {
        gPlatform.status->SetText(kEditsWait);
        toldOfEdits_ = true;
        return;
    }
    SetModel(nullptr);
    QDialog::reject();
}

void frmDataDisplay::ShowEdits() {
    const bool canEdit = plot_ != nullptr;
    cmdAddRow->setEnabled(canEdit);
    cmdDiscard->setEnabled(HasEdits());
    if (!HasEdits()) {
        lblEdits->setText(mode_ == DataDisplayMode::Raw ? kReadOnly : kHowToEdit);
        if (std::exchange(toldOfEdits_, false)) {
            gPlatform.status->SetText({}); // no edits are pending
        }
        return;
    }
    const auto rows = plot_->Grid().EditedRows().size();
    const int bad = plot_->BadRows();
    QString text = rows == 1 ? QString("1 row edited") : QString("%1 rows edited").arg(rows);
    if (bad > 0) {
        text += QString(", %1 cannot be read").arg(bad);
    }
    lblEdits->setText(text);
}

void frmDataDisplay::AddRow() {
    ConfirmEdit();
    if (plot_ == nullptr) {
        return;
    }
    if (!plot_->AddGridRow()) {
        lblEdits->setText("This plot takes no new rows here: it is a rose, or has overlays, or "
                          "shows secondary data");
        return;
    }
    const QModelIndex cell = plot_->index(plot_->rowCount() - 1, 1);
    grdRawData->scrollToBottom();
    BeginEdit(cell);
}

void frmDataDisplay::DiscardEdits() {
    DropEdit();
    plot_->DiscardEdits();
    SelectionChanged();
    ShowEdits();
}

void frmDataDisplay::CopyCells() {
    std::vector<std::size_t> rows = grdRawData->PickedRows();
    const QModelIndex current = grdRawData->currentIndex();
    if (rows.empty() && current.isValid()) {
        rows.push_back(static_cast<std::size_t>(current.row()));
    }
    QString text;
    for (const std::size_t row : rows) {
        QStringList cells;
        for (int column = 0; column < model_->columnCount(); ++column) {
            if (model_->IsDataColumn(column)) {
                cells << model_->FullText(static_cast<int>(row), column);
            }
        }
        text += cells.join('\t') + '\n';
    }
    if (!text.isEmpty()) {
        gPlatform.clipboard->SetText(text.toStdString());
    }
}

} // namespace quandrel
