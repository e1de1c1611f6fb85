// SPDX-License-Identifier: MIT

#include "persistence/packed_text.h"
#include "persistence/picture_data.h"
#include "persistence/plot_extension.h"
#include "persistence/png_text.h"
#include "svg/svg_data.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {
namespace {

using std::string_literals::operator""s;

std::string Number(std::size_t value) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes += static_cast<char>(value >> shift & 0xffU);
    }
    return bytes;
}

std::string Chunk(const std::string& type, const std::string& data) {
    return Number(data.size()) + type + data + Number(Crc32(type + data));
}

std::string Png(const std::string& chunks) {
    return std::string(kPngSignature) + Chunk("IHDR", std::string(13, '\1')) + chunks
           + Chunk("IEND", "");
}

std::optional<std::string> TextIn(const std::string& chunks) {
    return TextOfPng(Png(chunks), "key", 1000);
}

TEST(Base64, GivesTheTextsOfTheStandard) {
    // RFC 4648, section 10.
    const std::string word = "foobar";
    const std::vector<std::string> texts = {"",         "Zg==",     "Zm8=",    "Zm9v",
                                            "Zm9vYg==", "Zm9vYmE=", "Zm9vYmFy"};
    for (std::size_t length = 0; length < texts.size(); ++length) {
        EXPECT_EQ(Base64Of(word.substr(0, length)), texts[length]);
        EXPECT_EQ(BytesOfBase64(texts[length]), word.substr(0, length));
    }
    std::string all;
    for (int i = 0; i < 256; ++i) {
        all += static_cast<char>(i);
    }
    EXPECT_EQ(BytesOfBase64(Base64Of(all)), all);
    for (const char* wrong :
         {"Z", "Zg", "Zg=", "Z===", "====", "Zg==Zg==", "Zm 8", "Zm9\xff", "-_-_"}) {
        EXPECT_FALSE(BytesOfBase64(wrong)) << wrong;
    }
}

TEST(PackedBytes, ComeBackWhateverTheyAre) {
    std::string bytes;
    std::uint32_t state = 7;
    for (int i = 0; i < 300'000; ++i) {
        state = state * 1664525U + 1013904223U;
        bytes += static_cast<char>(state >> 24);
    }
    for (const std::string& some : {std::string(), "a"s, std::string(500'000, '\0'), bytes}) {
        const std::optional<std::string> packed = Packed(some);
        ASSERT_TRUE(packed);
        EXPECT_EQ(Unpacked(*packed, some.size()), some);
        EXPECT_EQ(Unpacked(*packed + "more", some.size()), some);
        EXPECT_FALSE(Unpacked(packed->substr(0, packed->size() - 1), some.size()));
        if (!some.empty()) {
            EXPECT_FALSE(Unpacked(*packed, some.size() - 1)) << "more than allowed";
        }
    }
    EXPECT_FALSE(Unpacked("", 10));
    EXPECT_FALSE(Unpacked("no such thing", 10));
}

TEST(PackedBytes, StopAtTheirLimitWithoutTheMemory) {
    // A thousandfold bomb is abandoned after its first steps.
    const std::optional<std::string> packed = Packed(std::string(200'000'000, '\0'));
    ASSERT_TRUE(packed);
    ASSERT_LT(packed->size(), 250'000U);
    EXPECT_FALSE(Unpacked(*packed, 100'000));
}

TEST(PngText, IsFoundInEachKindOfChunk) {
    const std::string packed = Packed("the text").value_or("");
    EXPECT_EQ(TextIn(Chunk("tEXt", "key\0the text"s)), "the text");
    EXPECT_EQ(TextIn(Chunk("zTXt", "key\0\0"s + packed)), "the text");
    EXPECT_EQ(TextIn(Chunk("iTXt", "key\0\0\0en\0Schluessel\0the text"s)), "the text");
    EXPECT_EQ(TextIn(Chunk("iTXt", "key\0\1\0\0\0"s + packed)), "the text");
    EXPECT_EQ(TextIn(Chunk("tEXt", "other\0no"s) + Chunk("tEXt", "keys\0no"s)
                     + Chunk("IDAT", "key\0no"s) + Chunk("tEXt", "key\0yes"s)),
              "yes");
}

TEST(PngText, IsNotReadFromDamagedFiles) {
    const std::string good = Png(Chunk("tEXt", "key\0the text"s));
    ASSERT_EQ(TextOfPng(good, "key", 8), "the text");
    EXPECT_FALSE(TextOfPng(good, "key", 7)) << "longer than allowed";
    EXPECT_FALSE(TextOfPng(good.substr(1), "key", 8));
    EXPECT_FALSE(TextOfPng("", "key", 8));
    const std::size_t end = good.find("the text") + 8 + 4;
    for (std::size_t length = 0; length < end; ++length) {
        EXPECT_FALSE(TextOfPng(good.substr(0, length), "key", 8)) << length;
    }
    std::string wrong = good;
    wrong[good.find("the text")] = 'T';
    EXPECT_FALSE(TextOfPng(wrong, "key", 8)) << "its checksum is another's";
    EXPECT_FALSE(TextIn(Chunk("tEXt", "key")));
    EXPECT_FALSE(TextIn(Chunk("zTXt", "key\0"s)));
    EXPECT_FALSE(TextIn(Chunk("zTXt", "key\0\1"s + Packed("a").value_or(""))));
    EXPECT_FALSE(TextIn(Chunk("zTXt", "key\0\0not packed"s)));
    EXPECT_FALSE(TextIn(Chunk("zTXt", "key\0\0"s + Packed(std::string(1001, 'a')).value_or(""))));
    EXPECT_FALSE(TextIn(Chunk("iTXt", "key\0"s)));
    EXPECT_FALSE(TextIn(Chunk("iTXt", "key\0\2\0\0\0a"s)));
    EXPECT_FALSE(TextIn(Chunk("iTXt", "key\0\0\0en"s)));
    EXPECT_FALSE(TextOfPng(std::string(kPngSignature) + "\xff\xff\xff\xfftEXtkey\0a"s, "key", 8));
}

TEST(PictureKinds, AreKnownByTheirFirstBytes) {
    EXPECT_EQ(KindOfPicture(kPngSignature), PictureKind::Png);
    EXPECT_EQ(KindOfPicture("%PDF-1.4\n"), PictureKind::Pdf);
    EXPECT_EQ(KindOfPicture("\n\n%PDF-1.4\n"), PictureKind::Pdf);
    EXPECT_EQ(KindOfPicture("II*\0...."s), PictureKind::Tiff);
    EXPECT_EQ(KindOfPicture("MM\0*...."s), PictureKind::Tiff);
    EXPECT_EQ(KindOfPicture("<svg xmlns=''>"), PictureKind::Svg);
    EXPECT_EQ(KindOfPicture("\xEF\xBB\xBF \r\n<?xml version='1.0'?><!-- a --><svg>"),
              PictureKind::Svg);
    for (const char* other :
         {"", "12 34\n", "<html>", "a <svg>", "bin9.5", "; Quandrel", "\x89PNG"}) {
        EXPECT_FALSE(KindOfPicture(other)) << other;
    }
}

TEST(PlotInPicture, ComesBackFromSvgPngAndPdf) {
    const std::string plot = "bin9.5"s + std::string(1000, '\0') + "\xff";
    const Result<std::string> text = TextOfPlotFile(plot);
    ASSERT_TRUE(text);
    const Result<std::string> fromSvg =
        PlotFileOfPicture("<svg>" + SvgOfData(*text) + "</svg>", nullptr);
    ASSERT_TRUE(fromSvg) << fromSvg.Error();
    EXPECT_EQ(*fromSvg, plot);
    const Result<std::string> fromPng = PlotFileOfPicture(
        Png(Chunk("zTXt", "Quandrel plot\0\0"s + Packed(*text).value_or(""))), nullptr);
    ASSERT_TRUE(fromPng) << fromPng.Error();
    EXPECT_EQ(*fromPng, plot);
    const AttachmentReader reader = [](std::string_view, const std::string& name,
                                       std::size_t most) {
        return Result<std::string>(name + "," + std::to_string(most));
    };
    const Result<std::string> fromPdf = PlotFileOfPicture("%PDF-1.4", reader);
    ASSERT_TRUE(fromPdf);
    EXPECT_EQ(*fromPdf, "plot.qpx,268435456");
}

TEST(PlotInPicture, IsMissedInOneSentence) {
    const AttachmentReader none = [](std::string_view, const std::string&, std::size_t) {
        return Result<std::string>(std::string());
    };
    const AttachmentReader bad = [](std::string_view, const std::string&, std::size_t) {
        return Result<std::string>(Failure{"It is not a PDF that can be read."});
    };
    const char* const kNone = "The picture holds no plot: only pictures that were exported with "
                              "their data can be opened.";
    EXPECT_EQ(PlotFileOfPicture("<svg></svg>", nullptr).Error(), kNone);
    EXPECT_EQ(PlotFileOfPicture(Png(""), nullptr).Error(), kNone);
    EXPECT_EQ(PlotFileOfPicture("II*\0"s, nullptr).Error(), kNone);
    EXPECT_EQ(PlotFileOfPicture("%PDF-1.4", none).Error(), kNone);
    EXPECT_EQ(PlotFileOfPicture("%PDF-1.4", bad).Error(), "It is not a PDF that can be read.");
    EXPECT_EQ(PlotFileOfPicture("%PDF-1.4", nullptr).Error(),
              "This program does not read PDF files.");
    EXPECT_EQ(PlotFileOfPicture("<svg>" + SvgOfData("QUJD") + "</svg>", nullptr).Error(),
              "The plot in the picture is damaged.");
}

} // namespace
} // namespace quandrel
