// SPDX-License-Identifier: MIT

#include "rose/circular_median.h"

#include "orientation/angles.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace quandrel {

namespace {

/// Angles that differ by less are equal.
constexpr double kRounding = 1e-9;

/// Share of the count by which two halves may differ through rounding of weights.
constexpr double kHalfMargin = 1e-9;

/// An angle by its distance from the antipode. Equal ones keep their order.
struct Place {
    double way = 0;
    std::size_t index = 0;

    friend bool operator<(const Place& a, const Place& b) {
        return a.way != b.way ? a.way < b.way : a.index < b.index;
    }
};

double Worked(double angle, AngleSense sense) {
    return sense == AngleSense::kAxial ? WrappedAngle(2 * angle) : angle;
}

double AntipodeOf(double meanDirection, AngleSense sense) {
    return WrappedAngle(Worked(meanDirection, sense) + kPi);
}

/// A median at north is given as a full turn, to distinguish it from kNoMedian.
double AsMedian(double angle, AngleSense sense) {
    const double median = WrappedAngle(angle);
    if (median < kRounding || median > kTwoPi - kRounding) {
        return kTwoPi;
    }
    return sense == AngleSense::kAxial ? median / 2 : median;
}

std::vector<Place> PlacesOf(std::span<const double> angles, double antipode, AngleSense sense) {
    std::vector<Place> places(angles.size());
    for (std::size_t i = 0; i < angles.size(); ++i) {
        places[i] = {WayFromAntipode(antipode, Worked(angles[i], sense)), i};
    }
    return places;
}

double DistanceOf(double angle, double median, AngleSense sense) {
    const double difference = Worked(std::abs(angle - median), sense);
    return kPi - std::abs(kPi - difference);
}

double MeanOfSum(double sum, double count, AngleSense sense) {
    if (count == 0) {
        return 0;
    }
    return sense == AngleSense::kAxial ? sum / count / 2 : sum / count;
}

} // namespace

double WayFromAntipode(double antipode, double angle) {
    double way = angle - antipode;
    if (way < 0) {
        way += kTwoPi;
    }
    return way > kTwoPi - kRounding ? 0 : way;
}

double CircularMedian(std::span<const double> angles, double meanDirection, AngleSense sense) {
    if (angles.empty()) {
        return kNoMedian;
    }
    std::vector<Place> places = PlacesOf(angles, AntipodeOf(meanDirection, sense), sense);
    const auto middle = places.begin() + static_cast<std::ptrdiff_t>(places.size() / 2);
    std::nth_element(places.begin(), middle, places.end());
    if (places.size() % 2 == 1) {
        return AsMedian(Worked(angles[middle->index], sense), sense);
    }
    const Place before = *std::max_element(places.begin(), middle);
    const double halfWay = (middle->way - before.way) / 2;
    return AsMedian(Worked(angles[before.index], sense) + halfWay, sense);
}

double GroupedCircularMedian(std::span<const AngleCount> groups, double meanDirection,
                             AngleSense sense) {
    const double antipode = AntipodeOf(meanDirection, sense);
    std::vector<Place> places;
    double total = 0;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        places.push_back({WayFromAntipode(antipode, Worked(groups[i].angle, sense)), i});
        total += groups[i].count;
    }
    std::sort(places.begin(), places.end());
    const double half = total / 2;
    const double margin = kHalfMargin * total;
    double reached = 0;
    const Place* before = nullptr; // half of the count ends here
    for (const Place& place : places) {
        const AngleCount& group = groups[place.index];
        if (!(group.count > 0)) {
            continue;
        }
        if (before != nullptr) {
            const double halfWay = (place.way - before->way) / 2;
            return AsMedian(Worked(groups[before->index].angle, sense) + halfWay, sense);
        }
        reached += group.count;
        if (reached > half + margin) {
            return AsMedian(Worked(group.angle, sense), sense);
        }
        before = reached >= half - margin ? &place : nullptr;
    }
    return kNoMedian;
}

double CircularMeanDeviation(std::span<const double> angles, double median, AngleSense sense) {
    double sum = 0;
    for (const double angle : angles) {
        sum += DistanceOf(angle, median, sense);
    }
    return MeanOfSum(sum, static_cast<double>(angles.size()), sense);
}

double CircularMeanDeviation(std::span<const AngleCount> groups, double median, AngleSense sense) {
    double sum = 0;
    double count = 0;
    for (const AngleCount& group : groups) {
        sum += group.count * DistanceOf(group.angle, median, sense);
        count += group.count;
    }
    return MeanOfSum(sum, count, sense);
}

} // namespace quandrel
