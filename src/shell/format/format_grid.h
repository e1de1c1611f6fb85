// SPDX-License-Identifier: MIT
//
// The preview of a data file: its first lines in columns, each column in the colour of the item
// that it serves and with the item's name above it.

#pragma once

#include "input/format_preview.h"
#include "shell/controls/faint_text.h"

#include <QColor>
#include <QPalette>
#include <QTableWidget>

namespace quandrel {

/// Where an item's colour stands.
enum class ItemPlace {
    Heading, ///< full, behind names
    Cell,    ///< pale, behind values
};

/// The colour of an item of a line, fit to stand behind the text of a palette.
[[nodiscard]] QColor ItemColour(int slot, ItemPlace place, const QPalette& palette);

class FormatGrid : public QTableWidget {
public:
    explicit FormatGrid(QWidget* parent);

    /// Shows lines as a choice splits them.
    ///
    /// @param colours  of the window: when these change, the grid learns of it only afterwards
    void Show(const FormatPreview& preview, const FormatChoice& choice, const QPalette& colours);

private:
    void ShowHeadings(const FormatPreview& preview, const FormatChoice& choice);
    void ShowLine(int row, const PreviewLine& line, const FormatChoice& choice);
    QTableWidgetItem* ShowCell(int row, int column, const QString& text, PreviewKind kind);

    QPalette colours_;
};

} // namespace quandrel
