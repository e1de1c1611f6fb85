// SPDX-License-Identifier: MIT

#include "sheet/sheet_caption.h"
#include "sheet_samples.h"

namespace quandrel {
namespace {

Result<std::string> Caption(SampleSheet& sample, const std::string& text) {
    sample.sheet.caption = text;
    RecordingSurface unseen(100, 100);
    return CaptionOf(sample.sheet, sample.contents, sample.Look(), unseen);
}

SampleSheet TextAndTwoNets() {
    SampleSheet sample;
    sample.AddText("words");
    sample.AddPlot(kEqualArea, 1, "Limb");
    sample.AddPlot(kEqualAngle, 2);
    return sample;
}

TEST(CaptionOf, FillsFields) {
    SampleSheet sample = TextAndTwoNets();

    struct Row {
        const char* text;
        const char* filled;
    };

    constexpr Row kRows[] = {
        {"plain", "plain"},
        {"{net} of {name}, {n} rows", "Lower-hemisphere equal-area net of Plot, 60 rows"},
        {"{net:3}", "Lower-hemisphere equal-angle net"},
        {"{letter:3} {title:2}", "(c) Limb"},
        {"{{n}", "{n}"},
        {"{n:1}", ""},
    };
    for (const Row& row : kRows) {
        const Result<std::string> caption = Caption(sample, row.text);
        ASSERT_TRUE(caption) << row.text << ": " << caption.Error();
        EXPECT_EQ(*caption, row.filled);
    }
    EXPECT_NE((*Caption(sample, "{rows}")).find("poles to planes, n = 60"), std::string::npos)
        << *Caption(sample, "{rows}");
}

TEST(CaptionOf, HasASentenceOnEachPanel) {
    SampleSheet sample = TextAndTwoNets();
    const std::string caption = *Caption(sample, kUsualCaption);
    EXPECT_EQ(caption.find("(a)"), std::string::npos) << "a text without a title";
    EXPECT_TRUE(caption.starts_with("(b) Limb: lower-hemisphere equal-area net of Plot: "))
        << caption;
    EXPECT_NE(caption.find(". (c) Lower-hemisphere equal-angle net of Plot: "), std::string::npos)
        << caption;
    EXPECT_TRUE(caption.ends_with('.'));
}

TEST(CaptionOf, RefusesUnknownFields) {
    SampleSheet sample = TextAndTwoNets();
    for (const char* text : {"{m}", "{n", "{n:0}", "{n:4}", "{n:}", "{n:2x}", "{}", "{:1}"}) {
        EXPECT_FALSE(Caption(sample, text)) << text;
    }
}

} // namespace
} // namespace quandrel
