// SPDX-License-Identifier: MIT

#include "quandrel/plot_file.h"

#include "border/plot_columns.h"
#include "core/atomic_file.h"
#include "persistence/binary_plot_file.h"
#include "persistence/plot_file_bytes.h"
#include "persistence/plot_of_file.h"

namespace quandrel::api {

namespace {

template <class Value>
Result<Plot> PublicPlot(quandrel::Result<Value> read) {
    if (!read) {
        return Failure{read.Error()};
    }
    return PlotOut(std::move(*read));
}

} // namespace

Result<Plot> ReadPlot(std::string_view bytes) {
    return PublicPlot(ReadBinaryPlot(bytes));
}

Result<Plot> ReadPlotFile(const std::string& path) {
    return PublicPlot(ReadBinaryPlotFile(path));
}

Result<std::string> PlotBytes(const Plot& plot) {
    quandrel::Plot inner;
    if (!TakeBinaryPlot(PlotIn(plot), inner)) {
        return Failure{"There is not enough memory for it."};
    }
    quandrel::Result<std::string> bytes = PlotFileBytes(inner);
    if (!bytes) {
        return Failure{bytes.Error()};
    }
    return std::move(*bytes);
}

Result<std::size_t> WritePlotFile(const Plot& plot, const std::string& path) {
    const Result<std::string> bytes = PlotBytes(plot);
    if (!bytes) {
        return Failure{bytes.Error()};
    }
    const std::string error = WriteFileAtomically(path, *bytes);
    return error.empty() ? Result<std::size_t>(bytes->size()) : Failure{error};
}

} // namespace quandrel::api
