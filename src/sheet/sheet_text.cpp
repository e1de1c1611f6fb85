// SPDX-License-Identifier: MIT

#include "sheet/sheet_text.h"

#include "core/atomic_file.h"
#include "core/path_names.h"
#include "input/text_file.h"

#include <nlohmann/json.hpp>

#include <array>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <set>
#include <utility>

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;

constexpr int kIndent = 2;
constexpr int kVersion = 1;
constexpr const char* kVersionKey = "quandrelFigure";

template <class Value, std::size_t kCount>
using Words = std::array<std::pair<const char*, Value>, kCount>;

constexpr Words<PanelKind, 4> kKinds = {{{"plot", PanelKind::Plot},
                                         {"fabric", PanelKind::Fabric},
                                         {"statistics", PanelKind::Statistics},
                                         {"text", PanelKind::Text}}};
constexpr Words<SheetLetters, 4> kLetters = {{{"a", SheetLetters::Small},
                                              {"A", SheetLetters::Capital},
                                              {"(a)", SheetLetters::Brackets},
                                              {"none", SheetLetters::None}}};
constexpr Words<LegendPlace, 3> kPlaces = {
    {{"right", LegendPlace::Right}, {"below", LegendPlace::Below}, {"none", LegendPlace::None}}};

template <class Value, std::size_t kCount>
const char* WordOf(const Words<Value, kCount>& words, Value value) {
    for (const auto& [word, of] : words) {
        if (of == value) {
            return word;
        }
    }
    return "";
}

/// Takes the members of an object, and remembers the first that is wrong.
class ObjectReader {
public:
    explicit ObjectReader(const Json& json)
        : json_(json) {}

    void Take(const char* name, double& value) {
        if (const Json* const found = Find(name)) {
            found->is_number() ? void(value = found->get<double>()) : Refuse(name);
        }
    }

    void Take(const char* name, int& value) {
        const Json* const found = Find(name);
        if (found == nullptr) {
            return;
        }
        const std::int64_t number = found->is_number_integer() ? found->get<std::int64_t>() : -1;
        // All whole numbers of a sheet are at least 1.
        if (number < 1 || number > std::numeric_limits<int>::max()) {
            Refuse(name);
        } else {
            value = static_cast<int>(number);
        }
    }

    void Take(const char* name, std::string& value) {
        if (const Json* const found = Find(name)) {
            found->is_string() ? void(value = found->get<std::string>()) : Refuse(name);
        }
    }

    template <class Value, std::size_t kCount>
    void Take(const char* name, const Words<Value, kCount>& words, Value& value) {
        std::string text = WordOf(words, value);
        Take(name, text);
        for (const auto& [word, of] : words) {
            if (text == word) {
                value = of;
                return;
            }
        }
        Refuse(name);
    }

    /// A member that the caller reads; null when there is none.
    [[nodiscard]] const Json* Find(const char* name) {
        known_.insert(name);
        const auto found = json_.find(name);
        return found == json_.end() ? nullptr : &*found;
    }

    void Refuse(const std::string& name) { wrong_ = wrong_.empty() ? name : wrong_; }

    /// The name of a member that is wrong or unknown; empty when all are right.
    [[nodiscard]] std::string Wrong() const {
        if (wrong_.empty()) {
            for (const auto& [key, value] : json_.items()) {
                if (!known_.contains(key)) {
                    return key;
                }
            }
        }
        return wrong_;
    }

private:
    const Json& json_;
    std::set<std::string> known_;
    std::string wrong_;
};

/// A path from the folder of the sheet on, if it is below it.
std::string PathFrom(const std::string& folder, const std::string& path) {
    const fs::path relative = fs::path(path).lexically_relative(folder);
    const bool isBelow = !relative.empty() && *relative.begin() != "..";
    return isBelow ? relative.generic_string() : path;
}

std::string PathIn(const std::string& folder, const std::string& path) {
    // A name of bytes that no path can have is refused when the file is opened.
    return path.empty() || path.find('\0') != std::string::npos
               ? path
               : (fs::path(folder) / path).lexically_normal().string();
}

bool IsStandardStyle(const std::string& style) {
    return StandardStyle(style) != nullptr;
}

Json JsonOf(const SheetPanel& panel, const std::string& folder) {
    Json json = {{"kind", WordOf(kKinds, panel.kind)}};
    const auto add = [&json](const char* name, const std::string& value) {
        if (!value.empty()) {
            json[name] = value;
        }
    };
    add("file", panel.file.empty() ? panel.file : PathFrom(folder, panel.file));
    add("name", panel.name);
    add("title", panel.title);
    add("text", panel.text);
    json["columns"] = panel.columns;
    json["rows"] = panel.rows;
    add("data", panel.data);
    return json;
}

/// Reads a panel; the name of a member that is wrong, else empty.
std::string TakePanel(const Json& json, const std::string& folder, SheetPanel& panel) {
    if (!json.is_object()) {
        return "it";
    }
    ObjectReader reader(json);
    reader.Take("kind", kKinds, panel.kind);
    reader.Take("file", panel.file);
    reader.Take("name", panel.name);
    reader.Take("title", panel.title);
    reader.Take("text", panel.text);
    reader.Take("columns", panel.columns);
    reader.Take("rows", panel.rows);
    reader.Take("data", panel.data);
    panel.file = PathIn(folder, panel.file);
    return reader.Wrong();
}

/// Reads the panels of a list; the name of the first that is wrong, else empty.
std::string TakePanels(const Json& list, const std::string& folder, FigureSheet& sheet) {
    if (!list.is_array() || list.size() > kMostPanels) {
        return "panels";
    }
    for (const Json& json : list) {
        const std::string wrong = TakePanel(json, folder, sheet.panels.emplace_back());
        if (!wrong.empty()) {
            return wrong + " of panel " + std::to_string(sheet.panels.size());
        }
    }
    return {};
}

std::string TakeSheet(const Json& json, const std::string& folder, FigureSheet& sheet) {
    ObjectReader reader(json);
    int version = 0;
    reader.Take(kVersionKey, version);
    if (version != kVersion) {
        reader.Refuse(kVersionKey);
    }
    reader.Take("width", sheet.width);
    reader.Take("height", sheet.height);
    reader.Take("columns", sheet.columns);
    reader.Take("gapAcross", sheet.gapAcross);
    reader.Take("gapDown", sheet.gapDown);
    reader.Take("letters", kLetters, sheet.letters);
    reader.Take("legend", kPlaces, sheet.legend);
    reader.Take("style", sheet.style);
    reader.Take("caption", sheet.caption);
    if (!IsStandardStyle(sheet.style)) {
        sheet.style = PathIn(folder, sheet.style);
    }
    if (const Json* const panels = reader.Find("panels")) {
        if (const std::string wrong = TakePanels(*panels, folder, sheet); !wrong.empty()) {
            reader.Refuse(wrong);
        }
    }
    return reader.Wrong();
}

std::string FolderOf(const std::string& path) {
    return fs::path(NormalPath(path)).parent_path().string();
}

} // namespace

std::string TextOfSheet(const FigureSheet& sheet, const std::string& folder) {
    Json json = {
        {kVersionKey, kVersion},
        {"width", sheet.width},
        {"height", sheet.height},
        {"columns", sheet.columns},
        {"gapAcross", sheet.gapAcross},
        {"gapDown", sheet.gapDown},
        {"letters", WordOf(kLetters, sheet.letters)},
        {"legend", WordOf(kPlaces, sheet.legend)},
        {"style", IsStandardStyle(sheet.style) ? sheet.style : PathFrom(folder, sheet.style)},
        {"caption", sheet.caption},
        {"panels", Json::array()}};
    for (const SheetPanel& panel : sheet.panels) {
        json["panels"].push_back(JsonOf(panel, folder));
    }
    return json.dump(kIndent, ' ', false, Json::error_handler_t::replace) + "\n";
}

Result<FigureSheet> SheetOfText(std::string_view text, const std::string& folder) {
    if (text.size() > kLongestSheetFile) {
        return Failure{"The figure cannot be read: it is too long."};
    }
    const Json json = Json::parse(text, nullptr, false);
    if (!json.is_object()) {
        return Failure{"The figure cannot be read: it is not a JSON object."};
    }
    FigureSheet sheet;
    if (const std::string wrong = TakeSheet(json, folder, sheet); !wrong.empty()) {
        return Failure{"The figure cannot be read: " + wrong + " is wrong."};
    }
    if (const std::string fault = FaultOf(sheet); !fault.empty()) {
        return Failure{"The figure cannot be read: " + fault + "."};
    }
    return sheet;
}

Result<FigureSheet> ReadSheetFile(const std::string& path) {
    const Result<std::string> text = FirstBytes(path, kLongestSheetFile + 1);
    return text ? SheetOfText(*text, FolderOf(path)) : Failure{text.Error()};
}

Result<FigureSheet> SheetOfPicture(std::string_view text) {
    Result<FigureSheet> sheet = SheetOfText(text, "/");
    const auto namesFile = [](const SheetPanel& panel) { return !panel.file.empty(); };
    if (sheet && std::ranges::any_of(sheet->panels, namesFile)) {
        return Failure{"The figure in the picture cannot be read: it names files."};
    }
    return sheet;
}

std::string WriteSheetFile(const std::string& path, const FigureSheet& sheet) {
    return WriteFileAtomically(path, TextOfSheet(sheet, FolderOf(path)));
}

} // namespace quandrel
