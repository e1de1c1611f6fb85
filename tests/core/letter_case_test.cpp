// SPDX-License-Identifier: MIT

#include "core/letter_case.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

struct Alphabet {
    const char* what;
    const char* capitals;
    const char* small;
};

// From the code charts.
const Alphabet kAlphabets[] = {
    {"ASCII", "ABCMNOXYZ", "abcmnoxyz"},
    {"Latin-1 Supplement", "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ", "àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ"},
    {"Latin Extended-A", "ĀĂĄĆĈĊČĎĐĒĔĖĘĚĜĞĠĢĤĦĨĪĬĮĲĴĶĹĻĽĿŁŃŅŇŊŌŎŐŒŔŖŘŚŜŞŠŢŤŦŨŪŬŮŰŲŴŶŸŹŻŽ",
     "āăąćĉċčďđēĕėęěĝğġģĥħĩīĭįĳĵķĺļľŀłńņňŋōŏőœŕŗřśŝşšţťŧũūŭůűųŵŷÿźżž"},
    {"Latin Extended-B", "ǺǼǾȀȘȚȞ", "ǻǽǿȁșțȟ"},
    {"Greek", "ΆΈΉΊΌΎΏΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩΪΫ", "άέήίόύώαβγδεζηθικλμνξοπρστυφχψωϊϋ"},
    {"Cyrillic",
     "ЀЁЂЃЄЅІЇЈЉЊЋЌЍЎЏАБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯҐӀӁӘ"
     "Ԯ",
     "ѐёђѓєѕіїјљњћќѝўџабвгдежзийклмнопрстуфхцчшщъыьэюяґӏӂә"
     "ԯ"},
};

TEST(LetterCase, KnowsTheLettersOfEachAlphabet) {
    for (const Alphabet& alphabet : kAlphabets) {
        EXPECT_EQ(LowerCase(alphabet.capitals), alphabet.small) << alphabet.what;
        EXPECT_EQ(LowerCase(alphabet.small), alphabet.small) << alphabet.what;
        EXPECT_TRUE(EqualWithoutCase(alphabet.capitals, alphabet.small)) << alphabet.what;
    }
}

TEST(LetterCase, TakesBothSmallSigmasForOne) {
    EXPECT_TRUE(EqualWithoutCase("ΣΧΙΣΤΟΛΙΘΟΣ", "σχιστολιθος"));
}

TEST(LetterCase, LeavesOtherCharactersAlone) {
    for (const char* const text :
         {"0[`{@", "×÷ßıſ", "€石灰岩", "\xc3", "\xc3x", "\xe4\xd6", "\x80\x41"}) {
        const std::string expected = text == std::string("\x80\x41") ? "\x80\x61" : text;
        EXPECT_EQ(LowerCase(text), expected);
    }
}

TEST(LetterCase, TellsLettersApart) {
    EXPECT_FALSE(EqualWithoutCase("Ä", "a"));
    EXPECT_FALSE(EqualWithoutCase("Ä", "Ö"));
    EXPECT_FALSE(EqualWithoutCase("×", "÷")) << "they are as far apart as a letter's two cases";
    EXPECT_FALSE(EqualWithoutCase("Р", "P")) << "Cyrillic and Latin";
    EXPECT_FALSE(EqualWithoutCase("slate", "slates"));
    EXPECT_FALSE(EqualWithoutCase("\xc3\x84", "\xc3\x84\xc3"));
    EXPECT_TRUE(EqualWithoutCase("", ""));
}

} // namespace
} // namespace quandrel
