// SPDX-License-Identifier: MIT
//
// Small pictures of files, by which the start screen shows what they hold. They are kept in a
// folder of their own, and apply as long as their file is unchanged.

#pragma once

#include "core/plot.h"

#include <QImage>
#include <QString>

#include <span>
#include <string>

namespace quandrel {

class RecentPictures {
public:
    /// @param folder  created when the first picture is kept
    explicit RecentPictures(QString folder)
        : folder_(std::move(folder)) {}

    /// Draws the net or the rose of a plot that is worked out, and keeps the picture for its file:
    /// the one it was saved to, else the first of its data. A file outside the list has none, and
    /// the pictures of others are removed. A picture that cannot be written is left out.
    ///
    /// @param files  the recent files
    void Keep(const Plot& plot, std::span<const std::string> files) const;

    /// The picture of a file, on a transparent ground. Null without one, or when the file has
    /// changed since.
    [[nodiscard]] QImage Of(const std::string& file) const;

private:
    [[nodiscard]] QString PathOf(const std::string& file) const;

    QString folder_;
};

/// The folder of the user's pictures.
[[nodiscard]] QString FolderOfRecentPictures();

} // namespace quandrel
