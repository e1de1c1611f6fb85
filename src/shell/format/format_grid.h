// SPDX-License-Identifier: MIT
//
// The preview of a data file: its first lines in columns. Each column has the colour and the name
// of the item that it contains.

#pragma once

#include "input/format_preview.h"
#include "shell/controls/faint_text.h"

#include <QColor>
#include <QPalette>
#include <QTableWidget>

namespace quandrel {

/// Where the colour of an item is used.
enum class ItemPlace {
    Heading, ///< full, for names
    Cell,    ///< pale, for values
};

/// The background colour of an item, readable with the text colour of a palette.
[[nodiscard]] QColor ItemColour(int slot, ItemPlace place, const QPalette& palette);

class FormatGrid : public QTableWidget {
public:
    explicit FormatGrid(QWidget* parent);

    /// Shows lines, split as a format choice says.
    ///
    /// @param colours  of the window; the grid receives a palette change later than the window
    void Show(const FormatPreview& preview, const FormatChoice& choice, const QPalette& colours);

private:
    void ShowHeadings(const FormatPreview& preview, const FormatChoice& choice);
    void ShowLine(int row, const PreviewLine& line, const FormatChoice& choice);
    QTableWidgetItem* ShowCell(int row, int column, const QString& text, PreviewKind kind);

    QPalette colours_;
};

} // namespace quandrel
