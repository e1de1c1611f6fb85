// SPDX-License-Identifier: MIT
//
// Desktop events of the main window: dropped files, the close button, resizing; the panels that are
// docked to it.

#include "core/messages.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "core/settings_group.h"
#include "core/settings_value.h"
#include "drawing/layer_hit.h"
#include "drawing/plot_state.h"
#include "mapinfo/map_link.h"
#include "session/closing.h"
#include "session/drops.h"
#include "session/window_places.h"
#include "shell/controls/faint_text.h"
#include "shell/help/frm_help.h"
#include "shell/main/frm_intro.h"
#include "shell/main/geol_plot_main.h"
#include "shell/main/qt_rect.h"
#include "shell/main/tool_strip.h"
#include "shell/panels/layer_panel.h"
#include "shell/panels/property_panel.h"
#include "shell/panels/text_panel.h"
#include "shell/plot/frm_plot_forms.h"
#include "shell/plot/girdle_panel.h"
#include "shell/plot/plot_dialogs.h"
#include "stereo/window_drawing.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMdiArea>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimer>
#include <QToolButton>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace quandrel {

namespace {

WindowState StateOf(const QWidget& window) {
    if (window.isMinimized()) {
        return WindowState::Minimised;
    }
    return window.isMaximized() || window.isFullScreen() ? WindowState::Maximised
                                                         : WindowState::Normal;
}

} // namespace

QStringList GeolPlotMain::FilesOf(const QMimeData& dragged) {
    QStringList files;
    for (const QUrl& url : dragged.urls()) {
        const QFileInfo file(url.toLocalFile());
        if (url.isLocalFile() && (file.isFile() || file.isDir())) {
            files << url.toLocalFile();
        }
    }
    return files;
}

void GeolPlotMain::closeEvent(QCloseEvent* event) {
    if (gBusy || !dialogs_->CloseFigureSheet() || !CloseAll(Closing::Application)) {
        event->ignore();
        UpdatePlotState();
        return;
    }
    KeepMainWindowPlace(quandrel::StateOf(*this), RectOf(geometry()));
    KeepPanels();
    if (!SaveSettings(SettingsGroup::Session)) {
        Tell("The settings of this session could not be saved.");
    }
    CloseMapInfoLink();
    CloseHelp();
    event->accept();
}

void GeolPlotMain::dragEnterEvent(QDragEnterEvent* event) {
    const QMimeData& dragged = *event->mimeData();
    if (!gBusy && (!FilesOf(dragged).isEmpty() || dragged.hasText())) {
        // The files are copied, never moved, whatever the source proposes.
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
    const std::string text = event->mimeData()->text().toStdString();
    // The source of the files waits until the drop ends, so questions come afterwards.
    QMetaObject::invokeMethod(
        this,
        [this, files, text] {
            if (!files.isEmpty()) {
                OpenDropped(files);
            } else if (PasteAsPlot(text)) {
                AfterOpening("New");
                UpdatePlotState();
            }
        },
        Qt::QueuedConnection);
}

void GeolPlotMain::OpenDropped(const QStringList& paths) {
    if (gBusy) {
        return;
    }
    std::vector<std::string> names;
    for (const QString& path : paths) {
        names.push_back(path.toStdString());
    }
    const std::vector<std::string> files = FilesOfDrop(names);
    if (files.empty()) {
        Tell("The folder has no tables.");
        return;
    }
    OpenDroppedFiles(files, [this](const std::string& command) {
        AfterOpening(QString::fromStdString(command));
    });
    UpdatePlotState();
}

void GeolPlotMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && panToolbarBox_ != nullptr) {
        panToolbarBox_->update();
        UseReadablePlaceholders();
    }
}

bool GeolPlotMain::eventFilter(QObject* object, QEvent* event) {
    if (intro_ == nullptr) { // the window is under construction
        return QMainWindow::eventFilter(object, event);
    }
    if (TakeCtrlClick(*object, *event)) {
        return true;
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

/// With Ctrl a symbol button adds its layers, or takes them away.
bool GeolPlotMain::TakeCtrlClick(const QObject& object, const QEvent& event) {
    const bool isPress = event.type() == QEvent::MouseButtonPress;
    if (!isPress && event.type() != QEvent::MouseButtonRelease) {
        return false;
    }
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    const QString prefix = "grpSymbolButton_";
    if (!object.objectName().startsWith(prefix) || !mouse.modifiers().testFlag(Qt::ControlModifier)
        || mouse.button() != Qt::LeftButton) {
        return false;
    }
    if (isPress) {
        ToggleSymbolLayer(gActivePlot, object.objectName().mid(prefix.size()).toInt());
        UpdatePlotState();
    }
    return true;
}

void GeolPlotMain::PlaceIntro() {
    intro_->resize(intro_->sizeHint());
    const QSize room = room_->viewport()->size();
    intro_->move((room.width() - intro_->width()) / 2,
                 std::max((room.height() - intro_->height()) / 2, 0));
}

void GeolPlotMain::MakePanels() {
    LayerPanelSigns signs;
    signs.done = [this] { UpdatePlotState(); };
    signs.chosen = [this] { FollowChosenLayer(); };
    signs.propertiesWanted = [this] {
        ShowInFront(*panProperties_);
        UpdatePlotState();
    };
    panLayers_ = new LayerPanel(this, std::move(signs));
    panProperties_ = new PropertyPanel(this, [this] { UpdatePlotState(); });
    addDockWidget(Qt::LeftDockWidgetArea, panLayers_);
    panTexts_ = new TextPanel(this);
    addDockWidget(Qt::RightDockWidgetArea, panProperties_);
    addDockWidget(Qt::RightDockWidgetArea, panTexts_);
    tabifyDockWidget(panProperties_, panTexts_);
    connect(panTexts_->toggleViewAction(), &QAction::toggled, this, [this] { FollowTexts(); });
    const WindowSettings& kept = gSettings.windows;
    resizeDocks({panLayers_, panProperties_, panTexts_},
                {kept.layerWidth, kept.propertyWidth, kept.textWidth}, Qt::Horizontal);
    for (int button = 0; button <= kLastModeButton; ++button) {
        findChild<QToolButton*>("grpSymbolButton_" + QString::number(button))
            ->installEventFilter(this);
    }
    panLayers_->setVisible(kept.layerPanel);
    panProperties_->setVisible(kept.propertyPanel);
    panTexts_->setVisible(kept.textPanel);
}

void GeolPlotMain::ShowInFront(QDockWidget& panel) {
    panel.show();
    // A panel that was closed has its tab after the next layout.
    QTimer::singleShot(0, &panel, &QWidget::raise);
}

void GeolPlotMain::ShowOrHide(QDockWidget& panel) {
    if (panel.isHidden()) {
        ShowInFront(panel);
    } else {
        panel.hide();
    }
}

void GeolPlotMain::FollowTexts() {
    const bool isInPanel = !panTexts_->isHidden();
    for (int slot = 0; slot <= HighestSlot(); ++slot) {
        auto* form = static_cast<frmPlotForms*>(PlotOf(slot).form.get());
        if (form != nullptr && isInPanel) {
            panTexts_->Add(form->TextPage());
        } else if (form != nullptr) {
            form->TakeTextsBack();
        }
    }
    frmPlotForms* const form = isInPanel ? ActiveForm() : nullptr;
    panTexts_->Show(form != nullptr ? &form->TextPage() : nullptr);
}

void GeolPlotMain::FollowPanels() {
    const int slot = IsOpenSlot(gActivePlot) ? gActivePlot : 0;
    if (!panLayers_->isHidden() || !panProperties_->isHidden()) {
        panLayers_->Follow(slot);
    }
    FollowChosenLayer();
    FollowTexts();
}

void GeolPlotMain::ShowProperties(
    bool opens,
    const std::function<std::optional<std::size_t>(const Plot&, const Drawing&)>& layer) {
    if (!IsOpenSlot(gActivePlot) || (!opens && panProperties_->isHidden())) {
        return;
    }
    if (const auto place = layer(ActivePlot(), WindowDrawing(gActivePlot))) {
        ShowInFront(*panProperties_);
        panLayers_->Follow(gActivePlot);
        panLayers_->ChoosePlace(*place);
        FollowChosenLayer();
    }
}

void GeolPlotMain::RenameRoseEntryAt(Point at) {
    const Drawing drawing = WindowDrawing(gActivePlot);
    if (const std::optional<RoseName> entry = RoseEntryAt(ActivePlot(), drawing, at)) {
        panLayers_->show();
        panLayers_->Follow(gActivePlot);
        panLayers_->RenameEntry(*entry);
    }
}

void GeolPlotMain::FollowChosenLayer() {
    if (panProperties_->isHidden()) {
        return;
    }
    const int slot = IsOpenSlot(gActivePlot) ? gActivePlot : 0;
    panProperties_->Follow(slot, panLayers_->Place());
}

void GeolPlotMain::KeepPanels() {
    WindowSettings& kept = gSettings.windows;
    const auto keep = [](const QDockWidget& panel, bool& isShown, std::int16_t& width) {
        isShown = !panel.isHidden();
        if (isShown) {
            width = static_cast<std::int16_t>(std::min(panel.width(), 2000));
        }
    };
    keep(*panLayers_, kept.layerPanel, kept.layerWidth);
    keep(*panProperties_, kept.propertyPanel, kept.propertyWidth);
    keep(*panTexts_, kept.textPanel, kept.textWidth);
}

} // namespace quandrel
