// SPDX-License-Identifier: MIT

#include "input/parameter_line.h"

#include "input/column_order.h"
#include "input/format_model.h"
#include "input/text_file.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace quandrel {

namespace {

char UpperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool IsName(char item) {
    return item == 'D' || item == 'F' || item == 'X';
}

// The integer part of the number at the start of a value.
std::optional<std::int16_t> NumberAtStart(std::string_view value) {
    if (!value.empty() && value.front() == '+') {
        value.remove_prefix(1);
    }
    std::int16_t number = 0;
    const std::from_chars_result end =
        std::from_chars(value.data(), value.data() + value.size(), number);
    return end.ec == std::errc{} ? std::optional<std::int16_t>(number) : std::nullopt;
}

std::optional<std::int16_t> NumberInRange(std::string_view value, std::int16_t lowest,
                                          std::int16_t highest) {
    const std::optional<std::int16_t> number = NumberAtStart(value);
    return number && *number >= lowest && *number <= highest ? number : std::nullopt;
}

std::optional<bool> TruthOf(std::string_view value) {
    const std::optional<std::int16_t> number = NumberAtStart(value);
    return number ? std::optional<bool>(*number != 0) : std::nullopt;
}

std::optional<std::int16_t> ConventionsIn(std::string_view value) {
    const std::optional<std::int16_t> code = NumberAtStart(value);
    if (!code) {
        return std::nullopt;
    }
    const int size = std::abs(int{*code});
    const bool isCode =
        size < 20 && size % 10 >= kDipDipDirection && size % 10 <= kStrikeDipRightHand;
    return isCode ? code : std::nullopt;
}

std::optional<NegativePlunge> UpwardIn(std::string_view value) {
    const std::optional<std::int16_t> code =
        NumberInRange(value, static_cast<std::int16_t>(NegativePlunge::LowerEnd),
                      static_cast<std::int16_t>(NegativePlunge::Vector));
    return code ? std::optional(static_cast<NegativePlunge>(*code)) : std::nullopt;
}

std::optional<CommentMarks> CommentsIn(std::string_view value) {
    constexpr std::int16_t kHash = 1;
    constexpr std::int16_t kPercent = 2;
    constexpr std::int16_t kSlashes = 4;
    const std::optional<std::int16_t> sum = NumberInRange(value, 0, kHash + kPercent + kSlashes);
    if (!sum) {
        return std::nullopt;
    }
    const auto has = [&sum](std::int16_t mark) { return (*sum & mark) != 0; };
    return CommentMarks{has(kHash), has(kPercent), has(kSlashes)};
}

// At most kLongestItemName characters of a name, on one line and without tabs.
std::string NameOf(std::string_view text) {
    std::string name;
    std::size_t characters = 0;
    for (const char c : text) {
        const bool isContinued = (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
        if (!isContinued && ++characters > kLongestItemName) {
            break;
        }
        name += c == '\t' || c == '\r' || c == '\n' ? ' ' : c;
    }
    return name;
}

// A primary format, or kOldFormats.
std::optional<std::int16_t> FormatCodeIn(std::string_view value) {
    const std::optional<std::int16_t> code = NumberInRange(value, kDirections, kOldFormats);
    return code == kOldFormats - 1 ? std::nullopt : code;
}

// Sets the item; a value that cannot be used leaves an earlier one in place.
template <class T>
void Take(const std::optional<T>& value, std::optional<T>& item) {
    if (value) {
        item = value;
    }
}

// Takes an item that is a number or a code; skips the others.
void TakeNumber(char item, std::string_view value, ParameterItems& items) {
    switch (item) {
    case 'T':
        return Take(NumberInRange(value, kPlanes, kPolarLines), items.T);
    case 'N':
        return Take(NumberInRange(value, kEqualArea, kRose), items.N);
    case 'P':
        return Take(NumberAtStart(value), items.P);
    case 'I':
        return Take(NumberInRange(value, 1, INT16_MAX), items.I);
    case 'C':
        return Take(ConventionsIn(value), items.C);
    case 'U':
        return Take(UpwardIn(value), items.U);
    case 'M':
        return Take(CommentsIn(value), items.M);
    case '1':
        return Take(FormatCodeIn(value), items.one);
    case '2':
        return Take(NumberInRange(value, kNoSecondary, kHadeInPlane), items.two);
    default:
        return;
    }
}

// Takes an item that is true or false; skips the others.
void TakeTruth(char item, std::string_view value, ParameterItems& items) {
    switch (item) {
    case 'S':
        return Take(TruthOf(value), items.S);
    case 'A':
        return Take(TruthOf(value), items.A);
    case 'L':
        return Take(TruthOf(value), items.L);
    case 'W':
        return Take(TruthOf(value), items.W);
    case 'G':
        return Take(TruthOf(value), items.G);
    default:
        return;
    }
}

// Takes an item that is a name or a path; skips the others.
void TakeName(char item, std::string_view value, ParameterItems& items) {
    if (item == 'F') {
        items.F = NameOf(value);
    } else if (item == 'D') {
        items.D = NameOf(value);
    } else if (item == 'X') {
        items.extraFiles.emplace_back(value);
    }
}

void TakeItem(char item, std::string_view value, ParameterItems& items) {
    TakeNumber(item, value, items);
    TakeTruth(item, value, items);
    TakeName(item, value, items);
}

// The value of an item, starting after its letter.
std::string_view ValueOf(char item, std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::string_view ends = IsName(item) ? "\t\r\n" : " /\t\r\n";
    std::string_view value = text.substr(0, text.find_first_of(ends));
    while (!value.empty() && value.back() == ' ') {
        value.remove_suffix(1);
    }
    return value;
}

void TranslateOldItems(const ParameterItems& items, FormatSettings& settings) {
    const std::int16_t code = items.I.value_or(0);
    const std::int16_t kind = items.T.value_or(settings.plotDataKind);
    settings.primary = kPrimaryPlane;
    settings.secondary = kNoSecondary;
    switch (code) {
    case 1:
        settings.primary = kDirections;
        break;
    case 3:
        settings.secondary = kSecondaryLine;
        break;
    case 4:
        settings.secondary = kPitchInPlane;
        break;
    case 5:
        settings.secondary = kTrendInPlane;
        break;
    case 6:
        settings.secondary = kSecondaryPlane;
        break;
    default:
        settings.primary = kind == kPlanes ? kPrimaryPlane : kPrimaryLine;
        break;
    }
}

bool HasOldItems(const ParameterItems& items) {
    return items.I.value_or(0) > 0 || items.one == kOldFormats;
}

// The two columns after those of a format.
PlaceColumns ColumnsBehind(const FormatSettings& settings) {
    const std::int32_t next = HighestColumnNeeded(LineFormatOf(settings, {}, false)) + 1;
    return {next, next + 1};
}

// A partial line states that values are not appended by omitting them.
bool FlagOf(const std::optional<bool>& item, const ParameterItems& items, bool inForce) {
    return item.value_or(items.one == kOldFormats ? false : inForce);
}

// Writes the items of a parameter line.
class ItemWriter {
public:
    void AddText(std::string_view item, std::string_view value) {
        text_ += text_.empty() ? "/" : "\t/";
        text_ += item;
        text_ += value;
    }

    void AddNumber(std::string_view item, const std::optional<std::int16_t>& value,
                   std::string_view format = "0") {
        if (value) {
            AddText(item, FormatNumber(*value, format));
        }
    }

    void AddTruth(std::string_view item, const std::optional<bool>& value) {
        if (value) {
            AddText(item, *value ? "1" : "0");
        }
    }

    void AddName(std::string_view item, const std::optional<std::string>& name) {
        if (name && !name->empty()) {
            AddText(item, NameOf(*name));
        }
    }

    [[nodiscard]] std::string Line() const { return text_ + "\r\n"; }

private:
    std::string text_;
};

std::optional<std::int16_t> WrittenSecondary(const std::optional<std::int16_t>& format) {
    const bool isInPlane =
        format == kPitchInPlane || format == kTrendInPlane || format == kHadeInPlane;
    return isInPlane ? std::optional<std::int16_t>(kSecondaryLine) : format;
}

} // namespace

ParameterItems ParseParameterLine(std::string_view text) {
    ParameterItems items;
    std::size_t slash = text.find('/');
    while (slash != std::string_view::npos && slash + 1 < text.size()) {
        const char item = UpperCase(text[slash + 1]);
        const std::string_view rest = text.substr(slash + 2);
        const std::string_view value = ValueOf(item, rest);
        if (!value.empty()) {
            TakeItem(item, value, items);
        }
        const std::size_t valueEnd =
            value.empty() ? slash + 1
                          : static_cast<std::size_t>(value.data() - text.data()) + value.size();
        slash = text.find('/', valueEnd);
    }
    return items;
}

ParameterItems ReadParameterLines(std::string_view text, const CommentMarks& marks) {
    std::string joined;
    CommentMarks inForce = marks;
    LineReader reader(text);
    for (std::string_view line; reader.Next(line);) {
        line = WithoutBlanks(line);
        if (line.empty() || line.front() == ';' || line.front() == '*'
            || BeginsWithMark(line, inForce)) {
            continue;
        }
        if (line.front() != '/') {
            break;
        }
        inForce = ParseParameterLine(line).M.value_or(inForce);
        joined.append(joined.empty() ? "" : "\t").append(line);
    }
    ParameterItems items = ParseParameterLine(joined);
    items.isOwnText = text.substr(0, kOwnTextStart.size()) == kOwnTextStart;
    return items;
}

std::string BuildParameterText(const ParameterItems& items, bool full) {
    const bool isDirections = items.one && *items.one <= kDirections;
    ItemWriter writer;
    writer.AddNumber("T", items.T);
    writer.AddText("P", "0");
    writer.AddNumber("N", items.N, "#");
    writer.AddText("I", !full && isDirections ? "1" : "2");
    writer.AddText("C", "1");
    writer.AddText("U", "0");
    if (!full) {
        writer.AddNumber("1", std::optional<std::int16_t>(kOldFormats));
        return writer.Line();
    }
    writer.AddNumber("1", isDirections ? std::optional<std::int16_t>(kDirections) : items.one);
    writer.AddNumber("2", WrittenSecondary(items.two));
    writer.AddTruth("S", items.S);
    writer.AddTruth("A", items.A);
    writer.AddTruth("L", items.L);
    writer.AddTruth("W", items.W);
    writer.AddTruth("G", items.G);
    writer.AddName("F", items.F);
    writer.AddName("D", items.D);
    return writer.Line();
}

FormatSettings WithFormatItems(FormatSettings settings, const ParameterItems& items) {
    settings.conventions = items.C.value_or(settings.conventions);
    if (HasOldItems(items)) {
        TranslateOldItems(items, settings);
    }
    settings.plotDataKind = items.T.value_or(settings.plotDataKind);
    if (items.one != kOldFormats) {
        settings.primary = items.one.value_or(settings.primary);
    }
    settings.secondary = items.two.value_or(settings.secondary);
    if (items.isOwnText) {
        settings.delimiter = "\t";
        settings.hasHeadings = false;
        settings.negativePlunge = NegativePlunge::LowerEnd;
        settings.comments = {};
        settings.pairsInCells = false;
        settings.placeColumns = {};
    }
    settings.negativePlunge = items.U.value_or(settings.negativePlunge);
    settings.comments = items.M.value_or(settings.comments);
    // The columns are those of the file, even when the plot does not take all of them.
    FormatSettings ofFile = settings;
    ofFile.lineAppended = FlagOf(items.A, items, settings.lineAppended);
    ofFile.numericAppended = FlagOf(items.L, items, settings.numericAppended);
    ofFile.nonNumericAppended = FlagOf(items.W, items, settings.nonNumericAppended);
    if (HasOldItems(items)) {
        settings.columns = ofFile.columns = ColumnsInOrder(ofFile);
    }
    if (items.G) {
        settings.placeColumns = *items.G ? ColumnsBehind(ofFile) : PlaceColumns();
    }
    return settings;
}

FormatSettings WithNewPlotItems(FormatSettings settings, const ParameterItems& items) {
    settings.plotKind = items.N.value_or(settings.plotKind);
    settings.lineAppended = FlagOf(items.A, items, settings.lineAppended);
    settings.numericAppended = FlagOf(items.L, items, settings.numericAppended);
    settings.nonNumericAppended = FlagOf(items.W, items, settings.nonNumericAppended);
    settings.numericName = items.F.value_or(settings.numericName);
    settings.nonNumericName = items.D.value_or(settings.nonNumericName);
    return settings;
}

FormatSettings AfterText(const FormatSettings& before, const ParameterItems& items,
                         FormatSettings now) {
    const FormatSettings ofText = WithFormatItems(before, items);
    if (now.negativePlunge == ofText.negativePlunge) {
        now.negativePlunge = before.negativePlunge;
    }
    if (now.comments == ofText.comments) {
        now.comments = before.comments;
    }
    return now;
}

void ApplyFormatItems(const ParameterItems& items) {
    gSettings.format = WithFormatItems(gSettings.format, items);
}

void ApplyNewPlotItems(const ParameterItems& items) {
    gSettings.format = WithNewPlotItems(gSettings.format, items);
}

} // namespace quandrel
