// SPDX-License-Identifier: MIT
//
// The controls of the data format dialog and their layout.

#include "shell/controls/control_kit.h"
#include "shell/controls/picture_box.h"
#include "shell/controls/text_boxes.h"
#include "shell/format/format_grid.h"
#include "shell/format/frm_file_format.h"
#include "shell/format/sample_net.h"
#include "shell/format/suggestion_line.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace quandrel {

namespace {

constexpr int kLongestName = 254;
constexpr int kSymbolBoxSize = 40;
constexpr int kArrowRoom = 26;     ///< of a list, and of its frame
constexpr int kNameArrowRoom = 30; ///< of a list that is typed into

constexpr ControlText kPrimaryOptions[] = {
    {"Directions", "A line of the file holds an azimuth alone"},
    {"Plane", "A line of the file holds a dip and a dip direction or strike"},
    {"Line", "A line of the file holds a plunge and a trend"},
};

constexpr ControlText kSecondaryOptions[] = {
    {"None", "The lines of the file hold one orientation"},
    {"Line", "A second pair of columns holds plunge and trend of a line"},
    {"Plane", "A second pair of columns holds a plane"},
    {"Line Pitch in Primary Plane",
     "A column holds the angle of a line from the strike, within the primary plane"},
    {"Line Trend in Primary Plane",
     "A column holds the trend of a line that lies in the primary plane"},
    {"Line as 360\u00b0 Hade in Prim.Plane",
     "A column holds the angle of a line within the primary plane, counted from the strike "
     "through a full turn"},
};

constexpr ControlText kAppendedOptions[] = {
    {"Line (fold axis, sample line, etc", "Two further columns hold a line that goes with the row"},
    {"Numeric value", "A further column holds a number that goes with the row"},
    {"Alphanumeric", "A further column holds a text that goes with the row"},
};

constexpr ControlText kKinds[] = {
    {"&Planes", "Planes are plotted by their poles, with great circles"},
    {"&Lines", "Lines are plotted where they pierce the lower hemisphere, upward or not"},
    {"P&olar Lines", "Lines keep their sense: upward ones have a symbol of their own"},
};

/// Shows the heading of a column after its number, in the list only: the box is too narrow.
class ColumnDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const QString heading = index.data(Qt::UserRole).toString();
        if (!heading.isEmpty()) {
            option->text += "  " + heading;
        }
    }
};

/// Shows a list as a selector of columns, with its label.
void ShowAsSelector(QLabel& label, QComboBox& list) {
    label.setMargin(3);
    label.setAlignment(Qt::AlignCenter);
    label.setBuddy(&list);
    list.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list.setMinimumContentsLength(2);
    // Space for a number and the arrow, without space for an icon.
    list.setMinimumWidth(list.fontMetrics().horizontalAdvance("000") + kArrowRoom);
    list.setItemDelegate(new ColumnDelegate(&list));
}

/// Adds a name to a list that shows all its names in full.
void AddName(QComboBox& list, const char* name) {
    list.addItem(name);
    const int width = list.fontMetrics().horizontalAdvance(name) + kNameArrowRoom;
    list.setMinimumWidth(std::max(list.minimumWidth(), width));
}

} // namespace

void frmFileFormat::MakePages() {
    tabConventions = new QTabWidget;
    tabConventions->setObjectName("tabConventions");
    tabConventions->addTab(MakeColumnsPage(), "&Columns");
    tabConventions->addTab(MakeConventionsPage(), "Con&ventions");
    netSample = new SampleNet(this);
    auto* side = new QVBoxLayout;
    side->addWidget(MakePlotBox());
    side->addWidget(MakeSymbolBox());
    side->addWidget(netSample, 1);
    grdDataFormat = new FormatGrid(this);
    grdDataFormat->setObjectName("grdDataFormat");
    grdDataFormat->setAccessibleName("First lines of the file");
    fraSuggestion = new SuggestionLine(this);
    auto* top = new QGridLayout;
    constexpr int kTopRows = 4;
    top->addWidget(tabConventions, 0, 0);
    top->addWidget(MakeFileLine(), 1, 0);
    top->addWidget(MakeMismatchLine(), 2, 0);
    top->addWidget(lblPreview, kTopRows - 1, 0);
    top->addLayout(side, 0, 1, kTopRows, 1);
    top->setColumnStretch(0, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(fraSuggestion);
    layout->addLayout(top);
    layout->addWidget(grdDataFormat, 1);
    layout->addWidget(MakeButtonLine());
    cmdButtons[0]->setDefault(true);
}

void frmFileFormat::AddSelector(QGroupBox* box, int slot) {
    const auto index = static_cast<std::size_t>(slot);
    lblColumns[index] = MakeLabel({}, Numbered("lblColumns", slot));
    cboColumns[index] = MakeList(Numbered("cboColumns", slot), {});
    cboColumns[index]->setToolTip("The column of the file that holds this item");
    ShowAsSelector(*lblColumns[index], *cboColumns[index]);
    auto* grid = box->findChild<QGridLayout*>("layColumns");
    const int column = grid->count() / 2;
    grid->addWidget(lblColumns[index], 0, column);
    grid->addWidget(cboColumns[index], 1, column);
    grid->setColumnStretch(column, 1);
}

void frmFileFormat::AddPlaceSelectors(QVBoxLayout* layout) {
    auto* line = new QHBoxLayout;
    constexpr std::array<const char*, 2> kNames = {"map x", "map y"};
    constexpr std::array<const char*, 2> kWords = {"easting or longitude", "northing or latitude"};
    for (std::size_t i = 0; i < cboPlace.size(); ++i) {
        cboPlace[i] = MakeList(Numbered("cboPlace", static_cast<int>(i)), {});
        cboPlace[i]->setToolTip(
            QString("The column of the %1 of each row, which is kept with it").arg(kWords[i]));
        cboPlace[i]->setAccessibleName(QString("Column of ") + kNames[i]);
        auto* label = MakeLabel(kNames[i], Numbered("lblPlace", static_cast<int>(i)));
        ShowAsSelector(*label, *cboPlace[i]);
        line->addWidget(label);
        line->addWidget(cboPlace[i]);
    }
    line->addStretch(1);
    layout->addLayout(line);
}

QWidget* frmFileFormat::MakeColumnsPage() {
    auto* boxes = new QHBoxLayout;
    boxes->addWidget(MakePrimaryBox(), 3);
    boxes->addWidget(MakeSecondaryBox(), 4);
    boxes->addWidget(MakeAppendedBox(), 4);
    chkSaveSettings[0] = new QCheckBox("Save colu&mn settings");
    chkSaveSettings[0]->setObjectName("chkSaveSettings_0");
    chkSaveSettings[0]->setToolTip("On OK the columns are kept for the next start of the program");
    chkSaveSettings[2] = new QCheckBox("Save &name settings");
    chkSaveSettings[2]->setObjectName("chkSaveSettings_2");
    chkSaveSettings[2]->setToolTip(
        "On OK the names of number and text are kept for the next start of the program");
    cmdUseSaved = new QPushButton("Use sav&ed column settings");
    cmdUseSaved->setObjectName("cmdUseSaved");
    cmdInitialColumns = new QPushButton("Columns in o&rder");
    cmdInitialColumns->setObjectName("cmdInitialColumns");
    cmdInitialColumns->setToolTip("Takes the items from the first column on, in the order of the "
                                  "format and the conventions");
    auto* saves = new QHBoxLayout;
    saves->addWidget(cmdInitialColumns);
    saves->addWidget(cmdUseSaved);
    saves->addStretch(1);
    saves->addWidget(chkSaveSettings[0]);
    saves->addSpacing(12);
    saves->addWidget(chkSaveSettings[2]);
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(boxes, 1);
    layout->addLayout(saves);
    return page;
}

QGroupBox* frmFileFormat::MakePrimaryBox() {
    auto* box = MakeGroup("fraPrimary", "Pr&imary data");
    auto* layout = new QVBoxLayout(box);
    auto* group = new QButtonGroup(box);
    for (int code = kDirections; code <= kPrimaryLine; ++code) {
        auto* option =
            MakeOption(Numbered("optPrimary", code), kPrimaryOptions[code - 1], group, code);
        optPrimary[static_cast<std::size_t>(code)] = option;
        layout->addWidget(option);
    }
    layout->addStretch(1);
    auto* grid = new QGridLayout;
    grid->setObjectName("layColumns");
    layout->addLayout(grid);
    for (const int slot : {kSlotDip, kSlotDirection, kSlotSense}) {
        AddSelector(box, slot);
    }
    return box;
}

QGroupBox* frmFileFormat::MakeSecondaryBox() {
    auto* box = MakeGroup("fraSecondary", "&Secondary data");
    auto* layout = new QVBoxLayout(box);
    auto* group = new QButtonGroup(box);
    for (std::size_t i = 0; i < optSecondary.size(); ++i) {
        optSecondary[i] = MakeOption(Numbered("optSecondary", static_cast<int>(i)),
                                     kSecondaryOptions[i], group, static_cast<int>(i));
        layout->addWidget(optSecondary[i]);
    }
    layout->addStretch(1);
    lblOtherData[0] = MakeLabel("No Secondary data", "lblOtherData_0");
    KeepRoomWhenHidden(*lblOtherData[0]);
    layout->addWidget(lblOtherData[0]);
    auto* grid = new QGridLayout;
    grid->setObjectName("layColumns");
    layout->addLayout(grid);
    for (const int slot : {kSlotSecondaryDip, kSlotSecondaryDirection, kSlotSecondarySense}) {
        AddSelector(box, slot);
    }
    return box;
}

void frmFileFormat::MakeAppendedChoices() {
    for (std::size_t i = 0; i < chkAppended.size(); ++i) {
        chkAppended[i] = new QCheckBox(kAppendedOptions[i].caption);
        chkAppended[i]->setObjectName(Numbered("chkAppended", static_cast<int>(i)));
        chkAppended[i]->setToolTip(kAppendedOptions[i].tip);
    }
    for (std::size_t i = 0; i < cboAppName.size(); ++i) {
        const char* name = i == 0 ? "Name of the numeric value" : "Name of the text";
        cboAppName[i] = MakeList(Numbered("cboAppName", static_cast<int>(i)), name);
        cboAppName[i]->setToolTip(name);
        MakeEditable(*cboAppName[i]);
        cboAppName[i]->setInsertPolicy(QComboBox::NoInsert);
        cboAppName[i]->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        cboAppName[i]->lineEdit()->setMaxLength(kLongestName);
    }
    for (const char* name : kNumberNames) {
        AddName(*cboAppName[0], name);
    }
    for (const char* name : kTextNames) {
        AddName(*cboAppName[1], name);
    }
    chkFreqIsAppended = new QCheckBox("Numeric value is frequency of\nassociated direction");
    chkFreqIsAppended->setObjectName("chkFreqIsAppended");
    chkFreqIsAppended->setToolTip("A row counts as often as its number says");
}

QGroupBox* frmFileFormat::MakeAppendedBox() {
    auto* box = MakeGroup("fraAppended", "&Appended data");
    auto* layout = new QVBoxLayout(box);
    MakeAppendedChoices();
    layout->addWidget(chkAppended[0]);
    auto* names = new QGridLayout;
    names->addWidget(chkAppended[1], 0, 0);
    names->addWidget(cboAppName[0], 0, 1);
    names->addWidget(chkAppended[2], 1, 0);
    names->addWidget(cboAppName[1], 1, 1);
    names->setColumnStretch(1, 1);
    layout->addLayout(names);
    layout->addWidget(chkFreqIsAppended);
    AddPlaceSelectors(layout);
    layout->addStretch(1);
    lblOtherData[1] = MakeLabel("No Appended data", "lblOtherData_1");
    KeepRoomWhenHidden(*lblOtherData[1]);
    layout->addWidget(lblOtherData[1]);
    auto* grid = new QGridLayout;
    grid->setObjectName("layColumns");
    layout->addLayout(grid);
    for (const int slot : {kSlotAppendedPlunge, kSlotAppendedTrend, kSlotNumber, kSlotText}) {
        AddSelector(box, slot);
    }
    return box;
}

QGroupBox* frmFileFormat::MakePlotBox() {
    auto* box = MakeGroup("fraPlot", "Plot as");
    auto* layout = new QVBoxLayout(box);
    auto* hint = MakeLabel("Change data Format and convention settings before "
                           "selecting a plot type button",
                           "lblPlotHint");
    hint->setWordWrap(true);
    for (int kind = kPlanes; kind <= kPolarLines; ++kind) {
        auto* button = new QPushButton(kKinds[kind - 1].caption);
        button->setObjectName(Numbered("cmdDataType", kind));
        button->setToolTip(kKinds[kind - 1].tip);
        button->setCheckable(true);
        button->setMinimumHeight(fontMetrics().height() + 18);
        QFont font = button->font();
        font.setBold(true);
        button->setFont(font);
        layout->addWidget(button);
        cmdDataType[static_cast<std::size_t>(kind)] = button;
    }
    layout->addWidget(hint);
    chkSecondaryData = new QCheckBox("Appl&y to Secondary Data");
    chkSecondaryData->setObjectName("chkSecondaryData");
    layout->addWidget(chkSecondaryData);
    return box;
}

QGroupBox* frmFileFormat::MakeSymbolBox() {
    auto* box = MakeGroup("fraSymbol", "Symbols");
    auto* layout = new QGridLayout(box);
    constexpr const char* kNames[] = {"down", "up"};
    constexpr const char* kTips[] = {"The symbol of a row",
                                     "The symbol of a row that points upward"};
    for (int i = 0; i < 2; ++i) {
        auto* picture = new PictureBox(box);
        picture->setObjectName(Numbered("picCurrentSymbol", i));
        picture->setFixedSize(kSymbolBoxSize, kSymbolBoxSize);
        picture->setToolTip(kTips[i]);
        picture->setAccessibleName(kTips[i]);
        picture->onStale = [this] { DrawSymbols(); };
        auto* label = MakeLabel(kNames[i], Numbered("lblUpSymbol", i));
        layout->addWidget(picture, 0, i, Qt::AlignHCenter);
        layout->addWidget(label, 1, i, Qt::AlignHCenter);
        picCurrentSymbol[static_cast<std::size_t>(i)] = picture;
        lblUpSymbol[static_cast<std::size_t>(i)] = label;
    }
    auto* buttons = new QVBoxLayout;
    cmdButtons[3] = new QPushButton("C&hange...");
    cmdButtons[3]->setToolTip("Chooses symbol, colour and size of both");
    cmdButtons[2] = new QPushButton("Defaul&ts");
    cmdButtons[2]->setToolTip("Resets both symbols to those of the first start");
    for (const std::size_t i : {std::size_t{3}, std::size_t{2}}) {
        cmdButtons[i]->setObjectName(Numbered("cmdButtons", static_cast<int>(i)));
        buttons->addWidget(cmdButtons[i]);
    }
    layout->addLayout(buttons, 0, 2, 2, 1);
    return box;
}

QWidget* frmFileFormat::MakeFileLine() {
    auto* line = new QWidget;
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    cboDelim = new QComboBox;
    cboDelim->setObjectName("cboDelim");
    cboDelim->setToolTip("What separates the columns of a line");
    for (const DelimiterName& entry : kDelimiters) {
        cboDelim->addItem(entry.name, QString(entry.delimiter));
    }
    auto* label = MakeLabel("Columns are separated by (&delimiter)", "lblDelim");
    label->setBuddy(cboDelim);
    chkTableHeadings = new QCheckBox("&First row contains column headings");
    chkTableHeadings->setObjectName("chkTableHeadings");
    lblPreview = MakeLabel({}, "lblPreview");
    lblPreview->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    cboTable = MakeList("cboTable", "Table of the file");
    cboTable->setToolTip("The sheet or layer that is read");
    lblTable = MakeLabel("Ta&ble", "lblTable");
    lblTable->setBuddy(cboTable);
    layout->addWidget(lblTable);
    layout->addWidget(cboTable);
    layout->addWidget(label);
    layout->addWidget(cboDelim);
    layout->addSpacing(18);
    layout->addWidget(chkTableHeadings);
    layout->addStretch(1);
    return line;
}

QWidget* frmFileFormat::MakeMismatchLine() {
    auto* line = new QFrame;
    line->setObjectName("fraMismatch");
    line->setFrameShape(QFrame::StyledPanel);
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(6, 3, 6, 3);
    auto* picture = new QLabel;
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    picture->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    lblDataMismatch = MakeLabel("Mismatched Data Format - please check!", "lblDataMismatch");
    QFont bold = lblDataMismatch->font();
    bold.setBold(true);
    lblDataMismatch->setFont(bold);
    lblMismatchReasons = MakeLabel({}, "lblMismatchReasons");
    lblMismatchReasons->setWordWrap(true);
    layout->addWidget(picture);
    layout->addWidget(lblDataMismatch);
    layout->addSpacing(8);
    layout->addWidget(lblMismatchReasons, 1);
    return line;
}

QWidget* frmFileFormat::MakeButtonLine() {
    auto* line = new QWidget;
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    cmdButtons[0] = new QPushButton("OK");
    cmdButtons[1] = new QPushButton("Cancel");
    layout->addStretch(1);
    for (const std::size_t i : {std::size_t{0}, std::size_t{1}}) {
        cmdButtons[i]->setObjectName(Numbered("cmdButtons", static_cast<int>(i)));
        cmdButtons[i]->setMinimumWidth(88);
        layout->addWidget(cmdButtons[i]);
    }
    return line;
}

} // namespace quandrel
