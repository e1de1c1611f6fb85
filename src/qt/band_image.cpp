// SPDX-License-Identifier: MIT

#include "qt/band_image.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/mman.h>
#include <unistd.h>
#endif

#include <algorithm>
#include <cstdint>

namespace quandrel {

namespace {

#ifdef _WIN32

/// Reserves memory whose pages are allocated when first written. They are not freed before the end.
void* Reserve(std::size_t size) {
    return VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
}

void GiveUp(void* memory, std::size_t) {
    VirtualFree(memory, 0, MEM_RELEASE);
}

void Discard(void* memory, std::size_t size) {
    VirtualAlloc(memory, size, MEM_RESET, PAGE_READWRITE);
}

std::size_t PageSize() {
    SYSTEM_INFO info;
    GetSystemInfo(&info);
    return info.dwPageSize;
}

#else

/// Reserves addresses whose pages are allocated when first written.
void* Reserve(std::size_t size) {
    void* const memory = ::mmap(nullptr, size, PROT_READ | PROT_WRITE,
                                MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    return memory == MAP_FAILED ? nullptr : memory;
}

void GiveUp(void* memory, std::size_t size) {
    ::munmap(memory, size);
}

void Discard(void* memory, std::size_t size) {
    ::madvise(memory, size, MADV_DONTNEED);
}

std::size_t PageSize() {
    return static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

#endif

} // namespace

BandImage::BandImage(QSize size, Ground ground) {
    constexpr std::size_t kBytesInPixel = 4;
    const std::size_t stride = static_cast<std::size_t>(size.width()) * kBytesInPixel;
    size_ = stride * static_cast<std::size_t>(size.height());
    memory_ = Reserve(size_);
    if (memory_ != nullptr) {
        image_ = QImage(static_cast<uchar*>(memory_), size.width(), size.height(),
                        static_cast<qsizetype>(stride),
                        ground == Ground::White ? QImage::Format_RGB32
                                                : QImage::Format_ARGB32_Premultiplied);
    }
}

BandImage::~BandImage() {
    image_ = {};
    if (memory_ != nullptr) {
        GiveUp(memory_, size_);
    }
}

void BandImage::Draw(PixelLines lines, const std::function<void(QPainter&)>& draw) {
    const QRgb ground = image_.hasAlphaChannel() ? qRgba(0, 0, 0, 0) : qRgb(255, 255, 255);
    for (int line = lines.first; line < lines.end; ++line) {
        auto* const pixels = reinterpret_cast<QRgb*>(image_.scanLine(line));
        std::fill_n(pixels, image_.width(), ground);
    }
    QPainter painter(&image_);
    if (lines != PixelLines{0, image_.height()}) {
        painter.setClipRect(0, lines.first, image_.width(), lines.end - lines.first);
    }
    draw(painter);
}

void BandImage::Release(PixelLines lines) {
    // Only whole pages; those at the ends also hold other lines.
    const std::size_t page = PageSize();
    const auto stride = static_cast<std::size_t>(image_.bytesPerLine());
    const std::size_t first = (static_cast<std::size_t>(lines.first) * stride + page - 1) / page;
    const std::size_t end = static_cast<std::size_t>(lines.end) * stride / page;
    if (end > first) {
        Discard(static_cast<std::byte*>(memory_) + first * page, (end - first) * page);
    }
}

} // namespace quandrel
