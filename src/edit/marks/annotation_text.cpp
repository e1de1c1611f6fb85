// SPDX-License-Identifier: MIT

#include "edit/marks/annotation_text.h"

#include "core/letter_case.h"
#include "core/plot_store.h"
#include "input/parameter_line.h"
#include "input/text_file.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace quandrel {

namespace {

constexpr std::string_view kAnnotationsPart = "Annotations";
constexpr std::string_view kAnnotationsLine = "/Annotations 1";
constexpr std::string_view kLineEnd = "\r\n";

/// Fields of a line before those of its nodes.
constexpr std::size_t kOwnFields = 7;

std::optional<std::int16_t> WholeField(std::string_view text) {
    const std::string_view digits = WithoutBlanks(text);
    std::int16_t value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

/// The fields of a line as numbers, or nothing if one of them is invalid.
std::optional<std::vector<std::int16_t>> FieldsOf(std::string_view line) {
    std::vector<std::int16_t> fields;
    for (std::size_t start = 0; start <= line.size();) {
        const std::size_t end = std::min(line.find('\t', start), line.size());
        const std::optional<std::int16_t> field = WholeField(line.substr(start, end - start));
        if (!field) {
            return std::nullopt;
        }
        fields.push_back(*field);
        start = end + 1;
    }
    return fields;
}

std::optional<Annotation> AnnotationOf(std::string_view line) {
    const std::optional<std::vector<std::int16_t>> fields = FieldsOf(line);
    if (!fields || fields->size() < kOwnFields || (fields->size() - kOwnFields) % 2 != 0) {
        return std::nullopt;
    }
    const std::vector<std::int16_t>& f = *fields;
    Annotation annotation{f[0], f[1], f[2], f[3], f[4], f[5], std::to_string(f[6]), {}};
    for (std::size_t i = kOwnFields; i < f.size(); i += 2) {
        annotation.LineNodes.push_back({f[i], f[i + 1]});
    }
    return annotation;
}

std::string LineOf(const Annotation& annotation) {
    std::string line;
    for (const int field : {annotation.X, annotation.Y, annotation.SymbolType, annotation.Colour,
                            annotation.Size, annotation.lineStyle}) {
        line += std::to_string(field) + '\t';
    }
    // A tag is a number. In a file that was edited elsewhere, it can be any text.
    line += std::to_string(WholeField(annotation.Tag).value_or(0));
    for (const LineNode& node : annotation.LineNodes) {
        line += '\t' + std::to_string(node.X) + '\t' + std::to_string(node.Y);
    }
    return line;
}

} // namespace

bool IsOwnClipboardText(std::string_view text) {
    constexpr std::string_view kStart = kOwnTextStart;
    return EqualWithoutCase(text.substr(0, kStart.size()), kStart);
}

AnnotationTextKind KindOfAnnotationText(std::string_view text) {
    if (!IsOwnClipboardText(text)) {
        return AnnotationTextKind::Foreign;
    }
    const std::size_t slash = text.find('/');
    if (slash == std::string_view::npos) {
        return AnnotationTextKind::NoParts;
    }
    const std::string_view part = text.substr(slash + 1, kAnnotationsPart.size());
    return EqualWithoutCase(part, kAnnotationsPart) ? AnnotationTextKind::Marks
                                                    : AnnotationTextKind::Rows;
}

std::string ClipboardHead() {
    return std::string(";") + gCaption + std::string(kLineEnd);
}

std::string AnnotationText(const Annotations& annotations) {
    std::string text = ClipboardHead();
    text.append(kAnnotationsLine).append(kLineEnd);
    for (const Annotation& annotation : annotations) {
        text.append(LineOf(annotation)).append(kLineEnd);
    }
    return text;
}

ReadAnnotations ReadAnnotationText(std::string_view text) {
    ReadAnnotations result;
    LineReader reader(text.substr(std::min(text.find('/'), text.size())));
    std::string_view line;
    for (bool isFirst = true; reader.Next(line); isFirst = false) {
        if (isFirst || WithoutBlanks(line).empty()) {
            continue;
        }
        if (std::optional<Annotation> annotation = AnnotationOf(line)) {
            result.annotations.push_back(std::move(*annotation));
        } else {
            ++result.badLines;
        }
    }
    return result;
}

} // namespace quandrel
