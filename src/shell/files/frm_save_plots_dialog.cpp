// SPDX-License-Identifier: MIT

#include "shell/files/frm_save_plots_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace quandrel {

namespace {

struct AnswerButton {
    const char* caption;
    const char* tip;
    SaveAnswer answer;
};

/// In the order of the numbers of `cmdAnswer`.
constexpr AnswerButton kButtons[] = {
    {"&Save this plot", "Saves this plot, then asks about the next one", SaveAnswer::SaveThis},
    {"S&kip this plot", "Closes this plot without saving it", SaveAnswer::SkipThis},
    {"&Cancel", "Closes nothing", SaveAnswer::Cancel},
    {"Save &all", "Saves this plot and all others that have changed", SaveAnswer::SaveAll},
    {"Skip a&ll", "Closes all plots without saving any more", SaveAnswer::SkipAll},
};

} // namespace

frmSavePlotsDialog::frmSavePlotsDialog(const QString& title, const QString& text, QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmSavePlotsDialog");
    setWindowTitle(title);
    auto* picture = new QLabel;
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    picture->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxQuestion).pixmap(size));
    auto* question = new QLabel(text);
    question->setObjectName("lblQuestion");
    question->setTextFormat(Qt::PlainText);
    question->setWordWrap(true);
    question->setMinimumWidth(420);
    auto* top = new QHBoxLayout;
    top->addWidget(picture, 0, Qt::AlignTop);
    top->addSpacing(8);
    top->addWidget(question, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    int number = 1;
    for (const AnswerButton& button : kButtons) {
        auto* made = new QPushButton(button.caption);
        made->setObjectName("cmdAnswer_" + QString::number(number++));
        made->setToolTip(button.tip);
        buttons->addWidget(made);
        connect(made, &QPushButton::clicked, this, [this, answer = button.answer] {
            answer_ = answer;
            accept();
        });
    }
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addSpacing(8);
    layout->addLayout(buttons);
    auto* first = findChild<QPushButton*>("cmdAnswer_1");
    first->setDefault(true);
    first->setFocus();
}

} // namespace quandrel
