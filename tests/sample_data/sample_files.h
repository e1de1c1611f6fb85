// SPDX-License-Identifier: MIT
//
// The published sample data: what the format of each file is, and what a load of it must give. The
// expectations were worked out by a separate program that reads the files with plain text splitting
// and vector algebra; sums stand for the rows.

#pragma once

#include "core/data_format.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace quandrel {

/// All rows of data added up.
struct Sums {
    int dip = 0;
    int az = 0;
    int dip2 = 0;
    int az2 = 0;
    double number = 0;
    int emptyTexts = 0;
};

/// What the format says of a file; the columns in the order of the slots.
struct Format {
    std::int16_t primary = kPrimaryPlane;
    std::int16_t secondary = kNoSecondary;
    std::int16_t conventions = 1;
    const char* delimiter = ",";
    ColumnSettings columns{};
    bool heading = false;
    bool number = false;
    bool text = false;
    std::int16_t dataKind = kPlanes;
};

struct Counts {
    std::int32_t read = 0; ///< all lines but the heading
    std::int32_t valid = 0;
    std::int32_t blank = 0;   ///< comments, blank lines, parameter lines, titles
    std::int32_t invalid = 0; ///< lines that hold digits and are not data
    std::int32_t badNumbers = 0;
};

struct SampleFile {
    const char* name = "";
    Format format;
    Counts counts;
    Sums sums;
    std::vector<const char*> boxes; ///< parts of the boxes shown, in their order
};

inline constexpr const char* kFoliation = "foliation_dipdir_dip.csv";
inline constexpr const char* kLineations = "lineation_trend_plunge.csv";
inline constexpr const char* kLineationsQuadrant = "lineation_quadrant.txt";
inline constexpr const char* kCreteFaults = "crete_normal_faults_1979.txt";
inline constexpr const char* kLofotenFaults = "lofoten_faults_rhr.txt";
inline constexpr const char* kLofotenParameters = "lofoten_faults_parameter_line.txt";
inline constexpr const char* kBeddingSense = "bedding_cleavage_strike_dip_sense.txt";
inline constexpr const char* kBeddingQuadrant = "bedding_cleavage_dip_sense_quadrant.txt";
inline constexpr const char* kMixed = "structures_mixed.csv";
inline constexpr const char* kTraces = "trace_lengths.txt";
inline constexpr const char* kTracesComma = "trace_lengths_decimal_comma.txt";

inline constexpr const char* kNonData = "non-data (blank, comments, etc.) lines were found";
inline constexpr const char* kBadNumbers = "found to contain invalid appended numeric data";

inline std::vector<SampleFile> PlanesAndLines() {
    return {
        {kFoliation,
         {kPrimaryPlane, 0, 2, ",", {1, 0, 0, 0, 0, 0, 0, 0, 2, 3}, true, true, true, kPlanes},
         {200, 200, 0, 0, 0},
         {11796, 38321, 0, 0, 898, 0},
         {}},
        // Six qualities are "NA".
        {kLineations,
         {kPrimaryLine, 0, 11, ",", {1, 0, 0, 0, 0, 0, 0, 0, 2, 3}, true, true, true, kLines},
         {84, 84, 0, 0, 6},
         {1363, 7272, 0, 0, 343, 0},
         {kBadNumbers}},
        {kLineationsQuadrant,
         {kPrimaryLine, 0, -1, " ", {0, 1, 0, 0, 0, 0, 0, 0, 0, 2}, false, false, true, kLines},
         {87, 84, 3, 0, 0},
         {1363, 7272, 0, 0, 0, 0},
         {kNonData}},
        {"joints_dip_dipdir.txt", // one direction is 364
         {kPrimaryPlane, 0, 1, ",", {0, 1}, false, false, false, kPlanes},
         {200, 199, 0, 1, 0},
         {12776, 41855},
         {"line of invalid orientation data", "1 invalid data have been detected"}},
        {kBeddingSense,
         {kPrimaryPlane, 0, 3, "\t", {1, 0, 2, 0, 0, 0, 0, 0, 0, 4}, true, false, true, kPlanes},
         {16, 16, 0, 0, 0},
         {882, 2793, 0, 0, 0, 0},
         {}},
        {kBeddingQuadrant,
         {kPrimaryPlane, 0, -4, "", {0, 1, 0, 0, 0, 0, 0, 0, 0, 2}, false, false, true, kPlanes},
         {20, 16, 4, 0, 0},
         {882, 2793, 0, 0, 0, 0},
         {kNonData}},
        // As planes; the file holds lines, too.
        {kMixed,
         {kPrimaryPlane, 0, 2, ",", {3, 2, 0, 0, 0, 0, 0, 0, 0, 1}, true, false, true, kPlanes},
         {253, 253, 0, 0, 0},
         {7072, 37531, 0, 0, 0, 0},
         {}},
        {"stylolites_semicolon.csv",
         {kPrimaryPlane, 0, 6, ";", {3, 2, 0, 0, 0, 0, 0, 0, 4, 1}, true, true, true, kPlanes},
         {84, 84, 0, 0, 0},
         {7560, 15068, 0, 0, 80.0696398, 0},
         {}},
    };
}

inline std::vector<SampleFile> PlanesWithLines() {
    return {
        // Five lines of the heading begin with "#", one of them holds a year; five rows have an
        // azimuth where the others have a pitch with its sense.
        {kCreteFaults,
         {kPrimaryPlane, kPitchInPlane, 3, "\t", {1, 0, 1, 0, 2, 2}, false, false, false, kPlanes},
         {43, 33, 4, 6, 0},
         {2149, 6305, 1958, 6690},
         {"does not appear to contain that many columns", "6 invalid data have been detected"}},
        {kLofotenFaults, // a blank line after each row except the last
         {kPrimaryPlane, kSecondaryLine, 16, "\t", {1, 0, 0, 3, 2}, false, false, false, kPlanes},
         {395, 198, 197, 0, 0},
         {13016, 44423, 9968, 42885},
         {"197 non-data"}},
        // The file's own parameter line states all but the columns.
        {kLofotenParameters,
         {kPrimaryLine, 0, 1, "\t", {1, 0, 0, 3, 2}, false, true, true, kLines},
         {201, 198, 3, 0, 0},
         {13016, 44423, 9968, 42885},
         {"3 non-data"}},
        {"foliation_lineation_pairs.csv",
         {kPrimaryPlane,
          kSecondaryLine,
          12,
          ",",
          {2, 1, 0, 4, 3, 0, 0, 0, 5, 7},
          true,
          true,
          true,
          kPlanes},
         {323, 323, 0, 0, 71},
         {23564, 77975, 5472, 38125, 1189, 70},
         {kBadNumbers}},
        {"foliation_lineation_pairs.csv", // the text of the lines in place of the planes'
         {kPrimaryPlane,
          kSecondaryLine,
          12,
          ",",
          {2, 1, 0, 4, 3, 0, 0, 0, 5, 6},
          true,
          true,
          true,
          kPlanes},
         {323, 323, 0, 0, 71},
         {23564, 77975, 5472, 38125, 1189, 0},
         {kBadNumbers}},
    };
}

inline std::vector<SampleFile> DirectionFiles() {
    return {
        {kTraces,
         {kDirections, 0, 1, "\t", {0, 0, 0, 0, 0, 0, 0, 0, 1}, true, true, false, kLines},
         {240, 240, 0, 0, 0},
         {0, 22778, 0, 0, 460.687, 0},
         {}},
        {"islay_palaeocurrents.txt",
         {kDirections, 0, 1, "", {}, true, false, false, kPolarLines},
         {18, 18, 0, 0, 0},
         {0, 2870},
         {}},
        {"urban_wind_hourly_1998_01.csv", // one row has no speed
         {kDirections, 0, 1, ",", {0, 1, 0, 0, 0, 0, 0, 0, 2}, true, true, false, kPolarLines},
         {744, 744, 0, 0, 1},
         {0, 123230, 0, 0, 3780.96, 0},
         {kBadNumbers}},
        {"offshore_wind_rose.txt",
         {kDirections, 0, 1, " ", {0, 0, 0, 0, 0, 0, 0, 0, 2, 1}, true, true, true, kPolarLines},
         {72, 72, 0, 0, 0},
         {0, 12780, 0, 0, 1.0, 0},
         {}},
        {"offshore_wind_rose_table.txt",
         {kDirections, 0, 1, "\t", {0, 0, 0, 0, 0, 0, 0, 0, 2, 1}, true, true, true, kPolarLines},
         {72, 72, 0, 0, 0},
         {0, 12780, 0, 0, 100.0, 0},
         {}},
    };
}

/// Its numbers need a decimal comma; a title, a comment and a blank line in front, and two lines
/// without data after every 60 rows.
inline SampleFile TracesWithComma() {
    return {kTracesComma,
            {kDirections, 0, 1, ";", {0, 0, 0, 0, 0, 0, 0, 0, 1}, false, true, false, kLines},
            {251, 240, 11, 0, 0},
            {0, 22778, 0, 0, 460.687, 0},
            {"11 non-data"}};
}

inline std::vector<SampleFile> AllFiles() {
    std::vector<SampleFile> files = PlanesAndLines();
    for (const std::vector<SampleFile>& more : {PlanesWithLines(), DirectionFiles()}) {
        files.insert(files.end(), more.begin(), more.end());
    }
    return files;
}

inline SampleFile FileNamed(const std::string& name) {
    for (const SampleFile& file : AllFiles()) {
        if (name == file.name) {
            return file;
        }
    }
    ADD_FAILURE() << name;
    return {};
}

inline std::string PathOf(const std::string& name) {
    return std::string(QUANDREL_SAMPLE_DATA "/") + name;
}

inline std::vector<std::string> LinesOf(const std::string& name) {
    std::ifstream file(PathOf(name));
    EXPECT_TRUE(file.is_open()) << name;
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}

} // namespace quandrel
