// SPDX-License-Identifier: MIT

#include "persistence/measured_block.h"

#include "persistence/binary_plot_checks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace quandrel {

namespace {

/// By RowAngles.
constexpr std::array<BlockHead, kRowAngles.size()> kHeads{
    {{{'M', 'P', 'R', 'I'}, false}, {{'M', 'S', 'E', 'C'}, false}, {{'M', 'L', 'I', 'N'}, false}}};

constexpr std::int32_t kNoDecimals = kErrorRow; ///< in place of the degree of a dip
constexpr std::size_t kRowBytes = 2 * (2 + 4);

constexpr std::int32_t kSteepest = 90;
constexpr std::int32_t kFullTurn = 360;

/// An orientation of a row in whole degrees, as the row holds it.
struct WholePair {
    std::int32_t dip = 0;
    std::int32_t azimuth = 0;
    bool isMissing = false;
};

WholePair WholeOf(const BinaryRow& row, RowAngles which) {
    switch (which) {
    case RowAngles::Secondary:
        return {row.dip2, row.azimuth2, row.dip2 == kErrorRow};
    case RowAngles::Line:
        return {row.lineDip, row.lineAzimuth,
                row.lineDip == kInvalidAppendedLine || row.lineDip == kErrorRow};
    case RowAngles::Primary:
        break;
    }
    return {row.dip, row.azimuth, row.dip == kErrorRow};
}

void Grow(MeasuredColumns& columns, std::int32_t rows) {
    columns.dip.Grow(rows);
    columns.dipOffset.Grow(rows);
    columns.azimuth.Grow(rows);
    columns.azimuthOffset.Grow(rows);
}

/// An angle as its nearest degree and the offset from it.
struct FiledAngle {
    std::int16_t degree = 0;
    float offset = 0;

    [[nodiscard]] bool IsWithin(std::int32_t least, std::int32_t most) const {
        constexpr float kLargestOffset = 0.5F;
        const float angle = static_cast<float>(degree) + offset;
        return degree >= least && degree <= most && std::abs(offset) <= kLargestOffset
               && !(angle < static_cast<float>(least)) && !(angle > static_cast<float>(most));
    }
};

FiledAngle ReadAngle(BinaryReader& reader) {
    FiledAngle angle;
    reader.Short(angle.degree);
    reader.Single(angle.offset);
    return angle;
}

void ReadRow(BinaryReader& reader, std::int32_t row, MeasuredColumns& columns) {
    const FiledAngle dip = ReadAngle(reader);
    const FiledAngle azimuth = ReadAngle(reader);
    if (dip.degree == kNoDecimals) {
        return;
    }
    reader.Require(dip.IsWithin(-kSteepest, kSteepest) && azimuth.IsWithin(0, kFullTurn));
    if (!reader.HasFailed()) {
        columns.dip.At(row) = NearestDegree::Of(dip.degree);
        columns.dipOffset.At(row) = dip.offset;
        columns.azimuth.At(row) = NearestDegree::Of(azimuth.degree);
        columns.azimuthOffset.At(row) = azimuth.offset;
    }
}

void WriteRow(BinaryWriter& writer, std::int32_t row, const MeasuredColumns& columns,
              bool hasDecimals) {
    writer.Short(hasDecimals ? columns.dip(row).Degree() : kNoDecimals);
    writer.Single(hasDecimals ? columns.dipOffset(row) : 0.0F);
    writer.Short(hasDecimals ? columns.azimuth(row).Degree() : std::int32_t{0});
    writer.Single(hasDecimals ? columns.azimuthOffset(row) : 0.0F);
}

} // namespace

const BlockHead& MeasuredBlockHead(RowAngles which) {
    return kHeads[static_cast<std::size_t>(which)];
}

std::optional<RowAngles> AnglesOfBlock(const BlockHead& head) {
    for (const RowAngles which : kRowAngles) {
        if (head.tag == MeasuredBlockHead(which).tag) {
            return which;
        }
    }
    return std::nullopt;
}

std::uint32_t ChecksumOf(std::span<const BinaryRow> rows, RowAngles which) {
    constexpr std::size_t kAtOnce = 8192; // rows whose bytes stay in the cache
    std::uint32_t checksum = 0;
    for (BinaryWriter writer; !rows.empty();) {
        writer.Bytes().clear();
        const std::size_t count = std::min(rows.size(), kAtOnce);
        for (const BinaryRow& row : rows.first(count)) {
            const WholePair whole = WholeOf(row, which);
            writer.Long(whole.dip);
            writer.Long(AzimuthOnCircle(whole.azimuth));
        }
        checksum = Crc32(writer.Bytes(), checksum);
        rows = rows.subspan(count);
    }
    return checksum;
}

std::optional<MeasuredBlock> ReadMeasuredBlock(std::string_view bytes) {
    BinaryReader reader(bytes);
    MeasuredBlock block;
    std::int32_t checksum = 0;
    reader.Long(block.count);
    reader.Long(checksum);
    reader.RequireRoom(block.count, kRowBytes);
    if (reader.HasFailed()) {
        return std::nullopt;
    }
    block.checksum = static_cast<std::uint32_t>(checksum);
    Grow(block.columns, block.count);
    for (std::int32_t row = 1; row <= block.count && !reader.HasFailed(); ++row) {
        ReadRow(reader, row, block.columns);
    }
    if (reader.HasFailed() || reader.Left() != 0) {
        return std::nullopt;
    }
    return block;
}

void WriteMeasuredBlock(BinaryWriter& writer, const MeasuredColumns& columns,
                        std::span<const BinaryRow> rows, RowAngles which) {
    writer.Long(static_cast<std::int32_t>(rows.size()));
    writer.Long(static_cast<std::int32_t>(ChecksumOf(rows, which)));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto row = static_cast<std::int32_t>(i) + 1;
        WriteRow(writer, row, columns, columns.Has(row) && !WholeOf(rows[i], which).isMissing);
    }
}

bool HasMeasured(const MeasuredColumns& columns, std::span<const BinaryRow> rows, RowAngles which) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (columns.Has(static_cast<std::int32_t>(i) + 1) && !WholeOf(rows[i], which).isMissing) {
            return true;
        }
    }
    return false;
}

bool Fits(const MeasuredColumns& columns, std::span<const BinaryRow> rows, RowAngles which) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (columns.Has(static_cast<std::int32_t>(i) + 1) && WholeOf(rows[i], which).isMissing) {
            return false;
        }
    }
    return true;
}

std::span<const BinaryRow> RowsWith(std::span<const BinaryRow> rows, const PlotRecord& record,
                                    RowAngles which) {
    switch (which) {
    case RowAngles::Secondary:
        return record.SecondaryFormat != 0 ? rows : std::span<const BinaryRow>();
    case RowAngles::Line:
        return record.HasAppendedLine != 0 ? rows.first(static_cast<std::size_t>(record.NumData))
                                           : std::span<const BinaryRow>();
    case RowAngles::Primary:
        break;
    }
    return rows;
}

void SetMeasured(BinaryPlot& plot, RowAngles which, std::int32_t row, const Attitude& measured) {
    MeasuredColumns& columns = plot.measured[static_cast<std::size_t>(which)];
    Grow(columns, row);
    columns.Set(row, measured);
}

} // namespace quandrel
