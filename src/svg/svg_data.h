// SPDX-License-Identifier: MIT
//
// Data that an SVG document carries in its <metadata>, in an element of a namespace of our own:
//
//     <metadata>
//     <quandrel:plot xmlns:quandrel="urn:quandrel:plot">
//     eJztnQ...
//     </quandrel:plot>
//     </metadata>
//
// Programs that edit documents keep such an element, and may change its prefix and its blanks.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// The element with its <metadata>.
///
/// @param text  letters, digits, "+", "/" and "=" alone
[[nodiscard]] std::string SvgOfData(std::string_view text);

/// The text of the first such element of a document, without blanks and ends of lines; nothing when
/// there is none, or it holds anything else. Inverse of SvgOfData.
///
/// The document is searched, not parsed: entities are not expanded, nothing is looked up, and its
/// other parts need not be well-formed. O(size).
///
/// @param svg  any bytes
[[nodiscard]] std::optional<std::string> DataOfSvg(std::string_view svg);

} // namespace quandrel
