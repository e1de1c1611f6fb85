// SPDX-License-Identifier: MIT

#include "mapinfo/map_windows.h"

#include "mapinfo/map_link.h"

#include <algorithm>

namespace quandrel {

namespace {

/// A larger number of tables or layers is not plausible.
constexpr std::int64_t kMostTables = 10000;

constexpr std::int64_t kMapWindow = 1;
constexpr std::int64_t kBrowserWindow = 2;

std::string Call(const char* name, std::int64_t number, const char* rest) {
    return std::string(name) + "(" + std::to_string(number) + rest;
}

/// A count from an expression; nothing when the value is not a valid count.
std::optional<std::int64_t> Count(const std::string& expression) {
    const std::optional<std::int64_t> count = MIEvalNumber(expression);
    return count && *count >= 0 && *count <= kMostTables ? count : std::nullopt;
}

void AddOnce(std::vector<std::string>& tables, const std::optional<std::string>& table) {
    if (table && !table->empty()
        && std::find(tables.begin(), tables.end(), *table) == tables.end()) {
        tables.push_back(*table);
    }
}

std::string LinkWindowHandle() {
    const bool hasWindow = gMapInfo != nullptr && gMapInfo->window != nullptr;
    return std::to_string(hasWindow ? gMapInfo->window->Handle() : 0);
}

} // namespace

bool RefreshMITables() {
    gMITables = {""};
    const std::optional<std::int64_t> count = Count("NumTables()");
    for (std::int64_t i = 1; count && i <= *count; ++i) {
        const std::optional<std::string> name = MIEval(Call("TableInfo", i, ",1)"));
        if (!name) {
            gMITables = {""};
            return false;
        }
        gMITables.push_back(*name);
    }
    return count.has_value();
}

MapWindowKind KindOfMIWindow(std::int64_t windowId) {
    const std::optional<std::int64_t> kind = MIEvalNumber(Call("WindowInfo", windowId, ",3)"));
    if (!kind) {
        return MapWindowKind::None;
    }
    return *kind == kMapWindow       ? MapWindowKind::Map
           : *kind == kBrowserWindow ? MapWindowKind::Browser
                                     : MapWindowKind::Other;
}

FrontMapWindow FrontMIWindow() {
    const std::optional<std::int64_t> id = MIEvalNumber("WindowInfo(FrontWindow(),12)");
    if (!id || *id == 0) {
        return {};
    }
    return {*id, KindOfMIWindow(*id)};
}

std::vector<std::string> GetWindowTables(std::int64_t windowId) {
    std::vector<std::string> tables;
    const MapWindowKind kind = KindOfMIWindow(windowId);
    if (kind == MapWindowKind::Browser) {
        AddOnce(tables, MIEval(Call("WindowInfo", windowId, ",10)")));
    }
    if (kind == MapWindowKind::Map) {
        const std::int64_t layers = Count(Call("MapperInfo", windowId, ",9)")).value_or(0);
        for (std::int64_t layer = 1; layer <= layers; ++layer) {
            AddOnce(tables,
                    MIEval(Call("LayerInfo", windowId, ",") + std::to_string(layer) + ",1)"));
        }
    }
    return tables;
}

std::string MICaptionOf(const std::vector<std::string>& tables) {
    if (tables.empty()) {
        return "MapInfo link window";
    }
    std::string caption = "MapInfo Tables: " + tables.front();
    for (std::size_t i = 1; i < tables.size(); ++i) {
        caption += "; " + tables[i];
    }
    return caption;
}

void CheckMICaptions() {
    InMapAction([] {
        const FrontMapWindow front = FrontMIWindow();
        const std::string caption =
            MICaptionOf(front.kind == MapWindowKind::None ? std::vector<std::string>()
                                                          : GetWindowTables(front.id));
        if (IsMapInfoLinked() && gMapInfo->window != nullptr) {
            gMapInfo->window->SetCaption(caption);
        }
    });
}

std::optional<std::int64_t> OpenMIWindow(MapWindowKind kind, const std::string& table) {
    std::optional<std::int64_t> id;
    InMapAction([&] {
        const std::string opening = kind == MapWindowKind::Browser ? "Browse * From " : "Map From ";
        if (MIDo("Set Next Document Parent " + LinkWindowHandle() + " Style 1")
            && MIDo(opening + table)) {
            id = MIEvalNumber("WindowID(0)");
        }
        if (!id) {
            TellInMapAction(kCommandFailed);
        }
        RefreshAfterMapAction();
    });
    return id;
}

void OpenMIInformation() {
    InMapAction([] {
        if (!MIDo("Set Next Window Info Parent " + LinkWindowHandle())
            || !MIDo("Open Window Info")) {
            TellInMapAction(kCommandFailed);
        }
    });
}

bool IncludeSelection() {
    return MIEvalNumber("SelectionInfo(3)").value_or(0) > 0;
}

std::vector<std::string> MITableChoices() {
    if (!RefreshMITables()) {
        return {};
    }
    std::vector<std::string> tables(gMITables.begin() + 1, gMITables.end());
    if (!tables.empty() && IncludeSelection()) {
        tables.emplace_back(kSelectionTable);
    }
    return tables;
}

std::optional<std::string> ChooseMITable() {
    const std::vector<std::string> tables = MITableChoices();
    if (!IsMapInfoLinked() || gMapInfo->window == nullptr) {
        return std::nullopt;
    }
    if (tables.empty()) {
        SetMIStatus("Use 'File_Open' to select a MapInfo Table for linking");
        return std::nullopt;
    }
    if (tables.size() == 1) {
        return tables.front();
    }
    const FrontMapWindow front = FrontMIWindow();
    const std::vector<std::string> shown =
        front.kind == MapWindowKind::None ? std::vector<std::string>() : GetWindowTables(front.id);
    if (!IsMapInfoLinked()) {
        return std::nullopt;
    }
    return gMapInfo->window->AskTable(tables, shown.empty() ? tables.front() : shown.front());
}

} // namespace quandrel
