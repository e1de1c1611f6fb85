// SPDX-License-Identifier: MIT
//
// What the program asks its user: message boxes, paths, and the modal dialogs that the engine
// needs. The engine never shows a window itself.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, AbortRetryIgnore };

enum class Button { Ok, Cancel, Yes, No, Abort, Retry, Ignore };

enum class Icon { None, Information, Question, Exclamation, Stop };

/// A message box; line feeds separate its lines.
struct Message {
    std::string title;
    std::string text;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    /// The button that Return presses in a window when continuing would destroy something; nothing
    /// means DefaultButton. Scripts continue with DefaultButton in either case.
    std::optional<Button> safe = std::nullopt;
};

/// The buttons of a set, from left to right.
[[nodiscard]] std::vector<Button> ButtonsOf(Buttons set);

/// The button that continues the action: OK, Yes or Ignore.
[[nodiscard]] Button DefaultButton(Buttons set);

/// The button's English name: "OK", "Cancel", "Yes", "No", "Abort", "Retry", "Ignore".
[[nodiscard]] std::string ButtonName(Button button);

/// The button with a name, in any case, or nothing.
[[nodiscard]] std::optional<Button> ButtonFromName(const std::string& name);

/// A request for a path.
struct PathQuestion {
    std::string title;
    std::string folder;   ///< where to start; empty is the current folder
    std::string fileName; ///< offered when saving
    std::string filter;   ///< pairs of text and pattern, all separated by "|"
    int filterIndex = 1;  ///< the pair offered first, counted from 1
};

/// Where and how to write a plot.
struct PlotPathAnswer {
    std::string path;
    bool wholeDegrees = false; ///< a text has orientations in whole degrees
};

/// A table of a file that has several, such as a sheet, as text.
struct NamedTable {
    std::string name;
    std::string text; ///< a line for each row, tabs between the cells; at least the first lines
};

/// The data format dialog, as the caller wants it opened.
struct FormatQuestion {
    std::string path;         ///< the file whose first lines are shown; empty shows none
    std::string text;         ///< a pasted text whose first lines are shown instead of a file's
    std::string command;      ///< "New", "Merge", "Overlay", "File", "Paste", or "None" for no load
    int plotKindFromFile = 0; ///< data kind that the file's parameter line names; 0 is none
    bool showSecondary = false;
    bool columnHeadings = false;
    bool frequencyColumn = false;
    bool isRepeated = false;        ///< the format was asked for before: none is suggested now
    std::vector<NamedTable> tables; ///< of the file; the user chooses one. Empty for texts
};

/// What the user left in the data format dialog. The format itself is in the global settings.
struct FormatAnswer {
    bool plotSecondary = false;
    bool columnHeadings = false;
    bool frequencyColumn = false;
    std::size_t table = 0; ///< index in FormatQuestion::tables
};

/// How to treat a plot with unsaved data when several are closed.
enum class SaveAnswer {
    SaveThis,
    SkipThis,
    Cancel,  ///< nothing is closed
    SaveAll, ///< saves this one and all later ones that would be asked about
    SkipAll,
};

class Prompts {
public:
    virtual ~Prompts() = default;

    /// Shows a box and returns the button pressed. Closing the box counts as Cancel, or No, or OK
    /// when there is no other button; for Abort, Retry, Ignore it counts as Abort.
    [[nodiscard]] virtual Button Ask(const Message& message) = 0;

    /// A path of an existing file, or nothing when the user cancels.
    [[nodiscard]] virtual std::optional<std::string> AskOpenPath(const PathQuestion& question) = 0;

    /// A path to write to. For an existing file the platform has already asked about replacing it.
    [[nodiscard]] virtual std::optional<std::string> AskSavePath(const PathQuestion& question) = 0;

    /// The data format dialog; nothing on Cancel.
    [[nodiscard]] virtual std::optional<FormatAnswer> AskFormat(const FormatQuestion& question) = 0;

    /// Asks about one of several plots with unsaved data that are about to close.
    /// @param text  the question, with the plot's title
    [[nodiscard]] virtual SaveAnswer AskSavePlots(const std::string& title,
                                                  const std::string& text) = 0;

    /// AskSavePath for a plot. For a plot with decimals there is a box "Whole degrees", off at
    /// first, which is about text files.
    [[nodiscard]] virtual std::optional<PlotPathAnswer> AskPlotPath(const PathQuestion& question,
                                                                    bool hasDecimals) = 0;
};

} // namespace quandrel
