// SPDX-License-Identifier: MIT
//
// The line parser over a text of rows "dip TAB dip direction TAB number TAB text", and its floor:
// the same four columns read only with std::from_chars and memchr.

#include "input/data_line.h"
#include "input/text_file.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <string_view>

namespace quandrel {
namespace {

std::string RowsOfPlanes(std::int64_t rows) {
    constexpr const char* kRockTypes[] = {"limestone", "marl", "sandstone", "chert", "schist"};
    std::mt19937 random(20251121);
    std::string text;
    for (std::int64_t row = 0; row < rows; ++row) {
        text += std::to_string(random() % 91) + '\t' + std::to_string(random() % 361) + '\t';
        text += std::to_string(random() % 100) + '.' + std::to_string(random() % 100) + '\t';
        text += kRockTypes[random() % 5];
        text += '\n';
    }
    return text;
}

LineFormat PlanesWithNumberAndText() {
    LineFormat format;
    format.wantNumber = true;
    format.wantText = true;
    format.slots[kSlotNumber] = 2;
    format.slots[kSlotText] = 3;
    format.neededColumns = HighestColumnNeeded(format) + 1;
    return format;
}

void CountWork(benchmark::State& state, const std::string& text) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void LinesParsed(benchmark::State& state, const LineFormat& format) {
    const std::string text = RowsOfPlanes(state.range(0));
    for (auto _ : state) {
        LineReader reader(text);
        double sum = 0;
        std::size_t letters = 0;
        for (std::string_view line; reader.Next(line);) {
            const ParsedRow row = ParseLine(line, format);
            sum += row.dip + row.az + row.number;
            letters += std::string_view(row.text).size();
        }
        benchmark::DoNotOptimize(sum);
        benchmark::DoNotOptimize(letters);
    }
    CountWork(state, text);
}

void ParsedByTab(benchmark::State& state) {
    LinesParsed(state, PlanesWithNumberAndText());
}

void ParsedByAny(benchmark::State& state) {
    LineFormat format = PlanesWithNumberAndText();
    format.delimiter = kAnyDelimiter;
    LinesParsed(state, format);
}

// Four columns without any checks.
void FromCharsFloor(benchmark::State& state) {
    const std::string text = RowsOfPlanes(state.range(0));
    for (auto _ : state) {
        const char* p = text.data();
        const char* const end = p + text.size();
        double sum = 0;
        std::size_t letters = 0;
        while (p < end) {
            int dip = 0;
            int azimuth = 0;
            double number = 0;
            p = std::from_chars(p, end, dip).ptr + 1;
            p = std::from_chars(p, end, azimuth).ptr + 1;
            p = std::from_chars(p, end, number).ptr + 1;
            const void* lineEnd = std::memchr(p, '\n', static_cast<std::size_t>(end - p));
            const char* const textEnd = static_cast<const char*>(lineEnd);
            sum += dip + azimuth + number;
            letters += static_cast<std::size_t>(textEnd - p);
            p = textEnd + 1;
        }
        benchmark::DoNotOptimize(sum);
        benchmark::DoNotOptimize(letters);
    }
    CountWork(state, text);
}

// Decoding the bytes of a file that is UTF-8 already.
void Decoded(benchmark::State& state) {
    const std::string text = RowsOfPlanes(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        std::string bytes = text;
        state.ResumeTiming();
        benchmark::DoNotOptimize(DecodeText(std::move(bytes)));
    }
    CountWork(state, text);
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(FromCharsFloor)->Apply(Sizes);
BENCHMARK(ParsedByTab)->Apply(Sizes);
BENCHMARK(ParsedByAny)->Apply(Sizes);
BENCHMARK(Decoded)->Apply(Sizes);

} // namespace
} // namespace quandrel
