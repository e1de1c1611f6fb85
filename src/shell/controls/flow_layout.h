// SPDX-License-Identifier: MIT
//
// A layout in rows, like words of a text: what does not fit into a row begins the next one. Items
// of a row are centred in its height.

#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace quandrel {

class FlowLayout : public QLayout {
public:
    /// @param gap  between items and between rows, logical pixels
    FlowLayout(QWidget* parent, int gap);

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }

    [[nodiscard]] int heightForWidth(int width) const override;

    /// That of the widest item, in a row of its own.
    [[nodiscard]] QSize minimumSize() const override;

    /// That of all items in one row.
    [[nodiscard]] QSize sizeHint() const override;

    void setGeometry(const QRect& rect) override;

private:
    [[nodiscard]] int Arrange(const QRect& rect, bool moves) const;

    int gap_;
    std::vector<std::unique_ptr<QLayoutItem>> items_;
};

} // namespace quandrel
