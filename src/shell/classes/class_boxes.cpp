// SPDX-License-Identifier: MIT

#include "shell/classes/class_boxes.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "shell/styles/frm_symbol_select.h"

#include <QLineEdit>
#include <QScopedValueRollback>

#include <algorithm>

namespace quandrel {

namespace {

constexpr const char* kNoNumber = "A class limit is not a number.";

/// The kind of a mode. None if the plot does not have the column that the mode needs.
ClassKind UsableKind(int mode, const PlotRecord& record) {
    const ClassKind kind = KindOfMode(mode);
    const bool lacks = (kind == ClassKind::Numbers && record.HasAppendedNumeric == 0)
                       || (kind == ClassKind::Types && record.HasAppendedText == 0);
    return lacks ? ClassKind::None : kind;
}

} // namespace

void ClassBoxes::Load(const ClassSettings& settings, const ClassStyles& styles) {
    const PlotRecord& record = ActiveRecord();
    settings_ = settings;
    lastUsed_ = settings;
    styles_ = styles;
    rangeProcedure_ = RangeProcedure::LastUsed;
    typeProcedure_ = TypeProcedure::LastUsed;
    kind_ = UsableKind(settings.mode, record);
    if (kind_ == ClassKind::None) {
        settings_.mode = kNotClassified;
    }
    const bool onlyTypes = record.HasAppendedNumeric == 0 && record.HasAppendedText != 0;
    page_ = onlyTypes ? ClassKind::Types : ClassKind::Numbers;
    page_ = kind_ == ClassKind::None ? page_ : kind_;
    hasNumericTypes_ = record.HasAppendedText != 0 && HasNumericTypes();
    lblRanges->setText("Ranges of " + QString::fromStdString(record.AppNumName));
    Refresh();
}

void ClassBoxes::SetStyles(const ClassStyles& styles) {
    styles_ = styles;
    ShowPatches();
}

void ClassBoxes::ChooseKind(ClassKind kind) {
    if (kind == kind_) {
        return;
    }
    kind_ = kind;
    page_ = kind == ClassKind::None ? page_ : kind;
    const bool hadRanges = settings_.numbers.limits.base > 0;
    const bool hadTypes = ClassesOfKind(settings_, ClassKind::Types) > 0;
    ChooseClassKind(settings_, kind);
    if (!hadRanges && settings_.numbers.limits.base > 0) {
        rangeProcedure_ = RangeProcedure::EqualRanges;
    }
    if (!hadTypes && ClassesOfKind(settings_, ClassKind::Types) > 0) {
        typeProcedure_ = TypeProcedure::FirstFound;
    }
    Refresh();
}

std::string ClassBoxes::GoToFault() {
    if (kind_ == ClassKind::None || !HasRangeLines(settings_, page_)) {
        return {};
    }
    for (QLineEdit* box : BoxesOf(page_)) {
        if (!box->isHidden() && box->property(kFault).toBool()) {
            box->setFocus();
            box->selectAll();
            return kNoNumber;
        }
    }
    return {};
}

void ClassBoxes::ChooseStyle(int classNumber) {
    if (classNumber < 1) {
        return; // the patch belongs to a line that is not in use
    }
    SymbolRow& style = styles_[At(classNumber - 1) % styles_.size()];
    StyleQuestion question;
    const QString what = patches_ == StyleKind::Symbol ? "Symbol" : "Fill";
    question.title =
        QString("%1 of class %2: %3").arg(what).arg(classNumber).arg(LabelOfClass(classNumber));
    question.kind = patches_;
    question.down = style;
    if (const std::optional<ChosenStyles> chosen = AskStyle(question, window())) {
        style = chosen->down;
        ShowPatches();
        Q_EMIT Changed();
    }
}

void ClassBoxes::ChooseRange(RangeProcedure procedure) {
    const int classes = settings_.numbers.limits.base;
    if (procedure == RangeProcedure::LastUsed) {
        rangeProcedure_ = procedure;
        settings_.numbers.limits = lastUsed_.numbers.limits;
        Refresh();
        Q_EMIT Changed();
        return;
    }
    FillRangesAnew(procedure, classes > 0 ? classes : kFirstRangeCount);
}

void ClassBoxes::ChooseNumberOfRanges(int classes) {
    const bool keeps = rangeProcedure_ == RangeProcedure::LastUsed;
    FillRangesAnew(keeps ? RangeProcedure::Custom : rangeProcedure_, classes);
}

void ClassBoxes::ChoosePlotType(std::int16_t plotType, ClassGridValue gridValue) {
    if (settings_.plotType == plotType && settings_.gridValue == gridValue) {
        return;
    }
    const std::optional<RangeProcedure> procedure = ProcedureOfRanges(settings_);
    settings_.plotType = plotType;
    settings_.gridValue = gridValue;
    if (procedure && procedure != ProcedureOfRanges(settings_)) {
        FillRangesAnew(*procedure, settings_.numbers.limits.base);
    }
}

void ClassBoxes::FillRangesAnew(RangeProcedure procedure, int classes) {
    const std::string refusal = FillRanges(settings_, procedure, classes);
    if (refusal.empty()) {
        rangeProcedure_ = procedure;
    }
    Refresh();
    if (!refusal.empty()) {
        Tell(refusal);
        return;
    }
    Q_EMIT Changed();
}

void ClassBoxes::ChooseType(TypeProcedure procedure) {
    if (procedure == TypeProcedure::LastUsed) {
        typeProcedure_ = procedure;
        settings_.types = lastUsed_.types;
        settings_.names = lastUsed_.names;
        settings_.textNumbers.limits = lastUsed_.textNumbers.limits;
        Refresh();
        Q_EMIT Changed();
        return;
    }
    FillTypesAnew(procedure, std::max(settings_.types, settings_.textNumbers.limits.base));
}

void ClassBoxes::ChooseNumberOfTypes(int classes) {
    const bool keeps = typeProcedure_ == TypeProcedure::LastUsed;
    FillTypesAnew(keeps ? TypeProcedure::Custom : typeProcedure_, classes);
}

void ClassBoxes::FillTypesAnew(TypeProcedure procedure, int classes) {
    typeProcedure_ = procedure;
    FillTypes(settings_, procedure, classes);
    Refresh();
    Q_EMIT Changed();
}

void ClassBoxes::LimitEdited(ClassKind kind, int box) {
    QLineEdit& edited = *BoxesOf(kind)[At(box)];
    const Given& given = given_[PlaceOf(kind)][At(box)];
    const std::optional<double> limit =
        LimitOfBox(edited.text().toStdString(), given.text.toStdString(), given.value);
    MarkBox(edited, !limit);
    BecomeCustom();
    // While the text is not a valid number, the previous limit applies.
    ClassLimits& limits = RangesOfKind(settings_, kind).limits;
    SetLimitAt(limits, box, limit.value_or(given.value));
    ShowNeighbours(kind, box);
    ShowOthers();
    ShowPatches();
    ShowNote();
    Q_EMIT Changed();
}

void ClassBoxes::NameEdited(int place) {
    settings_.names[At(place)] = txtType[At(place)]->text().toStdString();
    BecomeCustom();
    ShowPatches();
    Q_EMIT Changed();
}

void ClassBoxes::OthersChanged(std::size_t index, bool isKept) {
    if (loading_) {
        return;
    }
    const std::array<bool*, 5> flags = {&settings_.numbers.keepLow, &settings_.numbers.keepHigh,
                                        &settings_.textNumbers.keepLow,
                                        &settings_.textNumbers.keepHigh, &settings_.keepOthers};
    *flags[index] = isKept;
    ShowPatches();
    Q_EMIT Changed();
}

void ClassBoxes::BecomeCustom() {
    const QScopedValueRollback loading(loading_, true);
    if (page_ == ClassKind::Types) {
        typeProcedure_ = TypeProcedure::Custom;
        cboType->setCurrentIndex(static_cast<int>(typeProcedure_));
    } else {
        rangeProcedure_ = RangeProcedure::Custom;
        cboRange->setCurrentIndex(static_cast<int>(rangeProcedure_));
    }
}

void ClassBoxes::MarkBox(QLineEdit& box, bool isFault) {
    QPalette colours; // a box without colours of its own uses those of the window
    if (isFault) {
        const bool isDark = palette().color(QPalette::Base).lightness() < 128;
        colours.setColor(QPalette::Base, isDark ? QColor(110, 30, 30) : QColor(255, 205, 205));
    }
    box.setPalette(colours);
    box.setProperty(kFault, isFault);
    box.setAccessibleDescription(isFault ? kNoNumber : QString());
}

ClassBoxes::LimitBoxes& ClassBoxes::BoxesOf(ClassKind kind) {
    return kind == ClassKind::Types ? txtTypeRange : txtRange;
}

} // namespace quandrel
