// SPDX-License-Identifier: MIT

#include "qt/pdf_printer.h"

#include "core/atomic_file.h"
#include "qt/painter_page.h"
#include "qt/picture_file.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QString>

#include <optional>
#include <string_view>
#include <utility>

namespace quandrel {

namespace {

constexpr int kPdfResolution = 1200;

class PdfPage : public PrintedPage {
public:
    PdfPage(std::string path, const std::string& title, const QPageLayout& layout,
            std::string* failure)
        : path_(std::move(path))
        , failure_(failure)
        , writer_(&buffer_) {
        buffer_.open(QIODevice::WriteOnly);
        QPageLayout whole = layout;
        whole.setMode(QPageLayout::FullPageMode);
        writer_.setResolution(kPdfResolution);
        writer_.setPageLayout(whole);
        writer_.setTitle(QString::fromStdString(title));
        writer_.setCreator(QStringLiteral("Quandrel"));
        surfaces_.emplace(writer_);
    }

    [[nodiscard]] bool IsGood() const { return surfaces_->IsGood(); }

    [[nodiscard]] Surface& SurfaceIn(const PageRect& rect) override { return surfaces_->In(rect); }

    [[nodiscard]] bool Send() override {
        if (!surfaces_->End()) {
            return false;
        }
        ForgetTime(buffer_.buffer());
        const QByteArray& bytes = buffer_.data();
        const std::string error = WriteFileAtomically(
            path_, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
        if (failure_ != nullptr) {
            *failure_ = error;
        }
        return error.empty();
    }

private:
    std::string path_;
    std::string* failure_;
    QBuffer buffer_;
    QPdfWriter writer_;
    std::optional<PageSurfaces> surfaces_;
};

} // namespace

QPageLayout PdfPaper(QPageSize::PageSizeId size, QPageLayout::Orientation orientation) {
    return QPageLayout(QPageSize(size), orientation, QMarginsF(0, 0, 0, 0),
                       QPageLayout::Millimeter);
}

std::unique_ptr<PrintedPage> StartPdfPage(const std::string& path, const std::string& title,
                                          const QPageLayout& layout, std::string* failure) {
    auto page = std::make_unique<PdfPage>(path, title, layout, failure);
    if (!page->IsGood()) {
        return nullptr;
    }
    return page;
}

Sheet PdfPrinter::Paper() const {
    return SheetOf(layout_);
}

} // namespace quandrel
