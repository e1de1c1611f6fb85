// SPDX-License-Identifier: MIT

#include "help/help_search.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quandrel {
namespace {

using Texts = std::vector<std::string>;

HelpPage PageOf(const std::string& title, const std::string& text, const Texts& headings = {}) {
    HelpPage page;
    page.title = title;
    page.headings = headings;
    page.text = text;
    return page;
}

Texts FilesOf(const std::vector<HelpHit>& hits) {
    Texts files;
    for (const HelpHit& hit : hits) {
        files.push_back(hit.file);
    }
    return files;
}

TEST(HelpWords, AreRunsOfLettersAndDigitsInLowerCase) {
    EXPECT_EQ(HelpWords("P & T-axes (95%) \u2013 G\u00C9otechnique\u2026 \u03BAappa 45\u00B0"),
              (Texts{"p", "t", "axes", "95", "g\u00E9otechnique", "\u03BAappa", "45"}));
    EXPECT_EQ(HelpWords(" ... "), Texts{});
}

class HelpSearchTest : public ::testing::Test {
protected:
    HelpSearchTest() {
        search_.Add("a.html", PageOf("Contours", "Contours of density on the net"));
        search_.Add("b.html", PageOf("Density", "Density on the net, and a contoured grid"));
        search_.Add("c.html", PageOf("Roses", "Petals on no net", {"Density of petals"}));
        search_.Add("d.html", PageOf("Zebra", "net net net net net"));
    }

    HelpSearch search_;
};

TEST_F(HelpSearchTest, WantsEveryWordAndTakesBeginnings) {
    EXPECT_EQ(FilesOf(search_.Find("contour net")), (Texts{"a.html", "b.html"}));
    EXPECT_EQ(FilesOf(search_.Find("PETAL")), Texts{"c.html"});
    EXPECT_EQ(FilesOf(search_.Find("petals zebra")), Texts{});
    EXPECT_EQ(FilesOf(search_.Find("tours")), Texts{}) << "in the middle of a word";
    EXPECT_EQ(FilesOf(search_.Find("")), Texts{});
    EXPECT_EQ(FilesOf(search_.Find(" - ")), Texts{});
}

TEST_F(HelpSearchTest, PutsTitlesBeforeHeadingsBeforeTexts) {
    EXPECT_EQ(FilesOf(search_.Find("density")), (Texts{"b.html", "c.html", "a.html"}));
}

TEST_F(HelpSearchTest, WeighsAWholeWordDouble) {
    HelpSearch search;
    search.Add("a.html", PageOf("A", "netting"));
    search.Add("b.html", PageOf("B", "net"));
    EXPECT_EQ(FilesOf(search.Find("net")), (Texts{"b.html", "a.html"}));
}

TEST_F(HelpSearchTest, OrdersEqualHitsByTitle) {
    HelpSearch search;
    search.Add("a.html", PageOf("Q", "same"));
    search.Add("b.html", PageOf("P", "same"));
    EXPECT_EQ(FilesOf(search.Find("same")), (Texts{"b.html", "a.html"}));
}

TEST_F(HelpSearchTest, TakesARepeatedWordOnce) {
    const auto once = search_.Find("density");
    const auto twice = search_.Find("density Density");
    ASSERT_EQ(once.size(), twice.size());
    EXPECT_EQ(once[0].score, twice[0].score);
}

TEST_F(HelpSearchTest, ShowsThePlaceOfTheRarestWord) {
    std::string text;
    for (int i = 0; i < 100; ++i) {
        text += "filler ";
    }
    HelpSearch search;
    search.Add("a.html", PageOf("A", text + "the needle lies here " + text));
    search.Add("b.html", PageOf("B", "filler"));
    const auto hits = search.Find("filler needle");
    ASSERT_EQ(hits.size(), 1U);
    const std::string& excerpt = hits[0].excerpt;
    EXPECT_NE(excerpt.find("the needle lies here"), std::string::npos) << excerpt;
    EXPECT_TRUE(excerpt.starts_with("\u2026 filler")) << excerpt;
    EXPECT_TRUE(excerpt.ends_with("filler \u2026")) << excerpt;
    EXPECT_LT(excerpt.size(), 200U);
}

} // namespace
} // namespace quandrel
