// SPDX-License-Identifier: MIT

#include "input/data_line.h"
#include "input/suggest/format_suggestion.h"
#include "input/suggest/heading_terms.h"
#include "input/suggest/table_columns.h"
#include "support/test_platform.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <random>

namespace quandrel {
namespace {

enum class Kind { DipDirection, StrikeAndSense, StrikeAndLetters, Line, PlaneAndLine, RightHand };

/// The headings of a language.
struct Words {
    const char* dip;
    const char* dipDirection;
    const char* strike;
    const char* plunge;
    const char* trend;
    const char* text;
};

constexpr std::array<Words, 9> kLanguages = {{
    {"Dip (deg)", "Dip direction", "Strike", "Plunge", "Trend [°]", "Rock type"},
    {"Fallen", "Fallrichtung", "Streichen", "Abtauchen", "Abtauchrichtung", "Gestein"},
    {"Pendage", "Direction du pendage", "Strike", "Plongement", "Azimut du plongement", "Roche"},
    {"Buzamiento", "Dirección de buzamiento", "Rumbo", "Inmersión", "Dirección de inmersión",
     "Roca"},
    {"Inclinazione", "Immersione", "Direzione", "Plunge", "Trend", "Roccia"},
    {"Mergulho", "Direção do mergulho", "Direção", "Caimento", "Direção do caimento", "Rocha"},
    {"Угол падения", "Азимут падения", "Простирание", "Угол погружения", "Азимут погружения",
     "Порода"},
    {"倾角", "倾向", "走向", "倾伏角", "倾伏向", "岩石"},
    {"傾斜", "傾斜方向", "走向", "沈下角", "沈下方向", "岩石"},
}};

/// The orientations of a row, degrees.
struct Truth {
    double dip = 0;     ///< or plunge
    double azimuth = 0; ///< of the dip, or the trend
    double linePlunge = 0;
    double lineTrend = 0;
};

struct Layout {
    Kind kind = Kind::DipDirection;
    int language = 0;
    std::string delimiter = "\t";
    char decimal = '\0'; ///< of the angles; NUL for whole degrees
    bool isSwapped = false;
    bool hasNumbers = false; ///< a column of row numbers before, coordinates and a text behind
    bool hasHeadings = true;
};

/// A text in a layout, and what it means.
class Text {
public:
    Text(const Layout& layout, std::uint32_t seed)
        : layout_(layout)
        , random_(seed) {
        constexpr int kTextRows = 30;
        for (int row = 0; row < kTextRows; ++row) {
            AddRow(row);
        }
    }

    std::vector<std::string> lines;
    std::vector<Truth> rows;

private:
    [[nodiscard]] double Between(double least, double most) {
        const double share = static_cast<double>(random_()) / 4294967296.0;
        const double value = least + share * (most - least);
        return layout_.decimal == '\0' ? std::round(value) : std::round(value * 10) / 10;
    }

    [[nodiscard]] std::string Number(double value) const {
        const long tenths = std::lround(value * 10);
        std::string text = std::to_string(tenths / 10);
        if (layout_.decimal != '\0') {
            text += layout_.decimal + std::to_string(tenths % 10);
        }
        return text;
    }

    [[nodiscard]] static std::string SenseOf(double azimuth) {
        static const std::array<std::string, 8> names = {"N", "NE", "E", "SE",
                                                         "S", "SW", "W", "NW"};
        return names.at(static_cast<std::size_t>(std::lround(azimuth / 45)) % 8);
    }

    /// A line in the plane, to the tenth of a degree.
    void AddLineInPlane(Truth& truth) {
        const double pitch = Between(10, 170) * 3.14159265358979 / 180;
        const double dip = truth.dip * 3.14159265358979 / 180;
        const double plunge = std::asin(std::sin(dip) * std::sin(pitch));
        const double along = std::atan2(std::cos(dip) * std::sin(pitch), std::cos(pitch));
        truth.linePlunge = std::round(plunge * 180 / 3.14159265358979);
        truth.lineTrend =
            std::round(std::fmod(truth.azimuth - 90 + along * 180 / 3.14159265358979 + 360, 360));
    }

    using Cells = std::vector<std::pair<std::string, std::string>>; ///< heading and cell

    [[nodiscard]] Cells CellsOf(Truth& truth) {
        const Words& words = kLanguages.at(static_cast<std::size_t>(layout_.language));
        const double end = random_() % 2 == 0 ? 90 : 270;
        const std::string strike = Number(std::fmod(truth.azimuth + end, 360));
        switch (layout_.kind) {
        case Kind::DipDirection:
            return {{words.dip, Number(truth.dip)}, {words.dipDirection, Number(truth.azimuth)}};
        case Kind::StrikeAndSense:
            return {{words.strike, strike},
                    {words.dip, Number(truth.dip)},
                    {"Sense", SenseOf(truth.azimuth)}};
        case Kind::StrikeAndLetters:
            return {{words.strike, strike},
                    {words.dip, Number(truth.dip) + SenseOf(truth.azimuth)}};
        case Kind::Line:
            return {{words.plunge, Number(truth.dip)}, {words.trend, Number(truth.azimuth)}};
        case Kind::PlaneAndLine:
            AddLineInPlane(truth);
            return {{words.dip, Number(truth.dip)},
                    {words.dipDirection, Number(truth.azimuth)},
                    {words.plunge, Number(truth.linePlunge)},
                    {words.trend, Number(truth.lineTrend)}};
        case Kind::RightHand:
            break;
        }
        return {{"Strike (RHR)", Number(std::fmod(truth.azimuth + 270, 360))},
                {words.dip, Number(truth.dip)}};
    }

    void AddRow(int row) {
        Truth truth{Between(5, 85), Between(0, 359), 0, 0};
        Cells cells = CellsOf(truth);
        if (layout_.isSwapped) {
            std::swap(cells[0], cells[1]);
        }
        if (layout_.hasNumbers) {
            const Words& words = kLanguages.at(static_cast<std::size_t>(layout_.language));
            cells.insert(cells.begin(), {"No", std::to_string(row + 1)});
            cells.emplace_back("Easting", Number(4000 + Between(0, 300)));
            cells.emplace_back(words.text, row % 2 == 0 ? "schist" : "marble");
        }
        std::string headings;
        std::string line;
        for (const auto& [heading, cell] : cells) {
            headings += (headings.empty() ? "" : layout_.delimiter) + heading;
            line += (line.empty() ? "" : layout_.delimiter) + cell;
        }
        if (layout_.delimiter == " ") {
            headings.clear(); // their words would be further columns
            for (const auto& [heading, cell] : cells) {
                std::string joined = heading;
                std::ranges::replace(joined, ' ', '_');
                headings += (headings.empty() ? "" : " ") + joined;
            }
        }
        if (lines.empty() && layout_.hasHeadings) {
            lines.push_back(headings);
        }
        lines.push_back(line);
        rows.push_back(truth);
    }

    Layout layout_;
    std::mt19937 random_;
};

/// Whether two directions are within a tenth of a degree of each other.
bool AreNear(double dip, double azimuth, double dip2, double azimuth2) {
    const double turn = std::abs(std::remainder(azimuth - azimuth2, 360.0));
    return std::abs(dip - dip2) < 0.1 && turn < 0.1;
}

/// Whether a format reads all rows of a text as they are meant.
bool IsRight(const FormatChoice& choice, const Text& text, Kind kind) {
    LineFormat format = LineFormatOf(choice);
    format.convertDecimals = true;
    std::size_t at = 0;
    for (std::size_t i = choice.columnHeadings ? 1 : 0; i < text.lines.size(); ++i) {
        const ParsedRow row = ParseLine(text.lines[i], format);
        const Truth& truth = text.rows[at++];
        if (row.status != LineStatus::Row || row.isPlane != (kind != Kind::Line)
            || !AreNear(row.dip, row.az, truth.dip, truth.azimuth)) {
            return false;
        }
        if (kind == Kind::PlaneAndLine
            && (!row.secondaryPresent || row.isPlane2
                || !AreNear(row.dip2, row.az2, truth.linePlunge, truth.lineTrend))) {
            return false;
        }
    }
    return at == text.rows.size();
}

std::vector<Layout> HundredLayouts() {
    static const std::array<std::string, 4> delimiters = {"\t", ";", ",", " "};
    std::vector<Layout> layouts;
    const auto add = [&layouts](Layout layout) {
        const auto i = layouts.size();
        layout.delimiter = delimiters.at(i % delimiters.size());
        const bool mayBeComma = layout.delimiter != ",";
        layout.decimal = i % 3 == 0 ? '\0' : i % 3 == 1 || !mayBeComma ? '.' : ',';
        layout.hasNumbers = i % 2 == 1;
        layouts.push_back(layout);
    };
    for (int language = 0; language < static_cast<int>(kLanguages.size()); ++language) {
        for (const Kind kind : {Kind::DipDirection, Kind::StrikeAndSense, Kind::StrikeAndLetters,
                                Kind::Line, Kind::PlaneAndLine}) {
            for (const bool isSwapped : {false, true}) {
                add({kind, language, {}, '\0', isSwapped, false, true});
            }
        }
    }
    for (int i = 0; i < 4; ++i) {
        add({Kind::RightHand, 0, {}, '\0', i % 2 == 1, false, true});
    }
    for (int i = 0; i < 6; ++i) {
        add({i < 4 ? Kind::DipDirection : Kind::StrikeAndLetters,
             0,
             {},
             '\0',
             i % 2 == 1,
             false,
             false});
        layouts.back().hasNumbers = false;
    }
    return layouts;
}

class FormatSuggestions : public EngineTest {};

TEST_F(FormatSuggestions, AreRightForNinetyFiveOfAHundredLayouts) {
    const std::vector<Layout> layouts = HundredLayouts();
    ASSERT_EQ(layouts.size(), 100U);
    int right = 0;
    int sure = 0;
    std::string wrong;
    for (std::size_t i = 0; i < layouts.size(); ++i) {
        const Text text(layouts[i], static_cast<std::uint32_t>(i + 1));
        const std::vector<FormatSuggestion> found = SuggestFormats(text.lines);
        const bool isRight = !found.empty() && IsRight(found.front().choice, text, layouts[i].kind);
        right += isRight ? 1 : 0;
        if (!found.empty() && found.front().probability >= kSureEnough) {
            ++sure;
            EXPECT_TRUE(isRight) << "sure and wrong: " << i << "\n"
                                 << text.lines[0] << "\n"
                                 << text.lines[1];
        }
        if (!isRight) {
            wrong +=
                "layout " + std::to_string(i) + ": " + text.lines[0] + " | " + text.lines[1] + "\n";
        }
    }
    EXPECT_GE(right, 95) << wrong;
    EXPECT_GE(sure, 90) << "headings and letters say it";
}

TEST_F(FormatSuggestions, WithoutHeadingsAreSeveralAndNoneIsSure) {
    Layout layout;
    layout.hasHeadings = false;
    const std::vector<FormatSuggestion> found = SuggestFormats(Text(layout, 1).lines);
    ASSERT_EQ(found.size(), 3U);
    double sum = 0;
    for (const FormatSuggestion& one : found) {
        EXPECT_LT(one.probability, kSureEnough);
        sum += one.probability;
    }
    EXPECT_LE(sum, 1);
}

TEST_F(FormatSuggestions, LinesInThePlanesAreTold) {
    Layout layout;
    layout.kind = Kind::PlaneAndLine;
    layout.hasHeadings = false;
    const Text text(layout, 5);
    const std::vector<FormatSuggestion> found = SuggestFormats(text.lines);
    ASSERT_FALSE(found.empty());
    EXPECT_TRUE(IsRight(found.front().choice, text, layout.kind));
    EXPECT_LT(found.front().probability, kSureEnough);
    EXPECT_EQ(found.front().reasons.back(), "the lines lie in the planes within 10 degrees");
}

TEST_F(FormatSuggestions, StrikesBelowHalfATurnAreNotSure) {
    const std::vector<std::string> lines = {"strike,dip", "10,30", "120,45", "170,80", "95,20"};
    const std::vector<FormatSuggestion> found = SuggestFormats(lines);
    ASSERT_FALSE(found.empty());
    EXPECT_LT(found.front().probability, kSureEnough);
    EXPECT_TRUE(std::ranges::any_of(found.front().reasons, [](const std::string& reason) {
        return reason.starts_with("azimuths only below 180");
    }));
}

TEST_F(FormatSuggestions, SayWhatTheyComeFrom) {
    const std::vector<std::string> lines = {"dipdir,dip,quality", "142,52,3", "35,43,3"};
    const std::vector<FormatSuggestion> found = SuggestFormats(lines);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].reasons, (std::vector<std::string>{"column 2 is headed 'dip' and lies in "
                                                          "43..52",
                                                          "column 1 is headed 'dipdir' and lies in "
                                                          "35..142"}));
    EXPECT_TRUE(found[0].choice.numericAppended);
    EXPECT_EQ(found[0].choice.numericName, "quality");
}

TEST_F(FormatSuggestions, ATextThatSaysItsFormatHasNone) {
    EXPECT_TRUE(SuggestFormats(std::vector<std::string>{"/T1", "dip\tdip dir", "30\t120"}).empty());
    EXPECT_TRUE(SuggestFormats(std::vector<std::string>{}).empty());
    EXPECT_TRUE(SuggestFormats(std::vector<std::string>{"", "words", "# 1 2"}).empty());
}

TEST_F(FormatSuggestions, TheFormatOfTheSameHeadingsComesFirst) {
    const std::vector<std::string> lines = {"Dip (deg),Azimuth", "52,142", "43,35"};
    SuggestionOptions options;
    FormatChoice former;
    former.delimiter = ",";
    former.columnHeadings = true;
    former.planeConvention = kDipStrikeRightHand;
    options.remembered = {{{"dip", "azimuth"}, former}};
    const std::vector<FormatSuggestion> found = SuggestFormats(lines, options);
    ASSERT_FALSE(found.empty());
    EXPECT_GE(found[0].probability, kSureEnough);
    EXPECT_EQ(found[0].choice.planeConvention, kDipStrikeRightHand);
}

TEST_F(FormatSuggestions, OnlyOneIsSure) {
    const std::vector<std::string> lines = {"Dip,Dip direction", "52,142", "43,35"};
    SuggestionOptions options;
    FormatChoice former;
    former.delimiter = ",";
    former.columnHeadings = true;
    former.planeConvention = kDipStrikeRightHand;
    options.remembered = {{{"dip", "dip direction"}, former}};
    const std::vector<FormatSuggestion> found = SuggestFormats(lines, options);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_GE(found[0].probability, kSureEnough);
    EXPECT_LE(found[0].probability + found[1].probability, 1);
}

TEST_F(FormatSuggestions, ATrendBesideAnUnknownAngleIsNotSure) {
    const std::vector<std::string> known = {"Trend,Rock", "142,schist", "35,marble"};
    EXPECT_GE(SuggestFormats(known).at(0).probability, kSureEnough);
    const std::vector<std::string> unknown = {"Trend,Inkl", "142,20", "35,31"};
    EXPECT_LT(SuggestFormats(unknown).at(0).probability, kSureEnough);
}

TEST_F(FormatSuggestions, TellDecimalCommas) {
    const std::vector<std::string> commas = {"Dip;Dip direction", "52,5;142", "43,1;35"};
    EXPECT_TRUE(SuggestFormats(commas).at(0).decimalIsComma);
    const std::vector<std::string> points = {"Dip,Dip direction", "52.5,142", "43.1,35"};
    EXPECT_FALSE(SuggestFormats(points).at(0).decimalIsComma);
}

TEST_F(FormatSuggestions, OfRowsThatJoinAPlotHaveItsKind) {
    const std::vector<std::string> lines = {"30\t120", "40\t200", "50\t300"};
    SuggestionOptions options;
    options.kindIsFixed = true;
    options.base.primary = kPrimaryLine;
    for (const FormatSuggestion& one : SuggestFormats(lines, options)) {
        EXPECT_EQ(one.choice.primary, kPrimaryLine);
    }
    EXPECT_EQ(SuggestFormats(lines, options).size(), 1U);
}

TEST(HeadingTerms, MeanWhatTheirLongestTermMeans) {
    using enum HeadingMeaning;
    EXPECT_EQ(MeaningOfHeading("Dip (°)"), Dip);
    EXPECT_EQ(MeaningOfHeading("DIP_DIR [deg]"), DipDirection);
    EXPECT_EQ(MeaningOfHeading("bedding dip"), Dip);
    EXPECT_EQ(MeaningOfHeading("Dip Direction of Bedding"), DipDirection);
    EXPECT_EQ(MeaningOfHeading("Dirección de Buzamiento"), DipDirection);
    EXPECT_EQ(MeaningOfHeading("АЗИМУТ ПАДЕНИЯ"), DipDirection);
    EXPECT_EQ(MeaningOfHeading("Strike (RHR)"), RightHandStrike);
    EXPECT_EQ(MeaningOfHeading("ship"), None);
    EXPECT_EQ(MeaningOfHeading(""), None);
}

TEST(TableColumns, NumbersHavePointsCommasAndDegrees) {
    EXPECT_EQ(NumberOfCell("45,5"), 45.5);
    EXPECT_EQ(NumberOfCell(" 45.5° "), 45.5);
    EXPECT_EQ(NumberOfCell("1,000.5"), std::nullopt);
    EXPECT_EQ(NumberOfCell("N30E"), std::nullopt);
    EXPECT_EQ(NumberOfCell(""), std::nullopt);
}

} // namespace
} // namespace quandrel
