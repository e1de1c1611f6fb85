// SPDX-License-Identifier: MIT
//
// The controls of the rotation dialog and their layout.

#include "shell/controls/control_kit.h"
#include "shell/dialogs/frm_rotation_menu.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>

#include <algorithm>

namespace quandrel {

namespace {

constexpr int kNumberBoxWidth = 76;
constexpr int kHelpWidth = 430;
constexpr int kStatusLines = 2;

/// 0 to 360, with either decimal delimiter.
constexpr const char* kUpToFullTurn = "(360([.,]0*)?|(3[0-5]\\d|[0-2]\\d\\d|\\d\\d?)([.,]\\d*)?)?";

constexpr std::array<const char*, kRotationOptions> kOptionCaptions = {
    "&Unfold about Appended fold axis", "Unfold about &selected fold axis",
    "Rotate about a given rot'n a&xis", " Rotate a given &plane to vertical",
    "Rotate a given &line to vertical"};

constexpr std::array<const char*, 4> kBoxTips = {
    "Enter degrees, 0 to 90, or press the mouse on the net",
    "Enter degrees, 0 to 360, or press the mouse on the net",
    "Enter degrees",
    "Enter the pitch of the line in the plane, 0 to 90 degrees",
};

/// A hidden frame keeps its space, so that the dialog keeps its size.
QGroupBox* MakeFrame(const QString& name) {
    auto* frame = MakeGroup(name);
    KeepRoomWhenHidden(*frame);
    return frame;
}

QLineEdit* MakeBox(const QString& name, const QString& tip) {
    auto* box = new QLineEdit;
    box->setObjectName(name);
    box->setToolTip(tip);
    box->setFixedWidth(kNumberBoxWidth);
    return box;
}

/// A label for texts of any length.
QLabel* MakeText(const char* name, int height) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setFixedWidth(kHelpWidth);
    label->setMinimumHeight(height);
    return label;
}

} // namespace

void frmRotationMenu::MakeControls() {
    MakeBoxes();
    MakeTexts();
    auto* layout = new QVBoxLayout(this);
    auto* choices = new QHBoxLayout;
    choices->addWidget(MakeOptions());
    choices->addWidget(MakeFrames(), 1);
    layout->addLayout(choices);
    layout->addWidget(lblRotInfo);
    layout->addWidget(lblRotStatus);
    layout->addWidget(MakeButtons());
    cmdRotGo[0]->setDefault(true);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QGroupBox* frmRotationMenu::MakeOptions() {
    auto* frame = MakeFrame("fraRotate");
    frame->setTitle("Operation");
    auto* layout = new QVBoxLayout(frame);
    auto* group = new QButtonGroup(frame);
    for (std::size_t i = 0; i < optRotate.size(); ++i) {
        optRotate[i] = new QRadioButton(kOptionCaptions[i]);
        optRotate[i]->setObjectName(Numbered("optRotate", i));
        optRotate[i]->setAccessibleName(QString(kOptionCaptions[i]).remove('&').trimmed());
        group->addButton(optRotate[i], static_cast<int>(i));
        layout->addWidget(optRotate[i]);
    }
    chkUnfoldOption = new QCheckBox("&Force lines to lie within beds ");
    chkUnfoldOption->setObjectName("chkUnfoldOption");
    chkUnfoldOption->setAccessibleName("Force lines to lie within beds");
    chkUnfoldOption->setToolTip(
        "Indicate if lines lie exactly within the unfolded beds (avoids rounding errors)");
    layout->addSpacing(8);
    layout->addWidget(chkUnfoldOption);
    layout->addStretch(1);
    return frame;
}

void frmRotationMenu::MakeBoxes() {
    for (std::size_t i = 0; i < txtRotAngle.size(); ++i) {
        txtRotAngle[i] = MakeBox(Numbered("txtRotAngle", i), kBoxTips[i]);
        txtRotAngle[i]->setAlignment(Qt::AlignRight);
        txtRotAngle[i]->installEventFilter(this);
    }
    txtRotAngleSense = MakeBox("txtRotAngleSense",
                               "Enter the compass direction that the line plunges to, such as NE");
    txtRotAngleSense->installEventFilter(this);
    txtRotAngle[3]->setAccessibleName("Horizontal line, pitch");
    txtRotAngleSense->setAccessibleName("Horizontal line, sense");
    for (std::size_t i = 0; i < lblRotMenu.size(); ++i) {
        lblRotMenu[i] = new QLabel;
        lblRotMenu[i]->setObjectName(Numbered("lblRotMenu", i));
        lblRotMenu[i]->setTextFormat(Qt::PlainText);
        lblRotMenu[i]->setBuddy(i < txtRotAngle.size() ? txtRotAngle[i] : txtRotAngleSense);
    }
    lblRotMenu[3]->setText("Pi&tch");
    lblRotMenu[4]->setText("S&ense");
    upToFullTurn_ = new QRegularExpressionValidator(QRegularExpression(kUpToFullTurn), this);
}

QWidget* frmRotationMenu::MakeFrames() {
    for (std::size_t i = 0; i < fraRotMenu.size(); ++i) {
        fraRotMenu[i] = MakeFrame(Numbered("fraRotMenu", i));
        fraRotMenu[i]->setTitle(OptionOfRotation(kPlaneToVertical).heading);
    }
    const auto fillPair = [](QGroupBox& frame, std::array<QLabel*, 2> labels,
                             std::array<QLineEdit*, 2> boxes) {
        auto* grid = new QGridLayout(&frame);
        for (int column = 0; column < 2; ++column) {
            const auto place = static_cast<std::size_t>(column);
            grid->addWidget(labels[place], 0, column);
            grid->addWidget(boxes[place], 1, column);
        }
        grid->setColumnStretch(2, 1);
    };
    fillPair(*fraRotMenu[0], {lblRotMenu[0], lblRotMenu[1]}, {txtRotAngle[0], txtRotAngle[1]});
    fillPair(*fraRotMenu[2], {lblRotMenu[3], lblRotMenu[4]}, {txtRotAngle[3], txtRotAngleSense});
    auto* angle = new QHBoxLayout(fraRotMenu[1]);
    angle->addWidget(txtRotAngle[2]);
    angle->addWidget(lblRotMenu[2], 1);
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QGroupBox* frame : fraRotMenu) {
        layout->addWidget(frame);
    }
    layout->addStretch(1);
    return column;
}

void frmRotationMenu::MakeTexts() {
    int tallest = 0;
    for (int operation = kUnfoldAboutAppended; operation <= kLineToVertical; ++operation) {
        const QRect room(0, 0, kHelpWidth, 0);
        const QString help = OptionOfRotation(operation).help;
        tallest =
            std::max(tallest, fontMetrics().boundingRect(room, Qt::TextWordWrap, help).height());
    }
    lblRotInfo = MakeText("lblRotInfo", tallest);
    lblRotStatus = MakeText("lblRotStatus", kStatusLines * fontMetrics().lineSpacing());
}

QWidget* frmRotationMenu::MakeButtons() {
    constexpr std::array<const char*, 2> kCaptions = {"&Rotate Plot", "&Cancel"};
    constexpr std::array<const char*, 2> kTips = {"Process selection", "Exit rotation dialog"};
    auto* line = new QWidget;
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch(1);
    for (std::size_t i = 0; i < cmdRotGo.size(); ++i) {
        cmdRotGo[i] = new QPushButton(kCaptions[i]);
        cmdRotGo[i]->setObjectName(Numbered("cmdRotGo", i));
        cmdRotGo[i]->setToolTip(kTips[i]);
        cmdRotGo[i]->setAccessibleDescription(kTips[i]);
        layout->addWidget(cmdRotGo[i]);
    }
    return line;
}

void frmRotationMenu::SetOrder() {
    TabOrder()
        .Then(optRotate)
        .Then(chkUnfoldOption)
        .Then(txtRotAngle)
        .Then(txtRotAngleSense)
        .Then(cmdRotGo);
}

void frmRotationMenu::Connect() {
    for (std::size_t i = 0; i < optRotate.size(); ++i) {
        connect(optRotate[i], &QRadioButton::clicked, this,
                [this, i] { OptionClicked(static_cast<int>(i) + 1); });
    }
    for (QLineEdit* box : txtRotAngle) {
        connect(box, &QLineEdit::textChanged, this, &frmRotationMenu::Changed);
    }
    connect(txtRotAngleSense, &QLineEdit::textChanged, this, &frmRotationMenu::Changed);
    connect(chkUnfoldOption, &QCheckBox::toggled, this, &frmRotationMenu::Changed);
    connect(cmdRotGo[0], &QPushButton::clicked, this, &frmRotationMenu::Go);
    connect(cmdRotGo[1], &QPushButton::clicked, this, &frmRotationMenu::reject);
}

} // namespace quandrel
