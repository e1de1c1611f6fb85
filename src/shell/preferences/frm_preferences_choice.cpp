// SPDX-License-Identifier: MIT
//
// How a click on the style pages changes the copy of the preferences, and how the pages show it.

#include "shell/preferences/frm_preferences.h"
#include "shell/styles/frm_symbol_select.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QGroupBox>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>

#include <utility>

namespace quandrel {

namespace {

using StyleTable = StyleSlot::Table;

} // namespace

std::optional<StyleSlot> frmPreferences::CurrentSlot() const {
    const int page = tabPreferences->currentIndex();
    return page >= 0 && page <= kRosesPage ? current_[static_cast<std::size_t>(page)]
                                           : std::nullopt;
}

std::optional<StyleSlot> frmPreferences::UpwardSlotOf(const StyleSlot& slot) const {
    constexpr std::array<std::pair<int, int>, 3> kPairs = {
        {{kRowSymbol, kUpRowSymbol}, {kDerivedSymbol, kDerivedUpSymbol}, {21, 22}}};
    for (const auto& [down, up] : kPairs) {
        if (slot == SymbolSlot(down) || slot == SymbolSlot(up)) {
            return SymbolSlot(up);
        }
    }
    return std::nullopt;
}

std::int16_t* frmPreferences::PlaceOf(const StyleSlot& slot, Part part) {
    const auto place = static_cast<std::size_t>(part);
    switch (slot.table) {
    case StyleTable::Symbol:
        return &now_.styles.symbols[slot.row][place];
    case StyleTable::Axis:
        return &now_.styles.axes[slot.row][place];
    case StyleTable::Contour:
        return &now_.styles.contours[slot.row][place];
    case StyleTable::Blank:
        return part == Part::Colour ? &now_.styles.symbols[slot.row][kPlaceColour] : nullptr;
    case StyleTable::Outline:
        return part == Part::Colour ? &now_.styles.symbols[slot.row][kPlaceSymbol] : nullptr;
    }
    return nullptr;
}

SymbolRow frmPreferences::StyleOf(const StyleSlot& slot) const {
    switch (slot.table) {
    case StyleTable::Axis:
        return now_.styles.axes[slot.row];
    case StyleTable::Contour:
        return now_.styles.contours[slot.row];
    case StyleTable::Blank:
        return {now_.styles.symbols[slot.row][kPlaceColour], kSolidFill, 1};
    case StyleTable::Outline:
        return {now_.styles.symbols[slot.row][kPlaceSymbol], kSolidFill, 1};
    case StyleTable::Symbol:
        break;
    }
    return now_.styles.symbols[slot.row];
}

void frmPreferences::PickSlot(const StyleSlot& slot) {
    current_[static_cast<std::size_t>(tabPreferences->currentIndex())] = slot;
    ShowSlots();
}

void frmPreferences::PickInRoses(double across, double down) {
    const int row = StyleRowAt(roses_, across, down);
    StyleSlot slot = SymbolSlot(row);
    if (row == kRoseBackgroundStyle) {
        slot.table = StyleTable::Blank;
    }
    PickSlot(slot);
}

void frmPreferences::Choose(Part part, int value, Qt::MouseButton button) {
    std::optional<StyleSlot> slot = CurrentSlot();
    if (!slot) {
        return;
    }
    if (const auto upward = UpwardSlotOf(*slot); upward && button != Qt::NoButton) {
        // The row before that of upward lines is that of downward lines.
        slot = button == Qt::RightButton ? *upward : StyleSlot{upward->table, upward->row - 1};
        current_[static_cast<std::size_t>(tabPreferences->currentIndex())] = slot;
    }
    if (std::int16_t* const place = PlaceOf(*slot, part)) {
        *place = static_cast<std::int16_t>(value);
    }
    ShowSlots();
    DrawPictures();
}

void frmPreferences::ShowSlots() {
    const std::optional<StyleSlot> current = CurrentSlot();
    palette_->setVisible(current.has_value());
    ShowSamples();
    NameColours();
    if (current) {
        CheckSample(*current);
        ShowCells(*current);
        ShowWidth(StyleOf(*current)[kPlaceSize]);
    }
}

void frmPreferences::ShowSamples() {
    for (const auto& [sample, slot] : slots_) {
        if (auto* const patch = dynamic_cast<StylePatch*>(sample)) {
            patch->SetStyle(StyleOf(slot));
        }
        sample->update();
    }
    for (QButtonGroup* cells : {colours_, types_, patterns_}) {
        for (QAbstractButton* cell : cells->buttons()) {
            cell->update();
        }
    }
}

void frmPreferences::CheckSample(const StyleSlot& current) {
    const auto page = static_cast<std::size_t>(tabPreferences->currentIndex());
    QAbstractButton* const checked = samples_[page]->checkedButton();
    if (checked != nullptr && slots_[checked] == current) {
        return; // some styles have two samples
    }
    // In the order of the page.
    for (QAbstractButton* sample : samples_[page]->buttons()) {
        if (slots_[sample] == current) {
            sample->setChecked(true);
            break;
        }
    }
}

void frmPreferences::ShowCells(const StyleSlot& current) {
    const SymbolRow style = StyleOf(current);
    const bool hasShape = PlaceOf(current, Part::Shape) != nullptr;
    CheckCell(*colours_, style[kPlaceColour]);
    CheckCell(*types_, style[kPlaceSymbol]);
    CheckCell(*patterns_, hasShape ? style[kPlaceSymbol] : -1);
    CheckCell(*lineStyles_, style[kPlaceSymbol]);
    for (QAbstractButton* cell : patterns_->buttons()) {
        cell->setEnabled(hasShape);
    }
}

void frmPreferences::ShowWidth(int width) {
    const auto show = [width](QSlider& slider, QSpinBox& box) {
        const QSignalBlocker noSlide(slider);
        const QSignalBlocker noSpin(box);
        slider.setValue(width);
        box.setValue(width);
    };
    show(*sldSymbSize, *spnSymbSize);
    show(*sldLineWidth, *spnLineWidth);
}

} // namespace quandrel
