// SPDX-License-Identifier: MIT

#include "pdf/pdf_file.h"

#include <gtest/gtest.h>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFEFStreamObjectHelper.hh>
#include <qpdf/QPDFEmbeddedFileDocumentHelper.hh>
#include <qpdf/QPDFFileSpecObjectHelper.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <functional>
#include <memory>
#include <string>

namespace quandrel {
namespace {

constexpr const char* kContent = "q 0.1 0 0 -0.1 0 238 cm 0 0 m 100 100 l S Q\n";
constexpr const char* kNoPdf = "It is not a PDF that can be read.";

std::string Written(QPDF& document, qpdf_stream_data_e streams) {
    QPDFWriter writer(document);
    writer.setOutputMemory();
    writer.setStreamDataMode(streams);
    writer.setStaticID(true);
    writer.write();
    const std::shared_ptr<Buffer> buffer = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize()};
}

/// A PDF of one page of 238 x 238 points, changed before it is written.
std::string Pdf(const std::function<void(QPDF&)>& change = {},
                qpdf_stream_data_e streams = qpdf_s_compress) {
    QPDF document;
    document.emptyPDF();
    QPDFObjectHandle page = QPDFObjectHandle::parse(
        "<< /Type /Page /MediaBox [0 0 238 238] /CropBox [0 0 10 10] /Resources << >> >>");
    page.replaceKey("/Contents", document.newStream(kContent));
    QPDFPageDocumentHelper(document).addPage(document.makeIndirectObject(page), false);
    if (change) {
        change(document);
    }
    return Written(document, streams);
}

void Attach(QPDF& document, const std::string& name, const std::string& bytes) {
    auto stream = QPDFEFStreamObjectHelper::createEFStream(document, bytes);
    auto file = QPDFFileSpecObjectHelper::createFileSpec(document, name, stream);
    QPDFEmbeddedFileDocumentHelper(document).replaceEmbeddedFile(name, file);
}

/// The text of a page's box, and its drawing commands.
std::string BoxAndContentOf(const std::string& pdf) {
    QPDF document;
    document.processMemoryFile("test", pdf.data(), pdf.size());
    QPDFPageObjectHelper page = QPDFPageDocumentHelper(document).getAllPages().at(0);
    const auto content =
        page.getObjectHandle().getKey("/Contents").getStreamData(qpdf_dl_generalized);
    return page.getObjectHandle().getKey("/MediaBox").unparse() + " "
           + std::string(reinterpret_cast<const char*>(content->getBuffer()), content->getSize());
}

TEST(PdfPages, GetTheirSizeFromTheirTopLeftCorner) {
    // 84 mm by 60.5 mm; what is drawn keeps its place below the top at 238.
    const Result<std::string> pdf = WithPageSize(Pdf(), {84 / 25.4 * 72, 60.5 / 25.4 * 72}, "");
    ASSERT_TRUE(pdf) << pdf.Error();
    EXPECT_EQ(BoxAndContentOf(*pdf), std::string("[ 0 66.5039 238.1102 238 ] ") + kContent);
    const Result<PdfFacts> facts = FactsOfPdf(*pdf);
    ASSERT_TRUE(facts);
    ASSERT_EQ(facts->pages.size(), 1U);
    EXPECT_NEAR(facts->pages[0].width * 25.4 / 72, 84, 1e-4);
    EXPECT_NEAR(facts->pages[0].height * 25.4 / 72, 60.5, 1e-4);
    EXPECT_TRUE(facts->info.empty());
    EXPECT_EQ(pdf->find("/CropBox"), std::string::npos) << "it would hide a part";
}

TEST(PdfPages, KeepTheOtherInformation) {
    const std::string pdf = Pdf([](QPDF& document) {
        document.getTrailer().replaceKey(
            "/Info", QPDFObjectHandle::parse("<< /Title (beds) /Creator (program) >>"));
        Attach(document, "plot.qpx", "abc");
    });
    const Result<std::string> made = WithPageSize(pdf, {100, 50},
                                                  "S\xC3\xBC"
                                                  "d");
    ASSERT_TRUE(made);
    const Result<PdfFacts> facts = FactsOfPdf(*made);
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->info.at("/Title"), "beds");
    EXPECT_EQ(facts->info.at("/Creator"), "program");
    EXPECT_EQ(facts->info.at("/Subject"), "S\xC3\xBC"
                                          "d");
    EXPECT_EQ(facts->attachments, std::vector<std::string>{"plot.qpx"});
    const Result<std::string> again = WithPageSize(pdf, {100, 50},
                                                   "S\xC3\xBC"
                                                   "d");
    ASSERT_TRUE(again);
    EXPECT_EQ(*made, *again) << "the same bytes";
}

TEST(PdfAttachment, IsTheOneOfItsName) {
    const std::string large(300'000, 'x');
    const std::string pdf = Pdf([&](QPDF& document) {
        Attach(document, "notes.txt", "no");
        Attach(document, "plot.qpx", large);
    });
    const Result<std::string> file = AttachmentOfPdf(pdf, "plot.qpx", large.size());
    ASSERT_TRUE(file) << file.Error();
    EXPECT_EQ(*file, large);
    EXPECT_EQ(AttachmentOfPdf(pdf, "plot.qpx", large.size() - 1).Error(),
              "The file attached to it is too large.");
    const Result<std::string> none = AttachmentOfPdf(pdf, "other.qpx", 100);
    ASSERT_TRUE(none);
    EXPECT_EQ(*none, "");
    const Result<std::string> ofNone = AttachmentOfPdf(Pdf(), "plot.qpx", 100);
    ASSERT_TRUE(ofNone);
    EXPECT_EQ(*ofNone, "");
}

TEST(PdfAttachment, IsRefusedWhereItIsDamaged) {
    const std::string chained = Pdf(
        [](QPDF& document) {
            Attach(document, "plot.qpx", "abc");
            QPDFObjectHandle stream = QPDFEmbeddedFileDocumentHelper(document)
                                          .getEmbeddedFile("plot.qpx")
                                          ->getEmbeddedFileStream();
            stream.replaceStreamData("616263>>",
                                     QPDFObjectHandle::parse("[/ASCIIHexDecode /ASCIIHexDecode]"),
                                     QPDFObjectHandle::newNull());
        },
        qpdf_s_preserve);
    EXPECT_EQ(AttachmentOfPdf(chained, "plot.qpx", 100).Error(),
              "The file attached to it is damaged.");
    const std::string unknown = Pdf(
        [](QPDF& document) {
            Attach(document, "plot.qpx", "abc");
            QPDFEmbeddedFileDocumentHelper(document)
                .getEmbeddedFile("plot.qpx")
                ->getEmbeddedFileStream()
                .replaceStreamData("abc", QPDFObjectHandle::newName("/Unheard"),
                                   QPDFObjectHandle::newNull());
        },
        qpdf_s_preserve);
    EXPECT_EQ(AttachmentOfPdf(unknown, "plot.qpx", 100).Error(),
              "The file attached to it is damaged.");
}

TEST(PdfFiles, ThatAreNoneAreRefused) {
    for (const char* bytes : {"", "%PDF-1.4", "%PDF-1.4\n%%EOF", "bin9.5", "<svg></svg>"}) {
        EXPECT_EQ(FactsOfPdf(bytes).Error(), kNoPdf) << bytes;
        EXPECT_EQ(AttachmentOfPdf(bytes, "plot.qpx", 100).Error(), kNoPdf) << bytes;
        EXPECT_EQ(WithPageSize(bytes, {100, 100}, "").Error(), kNoPdf) << bytes;
    }
}

TEST(PdfFiles, CutAnywhereAreReadOrRefused) {
    const std::string pdf = Pdf([](QPDF& document) { Attach(document, "plot.qpx", "abc"); });
    for (std::size_t length = 0; length < pdf.size(); ++length) {
        const Result<std::string> file = AttachmentOfPdf(pdf.substr(0, length), "plot.qpx", 100);
        EXPECT_TRUE(!file || file->empty() || *file == "abc") << length;
    }
}

} // namespace
} // namespace quandrel
