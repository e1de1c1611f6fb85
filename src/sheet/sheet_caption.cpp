// SPDX-License-Identifier: MIT

#include "sheet/sheet_caption.h"

#include <charconv>
#include <functional>
#include <map>
#include <optional>
#include <string_view>

namespace quandrel {

namespace {

/// A text as it is within a sentence: "poles to bedding", but "P axes".
std::string WithinSentence(std::string text) {
    const auto isCapital = [](char letter) { return letter >= 'A' && letter <= 'Z'; };
    const auto isSmall = [](char letter) { return letter >= 'a' && letter <= 'z'; };
    if (text.size() > 1 && isCapital(text[0]) && isSmall(text[1])) {
        text[0] = static_cast<char>(text[0] - 'A' + 'a');
    }
    return text;
}

std::string Listed(const std::vector<std::string>& items) {
    std::string list;
    for (const std::string& item : items) {
        list += (list.empty() ? "" : "; ") + item;
    }
    return list;
}

/// Fills the fields of a template.
class CaptionWriter {
public:
    CaptionWriter(const FigureSheet& sheet, const std::vector<PanelContent>& contents,
                  const SheetLook& look, Surface& unseen)
        : sheet_(sheet)
        , contents_(contents) {
        for (const PanelContent& content : contents) {
            legends_.push_back(
                content.plot == nullptr
                    ? FigureLegend()
                    : LegendOfFigure(*content.plot,
                                     DrawingOfPanel(*content.plot, look, unseen, unseen)));
        }
    }

    [[nodiscard]] Result<std::string> Filled(std::string_view text) const;

private:
    using Field = std::string (CaptionWriter::*)(std::size_t) const;

    static const std::map<std::string, Field, std::less<>>& Fields();

    [[nodiscard]] Result<std::string> ValueOf(std::string_view field) const;
    [[nodiscard]] std::string Panels() const;
    [[nodiscard]] std::string Sentence(std::size_t panel) const;

    [[nodiscard]] std::string Net(std::size_t panel) const;
    [[nodiscard]] std::string Rows(std::size_t panel) const;
    [[nodiscard]] std::string Density(std::size_t panel) const;
    [[nodiscard]] std::string Shown(std::size_t panel) const;

    [[nodiscard]] std::string Name(std::size_t panel) const { return contents_[panel].name; }

    [[nodiscard]] std::string Title(std::size_t panel) const { return sheet_.panels[panel].title; }

    [[nodiscard]] std::string Letter(std::size_t panel) const { return LetterOf(sheet_, panel); }

    [[nodiscard]] std::string Count(std::size_t panel) const {
        const auto& plot = contents_[panel].plot;
        return plot == nullptr ? std::string() : std::to_string(plot->record.NumValidData);
    }

    /// The panel of fields without a number.
    [[nodiscard]] std::size_t FirstPlot() const {
        for (std::size_t i = 0; i < contents_.size(); ++i) {
            if (contents_[i].plot != nullptr) {
                return i;
            }
        }
        return 0;
    }

    const FigureSheet& sheet_;
    const std::vector<PanelContent>& contents_;
    std::vector<FigureLegend> legends_; ///< of the panels
};

const std::map<std::string, CaptionWriter::Field, std::less<>>& CaptionWriter::Fields() {
    static const std::map<std::string, Field, std::less<>> fields = {
        {"net", &CaptionWriter::Net},         {"name", &CaptionWriter::Name},
        {"n", &CaptionWriter::Count},         {"rows", &CaptionWriter::Rows},
        {"density", &CaptionWriter::Density}, {"shown", &CaptionWriter::Shown},
        {"title", &CaptionWriter::Title},     {"letter", &CaptionWriter::Letter},
    };
    return fields;
}

std::string CaptionWriter::Net(std::size_t panel) const {
    switch (sheet_.panels[panel].kind) {
    case PanelKind::Fabric:
        return "Fabric diagram of the logarithms of the ratios of eigenvalues";
    case PanelKind::Statistics:
        return "Statistics";
    case PanelKind::Text:
        return {};
    case PanelKind::Plot:
        break;
    }
    switch (contents_[panel].plot->record.PlotKind) {
    case kRose:
        return "Rose diagram";
    case kEqualAngle:
        return "Lower-hemisphere equal-angle net";
    default:
        return "Lower-hemisphere equal-area net";
    }
}

std::string CaptionWriter::Rows(std::size_t panel) const {
    std::vector<std::string> rows;
    for (const FigureEntry& entry : legends_[panel].entries) {
        if (entry.sign == FigureSign::Rows || entry.text.find(", n = ") != std::string::npos) {
            rows.push_back(WithinSentence(entry.text));
        }
    }
    return Listed(rows);
}

std::string CaptionWriter::Density(std::size_t panel) const {
    std::vector<std::string> titles;
    for (const FigureBar& bar : legends_[panel].bars) {
        titles.push_back(bar.title);
    }
    return Listed(titles);
}

std::string CaptionWriter::Shown(std::size_t panel) const {
    std::vector<std::string> items;
    for (const FigureEntry& entry : legends_[panel].entries) {
        items.push_back(WithinSentence(entry.text));
    }
    if (const std::string density = Density(panel); !density.empty()) {
        items.push_back("contours in " + density);
    }
    return Listed(items);
}

std::string CaptionWriter::Sentence(std::size_t panel) const {
    std::string sentence = Letter(panel);
    const auto add = [&sentence](const std::string& words) {
        sentence += (sentence.empty() || words.empty() ? "" : " ") + words;
    };
    if (sheet_.panels[panel].kind == PanelKind::Text) {
        add(Title(panel));
    } else {
        const std::string title = Title(panel);
        add(title.empty() ? std::string() : title + ":");
        add((title.empty() ? Net(panel) : WithinSentence(Net(panel))) + " of " + Name(panel));
        const std::string shown =
            sheet_.panels[panel].kind == PanelKind::Plot ? Shown(panel) : std::string();
        sentence += shown.empty() ? ", n = " + Count(panel) : ": " + shown;
    }
    return sentence == Letter(panel) ? std::string() : sentence + ".";
}

std::string CaptionWriter::Panels() const {
    std::string all;
    for (std::size_t i = 0; i < contents_.size(); ++i) {
        const std::string sentence = Sentence(i);
        all += (all.empty() || sentence.empty() ? "" : " ") + sentence;
    }
    return all;
}

Result<std::string> CaptionWriter::ValueOf(std::string_view field) const {
    const auto unknown = [field] {
        return Failure{"'{" + std::string(field) + "}' is not a field of a caption"};
    };
    if (field == "panels") {
        return Panels();
    }
    std::size_t panel = FirstPlot();
    const std::size_t colon = field.find(':');
    if (colon != std::string_view::npos) {
        const char* const end = field.data() + field.size();
        const auto read = std::from_chars(field.data() + colon + 1, end, panel);
        if (read.ec != std::errc() || read.ptr != end || panel == 0) {
            return unknown();
        }
        --panel;
    }
    const auto found = Fields().find(field.substr(0, colon));
    if (found == Fields().end() || panel >= contents_.size()) {
        return unknown();
    }
    return (this->*found->second)(panel);
}

Result<std::string> CaptionWriter::Filled(std::string_view text) const {
    std::string filled;
    while (!text.empty()) {
        const std::size_t brace = text.find('{');
        filled += text.substr(0, brace);
        if (brace == std::string_view::npos) {
            break;
        }
        text.remove_prefix(brace + 1);
        if (text.starts_with('{')) {
            filled += '{';
            text.remove_prefix(1);
            continue;
        }
        const std::size_t end = text.find('}');
        if (end == std::string_view::npos) {
            return Failure{"a field of the caption has no '}'"};
        }
        const Result<std::string> value = ValueOf(text.substr(0, end));
        if (!value) {
            return value;
        }
        filled += *value;
        text.remove_prefix(end + 1);
    }
    return filled;
}

} // namespace

Result<std::string> CaptionOf(const FigureSheet& sheet, const std::vector<PanelContent>& contents,
                              const SheetLook& look, Surface& unseen) {
    return CaptionWriter(sheet, contents, look, unseen).Filled(sheet.caption);
}

} // namespace quandrel
