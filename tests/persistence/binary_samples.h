// SPDX-License-Identifier: MIT
//
// Sample plots for the tests of binary plot files.

#pragma once

#include "persistence/old_plot_writer.h"

#include <string>
#include <vector>

namespace quandrel {

struct OldVersion {
    int tenths = 0;
    std::string full; ///< of field 48
    std::string file; ///< name of the kept sample
};

inline std::vector<OldVersion> OldVersions() {
    return {{70, "", "version_7_0.qpx"},      {71, "", "version_7_1.qpx"},
            {80, "", "version_8_0.qpx"},      {90, "", "version_9_0.qpx"},
            {91, "", "version_9_1.qpx"},      {92, "", "version_9_2.qpx"},
            {94, "9.4  ", "version_9_4.qpx"}, {94, "9.44 ", "version_9_44.qpx"},
            {95, "9.51 ", "version_9_5.qpx"}};
}

/// Planes with lines in them, all three appended columns, an error row, two overlays, a grid,
/// annotations.
inline OldPlot SampleOfVersion(const OldVersion& version) {
    OldPlot plot;
    plot.version = version.tenths;
    plot.fullVersion = version.full;
    plot.secondary = 3;
    plot.hasLine = true;
    plot.hasNumber = true;
    plot.hasText = true;
    plot.rows = {{30, 120, 20, 80, 10, 90, 1.5F, "12.5", "000106"},
                 {45, 270, -9999, -9999, -99, 0, -9999.0F, "7", "000106"},
                 {-9999, 0, 0, 0, 0, 0, 0, "0", "000000"},
                 {80, 5, 11, 15, 5, 15, 300, "-3", "030206"}};
    plot.overlays = {
        {1, {{10, 20, 1, 2, 0, 0, 0, "", "010106"}}},
        {3, {{-20, 30, 0, 0, 0, 0, 0, "", "020106"}, {21, 31, 0, 0, 0, 0, 0, "", "020106"}}}};
    plot.gridSize = 10;
    plot.marks = {{{10, -20, 3, 4, 5, 0, 7}, {}}, {{1, 2, 0, 4, 2, 1, 0}, {{5, 6}, {-7, 8}}}};
    return plot;
}

} // namespace quandrel
