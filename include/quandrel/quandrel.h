// SPDX-License-Identifier: MIT
//
// The interface of Quandrel's engine for other programs: values in, values out.
//
// What holds in all of these headers:
//   - Angles are degrees, in and out. Azimuths run clockwise from north; plunge and dip count
//     downward from the horizontal. Vectors are along north, east and down.
//   - Functions keep nothing: they read and write no state but their arguments, and may be called
//     from any number of threads at once.
//   - Arrays come as std::span and are not copied where that can be helped. Lines, planes, vectors
//     and points of the net are two or three doubles in a row, so that an array of n x 2 or n x 3
//     doubles is a span of them.
//     Arrays that are made of arrays are written into a span of the caller's, of the same length.
//   - A question without an answer gives an empty std::optional. Arguments that break what is said
//     of them (a plunge beyond 90, a value that is not finite, spans of different lengths) throw
//     std::invalid_argument, whose text names the value; too little memory throws std::bad_alloc.
//     Nothing else is thrown.
//   - Statistics and geometry take values as they are. What counts lines in cones or azimuths in
//     sectors (density.h, rose.h) counts them at their nearest whole degrees, as the program does.
//
// Example: poles of beds, the plane of their mean axis, and how densely they lie.
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
#include "quandrel/fabric.h"
#include "quandrel/intersections.h"
#include "quandrel/kinematics.h"
#include "quandrel/net.h"
#include "quandrel/notation.h"
#include "quandrel/orientation.h"
#include "quandrel/rose.h"
#include "quandrel/rotation.h"
#include "quandrel/table.h"
#include "quandrel/version.h"
