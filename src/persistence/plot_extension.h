// SPDX-License-Identifier: MIT
//
// The extension of a binary plot file: what follows its last field.
//
// An extension is 8 bytes, the mark with its version, then blocks until the block "END ". A block
// is a tag of 4 bytes, flags (32 bits), the count of its bytes (64 bits), the bytes, and the CRC-32
// of all these; numbers are little-endian. Each property of a plot that the fields do not have is a
// block with one owner. A reader keeps blocks that it does not know for the next save, so that an
// earlier version of the program loses nothing of a later one.
//
// A file that ends at its last field has no extension.

#pragma once

#include "core/result.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// Four characters that say what a block holds.
using BlockTag = std::array<char, 4>;

/// One property of a plot in the extension of its file.
struct ExtensionBlock {
    BlockTag tag{};

    /// True when the block stays true whatever rows the plot has. Others are about the rows that
    /// the file holds, and go once rows, their order or overlays change.
    bool holdsForAnyRows = false;

    std::string bytes;

    friend bool operator==(const ExtensionBlock&, const ExtensionBlock&) = default;
};

/// The blocks of an extension, in their order.
///
/// A failure says what is damaged, for the user. Then nothing of the extension can be relied on.
/// No bytes at all are an extension without blocks.
///
/// @param bytes  of a file, from the end of its last field on
[[nodiscard]] Result<std::vector<ExtensionBlock>> ReadExtension(std::string_view bytes);

/// The bytes of an extension with some blocks; none for no blocks. ReadExtension leads back.
///
/// @param blocks  tags of two blocks may be equal; "END " is refused by a failure
[[nodiscard]] Result<std::string> ExtensionBytes(std::span<const ExtensionBlock> blocks);

} // namespace quandrel
