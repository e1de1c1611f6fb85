// SPDX-License-Identifier: MIT
//
// The hash of a plot that decides whether its copy is out of date: every field and every column of
// a plot counts, except those that are named here.

#include "edit/rows/kept_rows.h"
#include "recovery/recovery_copy.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <array>
#include <cstring>
#include <type_traits>

namespace quandrel {
namespace {

/// Changes each cell of a field in turn, calls `check` after each change, and restores the cell.
template <class T, class Check>
requires std::is_arithmetic_v<T>

void ChangeCells(T& cell, const Check& check) {
    const T former = cell;
    cell = static_cast<T>(former == T{} ? 1 : 0);
    check();
    cell = former;
}

template <class Check>
void ChangeCells(std::string& cell, const Check& check) {
    const std::string former = cell;
    cell += "x";
    check();
    cell = former;
}

template <class Check>
void ChangeCells(TaggedValue& cell, const Check& check) {
    const TaggedValue former = cell;
    cell = TextOf(former) + "x";
    check();
    cell = former;
}

/// Changes each element of a list, and the number of elements.
template <class T, class Check>
void ChangeCells(std::vector<T>& cells, const Check& check);

template <class T, std::size_t Count, class Check>
void ChangeCells(std::array<T, Count>& cells, const Check& check) {
    for (T& cell : cells) {
        ChangeCells(cell, check);
    }
}

template <class T, class Check>
requires requires {
    T::kFieldNames;
}

void ChangeCells(T& part, const Check& check) {
    const auto change = [&check](const char* name, auto& field) {
        SCOPED_TRACE(name);
        ChangeCells(field, check);
    };
    VisitFieldsOf(part, change);
    if constexpr (std::is_same_v<T, Annotation>) {
        ChangeCells(part.LineNodes, check);
    }
}

template <class T, class Check>
void ChangeCells(std::vector<T>& cells, const Check& check) {
    for (T& cell : cells) {
        ChangeCells(cell, check);
    }
    cells.emplace_back();
    check();
    cells.pop_back();
}

class PlotHash : public EngineTest {
protected:
    /// A plot with rows and marks, and with cells in every column.
    void SetUp() override {
        EngineTest::SetUp();
        slot_ = NewPlot();
        AddRow(30, 120);
        AddRow(45, 270);
        PlotRecord& record = RecordOf(slot_);
        record.HasAppendedText = kTrue;
        record.PlotAnnotations = std::make_unique<Annotations>(2);
        record.PlotAnnotations->back().LineNodes.resize(2);
        record.PlotSmallCircles = std::make_unique<SmallCircles>();
        record.MainFiles = {"/data/beds.txt"};
        record.OverlayFiles[1] = {"/data/joints.txt"};
        ForEachColumn([this](const auto& column, std::size_t) { column.Grow(slot_, 2); });
        gAppText.Grow(slot_, 2);
    }

    /// Calls `change` with a function that expects another hash than before.
    template <class Change>
    void ExpectEachCounts(const Change& change) {
        const std::uint64_t before = FingerprintOf(slot_);
        int changes = 0;
        change([this, before, &changes] {
            ++changes;
            EXPECT_NE(FingerprintOf(slot_), before) << "change " << changes;
        });
        EXPECT_GT(changes, 0);
        EXPECT_EQ(FingerprintOf(slot_), before) << "all changes were taken back";
    }

    /// Changes the first bit of a cell, whatever its type.
    template <class T>
    static void FlipBit(T& cell) {
        unsigned char first = 0;
        std::memcpy(&first, &cell, 1);
        first ^= 1U;
        std::memcpy(static_cast<void*>(&cell), &first, 1);
    }

    int slot_ = 0;
};

TEST_F(PlotHash, EachCellOfEachFieldCounts) {
    VisitPlotFields(RecordOf(slot_), [this](const char* name, auto& field) {
        SCOPED_TRACE(name);
        ExpectEachCounts([&field](const auto& check) { ChangeCells(field, check); });
    });
}

TEST_F(PlotHash, EachMarkCountsWithAllItsFields) {
    ExpectEachCounts([this](const auto& check) {
        ChangeCells(*RecordOf(slot_).PlotAnnotations, check);
        ChangeCells(*RecordOf(slot_).PlotSmallCircles, check);
    });
}

TEST_F(PlotHash, EachFileCounts) {
    ExpectEachCounts([this](const auto& check) {
        ChangeCells(RecordOf(slot_).MainFiles, check);
        ChangeCells(RecordOf(slot_).OverlayFiles, check);
    });
}

TEST_F(PlotHash, MarksThatWereNeverMadeDifferFromNone) {
    RecordOf(slot_).PlotAnnotations->clear();
    const std::uint64_t before = FingerprintOf(slot_);
    RecordOf(slot_).PlotAnnotations.reset();
    EXPECT_NE(FingerprintOf(slot_), before);
}

TEST_F(PlotHash, EachColumnCountsButWhatIsComputedAgain) {
    const std::uint64_t before = FingerprintOf(slot_);
    ForEachColumn([this, before](const auto& column, std::size_t place) {
        FlipBit(column.At(slot_, 2));
        // A file holds neither the densities nor the symbols to restore.
        const bool isComputed = place == kDensityColumn || place == kBaseColumn;
        EXPECT_EQ(FingerprintOf(slot_) == before, isComputed) << "column " << place;
        FlipBit(column.At(slot_, 2));
    });
    EXPECT_EQ(FingerprintOf(slot_), before);
}

TEST_F(PlotHash, TheTextsOfRowsCount) {
    const std::uint64_t before = FingerprintOf(slot_);
    gAppText.Set(slot_, 2, "slate");
    const std::uint64_t after = FingerprintOf(slot_);
    EXPECT_NE(after, before);
    gAppText.Set(slot_, 1, "slate");
    gAppText.Set(slot_, 2, "");
    EXPECT_NE(FingerprintOf(slot_), after) << "which row has the text counts";
}

TEST_F(PlotHash, TheTextsOfErrorRowsCountInAnyOrder) {
    const std::uint64_t before = FingerprintOf(slot_);
    ErrorLines& lines = PlotOf(slot_).rows.errorLines;
    for (std::int32_t row = 1; row <= 40; ++row) {
        lines[row] = "a remark";
    }
    const std::uint64_t after = FingerprintOf(slot_);
    EXPECT_NE(after, before);
    ErrorLines again;
    again.reserve(1000);
    for (std::int32_t row = 40; row >= 1; --row) {
        again[row] = "a remark";
    }
    lines = std::move(again);
    EXPECT_EQ(FingerprintOf(slot_), after);
    lines.erase(40);
    lines[41] = "a remark";
    EXPECT_NE(FingerprintOf(slot_), after);
}

TEST_F(PlotHash, WhatIsNotSavedOrComputedAgainDoesNotCount) {
    const std::uint64_t before = FingerprintOf(slot_);
    PlotRecord& record = RecordOf(slot_);
    record.BetaCount = 3;
    record.ShowConfidenceCone = true;
    record.DensityGrid = std::make_unique<Table<std::int32_t, kGridNodes, kGridNodes>>();
    record.DensityGridFromFile = true;
    PlotOf(slot_).gridCount = 1;
    EXPECT_EQ(FingerprintOf(slot_), before);
}

} // namespace
} // namespace quandrel
