// SPDX-License-Identifier: MIT

#include "qt/png_writer.h"

#include <png.h>

#include <csetjmp>
#include <string_view>
#include <utility>

namespace quandrel {

namespace {

/// The destination of the bytes.
struct Target {
    PutBytes put;
    bool hasFailed = false;
};

// When the library fails it leaves its calls by longjmp. The functions that call it hold no objects
// that need to be destroyed.

constexpr int kBitDepth = 8;

void TakeBytes(png_structp png, png_bytep bytes, png_size_t count) {
    auto& target = *static_cast<Target*>(png_get_io_ptr(png));
    const std::string_view text(reinterpret_cast<const char*>(bytes), count);
    target.hasFailed = target.hasFailed || !target.put(text);
}

void NothingToFlush(png_structp) {}

void Fail(png_structp png, png_const_charp) {
    png_longjmp(png, 1);
}

void Ignore(png_structp, png_const_charp) {}

/// The texts of a head in the form of the library. They refer to the head.
std::vector<png_text> TextsOf(const PngHead& head) {
    std::vector<png_text> texts;
    for (const PngText& text : head.texts) {
        png_text entry{};
        entry.compression =
            text.isCompressed ? PNG_TEXT_COMPRESSION_zTXt : PNG_ITXT_COMPRESSION_NONE;
        // The library copies both, and changes neither.
        entry.key = const_cast<char*>(text.keyword.c_str());
        entry.text = const_cast<char*>(text.text.c_str());
        texts.push_back(entry);
    }
    return texts;
}

bool WriteHead(png_structp png, png_infop info, const PngHead& head, const png_text* texts) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    png_set_IHDR(png, info, static_cast<png_uint_32>(head.width),
                 static_cast<png_uint_32>(head.height), kBitDepth,
                 head.hasAlpha ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    const auto dots = static_cast<png_uint_32>(head.dotsPerMetre);
    png_set_pHYs(png, info, dots, dots, PNG_RESOLUTION_METER);
    // Drawings are mostly plain: the difference from the line above is the smallest of all filters.
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_UP);
    png_set_text(png, info, texts, static_cast<int>(head.texts.size()));
    png_write_info(png, info);
    return true;
}

bool WriteRow(png_structp png, const std::uint8_t* line) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    png_write_row(png, line);
    return true;
}

bool WriteEnd(png_structp png) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    png_write_end(png, nullptr);
    return true;
}

} // namespace

struct PngWriter::State {
    Target target;
    png_structp png = nullptr;
    png_infop info = nullptr;
};

PngWriter::PngWriter(PutBytes put)
    : state_(std::make_unique<State>()) {
    state_->target.put = std::move(put);
    state_->png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, Fail, Ignore);
    state_->info = state_->png != nullptr ? png_create_info_struct(state_->png) : nullptr;
    if (state_->info != nullptr) {
        png_set_write_fn(state_->png, &state_->target, TakeBytes, NothingToFlush);
    }
}

PngWriter::~PngWriter() {
    png_destroy_write_struct(&state_->png, &state_->info);
}

bool PngWriter::Begin(const PngHead& head) {
    constexpr std::size_t kChannels = 3;
    hasAlpha_ = head.hasAlpha;
    line_.resize(static_cast<std::size_t>(head.width) * (kChannels + (hasAlpha_ ? 1 : 0)));
    const std::vector<png_text> texts = TextsOf(head);
    return state_->info != nullptr && WriteHead(state_->png, state_->info, head, texts.data())
           && !state_->target.hasFailed;
}

bool PngWriter::WriteLine(const QRgb* pixels) {
    for (auto channel = line_.begin(); channel != line_.end(); ++pixels) {
        const QRgb pixel = hasAlpha_ ? qUnpremultiply(*pixels) : *pixels;
        *channel++ = static_cast<std::uint8_t>(pixel >> 16);
        *channel++ = static_cast<std::uint8_t>(pixel >> 8);
        *channel++ = static_cast<std::uint8_t>(pixel);
        if (hasAlpha_) {
            *channel++ = static_cast<std::uint8_t>(pixel >> 24);
        }
    }
    return WriteRow(state_->png, line_.data()) && !state_->target.hasFailed;
}

bool PngWriter::End() {
    return WriteEnd(state_->png) && !state_->target.hasFailed;
}

} // namespace quandrel
