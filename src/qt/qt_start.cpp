// SPDX-License-Identifier: MIT

#include "qt/qt_start.h"

#include <QLocale>
#include <QString>

#include <clocale>

namespace quandrel {

void UseNeutralNumbers() {
    std::setlocale(LC_NUMERIC, "C");
}

bool QtDecimalIsComma() {
    return QLocale::system().decimalPoint() == QLatin1String(",");
}

} // namespace quandrel
