// SPDX-License-Identifier: MIT
//
// Arbitrary bytes as a line of data, in any format: the first 16 bytes choose the format, the rest
// is the line. A result that breaks its rules aborts the program.

#include "core/plot_store.h"
#include "input/data_line.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace quandrel {
namespace {

constexpr std::size_t kFormatBytes = 16;

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

LineFormat FormatFrom(const std::uint8_t* bytes) {
    constexpr char kDelimiters[] = {'\t', ',', ';', ' ', kAnyDelimiter, '/'};
    LineFormat format;
    format.primary = static_cast<std::int16_t>(bytes[0] % 5);
    format.secondary = static_cast<std::int16_t>(bytes[1] % 7);
    format.planeConvention = bytes[2] % 8;
    format.isQuadrant = (bytes[3] & 1U) != 0;
    format.wantLine = (bytes[3] & 2U) != 0;
    format.wantNumber = (bytes[3] & 4U) != 0;
    format.wantText = (bytes[3] & 8U) != 0;
    format.hasOverlays = (bytes[3] & 16U) != 0;
    format.decimalIsComma = (bytes[3] & 32U) != 0;
    format.convertDecimals = (bytes[3] & 64U) != 0;
    format.negativePlunge =
        (bytes[3] & 128U) != 0 ? NegativePlunge::Vector : NegativePlunge::LowerEnd;
    format.delimiter = kDelimiters[bytes[4] % sizeof kDelimiters];
    for (std::size_t slot = 0; slot < format.slots.size(); ++slot) {
        format.slots[slot] = bytes[5 + slot] % 40;
    }
    format.comments = {(bytes[15] & 1U) != 0, (bytes[15] & 2U) != 0, (bytes[15] & 4U) != 0};
    format.pairsInCells = (bytes[15] & 8U) != 0;
    format.lineIsTrendFirst = (bytes[15] & 16U) != 0;
    if ((bytes[15] & 32U) != 0) {
        format.placeColumns = {bytes[5] % 40, bytes[6] % 40};
    }
    format.neededColumns = HighestColumnNeeded(format) + 1;
    return format;
}

void CheckAngles(double dip, double azimuth) {
    Require(std::abs(dip) <= 90 + 1e-9);
    Require(std::abs(azimuth) <= 360 + 1e-9);
}

void CheckTyped(std::string_view line, const LineFormat& format) {
    const ParsedRow row = ParseLine(line, format);
    if (row.status != LineStatus::Row) {
        return;
    }
    CheckAngles(row.dip, row.az);
    if (row.secondaryPresent) {
        CheckAngles(row.dip2, row.az2);
    }
    if (row.lineStatus == AppendedLineStatus::Good) {
        CheckAngles(row.linePlunge, row.lineTrend);
    }
    Require(std::isfinite(row.number));
    Require(!row.mapPlace || (std::isfinite(row.mapPlace->x) && std::isfinite(row.mapPlace->y)));
    Require(std::string_view(row.text).size() <= line.size());
}

void CheckTexts(std::string_view line, const LineFormat& format) {
    gDecimalIsComma = format.decimalIsComma;
    gConvertDecimals = format.convertDecimals;
    SlotValues slots;
    for (std::size_t slot = 0; slot < slots.size(); ++slot) {
        slots[slot] = format.slots[slot];
    }
    std::string dip;
    std::string az;
    std::string dip2;
    std::string az2;
    std::string number = format.wantNumber ? "TRUE" : "FALSE";
    std::string text = format.wantText ? "TRUE" : "FALSE";
    std::string linePlunge = format.wantLine ? "TRUE" : "FALSE";
    std::string lineTrend;
    const std::string delimiter(format.delimiter == kAnyDelimiter ? 0 : 1, format.delimiter);
    ParseDataLine(line, dip, az, dip2, az2, number, text, linePlunge, lineTrend,
                  format.neededColumns, format.primary, format.secondary,
                  static_cast<std::int16_t>(format.planeConvention), false, format.isQuadrant,
                  slots, delimiter, format.hasOverlays);
    Require(IsErrorText(dip) == az.empty() || dip.empty());
    Require(number != "TRUE" && linePlunge != "TRUE");
}

} // namespace
} // namespace quandrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < quandrel::kFormatBytes) {
        return 0;
    }
    const quandrel::LineFormat format = quandrel::FormatFrom(data);
    const std::string line(reinterpret_cast<const char*>(data) + quandrel::kFormatBytes,
                           size - quandrel::kFormatBytes);
    quandrel::CheckTyped(line, format);
    quandrel::CheckTexts(line, format);
    return 0;
}
