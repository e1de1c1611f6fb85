// SPDX-License-Identifier: MIT

#include "shell/main/geol_plot_main.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "derive/derived_plots.h"
#include "drawing/layer_hit.h"
#include "edit/marks/girdle_pull.h"
#include "edit/marks/small_circle_pick.h"
#include "edit/selection/marquee.h"
#include "input/file_loading.h"
#include "persistence/open_plot.h"
#include "platform/platform.h"
#include "session/start.h"
#include "session/window_places.h"
#include "shell/controls/button_keys.h"
#include "shell/controls/faint_text.h"
#include "shell/controls/icons.h"
#include "shell/controls/picture_box.h"
#include "shell/controls/text_boxes.h"
#include "shell/grids/data_displays.h"
#include "shell/main/commands.h"
#include "shell/main/frm_intro.h"
#include "shell/main/main_menus.h"
#include "shell/main/qt_rect.h"
#include "shell/main/tool_strip.h"
#include "shell/map/map_link_windows.h"
#include "shell/panels/text_panel.h"
#include "shell/plot/frm_plot_forms.h"
#include "shell/plot/girdle_panel.h"
#include "shell/plot/net_mouse.h"
#include "shell/plot/plot_dialogs.h"
#include "shell/plot/window_arrangement.h"
#include "shell/preferences/frm_preferences.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QProgressBar>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>

#include <utility>

namespace quandrel {

namespace {

constexpr int kReadoutWidth = 150;
constexpr int kBarWidth = 180;

} // namespace

GeolPlotMain::GeolPlotMain()
    : commands_(new Commands(this)) {
    setObjectName("GeolPlotMain");
    setWindowTitle(gCaption);
    setWindowIcon(ProgramIcon());
    setAcceptDrops(true);
    new ButtonKeys(this);
    new SelectionPasteGuard(this);
    // The built-in menu would show and hide bars without updating the View menu.
    setContextMenuPolicy(Qt::NoContextMenu);
    MakeStatusBar();
    MakeToolBars();
    MakePlotRoom();
    MakePanels();
    menus_ = std::make_unique<MainMenus>(*this, *commands_);
    ConnectEngine();
    MakeMapLink();
    ConnectCommands();
    ConnectChanges();
    ShowMenusFor(false);
    UpdatePlotState();
    UseReadablePlaceholders();
    resize(1200, 760);
}

void GeolPlotMain::ConnectEngine() {
    prompts_ = std::make_unique<WidgetPrompts>(*this);
    status_ = std::make_unique<MainStatusLine>(*panInfoLine, *panHintLine, *progBar);
    gPlatform.prompts = prompts_.get();
    gPlatform.status = status_.get();
    gPlatform.makePlotForm = [this](int slot) { return MakePlotForm(slot); };
    ConnectSelection([this] { SelectionChanged(); });
}

void GeolPlotMain::ConnectCommands() {
    ConnectFileCommands();
    ConnectCopyCommands();
    ConnectEditCommands();
    ConnectSelectionCommands();
    ConnectAnnotationCommands();
    ConnectPlotCommands();
    ConnectViewCommands();
    ConnectWindowCommands();
    ConnectSlider();
}

void GeolPlotMain::ConnectChanges() {
    connect(commands_, &Commands::Done, this, [this] { UpdatePlotState(); });
    connect(menus_->mnuEdit, &QMenu::aboutToShow, this, [this] {
        UpdateEditMenus();
        UpdateUndo();
        UpdatePaste();
        ExplainCommands();
    });
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, [this] {
        UpdatePaste();
        EndStatusText(std::exchange(clipboardText_, {}));
    });
}

GeolPlotMain::~GeolPlotMain() {
    // The panels are hidden with the window, when this is no longer one.
    panTexts_->toggleViewAction()->disconnect(this);
    mapLink_.reset();
    // Plot windows belong to the store, and must not outlive the area that contains them.
    for (int slot = 0; slot <= HighestSlot(); ++slot) {
        PlotOf(slot).form.reset();
    }
    gPlatform.makePlotForm = {};
    ConnectSelection({});
    gPlatform.prompts = nullptr;
    gPlatform.status = nullptr;
}

void GeolPlotMain::MakeStatusBar() {
    panDipAzBox = new QLabel;
    panDipAzBox->setObjectName("panDipAzBox");
    panDipAzBox->setMinimumWidth(kReadoutWidth);
    panDipAzBox->setToolTip("Orientation under the pointer");
    panInfoLine = new QLabel;
    panInfoLine->setObjectName("panInfoLine");
    panInfoLine->setTextFormat(Qt::PlainText);
    // A long text is cut so that it does not widen the window.
    panInfoLine->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    panHintLine = new QLabel;
    panHintLine->setObjectName("panHintLine");
    panHintLine->setTextFormat(Qt::PlainText);
    panHintLine->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    panHintLine->setToolTip("What can be done here");
    progBar = new QProgressBar;
    progBar->setObjectName("progBar");
    progBar->setMaximumWidth(kBarWidth);
    progBar->setTextVisible(false);
    progBar->setToolTip("Esc ends the step");
    statusBar()->addWidget(panDipAzBox);
    statusBar()->addWidget(panInfoLine, 1);
    statusBar()->addWidget(panHintLine, 1);
    statusBar()->addPermanentWidget(progBar);
    UseInfoFonts(*panInfoLine, *panDipAzBox);
}

void GeolPlotMain::MakeToolBars() {
    panToolbarBox_ = new ToolStrip(*commands_);
    addToolBar(panToolbarBox_);
    toolMapInfo_ = new QToolBar("MapInfo");
    toolMapInfo_->setObjectName("toolMapInfo");
    addToolBar(toolMapInfo_);
    toolMapInfo_->hide();
    panGirdleBox_ = new GirdlePanel(this);
    addDockWidget(Qt::RightDockWidgetArea, panGirdleBox_);
    // Closing the panel with its own button acts like the button that shows it.
    panGirdleBox_->toggleViewAction()->setVisible(false);
    panGirdleBox_->installEventFilter(this);
    panGirdleBox_->onChanged = [this] { UpdatePlotState(); };
    panGirdleBox_->onLeave = [this] {
        if (frmPlotForms* form = ActiveForm()) {
            form->picStereoArea->setFocus();
        }
    };
    panGirdleBox_->onStyle = [this] {
        EditPreferences(kLinesPage);
        UpdatePlotState();
    };
}

void GeolPlotMain::MakePlotRoom() {
    room_ = new QMdiArea;
    room_->setObjectName("mdiPlots");
    room_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    room_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(room_);
    dialogs_ = std::make_unique<PlotDialogs>(
        *this,
        [this] {
            mouse_->ClearHint();
            UpdateToolbar();
            UpdateEditMenus();
            UpdateUndo();
        },
        [this](int tab) {
            EditPreferences(tab);
            UpdatePlotState();
        });
    MakeMouse();
    displays_ = std::make_unique<DataDisplays>(*this, [this] { UpdatePlotState(); });
    intro_ = new frmIntro(room_->viewport(), pictures_,
                          QApplication::applicationDirPath().toStdString());
    room_->viewport()->installEventFilter(this);
    connect(room_, &QMdiArea::subWindowActivated, this,
            [this](QMdiSubWindow* window) { Activated(window); });
    connect(intro_, &frmIntro::StartWanted, this, [this](int index) { IntroButtonStart(index); });
    connect(intro_, &frmIntro::ExampleWanted, this,
            [this](const QString& path) { OpenFiles({path}); });
}

void GeolPlotMain::MakeMouse() {
    NetMouseSigns signs;
    signs.readout = [this](const QString& text) { panDipAzBox->setText(text); };
    signs.hint = [this](const QString& hint) { status_->ShowHint(hint); };
    signs.editMenu = [this](const QPoint& at) { menus_->mnuEdit->popup(at); };
    signs.dragged = [this] {
        UpdateGirdles();
        dialogs_->FollowSmallCircles();
    };
    signs.done = [this] { UpdatePlotState(); };
    signs.pointed = [this](Point at, bool opens) {
        ShowProperties(opens, [at](const Plot& plot, const Drawing& drawing) {
            constexpr double kReachInPixels = 5;
            return LayerAt(plot, drawing, at, kReachInPixels * drawing.plot.PixelSize().x);
        });
    };
    mouse_ = std::make_unique<NetMouse>(*dialogs_, commands_->Of("mnuEditAddMode"),
                                        commands_->Of("mnuEditLasso"), std::move(signs));
}

void GeolPlotMain::MakeMapLink() {
    MapLinkSigns signs;
    signs.plotted = [this](const std::string& command) {
        AfterOpening(QString::fromStdString(command));
    };
    signs.done = [this] { UpdatePlotState(); };
    mapLink_ = std::make_unique<MapLinkWindows>(*this, *room_, *toolMapInfo_, std::move(signs));
}

std::unique_ptr<PlotForm> GeolPlotMain::MakePlotForm(int slot) {
    auto form = std::make_unique<frmPlotForms>(slot);
    frmPlotForms* window = form.get();
    room_->addSubWindow(window);
    const QSize room = room_->viewport()->size();
    window->Place(QtRect(CountOpenPlots() > 1
                             ? NewPlotWindowPlace(slot, width(), room.width(), room.height())
                             : FirstPlotWindowPlace(width(), room.width(), room.height())));
    // A plot must not be deleted while its window is still handling an event.
    connect(
        window, &frmPlotForms::CloseWanted, this,
        [this](int closing) {
            if (!gBusy) {
                CloseOne(closing);
                UpdatePlotState();
            }
        },
        Qt::QueuedConnection);
    connect(window, &frmPlotForms::BoxMenuWanted, this, [this](QMenu* menu, const QPoint& at) {
        menu->addSeparator();
        menu->addActions(menus_->mnuView->actions());
        menu->popup(at);
    });
    connect(window, &frmPlotForms::LegendPressed, this,
            [this, window](const QPointF& at, bool opens) {
                if (window->Slot() != gActivePlot) {
                    return;
                }
                if (opens) {
                    RenameRoseEntryAt({at.x(), at.y()});
                }
                ShowProperties(opens, [at](const Plot& plot, const Drawing& drawing) {
                    return LayerOfLegendAt(plot, drawing, {at.x(), at.y()});
                });
            });
    connect(window, &frmPlotForms::LegendCopyWanted, this, [this] { CopyImage(true); });
    connect(window, &frmPlotForms::Hint, this,
            [this](const QString& hint) { status_->ShowHint(hint); });
    connect(window, &frmPlotForms::ResizedByHand, this, [this](const QSize& size) {
        KeepPlotWindowSize(size.width(), size.height(), width());
    });
    mouse_->Watch(*window);
    // The slot may be in use again before the window is destroyed.
    connect(window, &QObject::destroyed, this, [this, slot] { displays_->PlotClosed(slot); });
    intro_->hide();
    window->show();
    return form;
}

void GeolPlotMain::ShowAtLastPlace() {
    const QRect kept = QtRect(KeptMainWindowRect());
    const QScreen* screen = QApplication::screenAt(kept.center());
    if (screen == nullptr) {
        screen = QApplication::primaryScreen();
    }
    const MainWindowStart start = StartOfMainWindow(RectOf(screen->availableGeometry()));
    if (start.state == WindowState::Normal) {
        setGeometry(QtRect(start.rect));
        show();
    } else {
        showMaximized();
    }
}

void GeolPlotMain::CopyStatistics(std::string text) {
    std::erase(text, '\r');
    gPlatform.clipboard->SetText(text);
}

void GeolPlotMain::SetStatusText(const QString& text) {
    status_->SetText(text.toStdString());
}

void GeolPlotMain::EndStatusText(const QString& text) {
    // A text that has replaced this one stays.
    if (!text.isEmpty() && status_->Text() == text) {
        SetStatusText({});
    }
}

void GeolPlotMain::IntroButtonStart(int index) {
    if (gBusy) {
        return;
    }
    const bool opened = IntroStart(index);
    if (opened) {
        AfterOpening("New");
    }
    UpdatePlotState();
}

void GeolPlotMain::OpenFiles(const QStringList& paths) {
    if (gBusy) {
        return;
    }
    for (const QString& path : paths) {
        if (HasOpenedPlot(OpenPlotFile("File" + path.toStdString()))) {
            AfterOpening("File");
        }
    }
    UpdatePlotState();
}

void GeolPlotMain::OpenNamedFiles(const NamedFiles& named) {
    QStringList paths;
    for (const std::string& path : named.files) {
        paths << QString::fromStdString(path);
    }
    OpenFiles(paths);
    if (const std::string missing = TextOfMissing(named); !missing.empty()) {
        Tell(missing);
    }
}

frmPlotForms* GeolPlotMain::ActiveForm() const {
    // A window under construction is not in the store yet.
    return IsOpenSlot(gActivePlot)
               ? static_cast<frmPlotForms*>(gPlotForm[static_cast<std::size_t>(gActivePlot)].get())
               : nullptr;
}

void GeolPlotMain::Activated(QMdiSubWindow* window) {
    auto* form = dynamic_cast<frmPlotForms*>(window);
    if (form == nullptr || !IsOpenSlot(form->Slot())) {
        return;
    }
    if (gActivePlot != form->Slot()) {
        mouse_->Cancel();
        CancelGirdlePull();
        EndSmallCirclePick();
        gActivePlot = form->Slot();
    }
    form->UseOwnLayer();
    UpdatePlotState();
}

void GeolPlotMain::ShowMenusFor(bool hasPlots) {
    menusHavePlots_ = hasPlots;
    menus_->FillBar(*menuBar(), hasPlots);
}

void GeolPlotMain::ArrangeWindows(int way) {
    const QList<QMdiSubWindow*> windows = room_->subWindowList(QMdiArea::CreationOrder);
    QMdiSubWindow* const active = room_->activeSubWindow();
    Arrange(windows, static_cast<Arrangement>(way), room_->viewport()->size(), active);
    room_->setActiveSubWindow(active); // a window restored from full size took the focus
}

} // namespace quandrel
