// SPDX-License-Identifier: MIT
//
// What the dialog of densities shows of the active plot.

#include "core/plot_store.h"
#include "core/settings.h"
#include "density/density_levels.h"
#include "density/draw_density.h"
#include "density/plot_density.h"
#include "orientation/number_text.h"
#include "orientation/projection.h"
#include "platform/platform.h"
#include "shell/controls/bad_text.h"
#include "shell/controls/ending_text.h"
#include "shell/dialogs/frm_densities.h"
#include "statistics/orientation_notation.h"
#include "stereo/symbols.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QIcon>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QSlider>
#include <QTableWidget>

#include <cmath>

namespace quandrel {

namespace {

constexpr int kSampleLevels = 6;
constexpr int kColumns = 4;

// The mark is an open circle in a colour that no row style has by default.
constexpr Colour kMarkColour{0xd0, 0x00, 0x90};
constexpr int kMarkSymbol = 7;
constexpr int kMarkSize = 8;
constexpr int kMarkPixels = 2;
constexpr int kHaloPixels = 2; ///< white, on each side, so that it is visible on any band

void SetValue(QSlider& slider, double value) {
    const QSignalBlocker blocked(slider);
    slider.setValue(static_cast<int>(std::lround(value)));
}

/// Whether a box holds a number already, in whatever form it was typed.
bool Holds(const QLineEdit& box, Result<double> (*read)(std::string_view), double value) {
    const Result<double> number = read(box.text().toStdString());
    return number && *number == value; // exactly what was typed
}

/// The colours of the bands of a choice, side by side.
QIcon SampleOf(const RecordDensityView& view, QSize size, double density) {
    QImage sample(size * density, QImage::Format_RGB32);
    for (int x = 0; x < sample.width(); ++x) {
        const int level = x * kSampleLevels / sample.width();
        const Colour colour = ColourOfBand(gSettings.styles, view, level, kSampleLevels);
        for (int y = 0; y < sample.height(); ++y) {
            sample.setPixelColor(x, y, QColor(colour.red, colour.green, colour.blue));
        }
    }
    sample.setDevicePixelRatio(density);
    return QIcon(QPixmap::fromImage(sample));
}

MeasuredLine LineAt(const NetPlace& place) {
    return {DegToRad(place.plunge), DegToRad(place.trend)};
}

QString LineText(const NetPlace& place) {
    const MeasuredLine line = LineAt(place);
    return QString::fromStdString(TextOfLine(line.plunge, line.trend, 1));
}

std::array<QString, kColumns> CellsOf(int row, const DensityMaximum& maximum) {
    return {QString::number(row + 1), LineText(maximum.at.place),
            QString::fromStdString(FormatNumber(maximum.at.value, "0.00")),
            QString::number(maximum.rows)};
}

} // namespace

const PlotDensity* frmDensities::Density() {
    return IsOpenSlot(gActivePlot) ? DensityOf(ActivePlot()) : nullptr;
}

void frmDensities::ShowMethod() {
    cboMethod->setCurrentIndex(shown_.DensityMethod);
    constexpr double kTenths = 10;
    constexpr double kHalves = 2;
    const PlotDensity* const density = Density();
    SetValue(*sldK, shown_.DensityK * kTenths);
    ConeInWords cone;
    if (density != nullptr && offer_.hasK) {
        cone = ConeOf(density->Formula());
    }
    lblCone->setText(cone.angle.empty() ? QString() : "cone " + QString::fromStdString(cone.angle));
    lblNarrow->setText(QString::fromStdString(cone.warning));
    cmdWiderK->setVisible(cone.widerK.has_value());
    if (cone.widerK) {
        cmdWiderK->setText(QString("U&se k = %1 (3 degrees)")
                               .arg(QString::fromStdString(TextInBox(*cone.widerK))));
    }
    const bool isKernel = density != nullptr && offer_.hasWidth;
    const double width = shown_.KernelWidth > 0 ? shown_.KernelWidth
                         : isKernel             ? RadToDeg(HalfAngleOf(density->Formula()))
                                                : 0;
    chkAutomatic->setChecked(shown_.KernelWidth <= 0);
    if (shown_.KernelWidth <= 0) {
        txtWidth->setText(width > 0 ? QString::fromStdString(FormatNumber(width, "0.0"))
                                    : QString());
        ShowVerdict(*txtWidth, {});
    }
    SetValue(*sldWidth, width * kHalves);
}

void frmDensities::ShowUnits() {
    QList<int> units;
    for (const DensityUnit unit : offer_.units) {
        units << static_cast<int>(unit);
    }
    QList<int> listed;
    for (int index = 0; index < cboUnit->count(); ++index) {
        listed << cboUnit->itemData(index).toInt();
    }
    if (units != listed) {
        cboUnit->clear();
        for (const DensityUnit unit : offer_.units) {
            cboUnit->addItem(QString::fromStdString(NameOfUnit(unit)), static_cast<int>(unit));
        }
    }
    cboUnit->setCurrentIndex(cboUnit->findData(static_cast<int>(UnitShown(shown_))));
}

void frmDensities::ShowTexts() {
    const auto show = [this](QLineEdit& box, bool holds, const std::string& text) {
        if (!holds) {
            box.setText(QString::fromStdString(text));
        }
        ShowVerdict(box, {});
    };
    show(*txtK, Holds(*txtK, KOfText, shown_.DensityK), TextInBox(shown_.DensityK));
    if (shown_.KernelWidth > 0) {
        show(*txtWidth, Holds(*txtWidth, WidthOfText, shown_.KernelWidth),
             TextInBox(shown_.KernelWidth));
    }
    show(*txtStep, Holds(*txtStep, StepOfText, shown_.LevelStep),
         shown_.LevelStep > 0 ? TextInBox(shown_.LevelStep) : std::string());
    const Result<std::string> levels = LevelListOfText(txtLevels->text().toStdString());
    show(*txtLevels, levels && *levels == shown_.LevelsByHand, shown_.LevelsByHand);
}

void frmDensities::ShowPicture() {
    constexpr double kPerCent = 100;
    optLevels.at(static_cast<std::size_t>(shown_.LevelRule))->setChecked(true);
    optPicture.at(static_cast<std::size_t>(shown_.ContourPicture))->setChecked(true);
    cboPalette->setCurrentIndex(shown_.BandPalette);
    chkReversed->setChecked(shown_.PaletteReversed != 0);
    SetValue(*sldOpacity, shown_.BandOpacity * kPerCent);
    lblOpacity->setText(QString::number(sldOpacity->value()) + "%");
    chkEnvelope->setChecked(shown_.ShowEnvelope != 0);
    chkMaxima->setChecked(shown_.ShowMaxima != 0);
    ShowSamples();
}

void frmDensities::ShowSamples() {
    if (sampled_ == shown_.PaletteReversed) {
        return;
    }
    sampled_ = shown_.PaletteReversed;
    View view;
    view.PaletteReversed = shown_.PaletteReversed;
    for (int palette = 0; palette < cboPalette->count(); ++palette) {
        view.BandPalette = static_cast<std::int16_t>(palette);
        cboPalette->setItemIcon(palette,
                                SampleOf(view, cboPalette->iconSize(), devicePixelRatioF()));
    }
}

void frmDensities::ShowMaxima() {
    const bool areListed = HasPlot() && chkMaxima->isEnabled() && shown_.ShowMaxima != 0;
    maxima_ = areListed ? MaximaOf(ActivePlot()) : std::vector<DensityMaximum>();
    const std::string text = maxima_.empty() ? std::string() : TextOfMaxima(ActivePlot(), maxima_);
    cmdCopy->setEnabled(!maxima_.empty());
    tblMaxima->setEnabled(areListed);
    if (text == maximaText_) {
        return;
    }
    maximaText_ = text;
    Mark(-1);
    const QSignalBlocker blocked(tblMaxima);
    tblMaxima->clearSelection();
    tblMaxima->setRowCount(static_cast<int>(maxima_.size()));
    for (int row = 0; row < tblMaxima->rowCount(); ++row) {
        const auto cells = CellsOf(row, maxima_[static_cast<std::size_t>(row)]);
        for (int column = 0; column < kColumns; ++column) {
            auto* item = new QTableWidgetItem(cells.at(static_cast<std::size_t>(column)));
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            tblMaxima->setItem(row, column, item);
        }
    }
    tblMaxima->resizeColumnsToContents();
}

void frmDensities::ShowNote() {
    std::string note;
    if (!IsOpenSlot(gActivePlot)) {
        note = "There is no plot.";
    } else if (!offer_.refusal.empty()) {
        note = offer_.refusal;
    } else if (!refused_.empty()) {
        note = refused_;
    } else if (!offer_.isDrawn) {
        note = "The plot does not show its densities. What you choose appears once it does.";
    } else {
        note = offer_.onFieldOnly;
    }
    lblNote->setText(QString::fromStdString(note));
}

void frmDensities::ShowVerdict(QLineEdit& box, const std::string& refusal) {
    ShowAsBad(box, !refusal.empty());
    box.setToolTip(refusal.empty() ? box.accessibleName() : QString::fromStdString(refusal));
}

void frmDensities::Mark(int row) {
    const bool isOne = row >= 0 && row < static_cast<int>(maxima_.size());
    const int marked = isOne ? row : -1;
    if (marked == marked_) {
        return;
    }
    marked_ = marked;
    if (markChanged_) {
        markChanged_();
    }
    if (isOne) {
        const DensityMaximum& maximum = maxima_[static_cast<std::size_t>(row)];
        const QString text = QString("Maximum %1: %2, density %3, rows %4")
                                 .arg(row + 1)
                                 .arg(LineText(maximum.at.place))
                                 .arg(QString::fromStdString(TextInUnit(
                                     std::round(maximum.at.value * 100) / 100, UnitShown(shown_))))
                                 .arg(maximum.rows);
        TellWhile(text.toStdString(), [dialog = QPointer<frmDensities>(this), row] {
            return dialog != nullptr && dialog->marked_ == row;
        });
    }
}

void frmDensities::DrawMark(Surface& surface) const {
    if (!HasMark()) {
        return;
    }
    const MeasuredLine line = LineAt(maxima_[static_cast<std::size_t>(marked_)].at.place);
    Point at;
    ProjectPoint(ActiveRecord().PlotKind, line.plunge, line.trend, at.x, at.y);
    const Glyph ring = GlyphOfSymbol(kMarkSymbol, kMarkSize, 0);
    const std::vector<Point> place = {at};
    const SavedState saved(surface);
    DrawState state;
    state.drawWidth = kMarkPixels + 2 * kHaloPixels;
    surface.SetState(state);
    surface.Markers(ring, kWhite, place);
    state.drawWidth = kMarkPixels;
    surface.SetState(state);
    surface.Markers(ring, kMarkColour, place);
}

void frmDensities::GoToNet() const {
    if (HasMark() && toNet_) {
        toNet_();
    }
}

void frmDensities::keyPressEvent(QKeyEvent* event) {
    // Numbers take effect as they are typed, and Return must not close the dialog.
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && qobject_cast<QLineEdit*>(focusWidget()) != nullptr) {
        event->accept();
        return;
    }
    if (isReturn && focusWidget() == tblMaxima) {
        event->accept();
        GoToNet();
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmDensities::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        slot_ = 0; // texts that were refused when it was last open are gone
        refused_.clear();
        sampled_.reset(); // colours of levels may be others
        Refresh();
        cboMethod->setFocus();
    }
    QDialog::showEvent(event);
}

void frmDensities::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) {
        if (hidesEnvelope_) {
            EndDrag();
        }
        tblMaxima->clearSelection();
        Mark(-1);
    }
    QDialog::hideEvent(event);
}

} // namespace quandrel
