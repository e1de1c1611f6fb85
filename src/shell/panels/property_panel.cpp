// SPDX-License-Identifier: MIT

#include "shell/panels/property_panel.h"

#include "core/plot_store.h"
#include "core/record_density_view.h"
#include "drawing/layer_list.h"
#include "drawing/row_labels.h"
#include "panels/layer_commands.h"
#include "panels/layer_tree.h"
#include "shell/controls/control_kit.h"
#include "shell/styles/frm_symbol_select.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSlider>
#include <QSpinBox>

#include <array>
#include <cmath>
#include <utility>

namespace quandrel {

namespace {

constexpr const char* kOfStyle = "as the style";
constexpr int kWholeOpacity = 100;
constexpr std::array<const char*, 5> kLineNames = {"solid", "dashed", "dotted", "dash-dot", "none"};
constexpr std::array<std::int16_t, 5> kLineCodes = {kSolidLine, kDashedLine, kDottedLine,
                                                    kDashDotLine, kNoLine};
constexpr std::array<const char*, kBandPalettes> kPalettes = {"colours of the levels", "warm",
                                                              "cool", "diverging", "grey"};

/// A number whose lowest value means that of the style.
QDoubleSpinBox* MakeNumber(const char* name, const QString& tip, double most, const char* unit) {
    auto* box = new QDoubleSpinBox;
    box->setObjectName(name);
    box->setToolTip(tip);
    box->setDecimals(2);
    box->setSingleStep(0.1);
    box->setRange(-0.1, most);
    box->setSpecialValueText(kOfStyle);
    box->setSuffix(unit);
    box->setKeyboardTracking(false); // a typed number is one edit
    return box;
}

double ValueOf(const QDoubleSpinBox& box) {
    return box.value() < 0 ? double{kAsStyle} : box.value();
}

void ShowNumber(QDoubleSpinBox& box, double value) {
    box.setValue(value == kAsStyle ? box.minimum() : value);
}

QComboBox* MakeChoice(const char* name, const QString& label, const QString& tip) {
    QComboBox* box = MakeList(name, label);
    box->setToolTip(tip);
    box->addItem(kOfStyle, int{kAsStyle});
    return box;
}

QWidget* Beside(QWidget* wide, QWidget* narrow) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(wide, 1);
    layout->addWidget(narrow);
    return row;
}

void ShowRow(QFormLayout& form, QWidget& field, bool isShown) {
    form.setRowVisible(&field, isShown);
}

std::int16_t CodeOf(const QComboBox& box) {
    return static_cast<std::int16_t>(box.currentData().toInt());
}

} // namespace

PropertyPanel::PropertyPanel(QWidget* parent, std::function<void()> done)
    : QDockWidget("Properties", parent)
    , done_(std::move(done)) {
    setObjectName("panProperties");
    setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    MakeFields();
    Connect();
    Follow(0, std::nullopt);
}

void PropertyPanel::MakeFields() {
    lblLayer = MakeLabel("", "lblLayer");
    lblLayer->setWordWrap(true);
    txtName = new QLineEdit;
    txtName->setObjectName("txtLayerName");
    txtName->setToolTip("In the legend; empty for the name of the data");
    cboShape = MakeChoice("cboLayerShape", "Symbol", "The shape of the symbols");
    for (int code = 1; code < static_cast<int>(kPickedSymbols); ++code) {
        cboShape->addItem(NameOfSymbol(code), code);
    }
    spnSize = MakeNumber("spnLayerSize", "Across a symbol", 20, " mm");
    spnHalo = MakeNumber("spnLayerHalo", "The white rim of a symbol", 5, " pt");
    cmdColour = MakeButton("cmdLayerColour", "Choose...", "The colour of symbols or lines");
    cmdStyleColour = MakeButton("cmdLayerStyleColour", "Style", "The colour of the style again");
    sldOpacity = new QSlider(Qt::Horizontal);
    sldOpacity->setObjectName("sldLayerOpacity");
    sldOpacity->setRange(0, kWholeOpacity);
    sldOpacity->setToolTip("How far the layer hides what is below it");
    cmdStyleOpacity = MakeButton("cmdLayerStyleOpacity", "Style", "The opacity of the style again");
    spnWidth = MakeNumber("spnLayerWidth", "Of lines", 10, " pt");
    cboLine = MakeChoice("cboLayerLine", "Dashes", "How lines are drawn");
    for (std::size_t i = 0; i < kLineNames.size(); ++i) {
        cboLine->addItem(kLineNames[i], int{kLineCodes[i]});
    }
    cboPalette = MakeChoice("cboLayerPalette", "Palette", "The colours of filled bands");
    for (std::size_t i = 0; i < kPalettes.size(); ++i) {
        cboPalette->addItem(kPalettes[i], static_cast<int>(i));
    }
    spnSteps = new QSpinBox;
    spnSteps->setObjectName("spnLayerSteps");
    spnSteps->setToolTip("Even steps of density up to the maximum");
    spnSteps->setRange(0, kMostLevels);
    spnSteps->setSpecialValueText("as the plot");
    spnSteps->setKeyboardTracking(false);
    chkLabels = new QCheckBox("&Labels");
    chkLabels->setObjectName("chkLayerLabels");
    chkLabels->setToolTip("The level in each contour; the text or the number of each row, up to "
                          + QString::number(kMostLabelledRows) + " rows");
    cmdDefault = MakeButton("cmdLayerDefault", "As &Default",
                            "Makes these properties those of the style of new plots");
    fields_ = new QWidget;
    form_ = new QFormLayout(fields_);
    form_->setRowWrapPolicy(QFormLayout::WrapLongRows);
    AddFields(*form_);
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(fields_);
    setWidget(area);
}

void PropertyPanel::AddFields(QFormLayout& form) {
    form.addRow(lblLayer);
    form.addRow("Name", txtName);
    form.addRow("Symbol", cboShape);
    form.addRow("Size", spnSize);
    form.addRow("Halo", spnHalo);
    form.addRow("Colour", Beside(cmdColour, cmdStyleColour));
    form.addRow("Opacity", Beside(sldOpacity, cmdStyleOpacity));
    form.addRow("Width", spnWidth);
    form.addRow("Dashes", cboLine);
    form.addRow("Palette", cboPalette);
    form.addRow("Levels", spnSteps);
    form.addRow(chkLabels);
    form.addRow(cmdDefault);
    sldOpacity->setAccessibleName("Opacity, per cent");
    for (QWidget* field : {static_cast<QWidget*>(txtName), static_cast<QWidget*>(spnSize),
                           static_cast<QWidget*>(spnHalo), static_cast<QWidget*>(spnWidth),
                           static_cast<QWidget*>(spnSteps)}) {
        field->setAccessibleName(static_cast<QLabel*>(form.labelForField(field))->text());
    }
}

void PropertyPanel::Connect() {
    connect(txtName, &QLineEdit::editingFinished, this, [this] {
        Take([this](FigureLayer& layer) {
            layer.LayerName = txtName->text().trimmed().toStdString();
        });
    });
    const auto number = [this](QDoubleSpinBox* box, double FigureLayer::*field) {
        connect(box, &QDoubleSpinBox::valueChanged, this, [this, box, field] {
            Take([box, field](FigureLayer& layer) { layer.*field = ValueOf(*box); });
        });
    };
    number(spnSize, &FigureLayer::LayerSize);
    number(spnHalo, &FigureLayer::LayerHalo);
    number(spnWidth, &FigureLayer::LayerWidth);
    const auto choice = [this](QComboBox* box, std::int16_t FigureLayer::*field) {
        connect(box, &QComboBox::activated, this, [this, box, field] {
            Take([box, field](FigureLayer& layer) { layer.*field = CodeOf(*box); });
        });
    };
    choice(cboShape, &FigureLayer::LayerSymbol);
    choice(cboLine, &FigureLayer::LayerLine);
    choice(cboPalette, &FigureLayer::LayerPalette);
    connect(spnSteps, &QSpinBox::valueChanged, this, [this](int steps) {
        Take([steps](FigureLayer& layer) {
            layer.LayerSteps = steps == 0 ? kAsStyle : static_cast<std::int16_t>(steps);
        });
    });
    connect(chkLabels, &QCheckBox::clicked, this, [this](bool isOn) {
        Take([isOn](FigureLayer& layer) { layer.LayerLabels = isOn ? 1 : kAsStyle; });
    });
    connect(cmdColour, &QPushButton::clicked, this, [this] { ChooseColour(); });
    connect(cmdStyleColour, &QPushButton::clicked, this,
            [this] { Take([](FigureLayer& layer) { layer.LayerColour = kColourOfStyle; }); });
    connect(sldOpacity, &QSlider::sliderPressed, this, [this] { isDragged_ = false; });
    connect(sldOpacity, &QSlider::valueChanged, this, [this](int value) {
        // A drag is undone as a whole.
        const bool joins = sldOpacity->isSliderDown() && std::exchange(isDragged_, true);
        Take(
            [value](FigureLayer& layer) {
                layer.LayerOpacity = static_cast<double>(value) / kWholeOpacity;
            },
            joins ? EditRun::Joins : EditRun::First);
    });
    connect(cmdStyleOpacity, &QPushButton::clicked, this,
            [this] { Take([](FigureLayer& layer) { layer.LayerOpacity = kAsStyle; }); });
    connect(cmdDefault, &QPushButton::clicked, this, [this] {
        if (place_) {
            UseLayerForNewPlots(slot_, *place_);
        }
    });
}

void PropertyPanel::Take(const std::function<void(FigureLayer&)>& change, EditRun run) {
    if (isFilling_ || !place_ || !IsOpenSlot(slot_)) {
        return;
    }
    const std::vector<FigureLayer> layers = LayersOf(PlotOf(slot_));
    if (*place_ >= layers.size()) {
        return;
    }
    FigureLayer layer = layers[*place_];
    change(layer);
    if (layer != layers[*place_]) {
        ChangeLayer(slot_, *place_, layer, run);
        done_();
    }
}

void PropertyPanel::ChooseColour() {
    const QColor now = cmdColour->property("colour").value<QColor>();
    const QColor colour = QColorDialog::getColor(now.isValid() ? now : QColor(Qt::black), this,
                                                 "Colour of the layer");
    if (colour.isValid()) {
        Take([&colour](FigureLayer& layer) {
            layer.LayerColour =
                colour.red() | colour.green() << 8 | colour.blue() << 16; // red in the low byte
        });
    }
}

void PropertyPanel::Follow(int slot, std::optional<std::size_t> place) {
    slot_ = slot;
    place_ = place;
    const std::vector<FigureLayer> layers =
        slot > 0 ? LayersOf(PlotOf(slot)) : std::vector<FigureLayer>();
    if (place_ && *place_ >= layers.size()) {
        place_.reset();
    }
    isFilling_ = true;
    Show(place_ ? layers[*place_] : FigureLayer());
    isFilling_ = false;
}

void PropertyPanel::Show(const FigureLayer& layer) {
    const LayerProperties has = place_ ? PropertiesOfLayer(layer) : LayerProperties();
    lblLayer->setText(place_ ? QString::fromStdString(NameOfWay(layer.LayerShow))
                             : "Choose a layer in the panel of data and layers.");
    ShowRow(*form_, *txtName, place_.has_value());
    ShowRow(*form_, *cboShape, has.symbol);
    ShowRow(*form_, *spnSize, has.symbol);
    ShowRow(*form_, *spnHalo, has.symbol);
    ShowRow(*form_, *cmdColour->parentWidget(), has.colour);
    ShowRow(*form_, *sldOpacity->parentWidget(), has.opacity);
    ShowRow(*form_, *spnWidth, has.line);
    ShowRow(*form_, *cboLine, has.line);
    ShowRow(*form_, *cboPalette, has.bands);
    ShowRow(*form_, *spnSteps, has.steps);
    ShowRow(*form_, *chkLabels, has.labels);
    ShowRow(*form_, *cmdDefault, place_.has_value());
    if (!txtName->hasFocus()) {
        txtName->setText(QString::fromStdString(layer.LayerName));
    }
    cboShape->setCurrentIndex(cboShape->findData(int{layer.LayerSymbol}));
    ShowNumber(*spnSize, layer.LayerSize);
    ShowNumber(*spnHalo, layer.LayerHalo);
    ShowNumber(*spnWidth, layer.LayerWidth);
    cboLine->setCurrentIndex(cboLine->findData(int{layer.LayerLine}));
    cboPalette->setCurrentIndex(cboPalette->findData(int{layer.LayerPalette}));
    spnSteps->setValue(layer.LayerSteps == kAsStyle ? 0 : layer.LayerSteps);
    chkLabels->setChecked(layer.LayerLabels == 1);
    if (!sldOpacity->isSliderDown()) {
        sldOpacity->setValue(
            layer.LayerOpacity == kAsStyle
                ? kWholeOpacity
                : static_cast<int>(std::lround(layer.LayerOpacity * kWholeOpacity)));
    }
    cmdStyleOpacity->setEnabled(layer.LayerOpacity != kAsStyle);
    ShowColour(layer);
}

void PropertyPanel::ShowColour(const FigureLayer& layer) {
    const bool isOwn = layer.LayerColour != kColourOfStyle;
    cmdStyleColour->setEnabled(isOwn);
    if (!isOwn) {
        cmdColour->setIcon({});
        cmdColour->setProperty("colour", QVariant());
        return;
    }
    const Colour colour = ColourFromValue(static_cast<std::uint32_t>(layer.LayerColour));
    const QColor shown(colour.red, colour.green, colour.blue);
    QPixmap swatch(16, 16);
    swatch.fill(shown);
    cmdColour->setIcon(swatch);
    cmdColour->setProperty("colour", shown);
}

} // namespace quandrel
