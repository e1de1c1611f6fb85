// SPDX-License-Identifier: MIT
//
// Binary plot files as the versions from 7.0 to 9.5 wrote them, put together byte by byte without
// any of the program's own code. It notes where each field begins.

#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace quandrel {

struct OldRow {
    int dip = 0;
    int azimuth = 0;
    int dip2 = 0;
    int azimuth2 = 0;
    int lineDip = 0;
    int lineAzimuth = 0;
    float number = 0;
    std::string text;
    std::string code = "000106";
};

struct OldMark {
    std::array<int, 7> fields{}; // x, y, symbol, colour, size, line style, tag
    std::vector<std::pair<int, int>> nodes;
};

/// The contents of a file. Numbers for which a test has no name are identified by their position.
struct OldPlot {
    int version = 95; // ten times
    std::string fullVersion = "9.51 ";
    int primary = 2;
    int secondary = 0;
    bool hasLine = false;
    bool hasNumber = false;
    bool hasText = false;
    int plotKind = 1;
    int dataKind = 1;
    int mode = 1;
    std::vector<OldRow> rows;
    std::vector<std::pair<int, std::vector<OldRow>>> overlays; // kind, rows
    int gridSize = 0;
    int roseCode = 0; // of field 20
    int roseType = 0; // of field 34
    int classMode = 0;
    int textClasses = 26; // first cell of the last column of the class table
    int gridCount = 0;
    std::vector<OldMark> marks;
    std::string fabric = "S1";
    std::string numberName = "Thickness";
    std::string textName = "Rock";
    int frequency = -1;
};

class OldPlotWriter {
public:
    explicit OldPlotWriter(OldPlot plot)
        : plot_(std::move(plot)) {
        Heading();
        Rows();
        Cells();
        Densities();
        Statistics();
        EarlierRose();
        if (plot_.version > 70) {
            Field();
            Long(0);
            for (const float place : {150.0F, 300.0F, 9000.0F, 6000.0F}) {
                Single(place);
            }
        }
        if (plot_.version > 71) {
            LaterStatistics();
        }
        if (plot_.version >= 80) {
            MarksAndCircles();
        }
        if (plot_.version >= 90) {
            Rose();
        }
        Later();
    }

    [[nodiscard]] const std::string& Bytes() const { return bytes_; }

    /// Where fields begin, in their order.
    [[nodiscard]] const std::vector<std::size_t>& Fields() const { return fields_; }

private:
    void Field() { fields_.push_back(bytes_.size()); }

    template <class T>
    void Raw(T value) {
        // The machines that the tests run on are little-endian, as the file is.
        char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        bytes_.append(bytes, sizeof value);
    }

    void Short(int value) { Raw(static_cast<std::int16_t>(value)); }

    void Shorts(std::initializer_list<int> values) {
        for (const int value : values) {
            Short(value);
        }
    }

    void Long(int value) { Raw(static_cast<std::int32_t>(value)); }

    void Single(float value) { Raw(value); }

    void Double(double value) { Raw(value); }

    void Text(const std::string& text) {
        Short(static_cast<int>(text.size()));
        bytes_ += text;
    }

    void Heading() {
        bytes_ += "bin";
        bytes_ += static_cast<char>('0' + plot_.version / 10);
        bytes_ += '.';
        bytes_ += static_cast<char>('0' + plot_.version % 10);
        Field();
        const int rows = static_cast<int>(plot_.rows.size());
        int valid = 0;
        for (const OldRow& row : plot_.rows) {
            valid += row.dip != -9999 ? 1 : 0;
        }
        all_ = rows;
        for (const auto& overlay : plot_.overlays) {
            all_ += static_cast<int>(overlay.second.size());
        }
        Long(valid);
        Long(rows);
        Long(all_);
        Field();
        Shorts({plot_.primary, plot_.secondary, 0, 0, -1, plot_.hasLine ? -1 : 0,
                plot_.hasNumber ? -1 : 0, plot_.hasText ? -1 : 0});
        Field();
        Text("");
        Text(plot_.fabric);
        Text("two\r\nlines");
        Field();
        Shorts({plot_.plotKind, plot_.dataKind, plot_.mode, 0});
    }

    void Orientation(const OldRow& row) {
        Long(row.dip);
        Long(row.azimuth);
        Long(3);
        Long(++order_);
        Text(row.code);
        if (plot_.secondary != 0) {
            Long(row.dip2);
            Long(row.azimuth2);
        }
    }

    void Rows() {
        Field();
        for (const OldRow& row : plot_.rows) {
            Orientation(row);
            if (plot_.hasLine) {
                Long(row.lineDip);
                Long(row.lineAzimuth);
            }
            if (plot_.hasNumber) {
                Single(row.number);
            }
            if (plot_.hasText && plot_.version < 90) {
                Single(std::stof(row.text));
            } else if (plot_.hasText) {
                Text(row.text);
            }
        }
        Field();
        Short(static_cast<int>(plot_.overlays.size()));
        Short(0);
        for (const auto& [kind, rows] : plot_.overlays) {
            Field();
            Short(static_cast<int>(rows.size()));
            Short(kind);
            for (const OldRow& row : rows) {
                Orientation(row);
            }
        }
    }

    void Cells() {
        Field();
        for (int row = 1; row <= all_; ++row) {
            Text(std::to_string(row));
            Text("12");
            Text("-34");
            Text("0,5");
            Text("1.25");
        }
    }

    void Densities() {
        Field();
        Single(7.5F);
        Single(8.5F);
        Long(static_cast<int>(plot_.rows.size()));
        Field();
        Short(plot_.gridSize);
        Short(2);
        Field();
        for (int i = 0; i <= plot_.gridSize && plot_.gridSize > 0; ++i) {
            for (int j = 0; j <= plot_.gridSize; ++j) {
                Short(100 * i + j);
            }
        }
        Field();
        Shorts({1, 2, 4, 8, 16, 0, 0, 0, 0});
    }

    /// An item with a label and an orientation.
    void Item(const std::string& label, double plunge, double trend) {
        Short(11);
        Short(-1);
        Short(8);
        Text(label);
        Short(5);
        Double(plunge);
        Short(4);
        Single(static_cast<float>(trend));
        Short(2);
        Short(4);
        Short(3);
        Long(1);
        Short(0);
    }

    void Statistics() {
        Field();
        for (int i = 0; i < 12; ++i) {
            Single(0.25F * static_cast<float>(i));
        }
        Field();
        Single(0.125F); // F
        Single(0.5F);
        Single(0.75F); // A
        Single(1.5F);  // B
        Field();
        for (int item = 0; item <= 5; ++item) {
            Item("item " + std::to_string(item), 0.5, 0.25);
        }
        Field();
        Item("item 9", 0.5, 0.25);
    }

    void EarlierRose() {
        Field();
        Short(1);
        Field();
        Short(plot_.roseCode);
        Field();
        Shorts({-1, -1, 0, -1});
        Field();
        Single(15);
        Single(5);
        Single(2.5F);
        Single(3.5F);
        Field();
        Short(0);
        Short(7);
        Single(7.25F);
        Field();
        Shorts({10, 120, 7});
        Field();
        Single(0.5F);
        Single(0.25F);
        Single(0.75F);
    }

    void LaterStatistics() {
        Field();
        Single(2.25F); // D
        Single(3.25F); // E
        Double(4.125); // C
        Short(-1);
        Field();
        for (int i = 0; i < 12; ++i) {
            Single(0.5F * static_cast<float>(i));
        }
        Field();
        Item("item 10", 0.5, 0.25);
    }

    void MarksAndCircles() {
        Field();
        Long(static_cast<int>(plot_.marks.size()));
        for (const OldMark& mark : plot_.marks) {
            for (const int field : mark.fields) {
                Short(field);
            }
            Short(static_cast<int>(mark.nodes.size()));
            for (const auto& [x, y] : mark.nodes) {
                Short(x);
                Short(y);
            }
        }
        Field();
        for (int circle = 1; circle <= 4; ++circle) {
            Shorts({circle, 0, 2, -1, 1});
            Text(std::to_string(10 * circle));
            Text("120");
            Text("45");
        }
    }

    void Rose() {
        Field();
        Short(plot_.roseType);
        Field();
        Text(plot_.numberName);
        Text(plot_.textName);
        Text("circ5");
        Field();
        Shorts({1, 1, 80, 10});
        Field();
        for (int i = 1; i <= 7; ++i) {
            Double(0.1 * i);
        }
        Double(20);
        Double(30);
        Field();
        for (int i = 1; i <= 4; ++i) {
            Double(0.01 * i);
        }
        Field();
        for (int i = 1; i <= 12; ++i) {
            Double(i);
        }
        Field();
        for (const double bound : {-1.5, -2.5, 11.5, 12.5}) {
            Double(bound);
        }
        Field();
        for (int i = 0; i < 21; ++i) {
            Double(100 + i);
        }
        Field();
        for (int i = 0; i < 11; ++i) {
            Short(4);
            Single(static_cast<float>(i) / 2);
        }
        for (int i = 0; i < 11; ++i) {
            Short(8);
            Text("t" + std::to_string(i));
        }
        Field();
        for (int i = 0; i < 39; ++i) {
            Short(2);
            Short(i == 26 ? plot_.textClasses : i);
        }
        Field();
        Short(plot_.classMode);
        Long(2);
    }

    void Later() {
        if (plot_.version >= 91) {
            Field();
            Shorts({-1, 0, -1, 0, -1, 0});
        }
        if (plot_.version >= 92) {
            Field();
            Double(33.5);
            Short(4);
            Double(2.5);
            Double(-7);
            Double(70);
            Field();
            Double(77.5);
            Double(88.5);
        }
        if (plot_.version >= 94) {
            Grids();
        }
        if (plot_.version >= 95) {
            Field();
            for (int item = 6; item <= 8; ++item) {
                Item("item " + std::to_string(item), 0.5, 0.25);
            }
        }
    }

    void Grids() {
        Field();
        bytes_ += plot_.fullVersion;
        Field();
        Short(plot_.gridCount);
        Field();
        for (int i = 0; i < 153; ++i) {
            for (int j = 0; j < 153; ++j) {
                Double(plot_.gridCount != 0 ? i + 1000.0 * j : 0);
                Double(plot_.gridCount != 0 ? -(i + 1000.0 * j) : 0);
            }
        }
        Field();
        for (int i = 0; i < 10; ++i) {
            Double(0.5 + i);
        }
        if (plot_.version >= 95 || plot_.fullVersion == "9.44 ") {
            Field();
            Short(plot_.frequency);
        }
    }

    OldPlot plot_;
    std::string bytes_;
    std::vector<std::size_t> fields_;
    int all_ = 0;
    int order_ = 0;
};

} // namespace quandrel
