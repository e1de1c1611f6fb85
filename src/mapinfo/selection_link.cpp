// SPDX-License-Identifier: MIT

#include "mapinfo/selection_link.h"

#include "core/letter_case.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "edit/selection/marquee.h"
#include "mapinfo/geo_link.h"
#include "mapinfo/map_commands.h"
#include "mapinfo/map_link.h"
#include "mapinfo/map_windows.h"
#include "mapinfo/select_statements.h"
#include "orientation/number_text.h"
#include "platform/platform.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

namespace quandrel {

namespace {

constexpr const char* kSelectionFailed =
    "There has been a problem linking this selection - attempt abandoned";

constexpr std::string_view kMessageHead = "MI:";

/// Fields of a message.
enum MessageField : std::size_t {
    kFieldX = 0,
    kFieldY = 1,
    kFieldX2 = 4,
    kFieldY2 = 5,
    kFieldTool = 6
};

/// Never the number of a table row.
constexpr std::int32_t kNoMapRow = 0;

/// Origin of the selection that is linked.
enum class Origin {
    Search,  ///< a search by the program: the session has to be updated
    Session, ///< the session's own selection
    Quiet,   ///< the same, in passing: no message when no plot shows it
};

std::vector<std::string_view> FieldsOf(std::string_view text) {
    std::vector<std::string_view> fields;
    for (;;) {
        const std::size_t comma = text.find(',');
        fields.push_back(text.substr(0, comma));
        if (comma == std::string_view::npos) {
            return fields;
        }
        text.remove_prefix(comma + 1);
    }
}

/// A coordinate in statements: the shortest digits that read back as the value.
std::string CoordinateText(double value) {
    std::array<char, 64> digits{};
    const bool isPlain = value == 0 || (std::abs(value) >= 1e-9 && std::abs(value) < 1e15);
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   isPlain ? std::chars_format::fixed : std::chars_format::general);
    return {digits.data(), end.ptr};
}

void TellFailure() {
    TellInMapAction(kSelectionFailed);
}

/// A row number from an expression.
std::optional<std::int32_t> EvalRow(const std::string& expression) {
    const std::optional<std::int64_t> row = MIEvalNumber(expression);
    if (!row || *row < 1 || *row > std::numeric_limits<std::int32_t>::max()) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(*row);
}

void AddRow(std::vector<MapRows>& found, const std::string& table, std::int32_t row) {
    const auto held = std::find_if(found.begin(), found.end(), [&table](const MapRows& rows) {
        return EqualWithoutCase(rows.table, table);
    });
    if (held == found.end()) {
        found.push_back({table, {row}});
    } else {
        held->rows.push_back(row);
    }
}

/// The objects of the last search; nothing when the session's answers make no sense.
std::optional<std::vector<MapRows>> FoundObjects(std::int64_t count) {
    std::vector<MapRows> found;
    for (std::int64_t i = 1; i <= std::min<std::int64_t>(count, gPlatform.mostRows); ++i) {
        const std::string call = "SearchInfo(" + std::to_string(i);
        const std::optional<std::string> table = MIEval(call + ",1)");
        const std::optional<std::int32_t> row = table ? EvalRow(call + ",2)") : std::nullopt;
        if (!row) {
            return std::nullopt;
        }
        AddRow(found, *table, *row);
    }
    return found;
}

/// The rows of the session's own selection; as FoundObjects.
std::optional<std::vector<MapRows>> SelectedObjects() {
    const std::optional<std::int64_t> count = MIEvalNumber("SelectionInfo(3)");
    if (!count || *count < 0) {
        return std::nullopt;
    }
    if (*count == 0) {
        return std::vector<MapRows>();
    }
    const std::optional<std::string> table = MIEval("SelectionInfo(1)");
    if (!table || table->empty()) {
        return std::nullopt;
    }
    MapRows found{*table, {}};
    for (std::int64_t i = 1; i <= std::min<std::int64_t>(*count, gPlatform.mostRows); ++i) {
        if (!MIDo("Fetch Rec " + std::to_string(i) + " From Selection")) {
            return std::nullopt;
        }
        const std::optional<std::int32_t> row = EvalRow("Selection.RowID");
        if (!row) {
            return std::nullopt;
        }
        found.rows.push_back(*row);
    }
    return std::vector<MapRows>{found};
}

void SearchMap(const char* search, std::span<const double> corners) {
    if (gBusy) {
        return;
    }
    InMapAction([&] {
        const FrontMapWindow front = FrontMIWindow();
        if (front.kind != MapWindowKind::Map) {
            return;
        }
        std::string expression = search + ("(" + std::to_string(front.id));
        for (const double corner : corners) {
            expression += "," + CoordinateText(corner);
        }
        const std::optional<std::int64_t> count = MIEvalNumber(expression + ")");
        if (count && *count < 1) {
            return;
        }
        const auto found = count ? FoundObjects(*count) : std::nullopt;
        if (found) {
            LinkMapSelectionToPlot(*found);
        } else {
            TellFailure();
        }
    });
}

/// Sends the statements of a selection. False when one was refused.
[[nodiscard]] bool SendSelects(const std::string& table, std::span<const std::int32_t> rows) {
    constexpr std::array kNone = {kNoMapRow};
    const SelectStatements statements =
        BuildSelects(table, rows.empty() ? std::span<const std::int32_t>(kNone) : rows);
    gMIRowList = statements.texts;
    if (!IsMapInfoLinked()) {
        return false;
    }
    MapSession& session = *gMapInfo->MILink;
    session.BeginSelects();
    const bool isSent = std::all_of(statements.texts.begin(), statements.texts.end(),
                                    [](const std::string& statement) { return MIDo(statement); });
    session.EndSelects();
    if (!isSent) {
        return false;
    }
    MapLinkState::now.sent = {table, {rows.begin(), rows.end()}};
    if (statements.texts.size() > 1 && !session.UnitesSelects()) {
        SetMIStatus("Only the last " + std::to_string(statements.rowsInLast) + " of "
                    + std::to_string(rows.size()) + " rows are selected in MapInfo");
    }
    return true;
}

/// A plot and the linked table in which something was found.
struct LinkedPlace {
    int slot = 0;
    const MapRows* rows = nullptr;
};

/// The plot that shows some of the found rows: the active one, or the first of the others.
LinkedPlace PlaceOf(const std::vector<MapRows>& found) {
    LinkedPlace place;
    for (const MapRows& rows : found) {
        const MIGeoLink* ofActive = gMIGeoLinks.Item(gActivePlot);
        if (ofActive != nullptr && EqualWithoutCase(ofActive->MITableName, rows.table)) {
            return {gActivePlot, &rows};
        }
        const int slot = gMIGeoLinks.SlotOfTable(rows.table);
        if (slot > 0 && (place.slot == 0 || slot < place.slot)) {
            place = {slot, &rows};
        }
    }
    return place;
}

/// The reason why nothing can be linked; empty when something can.
std::string Obstacle(bool hasPlace) {
    if (!IsOpenSlot(gActivePlot)) {
        return "You do not yet have any plots to link with.";
    }
    if (gMIGeoLinks.Count() == 0) {
        return "The current Quandrel plot does not yet contain any linked MapInfo tables.\n"
               "Either reselect a plot that does contain linked Tables or add a new linked plot";
    }
    return hasPlace ? ""
                    : "None of the currently opened Quandrel plots contain the selected MapInfo "
                      "Table.";
}

/// Selects the plot rows of a place. Returns the table rows that have a plot row.
std::vector<std::int32_t> MarkRows(const LinkedPlace& place) {
    std::vector<std::int32_t> geoRows;
    std::vector<std::int32_t> miRows;
    const MIGeoLink& link = *gMIGeoLinks.Item(place.slot);
    for (const std::int32_t miRow : place.rows->rows) {
        std::int32_t geoRow = 0;
        if (link.GetGeoRow(miRow, geoRow)) {
            geoRows.push_back(geoRow);
            miRows.push_back(miRow);
        }
    }
    std::sort(miRows.begin(), miRows.end());
    miRows.erase(std::unique(miRows.begin(), miRows.end()), miRows.end());
    gActivePlot = place.slot;
    SelectRows(place.slot, std::move(geoRows));
    return miRows;
}

void LinkRows(const std::vector<MapRows>& found, Origin origin) {
    const LinkedPlace place = PlaceOf(found);
    if (const std::string obstacle = Obstacle(place.slot > 0); !obstacle.empty()) {
        if (origin == Origin::Quiet) {
            SetMIStatus(obstacle.substr(0, obstacle.find('\n')));
        } else {
            TellInMapAction(obstacle);
        }
        return;
    }
    const std::vector<std::int32_t> miRows = MarkRows(place);
    const std::string table = gMIGeoLinks.Item(place.slot)->MITableName;
    if (origin != Origin::Search) {
        MapLinkState::now.sent = {table, miRows};
    } else if (!SendSelects(table, miRows)) {
        TellFailure();
    }
    ReplotActivePlot(false);
}

/// Selects in the plot what the session has selected.
void LinkSessionSelection(Origin origin) {
    if (gBusy) {
        return;
    }
    InMapAction([origin] {
        const auto found = SelectedObjects();
        if (!found) {
            TellFailure();
        } else if (!found->empty()) {
            LinkRows(*found, origin);
        } else if (gMIGeoLinks.Item(Selection::now.slot) != nullptr) {
            MapLinkState::now.sent = {};
            ClearSelection();
        }
    });
}

/// The table rows of the selection in a linked plot.
std::vector<std::int32_t> SelectedTableRows(const MIGeoLink& link) {
    std::vector<std::int32_t> rows;
    for (const std::int32_t geoRow : gSelectionRows) {
        std::int32_t miRow = 0;
        if (link.GetMIRow(geoRow, miRow)) {
            rows.push_back(miRow);
        }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

/// The selection that the session should have, by the selection in the plots: nothing when it does
/// not concern the session's tables.
std::optional<MapRows> WantedSelection() {
    const MIGeoLink* link = gMIGeoLinks.Item(Selection::now.slot);
    if (link != nullptr) {
        return MapRows{link->MITableName, SelectedTableRows(*link)};
    }
    // The rows selected before are deselected.
    return MapLinkState::now.sent.rows.empty()
               ? std::nullopt
               : std::optional(MapRows{MapLinkState::now.sent.table, {}});
}

/// Sends a selection of the plots. Consecutive failures are reported once.
void SendWanted(const MapRows& wanted) {
    if (gBusy) {
        return;
    }
    InMapAction([&wanted] {
        if (SendSelects(wanted.table, wanted.rows)) {
            MapLinkState::now.failureIsTold = false;
        } else if (!std::exchange(MapLinkState::now.failureIsTold, true) || !IsMapInfoLinked()) {
            TellFailure();
        }
    });
}

} // namespace

void HandleToolButton(const std::string& message) {
    if (!message.starts_with(kMessageHead) || gBusy) {
        return;
    }
    const std::vector<std::string_view> fields =
        FieldsOf(std::string_view(message).substr(kMessageHead.size()));
    const auto number = [&fields](std::size_t field) {
        return field < fields.size() ? ReadNumber(fields[field]) : std::nullopt;
    };
    const double tool = number(kFieldTool).value_or(0);
    if (tool != kPointTool && tool != kMarqueeTool) {
        const bool namesTool =
            fields.size() > kFieldTool && !WithoutBlanks(fields[kFieldTool]).empty();
        LinkSessionSelection(namesTool ? Origin::Session : Origin::Quiet);
        return;
    }
    const auto x = number(kFieldX);
    const auto y = number(kFieldY);
    const auto x2 = number(kFieldX2);
    const auto y2 = number(kFieldY2);
    if (!x || !y || (tool == kMarqueeTool && (!x2 || !y2))) {
        InMapAction([] { TellFailure(); });
    } else if (tool == kPointTool) {
        SelectFromMap(*x, *y);
    } else {
        SelectFromMap(*x, *y, *x2, *y2);
    }
}

void SelectFromMap(double x, double y) {
    SearchMap("SearchPoint", std::array{x, y});
}

void SelectFromMap(double x, double y, double x2, double y2) {
    SearchMap("SearchRect", std::array{x, y, x2, y2});
}

void LinkMapSelectionToPlot() {
    LinkSessionSelection(Origin::Session);
}

void LinkMapSelectionToPlot(const std::vector<MapRows>& found) {
    InMapAction([&found] { LinkRows(found, Origin::Search); });
}

void SelectPlotRowsInMap() {
    MapLinkState::now.failureIsTold = false;
    if (const std::optional<MapRows> wanted = WantedSelection()) {
        SendWanted(*wanted);
    }
}

void FollowSelectionInMap() {
    // During an action the selection comes from the map.
    if (!IsMapInfoLinked() || IsInMapAction()) {
        return;
    }
    const std::optional<MapRows> wanted = WantedSelection();
    if (!wanted
        || (wanted->table == MapLinkState::now.sent.table
            && wanted->rows == MapLinkState::now.sent.rows)
        || (wanted->rows.empty() && MapLinkState::now.sent.rows.empty())) {
        return;
    }
    SendWanted(*wanted);
}

void ForgetMapSelection() {
    MapLinkState::now.sent = {};
    MapLinkState::now.failureIsTold = false;
    gMIRowList.clear();
}

} // namespace quandrel
