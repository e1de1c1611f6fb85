// SPDX-License-Identifier: MIT

#include "shell/print/frm_print_dialog.h"

#include "core/plot_store.h"
#include "platform/platform.h"

#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr double kSliderSteps = 10; ///< per millimetre
constexpr int kSmallestCircle = 8;  ///< logical pixels

int SliderValue(double millimetres) {
    return static_cast<int>(std::lround(millimetres * kSliderSteps));
}

QString LengthIn(const PrintLayout& layout, double millimetres, const char* format) {
    return QString::fromStdString(LengthText(millimetres, layout.units, format));
}

/// Sets a slider without signals, so that its steps do not round the number in the box.
void SetQuietly(QSlider& slider, double least, double most, double value) {
    const QSignalBlocker quiet(slider);
    slider.setRange(SliderValue(least), SliderValue(most));
    slider.setValue(SliderValue(value));
}

double& CentreOf(PlotOnPage& plot, std::size_t axis) {
    return axis == 0 ? plot.centreX : plot.centreY;
}

void MoveAlong(PrintLayout& layout, std::size_t index, std::size_t axis, double centre) {
    PlotOnPage moved = layout.plots[index];
    CentreOf(moved, axis) = centre;
    MovePlot(layout, index, moved.centreX, moved.centreY);
}

} // namespace

frmPrintDialog::frmPrintDialog(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmPrintDialog");
    setWindowTitle("Print Page Setup");
    MakeControls();
    SetOrder();
    layout_.paper = gPlatform.printers->Paper();
    ListPlots();
    if (IsOpenSlot(gActivePlot)) {
        SetCurrent(SelectPlot(layout_, gActivePlot));
    }
    Connect();
    ShowAll();
    gPlatform.status->SetText(kLegendNote);
}

frmPrintDialog::~frmPrintDialog() {
    // A box that loses the focus while the dialog closes has nothing to update.
    for (QLineEdit* box : {txtScale, txtCentre[0], txtCentre[1]}) {
        box->disconnect(this);
    }
}

void frmPrintDialog::ListPlots() {
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (IsOpenSlot(slot)) {
            cboPlotName->addItem(QString::fromStdString(RecordOf(slot).PlotTitle), slot);
        }
    }
}

std::optional<std::size_t> frmPrintDialog::Current() const {
    const int slot = cboPlotName->currentData().toInt();
    const auto found = std::ranges::find(layout_.plots, slot, &PlotOnPage::slot);
    if (found == layout_.plots.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - layout_.plots.begin());
}

void frmPrintDialog::SetCurrent(std::size_t index) {
    cboPlotName->setCurrentIndex(cboPlotName->findData(layout_.plots[index].slot));
}

void frmPrintDialog::Select() {
    SelectPlot(layout_, cboPlotName->currentData().toInt());
    ShowAll();
}

void frmPrintDialog::Remove() {
    if (const auto index = Current()) {
        RemovePlot(layout_, *index);
        ShowAll();
    }
}

void frmPrintDialog::TakeScaleBox() {
    if (const auto index = Current()) {
        double radius = layout_.plots[*index].radius;
        if (TakeLength(txtScale->text().toStdString(), layout_.units, kSizeFormat, radius)
            && radius != layout_.plots[*index].radius) {
            SizePlot(layout_, *index, radius);
        }
        ShowPage();
        ShowSliders();
    }
}

void frmPrintDialog::TakeCentreBox(std::size_t box) {
    if (const auto index = Current()) {
        const double former = CentreOf(layout_.plots[*index], box);
        double centre = former;
        if (TakeLength(txtCentre[box]->text().toStdString(), layout_.units, kPlaceFormat, centre)
            && centre != former) {
            MoveAlong(layout_, *index, box, centre);
        }
        ShowPage();
        ShowSliders();
    }
}

void frmPrintDialog::ShowAll() {
    ShowPage();
    ShowBoxes();
    ShowSliders();
    ShowDestination();
    EnableControls();
}

void frmPrintDialog::ShowPage() {
    QWidget& room = *picPage->parentWidget();
    const Sheet& paper = layout_.paper;
    const double scale = std::min(room.width() / paper.width, room.height() / paper.height);
    const QSize size(static_cast<int>(scale * paper.width), static_cast<int>(scale * paper.height));
    picPage->setGeometry((room.width() - size.width()) / 2, (room.height() - size.height()) / 2,
                         size.width(), size.height());
    AddPageMarks();
    for (std::size_t i = 0; i < picPlotCircle.size(); ++i) {
        ShowMark(i, scale);
    }
    optScale[layout_.fitsPage ? 0 : 1]->setChecked(true);
    lblOverEdge->setText(QString::fromStdString(OverEdgeText(PlotsOverEdge(layout_))));
}

void frmPrintDialog::ShowMark(std::size_t index, double scale) {
    const bool isShown = index < layout_.plots.size();
    picPlotCircle[index]->setVisible(isShown);
    PlotNo[index]->setVisible(isShown);
    shpLegend[index]->setVisible(isShown);
    if (!isShown) {
        return;
    }
    const PlotOnPage& plot = layout_.plots[index];
    const auto pixels = [scale](double length) {
        return static_cast<int>(std::lround(length * scale));
    };
    const int side = std::max(pixels(2 * plot.radius), kSmallestCircle);
    QLabel& circle = *picPlotCircle[index];
    circle.setGeometry(pixels(plot.centreX) - side / 2, pixels(plot.centreY) - side / 2, side,
                       side);
    // Black and blue on white paper, whatever the desktop's colours.
    circle.setStyleSheet(QString("border: %1; border-radius: %2px; background: transparent")
                             .arg(index == Current() ? "2px solid #0050c0" : "1px solid black")
                             .arg(side / 2));
    PlotNo[index]->setText(QString::number(plot.slot));
    circle.setAccessibleName(QString("Plot %1 on the page").arg(plot.slot));
    PlotNo[index]->adjustSize();
    PlotNo[index]->move(circle.geometry().center() - PlotNo[index]->rect().center());
    shpLegend[index]->setGeometry(pixels(plot.texts.left), pixels(plot.texts.top),
                                  pixels(plot.texts.width), pixels(plot.texts.height));
}

void frmPrintDialog::ShowBoxes() {
    const auto index = Current();
    const PlotOnPage plot = index ? layout_.plots[*index] : PlotOnPage{};
    const auto text = [&](double length, const char* format) {
        return index ? LengthIn(layout_, length, format) : QString();
    };
    txtScale->setText(text(plot.radius, kSizeFormat));
    txtCentre[0]->setText(text(plot.centreX, kPlaceFormat));
    txtCentre[1]->setText(text(plot.centreY, kPlaceFormat));
}

void frmPrintDialog::ShowSliders() {
    const auto index = Current();
    const PlotOnPage plot = index ? layout_.plots[*index] : PlotOnPage{};
    const Sheet& paper = layout_.paper;
    SetQuietly(*sldScale, kLeastRadius, MostRadius(paper), plot.radius);
    SetQuietly(*SldCentre[0], 0, paper.width, plot.centreX);
    SetQuietly(*SldCentre[1], 0, paper.height, plot.centreY);
}

void frmPrintDialog::ShowDestination() {
    const PrinterChoice printer = gPlatform.printers->Chosen();
    lblPrinterName->setText(printer.name.empty() ? "none"
                                                 : QString::fromStdString(PrinterText(printer)));
    lblOrientation->setText(QString::fromStdString(PaperText(layout_.paper)));
}

void frmPrintDialog::EnableControls() {
    const bool isFree = !IsPrinting();
    const bool isOnPage = Current().has_value();
    for (QWidget* part :
         std::array<QWidget*, 4>{frmSelection, frmScaleBox, fraDestination, picPage}) {
        part->setEnabled(isFree);
    }
    cmdSelect[0]->setEnabled(cboPlotName->count() > 0 && !isOnPage);
    cmdSelect[1]->setEnabled(isOnPage);
    for (QWidget* control : std::array<QWidget*, 6>{txtScale, sldScale, txtCentre[0], txtCentre[1],
                                                    SldCentre[0], SldCentre[1]}) {
        control->setEnabled(isOnPage);
    }
    const bool hasPrinter = !gPlatform.printers->Chosen().name.empty();
    cmdOK[0]->setText(isFree ? "&Print" : "Stop &printing");
    cmdOK[0]->setEnabled(!isFree || (hasPrinter && !layout_.plots.empty()));
}

void frmPrintDialog::ChoosePrinter() {
    if (PrinterSetup()) {
        TakePaper(layout_, gPlatform.printers->Paper());
    }
    ShowAll();
}

void frmPrintDialog::PrintOrStop() {
    if (IsPrinting()) {
        run_->Stop();
        return;
    }
    run_ = std::make_unique<PrintRun>(layout_.plots);
    EnableControls();
    PrintOn();
}

void frmPrintDialog::PrintOn() {
    // Prints one plot at a time, so that the button responds in between.
    if (!IsPrinting()) {
        return;
    }
    if (!run_->HasMore()) {
        EndRun();
        return;
    }
    run_->PrintNext();
    QMetaObject::invokeMethod(
        this, [this] { PrintOn(); }, Qt::QueuedConnection);
}

void frmPrintDialog::EndRun() {
    run_->Finish();
    run_.reset();
    EnableControls();
    cmdOK[0]->setFocus();
}

void frmPrintDialog::reject() {
    if (IsPrinting()) {
        run_->Stop();
        EndRun();
    }
    QDialog::reject();
}

void frmPrintDialog::MoveByMouse(std::size_t index, QPoint position) {
    const QLabel& circle = *picPlotCircle[index];
    const double scale = picPage->width() / layout_.paper.width;
    const QPoint centre = position - grip_ + QPoint(circle.width() / 2, circle.height() / 2);
    MovePlot(layout_, index, centre.x() / scale, centre.y() / scale);
    ShowPage();
    ShowBoxes();
    ShowSliders();
}

bool frmPrintDialog::TakeMouse(std::size_t index, QEvent& event) {
    if (event.type() != QEvent::MouseButtonPress && event.type() != QEvent::MouseMove) {
        return false;
    }
    const auto& mouse = static_cast<QMouseEvent&>(event);
    const QPoint position = picPage->mapFromGlobal(mouse.globalPosition().toPoint());
    if (event.type() == QEvent::MouseMove) {
        if (mouse.buttons().testFlag(Qt::LeftButton)) {
            MoveByMouse(index, position);
        }
        return true;
    }
    if (mouse.button() == Qt::LeftButton) {
        grip_ = position - picPlotCircle[index]->pos();
        SetCurrent(index);
        gPlatform.status->SetText(kLegendNote);
    }
    return true;
}

bool frmPrintDialog::eventFilter(QObject* object, QEvent* event) {
    for (std::size_t i = 0; i < picPlotCircle.size(); ++i) {
        if (object == picPlotCircle[i]) {
            return TakeMouse(i, *event);
        }
    }
    if (event->type() == QEvent::KeyPress) {
        // Enter completes a typed number; it does not print.
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            ShowBoxes();
            static_cast<QLineEdit*>(object)->selectAll();
            return true;
        }
    }
    return QDialog::eventFilter(object, event);
}

void frmPrintDialog::Connect() {
    connect(cboPlotName, &QComboBox::currentIndexChanged, this, &frmPrintDialog::ShowAll);
    connect(cmdSelect[0], &QPushButton::clicked, this, &frmPrintDialog::Select);
    connect(cmdSelect[1], &QPushButton::clicked, this, &frmPrintDialog::Remove);
    connect(optScale[0], &QRadioButton::clicked, this, [this] {
        FitToPage(layout_);
        ShowAll();
    });
    connect(optScale[1], &QRadioButton::clicked, this, [this] { layout_.fitsPage = false; });
    connect(cboScaleUnits, &QComboBox::currentIndexChanged, this, [this](int units) {
        layout_.units = static_cast<PageUnits>(units);
        ShowBoxes();
    });
    connect(txtScale, &QLineEdit::textEdited, this, &frmPrintDialog::TakeScaleBox);
    connect(txtScale, &QLineEdit::editingFinished, this, &frmPrintDialog::ShowBoxes);
    connect(sldScale, &QSlider::valueChanged, this, [this](int value) {
        if (const auto index = Current()) {
            SizePlot(layout_, *index, value / kSliderSteps);
            ShowPage();
            ShowBoxes();
        }
    });
    for (std::size_t i = 0; i < txtCentre.size(); ++i) {
        connect(txtCentre[i], &QLineEdit::textEdited, this, [this, i] { TakeCentreBox(i); });
        connect(txtCentre[i], &QLineEdit::editingFinished, this, &frmPrintDialog::ShowBoxes);
        connect(SldCentre[i], &QSlider::valueChanged, this, [this, i](int value) {
            if (const auto index = Current()) {
                MoveAlong(layout_, *index, i, value / kSliderSteps);
                ShowPage();
                ShowBoxes();
            }
        });
    }
    connect(cmdPrinterSetup, &QPushButton::clicked, this, &frmPrintDialog::ChoosePrinter);
    connect(cmdOK[0], &QPushButton::clicked, this, &frmPrintDialog::PrintOrStop);
    connect(cmdOK[1], &QPushButton::clicked, this, &frmPrintDialog::reject);
}

void ShowPrintDialog(QWidget* parent) {
    if (IsOpenSlot(gActivePlot) && CanPrint()) {
        frmPrintDialog dialog(parent);
        dialog.exec();
    }
}

} // namespace quandrel
