// SPDX-License-Identifier: MIT
//
// The fields of a binary plot file that hold its rows: counts and formats, main rows, overlays, the
// texts of the row table. For all kinds of streams, like binary_plot_fields.h.

#pragma once

#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "persistence/binary_field_walk.h"
#include "persistence/binary_plot.h"
#include "persistence/binary_plot_checks.h"
#include "persistence/binary_stream.h"
#include "persistence/error_row_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

namespace quandrel {

// The least number of bytes of a counted item.
inline constexpr std::size_t kLeastMainRow = 4 * 4 + 2;
inline constexpr std::size_t kLeastOverlayRow = kLeastMainRow;
inline constexpr std::size_t kCellColumns = 5;
inline constexpr std::size_t kLeastCellRow = kCellColumns * 2;

#define FIELD(name)                                                                                \
    Named {                                                                                        \
#name, record_.name                                                                        \
    }

template <class Stream, class Plot>
class BinaryRowFields : private BinaryFieldWalk<Stream> {
public:
    BinaryRowFields(Stream& stream, Plot& plot)
        : BinaryFieldWalk<Stream>(stream)
        , plot_(plot)
        , record_(plot.record) {}

    void VisitAll() {
        Head();
        MainRows();
        Overlays();
        Cells();
    }

private:
    using Walk = BinaryFieldWalk<Stream>;
    using Walk::Element;
    using Walk::HasFailed;
    using Walk::kLists;
    using Walk::kReads;
    using Walk::Longs;
    using Walk::Name;
    using Walk::Shorts;
    using Walk::Singles;
    using Walk::stream_;
    using Walk::Texts;

    void Head() {
        if constexpr (kReads) {
            Longs(FIELD(NumValidData));
        } else {
            // Cells stand for more measurements than there are rows; these are counted again when
            // the file is opened.
            const std::int32_t valid =
                std::min(record_.NumValidData, std::max(record_.NumData, std::int32_t{0}));
            Longs(Named{"NumValidData", valid});
        }
        Longs(FIELD(NumData), FIELD(NumLoadedData));
        Shorts(FIELD(PrimaryFormat), FIELD(SecondaryFormat), FIELD(ShowSecondary),
               FIELD(SelectedOverlay), FIELD(ShowAnnotations), FIELD(HasAppendedLine),
               FIELD(HasAppendedNumeric), FIELD(HasAppendedText));
        Texts(FIELD(AxesTitle), FIELD(FabricText), FIELD(DescriptionText));
        Shorts(FIELD(PlotKind), FIELD(DataKind), FIELD(PlotSymbolMode), FIELD(NumSymbolsInPlot));
        if constexpr (kReads) {
            RequirePossibleHead(stream_, record_);
        }
    }

    /// The drawing code of a row, or the line of an error row.
    template <class Row>
    void CodeOrLine(std::size_t index, Row& row) {
        Name("gDataSymbol");
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

    /// The fields that main and overlay rows have in common.
    template <class Row>
    void Orientations(std::size_t index, Row& row) {
        Longs(Named{"gDataDip", row.dip}, Named{"gDataAz", row.azimuth},
              Named{"gPointDensity", row.density}, Named{"gDataOrder", row.order});
        CodeOrLine(index, row);
        if (record_.SecondaryFormat != 0) {
            Longs(Named{"gData2Dip", row.dip2}, Named{"gData2Az", row.azimuth2});
        }
    }

    void AppendedText(std::size_t row) {
        Name("gAppText");
        if constexpr (kReads) {
            std::string text;
            if (plot_.version < 90) {
                // Formerly a number.
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
            Longs(Named{"gAppLineDip", row.lineDip}, Named{"gAppLineAz", row.lineAzimuth});
        }
        if (record_.HasAppendedNumeric != 0) {
            Singles(Named{"gAppNumeric", row.number});
        }
        if (record_.HasAppendedText != 0) {
            AppendedText(index);
        }
    }

    /// Visits the rows after those already visited.
    template <class Visit>
    void Rows(const char* name, std::size_t first, std::int32_t count, const Visit& visit) {
        if constexpr (kLists) {
            stream_.BeginRows(name);
        }
        const std::size_t end = first + static_cast<std::size_t>(count);
        for (std::size_t i = first; i < end && !HasFailed(); ++i) {
            if constexpr (kLists) {
                stream_.BeginRow();
            }
            if constexpr (kReads) {
                visit(i, plot_.rows.emplace_back());
                RequirePossibleRow(stream_, plot_.rows.back());
            } else {
                visit(i, plot_.rows[i]);
            }
        }
        if constexpr (kLists) {
            stream_.EndRows();
        }
    }

    void MainRows() {
        if constexpr (kReads) {
            stream_.RequireRoom(record_.NumData, kLeastMainRow);
            if (HasFailed()) {
                return;
            }
            const auto rows = static_cast<std::size_t>(record_.NumData);
            plot_.rows.reserve(rows);
            plot_.texts.reserve(record_.HasAppendedText != 0 ? rows : 0);
        }
        Rows("rows", 0, record_.NumData,
             [this](std::size_t i, auto& row) { this->MainRow(i, row); });
    }

    /// The number of overlays, and rows and kind of each.
    void OverlayAt(std::size_t k) {
        Element("OverlayRows", k, k + 1);
        stream_.Short(record_.OverlayRows[k]);
        Element("OverlayKind", k, k + 1);
        stream_.Short(record_.OverlayKind[k]);
    }

    void Overlays() {
        OverlayAt(kOverlayCount);
        if constexpr (kReads) {
            RequirePossibleOverlays(stream_, record_);
        }
        List("overlays", [this] {
            auto first = static_cast<std::size_t>(record_.NumData);
            const auto overlays = static_cast<std::size_t>(record_.OverlayRows[kOverlayCount]);
            for (std::size_t k = 1; k <= overlays; ++k) {
                OverlayAt(k);
                if constexpr (kReads) {
                    RequirePossibleOverlay(stream_, record_, k);
                    stream_.RequireRoom(record_.OverlayRows[k], kLeastOverlayRow);
                    if (HasFailed()) {
                        return;
                    }
                }
                Rows(nullptr, first, record_.OverlayRows[k],
                     [this](std::size_t i, auto& row) { this->Orientations(i, row); });
                first += static_cast<std::size_t>(record_.OverlayRows[k]);
            }
        });
    }

    /// The body visits the elements of a long array.
    template <class Body>
    void List(const char* name, const Body& body) {
        if constexpr (kLists) {
            stream_.BeginList(name);
        }
        body();
        if constexpr (kLists) {
            stream_.EndList();
        }
    }

    /// The texts of a line of the row table. Positions are recomputed from the rows; only the order
    /// of the table, the numbers in its first column, is used.
    void CellsOf(std::int32_t line) {
        if constexpr (kReads) {
            plot_.table.push_back(RowOfCell(stream_.TextBytes()));
            for (std::size_t column = 1; column < kCellColumns; ++column) {
                (void)stream_.TextBytes();
            }
        } else {
            for (std::size_t column = 0; column < kCellColumns; ++column) {
                stream_.Text(plot_.Cell(line, column));
            }
        }
    }

    void Cells() {
        if constexpr (kReads) {
            stream_.RequireRoom(record_.NumLoadedData, kLeastCellRow);
        }
        List("cells", [this] {
            for (std::int32_t line = 0; line < record_.NumLoadedData && !HasFailed(); ++line) {
                List(nullptr, [&] { CellsOf(line); });
            }
        });
    }

    Plot& plot_;
    decltype(plot_.record)& record_;
};

#undef FIELD

} // namespace quandrel
