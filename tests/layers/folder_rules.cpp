// SPDX-License-Identifier: MIT

#include "layers/folder_rules.h"

#include <initializer_list>

namespace quandrel {

namespace {

/// Folders, and more of them.
Folders Above(Folders folders, std::initializer_list<const char*> more) {
    for (const char* folder : more) {
        folders.insert(folder);
    }
    return folders;
}

/// Each folder without Qt with the folders that it may include from.
const std::map<std::string, Folders>& EngineIncludes() {
    static const Folders ground = {"platform", "orientation"};
    static const Folders onCore = Above(ground, {"core"});
    static const Folders onStereo = Above(onCore, {"stereo"});
    static const Folders onInput = Above(onStereo, {"input"});
    static const Folders onDensity = Above(onStereo, {"density"});
    static const Folders onSubjects =
        Above(onInput, {"derive", "statistics", "density", "classify", "rose"});
    static const Folders onAll = Above(onSubjects, {"rotation"});
    static const Folders onMarks = Above(onAll, {"edit/selection", "edit/history", "edit/marks"});
    static const Folders onRows = Above(onMarks, {"edit/rows"});
    static const Folders onEdits = Above(onRows, {"edit/grids", "edit/commands"});
    static const Folders onDrawing = Above(onEdits, {"drawing", "platform/scripted"});
    static const Folders onSession =
        Above(onDrawing, {"mapinfo", "persistence", "print", "session", "summary", "svg"});
    static const std::map<std::string, Folders> allowed = {
        {"platform", {}},
        {"platform/scripted", {"platform"}},
        {"svg", {"platform"}},
        {"orientation", {}},
        {"mapsession", {"platform"}},
        {"mapsession/gdal", {"mapsession", "platform"}},
        {"mapsession/windows", {"platform"}},
        {"core", ground},
        {"stereo", onCore},
        {"input", onStereo},
        {"input/suggest", onInput},
        {"rotation", onInput},
        {"pdf", onCore},
        {"persistence", Above(onInput, {"svg", "statistics", "summary"})},
        {"derive", onInput},
        {"statistics", onStereo},
        {"summary", Above(onInput, {"statistics"})},
        {"density", onStereo},
        {"classify", onDensity},
        {"rose", Above(onDensity, {"classify"})},
        {"edit/selection", onSubjects},
        {"edit/history", Above(onAll, {"edit/selection"})},
        {"edit/marks", Above(onAll, {"edit/selection", "edit/history"})},
        {"edit/rows", onMarks},
        {"edit/grids", onRows},
        {"edit/commands", onRows},
        {"mapinfo", onEdits},
        {"drawing", onMarks},
        {"fabric", Above(onMarks, {"drawing"})},
        {"hypotheses", Above(onMarks, {"drawing"})},
        {"sheet", Above(onMarks, {"drawing", "fabric", "persistence", "summary", "svg"})},
        {"print", onDrawing},
        {"panels", Above(onEdits, {"drawing"})},
        {"session",
         Above(onDrawing, {"mapinfo", "mapsession", "persistence", "print", "summary", "svg"})},
        {"recovery", onSession},
        {"preferences", onSession},
        {"help", onCore},
        // The public headers, below include/.
        {"quandrel", {}},
        {"border", Above(onMarks, {"quandrel", "persistence", "summary", "drawing", "svg",
                                   "hypotheses", "input/suggest"})},
    };
    return allowed;
}

/// The same of the rooms of the windows, from the ground up, besides the engine and qt.
const std::map<std::string, Folders>& RoomIncludes() {
    static const Folders onControls = {"shell/controls"};
    static const Folders onStyles = Above(onControls, {"shell/styles"});
    static const Folders onFormat = Above(onStyles, {"shell/format", "shell/files"});
    static const Folders onClasses = Above(onStyles, {"shell/classes"});
    static const Folders onDialogs = Above(onFormat, {"shell/dialogs"});
    static const Folders onPlot = Above(onDialogs, {"shell/classes", "shell/rose", "shell/plot"});
    static const Folders onAll =
        Above(onPlot, {"shell/grids", "shell/help", "shell/map", "shell/panels",
                       "shell/preferences", "shell/print"});
    static const std::map<std::string, Folders> allowed = {
        {"shell/controls", {}},
        {"shell/styles", onControls},
        {"shell/classes", onStyles},
        {"shell/rose", onClasses},
        {"shell/grids", onControls},
        {"shell/files", onControls},
        {"shell/print", onControls},
        {"shell/help", onControls},
        {"shell/map", Above(onControls, {"mapsession", "mapsession/windows"})},
        {"shell/panels", onStyles},
        {"shell/format", onStyles},
        {"shell/dialogs", onFormat},
        {"shell/preferences", onDialogs},
        {"shell/plot", Above(onDialogs, {"shell/classes", "shell/rose"})},
        {"shell/main", onAll},
        {"shell", Above(onAll, {"shell/main"})}, // the program's start
    };
    return allowed;
}

} // namespace

const std::map<std::string, Folders>& AllowedIncludes() {
    static const std::map<std::string, Folders> allowed = [] {
        std::map<std::string, Folders> all = EngineIncludes();
        Folders engine;
        for (const auto& [folder, includes] : all) {
            if (!folder.starts_with("mapsession") && folder != "border" && folder != "quandrel") {
                engine.insert(folder);
            }
        }
        all["qt"] = engine;
        engine.insert("qt");
        all["batch"] = engine;
        for (const auto& [room, includes] : RoomIncludes()) {
            all[room] = engine;
            all[room].insert(includes.begin(), includes.end());
        }
        return all;
    }();
    return allowed;
}

} // namespace quandrel
