// SPDX-License-Identifier: MIT
//
// The extension of a binary plot file: what follows its last field.
//
// An extension is 8 bytes, the mark with its version, then blocks until the block "END ". A block
// is a tag of 4 bytes, flags (32 bits), the count of its bytes (64 bits), the bytes, and the CRC-32
// of all these; numbers are little-endian. Each property of a plot that the fields do not have is a
// block with one owner (plot_blocks.h). A reader keeps blocks that it does not know for the next
// save, so that an earlier version of the program loses nothing of a later one.
//
// A file that ends at its last field has no extension. Bytes after an extension are not read, nor
// are bytes that are not an extension: a longer file may have been at their place before.

#pragma once

#include "core/result.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// Four characters that say what a block holds; "END " is reserved.
using BlockTag = std::array<char, 4>;

/// The tag of a block, and which rows it is about.
struct BlockHead {
    BlockTag tag{};

    /// True when the block stays true whatever rows the plot has. Others are about the rows that
    /// the file holds, and go once rows, their order or overlays change.
    bool holdsForAnyRows = false;

    friend bool operator==(const BlockHead&, const BlockHead&) = default;
};

/// A block with its bytes, in a file or as a value.
template <class Bytes>
struct BlockWith {
    BlockHead head;
    Bytes bytes;

    friend bool operator==(const BlockWith&, const BlockWith&) = default;
};

using BlockView = BlockWith<std::string_view>;
using ExtensionBlock = BlockWith<std::string>;

/// The blocks of an extension in their order, and its length in bytes; 0 for none.
struct Extension {
    std::vector<BlockView> blocks;
    std::size_t length = 0;
};

/// The extension that bytes begin with.
///
/// A failure says what is damaged, for the user. Then nothing of the extension can be relied on.
///
/// @param bytes  of a file, from the end of its last field on; must outlive the blocks
[[nodiscard]] Result<Extension> ReadExtension(std::string_view bytes);

/// Appends an extension to the bytes of a file. ReadExtension leads back.
class ExtensionWriter {
public:
    /// @param bytes  up to the end of the last field; must outlive the writer
    explicit ExtensionWriter(std::string& bytes)
        : bytes_(bytes) {}

    /// Appends a block.
    ///
    /// @param put  appends the content of the block to the bytes
    template <class Put>
    void Block(const BlockHead& head, const Put& put) {
        Begin(head);
        put();
        End();
    }

    /// Ends the extension. Without a block nothing is appended.
    void Finish();

private:
    void Begin(const BlockHead& head);
    void End();

    std::string& bytes_;
    std::size_t begin_ = 0; ///< of the last block; 0 before the first
};

/// CRC-32 of ISO/IEC 13239, of bytes that follow others.
///
/// @param former  that of the bytes before; 0 without any
[[nodiscard]] std::uint32_t Crc32(std::string_view bytes, std::uint32_t former = 0);

} // namespace quandrel
