// SPDX-License-Identifier: MIT
//
// A printer that records what is printed.

#pragma once

#include "platform/printer_port.h"
#include "platform/scripted/recording_surface.h"

#include <deque>
#include <functional>
#include <utility>

namespace quandrel {

/// A rectangle of a page with what was drawn in it.
struct RecordedPart {
    PageRect rect;
    RecordingSurface surface;
};

struct RecordedPage {
    std::string title;
    std::string path;
    std::deque<RecordedPart> parts;
    bool isSent = false;
};

class RecordingPrinter : public PrinterPort {
public:
    [[nodiscard]] std::vector<std::string> Printers() const override { return printers; }

    [[nodiscard]] std::string DefaultPrinter() const override { return defaultPrinter; }

    [[nodiscard]] PrinterChoice Chosen() const override { return chosen; }

    [[nodiscard]] Sheet Paper() const override { return paper; }

    bool SetUp() override {
        ++timesSetUp;
        return onSetUp ? onSetUp() : false;
    }

    [[nodiscard]] std::unique_ptr<PrintedPage> StartPage(const std::string& title,
                                                         const std::string& path) override {
        if (!hasPaper) {
            return nullptr;
        }
        pages.push_back({title, path, {}, false});
        return std::make_unique<Page>(pages.back(), takesPages, onSurface);
    }

    std::vector<std::string> printers = {"Office", "Plotter"};
    std::string defaultPrinter = "Office";
    PrinterChoice chosen{"Office", "room 3", false};
    Sheet paper{210, 297, 5};
    bool hasPaper = true;            ///< false: no page can be started
    bool takesPages = true;          ///< false: no page can be sent
    std::function<bool()> onSetUp;   ///< what the user does in the printer's dialog
    std::function<void()> onSurface; ///< called before each surface of a page is returned
    int timesSetUp = 0;
    std::deque<RecordedPage> pages;

private:
    class Page : public PrintedPage {
    public:
        Page(RecordedPage& page, bool isTaken, std::function<void()> onSurface)
            : page_(page)
            , isTaken_(isTaken)
            , onSurface_(std::move(onSurface)) {}

        [[nodiscard]] Surface& SurfaceIn(const PageRect& rect) override {
            constexpr double kPixels = 96 / 25.4; // per millimetre
            if (onSurface_) {
                onSurface_();
            }
            page_.parts.push_back(
                {rect, RecordingSurface(rect.width * kPixels, rect.height * kPixels)});
            return page_.parts.back().surface;
        }

        [[nodiscard]] bool Send() override {
            page_.isSent = isTaken_;
            return isTaken_;
        }

    private:
        RecordedPage& page_;
        bool isTaken_;
        std::function<void()> onSurface_;
    };
};

} // namespace quandrel
