// SPDX-License-Identifier: MIT

#include "core/plot_formulas.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class PlotFormulas : public EngineTest {};

TEST_F(PlotFormulas, ComeBeforeThoseOfThePreferences) {
    PlotRecord record = NewPlotRecord();
    EXPECT_EQ(record.PlotFormulas, kFormulasOfPreferences);
    for (const Formulas preference : {Formulas::Own, Formulas::Textbook}) {
        gSettings.notation.formulas = preference;
        record.PlotFormulas = kFormulasOfPreferences;
        EXPECT_EQ(FormulasInForce(record), preference);
        EXPECT_EQ(FormulasOf(record, Formulas::Own), Formulas::Own);
        EXPECT_EQ(FormulasOf(record, Formulas::Textbook), Formulas::Textbook);
        record.PlotFormulas = kOwnFormulas;
        EXPECT_EQ(FormulasInForce(record), Formulas::Own);
        EXPECT_EQ(FormulasOf(record, Formulas::Textbook), Formulas::Own);
        record.PlotFormulas = kTextbookFormulas;
        EXPECT_EQ(FormulasInForce(record), Formulas::Textbook);
        EXPECT_EQ(FormulasOf(record, Formulas::Own), Formulas::Textbook);
    }
}

} // namespace
} // namespace quandrel
