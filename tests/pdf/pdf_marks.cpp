// SPDX-License-Identifier: MIT

#include "pdf_marks.h"

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>

#include <cmath>
#include <cstddef>
#include <map>
#include <set>
#include <sstream>
#include <vector>

namespace quandrel {

namespace {

/// x' = a x + c y + e, y' = b x + d y + f.
struct Matrix {
    double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;

    [[nodiscard]] double Scale() const { return std::sqrt(std::abs(a * d - b * c)); }
};

/// First one, then the other.
Matrix operator*(const Matrix& first, const Matrix& then) {
    return {
        first.a * then.a + first.b * then.c,          first.a * then.b + first.b * then.d,
        first.c * then.a + first.d * then.c,          first.c * then.b + first.d * then.d,
        first.e * then.a + first.f * then.c + then.e, first.e * then.b + first.f * then.d + then.f};
}

std::string Utf8(unsigned code) {
    std::string text;
    const auto byte = [&text](unsigned value) { text += static_cast<char>(value); };
    if (code < 0x80) {
        byte(code <= ' ' ? ' ' : code); // fonts have one glyph for all blanks
    } else if (code < 0x800) {
        byte(0xc0U | code >> 6U);
        byte(0x80U | (code & 0x3fU));
    } else {
        byte(0xe0U | code >> 12U);
        byte(0x80U | (code >> 6U & 0x3fU));
        byte(0x80U | (code & 0x3fU));
    }
    return text;
}

std::string BytesOf(QPDFObjectHandle stream) {
    const auto buffer = stream.getStreamData(qpdf_dl_generalized);
    return {reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize()};
}

unsigned Code(const std::string& hexadecimal) {
    return static_cast<unsigned>(std::stoul(hexadecimal.substr(1), nullptr, 16));
}

/// The characters of the glyphs of a font.
class CharactersOfFont {
public:
    CharactersOfFont() = default;

    explicit CharactersOfFont(const std::string& map) {
        std::istringstream words(map);
        std::string section;
        for (std::string word; words >> word;) {
            if (word == "beginbfchar" || word == "beginbfrange") {
                section = word;
            } else if (word == "endbfchar" || word == "endbfrange") {
                section.clear();
            } else if (!section.empty()) {
                TakeEntry(section == "beginbfrange", word, words);
            }
        }
    }

    [[nodiscard]] std::string Of(const std::string& glyphs) const {
        std::string text;
        for (std::size_t i = 0; i + 1 < glyphs.size(); i += 2) {
            const unsigned glyph = static_cast<unsigned char>(glyphs[i]) * 256U
                                   + static_cast<unsigned char>(glyphs[i + 1]);
            const auto found = characters_.find(glyph);
            text += found == characters_.end() ? "?" : Utf8(found->second);
        }
        return text;
    }

private:
    /// The characters of a range are consecutive, or listed in brackets.
    void TakeEntry(bool isRange, const std::string& first, std::istringstream& words) {
        std::string last = first;
        std::string character;
        if (isRange) {
            words >> last;
        }
        words >> character;
        const bool isList = character.front() == '[';
        for (unsigned glyph = Code(first); glyph <= Code(last); ++glyph) {
            characters_[glyph] = isList ? Code(character.substr(character.find('<')))
                                        : Code(character) + glyph - Code(first);
            if (isList) {
                words >> character;
            }
        }
    }

    std::map<unsigned, unsigned> characters_;
};

struct State {
    Matrix matrix;
    double lineWidth = 1;
    double size = 0;
    std::string font;
};

/// Follows the operators of a page.
class Follower : public QPDFObjectHandle::ParserCallbacks {
public:
    Follower(QPDFObjectHandle fonts, double height, PdfMarks& marks)
        : fonts_(fonts)
        , height_(height)
        , marks_(marks) {}

    void handleObject(QPDFObjectHandle object, std::size_t /*offset*/,
                      std::size_t /*length*/) override {
        if (!object.isOperator()) {
            operands_.push_back(object);
            return;
        }
        Follow(object.getOperatorValue());
        operands_.clear();
    }

    void handleEOF() override {}

private:
    double Number(std::size_t i) { return operands_.at(i).getNumericValue(); }

    Matrix Given() { return {Number(0), Number(1), Number(2), Number(3), Number(4), Number(5)}; }

    void Follow(const std::string& name) {
        if (name == "q") {
            states_.push_back(now_);
        } else if (name == "Q") {
            now_ = states_.back();
            states_.pop_back();
        } else if (name == "cm") {
            now_.matrix = Given() * now_.matrix;
        } else if (name == "w") {
            now_.lineWidth = Number(0);
        } else if (name == "S" || name == "s" || name == "B" || name == "B*" || name == "b") {
            marks_.lineWidths.push_back(now_.lineWidth * now_.matrix.Scale());
        } else {
            FollowText(name);
        }
    }

    void FollowText(const std::string& name) {
        if (name == "BT") {
            line_ = {};
            isNewText_ = true;
        } else if (name == "Tf") {
            now_.font = operands_.at(0).getName();
            now_.size = Number(1);
        } else if (name == "Tm") {
            line_ = Given();
        } else if (name == "Td") {
            line_ = Matrix{1, 0, 0, 1, Number(0), Number(1)} * line_;
        } else if (name == "Tj") {
            ShowText(operands_.at(0).getStringValue());
        }
    }

    /// The glyphs of a text object are one text, which begins at the first of them.
    void ShowText(const std::string& glyphs) {
        const Matrix whole = line_ * now_.matrix;
        QPDFObjectHandle font = fonts_.getKey(now_.font);
        if (isNewText_) {
            marks_.texts.push_back({"", whole.e, height_ - whole.f, now_.size * whole.Scale(),
                                    font.getKey("/BaseFont").getName()});
            isNewText_ = false;
        }
        marks_.texts.back().text += CharactersOf(font).Of(glyphs);
    }

    const CharactersOfFont& CharactersOf(QPDFObjectHandle font) {
        CharactersOfFont& characters = characters_[now_.font];
        if (known_.insert(now_.font).second) {
            characters = CharactersOfFont(BytesOf(font.getKey("/ToUnicode")));
        }
        return characters;
    }

    QPDFObjectHandle fonts_;
    double height_;
    PdfMarks& marks_;
    std::vector<QPDFObjectHandle> operands_;
    std::vector<State> states_;
    State now_;
    Matrix line_;
    bool isNewText_ = true;
    std::map<std::string, CharactersOfFont> characters_;
    std::set<std::string> known_;
};

} // namespace

PdfMarks MarksOfPdf(const std::string& pdf) {
    QPDF document;
    document.processMemoryFile("test", pdf.data(), pdf.size());
    QPDFPageObjectHelper page = QPDFPageDocumentHelper(document).getAllPages().at(0);
    const double top = page.getMediaBox().getArrayItem(3).getNumericValue();
    PdfMarks marks;
    Follower follower(page.getAttribute("/Resources", false).getKey("/Font"), top, marks);
    page.parseContents(&follower);
    return marks;
}

} // namespace quandrel
