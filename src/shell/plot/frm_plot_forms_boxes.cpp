// SPDX-License-Identifier: MIT
//
// The texts and the legend around a net: keys, menus, and signals.

#include "shell/controls/picture_box.h"
#include "shell/plot/frm_plot_forms.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPlainTextEdit>

#include <algorithm>

namespace quandrel {

namespace {

/// Keys that both texts and the rows of a plot use: they belong to the focused box.
bool IsEditingKey(const QKeyEvent& event) {
    constexpr std::array<QKeySequence::StandardKey, 7> kKeys = {
        QKeySequence::Copy,   QKeySequence::Cut,  QKeySequence::Paste, QKeySequence::SelectAll,
        QKeySequence::Delete, QKeySequence::Undo, QKeySequence::Redo};
    return std::any_of(kKeys.begin(), kKeys.end(),
                       [&event](QKeySequence::StandardKey key) { return event.matches(key); });
}

/// Copies the selected part of a text, or all of it if nothing is selected.
void CopyText(QPlainTextEdit& box) {
    if (box.textCursor().hasSelection()) {
        box.copy();
    } else {
        QGuiApplication::clipboard()->setText(box.toPlainText());
    }
}

} // namespace

QWidget* frmPlotForms::BoxOf(const QObject& object) const {
    for (QPlainTextEdit* text : {txtStatsBox[0], txtStatsBox[1], txtDescBox}) {
        if (&object == text || &object == text->viewport()) {
            return text;
        }
    }
    if (&object == txtFabricBox) {
        return txtFabricBox;
    }
    return &object == picLegendBox ? picLegendBox : nullptr;
}

void frmPlotForms::ShowBoxMenu(QWidget& box, const QPoint& at) {
    QMenu* menu = nullptr;
    if (&box == picLegendBox) {
        menu = new QMenu(this);
        menu->addAction("&Copy", this, [this] { Q_EMIT LegendCopyWanted(); });
    } else if (&box == txtFabricBox) {
        menu = txtFabricBox->createStandardContextMenu();
    } else if (&box == txtDescBox) {
        menu = txtDescBox->createStandardContextMenu();
    } else {
        auto& text = static_cast<QPlainTextEdit&>(box);
        menu = new QMenu(this);
        menu->addAction("&Copy", &text, [&text] { CopyText(text); });
        menu->addAction("Select &All", &text, &QPlainTextEdit::selectAll);
    }
    menu->setObjectName("mnuBox");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    Q_EMIT BoxMenuWanted(menu, at);
}

bool frmPlotForms::TakeKeyOfBox(QWidget& box, QKeyEvent& event) {
    const bool isEscape = event.key() == Qt::Key_Escape && event.modifiers() == Qt::NoModifier;
    if (event.type() == QEvent::ShortcutOverride) {
        if (isEscape || IsEditingKey(event)) {
            event.accept(); // otherwise the commands of the same keys would act on the rows
        }
        return event.isAccepted() && IsEditingKey(event);
    }
    if (isEscape) {
        picStereoArea->setFocus();
        return true;
    }
    if (box.inherits("QPlainTextEdit") && event.matches(QKeySequence::Copy)) {
        CopyText(static_cast<QPlainTextEdit&>(box));
        return true;
    }
    return false;
}

bool frmPlotForms::eventFilter(QObject* object, QEvent* event) {
    if (lblNumBox == nullptr) { // the boxes are under construction
        return QMdiSubWindow::eventFilter(object, event);
    }
    const bool isRoom = object == body_ || (page_ != nullptr && object == page_);
    if (isRoom && event->type() == QEvent::Resize && !isMinimized()) {
        LayOut();
    }
    const bool isText = object == txtStatsBox[0] || object == txtStatsBox[1] || object == txtDescBox
                        || object == txtFabricBox;
    if (event->type() == QEvent::ContextMenu) {
        if (QWidget* box = BoxOf(*object)) {
            ShowBoxMenu(*box, static_cast<QContextMenuEvent*>(event)->globalPos());
            return true;
        }
    }
    const bool isKey =
        event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (isText && isKey
        && TakeKeyOfBox(static_cast<QWidget&>(*object), static_cast<QKeyEvent&>(*event))) {
        return true;
    }
    if (object == txtDescBox || object == txtFabricBox) {
        if (event->type() == QEvent::FocusIn) {
            Q_EMIT Hint(static_cast<QWidget*>(object)->toolTip());
        } else if (event->type() == QEvent::FocusOut) {
            Q_EMIT Hint({});
        }
    }
    return QMdiSubWindow::eventFilter(object, event);
}

} // namespace quandrel
