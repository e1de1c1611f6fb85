// SPDX-License-Identifier: MIT

#include "shell/map/map_browser.h"

#include "core/plot_store.h"
#include "mapsession/statement_lexer.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

constexpr int kShownCharacters = 500;
constexpr int kRowsMeasured = 50;
constexpr int kWidestColumn = 220;

/// The view's own selection is slow with many runs of rows; above this number, rows are only
/// highlighted.
constexpr std::size_t kMostRuns = 1000;

QString Shown(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
        .left(kShownCharacters);
}

/// Highlighted rows look the same in active and inactive windows.
void LightAlways(QWidget& grid) {
    QPalette palette = grid.palette();
    for (const auto role : {QPalette::Highlight, QPalette::HighlightedText}) {
        palette.setColor(QPalette::Inactive, role, palette.color(QPalette::Active, role));
    }
    grid.setPalette(palette);
}

} // namespace

BrowserModel::BrowserModel(const EmbeddedMapSession& session, std::int64_t id)
    : state_(&session.State())
    , contents_(session.State(), id) {
    Refresh();
}

void BrowserModel::Refresh() {
    if (state_ == nullptr) {
        return;
    }
    const QString table = Shown(contents_.TableName());
    const int rows = contents_.RowCount();
    const int columns = contents_.ColumnCount();
    const bool isSelection = EqualNames(contents_.TableName(), kSelectionName);
    if (isSelection || table != table_ || rows != rows_ || columns != columns_) {
        beginResetModel();
        table_ = table;
        rows_ = rows;
        columns_ = columns;
        endResetModel();
    } else if (rows > 0 && columns > 0) {
        Q_EMIT dataChanged(index(0, 0), index(rows - 1, columns - 1),
                           {Qt::BackgroundRole, Qt::ForegroundRole});
    }
}

void BrowserModel::Leave() {
    beginResetModel();
    state_ = nullptr;
    rows_ = 0;
    columns_ = 0;
    endResetModel();
}

bool BrowserModel::HasRow(int row) const {
    // The selection may have shrunk before the table was notified.
    return state_ != nullptr && row >= 0 && row < contents_.RowCount();
}

int BrowserModel::TableRow(int row) const {
    return HasRow(row) ? contents_.TableRow(row + 1) : 0;
}

bool BrowserModel::IsLit(int row) const {
    return HasRow(row) && !EqualNames(contents_.TableName(), kSelectionName)
           && contents_.IsSelected(row + 1);
}

int BrowserModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int BrowserModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

QVariant BrowserModel::data(const QModelIndex& cell, int role) const {
    if (!cell.isValid() || !HasRow(cell.row()) || cell.column() >= contents_.ColumnCount()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return Shown(contents_.Cell(cell.row() + 1, cell.column() + 1));
    case Qt::TextAlignmentRole: {
        const bool isNumber = contents_.Column(cell.column() + 1).kind == SessionColumnKind::Number;
        return QVariant::fromValue((isNumber ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    case Qt::BackgroundRole:
        return IsLit(cell.row()) ? QVariant(QGuiApplication::palette().brush(QPalette::Highlight))
                                 : QVariant();
    case Qt::ForegroundRole:
        return IsLit(cell.row())
                   ? QVariant(QGuiApplication::palette().brush(QPalette::HighlightedText))
                   : QVariant();
    default:
        return {};
    }
}

QVariant BrowserModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || state_ == nullptr) {
        return {};
    }
    if (orientation == Qt::Vertical) {
        return TableRow(section);
    }
    return section < contents_.ColumnCount() ? Shown(contents_.Column(section + 1).name)
                                             : QString();
}

MapBrowser::MapBrowser(EmbeddedMapSession& session, std::int64_t id, const MapDocumentSigns& signs)
    : MapDocument(session, id, signs)
    , model_(std::make_unique<BrowserModel>(session, id))
    , grdBrowser_(new QTableView) {
    setObjectName("browser_" + QString::number(id));
    grdBrowser_->setObjectName("grdBrowser_" + QString::number(id));
    grdBrowser_->setAccessibleName("Rows of the table");
    grdBrowser_->setModel(model_.get());
    grdBrowser_->setSelectionBehavior(QAbstractItemView::SelectRows);
    const bool isSelection = EqualNames(Window()->layers.front().table, kSelectionName);
    grdBrowser_->setSelectionMode(isSelection ? QAbstractItemView::NoSelection
                                              : QAbstractItemView::ExtendedSelection);
    grdBrowser_->setWordWrap(false);
    grdBrowser_->setTabKeyNavigation(false);
    LightAlways(*grdBrowser_);
    grdBrowser_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    grdBrowser_->horizontalHeader()->setHighlightSections(false);
    grdBrowser_->horizontalHeader()->setResizeContentsPrecision(kRowsMeasured);
    grdBrowser_->resizeColumnsToContents();
    for (int column = 0; column < model_->columnCount(); ++column) {
        grdBrowser_->setColumnWidth(column,
                                    std::min(grdBrowser_->columnWidth(column), kWidestColumn));
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(grdBrowser_);
    setFocusProxy(grdBrowser_);
    grdBrowser_->installEventFilter(this);
    grdBrowser_->viewport()->installEventFilter(this);
    ShowSelection();
    connect(grdBrowser_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (following_) {
            return;
        }
        waits_ = isHeld_;
        if (!waits_) {
            SendSelection();
        }
    });
}

MapBrowser::~MapBrowser() {
    grdBrowser_->setModel(nullptr);
}

void MapBrowser::Refresh() {
    following_ = true;
    if (Window() == nullptr) {
        model_->Leave();
    } else {
        model_->Refresh();
        ShowSelection();
    }
    following_ = false;
}

void MapBrowser::ShowSelection() {
    if (model_->rowCount() == 0 || grdBrowser_->selectionMode() == QAbstractItemView::NoSelection) {
        return;
    }
    std::vector<std::pair<int, int>> runs;
    const SessionSelection& selection = Session()->State().selection;
    const bool isOurs = EqualNames(selection.table, Window()->layers.front().table);
    const std::span<const int> rows(selection.rows.data(), isOurs ? selection.rows.size() : 0);
    for (const int row : rows) {
        if (!runs.empty() && runs.back().second == row - 1) {
            runs.back().second = row;
        } else {
            runs.emplace_back(row, row);
        }
    }
    const bool wasFollowing = std::exchange(following_, true);
    QItemSelection lit;
    if (runs.size() <= kMostRuns) {
        for (const auto& [first, last] : runs) {
            lit.append(QItemSelectionRange(model_->index(first - 1, 0),
                                           model_->index(last - 1, model_->columnCount() - 1)));
        }
    }
    if (lit != grdBrowser_->selectionModel()->selection()) {
        grdBrowser_->selectionModel()->select(lit, QItemSelectionModel::ClearAndSelect);
    }
    if (!runs.empty() && !grdBrowser_->viewport()->hasFocus() && !grdBrowser_->hasFocus()) {
        grdBrowser_->scrollTo(model_->index(runs.front().first - 1, 0));
    }
    following_ = wasFollowing;
}

void MapBrowser::SendSelection() {
    waits_ = false;
    if (Window() == nullptr) {
        return;
    }
    if (gBusy) {
        Refresh();
        return;
    }
    std::vector<int> rows;
    for (const QModelIndex& row : grdBrowser_->selectionModel()->selectedRows()) {
        rows.push_back(model_->TableRow(row.row()));
    }
    BringToFront();
    Session()->SelectInBrowser(Id(), rows);
    TellDone();
}

bool MapBrowser::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        BringToFront();
    } else if (event->type() == QEvent::MouseButtonPress
               || event->type() == QEvent::MouseButtonDblClick) {
        isHeld_ = true;
    } else if (event->type() == QEvent::MouseButtonRelease) {
        isHeld_ = false;
        // The table receives the release first, so the selection is then up to date.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (waits_) {
                    SendSelection();
                }
            },
            Qt::QueuedConnection);
    } else if (event->type() == QEvent::ShortcutOverride
               && static_cast<QKeyEvent*>(event)->matches(QKeySequence::SelectAll)) {
        event->accept();
        return true;
    }
    return QWidget::eventFilter(object, event);
}

} // namespace quandrel
