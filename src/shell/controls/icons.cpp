// SPDX-License-Identifier: MIT

#include "shell/controls/icons.h"

#include "qt/theme_icon.h"

#include <QFile>

/// Resources of a static library are not found before they are requested by name. The macro
/// declares a function in the global namespace.
static void MakeIconsKnown() {
    Q_INIT_RESOURCE(icons);
}

namespace quandrel {

QIcon IconOf(const QString& name) {
    MakeIconsKnown();
    QFile file(":/icons/" + name + ".svg");
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return ThemeIcon(file.readAll());
}

QIcon ProgramIcon() {
    return IconOf("quandrel");
}

} // namespace quandrel
