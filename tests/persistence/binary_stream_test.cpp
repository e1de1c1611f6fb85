// SPDX-License-Identifier: MIT

#include "persistence/binary_stream.h"

#include <cmath>
#include <limits>

namespace quandrel {
namespace {

std::string Written(const TaggedValue& value) {
    BinaryWriter writer;
    writer.Value(value);
    return writer.Bytes();
}

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values) {
        bytes += static_cast<char>(value);
    }
    return bytes;
}

TEST(BinaryStream, FieldsAreLittleEndianWithoutGaps) {
    BinaryWriter writer;
    writer.Short(std::int16_t{-2});
    writer.Long(0x12345678);
    writer.Single(1.5F); // sign 0, exponent 127, half: 3FC00000
    writer.Double(-2.0); // C000000000000000
    writer.Text("ab");
    writer.Text("");
    writer.Fixed("bin");
    writer.Code(MakeSymbolCode(3, 2, 6));
    EXPECT_EQ(writer.Error(), "");
    EXPECT_EQ(writer.Bytes(),
              Bytes({0xFE, 0xFF, 0x78, 0x56, 0x34, 0x12, 0,   0,   0xC0, 0x3F, 0,  0,
                     0,    0,    0,    0,    0,    0xC0, 2,   0,   'a',  'b',  0,  0,
                     'b',  'i',  'n',  6,    0,    '0',  '3', '0', '2',  '0',  '6'}));
}

TEST(BinaryStream, ManyDoublesAreAsManySingleOnes) {
    constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
    const std::vector<double> values = {-2, 0.1, kNoNumber, 1e300, -0.0};
    BinaryWriter together;
    together.Doubles(values);
    BinaryWriter oneByOne;
    for (const double value : values) {
        oneByOne.Double(value);
    }
    EXPECT_EQ(together.Bytes(), oneByOne.Bytes());
    std::vector<double> read(values.size());
    BinaryReader reader(together.Bytes());
    reader.Doubles(read);
    EXPECT_FALSE(reader.HasFailed());
    EXPECT_EQ(read, (std::vector<double>{-2, 0.1, 0, 1e300, -0.0}));
    read.push_back(7);
    BinaryReader tooShort(together.Bytes());
    tooShort.Doubles(read);
    EXPECT_TRUE(tooShort.HasFailed());
    EXPECT_EQ(read, std::vector<double>(6));
    const std::string bad(reinterpret_cast<const char*>(&kNoNumber), sizeof(kNoNumber));
    BinaryReader refusing(bad);
    refusing.Doubles(std::span(read).first(1));
    EXPECT_TRUE(refusing.HasFailed());
}

TEST(BinaryStream, TaggedValuesHaveTheirKindInFront) {
    EXPECT_EQ(Written({}), Bytes({0, 0}));
    EXPECT_EQ(Written(std::int16_t{7}), Bytes({2, 0, 7, 0}));
    EXPECT_EQ(Written(std::int32_t{-1}), Bytes({3, 0, 255, 255, 255, 255}));
    EXPECT_EQ(Written(2.0F), Bytes({4, 0, 0, 0, 0, 0x40}));
    EXPECT_EQ(Written(2.0), Bytes({5, 0, 0, 0, 0, 0, 0, 0, 0, 0x40}));
    EXPECT_EQ(Written(std::string("x")), Bytes({8, 0, 1, 0, 'x'}));
    EXPECT_EQ(Written(true), Bytes({11, 0, 255, 255}));
    EXPECT_EQ(Written(false), Bytes({11, 0, 0, 0}));
}

TEST(BinaryStream, TaggedValuesComeBack) {
    const TaggedValue values[] = {{},
                                  std::int16_t{-32768},
                                  std::int32_t{2147483647},
                                  0.1F,
                                  -1e300,
                                  std::string("gr\xc3\xa8s"),
                                  true,
                                  false};
    for (const TaggedValue& value : values) {
        const std::string bytes = Written(value);
        BinaryReader reader(bytes);
        TaggedValue read = std::string("former");
        reader.Value(read);
        EXPECT_EQ(read, value);
        EXPECT_EQ(reader.Left(), 0U);
        EXPECT_FALSE(reader.HasFailed());
    }
}

TEST(BinaryStream, OtherKindsAreRefused) {
    for (const int kind : {1, 6, 7, 9, 10, 12, 255}) {
        const std::string bytes = Bytes({kind, 0, 0, 0, 0, 0, 0, 0, 0, 0});
        BinaryReader reader(bytes);
        TaggedValue value;
        reader.Value(value);
        EXPECT_TRUE(reader.HasFailed()) << kind;
    }
}

TEST(BinaryStream, AfterAFaultNothingIsReadAndTheFaultStands) {
    const std::string bytes = Bytes({1, 0, 2, 0, 3});
    BinaryReader reader(bytes);
    std::int32_t value = 9;
    reader.Long(value);
    EXPECT_EQ(value, 0x20001);
    reader.Long(value);
    EXPECT_EQ(value, 0);
    EXPECT_EQ(reader.Error(), "It ends too early.");
    EXPECT_EQ(reader.Left(), 0U);
    std::int16_t small = 9;
    reader.Short(small);
    EXPECT_EQ(small, 0);
    reader.Refuse();
    EXPECT_EQ(reader.Error(), "It ends too early.");
}

TEST(BinaryStream, LengthsAndCountsAreHeldAgainstTheRest) {
    const std::string negative = Bytes({255, 255, 'a'});
    BinaryReader first(negative);
    std::string text;
    first.Text(text);
    EXPECT_TRUE(first.HasFailed());
    const std::string ten(10, '\0');
    for (const auto& [count, least, fits] :
         {std::tuple<std::int64_t, std::size_t, bool>{5, 2, true},
          {6, 2, false},
          {-1, 2, false},
          {0, 100, true},
          {std::numeric_limits<std::int64_t>::max(), 2, false}}) {
        BinaryReader reader(ten);
        reader.RequireRoom(count, least);
        EXPECT_EQ(reader.HasFailed(), !fits) << count;
    }
}

TEST(BinaryStream, WhatIsNoNumberIsRefusedAndNeverWritten) {
    BinaryWriter writer;
    writer.Single(std::nanf(""));
    writer.Double(std::nan(""));
    EXPECT_EQ(writer.Bytes(), std::string(12, '\0'));
    const std::string none = Bytes({0, 0, 0xC0, 0x7F});
    BinaryReader reader(none);
    float value = 0;
    reader.Single(value);
    EXPECT_TRUE(reader.HasFailed());
    BinaryReader any(none);
    any.AnySingle(value);
    EXPECT_FALSE(any.HasFailed());
}

TEST(BinaryStream, WhatDoesNotFitIsAFault) {
    BinaryWriter writer;
    writer.Short(std::int32_t{-32768});
    EXPECT_EQ(writer.Error(), "");
    writer.Short(std::int32_t{32768});
    EXPECT_NE(writer.Error(), "");
    BinaryWriter texts;
    texts.Text(std::string(kLongestFileText, 'x'));
    EXPECT_EQ(texts.Error(), "");
    texts.Text(std::string(kLongestFileText + 1, 'x'));
    EXPECT_NE(texts.Error(), "");
}

TEST(BinaryStream, DoublesBeyondASingleBecomeInfinite) {
    BinaryWriter writer;
    writer.Single(-1e300);
    EXPECT_EQ(writer.Bytes(), Bytes({0, 0, 0x80, 0xFF}));
}

} // namespace
} // namespace quandrel
