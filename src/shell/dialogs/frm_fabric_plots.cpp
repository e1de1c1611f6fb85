// SPDX-License-Identifier: MIT

#include "shell/dialogs/frm_fabric_plots.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "fabric/fabric_texts.h"
#include "platform/platform.h"
#include "qt/fabric_picture.h"
#include "qt/picture_file.h"
#include "shell/controls/control_kit.h"
#include "shell/controls/picture_box.h"
#include "shell/files/frm_export_image.h"
#include "shell/files/path_questions.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QClipboard>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShowEvent>
#include <QTableWidget>
#include <QVBoxLayout>

#include <optional>

namespace quandrel {

namespace {

constexpr int kWidth = 780;
constexpr int kHeight = 640;
constexpr int kLeastPictureWidth = 420;
constexpr int kLeastPictureHeight = 260;
constexpr int kTableHeight = 110;
constexpr double kCopyDensity = 3; ///< pixels per logical pixel: enough for printing

constexpr const char* kHint =
    "Fabric plots: clusters and girdles by the eigenvalues of plots, overlays and classes";

constexpr std::array<ControlText, frmFabricPlots::kKinds> kDiagrams = {
    {{"&Woodcock", "ln(S1/S2) by ln(S2/S3), with lines of shape K and strength C"},
     {"&Triangle", "Point, girdle and random shares: P, G and R"},
     {"&Both", "Both diagrams side by side"}}};

constexpr std::array<ControlText, frmFabricPlots::kKinds> kRowsBoxes = {
    {{"&Main rows", "One fabric of all main rows of a plot"},
     {"&Overlays", "A fabric of each overlay"},
     {"C&lasses", "A fabric of each class"}}};

/// The code of a kind of rows, a power of two.
std::int16_t CodeOf(std::size_t part) {
    return static_cast<std::int16_t>(1 << part);
}

} // namespace

frmFabricPlots::frmFabricPlots(QWidget* parent)
    : QDialog(parent, Qt::Tool)
    , diagrams_(new QButtonGroup(this)) {
    setObjectName("frmFabricPlots");
    setWindowTitle("Fabric Plots");
    MakeControls();
    MakeTable();
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeChoice());
    layout->addWidget(picFabric, 1);
    layout->addWidget(tblFabrics);
    layout->addWidget(lblNote);
    layout->addLayout(MakeButtons());
    resize(kWidth, kHeight);
    SetOrder();
    Connect();
    Refresh();
}

void frmFabricPlots::MakeControls() {
    for (std::size_t i = 0; i < kKinds; ++i) {
        optDiagram[i] =
            MakeOption(Numbered("optDiagram", i), kDiagrams[i], diagrams_, static_cast<int>(i));
        chkOf[i] = MakeCheck(Numbered("chkOf", i), kRowsBoxes[i].caption, kRowsBoxes[i].tip);
    }
    optDiagram[static_cast<std::size_t>(FabricDiagram::Both)]->setChecked(true);
    chkOf[0]->setChecked(true);
    chkAllPlots =
        MakeCheck("chkAllPlots", "&All open plots", "Of each open plot, not only of this");
    picFabric = new PictureBox(nullptr);
    picFabric->setObjectName("picFabric");
    picFabric->setAccessibleName("Fabric plot");
    picFabric->setMinimumSize(kLeastPictureWidth, kLeastPictureHeight);
    lblNote = MakeLabel({}, "lblNote");
    lblNote->setWordWrap(true);
    cmdCopyTable = MakeButton("cmdCopyTable", "&Copy Table", "Copies the values to the clipboard");
    cmdCopyPicture =
        MakeButton("cmdCopyPicture", "Copy &Picture", "Copies the picture to the clipboard");
    cmdExport = MakeButton("cmdExport", "E&xport...", "Saves the picture as PNG, SVG, PDF or TIFF");
    cmdClose = MakeButton("cmdClose", "Clos&e", "Closes the window");
}

void frmFabricPlots::MakeTable() {
    const std::vector<std::string>& headings = FabricHeadings();
    tblFabrics = new QTableWidget(0, static_cast<int>(headings.size()));
    tblFabrics->setObjectName("tblFabrics");
    tblFabrics->setAccessibleName("Values of the fabrics");
    tblFabrics->setToolTip("S1, S2, S3: eigenvalues, the greatest first; K: shape; C: strength; "
                           "P, G, R: shares of point, girdle and random; B: cylindricity");
    QStringList captions;
    for (const std::string& heading : headings) {
        captions << QString::fromStdString(heading);
    }
    tblFabrics->setHorizontalHeaderLabels(captions);
    tblFabrics->setSelectionBehavior(QAbstractItemView::SelectRows);
    tblFabrics->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tblFabrics->setTabKeyNavigation(false);
    tblFabrics->horizontalHeader()->setHighlightSections(false);
    tblFabrics->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    tblFabrics->setMinimumHeight(kTableHeight);
    tblFabrics->setMaximumHeight(2 * kTableHeight);
}

QLayout* frmFabricPlots::MakeChoice() {
    auto* diagram = MakeGroup("fraDiagram", "Diagram");
    auto* kinds = new QHBoxLayout(diagram);
    auto* of = MakeGroup("fraOf", "Of");
    auto* rows = new QHBoxLayout(of);
    for (std::size_t i = 0; i < kKinds; ++i) {
        kinds->addWidget(optDiagram[i]);
        rows->addWidget(chkOf[i]);
    }
    rows->addWidget(chkAllPlots);
    auto* layout = new QHBoxLayout;
    layout->addWidget(diagram);
    layout->addWidget(of);
    layout->addStretch(1);
    return layout;
}

QLayout* frmFabricPlots::MakeButtons() {
    auto* layout = new QHBoxLayout;
    layout->addStretch(1);
    for (QPushButton* button : {cmdCopyTable, cmdCopyPicture, cmdExport, cmdClose}) {
        layout->addWidget(button);
    }
    return layout;
}

void frmFabricPlots::SetOrder() {
    TabOrder order;
    order.Then(optDiagram).Then(chkOf).Then(chkAllPlots).Then(tblFabrics);
    order.Then(cmdCopyTable).Then(cmdCopyPicture).Then(cmdExport).Then(cmdClose);
}

void frmFabricPlots::Connect() {
    connect(diagrams_, &QButtonGroup::idToggled, this, [this](int, bool isOn) {
        if (isOn) {
            DrawPicture();
        }
    });
    for (QCheckBox* check : {chkOf[0], chkOf[1], chkOf[2], chkAllPlots}) {
        connect(check, &QCheckBox::toggled, this, [this] { Refresh(); });
    }
    picFabric->onStale = [this] { DrawPicture(); };
    connect(cmdCopyTable, &QPushButton::clicked, this,
            [this] { gPlatform.clipboard->SetText(FabricTable(points_)); });
    connect(cmdCopyPicture, &QPushButton::clicked, this, [this] {
        QGuiApplication::clipboard()->setImage(FabricImage(Diagram(), points_, kCopyDensity));
    });
    connect(cmdExport, &QPushButton::clicked, this, [this] { Export(); });
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
}

FabricDiagram frmFabricPlots::Diagram() const {
    return static_cast<FabricDiagram>(diagrams_->checkedId());
}

std::vector<Plot*> frmFabricPlots::Plots() const {
    if (!IsOpenSlot(gActivePlot)) {
        return {};
    }
    return chkAllPlots->isChecked() ? OpenPlots() : std::vector<Plot*>{&ActivePlot()};
}

void frmFabricPlots::FollowActivePlot() {
    if (isVisible()) {
        Refresh();
    }
}

void frmFabricPlots::Refresh() {
    const std::vector<Plot*> plots = Plots();
    ShowOffer(plots);
    std::int16_t of = 0;
    for (std::size_t part = 0; part < kKinds; ++part) {
        of = static_cast<std::int16_t>(chkOf[part]->isChecked() ? of | CodeOf(part) : of);
    }
    points_ = FabricPointsOf(plots, gSettings.styles, of);
    const bool isOfOne = plots.size() == 1 && !chkAllPlots->isChecked();
    setWindowTitle(isOfOne ? QString("Fabric Plots: ")
                                 + QString::fromStdString(plots.front()->record.PlotTitle)
                           : QString("Fabric Plots"));
    ShowTable();
    lblNote->setText(QString::fromStdString(FabricNote(points_)));
    lblNote->setVisible(!lblNote->text().isEmpty());
    for (QPushButton* button : {cmdCopyTable, cmdCopyPicture, cmdExport}) {
        button->setEnabled(!points_.empty());
    }
    DrawPicture();
}

/// What is on can be switched off, even where it has no effect now.
void frmFabricPlots::ShowOffer(const std::vector<Plot*>& plots) {
    const FabricOffer offer = FabricOfferOf(plots);
    chkOf[1]->setEnabled(offer.hasOverlays || chkOf[1]->isChecked());
    chkOf[2]->setEnabled(offer.hasClasses || chkOf[2]->isChecked());
}

void frmFabricPlots::ShowTable() {
    tblFabrics->setRowCount(static_cast<int>(points_.size()));
    for (std::size_t row = 0; row < points_.size(); ++row) {
        const std::vector<std::string> cells = FabricCells(points_[row]);
        for (std::size_t column = 0; column < cells.size(); ++column) {
            auto* item = new QTableWidgetItem(QString::fromStdString(cells[column]));
            if (column > 0) {
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            }
            tblFabrics->setItem(static_cast<int>(row), static_cast<int>(column), item);
        }
    }
}

void frmFabricPlots::DrawPicture() {
    DrawFabric(picFabric->Picture(), Diagram(), points_);
    picFabric->update();
}

void frmFabricPlots::Export() {
    frmExportImage dialog(this);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    const std::optional<std::string> path = AskPathOfPicture("Export Fabric Plot", "fabric.png");
    if (!path) {
        return;
    }
    const std::string error = SaveFabricPicture(*path, Diagram(), points_, dialog.Height());
    if (error.empty()) {
        gPlatform.status->SetText("The picture is " + *path);
    } else if (error == kPictureStopped) {
        gPlatform.status->SetText(kPictureStopped);
    } else {
        Tell(error);
    }
}

void frmFabricPlots::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        gPlatform.status->SetText(kHint);
        Refresh();
    }
    QDialog::showEvent(event);
}

void frmFabricPlots::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) {
        gPlatform.status->SetText({});
    }
    QDialog::hideEvent(event);
}

} // namespace quandrel
