// SPDX-License-Identifier: MIT
//
// The controls of the rose dialog and their layout.

#include "shell/classes/class_boxes.h"
#include "shell/controls/control_kit.h"
#include "shell/rose/frm_rose_diag.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>
#include <QVBoxLayout>

namespace quandrel {

namespace {

constexpr int kNumberBoxWidth = 76;
constexpr int kShortestSlider = 180;
constexpr int kIntervalLength = 4; ///< the most characters of an interval
constexpr int kMostSectors = 360;
constexpr int kLargestSliderSize = 90; ///< degrees; the few larger sizes are typed

constexpr ControlText kKinds[] = {
    {"Frequency - Azimuth", "Length of a sector: how many data lie in it"},
    {"Value - Azimuth", "Length of a sector: the sum of the appended numbers in it"},
    {"Mean Value - Azimuth", "Length of a sector: the mean of the appended numbers in it"},
    {"Value variance - Azimuth",
     "Length of a sector: the standard deviation of the appended numbers in it"},
    {"Mean wind speed - Azimuth", "Length of a sector: the sum of the wind speeds in it"},
    {"\"Wind energy (speed^3) x frequency ",
     "Length of a sector: the cube of the wind speed times the frequency"},
    {"Overlaid wind rose", "Wind energy over wind speed over wind frequency"},
    {"Overlaid Value - Frequency plot", "Sums of the appended numbers over frequencies"},
    {" Overlaid Cum. Value - Mean Value", "Sums of the appended numbers over their means"},
};

constexpr ControlText kClassifications[] = {
    {"No classification", "Sectors are not divided"},
    {"by length range", "Rose sectors, classed by \"length\" ranges"},
    {"by type", "Rose sectors, classed by \"type\" ranges"},
};

constexpr ControlText kShapes[] = {
    {"Full Circle", "The whole rose"},
    {"N half-circle", "The northern half of the rose"},
    {"E half-circle", "The eastern half of the rose"},
    {"S half-circle", "The southern half of the rose"},
    {"W half-circle", "The western half of the rose"},
};

constexpr const char* kStyleTip =
    "Sectors are always drawn as wedges; this choice is only kept with the plot";

constexpr ControlText kStyles[] = {
    {"Linear histogram", kStyleTip},
    {"Flight diagram", kStyleTip},
    {"Rose diagram", kStyleTip},
    {"Circular histogram", kStyleTip},
};

constexpr ControlText kSegments[] = {
    {"Simple division", "Use simple sector patterned divisions for classes"},
    {"Stepped width", "Use discrete increasing sector widths for classes"},
};

constexpr ControlText kScales[] = {
    {"Circles", "Use concentric circles for scale"},
    {"Tick marks", "Use tick marks along axis for scale"},
};

constexpr ControlText kBiasModes[] = {
    {"None", "Each datum counts once"},
    {"3-D angle", "Weights by the angle in space between structure and sampling line"},
    {"Strike/trend", "Weights by the angle between strike or trend and the trend of the line"},
    {"Dip only", "Makes no correction: every datum counts once"},
};

struct BiasBoxText {
    const char* label;
    const char* accessibleName;
    const char* tip;
};

constexpr BiasBoxText kBiasBoxes[] = {
    {"&Plunge", "Plunge of the sampling line", "Plunge of the sampling line, 0 to 90 degrees"},
    {"T&rend", "Trend of the sampling line", "Trend of the sampling line, 0 to 360 degrees"},
    {"&Min. angle used", "Minimum angle used",
     "Smaller angles to the sampling line count as this one, 1 to 90 degrees"},
};

/// The numbers of sectors whose size is a whole number of degrees.
constexpr int kSectorNumbers[] = {4,  6,  8,  9,  10, 12, 15, 18,  20, 24,
                                  30, 36, 40, 45, 60, 72, 90, 120, 180};

constexpr const char* kIntervals[] = {"auto", "1", "2", "3", "5", "10", "20"};

/// Fills a column of options into a box.
template <std::size_t N>
void MakeOptions(QGroupBox* box, const char* name, const ControlText (&texts)[N],
                 std::array<QRadioButton*, N>& options) {
    auto* layout = new QVBoxLayout(box);
    auto* group = new QButtonGroup(box);
    for (std::size_t i = 0; i < N; ++i) {
        options[i] = new QRadioButton(texts[i].caption);
        options[i]->setObjectName(Numbered(name, i));
        options[i]->setAccessibleName(QString(texts[i].caption).remove('"').trimmed());
        options[i]->setToolTip(texts[i].tip);
        group->addButton(options[i], static_cast<int>(i));
        layout->addWidget(options[i]);
    }
    layout->addStretch(1);
}

QLineEdit* MakeNumberBox(const QString& name, const QString& tip, const QString& accessibleName) {
    auto* box = new QLineEdit;
    box->setObjectName(name);
    box->setToolTip(tip);
    box->setAccessibleName(accessibleName);
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(kNumberBoxWidth);
    return box;
}

struct SliderRange {
    int least;
    int most;
    int page;
};

QSlider* MakeSlider(const char* name, const QString& tip, const QString& accessibleName,
                    SliderRange range) {
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setObjectName(name);
    slider->setToolTip(tip);
    slider->setAccessibleName(accessibleName);
    slider->setRange(range.least, range.most);
    slider->setPageStep(range.page);
    slider->setMinimumWidth(kShortestSlider);
    return slider;
}

/// A box with its slider and unit in one frame.
QGroupBox* MakeTiedBox(const char* name, const QString& title, QLineEdit* box, const char* unit,
                       QSlider* slider) {
    auto* frame = MakeGroup(name, title);
    auto* layout = new QHBoxLayout(frame);
    layout->addWidget(box);
    layout->addWidget(MakeLabel(unit));
    layout->addWidget(slider, 1);
    return frame;
}

} // namespace

void frmRoseDiag::MakePages() {
    tabRose = new QTabWidget;
    tabRose->setObjectName("tabRose");
    constexpr const char* kTitles[] = {"&Type", "&Sectors", "St&yle", "&Bias", "&Classes"};
    tabFrameRose = {MakeTypePage(), MakeSectorPage(), MakeStylePage(), MakeBiasPage(),
                    MakeClassPage()};
    for (std::size_t page = 0; page < tabFrameRose.size(); ++page) {
        tabFrameRose[page]->setObjectName(Numbered("tabFrameRose", page));
        tabRose->addTab(tabFrameRose[page], kTitles[page]);
    }
    lblRoseStatus = MakeLabel({}, "lblRoseStatus");
    lblRoseStatus->setWordWrap(true);
    // Space for two lines, so that the dialog keeps its size if a reason is long.
    lblRoseStatus->setMinimumHeight(2 * fontMetrics().lineSpacing());
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabRose, 1);
    layout->addWidget(lblRoseStatus);
    layout->addWidget(MakeButtonLine());
    cmdRoseGo->setDefault(true);
}

QWidget* frmRoseDiag::MakeTypePage() {
    auto* kinds = MakeGroup("fraRoseType", "&Kind of rose");
    MakeOptions(kinds, "optRoseType", kKinds, optRoseType);
    auto* classes = MakeGroup("fraRoseClassif", "Cl&assification of sectors");
    MakeOptions(classes, "optRoseClassif", kClassifications, optRoseClassif);
    auto* shapes = MakeGroup("fraRoseOptions", "S&hape");
    MakeOptions(shapes, "optRoseOptions", kShapes, optRoseOptions);
    auto* page = new QWidget;
    auto* layout = new QGridLayout(page);
    layout->addWidget(kinds, 0, 0, 2, 1);
    layout->addWidget(classes, 0, 1);
    layout->addWidget(shapes, 1, 1);
    layout->setColumnStretch(0, 3);
    layout->setColumnStretch(1, 2);
    layout->setRowStretch(2, 1);
    return page;
}

QGroupBox* frmRoseDiag::MakeSizeBox() {
    cboNumSectors = new QComboBox;
    cboNumSectors->setObjectName("cboNumSectors");
    cboNumSectors->setEditable(true);
    cboNumSectors->setInsertPolicy(QComboBox::NoInsert);
    cboNumSectors->setCompleter(nullptr); // 7 must not become 72
    cboNumSectors->setValidator(new QIntValidator(1, kMostSectors, cboNumSectors));
    cboNumSectors->setToolTip("Select  or enter no of sectors");
    cboNumSectors->setAccessibleName("Number of sectors");
    for (const int number : kSectorNumbers) {
        cboNumSectors->addItem(QString::number(number));
    }
    txtRoseSectSize = MakeNumberBox("txtRoseSectSize", "Enter sector angular width in degrees",
                                    "Sector size in degrees");
    sldRoseSectSize = MakeSlider("sldRoseSectSize", "Set sector angular width in degrees",
                                 "Sector size", {1, kLargestSliderSize, 5});
    lblCheckSectorSize = MakeLabel("Check size matches input", "lblCheckSectorSize");
    QFont bold = lblCheckSectorSize->font();
    bold.setBold(true);
    lblCheckSectorSize->setFont(bold);
    lblCheckSectorSize->setToolTip("This size does not divide the circle into equal sectors: the "
                                   "last one will be smaller");
    auto* box = MakeGroup("fraRoseSectSize", "Sector size");
    auto* layout = new QGridLayout(box);
    layout->addWidget(MakeLabel("&Number:", "lblNumSectors", cboNumSectors), 0, 0);
    layout->addWidget(cboNumSectors, 0, 1);
    layout->addWidget(lblCheckSectorSize, 0, 3);
    layout->addWidget(MakeLabel("S&ize:", "lblRoseSectSize", txtRoseSectSize), 1, 0);
    layout->addWidget(txtRoseSectSize, 1, 1);
    layout->addWidget(MakeLabel("\u00b0"), 1, 2);
    layout->addWidget(sldRoseSectSize, 1, 3);
    layout->setColumnStretch(3, 1);
    return box;
}

QGroupBox* frmRoseDiag::MakeStartBox() {
    txtRoseStartAz =
        MakeNumberBox("txtRoseStartAz", "Enter the starting azimuth for defining the sectors",
                      "Starting azimuth in degrees");
    sldRoseStartAz = MakeSlider("sldRoseStartAz", "Set azimuth of start of first sector",
                                "Starting azimuth", {0, 360, 10});
    return MakeTiedBox("fraRoseStartAz", "Start a&zimuth", txtRoseStartAz, "\u00b0",
                       sldRoseStartAz);
}

QWidget* frmRoseDiag::MakeSectorPage() {
    const QString widthTip = "Set the %age width of the histogram sectors";
    txtSectorWidth = MakeNumberBox("txtSectorWidth", widthTip, "Sector width in per cent");
    sldrSectorWidth = MakeSlider("sldrSectorWidth", widthTip, "Sector width", {1, 100, 10});
    const QString zeroTip = "Set the %age width of the central blank zero area of the plot";
    txtZeroCircle = MakeNumberBox("txtZeroCircle", zeroTip, "Zero-circle size in per cent");
    sldrZeroCircle = MakeSlider("sldrZeroCircle", zeroTip, "Zero-circle size", {0, 90, 10});
    chkRoseWeight = new QCheckBox("Area-&weighted");
    chkRoseWeight->setObjectName("chkRoseWeight");
    chkRoseWeight->setToolTip("Sector lengths have equal area weighting (not advisable!)");
    chkRoseWeight->setAccessibleName("Area-weighted sector lengths");
    auto* weight = new QHBoxLayout;
    weight->setSpacing(0);
    weight->addWidget(chkRoseWeight);
    weight->addWidget(MakeLabel(" sector lengths", "lblRoseWeight"));
    weight->addStretch(1);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(MakeSizeBox());
    layout->addWidget(MakeStartBox());
    layout->addWidget(
        MakeTiedBox("fraSectorWidth", "% sector wi&dth", txtSectorWidth, "%", sldrSectorWidth));
    layout->addWidget(
        MakeTiedBox("fraZeroCircle", "Zero-circle siz&e", txtZeroCircle, "%", sldrZeroCircle));
    layout->addLayout(weight);
    layout->addStretch(1);
    return page;
}

QGroupBox* frmRoseDiag::MakeScaleBox() {
    auto* box = MakeGroup("fraScale", "Sc&ale");
    MakeOptions(box, "optScale", kScales, optScale);
    cboScaleInt = new QComboBox;
    cboScaleInt->setObjectName("cboScaleInt");
    cboScaleInt->setEditable(true);
    cboScaleInt->setInsertPolicy(QComboBox::NoInsert);
    cboScaleInt->setCompleter(nullptr);
    for (const char* interval : kIntervals) {
        cboScaleInt->addItem(interval);
    }
    cboScaleInt->lineEdit()->setMaxLength(kIntervalLength);
    cboScaleInt->setToolTip("Pick or enter scale interval (no more than 4 characters)");
    cboScaleInt->setAccessibleName("Scale interval in per cent");
    auto* interval = new QHBoxLayout;
    interval->addWidget(MakeLabel("&Interval:", "lblScaleInt", cboScaleInt));
    interval->addWidget(cboScaleInt);
    interval->addWidget(MakeLabel("%"));
    interval->addStretch(1);
    chkRoseOuterCircle = new QCheckBox("Show &outer circle");
    chkRoseOuterCircle->setObjectName("chkRoseOuterCircle");
    chkRoseOuterCircle->setToolTip("Flags whether a circle will be drawn around rose plot");
    auto* layout = static_cast<QVBoxLayout*>(box->layout());
    layout->insertLayout(2, interval);
    layout->insertWidget(3, chkRoseOuterCircle);
    return box;
}

QWidget* frmRoseDiag::MakeStylePage() {
    auto* segments = MakeGroup("fraSegShape", "Class segm&ents");
    MakeOptions(segments, "optSegShape", kSegments, optSegShape);
    auto* styles = MakeGroup("fraHistStyle", "Histogram style");
    MakeOptions(styles, "optHistStyle", kStyles, optHistStyle);
    for (QRadioButton* style : optHistStyle) {
        style->setEnabled(false);
    }
    auto* page = new QWidget;
    auto* layout = new QGridLayout(page);
    layout->addWidget(MakeScaleBox(), 0, 0);
    layout->addWidget(segments, 0, 1);
    layout->addWidget(styles, 1, 0, 1, 2);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(2, 1);
    return page;
}

QGroupBox* frmRoseDiag::MakeSampleLineBox() {
    for (std::size_t i = 0; i < txtBias.size(); ++i) {
        const BiasBoxText& text = kBiasBoxes[i];
        txtBias[i] = MakeNumberBox(Numbered("txtBias", i), text.tip, text.accessibleName);
        lblBias[i] = MakeLabel(text.label, Numbered("lblBias", i), txtBias[i]);
    }
    chkBiasAppended = new QCheckBox("&Use Appended");
    chkBiasAppended->setObjectName("chkBiasAppended");
    chkBiasAppended->setToolTip("The appended line of each row is its sampling line");
    lblBiasLine = MakeLabel("Line from file", "lblBiasLine");
    auto* box = MakeGroup("fraBiasLine", "Sampling line");
    auto* layout = new QGridLayout(box);
    layout->addWidget(lblBias[0], 0, 0);
    layout->addWidget(lblBias[1], 0, 1);
    layout->addWidget(txtBias[0], 1, 0);
    layout->addWidget(txtBias[1], 1, 1);
    layout->addWidget(MakeLabel("\u00b0"), 1, 2);
    layout->addWidget(lblBiasLine, 2, 0);
    layout->addWidget(chkBiasAppended, 2, 1, 1, 3);
    layout->addWidget(lblBias[2], 3, 0);
    layout->addWidget(txtBias[2], 3, 1);
    layout->addWidget(MakeLabel("\u00b0"), 3, 2);
    layout->setColumnStretch(3, 1);
    layout->setRowStretch(4, 1);
    return box;
}

QWidget* frmRoseDiag::MakeBiasPage() {
    fraBias = MakeGroup("fraBias", "Terzaghi bias correction");
    auto* modes = MakeGroup("fraBiasMode", "&Angle to the sampling line");
    MakeOptions(modes, "optBias", kBiasModes, optBias);
    auto* inside = new QHBoxLayout(fraBias);
    inside->addWidget(modes, 1);
    inside->addWidget(MakeSampleLineBox(), 1);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(fraBias);
    layout->addStretch(1);
    return page;
}

QWidget* frmRoseDiag::MakeClassPage() {
    classBoxes = new ClassBoxes(StyleKind::Fill);
    classBoxes->setObjectName("classBoxes");
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(classBoxes);
    layout->addStretch(1);
    return page;
}

QWidget* frmRoseDiag::MakeButtonLine() {
    cmdRoseGo = new QPushButton("&GO");
    cmdRoseGo->setObjectName("cmdRoseGo");
    cmdRoseGo->setToolTip("Plot rose using these settings");
    cmdRoseGo->setAccessibleDescription(cmdRoseGo->toolTip());
    cmdPreferences = new QPushButton("&Fill Preferences...");
    cmdPreferences->setObjectName("cmdPreferences");
    cmdClose = new QPushButton("C&lose");
    cmdClose->setObjectName("cmdClose");
    cmdClose->setToolTip("Closes the dialog; the plot stays as it is");
    auto* line = new QWidget;
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(cmdPreferences);
    layout->addStretch(1);
    layout->addWidget(cmdRoseGo);
    layout->addWidget(cmdClose);
    return line;
}

} // namespace quandrel
