// SPDX-License-Identifier: MIT

#include "shell/dialogs/frm_small_circle.h"

#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "edit/marks/small_circle_pick.h"
#include "platform/platform.h"
#include "shell/controls/bad_text.h"
#include "shell/controls/control_kit.h"
#include "shell/styles/line_patch.h"
#include "shell/styles/style_patch.h"
#include "stereo/colour_names.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>

namespace quandrel {

namespace {

constexpr int kBoxWidth = 72;
constexpr int kColoursAcross = 13;
constexpr QSize kColourRoom(24, 24);
constexpr QSize kStyleRoom(62, 26);
constexpr QSize kCircleRoom(72, 26);

constexpr std::array<const char*, kTextsOfCircle> kHeads = {"Plunge", "Azimuth", "Angle"};
constexpr std::array<const char*, kTextsOfCircle> kNames = {
    "plunge of the axis", "azimuth of the axis", "angle about the axis"};
constexpr std::array<const char*, kCircleLineStyles> kStyleNames = {
    "Solid", "Dashes", "Dots", "Dashes and dots", "Dashes and two dots"};

std::size_t Place(int number) {
    return static_cast<std::size_t>(number) - 1;
}

QString NameOfSet(int set) {
    return QString("Small Circle %1").arg(set);
}

std::string TextOf(const SmallCircle& circle, CirclePart part) {
    return part == CirclePart::kPlunge    ? circle.AxisPl
           : part == CirclePart::kAzimuth ? circle.AxisAz
                                          : circle.Angle;
}

} // namespace

frmSmallCircle::frmSmallCircle(QWidget* parent)
    : QDialog(parent, Qt::Tool)
    , fraLine(new QGroupBox)
    , sldLineWidth(new QSlider(Qt::Horizontal))
    , lblLineWidth(new QLabel)
    , lblHint(new QLabel)
    , cmdClose(new QPushButton("Clos&e")) {
    setObjectName("frmSmallCircle");
    setWindowTitle(QString::fromStdString(SmallCircleCaption()));
    lblHint->setObjectName("lblHint");
    lblHint->setTextFormat(Qt::PlainText);
    lblHint->setWordWrap(true);
    lblHint->setMinimumHeight(2 * fontMetrics().lineSpacing());
    lblHint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    cmdClose->setObjectName("cmdClose");
    auto* below = new QHBoxLayout;
    below->addWidget(lblHint, 1);
    below->addWidget(cmdClose, 0, Qt::AlignBottom);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(MakeCircles());
    layout->addWidget(MakeLine());
    layout->addLayout(below);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    SetOrder();
    Connect();
    Refresh();
}

QGroupBox* frmSmallCircle::MakeCircles() {
    auto* box = new QGroupBox("Axis and angle, degrees");
    auto* grid = new QGridLayout(box);
    for (int part = 0; part < kTextsOfCircle; ++part) {
        auto* head = new QLabel(kHeads[static_cast<std::size_t>(part)]);
        head->setAlignment(Qt::AlignRight);
        grid->addWidget(head, 0, part + 1);
    }
    for (int set = 1; set <= kUserCircles; ++set) {
        auto* check = new QCheckBox(QString("Small Circle &%1").arg(set));
        check->setObjectName(Numbered("chkSmallCircle", set));
        check->setToolTip("Hide/show small circle");
        check->installEventFilter(this);
        chkSmallCircle[Place(set)] = check;
        grid->addWidget(check, set, 0);
        auto* line = new LinePatch(kCircleRoom);
        line->setObjectName(Numbered("picSmallCircle", set));
        line->setAccessibleName("Line of " + NameOfSet(set));
        line->setToolTip("Choose this small circle to change its line");
        line->setCheckable(true);
        picSmallCircle[Place(set)] = line;
        grid->addWidget(line, set, kTextsOfCircle + 1);
    }
    for (int number = 1; number <= kCircleBoxes; ++number) {
        const int set = SetOfCircleBox(number);
        const int part = static_cast<int>(PartOfCircleBox(number));
        auto* text = new QLineEdit;
        text->setObjectName(Numbered("txtSmallCircle", number));
        text->setAccessibleName(NameOfSet(set) + ", " + kNames[static_cast<std::size_t>(part)]);
        text->setFixedWidth(kBoxWidth);
        text->setAlignment(Qt::AlignRight);
        text->installEventFilter(this);
        txtSmallCircle[Place(number)] = text;
        grid->addWidget(text, set, part + 1);
    }
    return box;
}

QGroupBox* frmSmallCircle::MakeLine() {
    fraLine->setObjectName("fraLine");
    auto* layout = new QVBoxLayout(fraLine);
    layout->addLayout(MakeColours());
    layout->addLayout(MakeLineStyles());
    layout->addLayout(MakeLineWidth());
    return fraLine;
}

QLayout* frmSmallCircle::MakeColours() {
    auto* colours = new QGridLayout;
    colours->setSpacing(3);
    for (int index = 0; index < static_cast<int>(kCircleColours); ++index) {
        auto* patch = new StylePatch(StyleKind::Fill, kColourRoom);
        patch->setObjectName(Numbered("picColour", index));
        patch->setAccessibleName(QString::fromStdString(ColourNameAt(index, TableColour(index))));
        patch->SetStyle({static_cast<std::int16_t>(index), kSolidFill, 0});
        patch->setToolTip("Set current small circle colour");
        patch->setCheckable(true);
        picColour[static_cast<std::size_t>(index)] = patch;
        colours->addWidget(patch, index / kColoursAcross, index % kColoursAcross);
    }
    colours->setColumnStretch(kColoursAcross, 1);
    return colours;
}

QLayout* frmSmallCircle::MakeLineStyles() {
    auto* styles = new QHBoxLayout;
    for (int style = 0; style < static_cast<int>(kCircleLineStyles); ++style) {
        auto* patch = new LinePatch(kStyleRoom);
        patch->setObjectName(Numbered("picLineStyle", style));
        patch->setAccessibleName(kStyleNames[static_cast<std::size_t>(style)]);
        patch->setToolTip("Set current small circle line style");
        patch->setCheckable(true);
        picLineStyle[static_cast<std::size_t>(style)] = patch;
        styles->addWidget(patch);
    }
    styles->addStretch(1);
    return styles;
}

QLayout* frmSmallCircle::MakeLineWidth() {
    auto* width = new QHBoxLayout;
    auto* label = new QLabel("&Width");
    label->setBuddy(sldLineWidth);
    sldLineWidth->setObjectName("sldLineWidth");
    sldLineWidth->setAccessibleName("Line width in pixels");
    sldLineWidth->setToolTip("Set current small circle line width");
    sldLineWidth->setRange(1, kWidestCircle);
    sldLineWidth->setPageStep(2);
    lblLineWidth->setObjectName("lblLineWidth");
    lblLineWidth->setMinimumWidth(fontMetrics().horizontalAdvance("20 pixels"));
    width->addWidget(label);
    width->addWidget(sldLineWidth, 1);
    width->addWidget(lblLineWidth);
    return width;
}

void frmSmallCircle::SetOrder() {
    TabOrder order;
    for (int set = 1; set <= kUserCircles; ++set) {
        order.Then(chkSmallCircle[Place(set)]);
        for (int part = 0; part < kTextsOfCircle; ++part) {
            order.Then(txtSmallCircle[static_cast<std::size_t>((set - 1) * kTextsOfCircle + part)]);
        }
        order.Then(picSmallCircle[Place(set)]);
    }
    order.Then(picColour).Then(picLineStyle).Then(sldLineWidth).Then(cmdClose);
}

void frmSmallCircle::Connect() {
    auto* circles = new QButtonGroup(this);
    for (int set = 1; set <= kUserCircles; ++set) {
        connect(chkSmallCircle[Place(set)], &QCheckBox::clicked, this,
                [this, set] { DrawSmallCircle(set); });
        circles->addButton(picSmallCircle[Place(set)], set);
    }
    connect(circles, &QButtonGroup::idClicked, this, &frmSmallCircle::ChooseCircleSet);
    for (int box = 1; box <= kCircleBoxes; ++box) {
        connect(txtSmallCircle[Place(box)], &QLineEdit::textEdited, this,
                [this, box] { SetSmallCircleObject(box); });
    }
    auto* colours = new QButtonGroup(this);
    for (int index = 0; index < static_cast<int>(kCircleColours); ++index) {
        colours->addButton(picColour[static_cast<std::size_t>(index)], index);
    }
    connect(colours, &QButtonGroup::idClicked, this, [this](int index) {
        CircleStyle style = StyleOfSmallCircle(set_);
        style.colour = index;
        ChangeStyle(style);
    });
    auto* styles = new QButtonGroup(this);
    for (int index = 0; index < static_cast<int>(kCircleLineStyles); ++index) {
        styles->addButton(picLineStyle[static_cast<std::size_t>(index)], index);
    }
    connect(styles, &QButtonGroup::idClicked, this, [this](int index) {
        CircleStyle style = StyleOfSmallCircle(set_);
        style.lineStyle = index;
        ChangeStyle(style);
    });
    connect(sldLineWidth, &QSlider::valueChanged, this, [this](int width) {
        CircleStyle style = StyleOfSmallCircle(set_);
        style.width = width;
        ChangeStyle(style);
    });
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
}

int frmSmallCircle::ActiveForm() const {
    return IsOpenSlot(gActivePlot) && ActiveRecord().PlotKind != kRose ? gActivePlot : 0;
}

int frmSmallCircle::SmallCircleFocus() const {
    return PickedSet();
}

void frmSmallCircle::FollowActivePlot() {
    if (!isVisible()) {
        return;
    }
    if (slot_ != gActivePlot || ActiveForm() == 0) {
        EndSmallCirclePick();
    }
    slot_ = gActivePlot;
    Refresh();
}

void frmSmallCircle::Refresh() {
    setWindowTitle(QString::fromStdString(SmallCircleCaption()));
    for (int set = 1; set <= kUserCircles; ++set) {
        chkSmallCircle[Place(set)]->setChecked(IsSmallCircleShown(set));
    }
    for (int box = 1; box <= kCircleBoxes; ++box) {
        SetFocusText(box);
    }
    const int picked = SmallCircleFocus();
    lblHint->setText(ActiveForm() == 0 ? "A rose has no small circles."
                     : picked != 0     ? kPickCircleHint
                                       : kSmallCircleDialogHint);
    ActivateSmallCircleSettings();
}

void frmSmallCircle::DrawSmallCircle(int set) {
    ChooseCircleSet(set);
    QCheckBox& check = *chkSmallCircle[Place(set)];
    const std::string reason = ShowSmallCircle(set, check.isChecked());
    check.setChecked(IsSmallCircleShown(set));
    if (reason.empty()) {
        return;
    }
    for (int part = 0; part < kTextsOfCircle; ++part) {
        QLineEdit& box =
            *txtSmallCircle[static_cast<std::size_t>((set - 1) * kTextsOfCircle + part)];
        if (!CircleValue(static_cast<CirclePart>(part), box.text().toStdString())) {
            box.setFocus();
            box.selectAll();
            break;
        }
    }
    Tell(reason);
}

void frmSmallCircle::SetSmallCircleObject(int box) {
    TypeCircleText(SetOfCircleBox(box), PartOfCircleBox(box),
                   txtSmallCircle[Place(box)]->text().toStdString());
    ShowVerdict(box);
}

void frmSmallCircle::SetFocusText(int box) {
    const SmallCircle* const circle = SmallCircleOfSet(SetOfCircleBox(box));
    const QString text = circle == nullptr
                             ? QString()
                             : QString::fromStdString(TextOf(*circle, PartOfCircleBox(box)));
    QLineEdit& control = *txtSmallCircle[Place(box)];
    if (control.text() != text) {
        control.setText(text);
    }
    ShowVerdict(box);
}

void frmSmallCircle::ShowVerdict(int box) {
    QLineEdit& control = *txtSmallCircle[Place(box)];
    const CirclePart part = PartOfCircleBox(box);
    const bool isBad = ActiveForm() != 0 && !control.text().isEmpty()
                       && !CircleValue(part, control.text().toStdString());
    ShowAsBad(control, isBad);
    control.setToolTip(isBad ? CircleRule(part).c_str() : kSmallCircleHint);
}

void frmSmallCircle::ActivateSmallCircleSettings() {
    const bool canUse = ActiveForm() != 0;
    for (QCheckBox* check : chkSmallCircle) {
        check->setEnabled(canUse);
    }
    for (QLineEdit* box : txtSmallCircle) {
        box->setEnabled(canUse);
    }
    for (int set = 1; set <= kUserCircles; ++set) {
        LinePatch& sample = *picSmallCircle[Place(set)];
        sample.setEnabled(canUse);
        sample.SetStyle(StyleOfSmallCircle(set));
        sample.setChecked(set == set_);
    }
    const CircleStyle style = StyleOfSmallCircle(set_);
    fraLine->setTitle("Line of " + NameOfSet(set_));
    fraLine->setEnabled(canUse);
    for (std::size_t index = 0; index < picColour.size(); ++index) {
        picColour[index]->setChecked(static_cast<int>(index) == style.colour);
    }
    for (std::size_t index = 0; index < picLineStyle.size(); ++index) {
        picLineStyle[index]->SetStyle({style.colour, static_cast<int>(index), 1});
        picLineStyle[index]->setChecked(static_cast<int>(index) == style.lineStyle);
    }
    const QSignalBlocker blocked(sldLineWidth);
    sldLineWidth->setValue(style.width);
    lblLineWidth->setText(style.width == 1 ? QString("1 pixel")
                                           : QString("%1 pixels").arg(style.width));
}

void frmSmallCircle::ChooseCircleSet(int set) {
    if (SetOfCircleBox(box_) != set) {
        box_ = (set - 1) * kTextsOfCircle + 1;
    }
    set_ = set;
    ActivateSmallCircleSettings();
}

void frmSmallCircle::ChangeStyle(const CircleStyle& style) {
    StyleSmallCircle(set_, style);
    ActivateSmallCircleSettings();
}

void frmSmallCircle::PickWithMouse(int set) {
    ChooseCircleSet(set);
    static_cast<void>(BeginSmallCirclePick(set));
    Refresh();
}

void frmSmallCircle::reject() {
    if (SmallCircleFocus() != 0) {
        EndSmallCirclePick();
        Refresh();
        return;
    }
    QDialog::reject();
}

void frmSmallCircle::keyPressEvent(QKeyEvent* event) {
    // Numbers take effect as they are typed, and Return must not close the dialog.
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && BoxOf(focusWidget()) != 0) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmSmallCircle::closeEvent(QCloseEvent* event) {
    EndSmallCirclePick(); // otherwise closing would only end the pick
    QDialog::closeEvent(event);
}

void frmSmallCircle::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        slot_ = gActivePlot;
        set_ = 1;
        box_ = 1;
        txtSmallCircle[0]->setFocus();
        gPlatform.status->SetText(kSmallCircleHint);
        Refresh();
    }
    QDialog::showEvent(event);
}

void frmSmallCircle::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) {
        EndSmallCirclePick();
        gPlatform.status->SetText({});
    }
    QDialog::hideEvent(event);
}

int frmSmallCircle::BoxOf(const QObject* control) const {
    for (int box = 1; box <= kCircleBoxes; ++box) {
        if (control == txtSmallCircle[Place(box)]) {
            return box;
        }
    }
    return 0;
}

int frmSmallCircle::SetOf(const QObject* control) const {
    for (int set = 1; set <= kUserCircles; ++set) {
        if (control == chkSmallCircle[Place(set)]) {
            return set;
        }
    }
    const int box = BoxOf(control);
    return box == 0 ? 0 : SetOfCircleBox(box);
}

bool frmSmallCircle::eventFilter(QObject* object, QEvent* event) {
    const int box = BoxOf(object);
    if (event->type() == QEvent::FocusIn) {
        box_ = box == 0 ? box_ : box;
        if (const int set = SetOf(object); set != 0) {
            ChooseCircleSet(set);
        }
    }
    if (event->type() == QEvent::MouseButtonDblClick && box != 0 && ActiveForm() != 0) {
        PickWithMouse(SetOfCircleBox(box));
    }
    return QDialog::eventFilter(object, event);
}

} // namespace quandrel
