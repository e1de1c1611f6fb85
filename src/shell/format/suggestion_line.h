// SPDX-License-Identifier: MIT
//
// The line of the data format dialog with the formats that are suggested for a file.

#pragma once

#include "input/suggest/format_suggestion.h"

#include <QFrame>

#include <functional>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;

namespace quandrel {

class SuggestionLine : public QFrame {
public:
    explicit SuggestionLine(QWidget* parent);

    /// Lists suggestions, the most probable first. The line is hidden without any.
    ///
    /// @param isUsed  the first one fills the dialog
    void Show(const std::vector<FormatSuggestion>& suggestions, bool isUsed);

    /// Called with the number of a suggestion that the user takes.
    std::function<void(std::size_t)> onUse;

    /// Called when the user wants the own settings back.
    std::function<void()> onBack;

    QLabel* lblSuggestion;
    QComboBox* cboSuggestions;
    QPushButton* cmdUseSuggestion;
    QPushButton* cmdOwnSettings;

private:
    void ShowUsed(bool isUsed);

    std::vector<FormatSuggestion> suggestions_;
};

} // namespace quandrel
