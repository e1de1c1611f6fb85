// SPDX-License-Identifier: MIT

#include "input/suggest/heading_terms.h"

#include "core/letter_case.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace quandrel {

namespace {

struct Term {
    std::string_view words; ///< as PlainHeading, without blanks
    HeadingMeaning meaning;
};

using enum HeadingMeaning;

constexpr auto kTerms = std::to_array<Term>({
    // English
    {"dip", Dip},
    {"dips", Dip},
    {"dipangle", Dip},
    {"dipamount", Dip},
    {"truedip", Dip},
    {"inclination", Inclination},
    {"incl", Inclination},
    {"inc", Inclination},
    {"declination", Declination},
    {"decl", Declination},
    {"dec", Declination},
    {"dipdirection", DipDirection},
    {"dipdirn", DipDirection},
    {"dipdir", DipDirection},
    {"dipd", DipDirection},
    {"ddir", DipDirection},
    {"dd", DipDirection},
    {"dipazimuth", DipDirection},
    {"dipaz", DipDirection},
    {"azimuthofdip", DipDirection},
    {"directionofdip", DipDirection},
    {"strike", Strike},
    {"str", Strike},
    {"strikeazimuth", Strike},
    {"strikerhr", RightHandStrike},
    {"rhrstrike", RightHandStrike},
    {"rhstrike", RightHandStrike},
    {"strikerh", RightHandStrike},
    {"strikerighthand", RightHandStrike},
    {"strikerighthandrule", RightHandStrike},
    {"righthandstrike", RightHandStrike},
    {"righthandrulestrike", RightHandStrike},
    {"sense", Sense},
    {"dipsense", Sense},
    {"senseofdip", Sense},
    {"dipquadrant", Sense},
    {"quadrant", Sense},
    {"quad", Sense},
    {"dipto", Sense},
    {"plunge", Plunge},
    {"pl", Plunge},
    {"plungeangle", Plunge},
    {"trend", Trend},
    {"tr", Trend},
    {"bearing", Trend},
    {"plungeazimuth", Trend},
    {"plungedirection", Trend},
    {"plungedir", Trend},
    {"trendazimuth", Trend},
    {"azimuth", Azimuth},
    {"azim", Azimuth},
    {"az", Azimuth},
    {"azi", Azimuth},
    {"direction", Azimuth},
    {"dir", Azimuth},
    {"orientation", Azimuth},
    {"theta", Azimuth},
    {"heading", Azimuth},
    {"wd", Azimuth},
    {"pitch", Pitch},
    {"rake", Pitch},
    {"slipangle", AngleInPlane},
    {"hade", AngleInPlane},
    {"speed", Speed},
    {"windspeed", Speed},
    {"ws", Speed},
    {"frequency", Frequency},
    {"probability", Frequency},
    {"count", Frequency},
    {"x", Easting},
    {"y", Northing},
    {"z", Coordinate},
    {"easting", Easting},
    {"northing", Northing},
    {"east", Easting},
    {"north", Northing},
    {"utme", Easting},
    {"utmn", Northing},
    {"lat", Northing},
    {"latitude", Northing},
    {"lon", Easting},
    {"long", Easting},
    {"longitude", Easting},
    {"elevation", Coordinate},
    {"altitude", Coordinate},
    {"elev", Coordinate},
    {"depth", Coordinate},
    {"id", Identifier},
    {"fid", Identifier},
    {"no", Identifier},
    {"nr", Identifier},
    {"number", Identifier},
    {"index", Identifier},
    {"date", Identifier},
    {"time", Identifier},
    {"thickness", Number},
    {"length", Number},
    {"spacing", Number},
    {"aperture", Number},
    {"width", Number},
    {"height", Number},
    {"weight", Number},
    {"quality", Number},
    {"value", Number},
    {"formation", Text},
    {"lithology", Text},
    {"rock", Text},
    {"rocktype", Text},
    {"type", Text},
    {"featuretype", Text},
    {"feature", Text},
    {"structure", Text},
    {"unit", Text},
    {"fabric", Text},
    {"spot", Place},
    {"outcrop", Place},
    {"station", Place},
    {"site", Place},
    {"locality", Place},
    {"location", Place},
    {"sample", Place},
    {"name", Place},
    {"comment", Text},
    {"comments", Text},
    {"notes", Text},
    {"remarks", Text},
    {"description", Text},
    {"movement", Text},
    // German
    {"fallen", Dip},
    {"einfallen", Dip},
    {"fallwinkel", Dip},
    {"einfallwinkel", Dip},
    {"fallrichtung", DipDirection},
    {"einfallrichtung", DipDirection},
    {"einfallsrichtung", DipDirection},
    {"fallazimut", DipDirection},
    {"streichen", Strike},
    {"streichrichtung", Strike},
    {"abtauchen", Plunge},
    {"abtauchwinkel", Plunge},
    {"abtauchrichtung", Trend},
    {"abtauchazimut", Trend},
    {"azimut", Azimuth},
    {"richtung", Azimuth},
    {"rechtswert", Easting},
    {"hochwert", Northing},
    {"hohe", Coordinate},
    {"nummer", Identifier},
    {"machtigkeit", Number},
    {"lange", Number},
    {"abstand", Number},
    {"gestein", Text},
    {"aufschluss", Place},
    {"bemerkung", Text},
    // French
    {"pendage", Dip},
    {"directiondupendage", DipDirection},
    {"directiondependage", DipDirection},
    {"directionpendage", DipDirection},
    {"azimutdupendage", DipDirection},
    {"azimutdependage", DipDirection},
    {"azimutpendage", DipDirection},
    {"sensdupendage", Sense},
    {"sensdependage", Sense},
    {"plongement", Plunge},
    {"plongee", Plunge},
    {"directionduplongement", Trend},
    {"azimutduplongement", Trend},
    {"epaisseur", Number},
    {"longueur", Number},
    {"roche", Text},
    {"lieu", Place},
    // Spanish
    {"buzamiento", Dip},
    {"rumbo", Strike},
    {"direcciondebuzamiento", DipDirection},
    {"direccionbuzamiento", DipDirection},
    {"direcciondelbuzamiento", DipDirection},
    {"azimutdebuzamiento", DipDirection},
    {"azimutbuzamiento", DipDirection},
    {"sentidodebuzamiento", Sense},
    {"inmersion", Plunge},
    {"direcciondeinmersion", Trend},
    {"acimut", Azimuth},
    {"direccion", Azimuth},
    {"espesor", Number},
    {"longitud", Easting},
    {"latitud", Northing},
    {"roca", Text},
    // Italian
    {"inclinazione", Inclination},
    {"immersione", DipDirection},
    {"direzioneimmersione", DipDirection},
    {"direzionediimmersione", DipDirection},
    {"direzione", Azimuth},
    {"spessore", Number},
    {"lunghezza", Number},
    {"roccia", Text},
    // Portuguese
    {"mergulho", Dip},
    {"direcaodomergulho", DipDirection},
    {"direcaodemergulho", DipDirection},
    {"rumodomergulho", DipDirection},
    {"sentidodomergulho", Sense},
    {"caimento", Plunge},
    {"direcaodocaimento", Trend},
    {"direcao", Azimuth},
    {"espessura", Number},
    {"comprimento", Number},
    {"rocha", Text},
    // Russian
    {"падение", Dip},
    {"уголпадения", Dip},
    {"азимутпадения", DipDirection},
    {"простирание", Strike},
    {"азимутпростирания", Strike},
    {"погружение", Plunge},
    {"уголпогружения", Plunge},
    {"азимутпогружения", Trend},
    {"азимут", Azimuth},
    {"мощность", Number},
    {"порода", Text},
    // Chinese and Japanese
    {"倾角", Dip},
    {"倾向", DipDirection},
    {"走向", Strike},
    {"倾伏角", Plunge},
    {"倾伏向", Trend},
    {"侧伏角", Pitch},
    {"方位角", Azimuth},
    {"傾斜", Dip},
    {"傾斜角", Dip},
    {"傾斜方向", DipDirection},
    {"傾斜方位", DipDirection},
    {"沈下角", Plunge},
    {"沈下方向", Trend},
    {"方位", Azimuth},
    {"岩石", Text},
});

struct Plain {
    std::string_view from;
    std::string_view to;
};

constexpr auto kPlainLetters = std::to_array<Plain>({
    {"á", "a"}, {"à", "a"}, {"â", "a"}, {"ã", "a"}, {"ä", "a"},  {"å", "a"}, {"é", "e"},
    {"è", "e"}, {"ê", "e"}, {"ë", "e"}, {"í", "i"}, {"ì", "i"},  {"î", "i"}, {"ï", "i"},
    {"ó", "o"}, {"ò", "o"}, {"ô", "o"}, {"õ", "o"}, {"ö", "o"},  {"ú", "u"}, {"ù", "u"},
    {"û", "u"}, {"ü", "u"}, {"ç", "c"}, {"ñ", "n"}, {"ß", "ss"}, {"°", " "}, {"º", " "},
});

/// Units that stand in headings.
constexpr auto kUnits = std::to_array<std::string_view>(
    {"deg", "degs", "degree", "degrees", "grad", "m", "cm", "mm", "km", "ft"});

bool IsLetterOrDigit(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')
           || static_cast<unsigned char>(c) >= 0x80U;
}

std::vector<std::string> WordsOf(const std::string& plain) {
    std::vector<std::string> words(1);
    for (const char c : plain) {
        if (c == ' ') {
            words.emplace_back();
        } else {
            words.back() += c;
        }
    }
    return words;
}

HeadingMeaning MeaningOfTerm(std::string_view words) {
    const auto* const found = std::ranges::find(kTerms, words, &Term::words);
    return found != kTerms.end() ? found->meaning : None;
}

} // namespace

std::string PlainHeading(std::string_view heading) {
    std::string lower = LowerCase(std::string(heading));
    for (const auto& [from, to] : kPlainLetters) {
        for (std::size_t at = lower.find(from); at != std::string::npos; at = lower.find(from)) {
            lower.replace(at, from.size(), to);
        }
    }
    std::ranges::replace_if(
        lower, [](char c) { return !IsLetterOrDigit(c); }, ' ');
    std::string plain;
    for (const std::string& word : WordsOf(lower)) {
        if (!word.empty() && std::ranges::find(kUnits, word) == kUnits.end()) {
            plain += (plain.empty() ? "" : " ") + word;
        }
    }
    return plain;
}

HeadingMeaning MeaningOfHeading(std::string_view heading) {
    constexpr std::size_t kMostWords = 8;
    std::vector<std::string> words = WordsOf(PlainHeading(heading));
    words.resize(std::min(words.size(), kMostWords));
    for (std::size_t count = words.size(); count > 0; --count) {
        for (std::size_t first = 0; first + count <= words.size(); ++first) {
            std::string joined;
            for (std::size_t i = first; i < first + count; ++i) {
                joined += words[i];
            }
            if (const HeadingMeaning meaning = MeaningOfTerm(joined); meaning != None) {
                return meaning;
            }
        }
    }
    return None;
}

} // namespace quandrel
