// SPDX-License-Identifier: MIT
//
// The program's icons for buttons and menus.

#pragma once

#include <QIcon>
#include <QString>

namespace quandrel {

/// The icon of a drawing, by its file name without the extension: "open", "great_circles", ... An
/// unknown name gives an empty icon.
[[nodiscard]] QIcon IconOf(const QString& name);

[[nodiscard]] QIcon ProgramIcon();

} // namespace quandrel
