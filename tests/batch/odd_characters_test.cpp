// SPDX-License-Identifier: MIT
//
// Pictures and pages of plots whose texts hold characters of every class.

#include "batch_fixture.h"
#include "core/data_format.h"
#include "core/plot_store.h"

#include <QImage>
#include <QXmlStreamReader>

#include <memory>
#include <utility>

namespace quandrel {
namespace {

/// Each class of characters with a name for it.
const std::vector<std::pair<std::string, std::string>>& OddTexts() {
    static const std::vector<std::pair<std::string, std::string>> texts = [] {
        std::string controls;
        for (char c = 0; c < 0x20; ++c) {
            controls += c;
        }
        std::string c1;
        for (int code = 0x80; code < 0xa0; ++code) {
            c1 += '\xc2';
            c1 += static_cast<char>(code);
        }
        return std::vector<std::pair<std::string, std::string>>{
            {"C0", "a" + controls + "b"},
            {"DEL", "a\x7f"
                    "b"},
            {"C1", "a" + c1 + "b"},
            {"markup", "<a href=\"x\">&amp;'</a>]]>"},
            {"lone surrogates", "a\xed\xa0\x80"
                                "b\xed\xbf\xbf"},
            {"invalid UTF-8", "a\xff\xfe\xc0\x80\xe6\x9d"},
            {"bidi controls", "a\u202eb\u2066c"},
            {"noncharacters", "a\ufffe\uffff\ufdd0\U0010ffff"},
            {"private use", "a\ue000\U000f0000"},
            {"combining", "\u0301e\u0301\u0301\u0301\u0301\u0301"},
            {"newlines", "a\n\n\r\r\nb\u2028c"},
            {"tabs", "\ta\t\tb\t"},
        };
    }();
    return texts;
}

class OddCharacters : public BatchTest {
protected:
    /// A plot whose texts all hold a text.
    void FillPlot(const std::string& text) {
        PlotRecord& record = ActiveRecord();
        record.PlotTitle = record.FileTitle = record.DescriptionText = record.FabricText = text;
        record.AppNumName = record.AppNonNumName = record.AxesTitle = text;
        record.FileNames[kFirstFile] = text;
        record.MainFiles = {text};
        for (auto& row : record.ClassTable) {
            row[1] = text;
        }
        auto annotations = std::make_unique<Annotations>();
        annotations->push_back({100, 100, 0, 0, 5, 0, text, {}});
        record.PlotAnnotations = std::move(annotations);
        for (std::int32_t row = 1; row <= record.NumData && record.HasAppendedText != 0; ++row) {
            gAppText.Set(gActivePlot, row, text);
        }
    }

    static std::string Bytes(const std::string& path) {
        std::ostringstream bytes;
        bytes << std::ifstream(path, std::ios::binary).rdbuf();
        return bytes.str();
    }

    void CheckSvg(const std::string& path, const std::string& what) {
        const std::string svg = Bytes(path);
        QXmlStreamReader xml(QByteArray::fromStdString(svg));
        int texts = 0;
        while (!xml.atEnd()) {
            texts += xml.readNext() == QXmlStreamReader::StartElement
                             && xml.name() == QLatin1String("text")
                         ? 1
                         : 0;
        }
        EXPECT_FALSE(xml.hasError()) << what << ": " << xml.errorString().toStdString();
        EXPECT_GE(texts, 3) << what;
        for (const char c : svg) { // the reader of XML above takes some that XML 1.0 does not
            const auto byte = static_cast<unsigned char>(c);
            ASSERT_TRUE(byte >= 0x20 || c == '\n' || c == '\r' || c == '\t') << what;
        }
        EXPECT_EQ(svg.find("\xef\xbf\xbe"), std::string::npos) << what << " U+FFFE";
        EXPECT_EQ(svg.find("\xef\xbf\xbf"), std::string::npos) << what << " U+FFFF";
    }
};

TEST_F(OddCharacters, SpoilNoPictureAndNoPage) {
    Write("values.txt", "30\t120\t2.5\tslate\n45\t270\t1\tmarl\n60\t10\t7\tslate\n");
    const std::string open =
        "format primary=plane columns=0,1,2,3,4,5,6,7,2,3 appended=numeric,text data=planes\n"
        "open \""
        + (folder / "values.txt").string() + "\"\n";
    for (const std::string setup : {"symbols 1\n", "classify mode=3\n", "rose sector=20\n"}) {
        BatchSession session(out, log);
        const auto run = [&session](const std::string& commands) {
            const auto parsed = ParseScript(commands, CommandBreak::LineOnly);
            return parsed ? session.Run(*parsed) : parsed.Error();
        };
        ASSERT_EQ(run(open + setup), "") << setup;
        for (const auto& [name, text] : OddTexts()) {
            const std::string what = setup + name;
            FillPlot(text);
            const auto path = [this](const char* ending) {
                return (folder / (std::string("p") + ending)).string();
            };
            const std::string written = "export \"" + path(".svg") + "\"\nexport \"" + path(".pdf")
                                        + "\"\nexport \"" + path(".png") + "\" size=300\nprint \""
                                        + path("page.pdf") + "\"\n";
            ASSERT_EQ(run(written), "") << what;
            CheckSvg(path(".svg"), what);
            for (const char* const pdf : {".pdf", "page.pdf"}) {
                const std::string bytes = Bytes(path(pdf));
                EXPECT_TRUE(bytes.starts_with("%PDF-")) << what;
                EXPECT_NE(bytes.rfind("%%EOF"), std::string::npos) << what;
            }
            EXPECT_FALSE(QImage(QString::fromStdString(path(".png"))).isNull()) << what;
        }
    }
}

} // namespace
} // namespace quandrel
