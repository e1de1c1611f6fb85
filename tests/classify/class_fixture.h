// SPDX-License-Identifier: MIT
//
// Rows with appended values, and class tables, for tests of classes.

#pragma once

#include "classify/class_rule.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <initializer_list>
#include <string>

namespace quandrel {

/// A table whose column of numbers has these limits, of which the last is the top.
inline ClassTableCells TableOfRanges(ClassColumn column, std::initializer_list<double> limits,
                                     int flags) {
    ClassTableCells table;
    const auto base = static_cast<std::int16_t>(limits.size() - 1);
    table[0][column] = base;
    std::size_t row = 1;
    for (const double limit : limits) {
        table[row <= static_cast<std::size_t>(base) ? row : 11][column] = limit;
        ++row;
    }
    table[12][column] = static_cast<std::int16_t>(flags);
    return table;
}

/// A table of names.
inline ClassTableCells TableOfNames(std::initializer_list<const char*> names, bool keepOthers,
                                    bool caseSensitive) {
    ClassTableCells table;
    table[0][kTextNumberClasses] = static_cast<std::int16_t>(names.size());
    std::size_t row = 1;
    for (const char* name : names) {
        table[row++][kNameClasses] = std::string(name);
    }
    table[12][kTextNumberClasses] = static_cast<std::int16_t>(keepOthers ? 1 : 0);
    table[12][kNameClasses] = static_cast<std::int16_t>(caseSensitive ? 1 : 0);
    return table;
}

class ClassTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        NewPlot();
        ActiveRecord().AppNumName = "Thickness";
        ActiveRecord().AppNonNumName = "Rock";
        ActiveRecord().HasAppendedNumeric = kTrue;
        ActiveRecord().HasAppendedText = kTrue;
    }

    /// A main row with both values. 45/090, drawn as 050302 unless it is an error row.
    static void AddValued(float number, const std::string& text, std::int32_t dip = 45) {
        AddRow(dip, 90, 50302);
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Text));
        gAppNumeric.At(gActivePlot, ActiveRecord().NumData) = number;
        gAppText.Set(gActivePlot, ActiveRecord().NumData, text);
    }

    static void AddNumbers(std::initializer_list<float> numbers) {
        for (const float number : numbers) {
            AddValued(number, "");
        }
    }

    static void AddTexts(std::initializer_list<const char*> texts) {
        for (const char* text : texts) {
            AddValued(kInvalidNumber, text);
        }
    }
};

} // namespace quandrel
