// SPDX-License-Identifier: MIT

#include "pdf/pdf_file.h"

#include <qpdf/Buffer.hh>
#include <qpdf/Pipeline.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFEmbeddedFileDocumentHelper.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <exception>
#include <memory>
#include <stdexcept>
#include <utility>

namespace quandrel {

namespace {

constexpr int kDecimals = 4;
constexpr const char* kNoPdf = "It is not a PDF that can be read.";
constexpr const char* kTooLarge = "The file attached to it is too large.";

/// Keeps bytes up to a number of them.
class LimitedText : public Pipeline {
public:
    explicit LimitedText(std::size_t most)
        : Pipeline("attachment", nullptr)
        , most_(most) {}

    void write(const unsigned char* bytes, std::size_t count) override {
        if (count > most_ - text_.size()) {
            isTooLong_ = true;
            throw std::length_error(kTooLarge); // the library has no other way to stop
        }
        text_.append(reinterpret_cast<const char*>(bytes), count);
    }

    void finish() override {}

    [[nodiscard]] bool IsTooLong() const { return isTooLong_; }

    [[nodiscard]] std::string& Text() { return text_; }

private:
    std::size_t most_;
    std::string text_;
    bool isTooLong_ = false;
};

/// Reads a PDF from bytes that outlive it. Throws what the library throws.
void Open(QPDF& document, std::string_view pdf) {
    document.setSuppressWarnings(true);
    document.processMemoryFile("picture", pdf.data(), pdf.size());
}

/// Does something with a PDF. The library tells all faults of a file by exceptions.
template <class Value, class Use>
Result<Value> UsePdf(std::string_view pdf, const Use& use) {
    try {
        QPDF document;
        Open(document, pdf);
        return use(document);
    } catch (const std::exception&) {
        return Failure{kNoPdf};
    }
}

/// The height of a page's box above its origin.
double TopOf(QPDFPageObjectHelper& page) {
    const QPDFObjectHandle::Rectangle box = page.getMediaBox().getArrayAsRectangle();
    return box.ury;
}

void SetSize(QPDFPageObjectHelper& page, PdfPageSize size) {
    const double top = TopOf(page);
    QPDFObjectHandle box = QPDFObjectHandle::newArray();
    for (const double side : {0.0, top - size.height, size.width, top}) {
        box.appendItem(QPDFObjectHandle::newReal(side, kDecimals));
    }
    page.getObjectHandle().replaceKey("/MediaBox", box);
    page.getObjectHandle().removeKey("/CropBox");
}

void SetSubject(QPDF& document, const std::string& subject) {
    QPDFObjectHandle trailer = document.getTrailer();
    if (!trailer.getKey("/Info").isDictionary()) {
        trailer.replaceKey("/Info", document.makeIndirectObject(QPDFObjectHandle::newDictionary()));
    }
    trailer.getKey("/Info").replaceKey("/Subject", QPDFObjectHandle::newUnicodeString(subject));
}

/// Whether a stream is packed at most once, as every writer does. Filters upon filters can keep a
/// reader busy for hours.
bool IsPackedOnce(QPDFObjectHandle stream) {
    QPDFObjectHandle filter = stream.getDict().getKey("/Filter");
    return !filter.isArray() || filter.getArrayNItems() <= 1;
}

/// The bytes of a file that is attached.
Result<std::string> Unpacked(QPDFObjectHandle stream, std::size_t mostBytes) {
    LimitedText text(mostBytes);
    bool isWhole = false;
    try {
        isWhole = stream.isStream() && IsPackedOnce(stream)
                  && stream.pipeStreamData(&text, 0, qpdf_dl_specialized, true, true);
    } catch (const std::exception&) { // as for a stream that is damaged
        isWhole = false;
    }
    if (text.IsTooLong()) {
        return Failure{kTooLarge};
    }
    return isWhole ? Result<std::string>(std::move(text.Text()))
                   : Failure{"The file attached to it is damaged."};
}

std::string BytesOf(QPDF& document) {
    QPDFWriter writer(document);
    writer.setOutputMemory();
    writer.setDeterministicID(true);
    writer.setObjectStreamMode(qpdf_o_disable);
    writer.setStreamDataMode(qpdf_s_preserve);
    writer.write();
    const std::shared_ptr<Buffer> buffer = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize()};
}

} // namespace

Result<std::string> WithPageSize(std::string_view pdf, PdfPageSize size,
                                 const std::string& subject) {
    return UsePdf<std::string>(pdf, [&](QPDF& document) {
        for (QPDFPageObjectHelper& page : QPDFPageDocumentHelper(document).getAllPages()) {
            SetSize(page, size);
        }
        if (!subject.empty()) {
            SetSubject(document, subject);
        }
        return BytesOf(document);
    });
}

Result<std::string> AttachmentOfPdf(std::string_view pdf, const std::string& name,
                                    std::size_t mostBytes) {
    return UsePdf<std::string>(pdf, [&](QPDF& document) -> Result<std::string> {
        for (const auto& [key, file] :
             QPDFEmbeddedFileDocumentHelper(document).getEmbeddedFiles()) {
            if (key == name || file->getFilename() == name) {
                return Unpacked(file->getEmbeddedFileStream(), mostBytes);
            }
        }
        return std::string();
    });
}

Result<PdfFacts> FactsOfPdf(std::string_view pdf) {
    return UsePdf<PdfFacts>(pdf, [](QPDF& document) {
        PdfFacts facts;
        for (QPDFPageObjectHelper& page : QPDFPageDocumentHelper(document).getAllPages()) {
            const QPDFObjectHandle::Rectangle box = page.getMediaBox().getArrayAsRectangle();
            facts.pages.push_back({box.urx - box.llx, box.ury - box.lly});
        }
        QPDFObjectHandle info = document.getTrailer().getKey("/Info");
        if (info.isDictionary()) {
            for (const std::string& key : info.getKeys()) {
                QPDFObjectHandle value = info.getKey(key);
                if (value.isString()) {
                    facts.info[key] = value.getUTF8Value();
                }
            }
        }
        for (const auto& [key, file] :
             QPDFEmbeddedFileDocumentHelper(document).getEmbeddedFiles()) {
            facts.attachments.push_back(file->getFilename());
        }
        return facts;
    });
}

} // namespace quandrel
