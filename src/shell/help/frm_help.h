// SPDX-License-Identifier: MIT
//
// The help window: contents, index and full-text search beside the page that is read.
//
// This is the chief header of the room, with the keys of the help and the box about the program.
// Enters: pages from help/help_library, names of windows, words that the user types.
// What the pages say is written in docs/help; the library knows the page of each window.
// Leaves: nothing but what is read; F1 opens the page of the window that has the focus.

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

    /// Shows a page: its file, perhaps with "#" and an anchor. An empty topic is the contents page.
    void Open(const QString& topic);

    /// File of the page that is shown.
    [[nodiscard]] QString Page() const;

    /// Prints the page that is shown.
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
    /// Fits title, tree and marks to a page. The browser tells of a page before it is its source.
    void PageShown(const QString& file);
    void MarkWords();
    void Zoom(int step);
    void Print();
    void UseThemeColours();

    HelpLibrary library_;
    QString folder_;
    QString marked_; ///< the query whose words are marked on the page
    int zoom_ = 0;
};

/// Shows a page of the help in front of everything, also while a modal dialog is open. When there
/// is no help the user is told.
///
/// @param topic          as for frmHelp::Open
/// @param programFolder  where the program lies; empty is that of the running one
void ShowHelp(const QString& topic = {}, const QString& programFolder = {});

/// The help window, or nullptr while there is none.
[[nodiscard]] frmHelp* HelpWindow();

/// Closes the help window, if there is one.
void CloseHelp();

} // namespace quandrel
