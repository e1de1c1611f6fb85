// SPDX-License-Identifier: MIT

#include "shell/dialogs/frm_statistical_tests.h"

#include "core/plot_store.h"
#include "core/settings_value.h"
#include "hypotheses/draw_quantiles.h"
#include "platform/platform.h"
#include "qt/picture_file.h"
#include "qt/quantile_picture.h"
#include "shell/controls/control_kit.h"
#include "shell/controls/picture_box.h"
#include "shell/files/path_questions.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace quandrel {

namespace {

constexpr int kTriesStep = 1000;
constexpr int kTextWidth = 560;
constexpr int kTextLines = 12;
constexpr int kPictureHeight = 190;

constexpr const char* kTitle = "Statistical Tests";
constexpr const char* kHint = "Statistical tests: hypotheses about the rows of plots. Nothing in "
                              "the plots is changed";

QSpinBox* MakeNumber(const QString& name, const QString& text, int lowest, int highest) {
    auto* box = new QSpinBox;
    box->setObjectName(name);
    box->setAccessibleName(text);
    box->setToolTip(text);
    box->setRange(lowest, highest);
    box->setKeyboardTracking(false);
    return box;
}

/// The place of a set in a list, or -1.
int PlaceOf(const std::vector<RowSetEntry>& entries, const std::optional<RowSetPlace>& place) {
    const auto found = std::ranges::find_if(
        entries, [&place](const RowSetEntry& entry) { return entry.place == place; });
    return found == entries.end() ? -1 : static_cast<int>(found - entries.begin());
}

/// The entry that a list shows, or nothing.
std::optional<RowSetPlace> ChosenOf(const std::vector<RowSetEntry>& entries, int index) {
    const bool isThere = index >= 0 && index < static_cast<int>(entries.size());
    return isThere ? std::optional(entries[static_cast<std::size_t>(index)].place) : std::nullopt;
}

/// The list cannot make the dialog wider than its texts.
void KeepNarrow(QComboBox& list) {
    list.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list.setMinimumContentsLength(20);
}

} // namespace

frmStatisticalTests::frmStatisticalTests(QWidget* parent)
    : QDialog(parent, Qt::Tool) {
    setObjectName("frmStatisticalTests");
    setWindowTitle(kTitle);
    MakeControls();
    auto* below = new QHBoxLayout;
    below->addWidget(cmdSimulate);
    below->addStretch(1);
    below->addWidget(cmdExport);
    below->addWidget(cmdCopy);
    below->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(MakeRows());
    layout->addWidget(MakeResults(), 1);
    layout->addLayout(below);
    SetOrder();
    Connect();
    Refresh();
}

void frmStatisticalTests::MakeControls() {
    cboRows = MakeList("cboRows", "Rows that are tested");
    cboRows->setToolTip("The rows of the active plot that are tested");
    cboWith = MakeList("cboWith", "Rows to compare with");
    cboWith->setToolTip("Rows of the same kind, of this plot or another, to compare with");
    KeepNarrow(*cboRows);
    KeepNarrow(*cboWith);
    spnTries = MakeNumber("spnTries", "Number of tries of a simulation", kFewestTries, kMostTries);
    spnTries->setSingleStep(kTriesStep);
    spnTries->setValue(kUsualTries);
    spnSeed = MakeNumber("spnSeed", "Seed of the simulations: the same one gives the same results",
                         0, std::numeric_limits<std::int32_t>::max());
    spnSeed->setValue(kUsualSeed);
    cmdSimulate = MakeButton("cmdSimulate", "&Simulate",
                             "Finds the probabilities that need a simulation; Esc stops it");
    cmdExport = MakeButton("cmdExport", "E&xport Plots...",
                           "Writes the quantile plots to a picture: PNG, SVG, PDF or TIFF");
    cmdCopy = MakeButton("cmdCopy", "&Copy", "Copies the text to the clipboard");
    cmdClose = MakeButton("cmdClose", "Clos&e", "Closes the dialog");
}

QGroupBox* frmStatisticalTests::MakeRows() {
    auto* box = MakeGroup("fraRows", "Rows");
    auto* grid = new QGridLayout(box);
    grid->addWidget(MakeLabel("&Rows", {}, cboRows), 0, 0);
    grid->addWidget(cboRows, 0, 1);
    grid->addWidget(MakeLabel("Compare &with", {}, cboWith), 0, 2);
    grid->addWidget(cboWith, 0, 3);
    grid->addWidget(MakeLabel("&Tries", {}, spnTries), 1, 0);
    grid->addWidget(spnTries, 1, 1);
    grid->addWidget(MakeLabel("See&d", {}, spnSeed), 1, 2);
    grid->addWidget(spnSeed, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return box;
}

QGroupBox* frmStatisticalTests::MakeResults() {
    auto* box = MakeGroup("fraResults", "Results");
    txtResults = new QPlainTextEdit;
    txtResults->setObjectName("txtResults");
    txtResults->setAccessibleName("Results");
    txtResults->setReadOnly(true);
    txtResults->setTabChangesFocus(true);
    txtResults->setMinimumSize(kTextWidth, kTextLines * fontMetrics().lineSpacing());
    picQuantiles = new PictureBox(this);
    picQuantiles->setObjectName("picQuantiles");
    picQuantiles->setAccessibleName("Quantile plots");
    picQuantiles->setFixedHeight(kPictureHeight);
    picQuantiles->onStale = [this] { DrawPicture(); };
    auto* layout = new QVBoxLayout(box);
    layout->addWidget(txtResults, 1);
    layout->addWidget(picQuantiles);
    return box;
}

void frmStatisticalTests::SetOrder() {
    TabOrder order;
    order.Then(cboRows).Then(cboWith).Then(spnTries).Then(spnSeed).Then(txtResults);
    order.Then(cmdSimulate).Then(cmdExport).Then(cmdCopy).Then(cmdClose);
}

void frmStatisticalTests::Connect() {
    connect(cboRows, &QComboBox::activated, this, [this](int) {
        ShowOthers();
        Answer();
    });
    connect(cboWith, &QComboBox::activated, this, [this](int) { Answer(); });
    connect(spnTries, &QSpinBox::valueChanged, this, [this](int) { Answer(); });
    connect(spnSeed, &QSpinBox::valueChanged, this, [this](int) { Answer(); });
    connect(cmdSimulate, &QPushButton::clicked, this, [this] { Run(true); });
    connect(cmdExport, &QPushButton::clicked, this, [this] { ExportPicture(); });
    connect(cmdCopy, &QPushButton::clicked, this,
            [this] { gPlatform.clipboard->SetText(Text().toStdString()); });
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
}

void frmStatisticalTests::FollowActivePlot() {
    if (isVisible() && !isRunning_) {
        Refresh();
    }
}

void frmStatisticalTests::Refresh() {
    const bool hasPlot = IsOpenSlot(gActivePlot);
    setWindowTitle(hasPlot
                       ? QString(kTitle) + ": " + QString::fromStdString(ActiveRecord().PlotTitle)
                       : QString(kTitle));
    ShowSets();
    ShowOthers();
    Answer();
}

void frmStatisticalTests::ShowSets() {
    const std::optional<RowSetPlace> chosen = ChosenOf(sets_, cboRows->currentIndex());
    sets_ = SetsToTest(gActivePlot);
    const QSignalBlocker blocked(cboRows);
    cboRows->clear();
    for (const RowSetEntry& entry : sets_) {
        cboRows->addItem(QString::fromStdString(entry.name));
    }
    cboRows->setCurrentIndex(sets_.empty() ? -1 : std::max(PlaceOf(sets_, chosen), 0));
    cboRows->setEnabled(!sets_.empty());
}

void frmStatisticalTests::ShowOthers() {
    const std::optional<RowSetPlace> chosen = ChosenOf(others_, cboWith->currentIndex() - 1);
    const std::optional<RowSetPlace> rows = ChosenOf(sets_, cboRows->currentIndex());
    others_ = rows ? SetsToCompare(*rows) : std::vector<RowSetEntry>();
    const QSignalBlocker blocked(cboWith);
    cboWith->clear();
    cboWith->addItem("none");
    for (const RowSetEntry& entry : others_) {
        cboWith->addItem(QString::fromStdString(entry.name));
    }
    cboWith->setCurrentIndex(PlaceOf(others_, chosen) + 1);
    cboWith->setEnabled(!others_.empty());
}

TestQuestion frmStatisticalTests::Question() const {
    return {ChosenOf(sets_, cboRows->currentIndex()).value_or(RowSetPlace()),
            ChosenOf(others_, cboWith->currentIndex() - 1)};
}

/// Tests the chosen rows, unless the tests shown are theirs.
void frmStatisticalTests::Answer() {
    if (isRunning_) {
        return;
    }
    std::optional<TestRows> rows = RowsOf(Question());
    const bool isSameChoice =
        choice_.tries == spnTries->value() && choice_.seed == spnSeed->value();
    if (rows && rows_ && isSameChoice && AreSame(*rows, *rows_)) {
        return;
    }
    rows_ = std::move(rows);
    tests_ = {};
    if (rows_) {
        Run(AreQuick(rows_->Count(), spnTries->value()));
    } else {
        ShowAnswer();
    }
}

void frmStatisticalTests::Run(bool simulates) {
    if (isRunning_ || !rows_) {
        return;
    }
    isRunning_ = true;
    choice_ = {spnTries->value(), spnSeed->value(), simulates, gPlatform.status};
    {
        const BusyPointer busy(*gPlatform.status);
        tests_ = TestsOf(*rows_, choice_);
    }
    isRunning_ = false;
    ShowAnswer();
}

QString frmStatisticalTests::Text() const {
    return rows_ ? QString::fromStdString(TextOfTests(*rows_, tests_, choice_))
                 : QString("There is no plot.");
}

void frmStatisticalTests::ShowAnswer() {
    if (txtResults->toPlainText() != Text()) {
        txtResults->setPlainText(Text());
    }
    cmdSimulate->setEnabled(rows_ && IsUnfinished(tests_));
    cmdCopy->setEnabled(rows_.has_value());
    const bool hasPicture = !tests_.quantiles.empty();
    cmdExport->setEnabled(hasPicture);
    picQuantiles->setVisible(hasPicture);
    DrawPicture();
}

void frmStatisticalTests::DrawPicture() {
    if (tests_.quantiles.empty() || picQuantiles->PictureSize().isEmpty()) {
        return;
    }
    Surface& surface = picQuantiles->Picture();
    surface.Clear(kWhite);
    DrawQuantiles(surface, tests_.quantiles);
    picQuantiles->update();
}

void frmStatisticalTests::ExportPicture() {
    const std::optional<std::string> path =
        AskPathOfPicture("Export Quantile Plots", "quantiles.png");
    if (!path) {
        return;
    }
    const std::string error = SaveQuantilePicture(*path, rows_->rows.name, tests_.quantiles);
    if (error.empty()) {
        gPlatform.status->SetText("The picture is " + *path);
    } else {
        static_cast<void>(gPlatform.prompts->Ask({gCaption, error, Icon::Stop, Buttons::Ok}));
    }
}

void frmStatisticalTests::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        gPlatform.status->SetText(kHint);
        Refresh();
    }
    QDialog::showEvent(event);
}

void frmStatisticalTests::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) {
        gPlatform.status->SetText({});
    }
    QDialog::hideEvent(event);
}

} // namespace quandrel
