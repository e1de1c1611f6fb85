// SPDX-License-Identifier: MIT
//
// The pages of the preferences that change the style tables: symbols, lines, roses.

#include "shell/controls/control_kit.h"
#include "shell/controls/picture_box.h"
#include "shell/preferences/frm_preferences.h"
#include "shell/styles/frm_symbol_select.h"
#include "shell/styles/sample_button.h"
#include "stereo/colour_names.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include <tuple>
#include <utility>

namespace quandrel {

namespace {

using StyleTable = StyleSlot::Table;

constexpr QSize kSlotRoom(40, 36);
constexpr QSize kCellRoom(36, 36);
constexpr QSize kColourRoom(28, 24);
constexpr QSize kLineRoom(110, 26);
constexpr QSize kNetRoom(300, 300);
constexpr QSize kRosesRoom(540, 180);
constexpr int kTypesInLine = 6;
constexpr int kFillsInLine = 8;
constexpr int kFillCaptionWidth = 80;
constexpr int kColoursInLine = 13;
constexpr int kSlotsInLine = 12;
constexpr int kLineStyleCount = 6;
constexpr SymbolRow kCellStyle{5, 0, 3}; ///< black; the shape is that of the cell

constexpr std::array<const char*, kLineStyleCount> kLineStyleNames = {
    "solid", "dashed", "dotted", "dashes and dots", "dashes and two dots", "none: not drawn"};

/// The heading of two lines of a grid.
void AddHeading(QGridLayout& grid, int line, const char* upper, const char* lower) {
    grid.addWidget(new QLabel(upper), line, 0, Qt::AlignBottom);
    grid.addWidget(new QLabel(lower), line + 1, 0, Qt::AlignTop);
}

/// A slider and a spin box that show the same number.
std::pair<QSlider*, QSpinBox*> AddNumber(QHBoxLayout& line, const QString& caption,
                                         const QString& name, const char* slider, const char* spin,
                                         int most) {
    auto* label = new QLabel(caption);
    auto* sld = new QSlider(Qt::Horizontal);
    auto* spn = new QSpinBox;
    sld->setObjectName(slider);
    sld->setAccessibleName(name);
    sld->setRange(1, most);
    sld->setPageStep(5);
    spn->setObjectName(spin);
    spn->setAccessibleName(name);
    spn->setRange(1, most);
    label->setBuddy(sld);
    line.addWidget(label);
    line.addWidget(sld, 1);
    line.addWidget(spn);
    return {sld, spn};
}

} // namespace

void frmPreferences::AddSlot(PreferencesTab page, QAbstractButton& sample, const StyleSlot& slot,
                             const QString& name, const QString& text) {
    NameCell(sample, name, text);
    auto& samples = samples_[static_cast<std::size_t>(page)];
    if (samples == nullptr) {
        samples = new QButtonGroup(this);
    }
    samples->addButton(&sample);
    slots_[&sample] = slot;
}

StylePatch* frmPreferences::MakeSlot(PreferencesTab page, const StyleSlot& slot,
                                     const QString& name, const QString& text) {
    const StyleKind kind = page == kRosesPage ? StyleKind::Fill : StyleKind::Symbol;
    auto* sample = new PreviewPatch(now_.styles, kind, kSlotRoom);
    AddSlot(page, *sample, slot, name, text);
    connect(sample, &StylePatch::Picked, this, [this, sample, slot] {
        sample->setChecked(true);
        PickSlot(slot);
    });
    return sample;
}

SampleButton* frmPreferences::MakeLineSlot(const StyleSlot& slot, const QString& name,
                                           const QString& text) {
    auto* sample = new SampleButton(
        now_.styles, kLineRoom, [this, slot](Surface& surface, const Styles& styles) {
            DrawLineAcross(surface, styles, kLineRoom - QSize(6, 6), StyleOf(slot));
        });
    AddSlot(kLinesPage, *sample, slot, name, text);
    connect(sample, &QAbstractButton::clicked, this, [this, slot] { PickSlot(slot); });
    return sample;
}

QGroupBox* frmPreferences::MakeTypes() {
    QGroupBox* box = MakeGroup("picSymbolTypes", "Symbol");
    auto* grid = new QGridLayout(box);
    grid->setSpacing(3);
    types_ = new QButtonGroup(this);
    for (int i = 0; i < kPickedSymbols; ++i) {
        auto* cell = new PreviewPatch(now_.styles, StyleKind::Symbol, kCellRoom, PatchScale::Fit);
        NameCell(*cell, Numbered("picSymbolTypes", i), NameOfSymbol(i));
        SymbolRow style = kCellStyle;
        style[kPlaceSymbol] = static_cast<std::int16_t>(i);
        cell->SetStyle(style);
        types_->addButton(cell, i);
        grid->addWidget(cell, i / kTypesInLine, i % kTypesInLine);
        connect(cell, &StylePatch::Picked, this,
                [this, i](Qt::MouseButton button) { Choose(Part::Shape, i, button); });
    }
    grid->setColumnStretch(kTypesInLine, 1);
    return box;
}

QGroupBox* frmPreferences::MakeSizes() {
    auto* box = new QGroupBox("Size");
    auto* layout = new QVBoxLayout(box);
    auto* line = new QHBoxLayout;
    layout->addWidget(new QLabel("Set the size of the selected symbol"));
    layout->addLayout(line);
    std::tie(sldSymbSize, spnSymbSize) =
        AddNumber(*line, "Si&ze", "Size of the selected symbol", "sldSymbSize", "spnSymbSize",
                  kLargestSymbolSize);
    sldSymbSize->setToolTip("Set the size of the selected symbol");
    const auto take = [this](int size) { Choose(Part::Size, size, Qt::NoButton); };
    connect(sldSymbSize, &QSlider::valueChanged, this, take);
    connect(spnSymbSize, &QSpinBox::valueChanged, this, take);
    return box;
}

QWidget* frmPreferences::MakeSymbolsPage() {
    auto* page = new QWidget;
    auto* layout = new QHBoxLayout(page);
    layout->addWidget(MakeSymbolArray());
    auto* right = new QVBoxLayout;
    right->addWidget(MakeTypes());
    right->addWidget(MakeSizes());
    right->addStretch(1);
    layout->addLayout(right);
    layout->addStretch(1);
    return page;
}

QWidget* frmPreferences::MakeLineSamples() {
    auto* box = new QGroupBox("Lines of plots");
    auto* grid = new QGridLayout(box);
    grid->addWidget(new QLabel("Contours"), 0, 0, 1, 2);
    int line = 1;
    for (std::size_t level = 0; level < kContourStyles; ++level) {
        const QString caption = QString("level %1").arg(level + 1);
        grid->addWidget(new QLabel(caption), line, 0);
        grid->addWidget(MakeLineSlot({StyleTable::Contour, level}, Numbered("picContour", level),
                                     "Contours of " + caption),
                        line++, 1);
    }
    grid->addWidget(new QLabel("Girdles"), line++, 0, 1, 2);

    struct Girdle {
        const char* caption;
        const char* text;
        std::size_t row;
    };

    constexpr std::array<Girdle, 3> kGirdles = {
        {{"Mean", "The mean: its arrow at the rim", kMeanGirdleStyle},
         {"Calc.", "Girdles that are calculated", kCalculatedGirdleStyle},
         {"Drawn", "Girdles that you enter or draw", kUserGirdleStyle}}};
    for (std::size_t i = 0; i < kGirdles.size(); ++i) {
        auto* label = new QLabel(kGirdles[i].caption);
        label->setObjectName(Numbered("lblGirdle", i));
        grid->addWidget(label, line, 0);
        grid->addWidget(MakeLineSlot({StyleTable::Axis, kGirdles[i].row}, Numbered("picGirdle", i),
                                     kGirdles[i].text),
                        line++, 1);
    }
    grid->setRowStretch(line, 1);
    return box;
}

QGroupBox* frmPreferences::MakeLineStyles() {
    QGroupBox* box = MakeGroup("panLineStyle", "Available Line Styles");
    auto* layout = new QVBoxLayout(box);
    lineStyles_ = new QButtonGroup(this);
    for (int i = 0; i < kLineStyleCount; ++i) {
        auto* cell =
            new SampleButton(now_.styles, kLineRoom, [i](Surface& surface, const Styles& styles) {
                const QSize room = kLineRoom - QSize(6, 6);
                DrawLineAcross(surface, styles, room, {5, static_cast<std::int16_t>(i), 1});
                if (i == kNoLine) {
                    surface.Text({(room.width() - surface.TextWidth("none")) / 2,
                                  (room.height() + surface.TextHeight()) / 2},
                                 "none");
                }
            });
        NameCell(*cell, Numbered("panLineStyle", i), kLineStyleNames[static_cast<std::size_t>(i)]);
        lineStyles_->addButton(cell, i);
        layout->addWidget(cell);
        connect(cell, &QAbstractButton::clicked, this,
                [this, i] { Choose(Part::Shape, i, Qt::NoButton); });
    }
    auto* line = new QHBoxLayout;
    std::tie(sldLineWidth, spnLineWidth) =
        AddNumber(*line, "&Width", "Width", "sldLineWidth", "spnLineWidth", 10);
    const auto take = [this](int width) { Choose(Part::Size, width, Qt::NoButton); };
    connect(sldLineWidth, &QSlider::valueChanged, this, take);
    connect(spnLineWidth, &QSpinBox::valueChanged, this, take);
    layout->addLayout(line);
    layout->addStretch(1);
    return box;
}

QWidget* frmPreferences::MakeLinesPage() {
    auto* page = new QWidget;
    auto* layout = new QHBoxLayout(page);
    picLineBox = new PictureBox(page);
    picLineBox->setObjectName("picLineBox");
    picLineBox->setAccessibleName("Sample of contours and girdles");
    picLineBox->setFixedSize(kNetRoom);
    picLineBox->onStale = [this] { DrawPictures(); };
    layout->addWidget(picLineBox, 0, Qt::AlignTop);
    layout->addWidget(MakeLineSamples());
    layout->addWidget(MakeLineStyles());
    layout->addStretch(1);
    return page;
}

void frmPreferences::AddRoseSlots(QGridLayout& grid) {
    struct Slot {
        StyleSlot style;
        const char* name;
        const char* caption;
        const char* text;
        int line;
        int column;
    };

    constexpr std::array<Slot, 6> kSlots = {
        {{SymbolSlot(kRoseStyle), "sectors", "sectors", "Simple rose: sectors", 0, 1},
         {{StyleTable::Outline, kRoseBackgroundStyle},
          "outline",
          "outlines",
          "Outlines of the sectors of all roses",
          0,
          5},
         {{StyleTable::Blank, kRoseBackgroundStyle},
          "blank",
          "blank parts",
          "Blank parts of roses: white means the background",
          0,
          9},
         {SymbolSlot(kOverlaidRoseStyle - 2), "frequency", "frequency", "Wind Rose: frequency", 2,
          1},
         {SymbolSlot(kOverlaidRoseStyle - 1), "speed", "mean wind speed",
          "Wind Rose: mean wind speed", 2, 5},
         {SymbolSlot(kRoseStyle), "energy", "energy",
          "Wind Rose: energy, as the sectors of a simple rose", 2, 9}}};
    for (const Slot& slot : kSlots) {
        grid.addWidget(new QLabel(slot.caption), slot.line, slot.column, 1, 3);
        grid.addWidget(
            MakeSlot(kRosesPage, slot.style, QString("picRoseSlot_%1").arg(slot.name), slot.text),
            slot.line + 1, slot.column);
    }
}

void frmPreferences::AddRoseClassSlots(QGridLayout& grid, int line) {
    grid.addWidget(new QLabel("lowest"), line, 1, 1, 3);
    auto* highest = new QLabel("highest");
    highest->setAlignment(Qt::AlignRight);
    grid.addWidget(highest, line, kSlotsInLine - 2, 1, 3);
    for (int i = 0; i < kSlotsInLine; ++i) {
        grid.addWidget(MakeSlot(kRosesPage, SymbolSlot(kFirstRoseClassStyle + i),
                                Numbered("picRoseSlot", kFirstRoseClassStyle + i),
                                QString("Classified rose: class %1").arg(i + 1)),
                       line + 1, 1 + i);
    }
}

QWidget* frmPreferences::MakeRoseSlots() {
    constexpr int kClassLine = 4;
    QGroupBox* box = MakeGroup("lblPatterns", "Fills");
    auto* grid = new QGridLayout(box);
    grid->setSpacing(3);
    AddHeading(*grid, 0, "Simple rose", "");
    AddHeading(*grid, 2, "Wind Rose", "Overlayed");
    AddRoseSlots(*grid);
    AddHeading(*grid, kClassLine, "Classified rose", "segment range");
    AddRoseClassSlots(*grid, kClassLine);
    grid->setColumnStretch(kSlotsInLine + 1, 1);
    return box;
}

QGroupBox* frmPreferences::MakePatterns() {
    QGroupBox* box = MakeGroup("picPatternStyles", "Fill styles");
    auto* grid = new QGridLayout(box);
    grid->setSpacing(3);
    patterns_ = new QButtonGroup(this);
    for (int i = 0; i < kPickedFills; ++i) {
        auto* cell = new PreviewPatch(now_.styles, StyleKind::Fill, kCellRoom);
        NameCell(*cell, Numbered("picPatternStyles", i), NameOfFill(i));
        SymbolRow style = kCellStyle;
        style[kPlaceSymbol] = static_cast<std::int16_t>(i);
        cell->SetStyle(style);
        patterns_->addButton(cell, i);
        grid->addWidget(cell, 0, i, Qt::AlignHCenter);
        connect(cell, &StylePatch::Picked, this,
                [this, i](Qt::MouseButton button) { Choose(Part::Shape, i, button); });
    }
    grid->addWidget(new QLabel("solid"), 1, kSolidFill, Qt::AlignHCenter);
    grid->addWidget(new QLabel("transparent"), 1, kNoFill, Qt::AlignHCenter);
    grid->setColumnMinimumWidth(kSolidFill, kFillCaptionWidth);
    grid->setColumnMinimumWidth(kNoFill, kFillCaptionWidth);
    grid->setColumnStretch(kFillsInLine, 1);
    return box;
}

QWidget* frmPreferences::MakeRosesPage() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    picPlotBox = new PictureBox(page);
    picPlotBox->setObjectName("picPlotBox");
    picPlotBox->setAccessibleName("Samples of roses: click on a fill to change it");
    picPlotBox->setToolTip("Click on a fill to change it");
    picPlotBox->setFixedSize(kRosesRoom);
    picPlotBox->onStale = [this] { DrawPictures(); };
    picPlotBox->onPress = [this](Point at, const QMouseEvent&) {
        PickInRoses((at.x - kPlotScale.left) / (kPlotScale.right - kPlotScale.left),
                    (at.y - kPlotScale.top) / (kPlotScale.bottom - kPlotScale.top));
        return true;
    };
    layout->addWidget(picPlotBox, 0, Qt::AlignHCenter);
    layout->addWidget(MakeRoseSlots());
    layout->addWidget(MakePatterns());
    layout->addStretch(1);
    return page;
}

void frmPreferences::NameColours() {
    for (QAbstractButton* cell : colours_->buttons()) {
        const int index = colours_->id(cell);
        const Colour colour = ColourFromValue(now_.styles.colours[static_cast<std::size_t>(index)]);
        const QString name = QString::fromStdString(ColourNameAt(index, colour));
        cell->setAccessibleName(name);
        cell->setToolTip(name);
    }
}

QGroupBox* frmPreferences::MakePalette() {
    QGroupBox* box = MakeGroup("picColour", "Available Fill colours");
    auto* line = new QHBoxLayout(box);
    auto* grid = new QGridLayout;
    grid->setSpacing(3);
    line->addLayout(grid);
    colours_ = new QButtonGroup(this);
    for (int i = 0; i < kColourCount; ++i) {
        auto* cell = new PreviewPatch(now_.styles, StyleKind::Fill, kColourRoom);
        NameCell(*cell, Numbered("picColour", i), {}); // NameColours names it
        cell->SetStyle({static_cast<std::int16_t>(i), kSolidFill, 1});
        colours_->addButton(cell, i);
        grid->addWidget(cell, i / kColoursInLine, i % kColoursInLine);
        connect(cell, &StylePatch::Picked, this,
                [this, i](Qt::MouseButton button) { Choose(Part::Colour, i, button); });
    }
    cmdOK[4] = new QPushButton("&more colours ...");
    cmdOK[4]->setObjectName("cmdOK_4");
    cmdOK[4]->setToolTip("Replace the selected colour by another one wherever it is used");
    line->addSpacing(12);
    line->addWidget(cmdOK[4]);
    line->addStretch(1);
    return box;
}

} // namespace quandrel
