// SPDX-License-Identifier: MIT

#include "shell/classes/frm_data_classification.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "shell/classes/class_boxes.h"
#include "shell/controls/control_kit.h"
#include "shell/controls/plain_tip.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <utility>

namespace quandrel {

namespace {

constexpr int kSymbolsTab = 0; ///< page of the preferences
constexpr int kColumnGap = 24;
constexpr int kFigureWidth = 84;
constexpr const char* kNoFigure = "\u2013";
constexpr const char* kNoBackground = "The minimum possible background value is not a number.";

constexpr std::array<const char*, 3> kKindCaptions = {"&None", "by numeri&c value",
                                                      "by alphanumeric &type"};

constexpr std::array<ControlText, 5> kPlotTypes = {{
    {"Classified &data points", "Each row has the symbol of its class"},
    {"&Gridded values", "The nodes of the density grid have the symbols of their values"},
    {"C&ontoured gridded values", "The values of the grid are contoured"},
    {"Contours &with grid points", "Contours, over the nodes in the symbols of their values"},
    {"Contours with data po&ints", "Contours, and each row in the symbol of its class"},
}};

constexpr std::array<ControlText, 2> kGridValues = {{
    {"Cumu&lative", "A node has the sum of the values around it"},
    {"M&ean", "A node has the mean of the values around it"},
}};

QString FigureText(std::optional<double> figure) {
    return figure ? QString::fromStdString(ShownNumber(*figure)) : QString(kNoFigure);
}

/// A tip, or the reason why the control is disabled.
void Enable(QWidget& control, bool isEnabled, const QString& tip, const QString& reason) {
    control.setEnabled(isEnabled);
    control.setToolTip(isEnabled ? tip : reason);
}

QLabel* MakeHeading(const char* text) {
    auto* heading = new QLabel(text);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    return heading;
}

} // namespace

frmDataClassification::frmDataClassification(QWidget* parent,
                                             std::function<void(int tab)> showPreferences)
    : QDialog(parent)
    , txtMinValue(new QLineEdit)
    , lblValues(new QLabel)
    , boxes(new ClassBoxes(StyleKind::Symbol))
    , OKButton(new QPushButton("OK"))
    , CancelButton(new QPushButton("Cancel"))
    , cmdApply(new QPushButton("&Apply"))
    , cmdPreferences(new QPushButton("Symbol P&references..."))
    , showPreferences_(std::move(showPreferences)) {
    setObjectName("frmDataClassification");
    setWindowTitle("Data Classification dialog");
    auto* left = new QVBoxLayout;
    left->addWidget(MakeKindBox());
    left->addWidget(MakePlotTypeBox());
    left->addWidget(MakeGridValuesBox());
    left->addWidget(MakeNullValueBox());
    left->addStretch(1);
    auto* classesBox = new QGroupBox("Classes");
    auto* classesLayout = new QVBoxLayout(classesBox);
    classesLayout->addWidget(boxes);
    auto* top = new QHBoxLayout;
    top->addLayout(left);
    top->addWidget(classesBox, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addWidget(MakeStatsBox());
    layout->addLayout(MakeButtons());
    OKButton->setDefault(true);
    Connect();
    FollowActivePlot();
    optDataClassif[static_cast<std::size_t>(boxes->Kind())]->setFocus();
}

void frmDataClassification::FollowActivePlot() {
    if (!IsOpenSlot(gActivePlot)) {
        return;
    }
    if (isVisible() && changed_ && slot_ == gActivePlot) {
        ShowStatistics();
        EnableClassOptions();
        return;
    }
    Load();
}

QGroupBox* frmDataClassification::MakeKindBox() {
    auto* box = new QGroupBox("Stereo Data Classification");
    auto* layout = new QVBoxLayout(box);
    for (std::size_t i = 0; i < optDataClassif.size(); ++i) {
        optDataClassif[i] = new QRadioButton(kKindCaptions[i]);
        optDataClassif[i]->setObjectName(Numbered("optDataClassif", i));
        layout->addWidget(optDataClassif[i]);
    }
    return box;
}

QGroupBox* frmDataClassification::MakePlotTypeBox() {
    auto* box = new QGroupBox("Numeric plot type");
    auto* layout = new QVBoxLayout(box);
    for (std::size_t i = 0; i < optClassifPlotType.size(); ++i) {
        optClassifPlotType[i] = new QRadioButton(kPlotTypes[i].caption);
        optClassifPlotType[i]->setObjectName(Numbered("optClassifPlotType", i));
        layout->addWidget(optClassifPlotType[i]);
    }
    return box;
}

QGroupBox* frmDataClassification::MakeGridValuesBox() {
    auto* box = new QGroupBox("Grid values used:");
    auto* layout = new QHBoxLayout(box);
    auto* oneOfThem = new QButtonGroup(this);
    for (std::size_t i = 0; i < chkGridValues.size(); ++i) {
        chkGridValues[i] = new QCheckBox(kGridValues[i].caption);
        chkGridValues[i]->setObjectName(Numbered("chkGridValues", i));
        oneOfThem->addButton(chkGridValues[i]);
        layout->addWidget(chkGridValues[i]);
    }
    layout->addStretch(1);
    return box;
}

QGroupBox* frmDataClassification::MakeNullValueBox() {
    auto* box = new QGroupBox("Null value setting");
    auto* layout = new QGridLayout(box);
    auto* label = new QLabel("Minimum possi&ble background value:");
    label->setBuddy(txtMinValue);
    txtMinValue->setObjectName("txtMinValue");
    txtMinValue->setAccessibleName("Minimum possible background value");
    txtMinValue->setMaxLength(30);
    txtMinValue->setFixedWidth(kFigureWidth);
    txtMinValue->setPlaceholderText("none");
    layout->addWidget(label, 0, 0, 1, 2);
    layout->addWidget(txtMinValue, 1, 0);
    layout->addWidget(new QLabel("(for contour plots)"), 1, 1);
    layout->setColumnStretch(1, 1);
    return box;
}

void frmDataClassification::AddFigure(QGridLayout& grid, std::size_t index, const char* caption,
                                      int line, int column) {
    grid.addWidget(new QLabel(caption), line, column);
    auto* figure = new QLabel;
    figure->setObjectName(Numbered("lblNumericStats", index));
    figure->setTextFormat(Qt::PlainText);
    figure->setTextInteractionFlags(Qt::TextSelectableByMouse);
    figure->setMinimumWidth(kFigureWidth);
    lblNumericStats[index] = figure;
    grid.addWidget(figure, line, column + 1);
}

QGroupBox* frmDataClassification::MakeStatsBox() {
    auto* box = new QGroupBox("Numeric data stats");
    auto* grid = new QGridLayout(box);
    constexpr int kRaw = 0;
    constexpr int kMeans = 5;
    constexpr int kSums = 8;
    grid->addWidget(MakeHeading("Raw Data:"), 0, kRaw, 1, 4);
    AddFigure(*grid, kStatsMinimum, "Minimum:", 1, kRaw);
    AddFigure(*grid, kStatsMaximum, "Maximum:", 2, kRaw);
    AddFigure(*grid, kStatsMean, "Mean:", 1, kRaw + 2);
    AddFigure(*grid, kStatsDeviation, "Std.Dev.:", 2, kRaw + 2);
    grid->addWidget(MakeHeading("Gridded data means:"), 0, kMeans, 1, 2);
    AddFigure(*grid, kStatsMeansMin, "Means Min:", 1, kMeans);
    AddFigure(*grid, kStatsMeansMax, "Means Max:", 2, kMeans);
    grid->addWidget(MakeHeading("Gridded cumulative data:"), 0, kSums, 1, 2);
    AddFigure(*grid, kStatsSumsMin, "Cumul.Min:", 1, kSums);
    AddFigure(*grid, kStatsSumsMax, "Cumul.Max:", 2, kSums);
    for (std::size_t i = kStatsMeansMin; i <= kStatsSumsMax; ++i) {
        lblNumericStats[i]->setToolTip("Known when gridded values have been plotted");
    }
    for (const int gap : {kMeans - 1, kSums - 1}) {
        grid->setColumnMinimumWidth(gap, kColumnGap);
        grid->setColumnStretch(gap, 1);
    }
    lblValues->setObjectName("lblValues");
    lblValues->setTextFormat(Qt::PlainText);
    grid->addWidget(lblValues, 3, 0, 1, kSums + 2);
    return box;
}

QHBoxLayout* frmDataClassification::MakeButtons() {
    OKButton->setObjectName("OKButton");
    CancelButton->setObjectName("CancelButton");
    cmdApply->setObjectName("cmdApply");
    cmdApply->setToolTip("Classifies the plot and stays open");
    cmdPreferences->setObjectName("cmdPreferences");
    const bool hasPreferences = static_cast<bool>(showPreferences_);
    Enable(*cmdPreferences, hasPreferences, "Symbols and colours of all kinds of plots",
           "There are no preferences yet: click the symbol of a class to change it");
    auto* line = new QHBoxLayout;
    line->addWidget(cmdPreferences);
    line->addStretch(1);
    for (QPushButton* button : {OKButton, CancelButton, cmdApply}) {
        line->addWidget(button);
    }
    return line;
}

void frmDataClassification::Connect() {
    const auto change = [this] { changed_ = true; };
    const auto choosePlotType = [this] {
        if (loading_) {
            return;
        }
        changed_ = true;
        const ClassSettings chosen = SettingsOfControls();
        boxes->ChoosePlotType(chosen.plotType, chosen.gridValue);
    };
    connect(boxes, &ClassBoxes::Changed, this, change);
    for (QCheckBox* box : chkGridValues) {
        connect(box, &QCheckBox::toggled, this, choosePlotType);
    }
    connect(txtMinValue, &QLineEdit::textEdited, this, change);
    for (std::size_t i = 0; i < optDataClassif.size(); ++i) {
        connect(optDataClassif[i], &QRadioButton::toggled, this, [this, i](bool isOn) {
            if (isOn) {
                changed_ = true;
                boxes->ChooseKind(static_cast<ClassKind>(i));
                EnableClassOptions();
            }
        });
    }
    for (QRadioButton* option : optClassifPlotType) {
        connect(option, &QRadioButton::toggled, this, [this, choosePlotType] {
            choosePlotType();
            EnableClassOptions();
        });
    }
    connect(OKButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmdApply, &QPushButton::clicked, this, &frmDataClassification::Apply);
    connect(cmdPreferences, &QPushButton::clicked, this, &frmDataClassification::OpenPreferences);
}

void frmDataClassification::Load() {
    const QScopedValueRollback loading(loading_, true);
    slot_ = gActivePlot;
    const ClassSettings settings = SettingsOfActivePlot();
    boxes->Load(settings, StylesOfClasses(kFirstClassStyle));
    optDataClassif[static_cast<std::size_t>(boxes->Kind())]->setChecked(true);
    const auto plotType = static_cast<std::size_t>(settings.plotType);
    optClassifPlotType[plotType < optClassifPlotType.size() ? plotType : 0]->setChecked(true);
    chkGridValues[settings.gridValue == ClassGridValue::Cumulative ? 0 : 1]->setChecked(true);
    background_ = settings.background;
    shownBackground_ = background_ ? QString::fromStdString(ShownNumber(*background_)) : QString();
    txtMinValue->setText(shownBackground_);
    ShowStatistics();
    EnableClassOptions();
    changed_ = false;
}

void frmDataClassification::ShowStatistics() {
    const ClassFigures figures = FiguresOfActivePlot();
    const auto show = [this](std::size_t index, std::optional<double> figure) {
        lblNumericStats[index]->setText(FigureText(figure));
    };
    const auto& numbers = figures.column.numbers;
    show(kStatsMinimum, numbers ? std::optional(numbers->least) : std::nullopt);
    show(kStatsMaximum, numbers ? std::optional(numbers->greatest) : std::nullopt);
    show(kStatsMean, numbers ? std::optional(numbers->mean) : std::nullopt);
    show(kStatsDeviation, numbers ? std::optional(numbers->standardDeviation) : std::nullopt);
    const auto showRange = [&show](std::size_t index, const std::optional<ValueRange>& range) {
        show(index, range ? std::optional(range->least) : std::nullopt);
        show(index + 1, range ? std::optional(range->greatest) : std::nullopt);
    };
    showRange(kStatsMeansMin, figures.means);
    showRange(kStatsSumsMin, figures.sums);
    lblValues->setText(QString("%1 of %2 rows have a number, %3 different ones; %4 different types")
                           .arg(figures.column.valid)
                           .arg(ActiveRecord().NumValidData)
                           .arg(figures.column.distinct)
                           .arg(figures.types));
}

ClassSettings frmDataClassification::SettingsOfControls() const {
    ClassSettings settings = boxes->Settings();
    for (std::size_t i = 0; i < optClassifPlotType.size(); ++i) {
        if (optClassifPlotType[i]->isChecked()) {
            settings.plotType = static_cast<std::int16_t>(i);
        }
    }
    settings.gridValue =
        chkGridValues[0]->isChecked() ? ClassGridValue::Cumulative : ClassGridValue::Mean;
    return settings;
}

void frmDataClassification::EnableClassOptions() {
    const PlotRecord& record = ActiveRecord();
    const ClassChoices choices = ChoicesOf(SettingsOfControls(), record);
    const QString byNumber = "Classes of " + QString::fromStdString(record.AppNumName);
    const QString byType = "Classes of " + QString::fromStdString(record.AppNonNumName);
    optDataClassif[0]->setToolTip("Rows have the symbols that they were loaded with");
    Enable(*optDataClassif[1], choices.byNumber, PlainTip(byNumber),
           "The data have no appended numbers");
    Enable(*optDataClassif[2], choices.byType, PlainTip(byType), "The data have no appended texts");
    for (std::size_t i = 0; i < optClassifPlotType.size(); ++i) {
        Enable(*optClassifPlotType[i], choices.plotType, kPlotTypes[i].tip,
               "For a classification by numeric value");
    }
    for (std::size_t i = 0; i < chkGridValues.size(); ++i) {
        Enable(*chkGridValues[i], choices.gridValues, kGridValues[i].tip,
               "For plots of gridded values and contours");
    }
    Enable(*txtMinValue, choices.background,
           "Set the value for background null values for contoured numeric values",
           "For plots of contours");
}

bool frmDataClassification::ReadBackground(ClassSettings& settings) {
    const QString text = txtMinValue->text().trimmed();
    settings.background =
        LimitOfBox(text.toStdString(), shownBackground_.toStdString(), background_.value_or(0));
    if (text.isEmpty()) {
        settings.background.reset();
    }
    return settings.background || text.isEmpty();
}

bool frmDataClassification::Apply() {
    if (slot_ != gActivePlot || !IsOpenSlot(gActivePlot)) {
        return false; // there is no plot to apply it to
    }
    ClassSettings settings = SettingsOfControls();
    if (const std::string fault = boxes->GoToFault(); !fault.empty()) {
        Tell(fault);
        return false;
    }
    if (!ReadBackground(settings)) {
        if (txtMinValue->isEnabled()) {
            txtMinValue->setFocus();
            txtMinValue->selectAll();
            Tell(kNoBackground);
            return false;
        }
        settings.background = background_;
    }
    if (const std::string refusal = ApplyClasses(settings, boxes->Styles()); !refusal.empty()) {
        Tell(refusal);
        return false;
    }
    Load();
    return true;
}

void frmDataClassification::accept() {
    if (Apply()) {
        QDialog::accept();
    }
}

void frmDataClassification::OpenPreferences() {
    const ClassStyles before = StylesOfClasses(kFirstClassStyle);
    showPreferences_(kSymbolsTab);
    const ClassStyles after = StylesOfClasses(kFirstClassStyle);
    ClassStyles edited = boxes->Styles();
    for (std::size_t i = 0; i < edited.size(); ++i) {
        edited[i] = after[i] != before[i] ? after[i] : edited[i];
    }
    boxes->SetStyles(edited);
}

} // namespace quandrel
