// SPDX-License-Identifier: MIT
//
// A browser window of the map session: the rows of a table, with the selected ones highlighted.

#pragma once

#include "mapsession/browser_contents.h"
#include "shell/map/map_document.h"

#include <QAbstractTableModel>

#include <memory>

class QTableView;

namespace quandrel {

/// The rows of a browser as a table model; a row is read when it becomes visible.
class BrowserModel : public QAbstractTableModel {
public:
    BrowserModel(const EmbeddedMapSession& session, std::int64_t id);

    /// Takes over the current state of the session.
    void Refresh();

    /// The session has ended.
    void Leave();

    /// The number of a row in its source table.
    [[nodiscard]] int TableRow(int row) const;

    [[nodiscard]] bool IsLit(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& cell, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

private:
    [[nodiscard]] bool HasRow(int row) const;

    const SessionState* state_;
    BrowserContents contents_;
    int rows_ = 0;
    int columns_ = 0;
    QString table_;
};

class MapBrowser : public MapDocument {
public:
    MapBrowser(EmbeddedMapSession& session, std::int64_t id, const MapDocumentSigns& signs);
    ~MapBrowser() override;

    void Refresh() override;

    [[nodiscard]] QTableView& Grid() const { return *grdBrowser_; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void ShowSelection();
    void SendSelection();

    std::unique_ptr<BrowserModel> model_;
    QTableView* grdBrowser_;
    bool following_ = false; ///< the view is being updated from the session
    bool isHeld_ = false;    ///< a mouse button is held over the rows
    bool waits_ = false;     ///< rows were selected by a button that is still held
};

} // namespace quandrel
