// SPDX-License-Identifier: MIT
//
// The intro screen of a session. It is visible in the main window while no plot is open.

#pragma once

#include "qt/recent_pictures.h"

#include <QFrame>

#include <array>
#include <filesystem>
#include <optional>

class QGridLayout;
class QPushButton;

namespace quandrel {

class frmIntro : public QFrame {
    Q_OBJECT

public:
    /// @param pictures        of the recent files
    /// @param programFolder  from which the examples are found
    frmIntro(QWidget* parent, const RecentPictures& pictures,
             const std::filesystem::path& programFolder);

    /// Shows the recent files with their pictures.
    void Refresh();

    std::array<QPushButton*, 3> cmdStart; ///< stereographic projection, rose diagram, blank plot

Q_SIGNALS:
    /// A start command was chosen: one of the three buttons, or a recent file.
    void StartWanted(int index);

    /// An example was chosen, whose format is now the current one.
    void ExampleWanted(const QString& path);

private:
    void changeEvent(QEvent* event) override;
    [[nodiscard]] QPushButton* MakeExamples(const std::filesystem::path& folder);
    [[nodiscard]] QPushButton* MakeRecent(std::size_t number, const std::string& path);

    const RecentPictures& pictures_;
    QGridLayout* recent_;
};

} // namespace quandrel
