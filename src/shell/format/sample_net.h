// SPDX-License-Identifier: MIT
//
// A small net, or a rose, of the first rows of a file as the format of the dialog reads them.

#pragma once

#include "drawing/format_sample.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class QLabel;

namespace quandrel {

class ImageSurface;
class PictureBox;

class SampleNet : public QWidget {
public:
    explicit SampleNet(QWidget* parent);
    ~SampleNet() override;

    /// Shows the rows of lines.
    void Show(std::span<const std::string> lines, const FormatChoice& choice);

    /// Lights the row of a line; none for nothing.
    void Light(std::optional<std::size_t> line);

    /// Called with the line of the row that the mouse points at, or nothing when it leaves the
    /// rows.
    std::function<void(std::optional<std::size_t>)> onPointed;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void Draw();
    void Point(std::optional<std::size_t> line);

    PictureBox* picSample_;
    QLabel* lblSample_;
    std::unique_ptr<ImageSurface> scrap_; ///< for the legend, which is not shown
    FormatSample sample_;
    std::optional<std::size_t> lit_;
};

} // namespace quandrel
