// SPDX-License-Identifier: MIT

#include "shell/styles/frm_symbol_select.h"

#include "shell/controls/control_kit.h"
#include "stereo/colour_names.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

#include <algorithm>

namespace quandrel {

namespace {

constexpr QSize kCellRoom(36, 36);
constexpr QSize kColourRoom(28, 24);
constexpr QSize kSampleRoom(72, 72);
constexpr int kTypesInLine = 9;
constexpr int kFillsInLine = 8;
constexpr int kColoursInLine = 13;
constexpr int kPageStep = 5;
constexpr SymbolRow kCellStyle{5, 0, 3}; ///< black; the symbol is that of the cell

constexpr auto kSymbolNames = std::to_array<const char*>({
    "none: hides the rows",
    "dot of one pixel",
    "filled circle",
    "filled square",
    "filled plus",
    "white circle",
    "circle with a core",
    "open circle",
    "open square",
    "open plus",
    "triangle",
    "triangle on its tip",
    "diamond",
    "star",
    "diagonal, rising",
    "diagonal, falling",
    "cross",
    "compass mark",
});
static_assert(kSymbolNames.size() == kPickedSymbols, "each symbol has a name");

constexpr std::array<const char*, kPickedFills> kFillNames = {
    "solid",        "transparent",   "horizontal lines", "vertical lines",
    "rising lines", "falling lines", "upright grid",     "diagonal grid",
};

/// The name of a colour of the table, with its red, green and blue values.
QString NameOfColour(int index) {
    const Colour colour = TableColour(index);
    return QString("%1 (red %2, green %3, blue %4)")
        .arg(QString::fromStdString(ColourNameAt(index, colour)))
        .arg(colour.red)
        .arg(colour.green)
        .arg(colour.blue);
}

} // namespace

QString NameOfSymbol(int code) {
    return kSymbolNames.at(static_cast<std::size_t>(code));
}

QString NameOfFill(int pattern) {
    return kFillNames.at(static_cast<std::size_t>(pattern));
}

void CheckCell(QButtonGroup& cells, int value) {
    QAbstractButton* chosen = cells.button(value);
    if (chosen != nullptr) {
        chosen->setChecked(true);
    } else if (QAbstractButton* checked = cells.checkedButton()) {
        cells.setExclusive(false);
        checked->setChecked(false);
        cells.setExclusive(true);
    }
    QAbstractButton* entry = chosen != nullptr ? chosen : cells.buttons().constFirst();
    for (QAbstractButton* cell : cells.buttons()) {
        cell->setFocusPolicy(cell == entry ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

frmSymbolSelect::frmSymbolSelect(const StyleQuestion& question, QWidget* parent)
    : QDialog(parent)
    , sldSymbSize(new QSlider(Qt::Horizontal))
    , spnSymbSize(new QSpinBox)
    , kind_(question.kind)
    , hasUp_(question.up.has_value())
    , rows_{question.down, question.up.value_or(question.down)}
    , types_(new QButtonGroup(this))
    , colours_(new QButtonGroup(this)) {
    setObjectName("frmSymbolSelect");
    setWindowTitle(kind_ == StyleKind::Symbol ? "Select Symbol" : "Select Fill");
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(MakeSamples(question));
    layout->addWidget(MakeTypes());
    layout->addWidget(MakeColours());
    QGroupBox* sizes = MakeSizes();
    sizes->setVisible(kind_ == StyleKind::Symbol);
    layout->addWidget(sizes);
    layout->addSpacing(4);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    Connect();
    ShowChoice();
    picSymbolTypes[0]->setFocus();
    if (types_->checkedButton() != nullptr) {
        types_->checkedButton()->setFocus();
    }
}

QGroupBox* frmSymbolSelect::MakeSamples(const StyleQuestion& question) {
    auto* box = new QGroupBox;
    auto* grid = new QGridLayout(box);
    constexpr std::array<const char*, 2> kCaptions = {"Symbol for +ve &dip/plunge values",
                                                      "Symbol for -ve dip/&plunge values"};
    constexpr std::array<const char*, 2> kButtons = {"(left button)", "(right button)"};
    for (std::size_t i = 0; i < (hasUp_ ? 2U : 1U); ++i) {
        const int line = static_cast<int>(i);
        picCurrentSymbol[i] = new StylePatch(kind_, kSampleRoom);
        picCurrentSymbol[i]->setObjectName(Numbered("picCurrentSymbol", line));
        picCurrentSymbol[i]->setAccessibleName("Sample");
        picCurrentSymbol[i]->setFocusPolicy(Qt::NoFocus);
        picCurrentSymbol[i]->setAttribute(Qt::WA_TransparentForMouseEvents);
        grid->addWidget(picCurrentSymbol[i], line, 0);
        if (!hasUp_) {
            auto* title = new QLabel(question.title);
            title->setObjectName("lblTitle");
            title->setTextFormat(Qt::PlainText);
            title->setWordWrap(true);
            grid->addWidget(title, line, 1);
            continue;
        }
        optSymbol[i] = new QRadioButton(kCaptions[i]);
        optSymbol[i]->setObjectName(Numbered("optSymbol", line));
        grid->addWidget(optSymbol[i], line, 1);
        grid->addWidget(new QLabel(kButtons[i]), line, 2);
    }
    grid->setColumnStretch(1, 1);
    box->setTitle(hasUp_ ? QString(question.title).replace('&', "&&") : QString());
    return box;
}

QGroupBox* frmSymbolSelect::MakeTypes() {
    const bool isSymbol = kind_ == StyleKind::Symbol;
    auto* box = new QGroupBox(isSymbol ? "Symbol" : "Fill");
    auto* grid = new QGridLayout(box);
    grid->setSpacing(3);
    const int count = isSymbol ? kPickedSymbols : kPickedFills;
    const int inLine = isSymbol ? kTypesInLine : kFillsInLine;
    for (int i = 0; i < count; ++i) {
        auto* cell = new StylePatch(kind_, kCellRoom, PatchScale::Fit);
        const auto place = static_cast<std::size_t>(i);
        NameCell(*cell, Numbered(isSymbol ? "picSymbolTypes" : "picPatternStyles", i),
                 isSymbol ? kSymbolNames[place] : kFillNames[place]);
        SymbolRow style = kCellStyle;
        style[kPlaceSymbol] = static_cast<std::int16_t>(i);
        cell->SetStyle(style);
        picSymbolTypes.push_back(cell);
        types_->addButton(cell, i);
        grid->addWidget(cell, i / inLine, i % inLine);
    }
    grid->setColumnStretch(inLine, 1);
    return box;
}

QGroupBox* frmSymbolSelect::MakeColours() {
    auto* box = new QGroupBox("Colour");
    auto* grid = new QGridLayout(box);
    grid->setSpacing(3);
    for (int i = 0; i < kColourCount; ++i) {
        auto* cell = new StylePatch(StyleKind::Fill, kColourRoom);
        NameCell(*cell, Numbered("picColour", i), NameOfColour(i));
        cell->SetStyle({static_cast<std::int16_t>(i), kSolidFill, 1});
        picColour[static_cast<std::size_t>(i)] = cell;
        colours_->addButton(cell, i);
        grid->addWidget(cell, i / kColoursInLine, i % kColoursInLine);
    }
    grid->setColumnStretch(kColoursInLine, 1);
    return box;
}

QGroupBox* frmSymbolSelect::MakeSizes() {
    auto* box = new QGroupBox("Size");
    auto* line = new QHBoxLayout(box);
    sldSymbSize->setObjectName("sldSymbSize");
    sldSymbSize->setRange(1, kLargestSymbolSize);
    sldSymbSize->setPageStep(kPageStep);
    sldSymbSize->setTickPosition(QSlider::TicksBelow);
    sldSymbSize->setTickInterval(1);
    sldSymbSize->setToolTip("Set the size of the selected symbol");
    sldSymbSize->setAccessibleName("Size of the symbol");
    spnSymbSize->setObjectName("spnSymbSize");
    spnSymbSize->setRange(1, kLargestSymbolSize);
    spnSymbSize->setToolTip(sldSymbSize->toolTip());
    spnSymbSize->setAccessibleName(sldSymbSize->accessibleName());
    line->addWidget(sldSymbSize, 1);
    line->addWidget(spnSymbSize);
    return box;
}

void frmSymbolSelect::Connect() {
    for (std::size_t i = 0; i < picSymbolTypes.size(); ++i) {
        connect(picSymbolTypes[i], &StylePatch::Picked, this, [this, i](Qt::MouseButton button) {
            Choose(kPlaceSymbol, static_cast<int>(i), button);
        });
    }
    for (std::size_t i = 0; i < picColour.size(); ++i) {
        connect(picColour[i], &StylePatch::Picked, this, [this, i](Qt::MouseButton button) {
            Choose(kPlaceColour, static_cast<int>(i), button);
        });
    }
    for (std::size_t i = 0; i < optSymbol.size(); ++i) {
        if (optSymbol[i] != nullptr) {
            connect(optSymbol[i], &QRadioButton::clicked, this, [this, i] {
                current_ = i;
                ShowChoice();
            });
        }
    }
    connect(sldSymbSize, &QSlider::valueChanged, this, &frmSymbolSelect::SetSize);
    connect(spnSymbSize, &QSpinBox::valueChanged, this, &frmSymbolSelect::SetSize);
}

void frmSymbolSelect::Choose(SymbolPlace place, int value, Qt::MouseButton button) {
    if (hasUp_ && button != Qt::NoButton) {
        current_ = button == Qt::RightButton ? 1 : 0;
    }
    rows_[current_][place] = static_cast<std::int16_t>(value);
    ShowChoice();
}

void frmSymbolSelect::SetSize(int size) {
    rows_[current_][kPlaceSize] = static_cast<std::int16_t>(size);
    ShowChoice();
}

void frmSymbolSelect::ShowChoice() {
    const SymbolRow& row = rows_[current_];
    CheckCell(*types_, row[kPlaceSymbol]);
    CheckCell(*colours_, row[kPlaceColour]);
    // A size beyond the slider's range is kept until the user moves the slider.
    const QSignalBlocker noSlide(sldSymbSize);
    const QSignalBlocker noSpin(spnSymbSize);
    sldSymbSize->setValue(row[kPlaceSize]);
    spnSymbSize->setValue(row[kPlaceSize]);
    for (std::size_t i = 0; i < picCurrentSymbol.size(); ++i) {
        if (picCurrentSymbol[i] != nullptr) {
            picCurrentSymbol[i]->SetStyle(rows_[i]);
        }
    }
    if (optSymbol[current_] != nullptr) {
        optSymbol[current_]->setChecked(true);
    }
}

std::optional<ChosenStyles> AskStyle(const StyleQuestion& question, QWidget* parent) {
    frmSymbolSelect dialog(question, parent);
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return ChosenStyles{dialog.Down(), dialog.Up()};
}

} // namespace quandrel
