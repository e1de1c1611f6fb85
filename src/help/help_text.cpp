// SPDX-License-Identifier: MIT

#include "help/help_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

namespace quandrel {

namespace {

constexpr std::string_view kBlanks = " \t\r\n";

/// A code point in UTF-8.
std::string Utf8Of(std::uint32_t code) {
    std::string bytes;
    const auto add = [&bytes](std::uint32_t byte) { bytes += static_cast<char>(byte); };
    if (code < 0x80) {
        add(code);
    } else if (code < 0x800) {
        add(0xC0 | (code >> 6));
        add(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        add(0xE0 | (code >> 12));
        add(0x80 | ((code >> 6) & 0x3F));
        add(0x80 | (code & 0x3F));
    } else if (code < 0x110000) {
        add(0xF0 | (code >> 18));
        add(0x80 | ((code >> 12) & 0x3F));
        add(0x80 | ((code >> 6) & 0x3F));
        add(0x80 | (code & 0x3F));
    }
    return bytes;
}

/// The character for "&name;", or nothing for an unknown name.
std::optional<std::string> CharacterOf(std::string_view name) {
    static constexpr std::array<std::pair<std::string_view, std::uint32_t>, 14> kNames = {{
        {"amp", '&'},
        {"lt", '<'},
        {"gt", '>'},
        {"quot", '"'},
        {"nbsp", ' '},
        {"deg", 0xB0},
        {"plusmn", 0xB1},
        {"times", 0xD7},
        {"minus", 0x2212},
        {"radic", 0x221A},
        {"ge", 0x2265},
        {"le", 0x2264},
        {"ndash", 0x2013},
        {"hellip", 0x2026},
    }};
    if (name.starts_with('#')) {
        std::uint32_t code = 0;
        const auto read = std::from_chars(name.data() + 1, name.data() + name.size(), code);
        return read.ec == std::errc() ? std::optional(Utf8Of(code)) : std::nullopt;
    }
    const auto found =
        std::ranges::find(kNames, name, &std::pair<std::string_view, std::uint32_t>::first);
    return found != kNames.end() ? std::optional(Utf8Of(found->second)) : std::nullopt;
}

/// A text with its character references replaced.
std::string Decoded(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const std::size_t mark = text.find('&');
        plain += text.substr(0, mark);
        if (mark == std::string_view::npos) {
            break;
        }
        text.remove_prefix(mark);
        const std::size_t end = text.find(';');
        const auto character =
            end != std::string_view::npos ? CharacterOf(text.substr(1, end - 1)) : std::nullopt;
        plain += character.value_or("&");
        text.remove_prefix(character ? end + 1 : 1);
    }
    return plain;
}

/// A text with each run of blanks replaced by one, and none at its ends.
std::string Collapsed(std::string_view text) {
    std::string result;
    bool gap = false;
    for (const char letter : text) {
        if (kBlanks.find(letter) != std::string_view::npos) {
            gap = true;
            continue;
        }
        if (gap && !result.empty()) {
            result += ' ';
        }
        gap = false;
        result += letter;
    }
    return result;
}

struct Tag {
    std::string_view name; ///< lower case, as the pages are written
    std::string_view attributes;
    bool closes = false;

    /// The value of an attribute, or an empty text.
    [[nodiscard]] std::string Value(std::string_view attribute) const {
        const std::string start = std::string(attribute) + "=\"";
        std::size_t at = attributes.find(start);
        while (at != std::string_view::npos && at > 0
               && kBlanks.find(attributes[at - 1]) == std::string_view::npos) {
            at = attributes.find(start, at + 1);
        }
        if (at == std::string_view::npos) {
            return {};
        }
        const std::string_view value = attributes.substr(at + start.size());
        return Decoded(value.substr(0, value.find('"')));
    }
};

Tag TagOf(std::string_view inner) {
    Tag tag;
    if (inner.starts_with('/')) {
        tag.closes = true;
        inner.remove_prefix(1);
    }
    tag.name = inner.substr(0, inner.find_first_of(" \t\r\n/"));
    tag.attributes = inner.substr(tag.name.size());
    return tag;
}

/// Passes the tags and the texts of a page to a reader, in order. Comments are skipped.
template <class Reader>
void Walk(std::string_view html, Reader& reader) {
    while (!html.empty()) {
        const std::size_t open = html.find('<');
        if (open != 0) {
            reader.OnText(Decoded(html.substr(0, open)));
        }
        if (open == std::string_view::npos) {
            return;
        }
        html.remove_prefix(open);
        const bool isComment = html.starts_with("<!--");
        const std::string_view endMark = isComment ? "-->" : ">";
        const std::size_t end = html.find(endMark);
        if (end == std::string_view::npos) {
            return;
        }
        if (!isComment && html.size() > 1 && html[1] != '!') {
            reader.OnTag(TagOf(html.substr(1, end - 1)));
        }
        html.remove_prefix(end + endMark.size());
    }
}

bool IsHeading(std::string_view name) {
    return name.size() == 2 && name[0] == 'h' && name[1] >= '1' && name[1] <= '4';
}

/// Tags within a line: they do not separate words.
bool IsInline(std::string_view name) {
    static constexpr std::array<std::string_view, 8> kInline = {"a",   "b",   "i",    "em",
                                                                "sub", "sup", "code", "span"};
    return std::ranges::find(kInline, name) != kInline.end();
}

class PageReader {
public:
    void OnTag(const Tag& tag) {
        if (tag.name == "title") {
            inTitle_ = !tag.closes;
        } else if (tag.name == "body") {
            inBody_ = !tag.closes;
        } else if (IsHeading(tag.name)) {
            if (tag.closes) {
                page_.headings.push_back(Collapsed(heading_));
            }
            heading_.clear();
            inHeading_ = !tag.closes;
        } else if (tag.name == "img") {
            page_.pictures.push_back(tag.Value("src"));
        }
        if (tag.name == "a" && !tag.closes && !tag.Value("href").empty()) {
            page_.links.push_back(tag.Value("href"));
        }
        for (const char* attribute : {"id", "name"}) {
            if (inBody_ && !tag.Value(attribute).empty()) {
                page_.anchors.push_back(tag.Value(attribute));
            }
        }
        if (!IsInline(tag.name)) {
            page_.text += ' ';
        }
    }

    void OnText(const std::string& text) {
        if (inTitle_) {
            page_.title += text;
        }
        if (inHeading_) {
            heading_ += text;
        }
        if (inBody_) {
            page_.text += text;
        }
    }

    HelpPage Finish() {
        page_.title = Collapsed(page_.title);
        page_.text = Collapsed(page_.text);
        return std::move(page_);
    }

private:
    HelpPage page_;
    std::string heading_;
    bool inTitle_ = false;
    bool inBody_ = false;
    bool inHeading_ = false;
};

class ListReader {
public:
    std::vector<HelpEntry> entries;

    void OnTag(const Tag& tag) {
        if (tag.name == "ul") {
            depth_ += tag.closes ? -1 : 1;
        } else if (tag.name == "h2") {
            Take(tag, 0, {});
        } else if (tag.name == "a" && depth_ > 0) {
            Take(tag, depth_, tag.Value("href"));
        }
    }

    void OnText(const std::string& text) {
        if (isOpen_) {
            entry_.title += text;
        }
    }

private:
    void Take(const Tag& tag, int level, const std::string& target) {
        if (!tag.closes) {
            entry_ = {level, {}, target};
        } else if (isOpen_) {
            entry_.title = Collapsed(entry_.title);
            entries.push_back(entry_);
        }
        isOpen_ = !tag.closes;
    }

    HelpEntry entry_;
    int depth_ = 0;
    bool isOpen_ = false;
};

} // namespace

HelpPage ReadHelpPage(std::string_view html) {
    PageReader reader;
    Walk(html, reader);
    return reader.Finish();
}

std::vector<HelpEntry> ReadHelpList(std::string_view html) {
    ListReader reader;
    Walk(html, reader);
    return reader.entries;
}

} // namespace quandrel
