// SPDX-License-Identifier: MIT

#include "persistence/plot_extension.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace quandrel {
namespace {

/// CRC-32 of ISO/IEC 13239, bit by bit.
std::uint32_t CrcBitByBit(const std::string& bytes) {
    std::uint32_t crc = 0xffffffffU;
    for (const char c : bytes) {
        crc ^= static_cast<unsigned char>(c);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc & 1U) != 0 ? crc >> 1 ^ 0xedb88320U : crc >> 1;
        }
    }
    return ~crc;
}

std::string LittleEndian(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text.push_back(static_cast<char>(number >> (8 * i) & 0xffU));
    }
    return text;
}

std::string BlockByHand(const std::string& tag, std::uint32_t flags, const std::string& content) {
    const std::string block =
        tag + LittleEndian(flags, 4) + LittleEndian(content.size(), 8) + content;
    return block + LittleEndian(CrcBitByBit(block), 4);
}

const std::string kMarkByHand = "\x8fQX\r\n\x1a"
                                "01";

std::string EndByHand() {
    return BlockByHand("END ", 1, "");
}

std::vector<ExtensionBlock> SomeBlocks() {
    return {{{'D', 'E', 'C', '1'}, false, std::string("\0\x01 rows", 7)},
            {{'N', 'O', 'T', 'E'}, true, "any rows"},
            {{'V', 'O', 'I', 'D'}, true, ""},
            {{'N', 'O', 'T', 'E'}, false, "the same tag again"}};
}

std::string FileOf(const std::vector<ExtensionBlock>& blocks) {
    return *ExtensionBytes(blocks);
}

TEST(PlotExtension, TheCheckValueOfTheCrcIsTheStandards) {
    EXPECT_EQ(CrcBitByBit("123456789"), 0xcbf43926U);
}

TEST(PlotExtension, NoBlocksAreNoBytes) {
    EXPECT_EQ(FileOf({}), "");
    const auto blocks = ReadExtension("");
    ASSERT_TRUE(blocks);
    EXPECT_TRUE(blocks->empty());
}

TEST(PlotExtension, BytesAreThoseOfTheDescription) {
    const std::string byHand = kMarkByHand + BlockByHand("DEC1", 0, std::string("\0\x01 rows", 7))
                               + BlockByHand("NOTE", 1, "any rows") + BlockByHand("VOID", 1, "")
                               + BlockByHand("NOTE", 0, "the same tag again") + EndByHand();
    EXPECT_EQ(FileOf(SomeBlocks()), byHand);
}

TEST(PlotExtension, BlocksComeBackInTheirOrder) {
    const auto blocks = ReadExtension(FileOf(SomeBlocks()));
    ASSERT_TRUE(blocks);
    EXPECT_EQ(*blocks, SomeBlocks());
}

TEST(PlotExtension, AnExtensionCutOffAnywhereIsReported) {
    const std::string whole = FileOf(SomeBlocks());
    for (std::size_t length = 1; length < whole.size(); ++length) {
        const auto blocks = ReadExtension(std::string_view(whole).substr(0, length));
        ASSERT_FALSE(blocks) << length;
        EXPECT_EQ(blocks.Error(), "Its extension is cut off.") << length;
    }
}

TEST(PlotExtension, EachTurnedBitIsFound) {
    const std::string whole = FileOf(SomeBlocks());
    for (std::size_t bit = 0; bit < 8 * whole.size(); ++bit) {
        std::string damaged = whole;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ 1 << bit % 8);
        EXPECT_FALSE(ReadExtension(damaged)) << bit;
    }
}

TEST(PlotExtension, BytesAfterTheEndAreDamage) {
    const auto blocks = ReadExtension(FileOf(SomeBlocks()) + '\0');
    ASSERT_FALSE(blocks);
    EXPECT_EQ(blocks.Error(), "Its extension is damaged.");
}

TEST(PlotExtension, OtherBytesAreNotAnExtension) {
    EXPECT_EQ(ReadExtension("bytes of something else").Error(),
              "What follows its last field is not an extension.");
    EXPECT_EQ(ReadExtension(std::string(400, '\0')).Error(),
              "What follows its last field is not an extension.");
}

TEST(PlotExtension, ALaterFormIsNamed) {
    std::string later = FileOf(SomeBlocks());
    later[7] = '2';
    EXPECT_EQ(ReadExtension(later).Error(), "Its extension is of a later form.");
}

TEST(PlotExtension, ALengthBeyondTheFileTakesNoMemory) {
    const std::string huge = kMarkByHand + "HUGE" + LittleEndian(0, 4)
                             + LittleEndian(0xfffffffffffffff0U, 8) + std::string(64, 'x');
    EXPECT_EQ(ReadExtension(huge).Error(), "Its extension is cut off.");
}

TEST(PlotExtension, FlagsOfALaterVersionArePassedOver) {
    const auto blocks =
        ReadExtension(kMarkByHand + BlockByHand("NEWS", 0xfffffffeU, "x") + EndByHand());
    ASSERT_TRUE(blocks);
    EXPECT_EQ(*blocks, (std::vector<ExtensionBlock>{{{'N', 'E', 'W', 'S'}, false, "x"}}));
}

TEST(PlotExtension, TheTagOfTheEndIsRefused) {
    const ExtensionBlock end{{'E', 'N', 'D', ' '}, true, ""};
    EXPECT_FALSE(ExtensionBytes(std::vector{end}));
}

TEST(PlotExtension, RandomBlocksComeBack) {
    std::mt19937 random(20);
    for (int trial = 0; trial < 200; ++trial) {
        std::vector<ExtensionBlock> blocks(random() % 5 + 1);
        for (ExtensionBlock& block : blocks) {
            for (char& c : block.tag) {
                c = static_cast<char>('A' + random() % 26);
            }
            block.holdsForAnyRows = random() % 2 == 0;
            block.bytes.resize(random() % 300);
            for (char& c : block.bytes) {
                c = static_cast<char>(random());
            }
        }
        const auto again = ReadExtension(FileOf(blocks));
        ASSERT_TRUE(again);
        EXPECT_EQ(*again, blocks);
    }
}

} // namespace
} // namespace quandrel
