// SPDX-License-Identifier: MIT

#include "stereo/plot_title.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/row_links.h"
#include "stereo/axis_rows.h"

namespace quandrel {

std::string TitleOfPlot() {
    const PlotRecord& record = ActiveRecord();
    std::string title = record.PlotTitle + "   [";
    if (record.ShowSecondary != 0) {
        title += "2nd ";
    } else if (record.SecondaryFormat > 0) {
        title += "1st ";
    }
    if (!record.AxesTitle.empty()) {
        return title + record.AxesTitle + " axes"
               + (AssumedSense(record) ? ", sense assumed]" : "]");
    }
    // The trailing blanks give all captions the same width.
    switch (record.DataKind) {
    case kLines:
        return title + "Lines]      ";
    case kPolarLines:
        return title + "Polar Lines]";
    default:
        return title + "Planes]     ";
    }
}

std::string CaptionOfPlot() {
    std::string title = TitleOfPlot();
    const std::string table = FollowerOfRows().linkedTable(gActivePlot);
    if (ActiveRecord().MapInfoLinked != 0 && !table.empty()) {
        title += " {Linked to: " + table + "}";
    }
    return title;
}

void UpdateTitle() {
    FormOf(gActivePlot).SetCaption(CaptionOfPlot());
}

} // namespace quandrel
