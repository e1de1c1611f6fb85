// SPDX-License-Identifier: MIT
//
// The usual lines of large tables, read without the parser: two plain numbers at their beginning.

#pragma once

#include "input/format_model.h"
#include "orientation/attitude.h"

#include <cstdint>
#include <string_view>

namespace quandrel {

class PlainPairs {
public:
    explicit PlainPairs(const LineFormat& format);

    /// Whether lines of the format can be read at all: two numbers in the first two columns, planes
    /// without a sense of dip or lines, and nothing else of the line is wanted.
    [[nodiscard]] bool CanRead() const { return canRead_; }

    /// Reads a line.
    ///
    /// @param[in,out] at       its first character; afterwards that of the next line
    /// @param[out] attitude    as the parser would read it, to 1e-6 degree
    /// @param[out] wholeKey    the number of its whole degrees (LineKeyOfDegrees), or -1 for one
    ///                         with decimals
    /// @return false for a line that is not plain, which the parser has to read; `at` is unchanged
    [[nodiscard]] bool Read(const char*& at, const char* end, Attitude& attitude,
                            int& wholeKey) const;

private:
    bool canRead_ = false;
    char delimiter_ = '\t';
    bool isAnyDelimiter_ = false;
    bool azimuthIsFirst_ = false;
    bool isStrike_ = false; ///< by the right-hand rule
};

} // namespace quandrel
