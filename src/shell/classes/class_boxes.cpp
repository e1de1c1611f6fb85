// SPDX-License-Identifier: MIT

#include "shell/classes/class_boxes.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "shell/styles/frm_symbol_select.h"

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

constexpr int kLineHeight = 30;           ///< pixels
constexpr const char* kFault = "isFault"; ///< property of a box whose text is no number
constexpr const char* kNoNumber = "A class limit is no number.";
constexpr const char* kNoNumericTypes = "None of the types is a number.";
constexpr const char* kNoAscent =
    "The limits do not ascend: a value goes to the first class whose upper limit exceeds it.";

std::size_t At(int place) {
    return static_cast<std::size_t>(place);
}

std::size_t PlaceOf(ClassKind kind) {
    return kind == ClassKind::Types ? 1 : 0;
}

/// The kind that a mode stands for, None where the plot lacks the column.
ClassKind UsableKind(int mode, const PlotRecord& record) {
    const ClassKind kind = KindOfMode(mode);
    const bool lacks = (kind == ClassKind::Numbers && record.HasAppendedNumeric == 0)
                       || (kind == ClassKind::Types && record.HasAppendedText == 0);
    return lacks ? ClassKind::None : kind;
}

/// The other box of a limit that two ranges share, or -1.
int TwinOf(int box, int ranges) {
    if (box % 2 == 0) {
        return box - 1;
    }
    return (box + 1) / 2 < ranges ? box + 1 : -1;
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
        return; // the patch of a line that is not in use
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
    // While the text is no number the limit is the one before.
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
    QPalette colours; // without colours of its own the box follows the window
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
    // Both pages take the same room, and never both of them take it: the window keeps its size.
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

/// The boxes that change with an edited one: its twin, or all whose form is no longer theirs.
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
