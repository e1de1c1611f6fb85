// SPDX-License-Identifier: MIT
//
// Cells, texts and errors of GDAL, for the readers of this folder.

#pragma once

#include "mapsession/session_error.h"

#include <cpl_conv.h>
#include <cpl_error.h>
#include <cpl_string.h>
#include <ogrsf_frmts.h>

#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace quandrel {

/// Suppresses GDAL's console messages while it lives; the last one is available.
class QuietGdal {
public:
    QuietGdal() {
        CPLErrorReset();
        CPLPushErrorHandler(CPLQuietErrorHandler);
    }

    ~QuietGdal() { CPLPopErrorHandler(); }

    QuietGdal(const QuietGdal&) = delete;
    QuietGdal& operator=(const QuietGdal&) = delete;
};

/// A text of the file as UTF-8. A file that does not state its encoding is taken as Western
/// European.
[[nodiscard]] std::string Utf8(const char* text);

/// A number in full, without an exponent; empty for one that is not finite.
template <class Number>
[[nodiscard]] std::string NumberText(Number number) {
    if (!std::isfinite(number)) {
        return {};
    }
    std::array<char, 400> buffer{};
    const std::to_chars_result end = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                                   number, std::chars_format::fixed);
    return {buffer.data(), end.ptr};
}

/// The value of a field as text; empty for one that is not set.
[[nodiscard]] std::string CellOf(const OGRFeature& feature, int field);

/// Why the file cannot be read: GDAL's last error.
[[nodiscard]] SessionError RefusedFile(const std::string& path);

} // namespace quandrel
