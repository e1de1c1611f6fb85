// SPDX-License-Identifier: MIT

#include "shell/controls/control_kit.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

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

QRadioButton* MakeOption(const QString& name, const ControlText& text, QButtonGroup* group,
                         int id) {
    auto* option = new QRadioButton(text.caption);
    option->setObjectName(name);
    option->setToolTip(text.tip);
    group->addButton(option, id);
    return option;
}

QComboBox* MakeList(const QString& name, const QString& accessibleName) {
    auto* list = new QComboBox;
    list->setObjectName(name);
    list->setAccessibleName(accessibleName);
    return list;
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
