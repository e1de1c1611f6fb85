// SPDX-License-Identifier: MIT

#include "help/help_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quandrel {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kPage = R"(<!DOCTYPE html>
<html><head><title>Beds &amp;
 joints</title></head>
<body><!-- <h1>not seen</h1> -->
<h1 id="top">Beds</h1>
<p>A&nbsp;<b>cluster</b>ed fabric, R &le; 1, 10&deg;.</p><p>Next&#233;</p>
<a href="rose.html#sectors">Sectors</a> <img src="pictures/a.png" alt="A"><a name="end"></a>
</body></html>)";

TEST(ReadHelpPage, GivesWhatAReaderSees) {
    const HelpPage page = ReadHelpPage(kPage);
    EXPECT_EQ(page.title, "Beds & joints");
    EXPECT_EQ(page.text, "Beds A clustered fabric, R \u2264 1, 10\u00B0. Next\u00E9 Sectors");
    EXPECT_EQ(page.headings, Texts{"Beds"});
}

TEST(ReadHelpPage, FindsLinksPicturesAndAnchors) {
    const HelpPage page = ReadHelpPage(kPage);
    EXPECT_EQ(page.links, Texts{"rose.html#sectors"});
    EXPECT_EQ(page.pictures, Texts{"pictures/a.png"});
    EXPECT_EQ(page.anchors, (Texts{"top", "end"}));
}

TEST(ReadHelpPage, ReadsWhatItCanOfABrokenPage) {
    const std::string whole = kPage;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const HelpPage page = ReadHelpPage(whole.substr(0, length));
        EXPECT_LE(page.text.size(), whole.size());
    }
    EXPECT_EQ(ReadHelpPage("<body>a &unknown; b & c &amp").text, "a &unknown; b & c &amp");
    EXPECT_EQ(ReadHelpPage("").text, "");
}

TEST(ReadHelpPage, TakesNoAttributeForAnother) {
    const HelpPage page = ReadHelpPage("<body><a data-href=\"no\" href=\"yes\">x</a></body>");
    EXPECT_EQ(page.links, Texts{"yes"});
}

TEST(ReadHelpList, KeepsHeadingsAndDepth) {
    const std::vector<HelpEntry> entries = ReadHelpList(
        "<p><a href=\"skip.html\">outside</a></p><h2>Nets</h2><ul><li><a href=\"a.html\">A\n a</a>"
        "<ul><li><a href=\"b.html#c\">B</a></li></ul></li><li>no link</li></ul>");
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries[0].title, "Nets");
    EXPECT_EQ(entries[0].level, 0);
    EXPECT_EQ(entries[0].target, "");
    EXPECT_EQ(entries[1].title, "A a");
    EXPECT_EQ(entries[1].level, 1);
    EXPECT_EQ(entries[2].level, 2);
    EXPECT_EQ(entries[2].target, "b.html#c");
}

} // namespace
} // namespace quandrel
