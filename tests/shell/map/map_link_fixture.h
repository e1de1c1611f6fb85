// SPDX-License-Identifier: MIT
//
// The windows of the map link over the program's own session, for tests: tables that are grids of
// points, and a main window that holds them.

#pragma once

#include "mapinfo/link_test_base.h"
#include "mapinfo/map_windows.h"
#include "shell/map/frm_mapinfo.h"
#include "shell/map/map_actions.h"
#include "shell/map/map_browser.h"
#include "shell/map/map_link_windows.h"
#include "shell/map/map_widget.h"
#include "support/shell_test.h"

#include <QMainWindow>
#include <QMdiArea>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <filesystem>
#include <span>

namespace quandrel {

inline constexpr int kAcross = 20;
inline constexpr int kRowsOfTable = 200;
inline constexpr int kBadRow = 13; ///< its dip is invalid

/// Where a row of the tables lies: a grid of points, one unit apart.
inline MapPoint PlaceOfRow(int row) {
    return {static_cast<double>((row - 1) % kAcross), static_cast<double>((row - 1) / kAcross)};
}

/// Any file is a table of its name, without the ending.
class GridTables : public TableSource {
public:
    SessionResult<std::vector<SessionTable>> OpenTables(const std::string& path) override {
        const std::string name = std::filesystem::path(path).stem().string();
        if (name == "broken") {
            return SessionError{kSessionFileError, "This is not a table"};
        }
        SessionTable table(name, path);
        table.AddColumn("Dip", SessionColumnKind::Number);
        table.AddColumn("DipDir", SessionColumnKind::Number);
        table.AddColumn("Length", SessionColumnKind::Number);
        table.AddColumn("Kind", SessionColumnKind::Text);
        for (int row = 1; row <= kRowsOfTable; ++row) {
            const std::vector<std::string> cells = {
                row == kBadRow ? "99" : std::to_string(row % 90), std::to_string(row), "1.5",
                row % 2 == 0 ? "vein" : "joint"};
            table.AddRow(cells);
            const MapPoint point = PlaceOfRow(row);
            table.AddPart(MapPartKind::Points, std::span(&point, 1));
        }
        return std::vector<SessionTable>{table};
    }
};

class GridSessions : public MapSessions {
public:
    SessionHost* host = nullptr;

    [[nodiscard]] std::unique_ptr<MapSession> FindRunning() override { return nullptr; }

    [[nodiscard]] std::unique_ptr<MapSession> Start() override {
        return std::make_unique<EmbeddedMapSession>(std::make_shared<GridTables>(), host);
    }

    [[nodiscard]] bool IsRegistered() override { return true; }
};

class MapinfoWindow : public LinkTest {
protected:
    void SetUp() override {
        LinkTest::SetUp();
        gSettings.windows.mapToolbar = true;
        room = new QMdiArea;
        main.setCentralWidget(room);
        toolbar = main.addToolBar("MapInfo");
        toolbar->hide();
        main.resize(1100, 700);
        main.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&main));
        MapLinkSigns signs;
        signs.plotted = [this](const std::string& command) { plotted.push_back(command); };
        signs.done = [this] { ++done; };
        windows = std::make_unique<MapLinkWindows>(main, *room, *toolbar, std::move(signs));
        grid.host = &windows->Host();
        gPlatform.mapLink.sessions = &grid;
    }

    void TearDown() override {
        windows.reset();
        LinkTest::TearDown();
    }

    [[nodiscard]] frmMapinfo* LinkForm() const {
        for (auto* child : room->findChildren<QMdiSubWindow*>()) {
            if (auto* form = dynamic_cast<frmMapinfo*>(child);
                form != nullptr && !form->isHidden()) {
                return form;
            }
        }
        return nullptr;
    }

    [[nodiscard]] QToolButton& MapButton(const char* name) const {
        return ControlOf<QToolButton>(*toolbar, name);
    }

    void Click(const char* name) const {
        ASSERT_TRUE(MapButton(name).isEnabled()) << name;
        QTest::mouseClick(&MapButton(name), Qt::LeftButton);
    }

    /// A link, with a table in a map.
    void LinkTo(const std::string& path) {
        if (gMapInfo == nullptr) {
            ASSERT_TRUE(StartMapInfoLink());
        }
        prompts.QueueOpenPath(path);
        Click("OpenMITable");
    }

    /// Plots the table in front. Returns the plot's slot.
    int PlotTable() {
        AcceptJoints();
        prompts.ExpectAny("invalid orientation data");
        prompts.ExpectAny("invalid data have been detected");
        Click("PlotMITable");
        return gActivePlot;
    }

    [[nodiscard]] EmbeddedMapSession& Session() { return *windows->Host().Session(); }

    [[nodiscard]] const std::vector<int>& Selected() { return Session().State().selection.rows; }

    [[nodiscard]] MapWidget& Map(std::int64_t id = 1) {
        return dynamic_cast<MapWidget&>(*LinkForm()->Document(id));
    }

    [[nodiscard]] const MapView& View(std::int64_t id = 1) {
        return FindSessionWindow(Session().State(), id)->view;
    }

    /// Where a point of the map is in its widget.
    [[nodiscard]] QPoint At(MapPoint point) {
        const MapPoint pixels = View().ToPixels(point);
        return QPointF(pixels.x, pixels.y).toPoint();
    }

    [[nodiscard]] QPoint AtRow(int row) { return At(PlaceOfRow(row)); }

    void Drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(&Map(), button, {}, from);
        QTest::mouseMove(&Map(), (from + to) / 2);
        QTest::mouseMove(&Map(), to);
        QTest::mouseRelease(&Map(), button, {}, to);
    }

    /// A browser of the table of the map. Returns its page.
    MapBrowser& Browse(const std::string& table) {
        const auto id = OpenMIWindow(MapWindowKind::Browser, table);
        EXPECT_TRUE(id);
        return dynamic_cast<MapBrowser&>(*LinkForm()->Document(id.value_or(0)));
    }

    /// The rows that a browser highlights.
    static std::vector<int> LitIn(const MapBrowser& browser) {
        std::vector<int> rows;
        const QAbstractItemModel& model = *browser.Grid().model();
        for (int row = 0; row < model.rowCount(); ++row) {
            if (model.index(row, 0).data(Qt::BackgroundRole).isValid()) {
                rows.push_back(row + 1);
            }
        }
        return rows;
    }

    /// The rows whose points are red on the map.
    std::vector<int> LitOnMap() {
        const QImage picture = Map().grab().toImage();
        const double density = picture.devicePixelRatio();
        std::vector<int> rows;
        for (int row = 1; row <= kRowsOfTable; ++row) {
            const QPoint at = (QPointF(AtRow(row)) * density).toPoint();
            const QColor colour = picture.pixelColor(at);
            if (colour.red() > 150 && colour.blue() < 100 && colour.green() < 100) {
                rows.push_back(row);
            }
        }
        return rows;
    }

    QMainWindow main;
    QMdiArea* room = nullptr;
    QToolBar* toolbar = nullptr;
    GridSessions grid;
    std::unique_ptr<MapLinkWindows> windows;
    std::vector<std::string> plotted;
    int done = 0;
};

/// The plot rows of the table rows that are data: the numbers are the same.
inline Rows RowsOfPlot(const std::vector<int>& tableRows) {
    Rows rows;
    for (const int row : tableRows) {
        if (row != kBadRow) {
            rows.push_back(row);
        }
    }
    return rows;
}

} // namespace quandrel
