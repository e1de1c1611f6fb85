// SPDX-License-Identifier: MIT

#include "print/print_run.h"

#include "core/messages.h"
#include "core/plot_formulas.h"
#include "core/plot_store.h"
#include "core/plot_style.h"
#include "core/settings.h"
#include "drawing/draw_plot.h"
#include "drawing/work_out.h"
#include "platform/platform.h"
#include "platform/scripted/recording_surface.h"
#include "print/print_texts.h"

#include <new>
#include <optional>
#include <utility>

namespace quandrel {

constinit PrintState PrintState::now;

namespace {

constexpr const char* kFailureText =
    "There has been an unknown problem printing these plots to your printer.";
constexpr const char* kNoPrinterText =
    "The Print Page setup window is not available until a Default Printer is setup in the Windows "
    "Control Panel.";
constexpr const char* kNoDefaultText =
    "Can't detect a default printer.\nYou will need to choose Printer Setup.. from the Files Menu "
    "before you can print any data.";

/// Anything with less space than this is omitted, millimetres.
constexpr double kLeastRoom = 8;

/// Width and height in pixels of a legend that is not visible.
constexpr double kUnseenSide = 8;

/// A file to print to; nothing if the user cancels.
std::optional<std::string> AskForFile(const std::vector<PlotOnPage>& items) {
    PathQuestion question;
    question.title = "Print to a PDF file";
    question.folder = gSettings.files.lastFolder;
    question.filter = "PDF files (*.pdf)|*.pdf";
    const std::string& title = RecordOf(items.front().slot).FileTitle;
    question.fileName = (title.empty() ? "plots" : title.substr(0, title.rfind('.'))) + ".pdf";
    return gPlatform.prompts->AskSavePath(question);
}

bool AreAllOpen(const std::vector<PlotOnPage>& items) {
    for (const PlotOnPage& item : items) {
        if (!IsOpenSlot(item.slot)) {
            return false;
        }
    }
    return !items.empty();
}

/// The styles with the fonts of the printer instead of those of the screen, for the fabric label,
/// the legend, the statistics and the plot area.
Styles StylesForPrinter(const Styles& styles) {
    Styles printed = styles;
    printed.fonts[kFabricFont] = styles.fonts[kPrintFabricFont];
    printed.fonts[kLegendFont] = styles.fonts[kPrintLegendFont];
    printed.fonts[kStatsFont] = styles.fonts[kPrintStatsFont];
    printed.fonts[kGeneralFont] = styles.fonts[kPrintPlotFont];
    return printed;
}

void DrawOnPaper(Surface& net, Surface& legend, const Styles& styles) {
    const Plot& plot = ActivePlot();
    DrawPlot(plot, {net, legend, styles, DrawnFor::Paper, FormulasInForce(plot.record),
                    gPlatform.status, 0, StyleOfPlot(plot.record)});
}

/// Draws the active plot without legend and texts.
void DrawNetAlone(Surface& net, const Styles& styles) {
    RecordingSurface unseen(kUnseenSide, kUnseenSide);
    DrawOnPaper(net, unseen, styles);
}

/// Draws the active plot with the texts around it.
void DrawWithTexts(Surface& net, PrintedPage& page, const PageRect& room, const Styles& styles) {
    Surface& texts = page.SurfaceIn(room);
    texts.SetUserScale({0, 0, room.width, -room.height});
    const TextPlan plan = PlanTexts(texts, styles, room.width, room.height);
    if (plan.legend.height > 0) {
        Surface& legend = page.SurfaceIn({room.left + plan.legend.left, room.top + plan.legend.top,
                                          plan.legend.width, plan.legend.height});
        Styles scaled = styles;
        scaled.fonts[kLegendFont].font.points *= plan.fontScale;
        DrawOnPaper(net, legend, scaled);
    } else {
        DrawNetAlone(net, styles);
    }
    DrawPlannedTexts(texts, styles, plan);
}

} // namespace

void GetPagePrintArea(double& width, double& height, double& margin) {
    const Sheet paper = gPlatform.printers->Paper();
    width = paper.width;
    height = paper.height;
    margin = paper.margin;
}

void ListPrinters() {
    const PrinterPort* printers = gPlatform.printers;
    gPrinters = printers != nullptr ? printers->Printers() : std::vector<std::string>();
}

bool PrinterSetup() {
    if (gPlatform.printers == nullptr) {
        return false;
    }
    const bool isTaken = gPlatform.printers->SetUp();
    ListPrinters();
    return isTaken;
}

bool CanPrint() {
    const PrinterPort* printers = gPlatform.printers;
    if (printers == nullptr || (printers->Printers().empty() && printers->Chosen().name.empty())) {
        Tell(kNoPrinterText);
        return false;
    }
    if (printers->Chosen().name.empty()) {
        Tell(kNoDefaultText);
    }
    return true;
}

std::string PrinterText(const PrinterChoice& printer) {
    return printer.port.empty() ? printer.name : printer.name + " on " + printer.port;
}

std::string PaperText(const Sheet& paper) {
    return paper.IsLandscape() ? "Landscape" : "Portrait";
}

PrintRun::PrintRun(std::vector<PlotOnPage> items)
    : items_(std::move(items)) {
    gPrinting = 1;
    if (gPlatform.printers == nullptr || !AreAllOpen(items_)) {
        GiveUp(PrintOutcome::Failed);
        return;
    }
    std::optional<std::string> path = std::string();
    if (gPlatform.printers->Chosen().isFile) {
        path = AskForFile(items_);
    }
    if (!path) {
        GiveUp(PrintOutcome::Cancelled);
        return;
    }
    TakePage(*gPlatform.printers, *path);
}

PrintRun::PrintRun(std::vector<PlotOnPage> items, PrinterPort& printer, const std::string& path)
    : items_(std::move(items)) {
    gPrinting = 1;
    if (AreAllOpen(items_)) {
        TakePage(printer, path);
    } else {
        GiveUp(PrintOutcome::Failed);
    }
}

void PrintRun::TakePage(PrinterPort& printer, const std::string& path) {
    page_ = printer.StartPage(RecordOf(items_.front().slot).PlotTitle, path);
    if (page_ == nullptr) {
        GiveUp(PrintOutcome::Failed);
    }
}

PrintRun::~PrintRun() {
    gPrinting = 0;
}

bool PrintRun::HasMore() const {
    return next_ < items_.size();
}

void PrintRun::PrintNext() {
    if (!HasMore()) {
        return;
    }
    const PlotOnPage& item = items_[next_++];
    if (!IsOpenSlot(item.slot)) {
        GiveUp(PrintOutcome::Failed);
        return;
    }
    try {
        DrawItem(item);
    } catch (const std::bad_alloc&) {
        GiveUp(PrintOutcome::Failed);
    }
}

void PrintRun::DrawItem(const PlotOnPage& item) {
    const PlotInWork work(item.slot);
    const Styles styles = StylesForPrinter(gSettings.styles);
    WorkOutUnseen(ActivePlot());
    // The square extends 1100 units from the centre: 1000 are the radius, 100 are outside it.
    Surface& net = page_->SurfaceIn(NetSquare(item));
    if (item.texts.width < kLeastRoom || item.texts.height < kLeastRoom) {
        DrawNetAlone(net, styles);
    } else {
        DrawWithTexts(net, *page_, item.texts, styles);
    }
}

void PrintRun::GiveUp(PrintOutcome outcome) {
    outcome_ = outcome;
    next_ = items_.size();
    page_.reset();
}

void PrintRun::Stop() {
    GiveUp(PrintOutcome::Stopped);
}

PrintOutcome PrintRun::End() {
    if (outcome_ == PrintOutcome::Printed && (page_ == nullptr || !page_->Send())) {
        outcome_ = PrintOutcome::Failed;
    }
    page_.reset();
    gPrinting = 0;
    return outcome_;
}

PrintOutcome PrintRun::Finish() {
    if (End() == PrintOutcome::Failed) {
        Tell(kFailureText);
    }
    gPlatform.status->SetText(kPrintAnotherText);
    return outcome_;
}

PrintOutcome PrintSelectedPlots(const std::vector<PlotOnPage>& items) {
    PrintRun run(items);
    while (run.HasMore()) {
        run.PrintNext();
        if (run.HasMore() && gPlatform.status->CancelRequested()) {
            run.Stop();
        }
    }
    return run.Finish();
}

} // namespace quandrel
