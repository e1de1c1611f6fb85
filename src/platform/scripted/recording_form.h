// SPDX-License-Identifier: MIT
//
// A plot window that is not shown: it keeps its texts and records what is drawn on it.

#pragma once

#include "platform/plot_form.h"
#include "platform/scripted/recording_surface.h"

#include <map>

namespace quandrel {

class RecordingForm : public PlotForm {
public:
    [[nodiscard]] Surface& PlotSurface() override { return plot_; }

    [[nodiscard]] Surface& LegendSurface() override { return legend_; }

    void SetCaption(const std::string& caption) override { caption_ = caption; }

    [[nodiscard]] const std::string& Caption() const { return caption_; }

    void SetBoxText(PlotBox box, const std::string& text) override { boxes_[box] = text; }

    /// The last text set for a box.
    [[nodiscard]] std::string Told(PlotBox box) const {
        const auto text = boxes_.find(box);
        return text == boxes_.end() ? std::string() : text->second;
    }

    [[nodiscard]] WindowPlace Place() const override { return place_; }

    void SetPlace(const WindowPlace& place) override { place_ = place; }

    void PlaceBeside(const PlotForm& neighbour) override { neighbour_ = &neighbour; }

    void Show() override { ++timesShown_; }

    void Raise() override { ++timesRaised_; }

    void Close() override {}

    [[nodiscard]] const RecordingSurface& Plot() const { return plot_; }

    [[nodiscard]] const RecordingSurface& Legend() const { return legend_; }

    /// The window that this one was last placed beside.
    [[nodiscard]] const PlotForm* Neighbour() const { return neighbour_; }

    [[nodiscard]] int TimesShown() const { return timesShown_; }

    [[nodiscard]] int TimesRaised() const { return timesRaised_; }

private:
    RecordingSurface plot_{1000, 1000};
    RecordingSurface legend_{220, 400};
    std::string caption_;
    std::map<PlotBox, std::string> boxes_;
    WindowPlace place_{0, 0, 0, 0, 0};
    const PlotForm* neighbour_ = nullptr;
    int timesShown_ = 0;
    int timesRaised_ = 0;
};

} // namespace quandrel
