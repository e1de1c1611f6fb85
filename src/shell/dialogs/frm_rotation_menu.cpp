// SPDX-License-Identifier: MIT

#include "shell/dialogs/frm_rotation_menu.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "edit/selection/marquee.h"
#include "platform/platform.h"
#include "rotation/rotate_data.h"
#include "shell/controls/ending_text.h"
#include "stereo/symbols.h"

#include <QCheckBox>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QShowEvent>
#include <QValidator>

#include <new>
#include <utility>

namespace quandrel {

namespace {

constexpr const char* kCaption = "Rotation Variables";

// Open circles in a colour that no row style has by default, drawn on top of all rows.
constexpr Colour kPreviewColour{0xd0, 0x00, 0x90};
constexpr int kPreviewSymbol = 7;
constexpr int kPreviewSize = 4;

/// The mnemonic letters in the texts of an option, each of them unique in the dialog. 0 means no
/// mnemonic.
struct OptionKeys {
    char firstLabel;
    char secondLabel;
    char angleHeading;
    char angleLabel;
};

constexpr std::array<OptionKeys, kRotationOptions> kOptionKeys = {{
    {0, 0, 0, 0},
    {'g', 'm', 0, 0},
    {'g', 'm', 0, 'd'},
    {'D', 'm', 'k', 0},
    {'g', 'm', 0, 0},
}};

QString Underlined(const char* text, char key) {
    QString marked = text;
    const auto at = key != 0 ? marked.indexOf(QLatin1Char(key)) : -1;
    return at >= 0 ? marked.insert(at, '&') : marked;
}

/// A hidden frame keeps its title, and therefore its height.
void SetShown(QGroupBox& frame, const char* heading, char key) {
    const bool isShown = *heading != '\0';
    if (isShown) {
        frame.setTitle(Underlined(heading, key));
    }
    frame.setVisible(isShown);
}

QString Told(const char* heading, const char* label) {
    const QString shown = QString(label).toLower();
    return shown.isEmpty() ? QString(heading) : QString(heading) + ", " + shown;
}

/// Rows without a symbol are not visible anywhere.
bool IsHiddenRow(std::int32_t row) {
    return CodeSymbol(gDataSymbol(gActivePlot, row)) == kNoSymbol;
}

PickStep StepOf(Qt::KeyboardModifiers keys) {
    return PickStepOf(keys.testFlag(Qt::ShiftModifier), keys.testFlag(Qt::ControlModifier));
}

void Fill(QLineEdit& box, const std::optional<std::string>& text) {
    if (text) {
        box.setText(QString::fromStdString(*text));
    }
}

} // namespace

frmRotationMenu::frmRotationMenu(QWidget* parent, std::function<void()> previewChanged)
    : QDialog(parent, Qt::Tool)
    , previewChanged_(std::move(previewChanged)) {
    setObjectName("frmRotationMenu");
    setWindowTitle(kCaption);
    MakeControls();
    SetOrder();
    Connect();
    ShowOption(kRotateAboutAxis);
}

frmRotationMenu::~frmRotationMenu() {
    gRotFocusBox = kNoRotationFocus;
}

void frmRotationMenu::Load() {
    {
        const QScopedValueRollback loading(loading_, true);
        for (QLineEdit* box : txtRotAngle) {
            box->clear();
        }
        txtRotAngleSense->clear();
        chkUnfoldOption->setChecked(false);
        ShowOption(kRotateAboutAxis);
    }
    gRotFocusBox = kOrientationFocus;
    txtRotAngle[0]->setFocus();
    FollowActivePlot();
}

void frmRotationMenu::FollowActivePlot() {
    if (!isVisible()) {
        return; // showing the dialog loads it
    }
    const bool isOpen = IsOpenSlot(gActivePlot);
    setWindowTitle(isOpen ? QString::fromStdString(RotationCaption()) : QString(kCaption));
    ShowOptions();
    if (isOpen && !IsRotationOffered(Operation())) {
        ShowOption(kRotateAboutAxis);
    }
    Changed();
}

void frmRotationMenu::ShowOptions() {
    for (std::size_t i = 0; i < optRotate.size(); ++i) {
        const bool isOffered =
            IsOpenSlot(gActivePlot) && IsRotationOffered(static_cast<int>(i) + 1);
        optRotate[i]->setEnabled(isOffered);
        optRotate[i]->setToolTip(isOffered ? "" : "These data have no appended lines");
    }
}

void frmRotationMenu::ShowOption(int operation) {
    QRadioButton* chosen = optRotate[static_cast<std::size_t>(operation) - 1];
    chosen->setChecked(true);
    for (QRadioButton* button : optRotate) {
        // Tab enters at the chosen option.
        button->setFocusPolicy(button == chosen ? Qt::StrongFocus : Qt::ClickFocus);
    }
    const RotationOption& option = OptionOfRotation(operation);
    const OptionKeys& keys = kOptionKeys[static_cast<std::size_t>(operation) - 1];
    SetShown(*fraRotMenu[0], option.heading, 0);
    SetShown(*fraRotMenu[1], option.angleHeading, keys.angleHeading);
    SetShown(*fraRotMenu[2], option.pitchHeading, 0);
    lblRotMenu[0]->setText(Underlined(option.firstLabel, keys.firstLabel));
    lblRotMenu[1]->setText(Underlined(option.secondLabel, keys.secondLabel));
    lblRotMenu[2]->setText(Underlined(option.angleLabel, keys.angleLabel));
    txtRotAngle[0]->setAccessibleName(Told(option.heading, option.firstLabel));
    txtRotAngle[1]->setAccessibleName(Told(option.heading, option.secondLabel));
    txtRotAngle[2]->setAccessibleName(Told(option.angleHeading, option.angleLabel));
    lblRotInfo->setText(option.help);
    chkUnfoldOption->setEnabled(IsUnfolding(operation));
    LimitNewStrike(operation == kPlaneToVertical);
    gRotFocusBox = isVisible() ? kOrientationFocus : kNoRotationFocus;
}

void frmRotationMenu::LimitNewStrike(bool limited) {
    QLineEdit& box = *txtRotAngle[2];
    box.setValidator(limited ? upToFullTurn_ : nullptr);
    if (!box.hasAcceptableInput()) {
        box.clear(); // a rotation angle that is not a strike could not be edited
    }
}

void frmRotationMenu::OptionClicked(int operation) {
    ShowOption(operation);
    Changed();
    if (!IsOpenSlot(gActivePlot) || !IsUnfolding(operation)) {
        return;
    }
    if (const std::optional<std::string> refusal = RefusalToUnfold()) {
        Tell(*refusal);
    }
}

int frmRotationMenu::Operation() const {
    for (std::size_t i = 0; i < optRotate.size(); ++i) {
        if (optRotate[i]->isChecked()) {
            return static_cast<int>(i) + 1;
        }
    }
    return kRotateAboutAxis;
}

RotationSettings frmRotationMenu::Settings() const {
    RotationBoxes boxes;
    for (std::size_t i = 0; i < txtRotAngle.size(); ++i) {
        boxes.angles[i] = txtRotAngle[i]->text().toStdString();
    }
    boxes.sense = txtRotAngleSense->text().toStdString();
    return SettingsOfRotationBoxes(Operation(), boxes, chkUnfoldOption->isChecked());
}

void frmRotationMenu::Changed() {
    if (loading_) {
        return;
    }
    const RotationSettings settings = Settings();
    const std::optional<RotationRefusal> refusal = CheckRotationBoxes(settings);
    cmdRotGo[0]->setEnabled(!refusal && IsOpenSlot(gActivePlot));
    lblRotStatus->setText(refusal ? QString::fromStdString(refusal->reason) : QString());
    RefreshPreview(settings);
}

void frmRotationMenu::RefreshPreview(const RotationSettings& settings) {
    preview_.clear();
    try {
        for (const PreviewedRow& row : PreviewRotation(settings)) {
            if (!IsHiddenRow(row.row)) {
                preview_.push_back(row.place);
            }
        }
    } catch (const std::bad_alloc&) {
        preview_.clear(); // the rotation itself reports what is missing
    }
    if (previewChanged_) {
        previewChanged_();
    }
}

void frmRotationMenu::ClearPreview() {
    preview_.clear();
    if (previewChanged_) {
        previewChanged_();
    }
}

void frmRotationMenu::DrawPreview(Surface& surface) const {
    surface.Markers(GlyphOfSymbol(kPreviewSymbol, kPreviewSize, 0), kPreviewColour, preview_);
}

std::optional<RotationPick> frmRotationMenu::PickAt(Point at, Qt::KeyboardModifiers keys) const {
    return IsOpenSlot(gActivePlot) ? PickRotation(ActiveRecord().PlotKind, at.x, at.y, Operation(),
                                                  gRotFocusBox, StepOf(keys))
                                   : std::nullopt;
}

void frmRotationMenu::TakePick(Point at, Qt::KeyboardModifiers keys) {
    const std::optional<RotationPick> pick = PickAt(at, keys);
    if (!pick) {
        return;
    }
    {
        const QScopedValueRollback loading(loading_, true);
        Fill(*txtRotAngle[0], pick->inclination);
        Fill(*txtRotAngle[1], pick->azimuth);
        Fill(*txtRotAngle[2], pick->angle);
        Fill(*txtRotAngleSense, pick->sense);
    }
    Changed();
}

QString frmRotationMenu::HintAt(Point at, Qt::KeyboardModifiers keys) const {
    const std::optional<RotationPick> pick = PickAt(at, keys);
    return pick ? QString::fromStdString(pick->information) : QString();
}

void frmRotationMenu::Go() {
    if (gBusy) {
        return;
    }
    ClearPreview();
    RotationReport report;
    if (const std::optional<RotationRefusal> refusal = ApplyRotation(Settings(), report)) {
        Changed();
        Tell(refusal->reason);
        return;
    }
    FollowMovedRows();
    accept();
    if (const std::string note = NoteOnRotation(report); !note.empty()) {
        TellWhile(note, [] { return CanUndoRotation(); });
    }
}

void frmRotationMenu::showEvent(QShowEvent* event) {
    if (!event->spontaneous()) {
        Load();
    }
    QDialog::showEvent(event);
}

void frmRotationMenu::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) {
        gRotFocusBox = kNoRotationFocus;
        ClearPreview();
    }
    QDialog::hideEvent(event);
}

bool frmRotationMenu::eventFilter(QObject* object, QEvent* event) {
    // A press on the net takes the focus from the dialog, so the last box that had the focus
    // counts.
    if (event->type() == QEvent::FocusIn) {
        if (object == txtRotAngleSense) {
            gRotFocusBox = kSenseFocus;
        } else if (object == txtRotAngle[2] && Operation() == kPlaneToVertical) {
            gRotFocusBox = kNewStrikeFocus;
        } else if (object == txtRotAngle[0] || object == txtRotAngle[1]) {
            gRotFocusBox = kOrientationFocus;
        }
    }
    return QDialog::eventFilter(object, event);
}

} // namespace quandrel
