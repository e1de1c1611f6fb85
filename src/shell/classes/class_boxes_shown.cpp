// SPDX-License-Identifier: MIT
//
// What the class boxes show of the edited settings.

#include "core/plot_store.h"
#include "shell/classes/class_boxes.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace quandrel {

namespace {

constexpr int kLineHeight = 30; ///< pixels
constexpr const char* kNoNumericTypes = "None of the types is a number.";
constexpr const char* kNoAscent =
    "The limits do not ascend: a value goes to the first class whose upper limit exceeds it.";

/// The other box of a limit that two ranges share, or -1.
int TwinOf(int box, int ranges) {
    if (box % 2 == 0) {
        return box - 1;
    }
    return (box + 1) / 2 < ranges ? box + 1 : -1;
}

} // namespace

QString ClassBoxes::TextOfLimit(ClassKind kind, int box) {
    const QLineEdit& shown = *BoxesOf(kind)[At(box)];
    return shown.property(kFault).toBool() ? QString::fromStdString(
               ShownNumber(LimitAt(RangesOfKind(settings_, kind).limits, box)))
                                           : shown.text().trimmed();
}

QString ClassBoxes::LabelOfClass(int classNumber) const {
    const bool hasRanges = HasRangeLines(settings_, page_);
    const ClassColumn ranges = page_ == ClassKind::Types ? kTextNumberClasses : kNumberClasses;
    const ClassTableCells table = TableOfSettings(settings_, ActiveRecord().ClassTable);
    return QString::fromStdString(
        ClassLabel(table, hasRanges ? ranges : kNameClasses, classNumber,
                   ranges == kNumberClasses ? numberForm_ : LimitForm::Plain));
}

void ClassBoxes::Refresh() {
    const QScopedValueRollback loading(loading_, true);
    ShowPage();
    ShowLines();
    ShowBoxes();
    ShowOthers();
    EnableBoxes();
    ShowPatches();
    ShowNote();
}

void ClassBoxes::ShowPage() {
    // Only one page is visible. Both take up the same height, so the window keeps its size.
    const std::size_t place = PlaceOf(page_);
    pages_[1 - place]->hide();
    const int spare = pages_[1]->sizeHint().height() - pages_[place]->sizeHint().height();
    lines_->setMinimumHeight(kClassLines * kLineHeight + spare);
    pages_[place]->show();
    const bool isNumeric = settings_.treatAsNumeric;
    const QString name = QString::fromStdString(ActiveRecord().AppNonNumName);
    lblTypes->setText((isNumeric ? "Ranges of " : "Types of ") + name);
    const int most = isNumeric ? kMostRanges : kMostNames;
    QComboBox& types = *cboNumClasses[1];
    while (types.count() > most) {
        types.removeItem(types.count() - 1);
    }
    while (types.count() < most) {
        types.addItem(QString::number(types.count() + 1));
    }
    cboNumClasses[0]->setCurrentIndex(settings_.numbers.limits.base - 1);
    types.setCurrentIndex(ClassesOfKind(settings_, ClassKind::Types) - 1);
    cboRange->setCurrentIndex(static_cast<int>(rangeProcedure_));
    cboType->setCurrentIndex(static_cast<int>(typeProcedure_));
    chkTypeNumeric->setChecked(isNumeric);
    chkCaseSensitive->setChecked(settings_.caseSensitive);
}

void ClassBoxes::ShowLines() {
    const bool hasRanges = HasRangeLines(settings_, page_);
    for (const ClassKind kind : {ClassKind::Numbers, ClassKind::Types}) {
        const bool shown = hasRanges && kind == page_;
        for (int box = 0; box < kLimitBoxes; ++box) {
            const int line = box / 2 + 1;
            BoxesOf(kind)[At(box)]->setVisible(shown && ClassOfLine(settings_, kind, line) > 0);
        }
    }
    for (int line = 0; line < kClassLines; ++line) {
        const bool shown = ClassOfLine(settings_, page_, line) > 0;
        picPlotBox[At(line)]->setVisible(shown);
        if (line >= 1 && line <= kMostRanges) {
            dashes_[At(line - 1)]->setVisible(shown && hasRanges);
        }
        if (line >= 1) {
            txtType[At(line - 1)]->setVisible(shown && !hasRanges);
        }
    }
    const bool ofTypes = page_ == ClassKind::Types;
    const bool hasLow = hasRanges && ClassOfLine(settings_, page_, 0) > 0;
    chkShowOthers[kLowNumbers]->setVisible(hasLow && !ofTypes);
    chkShowOthers[kHighNumbers]->setVisible(hasRanges && !ofTypes);
    chkShowOthers[kLowTextNumbers]->setVisible(hasLow && ofTypes);
    chkShowOthers[kHighTextNumbers]->setVisible(hasRanges && ofTypes);
    chkShowOthers[kOtherNames]->setVisible(!hasRanges);
}

/// The boxes that change with an edited box: its twin, or all boxes whose format has changed.
void ClassBoxes::ShowNeighbours(ClassKind kind, int box) {
    const ClassLimits& limits = RangesOfKind(settings_, kind).limits;
    const bool changesForm = kind == ClassKind::Numbers
                             && std::exchange(numberForm_, LimitForm::Plain) != LimitForm::Plain;
    const int twin = TwinOf(box, limits.base);
    for (int other = 0; other < 2 * std::max(limits.base, 1); ++other) {
        if (other == twin || (changesForm && other != box)) {
            ShowLimit(kind, other);
        }
    }
}

void ClassBoxes::ShowLimit(ClassKind kind, int box) {
    const ClassLimits& limits = RangesOfKind(settings_, kind).limits;
    Given& given = given_[PlaceOf(kind)][At(box)];
    given.text = QString::fromStdString(
        LimitBoxText(limits, box, kind == ClassKind::Numbers ? numberForm_ : LimitForm::Plain));
    given.value = LimitAt(limits, box);
    QLineEdit& shown = *BoxesOf(kind)[At(box)];
    shown.setText(given.text);
    MarkBox(shown, false);
}

void ClassBoxes::ShowBoxes() {
    numberForm_ = LimitFormOf(settings_);
    for (const ClassKind kind : {ClassKind::Numbers, ClassKind::Types}) {
        const int ranges = std::max(RangesOfKind(settings_, kind).limits.base, 1);
        for (int box = 0; box < 2 * ranges; ++box) {
            ShowLimit(kind, box);
        }
    }
    for (std::size_t i = 0; i < txtType.size(); ++i) {
        txtType[i]->setText(QString::fromStdString(settings_.names[i]));
    }
}

void ClassBoxes::ShowOthers() {
    const QScopedValueRollback loading(loading_, true);
    const auto show = [this](std::size_t low, ClassKind kind) {
        const ClassRanges& ranges = RangesOfKind(settings_, kind);
        const int topBox = 2 * std::max(ranges.limits.base, 1) - 1;
        chkShowOthers[low]->setText("< " + TextOfLimit(kind, 0) + ": show?");
        chkShowOthers[low]->setChecked(ranges.keepLow);
        chkShowOthers[low + 1]->setText("> " + TextOfLimit(kind, topBox) + ": show?");
        chkShowOthers[low + 1]->setChecked(ranges.keepHigh);
    };
    show(kLowNumbers, ClassKind::Numbers);
    show(kLowTextNumbers, ClassKind::Types);
    chkShowOthers[kOtherNames]->setChecked(settings_.keepOthers);
}

void ClassBoxes::ShowPatches() {
    const QString what = patches_ == StyleKind::Symbol ? "Symbol" : "Fill";
    for (int line = 0; line < kClassLines; ++line) {
        StylePatch& patch = *picPlotBox[At(line)];
        const int classNumber = ClassOfLine(settings_, page_, line);
        if (classNumber == 0) {
            continue;
        }
        patch.SetStyle(styles_[At(classNumber - 1) % styles_.size()]);
        patch.setEnabled(kind_ != ClassKind::None && IsLineKept(settings_, page_, line));
        patch.setAccessibleName(QString("%1 of class %2: %3")
                                    .arg(what)
                                    .arg(classNumber)
                                    .arg(LabelOfClass(classNumber)));
        patch.setToolTip(QString("%1 of class %2: click to change it").arg(what).arg(classNumber));
    }
}

void ClassBoxes::ShowNote() {
    const bool hasRanges = kind_ != ClassKind::None && HasRangeLines(settings_, page_);
    if (hasRanges && page_ == ClassKind::Types && !hasNumericTypes_) {
        lblClassNote->setText(kNoNumericTypes);
    } else if (hasRanges && !LimitsAscend(RangesOfKind(settings_, page_).limits)) {
        lblClassNote->setText(kNoAscent);
    } else {
        lblClassNote->clear();
    }
}

void ClassBoxes::EnableBoxes() {
    const ClassChoices choices = ChoicesOf(settings_, ActiveRecord());
    const bool isUsed = choices.ranges || choices.types;
    for (QWidget* page : pages_) {
        page->setEnabled(isUsed);
    }
    chkTypeNumeric->setEnabled(choices.treatAsNumeric);
    chkCaseSensitive->setEnabled(choices.caseSensitive);
    for (LimitBoxes* boxes : {&txtRange, &txtTypeRange}) {
        for (QLineEdit* box : *boxes) {
            box->setEnabled(isUsed);
        }
    }
    for (QLineEdit* box : txtType) {
        box->setEnabled(isUsed);
    }
    for (QLabel* dash : dashes_) {
        dash->setEnabled(isUsed);
    }
    for (QCheckBox* box : chkShowOthers) {
        box->setEnabled(isUsed);
    }
}

void ClassBoxes::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) {
        return;
    }
    for (const LimitBoxes* boxes : {&txtRange, &txtTypeRange}) {
        for (QLineEdit* box : *boxes) {
            if (box != nullptr && box->property(kFault).toBool()) {
                MarkBox(*box, true);
            }
        }
    }
}

} // namespace quandrel
