// SPDX-License-Identifier: MIT
//
// The fields of a binary plot file that hold its rows: counts and formats, main rows, overlays, the
// texts of the row table. As binary_plot_fields.h for the rest, for reader and writer both.

#pragma once

#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "persistence/binary_plot.h"
#include "persistence/binary_plot_checks.h"
#include "persistence/binary_stream.h"
#include "persistence/error_row_text.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace quandrel {

// The fewest bytes of what is counted.
inline constexpr std::size_t kLeastMainRow = 4 * 4 + 2;
inline constexpr std::size_t kLeastOverlayRow = kLeastMainRow;
inline constexpr std::size_t kCellColumns = 5;
inline constexpr std::size_t kLeastCellRow = kCellColumns * 2;

template <class Stream, class Plot>
class BinaryRowFields {
public:
    BinaryRowFields(Stream& stream, Plot& plot)
        : stream_(stream)
        , plot_(plot)
        , record_(plot.record) {}

    void VisitAll() {
        Head();
        MainRows();
        Overlays();
        Cells();
    }

private:
    static constexpr bool kReads = Stream::kReads;

    template <class... Fields>
    void Shorts(Fields&... fields) {
        (stream_.Short(fields), ...);
    }

    template <class... Fields>
    void Longs(Fields&... fields) {
        (stream_.Long(fields), ...);
    }

    void Head() {
        Longs(record_.NumValidData, record_.NumData, record_.NumLoadedData);
        Shorts(record_.PrimaryFormat, record_.SecondaryFormat, record_.ShowSecondary,
               record_.SelectedOverlay, record_.ShowAnnotations, record_.HasAppendedLine,
               record_.HasAppendedNumeric, record_.HasAppendedText);
        stream_.Text(record_.AxesTitle);
        stream_.Text(record_.FabricText);
        stream_.Text(record_.DescriptionText);
        Shorts(record_.PlotKind, record_.DataKind, record_.PlotSymbolMode,
               record_.NumSymbolsInPlot);
        if constexpr (kReads) {
            RequirePossibleHead(stream_, record_);
        }
    }

    /// The code that a row is drawn in, or the line of one that is no data.
    template <class Row>
    void CodeOrLine(std::size_t index, Row& row) {
        if (row.dip != kErrorRow) {
            stream_.Code(row.code);
            return;
        }
        const std::int32_t number = static_cast<std::int32_t>(index) + 1;
        if constexpr (kReads) {
            std::string field;
            stream_.Text(field);
            ErrorRowText held = ErrorRowOfField(record_, std::move(field));
            row.code = held.code;
            if (!held.line.empty()) {
                plot_.errorLines.emplace(number, std::move(held.line));
            }
        } else {
            stream_.Text(FieldOfErrorRow(record_, {row.code, plot_.ErrorLine(number)}));
        }
    }

    /// What main and overlay rows have in common.
    template <class Row>
    void Orientations(std::size_t index, Row& row) {
        Longs(row.dip, row.azimuth, row.density, row.order);
        CodeOrLine(index, row);
        if (record_.SecondaryFormat != 0) {
            Longs(row.dip2, row.azimuth2);
        }
    }

    void AppendedText(std::size_t row) {
        if constexpr (kReads) {
            std::string text;
            if (plot_.version < 90) {
                // Once it was a number.
                float number = 0;
                stream_.Single(number);
                text = number == kInvalidNumber ? std::string() : TextOf(number);
            } else {
                stream_.Text(text);
            }
            plot_.texts.push_back(std::move(text));
        } else {
            stream_.Text(plot_.texts[row]);
        }
    }

    template <class Row>
    void MainRow(std::size_t index, Row& row) {
        Orientations(index, row);
        if (record_.HasAppendedLine != 0) {
            Longs(row.lineDip, row.lineAzimuth);
        }
        if (record_.HasAppendedNumeric != 0) {
            stream_.Single(row.number);
        }
        if (record_.HasAppendedText != 0) {
            AppendedText(index);
        }
    }

    /// Visits rows behind those visited so far.
    template <class Visit>
    void Rows(std::size_t first, std::int32_t count, const Visit& visit) {
        for (std::size_t i = first; i < first + static_cast<std::size_t>(count); ++i) {
            if constexpr (kReads) {
                if (stream_.HasFailed()) {
                    return;
                }
                visit(i, plot_.rows.emplace_back());
                RequirePossibleRow(stream_, plot_.rows.back());
            } else {
                visit(i, plot_.rows[i]);
            }
        }
    }

    void MainRows() {
        if constexpr (kReads) {
            stream_.RequireRoom(record_.NumData, kLeastMainRow);
            if (stream_.HasFailed()) {
                return;
            }
            const auto rows = static_cast<std::size_t>(record_.NumData);
            plot_.rows.reserve(rows);
            plot_.texts.reserve(record_.HasAppendedText != 0 ? rows : 0);
        }
        Rows(0, record_.NumData, [this](std::size_t i, auto& row) { this->MainRow(i, row); });
    }

    void Overlays() {
        Shorts(record_.OverlayRows[kOverlayCount], record_.OverlayKind[kOverlayCount]);
        if constexpr (kReads) {
            RequirePossibleOverlays(stream_, record_);
        }
        auto first = static_cast<std::size_t>(record_.NumData);
        for (std::size_t k = 1; k <= static_cast<std::size_t>(record_.OverlayRows[kOverlayCount]);
             ++k) {
            Shorts(record_.OverlayRows[k], record_.OverlayKind[k]);
            if constexpr (kReads) {
                RequirePossibleOverlay(stream_, record_, k);
                stream_.RequireRoom(record_.OverlayRows[k], kLeastOverlayRow);
                if (stream_.HasFailed()) {
                    return;
                }
            }
            Rows(first, record_.OverlayRows[k],
                 [this](std::size_t i, auto& row) { this->Orientations(i, row); });
            first += static_cast<std::size_t>(record_.OverlayRows[k]);
        }
    }

    /// The texts of the row table. Positions are worked out anew from the rows; what is kept of the
    /// table is its order, the numbers in its first column.
    void Cells() {
        if constexpr (kReads) {
            stream_.RequireRoom(record_.NumLoadedData, kLeastCellRow);
            for (std::int32_t line = 0; line < record_.NumLoadedData && !stream_.HasFailed();
                 ++line) {
                plot_.table.push_back(RowOfCell(stream_.TextBytes()));
                for (std::size_t column = 1; column < kCellColumns; ++column) {
                    (void)stream_.TextBytes();
                }
            }
        } else {
            for (std::int32_t line = 0; line < record_.NumLoadedData; ++line) {
                for (std::size_t column = 0; column < kCellColumns; ++column) {
                    stream_.Text(plot_.Cell(line, column));
                }
            }
        }
    }

    Stream& stream_;
    Plot& plot_;
    decltype(plot_.record)& record_;
};

} // namespace quandrel
