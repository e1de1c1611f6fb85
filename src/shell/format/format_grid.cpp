// SPDX-License-Identifier: MIT

#include "shell/format/format_grid.h"

#include <QHeaderView>
#include <QStyle>
#include <QStyleFactory>

#include <algorithm>
#include <array>

namespace quandrel {

namespace {

constexpr int kDarkBelow = 128; ///< lightness of a dark palette's base
constexpr int kShownCharacters = 200;
constexpr int kWidestColumn = 180;
constexpr int kNarrowestColumn = 52;
constexpr int kAir = 10; ///< beside the longest text of a column

/// Hues of the items, in the order of the slots: close for related items, far apart between sets.
constexpr std::array<int, kColumnSlots> kHues = {212, 150, 182, 28, 50, 8, 285, 318, 245, 90};

} // namespace

QColor ItemColour(int slot, ItemPlace place, const QPalette& palette) {
    const bool isDark = palette.color(QPalette::Base).lightness() < kDarkBelow;
    const int hue = kHues[static_cast<std::size_t>(slot)];
    if (place == ItemPlace::Heading) {
        return isDark ? QColor::fromHsl(hue, 110, 78) : QColor::fromHsl(hue, 170, 200);
    }
    return isDark ? QColor::fromHsl(hue, 80, 48) : QColor::fromHsl(hue, 170, 236);
}

FormatGrid::FormatGrid(QWidget* parent)
    : QTableWidget(parent) {
    // The colours of the headings carry meaning; not every desktop style shows them.
    if (QStyle* style = QStyleFactory::create("Fusion")) {
        style->setParent(this);
        horizontalHeader()->setStyle(style);
    }
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(kNarrowestColumn);
    horizontalHeader()->setMaximumSectionSize(kWidestColumn);
    verticalHeader()->setHighlightSections(false);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
}

void FormatGrid::Show(const FormatPreview& preview, const FormatChoice& choice,
                      const QPalette& colours) {
    colours_ = colours;
    setUpdatesEnabled(false);
    clear();
    clearSpans();
    setRowCount(static_cast<int>(preview.lines.size()));
    setColumnCount(std::max(preview.columns, 1));
    ShowHeadings(preview, choice);
    // Comments span all columns and must not widen one.
    for (const bool isOther : {false, true}) {
        for (int row = 0; row < rowCount(); ++row) {
            const PreviewLine& line = preview.lines[static_cast<std::size_t>(row)];
            if ((line.kind == PreviewKind::Other) == isOther) {
                ShowLine(row, line, choice);
            }
        }
        if (!isOther) {
            resizeColumnsToContents();
            for (int column = 0; column < columnCount(); ++column) {
                setColumnWidth(column, std::min(columnWidth(column) + kAir, kWidestColumn));
            }
        }
    }
    setUpdatesEnabled(true);
}

void FormatGrid::ShowHeadings(const FormatPreview& preview, const FormatChoice& choice) {
    const std::array<std::string, kColumnSlots> names = LongColumnNames(choice);
    for (int column = 0; column < columnCount(); ++column) {
        QStringList items;
        const std::vector<int> slots = ItemsOfColumn(choice, column);
        for (const int slot : slots) {
            items << QString::fromStdString(names[static_cast<std::size_t>(slot)]);
        }
        if (choice.placeColumns.AreUsed()
            && (column == choice.placeColumns.x || column == choice.placeColumns.y)) {
            items << (column == choice.placeColumns.x ? "map x" : "map y");
        }
        const QString number = QString::number(column + 1);
        auto* heading = new QTableWidgetItem(number + '\n' + items.join(" + "));
        if (!slots.empty()) {
            heading->setBackground(ItemColour(slots.front(), ItemPlace::Heading, colours_));
            heading->setForeground(colours_.brush(QPalette::Text));
            QFont bold = font();
            bold.setBold(true);
            heading->setFont(bold);
        }
        const QString name = QString::fromStdString(preview.HeadingOf(column));
        heading->setToolTip(items.isEmpty() ? "Column " + number + " is not read"
                                            : "Column " + number + ": " + items.join(" and "));
        heading->setData(Qt::AccessibleTextRole,
                         heading->toolTip() + (name.isEmpty() ? name : ", headed " + name));
        setHorizontalHeaderItem(column, heading);
    }
}

void FormatGrid::ShowLine(int row, const PreviewLine& line, const FormatChoice& choice) {
    setVerticalHeaderItem(row, new QTableWidgetItem(QString::number(row + 1)));
    if (line.kind == PreviewKind::Other) {
        ShowCell(row, 0, QString::fromStdString(line.line).simplified(), line.kind);
        setSpan(row, 0, 1, std::max(columnCount(), 2));
        return;
    }
    const int cells = std::min(static_cast<int>(line.cells.size()), columnCount());
    for (int column = 0; column < columnCount(); ++column) {
        QString text;
        if (column < cells) {
            text = QString::fromStdString(line.cells[static_cast<std::size_t>(column)]);
        }
        QTableWidgetItem* cell = ShowCell(row, column, text, line.kind);
        const std::vector<int> slots = ItemsOfColumn(choice, column);
        if (line.kind == PreviewKind::Data && !slots.empty()) {
            cell->setBackground(ItemColour(slots.front(), ItemPlace::Cell, colours_));
        }
    }
}

QTableWidgetItem* FormatGrid::ShowCell(int row, int column, const QString& text, PreviewKind kind) {
    auto* cell = new QTableWidgetItem(text.left(kShownCharacters));
    if (kind != PreviewKind::Data) {
        QFont other = font();
        other.setItalic(kind != PreviewKind::Heading);
        other.setBold(kind == PreviewKind::Heading);
        cell->setFont(other);
        cell->setForeground(MutedText(colours_));
        cell->setToolTip(kind == PreviewKind::Heading ? "Column headings" : "Not read as data");
    }
    setItem(row, column, cell);
    return cell;
}

} // namespace quandrel
