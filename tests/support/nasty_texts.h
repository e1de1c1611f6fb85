// SPDX-License-Identifier: MIT
//
// Made-up data files with everything that can go wrong in files: for tests that compare two ways of
// reading.

#pragma once

#include <array>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>

namespace quandrel {

/// Makes texts of lines with six columns separated by one character: dip, azimuth, dip, azimuth,
/// number, text.
class NastyTexts {
public:
    explicit NastyTexts(std::mt19937& random, char delimiter = '\t')
        : random_(random)
        , delimiter_(delimiter) {}

    /// A text of up to a few hundred lines; sometimes with a thousand bad ones in a row, NUL
    /// characters after a long head, or the first line of a file written by the program.
    std::string Text() {
        chooseLineEnds_ = Below(5);
        std::string text = Head();
        const bool mayHoldNul = text.size() > 65536;
        const int goodOfHundred = OneOf<int>({60, 90, 97, 100});
        const int lines = Below(OneOf<int>({6, 60, 300}));
        for (int i = 0; i < lines; ++i) {
            const std::string line = Below(100) < goodOfHundred ? GoodLine() : BadLine();
            text += (mayHoldNul && Below(10) == 0 ? WithNul(line) : line) + LineEnd();
        }
        if (Below(6) == 0) {
            text += BadRun() + GoodLine() + LineEnd();
        }
        return text + (Below(2) == 0 ? GoodLine() : std::string());
    }

private:
    int Below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    template <class T, std::size_t N>
    T OneOf(const T (&values)[N]) {
        return values[Below(static_cast<int>(N))];
    }

    std::string LineEnd() {
        switch (chooseLineEnds_) {
        case 0:
            return "\r";
        case 1:
            return "\r\n";
        case 2:
            return OneOf<const char*>({"\n", "\r", "\r\n", "\n\r", "\n\n"});
        default:
            return "\n";
        }
    }

    std::string Head() {
        switch (Below(16)) {
        case 0:
            return ";Quandrel" + LineEnd() + "/T1 /N1 /I2 /C1 /12 /20 /L1 /W1" + LineEnd()
                   + LineEnd();
        case 1:
            return "\xef\xbb\xbf" + BadLine() + LineEnd();
        case 2:
            return LongHead();
        case 3:
            return OneOf<const char*>({"/T2 /13 /20", "/C-1", "/C6 /12 /23 /L1", "/T1 /12 /21"})
                   + LineEnd();
        default:
            return {};
        }
    }

    /// Longer than the part that is searched for NUL characters.
    std::string LongHead() {
        std::string head;
        while (head.size() <= 65536) {
            head += ";" + std::string(600, 'x') + LineEnd();
        }
        return head;
    }

    std::string Dip() {
        return Below(20) == 0 ? OneOf<const char*>({"-30", "-0.4", "45.5", "90", "0", "12NE"})
                              : std::to_string(Below(91));
    }

    std::string Azimuth() {
        return Below(20) == 0 ? OneOf<const char*>({"360", "359.7", "-10", "N30E", "0.5"})
                              : std::to_string(Below(361));
    }

    std::string Number() {
        return Below(8) == 0
                   ? OneOf<const char*>({"1,5", "1.234,5", "-9999", "1e40", "abc", "", "2.5", "0"})
                   : std::to_string(Below(30));
    }

    std::string Word() {
        return OneOf<const char*>({"slate", "Slate", "SLATE", "schist", "2.5", "2,5", "",
                                   "\xc3\x84gneiss", "\xc3\xa4gneiss", "\"a\"\"b\"", "\"c d\"", "E",
                                   "NW", "marble"});
    }

    std::string GoodLine() {
        const std::string d(1, delimiter_);
        std::string word = Word();
        if (Below(100) == 0) {
            word += std::string(static_cast<std::size_t>(Below(3000)), 'l'); // above any block
        }
        return Dip() + d + Azimuth() + d + Dip() + d + Azimuth() + d + Number() + d + word;
    }

    std::string BadLine() {
        const std::string d(1, delimiter_);
        switch (Below(9)) {
        case 0:
            return {};
        case 1:
            return OneOf<const char*>({"   ", "\t\t", " \t"});
        case 2:
            return OneOf<const char*>({"; a comment 12", "* 30\t120"});
        case 3:
            return OneOf<const char*>({"/T1 /N1 /C6 /12 /23", "/"});
        case 4:
            return "no digits at all";
        case 5:
            return "12";
        case 6:
            return "99" + d + "120" + d + "1" + d + "2" + d + "3" + d + "x";
        case 7:
            return d + Azimuth() + d + d + d + "4" + d;
        default:
            return ";" + std::string(static_cast<std::size_t>(Below(2000)), 'c');
        }
    }

    /// Bad lines in a row, about as many as end a load; most of them of one kind.
    std::string BadRun() {
        std::string run;
        const std::string line = BadLine();
        const int lines = 990 + Below(20);
        const int otherAt = Below(3) == 0 ? Below(lines) : -1;
        for (int i = 0; i < lines; ++i) {
            run += (i == otherAt ? BadLine() : line) + LineEnd();
        }
        return run;
    }

    std::string WithNul(std::string line) {
        const int place = Below(static_cast<int>(line.size()) + 1);
        line.insert(static_cast<std::size_t>(place), 1, '\0');
        return line;
    }

    std::mt19937& random_;
    char delimiter_;
    int chooseLineEnds_ = 0;
};

} // namespace quandrel
