// SPDX-License-Identifier: MIT
//
// The main window: the parent of all plot windows, with the tool strip, the menus and the status
// line. Its handlers read a control, call one procedure and show the result.
//
// This is the chief header of the room: commands, menus, tool strip, status line, the intro, the
// start.
// Enters: the state of all commands (session/window_state), anew after each of them.
// Leaves: calls of the engine and of the other rooms. It alone knows all rooms.

#pragma once

#include "session/closing.h"
#include "session/notation.h"
#include "session/start.h"
#include "shell/dialogs/widget_prompts.h"
#include "shell/main/main_status_line.h"

#include <QMainWindow>

#include <memory>

class QLabel;
class QMdiArea;
class QMdiSubWindow;
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
class frmIntro;
class frmPlotForms;

class GeolPlotMain : public QMainWindow {
public:
    /// The engine must have been initialised, all but the windows.
    GeolPlotMain();
    ~GeolPlotMain() override;

    GeolPlotMain(const GeolPlotMain&) = delete;
    GeolPlotMain& operator=(const GeolPlotMain&) = delete;

    /// Shows the window where it was left.
    void ShowAtLastPlace();

    /// A start command of the intro screen or a recent file: IntroStart of the engine.
    void IntroButtonStart(int index);

    /// Opens files as new plots, one after the other.
    void OpenFiles(const QStringList& paths);

    /// Opens the files of the command line, then tells of those that are missing.
    void OpenNamedFiles(const NamedFiles& named);

    /// Shows or hides the girdle panel as its button says.
    void GirdleBoxDisplay();

    /// Fills the girdle panel from the active plot.
    void UpdateGirdles();

    /// Writes to the information line.
    void SetStatusText(const QString& text);

    /// Brings buttons, menus and dialogs in line with the active plot.
    void UpdatePlotState();

    /// The window of a slot, for the engine.
    [[nodiscard]] std::unique_ptr<PlotForm> MakePlotForm(int slot);

    [[nodiscard]] Commands& AllCommands() { return *commands_; }

    QLabel* panInfoLine = nullptr; ///< what was told last of the plot in front
    QLabel* panHintLine = nullptr; ///< what can be done there
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
    void ConnectViewCommands();
    void ConnectWindowCommands();
    void ConnectSlider();

    void Open(const char* command);
    void AfterOpening(const QString& command);
    void Save(int kind);
    void RedrawAllPlots();
    void CloseOne(int slot);
    void ApplyAllEdits();
    [[nodiscard]] bool CloseAll(Closing closing);
    void ExportImage();
    void CopyImage(bool legend);
    /// With line ends as the window has them.
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

    /// Takes a text off the status line, if it is still there.
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
    frmIntro* intro_ = nullptr;
    std::unique_ptr<PlotDialogs> dialogs_;
    std::unique_ptr<NetMouse> mouse_;
    std::unique_ptr<DataDisplays> displays_;
    std::unique_ptr<MainStatusLine> status_;
    std::unique_ptr<WidgetPrompts> prompts_;
    bool menusHavePlots_ = false;
    QString selectionText_; ///< what the status line was last told of the selection
    Notation notation_;     ///< of the texts of the open plots
    QString clipboardText_; ///< and of what is on the clipboard
    std::unique_ptr<MapLinkWindows> mapLink_;
};

} // namespace quandrel
