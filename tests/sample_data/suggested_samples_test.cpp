// SPDX-License-Identifier: MIT

#include "input/text_file.h"
#include "sample_files.h"
#include "support/formats_alike.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class SuggestedSamples : public EngineTest {};

LineFormat KnownFormatOf(const SampleFile& file) {
    FormatSettings settings;
    settings.primary = file.format.primary;
    settings.secondary = file.format.secondary;
    settings.conventions = file.format.conventions;
    settings.delimiter = file.format.delimiter;
    settings.columns = file.format.columns;
    return LineFormatOf(settings, NotationSettings(), false);
}

TEST_F(SuggestedSamples, AreReadAsTheirPublishersMeantThem) {
    std::vector<SampleFile> files = AllFiles();
    files.push_back(TracesWithComma());
    int right = 0;
    int asked = 0;
    for (const SampleFile& file : files) {
        const auto lines = FirstLines(PathOf(file.name), 2000);
        ASSERT_TRUE(lines) << file.name;
        if (StatesItsFormat(*lines)) {
            continue;
        }
        ++asked;
        const Suggested suggested = SuggestionFor(*lines, KnownFormatOf(file));
        EXPECT_TRUE(suggested.isRight || !suggested.isSure) << "sure and wrong: " << file.name;
        EXPECT_TRUE(suggested.isRight) << file.name;
        right += suggested.isRight ? 1 : 0;
    }
    EXPECT_GE(right, 17);
    EXPECT_EQ(right, asked);
}

} // namespace
} // namespace quandrel
