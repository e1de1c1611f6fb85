// SPDX-License-Identifier: MIT

#include "shell/controls/control_kit.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

namespace quandrel {

QLabel* MakeLabel(const QString& text, const QString& name, QWidget* buddy) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(buddy);
    return label;
}

QGroupBox* MakeGroup(const QString& name, const QString& title) {
    auto* box = new QGroupBox(title);
    box->setObjectName(name);
    return box;
}

QCheckBox* MakeCheck(const QString& name, const QString& caption, const QString& tip) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(name);
    box->setToolTip(tip);
    return box;
}

QPushButton* MakeButton(const QString& name, const QString& caption, const QString& tip) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setToolTip(tip);
    return button;
}

void NameCell(QAbstractButton& cell, const QString& name, const QString& text) {
    cell.setObjectName(name);
    cell.setAccessibleName(text);
    cell.setToolTip(text);
    cell.setCheckable(true);
}

void KeepRoomWhenHidden(QWidget& control) {
    QSizePolicy policy = control.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control.setSizePolicy(policy);
}

TabOrder& TabOrder::Then(QWidget* control) {
    if (control != nullptr) {
        if (last_ != nullptr) {
            QWidget::setTabOrder(last_, control);
        }
        last_ = control;
    }
    return *this;
}

} // namespace quandrel
