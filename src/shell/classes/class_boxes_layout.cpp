// SPDX-License-Identifier: MIT
//
// The class controls: their layout and connections.

#include "shell/classes/class_boxes.h"
#include "shell/controls/control_kit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace quandrel {

namespace {

constexpr QSize kPatchRoom(44, 26);
constexpr int kLineSpacing = 4;
constexpr int kLeastLimitWidth = 90;
constexpr int kMostLimitWidth = 150;
constexpr int kLongestLimit = 30;
constexpr int kLongestName = 254;

enum LineColumn { kPatchColumn, kLowerColumn, kDashColumn, kUpperColumn, kRestColumn };

QComboBox* MakeNumberList(int index, int most) {
    auto* list = new QComboBox;
    list->setObjectName(Numbered("cboNumClasses", index));
    list->setToolTip("Select base number of classes EXCLUDING excess value class");
    list->setAccessibleName("Number of classes");
    for (int classes = 1; classes <= most; ++classes) {
        list->addItem(QString::number(classes));
    }
    list->setMaxVisibleItems(most);
    return list;
}

template <std::size_t N>
QComboBox* MakeProcedureList(const char* name, const std::array<std::string_view, N>& procedures,
                             const QString& tip) {
    auto* list = new QComboBox;
    list->setObjectName(name);
    list->setToolTip(tip);
    list->setAccessibleName(tip);
    for (const std::string_view procedure : procedures) {
        list->addItem(QString::fromUtf8(procedure.data(), static_cast<int>(procedure.size())));
    }
    return list;
}

/// Both lists of a page with their labels.
QHBoxLayout* MakeListLine(QComboBox* classes, QComboBox* procedure) {
    auto* classesLabel = new QLabel("N&umber of classes:");
    classesLabel->setBuddy(classes);
    auto* procedureLabel = new QLabel("&Procedure:");
    procedureLabel->setBuddy(procedure);
    auto* line = new QHBoxLayout;
    line->addWidget(classesLabel);
    line->addWidget(classes);
    line->addSpacing(8);
    line->addWidget(procedureLabel);
    line->addWidget(procedure, 1);
    return line;
}

} // namespace

ClassBoxes::ClassBoxes(StyleKind patches, QWidget* parent)
    : QWidget(parent)
    , cboRange(
          MakeProcedureList("cboRange", kRangeProcedures, "Select procedure for selecting ranges"))
    , cboType(
          MakeProcedureList("cboType", kTypeProcedures, "Select procedure for selecting classes"))
    , chkTypeNumeric(MakeCheck("chkTypeNumeric", "Treat as Nu&meric",
                               "The types are numbers: classes are ranges of them"))
    , chkCaseSensitive(MakeCheck("chkCaseSensitive", "Case sensiti&ve",
                                 "Names that differ only in capitals are different types"))
    , lblRanges(MakeLabel({}, "lblRanges"))
    , lblTypes(MakeLabel({}, "lblTypes"))
    , lblClassNote(MakeLabel({}, "lblClassNote"))
    , patches_(patches) {
    cboNumClasses = {MakeNumberList(0, kMostRanges), MakeNumberList(1, kMostNames)};
    pages_ = {MakeNumbersPage(), MakeTypesPage()};
    lblClassNote->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    for (QWidget* page : pages_) {
        layout->addWidget(page);
    }
    lines_ = MakeLines();
    layout->addWidget(lines_);
    layout->addWidget(lblClassNote);
    layout->addStretch(1);
    SetOrder();
    ConnectProcedures();
    ConnectLines();
    connect(this, &ClassBoxes::PatchClicked, this, &ClassBoxes::ChooseStyle);
}

QWidget* ClassBoxes::MakeNumbersPage() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->addLayout(MakeListLine(cboNumClasses[0], cboRange));
    layout->addSpacing(kLineSpacing);
    layout->addWidget(lblRanges);
    return page;
}

QWidget* ClassBoxes::MakeTypesPage() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins({});
    layout->addLayout(MakeListLine(cboNumClasses[1], cboType));
    auto* checks = new QHBoxLayout;
    checks->addWidget(chkTypeNumeric);
    checks->addSpacing(8);
    checks->addWidget(chkCaseSensitive);
    checks->addStretch(1);
    layout->addLayout(checks);
    layout->addWidget(lblTypes);
    return page;
}

QWidget* ClassBoxes::MakeLines() {
    auto* room = new QWidget;
    auto* lines = new QGridLayout(room);
    lines->setContentsMargins({});
    lines->setVerticalSpacing(kLineSpacing);
    MakePatches(*lines);
    MakeOthers(*lines);
    MakeLimits(txtRange, "txtRange", *lines);
    MakeLimits(txtTypeRange, "txtTypeRange", *lines);
    MakeNames(*lines);
    lines->setColumnStretch(kLowerColumn, 4);
    lines->setColumnStretch(kUpperColumn, 4);
    lines->setColumnStretch(kRestColumn, 1);
    lines->setRowStretch(kClassLines, 1);
    return room;
}

void ClassBoxes::MakePatches(QGridLayout& lines) {
    for (int line = 0; line < kClassLines; ++line) {
        auto* patch = new StylePatch(patches_, kPatchRoom);
        patch->setObjectName(Numbered("picPlotBox", line));
        patch->setCursor(Qt::PointingHandCursor);
        picPlotBox[static_cast<std::size_t>(line)] = patch;
        lines.addWidget(patch, line, kPatchColumn);
    }
    for (int range = 0; range < kMostRanges; ++range) {
        auto* dash = new QLabel("\u2013");
        dashes_[static_cast<std::size_t>(range)] = dash;
        lines.addWidget(dash, range + 1, kDashColumn);
    }
}

void ClassBoxes::MakeLimits(LimitBoxes& boxes, const char* name, QGridLayout& lines) {
    for (int i = 0; i < kLimitBoxes; ++i) {
        auto* box = new QLineEdit;
        const int range = i / 2 + 1;
        const bool isLower = i % 2 == 0;
        box->setObjectName(Numbered(name, i));
        box->setMaxLength(kLongestLimit);
        box->setMinimumWidth(kLeastLimitWidth);
        box->setMaximumWidth(kMostLimitWidth);
        const QString text =
            QString("%1 limit of range %2").arg(isLower ? "Lower" : "Upper").arg(range);
        box->setAccessibleName(text);
        box->setToolTip(text);
        // Tab visits each limit once: the lower limit of a range is the upper limit of the previous
        // one.
        box->setFocusPolicy(isLower && range > 1 ? Qt::ClickFocus : Qt::StrongFocus);
        boxes[static_cast<std::size_t>(i)] = box;
        lines.addWidget(box, range, isLower ? kLowerColumn : kUpperColumn);
    }
}

void ClassBoxes::MakeNames(QGridLayout& lines) {
    for (int i = 0; i < kMostNames; ++i) {
        auto* box = new QLineEdit;
        box->setObjectName(Numbered("txtType", i));
        box->setMaxLength(kLongestName);
        const QString text = QString("Type%1").arg(i + 1);
        box->setAccessibleName(text);
        box->setPlaceholderText(text);
        txtType[static_cast<std::size_t>(i)] = box;
        lines.addWidget(box, i + 1, kLowerColumn, 1, kRestColumn - kLowerColumn + 1);
    }
}

void ClassBoxes::MakeOthers(QGridLayout& lines) {
    constexpr const char* kLowTip = "Check to retain excess low values as separate class";
    constexpr const char* kHighTip = "Check to retain excess high values as separate class";
    constexpr const char* kOtherTip = "Check to retain data of other types as separate class";
    const auto add = [&](std::size_t index, const char* caption, const char* tip, int line) {
        chkShowOthers[index] =
            MakeCheck(Numbered("chkShowOthers", static_cast<int>(index)), caption, tip);
        lines.addWidget(chkShowOthers[index], line, kLowerColumn, 1,
                        kRestColumn - kLowerColumn + 1);
    };
    add(kLowNumbers, ": show?", kLowTip, 0);
    add(kHighNumbers, ": show?", kHighTip, kHighLine);
    add(kLowTextNumbers, ": show?", kLowTip, 0);
    add(kHighTextNumbers, ": show?", kHighTip, kHighLine);
    add(kOtherNames, "Other data?", kOtherTip, 0);
}

void ClassBoxes::SetOrder() {
    TabOrder order;
    order.Then(chkCaseSensitive);
    for (int line = 0; line < kClassLines; ++line) {
        order.Then(picPlotBox[static_cast<std::size_t>(line)]);
        if (line == 0) {
            for (const std::size_t box : {kLowNumbers, kLowTextNumbers, kOtherNames}) {
                order.Then(chkShowOthers[box]);
            }
            continue;
        }
        order.Then(txtType[static_cast<std::size_t>(line - 1)]);
        for (int box = 2 * line - 2; box < 2 * line && box < kLimitBoxes; ++box) {
            order.Then(txtRange[static_cast<std::size_t>(box)]);
            order.Then(txtTypeRange[static_cast<std::size_t>(box)]);
        }
    }
    order.Then(chkShowOthers[kHighNumbers]);
    order.Then(chkShowOthers[kHighTextNumbers]);
}

void ClassBoxes::ConnectProcedures() {
    const auto follow = [this](QComboBox* list, auto choose) {
        connect(list, &QComboBox::currentIndexChanged, this, [this, choose](int index) {
            if (!loading_ && index >= 0) {
                choose(index);
            }
        });
    };
    follow(cboNumClasses[0], [this](int index) { ChooseNumberOfRanges(index + 1); });
    follow(cboNumClasses[1], [this](int index) { ChooseNumberOfTypes(index + 1); });
    follow(cboRange, [this](int index) { ChooseRange(static_cast<RangeProcedure>(index)); });
    follow(cboType, [this](int index) { ChooseType(static_cast<TypeProcedure>(index)); });
    connect(chkTypeNumeric, &QCheckBox::toggled, this, [this](bool isNumeric) {
        if (!loading_) {
            ChooseNumericTypes(settings_, isNumeric);
            Refresh();
            Q_EMIT Changed();
        }
    });
    connect(chkCaseSensitive, &QCheckBox::toggled, this, [this](bool isSensitive) {
        if (loading_) {
            return;
        }
        settings_.caseSensitive = isSensitive;
        if (typeProcedure_ < TypeProcedure::LastUsed) {
            FillTypes(settings_, typeProcedure_, settings_.types);
            Refresh();
        }
        Q_EMIT Changed();
    });
}

void ClassBoxes::ConnectLines() {
    for (int i = 0; i < kLimitBoxes; ++i) {
        const auto place = static_cast<std::size_t>(i);
        connect(txtRange[place], &QLineEdit::textEdited, this,
                [this, i] { LimitEdited(ClassKind::Numbers, i); });
        connect(txtTypeRange[place], &QLineEdit::textEdited, this,
                [this, i] { LimitEdited(ClassKind::Types, i); });
    }
    for (int i = 0; i < kMostNames; ++i) {
        connect(txtType[static_cast<std::size_t>(i)], &QLineEdit::textEdited, this,
                [this, i] { NameEdited(i); });
    }
    for (std::size_t i = 0; i < chkShowOthers.size(); ++i) {
        connect(chkShowOthers[i], &QCheckBox::toggled, this,
                [this, i](bool isKept) { OthersChanged(i, isKept); });
    }
    for (int line = 0; line < kClassLines; ++line) {
        connect(picPlotBox[static_cast<std::size_t>(line)], &StylePatch::Picked, this,
                [this, line] { Q_EMIT PatchClicked(ClassOfLine(settings_, page_, line)); });
    }
}

} // namespace quandrel
