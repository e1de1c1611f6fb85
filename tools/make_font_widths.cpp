// SPDX-License-Identifier: MIT
//
// Writes the table of the advance widths of a font, regular and bold
// (src/svg/font_width_table.cpp), from the tables head, hhea, hmtx and cmap of its TrueType files.
// Widths are facts about the font; nothing else is taken from it.
//
//     make_font_widths REGULAR.ttf BOLD.ttf           prints the table
//     make_font_widths --check FILE REGULAR BOLD      fails if FILE is another text

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

/// The blocks of characters that the table holds, first and last: Latin, Greek and Cyrillic, and
/// the punctuation, currencies, letter-like signs, arrows and operators that go with them.
constexpr std::pair<unsigned, unsigned> kBlocks[] = {
    {0x20, 0x7e},     {0xa0, 0x52f},    {0x1e00, 0x1fff},
    {0x2000, 0x206f}, {0x20a0, 0x20cf}, {0x2100, 0x22ff},
};

constexpr unsigned kUnitsInAnEm = 2048;

/// A file of a font. Reading beyond its end throws std::out_of_range.
class FontFile {
public:
    explicit FontFile(const std::string& path) {
        std::ifstream stream(path, std::ios::binary);
        bytes_.assign(std::istreambuf_iterator<char>(stream), {});
        const unsigned count = U16(4);
        for (unsigned i = 0; i < count; ++i) {
            const std::size_t entry = 12 + std::size_t{16} * i;
            std::string name;
            for (std::size_t k = 0; k < 4; ++k) {
                name += bytes_.at(entry + k);
            }
            tables_[name] = U32(entry + 8);
        }
    }

    [[nodiscard]] std::size_t Table(const std::string& name) const { return tables_.at(name); }

    [[nodiscard]] unsigned U16(std::size_t at) const { return U8(at) << 8U | U8(at + 1); }

    [[nodiscard]] int I16(std::size_t at) const { return static_cast<std::int16_t>(U16(at)); }

    [[nodiscard]] std::uint32_t U32(std::size_t at) const { return U16(at) << 16U | U16(at + 2); }

private:
    [[nodiscard]] unsigned U8(std::size_t at) const {
        return static_cast<unsigned char>(bytes_.at(at));
    }

    std::vector<char> bytes_;
    std::map<std::string, std::size_t> tables_;
};

/// The place of the subtable of format 4 that maps Unicode (platform 3, encoding 1).
std::size_t UnicodeMap(const FontFile& font) {
    const std::size_t cmap = font.Table("cmap");
    for (unsigned i = 0; i < font.U16(cmap + 2); ++i) {
        const std::size_t entry = cmap + 4 + std::size_t{8} * i;
        const std::size_t map = cmap + font.U32(entry + 4);
        if (font.U16(entry) == 3 && font.U16(entry + 2) == 1 && font.U16(map) == 4) {
            return map;
        }
    }
    throw std::runtime_error("the font does not map Unicode");
}

/// The glyph of a character, 0 for none.
unsigned GlyphOf(const FontFile& font, std::size_t map, unsigned character) {
    const unsigned doubled = font.U16(map + 6);
    const std::size_t ends = map + 14;
    const std::size_t starts = ends + doubled + 2;
    const std::size_t deltas = starts + doubled;
    const std::size_t offsets = deltas + doubled;
    for (std::size_t i = 0; i < doubled; i += 2) {
        if (character > font.U16(ends + i)) {
            continue;
        }
        const unsigned start = font.U16(starts + i);
        if (character < start) {
            return 0;
        }
        const unsigned delta = font.U16(deltas + i);
        const unsigned offset = font.U16(offsets + i);
        if (offset == 0) {
            return (character + delta) & 0xffffU;
        }
        const unsigned glyph =
            font.U16(offsets + i + offset + std::size_t{2} * (character - start));
        return glyph == 0 ? 0 : (glyph + delta) & 0xffffU;
    }
    return 0;
}

unsigned AdvanceOf(const FontFile& font, unsigned glyph) {
    const unsigned count = font.U16(font.Table("hhea") + 34);
    const unsigned entry = glyph < count ? glyph : count - 1;
    return font.U16(font.Table("hmtx") + std::size_t{4} * entry);
}

struct Run {
    unsigned first = 0;
    unsigned start = 0; ///< place of its first width
    unsigned count = 0;
};

/// The widths of the characters that both fonts have.
struct Table {
    std::vector<Run> runs;
    std::vector<unsigned> regular;
    std::vector<unsigned> bold;
};

Table TableOf(const FontFile& regular, const FontFile& bold) {
    const std::size_t regularMap = UnicodeMap(regular);
    const std::size_t boldMap = UnicodeMap(bold);
    Table table;
    for (const auto& [first, last] : kBlocks) {
        bool isInRun = false;
        for (unsigned character = first; character <= last; ++character) {
            const unsigned glyph = GlyphOf(regular, regularMap, character);
            const unsigned boldGlyph = GlyphOf(bold, boldMap, character);
            if (glyph == 0 || boldGlyph == 0) {
                isInRun = false;
                continue;
            }
            if (!isInRun) {
                table.runs.push_back({character, static_cast<unsigned>(table.regular.size()), 0});
                isInRun = true;
            }
            ++table.runs.back().count;
            table.regular.push_back(AdvanceOf(regular, glyph));
            table.bold.push_back(AdvanceOf(bold, boldGlyph));
        }
    }
    return table;
}

void WriteWidths(std::ostream& out, const char* name, const std::vector<unsigned>& widths) {
    constexpr std::size_t kInALine = 18;
    out << "constexpr std::array<std::uint16_t, " << widths.size() << "> " << name << " = {";
    for (std::size_t i = 0; i < widths.size(); ++i) {
        out << (i % kInALine == 0 ? "\n    " : " ") << widths[i] << ",";
    }
    out << "\n};\n\n";
}

std::string TextOf(const FontFile& regular, const FontFile& bold) {
    if (regular.U16(regular.Table("head") + 18) != kUnitsInAnEm
        || bold.U16(bold.Table("head") + 18) != kUnitsInAnEm) {
        throw std::runtime_error("an em is not 2048 units");
    }
    const Table table = TableOf(regular, bold);
    std::ostringstream out;
    out << "// SPDX-License-Identifier: MIT\n//\n"
           "// Made by tools/make_font_widths from Liberation Sans, regular and bold.\n\n"
           "#include \"svg/font_width_table.h\"\n\n#include <array>\n\n"
           "namespace quandrel {\n\nnamespace {\n\n// clang-format off\n";
    out << "constexpr std::array<WidthRun, " << table.runs.size() << "> kRuns = {{";
    for (std::size_t i = 0; i < table.runs.size(); ++i) {
        const Run& run = table.runs[i];
        out << (i % 6 == 0 ? "\n    " : " ") << "{" << run.first << ", " << run.start << ", "
            << run.count << "},";
    }
    out << "\n}};\n\n";
    WriteWidths(out, "kRegular", table.regular);
    WriteWidths(out, "kBold", table.bold);
    const std::size_t hhea = regular.Table("hhea");
    out << "// clang-format on\n\n} // namespace\n\nconst FontWidths& WidthsOfLiberationSans() {\n"
           "    static constexpr FontWidths kWidths{"
        << regular.I16(hhea + 4) << ", " << -regular.I16(hhea + 6)
        << ", kRuns, kRegular, kBold};\n    return kWidths;\n}\n\n} // namespace quandrel\n";
    return out.str();
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool isCheck = arguments.size() == 4 && arguments[0] == "--check";
    if (!isCheck && arguments.size() != 2) {
        std::cerr << "usage: make_font_widths [--check FILE] REGULAR.ttf BOLD.ttf\n";
        return 2;
    }
    try {
        const std::size_t first = isCheck ? 2 : 0;
        const std::string text = TextOf(FontFile(arguments[first]), FontFile(arguments[first + 1]));
        if (!isCheck) {
            std::cout << text;
            return 0;
        }
        std::ifstream stream(arguments[1]);
        const std::string file{std::istreambuf_iterator<char>(stream), {}};
        if (file != text) {
            std::cerr << arguments[1] << " is not what the fonts give\n";
            return 1;
        }
    } catch (const std::exception& error) {
        std::cerr << "no font: " << error.what() << '\n';
        return 2;
    }
    return 0;
}
