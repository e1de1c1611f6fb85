// SPDX-License-Identifier: MIT

#include "batch/script_file.h"

#include "batch/standard_streams.h"
#include "input/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <utility>

namespace quandrel {

namespace {

constexpr std::size_t kReadStep = 65536;

/// Why the file at a path cannot be read, or nothing.
std::string RefusalOf(mode_t mode) {
    if (S_ISDIR(mode)) {
        return "it is a folder";
    }
    return S_ISREG(mode) || S_ISFIFO(mode) ? "" : "it is a device, not a file";
}

constexpr std::string_view kUtf8Mark = "\xef\xbb\xbf";
constexpr std::string_view kUtf16Marks[] = {"\xff\xfe", "\xfe\xff"};
constexpr std::size_t kUnit = 2; ///< bytes of UTF-16

std::string TooLarge() {
    return "it holds more than " + std::to_string(kLargestScript >> 20) + " MB";
}

/// The end of the last complete line of UTF-16, in bytes; 0 if there is none.
std::size_t EndOfLines(std::string_view bytes, std::string_view mark) {
    const std::size_t low = mark == kUtf16Marks[0] ? 0 : 1;
    for (std::size_t end = bytes.size() - bytes.size() % kUnit; end >= kUnit; end -= kUnit) {
        if (bytes[end - kUnit + low] == '\n' && bytes[end - 1 - low] == '\0') {
            return end;
        }
    }
    return 0;
}

} // namespace

Result<ScriptSource> ScriptSource::Open(const std::string& path) {
    if (path == kStandardStream) {
        return ScriptSource(STDIN_FILENO);
    }
    // Checked before the file is opened: opening a device may have an effect.
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0) {
        return Failure{std::strerror(errno)};
    }
    if (const std::string refusal = RefusalOf(status.st_mode); !refusal.empty()) {
        return Failure{refusal};
    }
    // Opening a pipe does not wait for a writer; reading does.
    ScriptSource source(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (source.descriptor_ < 0) {
        return Failure{std::strerror(errno)};
    }
    source.isOwn_ = true;
    ::fcntl(source.descriptor_, F_SETFL, 0);
    if (::fstat(source.descriptor_, &status) != 0 || !RefusalOf(status.st_mode).empty()) {
        return Failure{"it has changed"};
    }
    if (S_ISREG(status.st_mode) && static_cast<std::size_t>(status.st_size) > kLargestScript) {
        return Failure{TooLarge()};
    }
    source.isPipe_ = S_ISFIFO(status.st_mode);
    return source;
}

ScriptSource::ScriptSource(ScriptSource&& other) noexcept
    : descriptor_(other.descriptor_)
    , isOwn_(std::exchange(other.isOwn_, false))
    , isPipe_(other.isPipe_)
    , count_(other.count_)
    , encoding_(other.encoding_)
    , mark_(std::move(other.mark_))
    , bytes_(std::move(other.bytes_)) {}

ScriptSource::~ScriptSource() {
    if (isOwn_) {
        ::close(descriptor_);
    }
}

Result<std::string> ScriptSource::Read() {
    for (;;) {
        const std::size_t before = bytes_.size();
        bytes_.resize(before + kReadStep);
        const ssize_t got = ::read(descriptor_, bytes_.data() + before, kReadStep);
        const int error = errno;
        bytes_.resize(before + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        count_ += static_cast<std::size_t>(std::max<ssize_t>(got, 0));
        if (got < 0 && error != EINTR) {
            return Failure{std::strerror(error)};
        }
        if (count_ > kLargestScript) {
            return Failure{TooLarge()};
        }
        if (got == 0 && count_ == 0 && isPipe_) {
            return Failure{"no data came through the pipe"};
        }
        if (std::string text = TakeDecoded(got == 0); got == 0 || !text.empty()) {
            return text;
        }
    }
}

/// Waits until the first bytes are known to be a byte order mark or not.
void ScriptSource::LookForMark(bool isEnd) {
    const bool isShort = bytes_.size() < kUtf8Mark.size();
    if (encoding_ != Encoding::NotKnown || (isShort && !isEnd && kUtf8Mark.starts_with(bytes_))) {
        return;
    }
    const bool isOneByte = bytes_.size() == 1 && !isEnd;
    for (const std::string_view mark : kUtf16Marks) {
        if (isOneByte && mark.starts_with(bytes_)) {
            return;
        }
        if (bytes_.starts_with(mark)) {
            mark_ = mark;
        }
    }
    encoding_ = mark_.empty() ? Encoding::Bytes : Encoding::Utf16;
    bytes_.erase(0, bytes_.starts_with(kUtf8Mark) ? kUtf8Mark.size() : mark_.size());
}

/// Bytes without a mark are not converted, because paths in them need not be UTF-8.
std::string ScriptSource::TakeDecoded(bool isEnd) {
    LookForMark(isEnd);
    if (encoding_ == Encoding::NotKnown) {
        return {};
    }
    if (encoding_ == Encoding::Bytes) {
        return std::exchange(bytes_, {});
    }
    const std::size_t whole = isEnd ? bytes_.size() : EndOfLines(bytes_, mark_);
    std::string text = DecodeText(mark_ + bytes_.substr(0, whole));
    bytes_.erase(0, whole);
    return text;
}

} // namespace quandrel
