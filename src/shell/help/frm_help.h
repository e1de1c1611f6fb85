// SPDX-License-Identifier: MIT
//
// The help window: contents, index and full-text search beside the open page.
//
// This is the chief header of the room; the help keys and the About box are here too.
// Input: pages from help/help_library, names of windows, search words.
// The pages are in docs/help; the library maps each window to its page.
// Output: none but the window itself. F1 opens the page of the window that has the focus.

#pragma once

#include "help/help_library.h"

#include <QMainWindow>
#include <QString>

#include <filesystem>

class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPagedPaintDevice;
class QTabWidget;
class QTextBrowser;
class QTreeWidget;
class QTreeWidgetItem;

namespace quandrel {

class frmHelp : public QMainWindow {
public:
    frmHelp(HelpLibrary library, const std::filesystem::path& folder);

    /// Shows a page: its file, optionally with "#" and an anchor. An empty topic is the contents
    /// page.
    void Open(const QString& topic);

    /// The file of the page that is shown.
    [[nodiscard]] QString Page() const;

    void PrintTo(QPagedPaintDevice& device) const;

    QTabWidget* tabHelp;
    QTreeWidget* treContents;
    QLineEdit* txtIndex;
    QListWidget* lstIndex;
    QLineEdit* txtSearch;
    QListWidget* lstHits;
    QLabel* lblHits;
    QTextBrowser* brwPage;
    QAction* actBack;
    QAction* actForward;
    QAction* actHome;
    QAction* actFind;
    QAction* actPrint;
    QAction* actZoomIn;
    QAction* actZoomOut;
    QAction* actZoomNormal;

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void MakeActions();
    void MakeContents();
    void MakeIndex();
    void MakeSearch();
    void MakePage(const std::filesystem::path& folder);
    void Connect();
    void FilterIndex(const QString& text);
    void Search(const QString& query);
    void OpenItem(const QString& target, const QString& query);
    /// Updates title, tree and highlights for a page. The browser reports a page before it is its
    /// source.
    void PageShown(const QString& file);
    void MarkWords();
    void Zoom(int step);
    void Print();
    void UseThemeColours();

    HelpLibrary library_;
    QString folder_;
    QString marked_; ///< the query whose words are highlighted on the page
    int zoom_ = 0;
};

/// Shows a page of the help in front of all windows, even while a modal dialog is open. If there is
/// no help, the user sees a message.
///
/// @param topic          as for frmHelp::Open
/// @param programFolder  the folder of the program; if empty, that of the running program
void ShowHelp(const QString& topic = {}, const QString& programFolder = {});

/// The help window, or nullptr if it does not exist.
[[nodiscard]] frmHelp* HelpWindow();

/// Closes the help window, if it exists.
void CloseHelp();

} // namespace quandrel
