// SPDX-License-Identifier: MIT

#include "persistence/extension_by_hand.h"
#include "persistence/plot_extension.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace quandrel {
namespace {

using Blocks = std::vector<ExtensionBlock>;

Blocks SomeBlocks() {
    return {{{{'D', 'E', 'C', '1'}, false}, std::string("\0\x01 rows", 7)},
            {{{'N', 'O', 'T', 'E'}, true}, "any rows"},
            {{{'V', 'O', 'I', 'D'}, true}, ""},
            {{{'N', 'O', 'T', 'E'}, false}, "the same tag again"}};
}

/// What is appended to a file for blocks.
std::string BytesOf(const Blocks& blocks) {
    const std::string fields = "fields";
    std::string bytes = fields;
    ExtensionWriter writer(bytes);
    for (const ExtensionBlock& block : blocks) {
        writer.Block(block.head, [&] { bytes += block.bytes; });
    }
    writer.Finish();
    EXPECT_TRUE(bytes.starts_with(fields));
    return bytes.substr(fields.size());
}

Blocks BlocksOf(std::string_view bytes) {
    const Result<Extension> extension = ReadExtension(bytes);
    EXPECT_TRUE(extension) << extension.Error();
    Blocks blocks;
    for (const BlockView& block : extension->blocks) {
        blocks.push_back({block.head, std::string(block.bytes)});
    }
    return blocks;
}

TEST(PlotExtension, TheCheckValueOfTheCrcIsTheStandards) {
    EXPECT_EQ(CrcBitByBit("123456789"), 0xcbf43926U);
    EXPECT_EQ(Crc32("123456789"), 0xcbf43926U);
    EXPECT_EQ(Crc32("56789", Crc32("1234")), 0xcbf43926U);
}

TEST(PlotExtension, NoBlocksAreNoBytes) {
    EXPECT_EQ(BytesOf({}), "");
    EXPECT_TRUE(BlocksOf("").empty());
    EXPECT_EQ(ReadExtension("")->length, 0U);
}

TEST(PlotExtension, BytesAreThoseOfTheDescription) {
    EXPECT_EQ(BytesOf(SomeBlocks()),
              ExtensionByHand(BlockByHand("DEC1", 0, std::string("\0\x01 rows", 7))
                              + BlockByHand("NOTE", 1, "any rows") + BlockByHand("VOID", 1, "")
                              + BlockByHand("NOTE", 0, "the same tag again")));
}

TEST(PlotExtension, BlocksComeBackInTheirOrder) {
    const std::string bytes = BytesOf(SomeBlocks());
    EXPECT_EQ(BlocksOf(bytes), SomeBlocks());
    EXPECT_EQ(ReadExtension(bytes)->length, bytes.size());
}

TEST(PlotExtension, AnExtensionCutOffAnywhereIsReported) {
    const std::string whole = BytesOf(SomeBlocks());
    for (std::size_t length = 1; length < whole.size(); ++length) {
        const auto extension = ReadExtension(std::string_view(whole).substr(0, length));
        ASSERT_FALSE(extension) << length;
        EXPECT_EQ(extension.Error(), "Its extension is cut off.") << length;
    }
}

TEST(PlotExtension, EachTurnedBitIsFound) {
    const std::string whole = BytesOf(SomeBlocks());
    for (std::size_t bit = 0; bit < 8 * whole.size(); ++bit) {
        std::string damaged = whole;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ 1 << bit % 8);
        EXPECT_FALSE(ReadExtension(damaged)) << bit;
    }
}

TEST(PlotExtension, BytesAfterTheEndAreLeftAlone) {
    const std::string whole = BytesOf(SomeBlocks());
    EXPECT_EQ(BlocksOf(whole + "of a longer file"), SomeBlocks());
    EXPECT_EQ(ReadExtension(whole + "of a longer file")->length, whole.size());
}

TEST(PlotExtension, OtherBytesAreNoExtension) {
    for (const std::string& bytes :
         {std::string("bytes of something else"), std::string(400, '\0'), std::string("END ")}) {
        EXPECT_TRUE(BlocksOf(bytes).empty());
        EXPECT_EQ(ReadExtension(bytes)->length, 0U);
    }
}

TEST(PlotExtension, ALaterFormIsNamed) {
    std::string later = BytesOf(SomeBlocks());
    later[7] = '2';
    EXPECT_EQ(ReadExtension(later).Error(), "Its extension has the form of a later version.");
}

TEST(PlotExtension, ALengthBeyondTheFileTakesNoMemory) {
    const std::string huge = ExtensionByHand(
        "HUGE" + LittleEndian(0, 4) + LittleEndian(0xfffffffffffffff0U, 8) + std::string(64, 'x'));
    EXPECT_EQ(ReadExtension(huge).Error(), "Its extension is cut off.");
}

TEST(PlotExtension, FlagsOfALaterVersionArePassedOver) {
    EXPECT_EQ(BlocksOf(ExtensionByHand(BlockByHand("NEWS", 0xfffffffeU, "x"))),
              (Blocks{{{{'N', 'E', 'W', 'S'}, false}, "x"}}));
}

TEST(PlotExtension, RandomBlocksComeBack) {
    std::mt19937 random(20);
    for (int trial = 0; trial < 200; ++trial) {
        Blocks blocks(random() % 5 + 1);
        for (ExtensionBlock& block : blocks) {
            for (char& c : block.head.tag) {
                c = static_cast<char>('A' + random() % 26);
            }
            block.head.holdsForAnyRows = random() % 2 == 0;
            block.bytes.resize(random() % 300);
            for (char& c : block.bytes) {
                c = static_cast<char>(random());
            }
        }
        EXPECT_EQ(BlocksOf(BytesOf(blocks)), blocks);
    }
}

} // namespace
} // namespace quandrel
