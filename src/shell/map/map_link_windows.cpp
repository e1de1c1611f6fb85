// SPDX-License-Identifier: MIT

#include "shell/map/map_link_windows.h"

#include "core/settings.h"
#include "mapinfo/map_commands.h"
#include "mapinfo/map_link.h"
#include "mapinfo/map_windows.h"
#include "mapsession/embedded_sessions.h"
#include "platform/platform.h"
#include "shell/map/frm_mapinfo.h"
#include "shell/map/frm_mi_table_dialog.h"
#include "shell/map/map_actions.h"

#include <QAction>
#include <QCoreApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QToolBar>

#include <algorithm>
#include <filesystem>
#include <utility>

#ifdef Q_OS_WIN
#include "mapsession/windows/automation_sessions.h"
#endif

namespace quandrel {

namespace {

constexpr int kButtonSize = 20;

/// What to install if the readers of map files are missing.
constexpr const char* kPackageHint =
    ". The package quandrel includes it; a program that is built from "
    "source needs the package libgdal-dev.";

/// What the readers require if they cannot be loaded.
constexpr const char* kLibraryHint = ". The package libgdal32 is needed.";

/// The initial size of the window.
constexpr double kWidthShare = 0.5;
constexpr double kHeightShare = 0.85;

QString PlainText(const std::string& text) {
    return QString::fromStdString(text);
}

/// The program's own sessions.
class OwnSessions : public MapSessions {
public:
    explicit OwnSessions(SessionHost& host)
        : own_(std::filesystem::path(QCoreApplication::applicationDirPath().toStdU16String()),
               &host) {}

    [[nodiscard]] std::unique_ptr<MapSession> FindRunning() override { return own_.FindRunning(); }

    [[nodiscard]] std::unique_ptr<MapSession> Start() override { return own_.Start(); }

    [[nodiscard]] bool IsRegistered() override { return own_.IsRegistered(); }

    [[nodiscard]] std::string Help() override {
        const std::string& error = own_.StartError();
        return error.empty() ? error : error + (own_.IsRegistered() ? kLibraryHint : kPackageHint);
    }

private:
    EmbeddedMapSessions own_;
};

/// The sources of sessions on this machine.
std::unique_ptr<MapSessions> SessionsOfMachine(SessionHost& host) {
#ifdef Q_OS_WIN
    auto outside = std::make_unique<AutomationSessions>();
    if (outside->IsRegistered()) {
        return outside;
    }
#endif
    return std::make_unique<OwnSessions>(host);
}

/// The engine's view of the link window. The widget is deleted after it has handled its events.
class LinkWindowOnScreen : public LinkWindow {
public:
    LinkWindowOnScreen(frmMapinfo& window, MapHost& host, MapActions& actions,
                       std::function<void()> closed)
        : window_(&window)
        , host_(host)
        , actions_(actions)
        , closed_(std::move(closed)) {}

    ~LinkWindowOnScreen() override { LinkWindowOnScreen::Close(); }

    LinkWindowOnScreen(const LinkWindowOnScreen&) = delete;
    LinkWindowOnScreen& operator=(const LinkWindowOnScreen&) = delete;

    [[nodiscard]] std::uint64_t Handle() const override {
#ifdef Q_OS_WIN
        return window_ != nullptr ? window_->winId() : 0;
#else
        // A separate window would cover the others in the area, and none is requested.
        return window_ != nullptr ? window_->effectiveWinId() : 0;
#endif
    }

    void SetCaption(const std::string& caption) override {
        if (window_ != nullptr) {
            window_->setWindowTitle(PlainText(caption));
        }
    }

    void SetStatusText(const std::string& text) override {
        if (window_ != nullptr) {
            window_->SetStatusText(PlainText(text));
        }
    }

    void SetEnabled(const std::string& name, bool isEnabled) override {
        actions_.Enable(name, isEnabled, host_.HasMap());
    }

    [[nodiscard]] std::optional<std::string> AskTable(const std::vector<std::string>& tables,
                                                      const std::string& chosen) override {
        QStringList names;
        for (const std::string& table : tables) {
            names << PlainText(table);
        }
        frmMITableDialog dialog(names, PlainText(chosen), window_);
        return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Table().toStdString())
                                                  : std::nullopt;
    }

    void Close() override {
        if (window_ == nullptr) {
            return;
        }
        frmMapinfo* window = std::exchange(window_, QPointer<frmMapinfo>());
        host_.UseWindow(nullptr);
        window->onClose = {};
        window->onFocus = {};
        window->onDone = {};
        window->DropAllDocuments();
        window->hide();
        window->deleteLater();
        actions_.DisableAll();
        closed_();
    }

private:
    QPointer<frmMapinfo> window_;
    MapHost& host_;
    MapActions& actions_;
    std::function<void()> closed_;
};

} // namespace

MapLinkWindows::MapLinkWindows(QMainWindow& main, QMdiArea& room, QToolBar& toolbar,
                               MapLinkSigns signs)
    : main_(main)
    , room_(room)
    , toolbar_(toolbar)
    , signs_(std::move(signs))
    , actions_(std::make_unique<MapActions>(nullptr))
    , host_(main, *actions_)
    , sessions_(SessionsOfMachine(host_)) {
    main_.insertToolBarBreak(&toolbar_);
    toolbar_.setIconSize(QSize(kButtonSize, kButtonSize));
    toolbar_.setMovable(false);
    toolbar_.setContextMenuPolicy(Qt::PreventContextMenu);
    actions_->AddButtons(toolbar_);
    actions_->onDone = [this] { Done(); };
    MakePort();
}

MapLinkWindows::~MapLinkWindows() {
    signs_ = {};
    CloseMapInfoLink();
    gPlatform.mapLink = {};
    toolbar_.clear();
}

void MapLinkWindows::MakePort() {
    gPlatform.mapLink.sessions = sessions_.get();
    gPlatform.mapLink.mainWindow = [this] { return std::uint64_t{main_.winId()}; };
    gPlatform.mapLink.openLinkWindow = [this](std::uint64_t) -> std::unique_ptr<LinkWindow> {
        return std::make_unique<LinkWindowOnScreen>(*OpenWindow(), host_, *actions_,
                                                    [this] { Done(); });
    };
    gPlatform.mapLink.tablePlotted = [this](const std::string& command) {
        if (signs_.plotted) {
            signs_.plotted(command);
        }
    };
    gPlatform.mapLink.showToolbar = [this](bool isShown) {
        toolbar_.setVisible(isShown);
        actions_->mnuShowMIToolbar->setChecked(gSettings.windows.mapToolbar);
    };
}

void MapLinkWindows::Done() {
    if (host_.Session() != nullptr) {
        // A button whose press had no effect must not stay checked.
        actions_->ShowTool(host_.Session()->State().tool);
    }
    if (signs_.done) {
        signs_.done();
    }
}

frmMapinfo* MapLinkWindows::OpenWindow() {
    auto* window = new frmMapinfo(*actions_);
    window->onClose = [] {
        if (IsInMapAction()) {
            return false;
        }
        CloseMapInfoLink();
        return true;
    };
    window->onDocumentClose = [this](std::int64_t id) {
        if (host_.Session() != nullptr && !IsInMapAction()) {
            host_.Session()->WindowClosedByUser(id);
            Done();
        }
    };
    window->onDone = [this] { Done(); };
    window->onFocus = [] {
        CheckMICaptions();
        UpdateMIMenus();
    };
    actions_->mnuShowMIToolbar->setChecked(gSettings.windows.mapToolbar);
    room_.addSubWindow(window);
    const QSize room = room_.viewport()->size();
    const auto share = [](int length, double of) { return static_cast<int>(length * of); };
    const QSize size = QSize(share(room.width(), kWidthShare), share(room.height(), kHeightShare))
                           .expandedTo(window->minimumSize());
    window->setGeometry(QRect(QPoint(std::max(room.width() - size.width(), 0), 0), size));
    host_.UseWindow(window);
    window->show();
    return window;
}

} // namespace quandrel
