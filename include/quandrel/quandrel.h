// SPDX-License-Identifier: MIT
//
// The interface of Quandrel's engine for other programs: values in, values out.
//
// These conventions hold in all of these headers:
//   - Angles are degrees, in and out. Azimuths run clockwise from north; plunge and dip count
//     downward from the horizontal. Vectors are along north, east and down.
//   - Functions keep no state: they read and write only their arguments, and may be called from
//     any number of threads at once.
//   - Arrays are passed as std::span and are not copied where that can be avoided. Lines, planes,
//     vectors and points of the net are two or three doubles in a row, so that an array of n x 2 or
//     n x 3 doubles is a span of them. Results of arrays are written into a span of the caller's,
//     of the same length.
//   - A question without an answer gives an empty std::optional. Invalid arguments (a plunge beyond
//     90, a value that is not finite, spans of different lengths) throw std::invalid_argument with
//     a text that names the value. Too little memory throws std::bad_alloc. Nothing else is thrown.
//     Input from outside that may be invalid, such as the bytes of a plot file, gives a Result: a
//     value, or a text that says why there is none.
//   - Statistics and geometry use unrounded values. Functions that count lines in cones or azimuths
//     in sectors (density.h, rose.h) count them at their nearest whole degrees, like the program in
//     a plot that does not use decimals.
//
// Example: poles of beds, the plane of their mean axis, and their density.
//
//     namespace qd = quandrel::api;
//     const std::vector<qd::Plane> beds = {{38, 118}, {42, 118}, {38, 122}, {42, 122}};
//     std::vector<qd::Line> poles(beds.size());
//     qd::PolesOf(beds, poles);
//     const std::optional<qd::Fabric> fabric = qd::FabricOf(poles);
//     std::cout << qd::TextOf(qd::PlaneOfPole(fabric->axes[2])) << '\n'; // -> 40/120
//     const auto field = qd::DensityFieldOf(poles, qd::Projection::kEqualArea, 100);
//     std::cout << qd::GreatestDensity(field) << '\n'; // -> 100

#pragma once

#include "quandrel/circular.h"
#include "quandrel/classes.h"
#include "quandrel/density.h"
#include "quandrel/drawing.h"
#include "quandrel/fabric.h"
#include "quandrel/figure.h"
#include "quandrel/intersections.h"
#include "quandrel/kinematics.h"
#include "quandrel/net.h"
#include "quandrel/notation.h"
#include "quandrel/orientation.h"
#include "quandrel/plot_file.h"
#include "quandrel/region.h"
#include "quandrel/result.h"
#include "quandrel/rose.h"
#include "quandrel/rotation.h"
#include "quandrel/row_tests.h"
#include "quandrel/smooth_density.h"
#include "quandrel/suggest.h"
#include "quandrel/summary.h"
#include "quandrel/surface.h"
#include "quandrel/svg.h"
#include "quandrel/table.h"
#include "quandrel/version.h"
#include "quandrel/workspace.h"
