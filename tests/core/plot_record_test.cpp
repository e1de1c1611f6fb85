// SPDX-License-Identifier: MIT

#include "core/plot_record.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <type_traits>

namespace quandrel {
namespace {

/// The fields of a record by their names.
template <class Record>
std::map<std::string, const void*> FieldsOf(Record& record) {
    std::map<std::string, const void*> fields;
    VisitPlotFields(record, [&](const char* name, auto& field) {
        EXPECT_TRUE(fields.emplace(name, &field).second) << name << " is there twice";
    });
    return fields;
}

TEST(PlotRecord, NamesLeadToTheFieldsOfAllParts) {
    PlotRecord record;
    const auto fields = FieldsOf(record);
    EXPECT_EQ(fields.at("NumValidData"), &record.NumValidData);
    EXPECT_EQ(fields.at("SelectedOverlay"), &record.SelectedOverlay) << "the last of a part";
    EXPECT_EQ(fields.at("ShowAnnotations"), &record.ShowAnnotations) << "the only one of a part";
    EXPECT_EQ(fields.at("ClassTable"), &record.ClassTable);
    EXPECT_EQ(fields.at("RoseStdDev"), &record.RoseStdDev);
    EXPECT_EQ(fields.at("Modified"), &record.Modified);
}

TEST(PlotRecord, AConstantRecordHasTheSameNames) {
    const PlotRecord record;
    const auto fields = FieldsOf(record);
    EXPECT_EQ(fields.at("NumData"), &record.NumData);
}

TEST(PlotRecord, FieldsThatPointToTheirValueHaveNoName) {
    PlotRecord record;
    const auto fields = FieldsOf(record);
    for (const char* name : {"PlotAnnotations", "PlotSmallCircles", "DensityGrid", "MainFiles"}) {
        EXPECT_FALSE(fields.contains(name)) << name;
    }
}

TEST(PlotRecord, APartIsKeptAndPutBackAsAValue) {
    PlotRecord record;
    record.AppendedMin = {1, 2};
    record.DistinctValues[3][kOfTexts] = std::string("sandstone");
    const RecordRanges kept = static_cast<RecordRanges&>(record);
    record.AppendedMin = {};
    record.DistinctValues = {};
    static_cast<RecordRanges&>(record) = kept;
    EXPECT_EQ(record.AppendedMin[kOfTexts], 2);
    EXPECT_EQ(TextOf(record.DistinctValues[3][kOfTexts]), "sandstone");
}

TEST(PlotRecord, IsMovedAndNeverCopied) {
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<PlotRecord>);
    EXPECT_FALSE(std::is_copy_constructible_v<PlotRecord>);
}

} // namespace
} // namespace quandrel
