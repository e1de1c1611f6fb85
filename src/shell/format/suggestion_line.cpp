// SPDX-License-Identifier: MIT

#include "shell/format/suggestion_line.h"

#include "input/suggest/suggestion_texts.h"
#include "shell/controls/control_kit.h"
#include "shell/controls/plain_tip.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace quandrel {

namespace {

/// The reasons of a suggestion, a line each.
QString ReasonsOf(const FormatSuggestion& suggestion) {
    QStringList reasons;
    for (const std::string& reason : suggestion.reasons) {
        reasons << QString::fromStdString(reason);
    }
    return reasons.join('\n');
}

} // namespace

SuggestionLine::SuggestionLine(QWidget* parent)
    : QFrame(parent)
    , lblSuggestion(MakeLabel({}, "lblSuggestion"))
    , cboSuggestions(MakeList("cboSuggestions", "Suggested formats"))
    , cmdUseSuggestion(new QPushButton("&Use this"))
    , cmdOwnSettings(new QPushButton("&Back to my settings")) {
    setObjectName("fraSuggestion");
    setFrameShape(QFrame::StyledPanel);
    cboSuggestions->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboSuggestions->setMinimumContentsLength(24);
    cmdUseSuggestion->setObjectName("cmdUseSuggestion");
    cmdUseSuggestion->setToolTip("Fills the dialog with the format that is chosen in the list");
    cmdOwnSettings->setObjectName("cmdOwnSettings");
    cmdOwnSettings->setToolTip("Fills the dialog with the settings that it would open with "
                               "otherwise");
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 3, 6, 3);
    layout->addWidget(lblSuggestion);
    layout->addWidget(cboSuggestions, 1);
    layout->addWidget(cmdUseSuggestion);
    layout->addWidget(cmdOwnSettings);
    connect(cboSuggestions, &QComboBox::currentIndexChanged, this, [this](int index) {
        cboSuggestions->setToolTip(
            index < 0 ? QString()
                      : PlainTip(ReasonsOf(suggestions_[static_cast<std::size_t>(index)])));
    });
    connect(cmdUseSuggestion, &QPushButton::clicked, this, [this] {
        onUse(static_cast<std::size_t>(cboSuggestions->currentIndex()));
        ShowUsed(true);
    });
    connect(cmdOwnSettings, &QPushButton::clicked, this, [this] {
        onBack();
        ShowUsed(false);
    });
}

void SuggestionLine::Show(const std::vector<FormatSuggestion>& suggestions, bool isUsed) {
    suggestions_ = suggestions;
    cboSuggestions->clear();
    for (const FormatSuggestion& suggestion : suggestions) {
        cboSuggestions->addItem(QString::fromStdString(TextOfSuggestion(suggestion)));
    }
    setVisible(!suggestions.empty());
    ShowUsed(isUsed);
}

void SuggestionLine::ShowUsed(bool isUsed) {
    const bool isHeaded = !suggestions_.empty() && suggestions_.front().choice.columnHeadings;
    lblSuggestion->setText(!isUsed    ? "The file may be:"
                           : isHeaded ? "Suggested from the headings. Change what is wrong."
                                      : "Suggested from the columns. Change what is wrong.");
    cmdOwnSettings->setEnabled(isUsed);
}

} // namespace quandrel
