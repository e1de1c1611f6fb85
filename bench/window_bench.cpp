// SPDX-License-Identifier: MIT
//
// The window: opening a file up to the finished picture, and resizing with rows on the net.

#include "core/plot_life.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "edit/selection/marquee.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "platform/scripted/memory_clipboard.h"
#include "platform/scripted/no_printers.h"
#include "platform/scripted/scripted_prompts.h"
#include "session/start.h"
#include "shell/controls/picture_box.h"
#include "shell/main/geol_plot_main.h"
#include "shell/plot/frm_plot_forms.h"

#include <QApplication>
#include <QMouseEvent>
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>

namespace quandrel {
namespace {

/// A program with its main window; questions get their default answers.
class Program {
public:
    Program() {
        gPlatform = {};
        gPlatform.settings = &settings_;
        gPlatform.clipboard = &clipboard_;
        gPlatform.printers = &printers_;
        InitialiseApplication();
        window = std::make_unique<GeolPlotMain>();
        gPlatform.prompts = &prompts_;
        window->resize(1280, 800);
        window->show();
        QApplication::processEvents();
    }

    ~Program() {
        window.reset();
        MakeStoreTables();
        gPlatform = {};
    }

    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    std::unique_ptr<GeolPlotMain> window;

private:
    MemorySettingsStore settings_;
    MemoryClipboard clipboard_;
    NoPrinters printers_;
    ScriptedPrompts prompts_{ScriptedPrompts::Mode::Batch};
};

/// A file with this many planes; the destructor removes it.
class PlanesFile {
public:
    explicit PlanesFile(std::int64_t rows)
        : path_(std::filesystem::temp_directory_path() / "quandrel_window_bench.txt") {
        std::mt19937 random(20261121);
        std::ofstream file(path_);
        for (std::int64_t i = 0; i < rows; ++i) {
            file << random() % 91 << '\t' << random() % 360 << '\n';
        }
    }

    ~PlanesFile() { std::filesystem::remove(path_); }

    PlanesFile(const PlanesFile&) = delete;
    PlanesFile& operator=(const PlanesFile&) = delete;

    [[nodiscard]] QString Path() const { return QString::fromStdString(path_.string()); }

private:
    std::filesystem::path path_;
};

void OpenToPicture(benchmark::State& state) {
    const PlanesFile file(state.range(0));
    Program program;
    for (auto _ : state) {
        program.window->OpenFiles({file.Path()});
        program.window->grab();
        state.PauseTiming();
        ClosePlot(gActivePlot);
        state.ResumeTiming();
    }
}

void ResizeFrame(benchmark::State& state) {
    const PlanesFile file(state.range(0));
    Program program;
    program.window->OpenFiles({file.Path()});
    auto& form = static_cast<frmPlotForms&>(FormOf(gActivePlot));
    form.Place(QRect(0, 0, 1000, 700));
    int step = 0;
    for (auto _ : state) {
        form.Place(QRect(0, 0, 1000 + step % 40, 700 + step % 40));
        program.window->grab();
        ++step;
    }
}

/// A plot under the mouse.
class Hand {
public:
    explicit Hand(PictureBox& net)
        : net_(net) {}

    void Send(QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held, QPoint at) {
        QMouseEvent event(type, QPointF(at), net_.mapToGlobal(QPointF(at)), button, held, {});
        QCoreApplication::sendEvent(&net_, &event);
    }

    /// Moves by a step, with a button held or not, and repaints what has changed.
    void Move(int step, Qt::MouseButtons held) {
        Send(QEvent::MouseMove, Qt::NoButton, held,
             net_.rect().center() + QPoint(step % 60, step % 40));
        QApplication::processEvents();
    }

    void Press() { Send(QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton, Centre()); }

    void Release() { Send(QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton, Centre()); }

private:
    [[nodiscard]] QPoint Centre() const { return net_.rect().center(); }

    PictureBox& net_;
};

/// What is dragged while the mouse moves.
enum class Held { Nothing, Marquee, AllRows };

void MouseFrame(benchmark::State& state, Held held) {
    const PlanesFile file(state.range(0));
    Program program;
    program.window->OpenFiles({file.Path()});
    auto& form = static_cast<frmPlotForms&>(FormOf(gActivePlot));
    form.Place(QRect(0, 0, 1000, 700));
    program.window->grab();
    Hand hand(*form.picStereoArea);
    if (held == Held::AllRows) {
        SelectAll();
    }
    if (held != Held::Nothing) {
        hand.Press();
    }
    int step = 0;
    for (auto _ : state) {
        hand.Move(++step, held == Held::Nothing ? Qt::NoButton : Qt::LeftButton);
    }
    if (held != Held::Nothing) {
        hand.Release();
    }
}

BENCHMARK_CAPTURE(MouseFrame, readout, Held::Nothing)
    ->Arg(1000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MouseFrame, marquee, Held::Marquee)
    ->Arg(1000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MouseFrame, drag_all, Held::AllRows)
    ->Arg(1000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(OpenToPicture)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(ResizeFrame)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quandrel
