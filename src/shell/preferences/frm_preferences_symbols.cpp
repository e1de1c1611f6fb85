// SPDX-License-Identifier: MIT
//
// The symbols of all styles on the page of symbols, to choose the one to change.

#include "classify/classification.h"
#include "shell/controls/control_kit.h"
#include "shell/preferences/frm_preferences.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>

namespace quandrel {

namespace {

constexpr int kUpColumn = 5; ///< of the symbols of upward lines
constexpr int kClassesInLine = 6;
constexpr int kLastColumn = 9;

// Lines of the grid.
constexpr int kPairLine = 0;
constexpr int kOverlayLine = 4;
constexpr int kBandLine = 5;
constexpr int kBetaLine = 6;
constexpr int kClassLine = 7;
constexpr int kEndLine = 10;

} // namespace

void frmPreferences::AddSymbol(QGridLayout& grid, int row, int line, int column,
                               const QString& text) {
    const QString name = Numbered("picSymbolArray", static_cast<std::size_t>(row));
    grid.addWidget(MakeSlot(kSymbolsPage, SymbolSlot(row), name, text), line, column);
}

void frmPreferences::AddSymbolPairs(QGridLayout& grid) {
    struct Pair {
        const char* caption;
        int down;
        const char* downText;
        int up;
        const char* upText;
    };

    constexpr std::array<Pair, 3> kPairs = {
        {{"Point plots", kRowSymbol, "Symbol for single point plots", kUpRowSymbol,
          "Symbol for -ve plunge single point plots"},
         {"Derived axes", kDerivedSymbol, "Symbol for derived axes", kDerivedUpSymbol,
          "Symbol for -ve plunge derived axes"},
         {"Annotation points", 21, "Symbol for added annotation points (left button)", 22,
          "Symbol for added annotation points (right button)"}}};
    int line = kPairLine;
    grid.addWidget(new QLabel("+ve plunges"), line, 1, 1, 4);
    grid.addWidget(new QLabel("\"-ve\" plunges"), line, kUpColumn, 1, 4);
    for (const Pair& pair : kPairs) {
        grid.addWidget(new QLabel(pair.caption), ++line, 0);
        AddSymbol(grid, pair.down, line, 1, pair.downText);
        grid.addWidget(new QLabel("(left button)"), line, 2, 1, 3);
        AddSymbol(grid, pair.up, line, kUpColumn, pair.upText);
        grid.addWidget(new QLabel("(right button)"), line, kUpColumn + 1, 1, 3);
    }
}

void frmPreferences::AddOverlaySymbols(QGridLayout& grid) {
    grid.addWidget(new QLabel("Overlays"), kOverlayLine, 0);
    for (int overlay = 1; overlay <= kOverlaySymbols; ++overlay) {
        AddSymbol(grid, kFirstOverlaySymbol + overlay % kOverlaySymbols, kOverlayLine, overlay,
                  QString("Symbol for overlay %1").arg(overlay));
    }
}

void frmPreferences::AddBandSymbols(QGridLayout& grid) {
    grid.addWidget(new QLabel("density level symbols"), kBandLine, 0);
    for (int row = kFirstBandSymbol; row <= kLastBandSymbol; ++row) {
        const int level = 1 + row - kFirstBandSymbol;
        AddSymbol(grid, row, kBandLine, level, QString("Symbol for density level %1").arg(level));
    }
}

void frmPreferences::AddBetaSymbol(QGridLayout& grid) {
    grid.addWidget(new QLabel("Beta axis"), kBetaLine, 0);
    grid.addWidget(MakeSlot(kSymbolsPage, {StyleSlot::Table::Axis, kBetaAxisStyle},
                            "picSymbolArray_beta", "Symbol for the beta axis"),
                   kBetaLine, 1);
}

void frmPreferences::AddClassSymbols(QGridLayout& grid) {
    grid.addWidget(new QLabel("Class range settings for classified plots"), kClassLine, 0, 1,
                   kLastColumn);
    for (int row = kFirstClassStyle; row < kSymbolRowCount; ++row) {
        const int place = row - kFirstClassStyle;
        AddSymbol(grid, row, kClassLine + 1 + place / kClassesInLine, 1 + place % kClassesInLine,
                  QString("Symbol for class %1").arg(place + 1));
    }
}

QWidget* frmPreferences::MakeSymbolArray() {
    QGroupBox* box = MakeGroup("picSymbolArray", "Current Symbol Array");
    auto* grid = new QGridLayout(box);
    grid->setSpacing(3);
    AddSymbolPairs(*grid);
    AddOverlaySymbols(*grid);
    AddBandSymbols(*grid);
    AddBetaSymbol(*grid);
    AddClassSymbols(*grid);
    grid->setColumnStretch(kLastColumn, 1);
    grid->setRowStretch(kEndLine, 1);
    return box;
}

} // namespace quandrel
