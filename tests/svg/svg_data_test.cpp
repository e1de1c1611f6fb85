// SPDX-License-Identifier: MIT

#include "svg/svg_data.h"
#include "svg/svg_writer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quandrel {
namespace {

constexpr const char* kOpen = "<q:plot xmlns:q=\"urn:quandrel:plot\">";

TEST(SvgData, ComesBackFromADocument) {
    for (const std::size_t length : {1, 75, 76, 77, 1000}) {
        const std::string data(length, 'x');
        SvgWriter writer(10, 10, 1);
        writer.SetTitle("</metadata><!-- ");
        writer.SetDescription("a > b & c");
        writer.SetData(data);
        const std::string svg = writer.Document();
        EXPECT_EQ(DataOfSvg(svg), data) << svg;
        EXPECT_NE(svg.find("<desc>a &gt; b &amp; c</desc>"), std::string::npos) << svg;
    }
    EXPECT_EQ(SvgWriter(10, 10, 1).Document().find("metadata"), std::string::npos);
}

TEST(SvgData, IsReadWhateverAnEditorDidToTheDocument) {
    const std::vector<std::string> documents = {
        "<svg xmlns:n2='urn:quandrel:plot'><metadata><rdf/><n2:plot a='>' >QU\r\n\t JD=</n2:plot>",
        "<?xml version='1.0'?><!DOCTYPE svg [<!ENTITY x '<q:plot>'>]>\n<svg><a b='<!--'/>"
            + std::string(kOpen) + "QUJD=</q:plot>",
        "<svg><!-- " + std::string(kOpen) + "no</q:plot> --><![CDATA[" + kOpen + "no</q:plot>]]>"
            + kOpen + "QUJD=</q:plot></svg>",
        "<svg><other:plot xmlns:other='urn:other'>no</other:plot><plot>no</plot>"
            + std::string(kOpen) + "QUJD=</q:plot></svg>"};
    for (const std::string& document : documents) {
        EXPECT_EQ(DataOfSvg(document), "QUJD=") << document;
    }
}

TEST(SvgData, IsNothingElse) {
    const std::string open = kOpen;
    const std::vector<std::string> documents = {
        "",
        "<svg></svg>",
        open,
        open + "QUJD",
        open + "QU<b/>JD</q:plot>",
        open + "QU&#65;</q:plot>",
        open + "</q:plot>",
        open + "Q-</q:plot>",
        "<q:plot xmlns:q='urn:quandrel:plot'/>QUJD</q:plot>",
        "<plot xmlns='urn:quandrel:plot'>QUJD</plot>",
        "<q:plot>QUJD</q:plot>",
        "<q:plot xmlns:q='urn:quandrel:plot'",
        "<!-- " + open + "QUJD</q:plot>",
        "<!DOCTYPE svg [ <x " + open + "QUJD</q:plot>",
        "<q:plot xmlns:q=\"urn:quandrel:plot'>QUJD</q:plot>"};
    for (const std::string& document : documents) {
        EXPECT_FALSE(DataOfSvg(document)) << document;
    }
}

} // namespace
} // namespace quandrel
