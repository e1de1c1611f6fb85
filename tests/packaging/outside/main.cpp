// SPDX-License-Identifier: MIT
//
// Uses a function of each kind of an installed library.

#include <quandrel/quandrel.h>

#include <iostream>
#include <vector>

int main() {
    namespace qd = quandrel::api;
    if (qd::ApiVersion() != QUANDREL_API_VERSION) {
        std::cerr << "library and headers do not belong together\n";
        return 1;
    }
    // Beds of a cylindrical fold whose axis plunges 20 degrees to the east.
    std::vector<qd::Line> poles;
    for (int pitch = 0; pitch < 180; pitch += 15) {
        poles.push_back(qd::RotatedLine({70, 270}, {20, 90}, pitch));
    }
    const auto fabric = qd::FabricOf(poles);
    const auto field = qd::DensityFieldOf(poles, qd::Projection::kEqualArea, 50);
    const auto contours = qd::ContoursOf(field, qd::UsualLevels(field));
    std::vector<double> azimuths;
    for (const qd::Line& pole : poles) {
        azimuths.push_back(pole.trend);
    }
    const auto circular = qd::CircularStatisticsOf(azimuths, qd::Sense::kAxes);
    const auto rose = qd::RoseOf(azimuths);
    const auto axes = qd::KinematicAxesOf({{60, 90}, {60, 90}});
    qd::Plot plot;
    plot.rowsAs = qd::RowsAs::kContours;
    plot.rows.planes = {{60, 90}, {62, 95}};
    qd::Recording net({550, 550});
    qd::Recording legend({160, 400});
    qd::DrawPlot(plot, {.plot = net, .legend = legend, .title = "beds"});
    const bool isWhole = !contours.empty() && circular && rose.count == 12 && axes
                         && qd::ClassOf(2, qd::EqualRanges(0, 9, 3)) == 1
                         && net.Operations().size() > 3
                         && legend.Operations().at(0).text == "Data: beds";
    std::cout << qd::TextOf(fabric->axes[0]) << (isWhole ? " whole" : " broken") << '\n';
    return 0;
}
