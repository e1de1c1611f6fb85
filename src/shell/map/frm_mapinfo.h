// SPDX-License-Identifier: MIT
//
// The window of the map link: the maps of the session on the left, its browsers on the right with
// the information below, each as pages; it has its own menus and status line. It passes on the
// user's actions.

#pragma once

#include "mapinfo/map_commands.h"
#include "shell/map/map_document.h"

#include <QMdiSubWindow>

#include <functional>
#include <vector>

class QAction;
class QLabel;
class QLayout;
class QMenu;
class QMenuBar;
class QSplitter;
class QTabWidget;

namespace quandrel {

class MapActions;

class frmMapinfo : public QMdiSubWindow {
public:
    /// @param actions  outlive the window
    explicit frmMapinfo(const MapActions& actions);

    /// Shows a window of the session as a page, in front of the others of its kind.
    void ShowDocument(EmbeddedMapSession& session, const SessionWindow& window);

    /// A window of the session was closed.
    void DropDocument(std::int64_t id);

    /// The session ends, with all its windows.
    void DropAllDocuments();

    /// Shows the current state of the session.
    void RefreshDocuments();

    void ToolChanged();

    void SetStatusText(const QString& text);

    /// The page of a window number; nullptr if there is none.
    [[nodiscard]] MapDocument* Document(std::int64_t id) const;

    QMenu* mnuFile;
    QMenu* mnuMap;
    QMenu* mnuQuery;
    QMenu* mnuSelect;
    QMenu* mnuWindow;
    QMenu* mnuQuandrel;
    QAction* mnuShowMIToolbar;
    QAction* mnuPointSelect;
    QAction* mnuMarqueeSelect;
    QLabel* lblMIStatus;

    /// Called when the user closes the window. False keeps it open.
    std::function<bool()> onClose;

    std::function<void(std::int64_t id)> onDocumentClose;

    /// Called after an action of the user in a page.
    std::function<void()> onDone;

    /// Called when the window comes to the front.
    std::function<void()> onFocus;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] QMenu* MakeMenu(MapMenu menu, QMenuBar& bar);
    [[nodiscard]] QTabWidget* MakePages(const char* name, const char* title);
    [[nodiscard]] QTabWidget& PagesOf(SessionWindowKind kind) const;
    void MakeSides();
    void MakeTextWithoutTables();
    [[nodiscard]] QLayout* MakeStatus();
    void MakeBody(QMenuBar& bar);
    void ShowUsedPages();
    void PopUpMenu(const SessionState& state, const QPoint& at);
    void AddShortcut(QMenu& menu, const SessionMenuItem& item);

    const MapActions& actions_;
    MapDocumentSigns signs_;
    std::vector<MapDocument*> documents_;
    QSplitter* sides_ = nullptr;
    QSplitter* rightSide_ = nullptr;
    QTabWidget* tabMaps_ = nullptr;
    QTabWidget* tabBrowsers_ = nullptr;
    QTabWidget* tabInformation_ = nullptr;
    QLabel* lblNoTables_ = nullptr;
    QLabel* lblPosition_ = nullptr;
};

} // namespace quandrel
