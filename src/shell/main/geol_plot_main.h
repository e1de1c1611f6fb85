// SPDX-License-Identifier: MIT
//
// The main window: the parent of all plot windows, with the tool strip, the menus and the status
// line. Its handlers read a control, call one procedure and show the result.
//
// This is the chief header of the room: commands, menus, tool strip, status line, intro, start.
// Input: the state of all commands (session/window_state), read after each command.
// Output: calls of the engine and of the other rooms. Only this room uses all the others.

#pragma once

#include "qt/recent_pictures.h"
#include "session/closing.h"
#include "session/notation.h"
#include "session/start.h"
#include "shell/dialogs/widget_prompts.h"
#include "shell/main/main_status_line.h"
#include "stereo/drawing.h"

#include <QMainWindow>

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>

class QLabel;
class QDockWidget;
class QMdiArea;
class QMdiSubWindow;
class QMimeData;
class QProgressBar;
class QToolBar;

namespace quandrel {

class Commands;
class DataDisplays;
class GirdlePanel;
class MainMenus;
class MapLinkWindows;
class NetMouse;
class PlotForm;
class ToolStrip;
class PlotDialogs;
class LayerPanel;
class PropertyPanel;
class TextPanel;
class frmIntro;
class frmPlotForms;

class GeolPlotMain : public QMainWindow {
public:
    /// Requires an initialised engine; only the windows may be missing.
    GeolPlotMain();
    ~GeolPlotMain() override;

    GeolPlotMain(const GeolPlotMain&) = delete;
    GeolPlotMain& operator=(const GeolPlotMain&) = delete;

    /// Shows the window at its last position.
    void ShowAtLastPlace();

    /// Runs a start command of the intro screen or opens a recent file: IntroStart of the engine.
    void IntroButtonStart(int index);

    /// Opens files as new plots, one after the other.
    void OpenFiles(const QStringList& paths);

    /// Opens the files of the command line, then reports the missing ones.
    void OpenNamedFiles(const NamedFiles& named);

    /// Shows or hides the girdle panel to match its button.
    void GirdleBoxDisplay();

    /// Fills the girdle panel from the active plot.
    void UpdateGirdles();

    /// Writes to the information line.
    void SetStatusText(const QString& text);

    /// Updates buttons, menus and dialogs for the active plot.
    void UpdatePlotState();

    /// The window of a slot, for the engine.
    [[nodiscard]] std::unique_ptr<PlotForm> MakePlotForm(int slot);

    [[nodiscard]] Commands& AllCommands() { return *commands_; }

    QLabel* panInfoLine = nullptr; ///< the last message about the plot in front
    QLabel* panHintLine = nullptr; ///< a hint on the next possible steps
    QProgressBar* progBar = nullptr;
    QLabel* panDipAzBox = nullptr;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void MakeStatusBar();
    void MakeToolBars();
    void MakePlotRoom();
    void MakePanels();
    void FollowPanels();
    void FollowTexts();
    static void ShowInFront(QDockWidget& panel);
    static void ShowOrHide(QDockWidget& panel);
    void FollowChosenLayer();
    /// Shows the properties of a layer of the plot in focus, if there is one where the user points.
    ///
    /// @param opens  the panel as well; else they are shown in an open panel only
    void ShowProperties(
        bool opens,
        const std::function<std::optional<std::size_t>(const Plot&, const Drawing&)>& layer);
    /// The files and folders that are dragged, or on the clipboard.
    [[nodiscard]] static QStringList FilesOf(const QMimeData& dragged);
    void OpenDropped(const QStringList& paths);
    [[nodiscard]] bool PasteFromOutside();
    /// Lets the user type the words of the entry of a rose at a place in its legend.
    void RenameRoseEntryAt(Point at);
    void KeepPanels();
    bool TakeCtrlClick(const QObject& object, const QEvent& event);
    void MakeMouse();
    void MakeMapLink();
    void UpdateMapLink();
    void ConnectEngine();
    void ConnectCommands();
    void ConnectChanges();
    void ConnectFileCommands();
    void ConnectCopyCommands();
    void ConnectEditCommands();
    void ConnectSelectionCommands();
    void ConnectAnnotationCommands();
    void ConnectPlotCommands();
    void ConnectStyleCommands();
    void SearchCommands();
    void ExplainCommands();
    void ConnectViewCommands();
    void ConnectWindowCommands();
    void ConnectSlider();

    void Open(const char* command);
    void AfterOpening(const QString& command);
    void KeepPicture(int slot) const;
    void Save(int kind);
    void RedrawAllPlots();
    void CloseOne(int slot);
    void ApplyAllEdits();
    [[nodiscard]] bool CloseAll(Closing closing);
    void ExportImage();
    void CopyImage(bool legend);
    /// @param text  with the line ends of the window
    static void CopyStatistics(std::string text);
    void EditFormat();
    void ChooseDataFolder();
    void EditPreferences(int tab);
    void ShowUnplottedLines();
    void Edit(int item);
    void FollowLayer();
    void ChangeSymbolsOfSelection();
    void ChangeSymbolsOfAnnotations();
    void ShowHowToAddPoints();
    void ShowAbout();
    void RefreshWindowMenu();

    void Activated(QMdiSubWindow* window);
    void FollowNotation();
    void UpdateToolbar();
    void UpdateEditMenus();
    void UpdateUndo();
    void UpdatePaste();
    void SelectionChanged();
    void ShowSelectionCount();

    /// Removes a text from the status line, if it is still there.
    void EndStatusText(const QString& text);
    void UpdatePlotMenus();
    void PlaceIntro();
    void ArrangeWindows(int way);
    void ShowMenusFor(bool hasPlots);
    [[nodiscard]] frmPlotForms* ActiveForm() const;

    Commands* commands_ = nullptr;
    std::unique_ptr<MainMenus> menus_;
    ToolStrip* panToolbarBox_ = nullptr;
    QToolBar* toolMapInfo_ = nullptr;
    GirdlePanel* panGirdleBox_ = nullptr;
    QMdiArea* room_ = nullptr;
    LayerPanel* panLayers_ = nullptr;
    PropertyPanel* panProperties_ = nullptr;
    TextPanel* panTexts_ = nullptr;
    RecentPictures pictures_{FolderOfRecentPictures()};
    frmIntro* intro_ = nullptr;
    std::unique_ptr<PlotDialogs> dialogs_;
    std::unique_ptr<NetMouse> mouse_;
    std::unique_ptr<DataDisplays> displays_;
    std::unique_ptr<MainStatusLine> status_;
    std::unique_ptr<WidgetPrompts> prompts_;
    bool menusHavePlots_ = false;
    QString selectionText_; ///< the last status text about the selection
    Notation notation_;     ///< of the texts of the open plots
    QString clipboardText_; ///< the text on the clipboard
    std::unique_ptr<MapLinkWindows> mapLink_;
};

} // namespace quandrel
