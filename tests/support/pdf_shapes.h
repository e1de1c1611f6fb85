// SPDX-License-Identifier: MIT
//
// A small reader of PDF files with one page: the painted paths, in millimetres from the top left
// corner of the paper.

#pragma once

#include <QByteArray>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace quandrel {

/// The bounding box of a painted path.
struct PdfShape {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    int curves = 0;
};

struct PdfPageContent {
    double width = 0; ///< of the paper
    double height = 0;
    std::vector<PdfShape> shapes;
};

class PdfReader {
public:
    static PdfPageContent Read(const std::string& path) {
        std::ifstream stream(path, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
        PdfReader reader;
        std::istringstream box(bytes.substr(bytes.find("/MediaBox [") + 11, 60));
        double left = 0;
        double bottom = 0;
        box >> left >> bottom >> reader.page_.width >> reader.page_.height;
        for (std::size_t at = 0; (at = bytes.find("stream\n", at)) != std::string::npos;) {
            const std::size_t start = at + 7;
            at = bytes.find("endstream", start);
            reader.ReadContent(Inflated(bytes.substr(start, at - start)));
            at += 9;
        }
        reader.page_.width *= kMillimetres;
        reader.page_.height *= kMillimetres;
        return reader.page_;
    }

private:
    static constexpr double kMillimetres = 25.4 / 72; ///< per point
    using Matrix = std::array<double, 6>;

    static std::string Inflated(const std::string& packed) {
        if (packed.empty() || packed[0] != '\x78') {
            return packed; // it was not compressed
        }
        // The length in front is an initial guess of the required size.
        QByteArray bytes("\0\1\0\0", 4);
        bytes.append(packed.data(), static_cast<qsizetype>(packed.size()));
        return qUncompress(bytes).toStdString();
    }

    static Matrix Product(const Matrix& a, const Matrix& b) {
        return {a[0] * b[0] + a[1] * b[2],        a[0] * b[1] + a[1] * b[3],
                a[2] * b[0] + a[3] * b[2],        a[2] * b[1] + a[3] * b[3],
                a[4] * b[0] + a[5] * b[2] + b[4], a[4] * b[1] + a[5] * b[3] + b[5]};
    }

    void ReadContent(const std::string& content) {
        if (content.find(" cm\n") == std::string::npos) {
            return;
        }
        matrix_ = {1, 0, 0, 1, 0, 0};
        saved_.clear();
        Begin();
        std::istringstream words(content);
        std::vector<double> numbers;
        for (std::string word; words >> word;) {
            char* end = nullptr;
            const double number = std::strtod(word.c_str(), &end);
            if (*end == '\0') {
                numbers.push_back(number);
            } else {
                Take(word, numbers);
                numbers.clear();
            }
        }
    }

    void Take(const std::string& word, const std::vector<double>& n) {
        if (word == "cm" && n.size() == 6) {
            matrix_ = Product({n[0], n[1], n[2], n[3], n[4], n[5]}, matrix_);
        } else if (word == "q") {
            saved_.push_back(matrix_);
        } else if (word == "Q" && !saved_.empty()) {
            matrix_ = saved_.back();
            saved_.pop_back();
        } else if (word == "m" || word == "l" || word == "c") {
            for (std::size_t i = 0; i + 1 < n.size(); i += 2) {
                Reach(n[i], n[i + 1]);
            }
            shape_.curves += word == "c" ? 1 : 0;
        } else if (word == "re" && n.size() == 4) {
            Reach(n[0], n[1]);
            Reach(n[0] + n[2], n[1] + n[3]);
        } else if (std::string(" S s f f* B B* b b* ").find(" " + word + " ")
                   != std::string::npos) {
            page_.shapes.push_back(shape_);
            Begin();
        } else if (word == "n") {
            Begin();
        }
    }

    void Begin() {
        constexpr double kFar = std::numeric_limits<double>::max();
        shape_ = {kFar, kFar, -kFar, -kFar, 0};
    }

    void Reach(double x, double y) {
        const double right = (matrix_[0] * x + matrix_[2] * y + matrix_[4]) * kMillimetres;
        const double up = (matrix_[1] * x + matrix_[3] * y + matrix_[5]) * kMillimetres;
        const double down = page_.height * kMillimetres - up;
        shape_.left = std::min(shape_.left, right);
        shape_.right = std::max(shape_.right, right);
        shape_.top = std::min(shape_.top, down);
        shape_.bottom = std::max(shape_.bottom, down);
    }

    PdfPageContent page_;
    PdfShape shape_;
    Matrix matrix_{};
    std::vector<Matrix> saved_;
};

/// The circles of at least a radius. Each of their four curves ends at an extreme point.
inline std::vector<PdfShape> CirclesOf(const PdfPageContent& page, double leastRadius) {
    std::vector<PdfShape> circles;
    for (const PdfShape& shape : page.shapes) {
        const double width = shape.right - shape.left;
        const double height = shape.bottom - shape.top;
        if (shape.curves == 4 && width >= 2 * leastRadius && std::abs(width - height) < 0.01) {
            circles.push_back(shape);
        }
    }
    return circles;
}

} // namespace quandrel
