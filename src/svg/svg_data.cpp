// SPDX-License-Identifier: MIT

#include "svg/svg_data.h"

#include <algorithm>
#include <cstddef>
#include <set>

namespace quandrel {

namespace {

constexpr std::string_view kNamespace = "urn:quandrel:plot";
constexpr std::string_view kElement = "plot";
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::size_t kLineLength = 76;

bool IsBlank(char c) {
    return kBlanks.find(c) != std::string_view::npos;
}

bool IsDigitOfData(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+'
           || c == '/' || c == '=';
}

/// The position after a text, from a position on; the end when it does not follow.
std::size_t After(std::string_view text, std::string_view end, std::size_t from) {
    const std::size_t at = text.find(end, from);
    return at == std::string_view::npos ? text.size() : at + end.size();
}

/// The position after a document type, whose declarations may hold ">" in brackets or quotes.
std::size_t AfterDeclaration(std::string_view text, std::size_t from) {
    int depth = 0;
    for (std::size_t at = from; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '"' || c == '\'') {
            at = std::min(text.find(c, at + 1), text.size());
        } else if (c == '[') {
            ++depth;
        } else if (c == ']') {
            --depth;
        } else if (c == '>' && depth <= 0) {
            return at + 1;
        }
    }
    return text.size();
}

/// The position of the ">" of a start tag, which values in quotes may hold too.
std::size_t EndOfTag(std::string_view text, std::size_t from) {
    for (std::size_t at = from; at < text.size(); ++at) {
        if (text[at] == '"' || text[at] == '\'') {
            at = std::min(text.find(text[at], at + 1), text.size());
        } else if (text[at] == '>') {
            return at;
        }
    }
    return text.size();
}

/// Reads the attributes of a start tag one by one.
class Attributes {
public:
    /// @param tag  what follows the name of the element, up to its ">"
    explicit Attributes(std::string_view tag)
        : left_(tag) {}

    /// False after the last one, or where none can be read.
    [[nodiscard]] bool Next() {
        left_.remove_prefix(std::min(left_.find_first_not_of(kBlanks), left_.size()));
        const std::size_t sign = left_.find('=');
        if (sign == std::string_view::npos) {
            return false;
        }
        name_ = left_.substr(0, std::min(left_.find_first_of(kBlanks), sign));
        left_.remove_prefix(sign + 1);
        left_.remove_prefix(std::min(left_.find_first_not_of(kBlanks), left_.size()));
        if (left_.empty() || (left_[0] != '"' && left_[0] != '\'')) {
            return false;
        }
        const std::size_t end = left_.find(left_[0], 1);
        if (end == std::string_view::npos) {
            return false;
        }
        value_ = left_.substr(1, end - 1);
        left_.remove_prefix(end + 1);
        return true;
    }

    [[nodiscard]] std::string_view Name() const { return name_; }

    [[nodiscard]] std::string_view Value() const { return value_; }

private:
    std::string_view left_;
    std::string_view name_;
    std::string_view value_;
};

/// Finds the element in a document.
class DataScanner {
public:
    explicit DataScanner(std::string_view svg)
        : svg_(svg) {}

    [[nodiscard]] std::optional<std::string> Find() {
        std::size_t at = svg_.find('<');
        while (at < svg_.size()) {
            const std::string_view rest = svg_.substr(at);
            if (rest.starts_with("<!--")) {
                at = After(svg_, "-->", at);
            } else if (rest.starts_with("<![CDATA[")) {
                at = After(svg_, "]]>", at);
            } else if (rest.starts_with("<?")) {
                at = After(svg_, "?>", at);
            } else if (rest.starts_with("<!")) {
                at = AfterDeclaration(svg_, at);
            } else if (rest.starts_with("</")) {
                at = After(svg_, ">", at);
            } else {
                const std::size_t end = EndOfTag(svg_, at);
                if (IsOurs(svg_.substr(at + 1, end - at - 1))) {
                    return DataFrom(end);
                }
                at = end;
            }
            at = std::min(svg_.find('<', at), svg_.size());
        }
        return std::nullopt;
    }

private:
    /// Whether a start tag is that of the element. Takes note of the prefixes of the namespace.
    [[nodiscard]] bool IsOurs(std::string_view tag) {
        const std::size_t nameEnd = std::min(tag.find_first_of(" \t\r\n/"), tag.size());
        const std::string_view name = tag.substr(0, nameEnd);
        constexpr std::string_view kPrefix = "xmlns:";
        Attributes attributes(tag.substr(nameEnd));
        while (attributes.Next()) {
            if (attributes.Name().starts_with(kPrefix) && attributes.Value() == kNamespace) {
                prefixes_.insert(attributes.Name().substr(kPrefix.size()));
            }
        }
        const std::size_t colon = name.find(':');
        return colon != std::string_view::npos && name.substr(colon + 1) == kElement
               && prefixes_.contains(name.substr(0, colon)) && !tag.ends_with('/');
    }

    /// The text after the ">" of the start tag, if the end tag follows it.
    [[nodiscard]] std::optional<std::string> DataFrom(std::size_t tagEnd) const {
        std::string data;
        for (std::size_t at = tagEnd + 1; at < svg_.size(); ++at) {
            const char c = svg_[at];
            if (c == '<') {
                return svg_.substr(at).starts_with("</") && !data.empty() ? std::optional(data)
                                                                          : std::nullopt;
            }
            if (IsDigitOfData(c)) {
                data += c;
            } else if (!IsBlank(c)) {
                return std::nullopt;
            }
        }
        return std::nullopt;
    }

    std::string_view svg_;
    std::set<std::string_view> prefixes_; ///< that mean the namespace somewhere before
};

} // namespace

std::string SvgOfData(std::string_view text) {
    std::string element = "<metadata>\n<quandrel:plot xmlns:quandrel=\"";
    element += kNamespace;
    element += "\">\n";
    for (std::size_t at = 0; at < text.size(); at += kLineLength) {
        element += text.substr(at, kLineLength);
        element += '\n';
    }
    return element + "</quandrel:plot>\n</metadata>\n";
}

std::optional<std::string> DataOfSvg(std::string_view svg) {
    return DataScanner(svg).Find();
}

} // namespace quandrel
