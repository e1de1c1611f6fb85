// SPDX-License-Identifier: MIT

#include "shell/dialogs/frm_command_search.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QVBoxLayout>

#include <algorithm>

namespace quandrel {

namespace {

constexpr int kWidth = 420;
constexpr int kHeight = 360;

QString PlainCaption(QString caption) {
    return caption.replace("&&", "\x01")
        .remove('&')
        .replace('\x01', '&')
        .remove("...")
        .simplified();
}

/// Whether a text holds all words of another, in any order and case.
bool HoldsWords(const QString& text, const QString& words) {
    const QStringList all = words.simplified().split(' ', Qt::SkipEmptyParts);
    return std::ranges::all_of(
        all, [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

} // namespace

frmCommandSearch::frmCommandSearch(QWidget* parent, const QList<QMenu*>& menus)
    : QDialog(parent)
    , txtWords(new QLineEdit)
    , lstCommands(new QListWidget) {
    setObjectName("frmCommandSearch");
    setWindowTitle("Search Commands");
    txtWords->setObjectName("txtWords");
    txtWords->setPlaceholderText("words of a command");
    txtWords->setToolTip("Shows the commands whose menus and names hold all words. Up and Down "
                         "choose, Return uses the chosen one");
    txtWords->installEventFilter(this);
    lstCommands->setObjectName("lstCommands");
    lstCommands->setAccessibleName("Commands found");
    auto* label = new QLabel("&Command:");
    label->setBuddy(txtWords);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(txtWords);
    layout->addWidget(lstCommands);
    for (const QMenu* menu : menus) {
        AddMenu(*menu, PlainCaption(menu->title()));
    }
    connect(txtWords, &QLineEdit::textChanged, this, [this] { ShowFound(); });
    connect(txtWords, &QLineEdit::returnPressed, this, [this] { Choose(); });
    connect(lstCommands, &QListWidget::itemActivated, this, [this] { Choose(); });
    ShowFound();
    resize(kWidth, kHeight);
}

void frmCommandSearch::AddMenu(const QMenu& menu, const QString& path) {
    for (QAction* action : menu.actions()) {
        if (action->isSeparator() || !action->isVisible()) {
            continue;
        }
        const QString own = path + " > " + PlainCaption(action->text());
        if (const QMenu* inner = action->menu()) {
            AddMenu(*inner, own);
        } else {
            entries_.push_back({own, action});
        }
    }
}

void frmCommandSearch::ShowFound() {
    lstCommands->clear();
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const Entry& entry = entries_[i];
        if (!HoldsWords(entry.path, txtWords->text())) {
            continue;
        }
        const QString keys = entry.action->shortcut().toString(QKeySequence::NativeText);
        auto* item = new QListWidgetItem(
            entry.action->icon(), keys.isEmpty() ? entry.path : entry.path + "  (" + keys + ")");
        item->setData(Qt::UserRole, static_cast<qulonglong>(i));
        item->setToolTip(entry.action->toolTip());
        if (!entry.action->isEnabled()) {
            item->setFlags(Qt::NoItemFlags);
        }
        lstCommands->addItem(item);
        if (lstCommands->currentItem() == nullptr && entry.action->isEnabled()) {
            lstCommands->setCurrentItem(item);
        }
    }
}

void frmCommandSearch::Choose() {
    const QListWidgetItem* const item = lstCommands->currentItem();
    if (item == nullptr || !item->flags().testFlag(Qt::ItemIsEnabled)) {
        return;
    }
    chosen_ = entries_[item->data(Qt::UserRole).toULongLong()].action;
    accept();
}

/// Up and Down move in the list while the line has the focus.
bool frmCommandSearch::eventFilter(QObject* object, QEvent* event) {
    if (object == txtWords && event->type() == QEvent::KeyPress) {
        const int key = static_cast<const QKeyEvent&>(*event).key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp
            || key == Qt::Key_PageDown) {
            return QCoreApplication::sendEvent(lstCommands, event);
        }
    }
    return QDialog::eventFilter(object, event);
}

} // namespace quandrel
