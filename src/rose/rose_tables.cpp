// SPDX-License-Identifier: MIT

#include "rose/rose_tables.h"

namespace quandrel {

RoseSectorTable gRoseSectors;
RoseSectorStats gRoseSectorStats;
RoseTrigSums gRoseTrigSums{};
std::vector<double> gRoseAngles;
std::vector<AngleCount> gRoseAzimuths;
RoseRadiiTable gRoseRadii;
double gRoseTotal = 0;
bool gRoseDirectional = false;
double gRoseStartMath = 0;
bool gRoseOddAsked = false;
std::int32_t gRoseLeftOut = 0;
int gRoseTablesSlot = 0;

} // namespace quandrel
