// SPDX-License-Identifier: MIT

#include "core/plot_formulas.h"

#include "core/settings_value.h"

namespace quandrel {

Formulas FormulasOf(const PlotRecord& record, Formulas otherwise) {
    switch (record.PlotFormulas) {
    case kOwnFormulas:
        return Formulas::Own;
    case kTextbookFormulas:
        return Formulas::Textbook;
    default:
        return otherwise;
    }
}

Formulas FormulasInForce(const PlotRecord& record) {
    return FormulasOf(record, gSettings.notation.formulas);
}

} // namespace quandrel
