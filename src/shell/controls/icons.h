// SPDX-License-Identifier: MIT
//
// The program's pictures for buttons and menus.

#pragma once

#include <QIcon>
#include <QString>

namespace quandrel {

/// The icon of a drawing, without its ending: "open", "great_circles", ... An unknown name is an
/// empty icon.
[[nodiscard]] QIcon IconOf(const QString& name);

/// The program's own icon.
[[nodiscard]] QIcon ProgramIcon();

} // namespace quandrel
