// SPDX-License-Identifier: MIT

#include "input/text_file.h"

#include "input/text_encoding.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace quandrel {

namespace {

constexpr std::size_t kCheckedBytes = 65536;
constexpr std::size_t kReadStep = 262144; // stays in the cache between clearing and filling
constexpr std::size_t kLongestFirstLines = 1 << 20;

/// An open file, or the reason why it could not be opened.
class InputFile {
public:
    explicit InputFile(const std::string& path) { Open(path); }

    ~InputFile() {
        if (descriptor_ >= 0) {
            ::close(descriptor_);
        }
    }

    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    [[nodiscard]] const std::string& Error() const { return error_; }

    [[nodiscard]] std::uint64_t Size() const { return size_; }

    /// Appends up to count bytes to a text; fewer only at the end of the file. Keeps an error.
    void Append(std::string& text, std::size_t count) {
        const std::size_t end = text.size() + count;
        while (error_.empty() && text.size() < end) {
            const std::size_t before = text.size();
            text.resize(std::min(end, before + kReadStep));
            const ssize_t got = ::read(descriptor_, text.data() + before, text.size() - before);
            text.resize(before + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
            if (got == 0) {
                return;
            }
            if (got < 0 && errno != EINTR) {
                error_ = std::string("It cannot be read: ") + std::strerror(errno) + ".";
            }
        }
    }

private:
    void Open(const std::string& path) {
        // The status is read before the file is opened: opening a device may have effects.
        struct stat status = {};
        if (path.find('\0') != std::string::npos || ::stat(path.c_str(), &status) != 0) {
            error_ = errno == EACCES ? "You do not have permission to read it."
                                     : "There is no such file.";
            return;
        }
        if (!Accept(status)) {
            return;
        }
        descriptor_ = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        if (descriptor_ < 0) {
            error_ = errno == EACCES
                         ? "You do not have permission to read it."
                         : std::string("It cannot be opened: ") + std::strerror(errno) + ".";
            return;
        }
        if (::fstat(descriptor_, &status) == 0 && Accept(status)) {
            size_ = static_cast<std::uint64_t>(status.st_size);
        }
    }

    [[nodiscard]] bool Accept(const struct stat& status) {
        if (S_ISDIR(status.st_mode)) {
            error_ = "It is a folder.";
        } else if (!S_ISREG(status.st_mode)) {
            error_ = "It is a pipe or a device, not a file with contents.";
        }
        return error_.empty();
    }

    int descriptor_ = -1;
    std::uint64_t size_ = 0;
    std::string error_;
};

enum class Encoding { Utf8, Utf16Little, Utf16Big };

Encoding EncodingOf(std::string_view bytes) {
    if (bytes.substr(0, 2) == "\xff\xfe") {
        return Encoding::Utf16Little;
    }
    return bytes.substr(0, 2) == "\xfe\xff" ? Encoding::Utf16Big : Encoding::Utf8;
}

// UTF-16 without its mark. Unpaired surrogates, and half a unit at the end, become U+FFFD.
std::string FromUtf16(std::string_view bytes, Encoding encoding) {
    constexpr char32_t kReplacement = 0xFFFD;
    const std::size_t lowByte = encoding == Encoding::Utf16Little ? 0 : 1;
    const auto unit = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(bytes[i + lowByte])
                                     | static_cast<unsigned char>(bytes[i + 1 - lowByte]) << 8);
    };
    const auto isIn = [](char32_t c, char32_t first) { return c >= first && c < first + 0x400; };
    std::string text;
    text.reserve(bytes.size() / 2 + bytes.size() / 8);
    std::size_t i = 0;
    for (; i + 1 < bytes.size(); i += 2) {
        char32_t character = unit(i);
        if (isIn(character, 0xD800) && i + 3 < bytes.size() && isIn(unit(i + 2), 0xDC00)) {
            character = 0x10000 + ((character - 0xD800) << 10) + (unit(i + 2) - 0xDC00);
            i += 2;
        } else if (isIn(character, 0xD800) || isIn(character, 0xDC00)) {
            character = kReplacement;
        }
        AppendCharacter(character, text);
    }
    if (i < bytes.size()) {
        AppendCharacter(kReplacement, text);
    }
    return text;
}

constexpr std::string_view kUtf8Mark = "\xef\xbb\xbf";

// The first bytes of a text without a character that is cut at the end.
std::string WithoutPartOfCharacter(std::string bytes) {
    if (EncodingOf(bytes) != Encoding::Utf8) {
        bytes.resize(bytes.size() - bytes.size() % 2);
        return bytes;
    }
    constexpr std::size_t kLongestCharacter = 4;
    const std::size_t valid = LengthOfUtf8(bytes);
    if (bytes.size() - valid < kLongestCharacter) {
        bytes.resize(valid);
    }
    return bytes;
}

std::string BinaryError() {
    return "It holds binary data, not text.";
}

std::string EmptyError() {
    return "It is empty.";
}

} // namespace

Result<std::string> ReadTextBytes(const std::string& path) {
    InputFile file(path);
    std::string bytes;
    file.Append(bytes, kCheckedBytes);
    if (file.Error().empty() && IsBinaryData(bytes)) {
        return Failure{BinaryError()};
    }
    if (file.Size() >= kLargestTextFile) {
        return Failure{"It is too large to be a text file."};
    }
    if (file.Size() > bytes.size()) {
        bytes.reserve(static_cast<std::size_t>(file.Size()) + kReadStep);
    }
    file.Append(bytes, static_cast<std::size_t>(kLargestTextFile) - bytes.size());
    if (!file.Error().empty()) {
        return Failure{file.Error()};
    }
    std::string text = DecodeText(std::move(bytes));
    if (text.empty()) {
        return Failure{EmptyError()};
    }
    return text;
}

Result<std::string> FirstBytes(const std::string& path, std::size_t count) {
    InputFile file(path);
    std::string bytes;
    file.Append(bytes, count);
    if (!file.Error().empty()) {
        return Failure{file.Error()};
    }
    return bytes;
}

Result<std::vector<std::string>> FirstLines(const std::string& path, std::size_t count) {
    InputFile file(path);
    std::string bytes;
    for (std::size_t wanted = kCheckedBytes;; wanted *= 4) {
        file.Append(bytes, wanted - bytes.size());
        if (!file.Error().empty()) {
            return Failure{file.Error()};
        }
        if (IsBinaryData(std::string_view(bytes).substr(0, kCheckedBytes))) {
            return Failure{BinaryError()};
        }
        const bool isWhole = bytes.size() < wanted;
        const std::string text = DecodeText(isWhole ? bytes : WithoutPartOfCharacter(bytes));
        std::vector<std::string> lines = FirstLinesOfText(text, count + 1);
        // The last line of a part may continue after it.
        const bool isEnough = lines.size() > count;
        lines.resize(std::min(lines.size(), count));
        if (isWhole || isEnough || wanted >= kLongestFirstLines) {
            return lines;
        }
    }
}

std::vector<std::string> FirstLinesOfText(std::string_view text, std::size_t count) {
    std::vector<std::string> lines;
    LineReader reader(text);
    for (std::string_view line; lines.size() < count && reader.Next(line);) {
        lines.emplace_back(line);
    }
    return lines;
}

std::string DecodeText(std::string bytes) {
    const Encoding encoding = EncodingOf(bytes);
    if (encoding != Encoding::Utf8) {
        return FromUtf16(std::string_view(bytes).substr(2), encoding);
    }
    if (LengthOfUtf8(bytes) < bytes.size()) {
        return FromWindows1252(bytes);
    }
    if (std::string_view(bytes).substr(0, kUtf8Mark.size()) == kUtf8Mark) {
        bytes.erase(0, kUtf8Mark.size());
    }
    return bytes;
}

bool IsBinaryData(std::string_view bytes) {
    std::string decoded;
    if (EncodingOf(bytes) != Encoding::Utf8) {
        decoded = DecodeText(std::string(bytes));
        bytes = decoded;
    }
    constexpr std::string_view kUsual = "\t\n\v\f\r\x1a"; // the last one used to end files
    std::size_t controls = 0;
    for (const char c : bytes) {
        if (c == '\0') {
            return true;
        }
        const bool isControl = static_cast<unsigned char>(c) < 0x20;
        controls += isControl && kUsual.find(c) == std::string_view::npos ? 1 : 0;
    }
    constexpr std::size_t kTextsHaveFewerIn = 20;
    return controls > bytes.size() / kTextsHaveFewerIn;
}

bool IsBinaryPlotSignature(std::string_view bytes) {
    constexpr std::size_t kLengthWithCounts = 6 + 3 * 4;
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (bytes.size() < kLengthWithCounts || bytes.substr(0, 3) != "bin" || !isDigit(bytes[3])
        || bytes[4] != '.' || !isDigit(bytes[5])) {
        return false;
    }
    // The highest byte of each count, little-endian: below any character of a text.
    return bytes[9] >= 0 && bytes[9] < '\t' && bytes[13] >= 0 && bytes[13] < '\t' && bytes[17] >= 0
           && bytes[17] < '\t';
}

bool LooksLikeWorkspace(std::string_view firstLine) {
    constexpr std::string_view kEnd = "workspace";
    const std::size_t last = firstLine.find_last_not_of(" \t\r\n");
    const std::string_view line =
        firstLine.substr(0, last == std::string_view::npos ? 0 : last + 1);
    return line.size() >= kEnd.size()
           && std::equal(kEnd.begin(), kEnd.end(), line.end() - kEnd.size(), [](char end, char c) {
                  return end == (c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c);
              });
}

LineReader::LineReader(std::string_view text)
    : text_(text)
    , nextLineFeed_(Find('\n', 0))
    , nextReturn_(Find('\r', 0)) {}

bool LineReader::Next(std::string_view& line) {
    if (position_ >= text_.size()) {
        line = {};
        return false;
    }
    if (nextLineFeed_ < position_) {
        nextLineFeed_ = Find('\n', position_);
    }
    if (nextReturn_ < position_) {
        nextReturn_ = Find('\r', position_);
    }
    const std::size_t end = std::min(nextLineFeed_, nextReturn_);
    line = text_.substr(position_, end - position_);
    const bool isPair = nextReturn_ + 1 == nextLineFeed_ && nextLineFeed_ < text_.size();
    position_ = end + (isPair ? 2 : 1);
    return true;
}

std::size_t LineReader::Find(char c, std::size_t from) const {
    if (from >= text_.size()) {
        return text_.size();
    }
    const void* found = std::memchr(text_.data() + from, c, text_.size() - from);
    return found == nullptr
               ? text_.size()
               : static_cast<std::size_t>(static_cast<const char*>(found) - text_.data());
}

} // namespace quandrel
