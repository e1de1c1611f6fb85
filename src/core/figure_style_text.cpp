// SPDX-License-Identifier: MIT

#include "core/figure_style_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <optional>
#include <type_traits>

namespace quandrel {

namespace {

using Json = nlohmann::ordered_json;

constexpr int kIndent = 2;
constexpr std::size_t kDigitsOfColour = 6;

Json JsonOf(Colour colour) {
    return "#" + HexOf(colour);
}

template <class T>
Json JsonOf(const T& value) {
    return value;
}

Json JsonOf(const std::vector<Colour>& colours) {
    Json list = Json::array();
    for (const Colour& colour : colours) {
        list.push_back(JsonOf(colour));
    }
    return list;
}

bool Take(const Json& json, double& value) {
    if (!json.is_number()) {
        return false;
    }
    value = json.get<double>();
    return true;
}

bool Take(const Json& json, std::int32_t& value) {
    if (!json.is_number_integer()) {
        return false;
    }
    const auto number = json.get<std::int64_t>();
    value = static_cast<std::int32_t>(number);
    return value == number;
}

bool Take(const Json& json, bool& value) {
    if (!json.is_boolean()) {
        return false;
    }
    value = json.get<bool>();
    return true;
}

bool Take(const Json& json, std::string& value) {
    if (!json.is_string()) {
        return false;
    }
    value = json.get<std::string>();
    return true;
}

bool Take(const Json& json, Colour& value) {
    std::string text;
    if (!Take(json, text) || text.size() != kDigitsOfColour + 1 || text.front() != '#') {
        return false;
    }
    std::uint32_t number = 0;
    const auto [end, error] =
        std::from_chars(text.data() + 1, text.data() + text.size(), number, 16);
    if (error != std::errc() || end != text.data() + text.size()) {
        return false;
    }
    const auto byte = [number](unsigned shift) {
        return static_cast<std::uint8_t>(number >> shift & 0xffU);
    };
    value = {byte(16), byte(8), byte(0)};
    return true;
}

template <class T>
bool Take(const Json& json, std::vector<T>& values) {
    if (!json.is_array()) {
        return false;
    }
    values.assign(json.size(), T());
    return std::equal(json.begin(), json.end(), values.begin(),
                      [](const Json& item, T& value) { return Take(item, value); });
}

/// Gives a part the properties of an object; the name of one that is wrong, else empty.
template <class Part>
std::string TakePart(const Json& json, Part& part) {
    if (!json.is_object()) {
        return "it";
    }
    std::size_t taken = 0;
    std::string wrong;
    const auto take = [&](const char* name, auto& field) {
        const auto found = json.find(name);
        if (found == json.end()) {
            return;
        }
        ++taken;
        if (!Take(*found, field) && wrong.empty()) {
            wrong = name;
        }
    };
    VisitFieldsOf(part, take);
    if (wrong.empty() && taken < json.size()) {
        const auto isKnown = [&part](const std::string& key) {
            bool known = false;
            const auto look = [&](const char* name, auto& /*field*/) {
                known = known || key == name;
            };
            VisitFieldsOf(part, look);
            return known;
        };
        for (const auto& [key, value] : json.items()) {
            if (!isKnown(key)) {
                return key;
            }
        }
    }
    return wrong;
}

/// The style that fills what a text does not say.
const FigureStyle* BasisOf(const Json& json) {
    const auto basis = json.find("basis");
    if (basis == json.end()) {
        return StandardStyle(kJournalStyle);
    }
    return basis->is_string() ? StandardStyle(basis->get<std::string>()) : nullptr;
}

Failure Wrong(const std::string& what) {
    return {"The style cannot be read: " + what + " is wrong."};
}

/// Gives a style the parts of an object.
std::string TakeParts(const Json& json, FigureStyle& style) {
    std::string wrong;
    std::size_t known = json.contains("basis") ? 1 : 0;
    if (const auto name = json.find("name"); name != json.end()) {
        ++known;
        if (!Take(*name, style.name)) {
            return "name";
        }
    }
    const auto take = [&](const char* name, auto& part) {
        const auto found = json.find(name);
        if (found == json.end() || !wrong.empty()) {
            return;
        }
        ++known;
        if (const std::string field = TakePart(*found, part); !field.empty()) {
            wrong = std::string(name) + "." + field;
        }
    };
    VisitFieldsOf(style, take);
    return wrong.empty() && known < json.size() ? "a part of another name" : wrong;
}

} // namespace

std::string TextOfStyle(const FigureStyle& style) {
    Json json = {{"name", style.name}};
    const auto addPart = [&json](const char* partName, const auto& part) {
        Json& object = json[partName] = Json::object();
        const auto add = [&object](const char* name, const auto& field) {
            object[name] = JsonOf(field);
        };
        VisitFieldsOf(part, add);
    };
    VisitFieldsOf(style, addPart);
    return json.dump(kIndent, ' ', false, Json::error_handler_t::replace) + "\n";
}

Result<FigureStyle> StyleOfText(std::string_view text) {
    if (text.size() > kLongestStyleText) {
        return Failure{"The style cannot be read: it is too long."};
    }
    const Json json = Json::parse(text, nullptr, false);
    if (!json.is_object()) {
        return Failure{"The style cannot be read: it is not a JSON object."};
    }
    const FigureStyle* const basis = BasisOf(json);
    if (basis == nullptr) {
        return Wrong("basis");
    }
    FigureStyle style = *basis;
    if (const std::string wrong = TakeParts(json, style); !wrong.empty()) {
        return Wrong(wrong);
    }
    if (!IsValid(style)) {
        return Failure{"The style cannot be read: a value is beyond its limits."};
    }
    return style;
}

} // namespace quandrel
