// SPDX-License-Identifier: MIT

#include "shell/map/frm_mapinfo.h"

#include "core/plot_store.h"
#include "mapinfo/map_link.h"
#include "mapinfo/map_windows.h"
#include "shell/controls/icons.h"
#include "shell/map/map_actions.h"
#include "shell/map/map_browser.h"
#include "shell/map/map_information.h"
#include "shell/map/map_widget.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace quandrel {

namespace {

/// Width of the maps beside tables, per cent.
constexpr int kMapShare = 58;

constexpr const char* kShortcutMenu = "MapperShortcut";

const char* TitleOf(SessionWindowKind kind) {
    switch (kind) {
    case SessionWindowKind::Map:
        return "Map";
    case SessionWindowKind::Browser:
        return "Table";
    case SessionWindowKind::Info:
        break;
    }
    return "Information";
}

/// The title of a page: the tables of its window.
QString TabTextOf(const SessionWindow& window) {
    QStringList tables;
    for (const SessionLayer& layer : window.layers) {
        tables << QString::fromStdString(layer.table);
    }
    const QString title = TitleOf(window.kind);
    return tables.isEmpty() ? title : title + ": " + tables.join(", ").replace("&", "&&");
}

/// Runs an item of the session's own menus.
void RunItem(int command) {
    InMapAction([command] {
        if (!MIRunMenuCommand(command)) {
            TellInMapAction(kCommandFailed);
        }
        RefreshAfterMapAction();
    });
}

} // namespace

frmMapinfo::frmMapinfo(const MapActions& actions)
    : mnuShowMIToolbar(actions.mnuShowMIToolbar)
    , mnuPointSelect(&actions.Of("PointLink"))
    , mnuMarqueeSelect(&actions.Of("MarqueeLink"))
    , lblMIStatus(new QLabel)
    , actions_(actions) {
    setObjectName("frmMapinfo");
    setWindowTitle(QString::fromStdString(MICaptionOf({})));
    setWindowIcon(IconOf("map_link"));
    setAttribute(Qt::WA_DeleteOnClose, false);
    signs_.done = [this] {
        if (onDone) {
            onDone();
        }
    };
    signs_.menuWanted = [this](const SessionState& state, const QPoint& at) {
        PopUpMenu(state, at);
    };
    signs_.position = [this](const QString& position) { lblPosition_->setText(position); };
    auto* bar = new QMenuBar;
    bar->setNativeMenuBar(false);
    mnuFile = MakeMenu(MapMenu::File, *bar);
    mnuMap = MakeMenu(MapMenu::Map, *bar);
    mnuQuery = MakeMenu(MapMenu::Query, *bar);
    mnuSelect = MakeMenu(MapMenu::Select, *bar);
    mnuWindow = MakeMenu(MapMenu::Window, *bar);
    mnuQuandrel = MakeMenu(MapMenu::Quandrel, *bar);
    mnuQuandrel->addSeparator();
    mnuQuandrel->addAction(mnuShowMIToolbar);
    MakeBody(*bar);
    setMinimumSize(280, 220);
    resize(680, 460);
    // The keys of the window's own menu belong to the commands of the main window.
    for (QAction* action : systemMenu()->actions()) {
        action->setShortcuts(QList<QKeySequence>());
    }
    connect(this, &QMdiSubWindow::windowStateChanged, this,
            [this](Qt::WindowStates before, Qt::WindowStates now) {
                if (now.testFlag(Qt::WindowActive) && !before.testFlag(Qt::WindowActive)
                    && onFocus) {
                    onFocus();
                }
            });
}

QMenu* frmMapinfo::MakeMenu(MapMenu menu, QMenuBar& bar) {
    auto* made = new QMenu(CaptionOf(menu), this);
    made->setObjectName(NameOf(menu));
    made->setToolTipsVisible(true);
    actions_.AddItems(menu, *made);
    bar.addMenu(made);
    return made;
}

QTabWidget* frmMapinfo::MakePages(const char* name, const char* title) {
    auto* pages = new QTabWidget;
    pages->setObjectName(name);
    pages->setAccessibleName(title);
    pages->setDocumentMode(true);
    pages->setTabsClosable(true);
    pages->setMovable(true);
    pages->setUsesScrollButtons(true);
    pages->setElideMode(Qt::ElideRight);
    pages->hide();
    connect(pages, &QTabWidget::tabCloseRequested, this, [this, pages](int index) {
        const auto* page = static_cast<MapDocument*>(pages->widget(index));
        if (!gBusy && onDocumentClose) {
            onDocumentClose(page->Id());
        }
    });
    connect(pages, &QTabWidget::currentChanged, this, [pages](int index) {
        if (auto* page = static_cast<MapDocument*>(pages->widget(index));
            page != nullptr && !gBusy) {
            page->BringToFront();
        }
    });
    return pages;
}

void frmMapinfo::MakeSides() {
    tabMaps_ = MakePages("tabMaps", "Maps");
    tabBrowsers_ = MakePages("tabBrowsers", "Tables");
    tabInformation_ = MakePages("tabInformation", "Information");
    rightSide_ = new QSplitter(Qt::Vertical);
    rightSide_->addWidget(tabBrowsers_);
    rightSide_->addWidget(tabInformation_);
    rightSide_->setStretchFactor(0, 2);
    rightSide_->setStretchFactor(1, 1);
    sides_ = new QSplitter(Qt::Horizontal);
    sides_->addWidget(tabMaps_);
    sides_->addWidget(rightSide_);
    sides_->setStretchFactor(0, 3);
    sides_->setStretchFactor(1, 2);
}

void frmMapinfo::MakeTextWithoutTables() {
    lblNoTables_ = new QLabel("No table is shown.\n\nOpen Table in the File menu opens one, "
                              "New Mapper and New Browser in the Window menu show it.");
    lblNoTables_->setObjectName("lblNoTables");
    lblNoTables_->setTextFormat(Qt::PlainText);
    lblNoTables_->setWordWrap(true);
    lblNoTables_->setAlignment(Qt::AlignCenter);
    lblNoTables_->setMargin(16);
}

QLayout* frmMapinfo::MakeStatus() {
    lblMIStatus->setObjectName("lblMIStatus");
    lblMIStatus->setTextFormat(Qt::PlainText);
    // A long text must not widen the window.
    lblMIStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    lblPosition_ = new QLabel;
    lblPosition_->setObjectName("lblPosition");
    lblPosition_->setTextFormat(Qt::PlainText);
    lblPosition_->setAccessibleName("Position on the map");
    auto* status = new QHBoxLayout;
    status->setContentsMargins(6, 2, 6, 2);
    status->addWidget(lblMIStatus, 1);
    status->addWidget(lblPosition_);
    return status;
}

void frmMapinfo::MakeBody(QMenuBar& bar) {
    MakeSides();
    MakeTextWithoutTables();
    QLayout* status = MakeStatus();
    auto* body = new QWidget;
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setMenuBar(&bar);
    layout->addWidget(lblNoTables_, 1);
    layout->addWidget(sides_, 1);
    layout->addLayout(status);
    setWidget(body);
    ShowUsedPages();
}

QTabWidget& frmMapinfo::PagesOf(SessionWindowKind kind) const {
    switch (kind) {
    case SessionWindowKind::Map:
        return *tabMaps_;
    case SessionWindowKind::Browser:
        return *tabBrowsers_;
    case SessionWindowKind::Info:
        break;
    }
    return *tabInformation_;
}

void frmMapinfo::ShowUsedPages() {
    for (QTabWidget* pages : {tabMaps_, tabBrowsers_, tabInformation_}) {
        pages->setVisible(pages->count() > 0);
    }
    sides_->setVisible(!documents_.empty());
    lblNoTables_->setVisible(documents_.empty());
    const bool hasRight = tabBrowsers_->count() + tabInformation_->count() > 0;
    const bool isNew = hasRight && rightSide_->isHidden();
    rightSide_->setVisible(hasRight);
    if (isNew) {
        sides_->setSizes({width() * kMapShare / 100, width() * (100 - kMapShare) / 100});
    }
}

void frmMapinfo::ShowDocument(EmbeddedMapSession& session, const SessionWindow& window) {
    MapDocument* page = nullptr;
    switch (window.kind) {
    case SessionWindowKind::Map:
        page = new MapWidget(session, window.id, signs_);
        break;
    case SessionWindowKind::Browser:
        page = new MapBrowser(session, window.id, signs_);
        break;
    case SessionWindowKind::Info:
        page = new MapInformation(session, window.id, signs_);
        break;
    }
    documents_.push_back(page);
    QTabWidget& pages = PagesOf(window.kind);
    const int index = pages.addTab(page, TabTextOf(window));
    pages.setTabToolTip(index, pages.tabText(index).replace("&&", "&").toHtmlEscaped());
    pages.setCurrentIndex(index);
    ShowUsedPages();
}

MapDocument* frmMapinfo::Document(std::int64_t id) const {
    const auto found = std::ranges::find(documents_, id, &MapDocument::Id);
    return found == documents_.end() ? nullptr : *found;
}

void frmMapinfo::DropDocument(std::int64_t id) {
    MapDocument* page = Document(id);
    if (page == nullptr) {
        return;
    }
    std::erase(documents_, page);
    page->Leave();
    page->Refresh();
    for (QTabWidget* pages : {tabMaps_, tabBrowsers_, tabInformation_}) {
        if (const int index = pages->indexOf(page); index >= 0) {
            pages->removeTab(index);
        }
    }
    page->hide();
    page->deleteLater(); // it may be handling an event
    ShowUsedPages();
}

void frmMapinfo::DropAllDocuments() {
    // No page may use the session while the others are removed.
    for (MapDocument* page : documents_) {
        page->Leave();
    }
    while (!documents_.empty()) {
        DropDocument(documents_.back()->Id());
    }
}

void frmMapinfo::RefreshDocuments() {
    for (MapDocument* page : documents_) {
        page->Refresh();
    }
}

void frmMapinfo::ToolChanged() {
    for (MapDocument* page : documents_) {
        page->ToolChanged();
    }
}

void frmMapinfo::SetStatusText(const QString& text) {
    lblMIStatus->setText(text);
    lblMIStatus->setToolTip(text.toHtmlEscaped());
    if (gBusy) {
        // The event loop does not run during a step.
        lblMIStatus->repaint();
    }
}

void frmMapinfo::PopUpMenu(const SessionState& state, const QPoint& at) {
    auto* menu = new QMenu(this);
    menu->setObjectName(kShortcutMenu);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const MenuStatement& shortcut : state.shortcutMenus) {
        if (shortcut.name == kShortcutMenu) {
            for (const SessionMenuItem& item : shortcut.items) {
                AddShortcut(*menu, item);
            }
        }
    }
    menu->popup(at);
}

void frmMapinfo::AddShortcut(QMenu& menu, const SessionMenuItem& item) {
    auto* shown = menu.addAction(QString::fromStdString(item.caption).replace("&", "&&"));
    QAction* own = actions_.OfId(item.command);
    if (own == nullptr) {
        connect(shown, &QAction::triggered, this, [this, command = item.command] {
            RunItem(command);
            signs_.done();
        });
        return;
    }
    shown->setIcon(own->icon());
    shown->setEnabled(own->isEnabled());
    shown->setCheckable(own->isCheckable());
    shown->setChecked(own->isChecked());
    connect(shown, &QAction::triggered, own, &QAction::trigger);
}

void frmMapinfo::closeEvent(QCloseEvent* event) {
    if (gBusy || (onClose && !onClose())) {
        event->ignore();
        return;
    }
    event->accept();
}

} // namespace quandrel
