// SPDX-License-Identifier: MIT

#include "batch/script_file.h"

#include "input/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>

namespace quandrel {

namespace {

constexpr std::size_t kReadStep = 65536;

/// Closes a descriptor at the end.
class Closing {
public:
    explicit Closing(int descriptor)
        : descriptor_(descriptor) {}

    ~Closing() { ::close(descriptor_); }

    Closing(const Closing&) = delete;
    Closing& operator=(const Closing&) = delete;

private:
    int descriptor_;
};

/// Why nothing is read from what stands at a path, or nothing.
std::string RefusalOf(mode_t mode) {
    if (S_ISDIR(mode)) {
        return "it is a folder";
    }
    return S_ISREG(mode) || S_ISFIFO(mode) ? "" : "it is no file, but a device";
}

/// Bytes without a mark of their encoding, as UTF-8. Bytes without a mark stay as they are, for
/// paths in them need not be UTF-8.
std::string Decoded(std::string bytes) {
    constexpr std::string_view kMarks[] = {"\xef\xbb\xbf", "\xff\xfe", "\xfe\xff"};
    const bool isUtf8 = bytes.starts_with(kMarks[0]);
    if (isUtf8) {
        return bytes.substr(kMarks[0].size());
    }
    const bool isUtf16 = bytes.starts_with(kMarks[1]) || bytes.starts_with(kMarks[2]);
    return isUtf16 ? DecodeText(std::move(bytes)) : bytes;
}

} // namespace

Result<std::string> ReadScript(int descriptor) {
    std::string bytes;
    while (bytes.size() <= kLargestScript) {
        const std::size_t before = bytes.size();
        bytes.resize(before + kReadStep);
        const ssize_t got = ::read(descriptor, bytes.data() + before, kReadStep);
        const int error = errno;
        bytes.resize(before + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (got == 0) {
            return Decoded(std::move(bytes));
        }
        if (got < 0 && error != EINTR) {
            return Failure{std::strerror(error)};
        }
    }
    return Failure{"it holds more than " + std::to_string(kLargestScript >> 20) + " MB"};
}

Result<std::string> ReadScriptFile(const std::string& path) {
    if (path == "-") {
        return ReadScript(STDIN_FILENO);
    }
    // Looked at before it is opened: opening a device may do something to it.
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0) {
        return Failure{std::strerror(errno)};
    }
    if (const std::string refusal = RefusalOf(status.st_mode); !refusal.empty()) {
        return Failure{refusal};
    }
    // Opening does not wait for a writer of a pipe; reading does.
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) {
        return Failure{std::strerror(errno)};
    }
    const Closing closing(descriptor);
    ::fcntl(descriptor, F_SETFL, 0);
    if (::fstat(descriptor, &status) != 0 || !RefusalOf(status.st_mode).empty()) {
        return Failure{"it has changed"};
    }
    Result<std::string> text = ReadScript(descriptor);
    if (text && text->empty() && S_ISFIFO(status.st_mode)) {
        return Failure{"nothing comes through the pipe"};
    }
    return text;
}

} // namespace quandrel
