// SPDX-License-Identifier: MIT

#include "derive/measured_line.h"

#include "orientation/angles.h"

#include <cmath>

namespace quandrel {

namespace {

void KeepMeasured(RowAngles which, const Attitude& whole, const MeasuredValues& measured,
                  RowValues& values) {
    const auto place = static_cast<std::size_t>(which);
    if (measured[place] && *measured[place] != whole) {
        values.measured[place] = measured[place];
    }
}

} // namespace

bool StoreMeasuredRow(Plot& plot, const ParsedRow& whole, const MeasuredValues& measured,
                      const RowTarget& target) {
    const RowForm form = FormOfRows(plot.record, target);
    RowFaults faults;
    RowValues values = ValuesOfRow(whole, form, faults);
    if (values.isData) {
        KeepMeasured(RowAngles::Primary, {values.dip, values.azimuth}, measured, values);
        KeepMeasured(RowAngles::Line, {values.lineDip, values.lineAzimuth}, measured, values);
        const auto& primary = values.measured[static_cast<std::size_t>(RowAngles::Primary)];
        if (form.usesDecimals && primary) {
            values.place = PlottedOrientation(form.plotKind, form.isPlottedAsPole, 0, *primary);
        }
    }
    return AppendRow(plot, target.overlay, values);
}

Attitude MeasuredLine(double plunge, double trend) {
    const Attitude line = ToMicrodegree(Attitude{RadToDeg(plunge), RadToDeg(trend)});
    return {line.dip, std::fmod(line.azimuth, 360)};
}

} // namespace quandrel
