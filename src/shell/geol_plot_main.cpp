// SPDX-License-Identifier: MIT

#include "shell/geol_plot_main.h"

#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "derive/derived_plots.h"
#include "edit/girdle_pull.h"
#include "edit/girdles.h"
#include "edit/marquee.h"
#include "edit/small_circle_pick.h"
#include "input/file_loading.h"
#include "mapinfo/map_commands.h"
#include "mapinfo/map_link.h"
#include "mapinfo/selection_link.h"
#include "persistence/open_plot.h"
#include "platform/platform.h"
#include "program/closing.h"
#include "program/start.h"
#include "program/unplotted_lines.h"
#include "program/window_places.h"
#include "program/window_state.h"
#include "rotation/rotate_data.h"
#include "shell/commands.h"
#include "shell/data_displays.h"
#include "shell/frm_help.h"
#include "shell/frm_intro.h"
#include "shell/frm_mapinfo.h"
#include "shell/frm_plot_forms.h"
#include "shell/frm_preferences.h"
#include "shell/girdle_panel.h"
#include "shell/icons.h"
#include "shell/main_menus.h"
#include "shell/map_link_windows.h"
#include "shell/net_mouse.h"
#include "shell/plot_dialogs.h"
#include "shell/tool_strip.h"
#include "shell/window_arrangement.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QScreen>
#include <QSlider>
#include <QStatusBar>
#include <QToolBar>

namespace quandrel {

namespace {

constexpr int kReadoutWidth = 150;
constexpr int kBarWidth = 180;

WindowRect RectOf(const QRect& rect) {
    return {rect.left(), rect.top(), rect.width(), rect.height()};
}

QRect QtRect(const WindowRect& rect) {
    return {rect.left, rect.top, rect.width, rect.height};
}

WindowState StateOf(const QWidget& window) {
    if (window.isMinimized()) {
        return WindowState::Minimised;
    }
    return window.isMaximized() || window.isFullScreen() ? WindowState::Maximised
                                                         : WindowState::Normal;
}

/// What a command needs so that it can be used.
struct CommandNeed {
    const char* command;
    bool ToolbarState::*condition;
};

constexpr CommandNeed kCommandNeeds[] = {
    {"mnuFileLoad_1", &ToolbarState::hasPlot},
    {"mnuFileLoad_2", &ToolbarState::hasPlot},
    {"mnuFileSave_0", &ToolbarState::hasPlot},
    {"mnuFileSave_1", &ToolbarState::hasPlot},
    {"mnuFileSave_2", &ToolbarState::hasSeveralPlots},
    {"mnuFileSave_3", &ToolbarState::hasPlot},
    {"mnuFileClose_0", &ToolbarState::hasPlot},
    {"mnuFileClose_1", &ToolbarState::hasPlot},
    {"mnuFileExport", &ToolbarState::hasPlot},
    {"mnuFileCopyImage_0", &ToolbarState::hasPlot},
    {"mnuFileCopyImage_1", &ToolbarState::showsLegend},
    {"mnuFilePrint_0", &ToolbarState::hasPlot},
    {"mnuEditAdd", &ToolbarState::isStereo},
    {"mnuEditAddMode", &ToolbarState::isStereo},
    {"mnuEditLasso", &ToolbarState::isStereo},
    {"mnuEditGirdle", &ToolbarState::isStereo},
    {"mnuEditRefresh", &ToolbarState::hasPlot},
    {"mnuEditReCalculate", &ToolbarState::hasPlot},
    {"mnuEditSmallCircles", &ToolbarState::isStereo},
    {"mnuEditGirdles", &ToolbarState::isStereo},
    {"mnuPlotIntersection", &ToolbarState::intersections},
    {"mnuPlotRotate", &ToolbarState::hasRows},
    {"mnuKinematicPlots_0", &ToolbarState::hasRows},
    {"mnuKinematicPlots_1", &ToolbarState::hasRows},
    {"mnuKinematicPlots_2", &ToolbarState::hasRows},
    {"mnuViewPlotData", &ToolbarState::hasPlot},
    {"mnuWindow_0", &ToolbarState::hasPlot},
    {"mnuWindow_1", &ToolbarState::hasPlot},
    {"mnuWindow_2", &ToolbarState::hasPlot},
    {"mnuWindow_3", &ToolbarState::hasPlot},
};

/// The files among what is dragged.
QStringList FilesOf(const QMimeData& data) {
    QStringList files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isFile()) {
            files << url.toLocalFile();
        }
    }
    return files;
}

} // namespace

GeolPlotMain::GeolPlotMain()
    : commands_(new Commands(this)) {
    setObjectName("GeolPlotMain");
    setWindowTitle(gCaption);
    setWindowIcon(ProgramIcon());
    setAcceptDrops(true);
    // The built-in menu would show and hide bars behind the back of the View menu.
    setContextMenuPolicy(Qt::NoContextMenu);
    MakeStatusBar();
    MakeToolBars();
    MakePlotRoom();
    menus_ = std::make_unique<MainMenus>(*this, *commands_);
    prompts_ = std::make_unique<WidgetPrompts>(*this);
    status_ = std::make_unique<MainStatusLine>(*panInfoLine, *progBar);
    gPlatform.prompts = prompts_.get();
    gPlatform.status = status_.get();
    gPlatform.makePlotForm = [this](int slot) { return MakePlotForm(slot); };
    gPlaceBeside = [this](int slot, int neighbour) { PlaceBeside(slot, neighbour); };
    gSelectionChanged = [this] { SelectionChanged(); };
    MakeMapLink();
    ConnectFileCommands();
    ConnectCopyCommands();
    ConnectEditCommands();
    ConnectSelectionCommands();
    ConnectAnnotationCommands();
    ConnectPlotCommands();
    ConnectViewCommands();
    ConnectWindowCommands();
    ConnectSlider();
    connect(commands_, &Commands::Done, this, [this] { UpdatePlotState(); });
    connect(menus_->mnuEdit, &QMenu::aboutToShow, this, [this] { UpdatePaste(); });
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            [this] { UpdatePaste(); });
    ShowMenusFor(false);
    UpdatePlotState();
    resize(1200, 760);
}

GeolPlotMain::~GeolPlotMain() {
    mapLink_.reset();
    // Plot windows belong to the store, and must not outlive the room that they stand in.
    for (auto& form : gPlotForm) {
        form.reset();
    }
    gPlatform.makePlotForm = {};
    gPlaceBeside = {};
    gSelectionChanged = {};
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
    // A long text is cut rather than widening the window.
    panInfoLine->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    progBar = new QProgressBar;
    progBar->setObjectName("progBar");
    progBar->setMaximumWidth(kBarWidth);
    progBar->setTextVisible(false);
    progBar->setToolTip("Esc ends the step");
    statusBar()->addWidget(panDipAzBox);
    statusBar()->addWidget(panInfoLine, 1);
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
    // Closing the panel by its own button is pressing the button that shows it.
    panGirdleBox_->toggleViewAction()->setVisible(false);
    panGirdleBox_->installEventFilter(this);
    panGirdleBox_->onChanged = [this] { UpdatePlotState(); };
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
        },
        [this](int tab) {
            EditPreferences(tab);
            UpdatePlotState();
        });
    MakeMouse();
    displays_ = std::make_unique<DataDisplays>(*this, [this] { UpdatePlotState(); });
    intro_ = new frmIntro(room_->viewport());
    room_->viewport()->installEventFilter(this);
    connect(room_, &QMdiArea::subWindowActivated, this,
            [this](QMdiSubWindow* window) { Activated(window); });
    connect(intro_, &frmIntro::StartWanted, this, [this](int index) { IntroButtonStart(index); });
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
    window->Place(QtRect(NewPlotWindowPlace(slot, width(), room.width(), room.height())));
    // A plot must not go while its window is still at work on what the user did.
    connect(
        window, &frmPlotForms::CloseWanted, this,
        [this](int closing) {
            if (!gBusy) {
                CloseOne(closing);
                UpdatePlotState();
            }
        },
        Qt::QueuedConnection);
    connect(window, &frmPlotForms::ViewMenuWanted, this,
            [this](const QPoint& at) { menus_->mnuView->popup(at); });
    connect(window, &frmPlotForms::Hint, this,
            [this](const QString& hint) { status_->ShowHint(hint); });
    connect(window, &frmPlotForms::ResizedByHand, this, [this](const QSize& size) {
        KeepPlotWindowSize(size.width(), size.height(), width());
    });
    mouse_->Watch(*window);
    // The slot may be in use again before anybody looks.
    connect(window, &QObject::destroyed, this, [this, slot] { displays_->PlotClosed(slot); });
    intro_->hide();
    window->show();
    return form;
}

void GeolPlotMain::ShowAtLastPlace() {
    const QRect kept = QtRect(KeptMainWindowRect());
    const QScreen* screen = QGuiApplication::screenAt(kept.center());
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    const MainWindowStart start = StartOfMainWindow(RectOf(screen->availableGeometry()));
    if (start.state == WindowState::Normal) {
        setGeometry(QtRect(start.rect));
        show();
    } else {
        showMaximized();
    }
}

void GeolPlotMain::SetStatusText(const QString& text) {
    status_->SetText(text.toStdString());
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
        if (OpenPlotFile("File" + path.toStdString()) != kLoadError) {
            AfterOpening("File");
        }
    }
    UpdatePlotState();
}

frmPlotForms* GeolPlotMain::ActiveForm() const {
    // A window that is only being made is not in the store yet.
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

void GeolPlotMain::closeEvent(QCloseEvent* event) {
    if (gBusy || !CloseAll(Closing::Application)) {
        event->ignore();
        UpdatePlotState();
        return;
    }
    KeepMainWindowPlace(quandrel::StateOf(*this), RectOf(geometry()));
    constexpr int kSessionGroup = 6;
    if (!SaveSettings(kSessionGroup)) {
        Tell("The settings of this session could not be saved.");
    }
    CloseMapInfoLink();
    CloseHelp();
    event->accept();
}

void GeolPlotMain::dragEnterEvent(QDragEnterEvent* event) {
    if (!gBusy && !FilesOf(*event->mimeData()).isEmpty()) {
        // The files stay where they are, whatever the source proposes.
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

void GeolPlotMain::dropEvent(QDropEvent* event) {
    if (gBusy) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    const QStringList files = FilesOf(*event->mimeData());
    // The place that the files come from waits for the drop to end; questions come after that.
    QMetaObject::invokeMethod(
        this, [this, files] { OpenFiles(files); }, Qt::QueuedConnection);
}

void GeolPlotMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && panToolbarBox_ != nullptr) {
        panToolbarBox_->update();
    }
}

bool GeolPlotMain::eventFilter(QObject* object, QEvent* event) {
    if (intro_ == nullptr) { // the window is being made
        return QMainWindow::eventFilter(object, event);
    }
    if (object == room_->viewport() && event->type() == QEvent::Resize) {
        PlaceIntro();
    }
    if (object == panGirdleBox_ && event->type() == QEvent::Close && IsOpenSlot(gActivePlot)) {
        ShowPlotPart(kShowGirdles, false);
        UpdateToolbar();
    }
    return QMainWindow::eventFilter(object, event);
}

void GeolPlotMain::PlaceIntro() {
    intro_->resize(intro_->sizeHint());
    const QSize room = room_->viewport()->size();
    intro_->move((room.width() - intro_->width()) / 2,
                 std::max((room.height() - intro_->height()) / 2, 0));
}

void GeolPlotMain::ShowMenusFor(bool hasPlots) {
    menusHavePlots_ = hasPlots;
    menus_->FillBar(*menuBar(), hasPlots);
}

void GeolPlotMain::UpdatePlotState() {
    const bool hasPlots = CountOpenPlots() > 0;
    if (hasPlots != menusHavePlots_) {
        ShowMenusFor(hasPlots);
        if (!hasPlots) {
            SetStatusText({});
        }
    }
    dialogs_->FollowActivePlot();
    displays_->FollowPlots();
    FollowGridOfPlot();
    UpdateToolbar();
    UpdateEditMenus();
    UpdateUndo();
    UpdatePlotMenus();
    menus_->RefreshRecent();
    RefreshWindowMenu();
    GirdleBoxDisplay();
    UpdateMapLink();
    intro_->setVisible(!hasPlots && !IsMapInfoLinked());
    if (!hasPlots) {
        intro_->Refresh();
        PlaceIntro();
    }
    if (frmPlotForms* form = ActiveForm()) {
        form->FollowRecord();
        const QMdiSubWindow* front = room_->activeSubWindow();
        if (front != form && dynamic_cast<const frmMapinfo*>(front) == nullptr) {
            // The plot that the engine went back to comes to the front, but not before the map.
            room_->setActiveSubWindow(form);
        }
    }
}

void GeolPlotMain::UpdateToolbar() {
    const ToolbarState state = StateOfToolbar();
    const auto set = [this](const QString& name, const ControlState& control) {
        commands_->Enable(name, control.enabled, control.down);
    };
    for (int i = 0; i < 3; ++i) {
        set("mnuPlotType_" + QString::number(i), state.plotTypes[static_cast<std::size_t>(i)]);
        set("mnuPlotDataType_" + QString::number(i), state.dataTypes[static_cast<std::size_t>(i)]);
    }
    for (int i = 0; i < kSymbolButtons; ++i) {
        // The menu has a separator in front of the items of the secondary data.
        const int item = i < kOverlaySecondaryButton ? i : i + 1;
        set("mnuPlotSymbols_" + QString::number(item), state.symbols[static_cast<std::size_t>(i)]);
    }
    for (int i = 0; i < kDisplayButtons; ++i) {
        set("mnuViewLegends_" + QString::number(i), state.display[static_cast<std::size_t>(i)]);
    }
    set("mnuPlotSecondary", state.secondary[0]);
    set("mnuPlotAnnotation", state.annotations);
    set("mnuViewConfidence", state.confidenceCone);
    set("mnuViewClassification", {state.hasPlot, dialogs_->IsClassificationShown()});
    for (const CommandNeed& need : kCommandNeeds) {
        commands_->Enable(need.command, state.*need.condition);
    }
    panToolbarBox_->panGridDensity->setEnabled(state.gridDensity);
    panToolbarBox_->ShowGrid();
}

void GeolPlotMain::UpdateEditMenus() {
    const EditMenuState state = StateOfEditMenu();
    commands_->Enable("mnuEditUndoRotation", CanUndoRotation());
    commands_->Enable("mnuEditSelection_1", state.cut);
    commands_->Enable("mnuEditSelection_2", state.copy);
    commands_->Enable("mnuEditSelection_3", state.copyAllFields);
    commands_->Enable("mnuEditSelection_5", state.remove);
    commands_->Enable("mnuEditSelection_6", state.changeSymbol);
    commands_->Enable("mnuEditSelection_7", state.selectAll);
    commands_->Enable("mnuEditSelection_8", state.unselect);
    commands_->Enable("mnuEditRemoveOverlay", state.removeOverlay);
    commands_->Enable("mnuEditRemoveAnnotation", state.removeAnnotation);
    commands_->Enable("mnuViewAnnotations", state.removeAnnotation);
}

void GeolPlotMain::UpdateUndo() {
    const UndoState state = StateOfUndo();
    commands_->Of("mnuEditUndo").setText(QString::fromStdString(state.undoCaption));
    commands_->Enable("mnuEditUndo", state.undo.enabled);
    commands_->Of("mnuEditRedo").setText(QString::fromStdString(state.redoCaption));
    commands_->Enable("mnuEditRedo", state.redo.enabled);
}

void GeolPlotMain::SelectionChanged() {
    NetMouse::UpdateOverlays();
    displays_->SelectionChanged();
    UpdateEditMenus();
    FollowSelectionInMap();
}

void GeolPlotMain::UpdateMapLink() {
    commands_->Enable("mnuMapinfo_1", IsMapInfoLinked());
    commands_->Enable("mnuMapinfoToolbar", true, gMIToolbarShow);
    UpdateMIMenus();
}

void GeolPlotMain::UpdatePaste() {
    const PasteState state = StateOfPaste();
    commands_->Of("mnuEditSelection_4").setText(QString::fromStdString(state.caption));
    commands_->Enable("mnuEditSelection_4", state.enabled);
}

void GeolPlotMain::UpdatePlotMenus() {
    const MenuCaptions captions = CaptionsOfMenus();
    commands_->Of("mnuPlotSecondary").setText(QString::fromStdString(captions.plotSecondary));
    commands_->Of("mnuViewAdvStats").setText(QString::fromStdString(captions.viewAdvStats));
    commands_->Of("mnuViewAnnotations").setText(QString::fromStdString(captions.viewAnnotations));
    commands_->Of("mnuPlotAnnotation").setToolTip(QString::fromStdString(captions.annotationTip));
    commands_->Of("mnuViewToolbar")
        .setText(panToolbarBox_->isHidden() ? "Show &Toolbar" : "Hide &Toolbar");
    const frmPlotForms* form = ActiveForm();
    commands_->Enable("mnuViewAdvStats",
                      form != nullptr && !form->BoxText(PlotBox::StatsNormal).empty());
    commands_->Enable("mnuFileCopyStats_0",
                      form != nullptr && !form->BoxText(PlotBox::StatsNormal).empty());
    commands_->Enable("mnuFileCopyStats_1",
                      form != nullptr && !form->BoxText(PlotBox::StatsAdvanced).empty());
    commands_->Enable("mnuViewUnplotted", HasUnplottedLines());
    commands_->Enable("mnuViewRawData", HasRawFiles());
}

void GeolPlotMain::GirdleBoxDisplay() {
    const bool shown = IsOpenSlot(gActivePlot) && IsPlotPartShown(kShowGirdles)
                       && ActiveRecord().PlotKind != kRose;
    if (shown) {
        UpdateGirdles();
    }
    panGirdleBox_->setVisible(shown);
}

void GeolPlotMain::UpdateGirdles() {
    panGirdleBox_->Refresh();
}

void GeolPlotMain::RefreshWindowMenu() {
    QMenu& menu = *menus_->mnuWindow;
    for (QAction* action : menu.actions()) {
        if (action->objectName().startsWith("mnuWindowPlot_")) {
            // It may be the one that is at work.
            action->setObjectName({});
            menu.removeAction(action);
            action->deleteLater();
        }
    }
    for (QMdiSubWindow* window : room_->subWindowList()) {
        const auto* form = dynamic_cast<frmPlotForms*>(window);
        if (form != nullptr && !IsOpenSlot(form->Slot())) {
            continue;
        }
        // Of the windows that are not plots' there is that of the map link.
        const QString title = form != nullptr
                                  ? QString::fromStdString(RecordOf(form->Slot()).PlotTitle)
                                  : window->windowTitle();
        QAction* action = menu.addAction(QString(title).replace("&", "&&"));
        action->setObjectName("mnuWindowPlot_"
                              + QString::number(form != nullptr ? form->Slot() : 0));
        action->setCheckable(true);
        action->setChecked(window == room_->activeSubWindow());
        connect(action, &QAction::triggered, this, [this, window] {
            if (window->isMinimized()) {
                window->showNormal();
            }
            room_->setActiveSubWindow(window);
            UpdatePlotState();
        });
    }
}

void GeolPlotMain::PlaceBeside(int slot, int neighbour) {
    auto& form = static_cast<frmPlotForms&>(FormOf(slot));
    const QRect beside = static_cast<const frmPlotForms&>(FormOf(neighbour)).geometry();
    QRect place = form.geometry();
    place.moveTopLeft(
        {LeftBeside(beside.left(), beside.width(), place.width(), room_->width()), beside.top()});
    form.Place(place);
}

void GeolPlotMain::ArrangeWindows(int way) {
    const QList<QMdiSubWindow*> windows = room_->subWindowList(QMdiArea::CreationOrder);
    Arrange(windows, static_cast<Arrangement>(way), room_->viewport()->size());
}

} // namespace quandrel
