// SPDX-License-Identifier: MIT

#include "core/number_statistics.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace quandrel {

std::optional<NumberStatistics> StatisticsOfNumbers(std::span<const double> numbers) {
    if (numbers.empty()) {
        return std::nullopt;
    }
    NumberStatistics result;
    result.least = numbers.front();
    result.greatest = numbers.front();
    double squares = 0;
    for (const double number : numbers) {
        ++result.count;
        const double step = number - result.mean;
        result.mean += step / static_cast<double>(result.count);
        squares += step * (number - result.mean);
        result.least = std::min(result.least, number);
        result.greatest = std::max(result.greatest, number);
    }
    if (result.count > 1) {
        result.standardDeviation = std::sqrt(squares / static_cast<double>(result.count - 1));
    }
    return result;
}

std::size_t CountDistinctNumbers(std::span<const double> numbers) {
    std::vector<double> sorted(numbers.begin(), numbers.end());
    std::ranges::sort(sorted);
    return static_cast<std::size_t>(std::unique(sorted.begin(), sorted.end()) - sorted.begin());
}

} // namespace quandrel
