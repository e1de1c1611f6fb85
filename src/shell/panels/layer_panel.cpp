// SPDX-License-Identifier: MIT

#include "shell/panels/layer_panel.h"

#include "core/plot_store.h"
#include "core/settings_value.h"
#include "drawing/figure_legend.h"
#include "drawing/symbol_choice.h"
#include "panels/layer_commands.h"
#include "panels/layer_tree.h"
#include "qt/dark_image.h"
#include "qt/layer_signs.h"
#include "stereo/window_drawing.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QSignalBlocker>

#include <utility>

namespace quandrel {

namespace {

constexpr int kPlaceRole = Qt::UserRole;         ///< of a layer
constexpr int kDataRole = Qt::UserRole + 1;      ///< LayerOf of data
constexpr int kDataIndexRole = Qt::UserRole + 2; ///< its LayerIndex
constexpr int kEntryRole = Qt::UserRole + 3;     ///< RoseEntry of an entry of a rose
constexpr int kEntryIndexRole = Qt::UserRole + 4;
constexpr int kEntryWordsRole = Qt::UserRole + 5;
constexpr int kNameColumn = 0;
constexpr int kCountColumn = 1;
constexpr int kIconSide = 16;

std::optional<std::size_t> PlaceOf(const QTreeWidgetItem* item) {
    const QVariant place = item != nullptr ? item->data(kNameColumn, kPlaceRole) : QVariant();
    return place.isValid() ? std::optional(static_cast<std::size_t>(place.toInt())) : std::nullopt;
}

std::optional<FigureLayer> DataOf(const QTreeWidgetItem* item) {
    const QVariant of = item != nullptr ? item->data(kNameColumn, kDataRole) : QVariant();
    if (!of.isValid()) {
        return std::nullopt;
    }
    FigureLayer data;
    data.LayerOf = static_cast<std::int16_t>(of.toInt());
    data.LayerIndex = static_cast<std::int16_t>(item->data(kNameColumn, kDataIndexRole).toInt());
    return data;
}

/// The entry in the legend of a rose that a line stands for, with the words it had when filled.
std::optional<RoseName> EntryOf(const QTreeWidgetItem* item) {
    const QVariant entry = item != nullptr ? item->data(kNameColumn, kEntryRole) : QVariant();
    if (!entry.isValid()) {
        return std::nullopt;
    }
    return RoseName{static_cast<std::int16_t>(entry.toInt()),
                    static_cast<std::int16_t>(item->data(kNameColumn, kEntryIndexRole).toInt()),
                    item->data(kNameColumn, kEntryWordsRole).toString().toStdString()};
}

QTreeWidgetItem* AddHeading(QTreeWidget& tree, const QString& text) {
    auto* heading = new QTreeWidgetItem(&tree, {text});
    heading->setFlags(Qt::ItemIsEnabled);
    heading->setExpanded(true);
    return heading;
}

} // namespace

LayerTreeWidget::LayerTreeWidget(std::function<void(std::size_t, std::size_t)> moved)
    : moved_(std::move(moved)) {
    setDragDropMode(InternalMove);
    setDefaultDropAction(Qt::MoveAction);
}

void LayerTreeWidget::dropEvent(QDropEvent* event) {
    const std::optional<std::size_t> from = PlaceOf(currentItem());
    QTreeWidgetItem* target = itemAt(event->position().toPoint());
    std::optional<std::size_t> to = PlaceOf(target);
    // The uppermost layer is the first line: what is dropped below a line comes below its layer.
    if (from && to && dropIndicatorPosition() == BelowItem && *to > *from) {
        --*to;
    } else if (from && to && dropIndicatorPosition() == AboveItem && *to < *from) {
        ++*to;
    }
    event->setDropAction(Qt::IgnoreAction); // the tree is filled again
    event->accept();
    if (from && to && *from != *to) {
        moved_(*from, *to);
    }
}

void LayerTreeWidget::keyPressEvent(QKeyEvent* event) {
    if (event->modifiers() == Qt::AltModifier || event->key() == Qt::Key_Delete) {
        event->ignore(); // the panel's own
    } else {
        QTreeWidget::keyPressEvent(event);
    }
}

LayerPanel::LayerPanel(QWidget* parent, LayerPanelSigns signs)
    : QDockWidget("Data and layers", parent)
    , signs_(std::move(signs)) {
    setObjectName("panLayers");
    setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    treLayers = new LayerTreeWidget([this](std::size_t from, std::size_t to) {
        MoveLayer(slot_, from, to);
        Done();
        ChoosePlace(to);
    });
    treLayers->setObjectName("treLayers");
    treLayers->setAccessibleName("Data and layers");
    treLayers->setColumnCount(2);
    treLayers->setHeaderLabels({"Layer", "Rows"});
    treLayers->header()->setStretchLastSection(false);
    treLayers->header()->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
    treLayers->header()->setSectionResizeMode(kCountColumn, QHeaderView::ResizeToContents);
    treLayers->setRootIsDecorated(false);
    treLayers->setIndentation(8);
    treLayers->setIconSize({kIconSide, kIconSide});
    treLayers->setEditTriggers(QTreeWidget::EditKeyPressed);
    treLayers->setContextMenuPolicy(Qt::CustomContextMenu);
    setWidget(treLayers);
    connect(treLayers, &QTreeWidget::itemChanged, this,
            [this](QTreeWidgetItem* item) { TakeChange(*item); });
    connect(treLayers, &QTreeWidget::currentItemChanged, this, [this] { TakeCurrent(); });
    connect(treLayers, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
        if (PlaceOf(item)) {
            signs_.propertiesWanted();
        }
    });
    connect(treLayers, &QTreeWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { ShowMenu(treLayers->viewport()->mapToGlobal(at)); });
}

std::optional<std::size_t> LayerPanel::Place() const {
    return PlaceOf(treLayers->currentItem());
}

void LayerPanel::Follow(int slot) {
    if (treLayers->IsEditing() && slot == slot_) {
        return; // a name is being typed
    }
    const std::optional<std::size_t> place = slot == slot_ ? Place() : std::nullopt;
    slot_ = slot;
    isFilling_ = true;
    Fill();
    if (place) {
        ChoosePlace(*place);
    }
    isFilling_ = false;
}

void LayerPanel::ChoosePlace(std::size_t place) {
    for (QTreeWidgetItemIterator item(treLayers); *item != nullptr; ++item) {
        if (PlaceOf(*item) == place) {
            treLayers->setCurrentItem(*item);
            return;
        }
    }
}

void LayerPanel::Fill() {
    treLayers->clear();
    if (slot_ > 0 && RecordOf(slot_).PlotKind == kRose) {
        AddEntries(*AddHeading(*treLayers, "Entries of the legend"));
    } else if (slot_ > 0) {
        AddLayers(*AddHeading(*treLayers, "Layers, the uppermost first"));
        AddData(*AddHeading(*treLayers, "Data"));
    }
}

void LayerPanel::AddLayers(QTreeWidgetItem& top) {
    top.setFlags(top.flags() | Qt::ItemIsDropEnabled); // between its layers
    const Plot& plot = PlotOf(slot_);
    const LayerSigns signs(plot, kIconSide, devicePixelRatioF());
    for (const LayerLine& line : LayerTreeOf(plot, gSettings.styles).layers) {
        auto* item = new QTreeWidgetItem(&top, {QString::fromStdString(line.name)});
        item->setData(kNameColumn, kPlaceRole, static_cast<int>(line.place));
        item->setCheckState(kNameColumn, line.layer.LayerHidden == 0 ? Qt::Checked : Qt::Unchecked);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable
                       | Qt::ItemIsEditable | Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled);
        if (const QImage sign = signs.Of(line.layer); !sign.isNull()) {
            item->setIcon(kNameColumn,
                          QPixmap::fromImage(IsDarkTheme() ? InDarkColours(sign) : sign));
        }
        item->setText(kCountColumn, line.rows > 0 ? QString::number(line.rows) : QString());
        item->setTextAlignment(kCountColumn, Qt::AlignRight | Qt::AlignVCenter);
        item->setToolTip(kNameColumn,
                         line.isPossible ? "Tick it to show it, drag it to reorder, F2 names it in "
                                           "the legend"
                                         : "The plot has no data for this layer");
        item->setDisabled(!line.isPossible);
    }
}

void LayerPanel::AddData(QTreeWidgetItem& top) {
    for (const DataLine& line : LayerTreeOf(PlotOf(slot_), gSettings.styles).data) {
        auto* item = new QTreeWidgetItem(&top, {QString::fromStdString(line.name)});
        item->setData(kNameColumn, kDataRole, int{line.data.LayerOf});
        item->setData(kNameColumn, kDataIndexRole, int{line.data.LayerIndex});
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        QFont font = item->font(kNameColumn);
        font.setBold(line.isChosen);
        item->setFont(kNameColumn, font);
        item->setText(kCountColumn, QString::number(line.rows));
        item->setTextAlignment(kCountColumn, Qt::AlignRight | Qt::AlignVCenter);
        item->setToolTip(kNameColumn, "Choose it, and the symbol buttons act on it");
    }
}

void LayerPanel::AddEntries(QTreeWidgetItem& top) {
    for (const FigureEntry& entry : LegendOfFigure(PlotOf(slot_), WindowDrawing(slot_)).entries) {
        const QString words = QString::fromStdString(entry.rose.RoseWords);
        auto* item = new QTreeWidgetItem(&top, {words});
        item->setData(kNameColumn, kEntryRole, int{entry.rose.RoseEntry});
        item->setData(kNameColumn, kEntryIndexRole, int{entry.rose.RoseIndex});
        item->setData(kNameColumn, kEntryWordsRole, words);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
        item->setToolTip(kNameColumn, "F2 changes the words in the legend of figures; without any, "
                                      "they are the program's again");
    }
}

void LayerPanel::RenameEntry(const RoseName& entry) {
    for (QTreeWidgetItemIterator item(treLayers); *item != nullptr; ++item) {
        const std::optional<RoseName> other = EntryOf(*item);
        if (other && other->RoseEntry == entry.RoseEntry && other->RoseIndex == entry.RoseIndex) {
            treLayers->setCurrentItem(*item);
            treLayers->editItem(*item, kNameColumn);
            return;
        }
    }
}

void LayerPanel::Done() {
    signs_.done();
}

/// An item must not be deleted while it is still handling its change.
void LayerPanel::DoneLater() {
    QMetaObject::invokeMethod(
        this, [this] { Done(); }, Qt::QueuedConnection);
}

/// A tick or a name.
void LayerPanel::TakeChange(QTreeWidgetItem& item) {
    if (isFilling_) {
        return;
    }
    if (const std::optional<std::size_t> place = PlaceOf(&item)) {
        TakeLayerChange(item, *place);
    } else if (std::optional<RoseName> entry = EntryOf(&item)) {
        const std::string words = item.text(kNameColumn).trimmed().toStdString();
        if (std::exchange(entry->RoseWords, words) != words) {
            RenameRoseEntry(slot_, *entry);
            DoneLater();
        }
    }
}

void LayerPanel::TakeLayerChange(const QTreeWidgetItem& item, std::size_t place) {
    for (const LayerLine& line : LayerTreeOf(PlotOf(slot_), gSettings.styles).layers) {
        if (line.place != place) {
            continue;
        }
        const bool isShown = item.checkState(kNameColumn) == Qt::Checked;
        const std::string name = item.text(kNameColumn).trimmed().toStdString();
        if (isShown != (line.layer.LayerHidden == 0)) {
            ShowLayer(slot_, place, isShown);
        } else if (name != line.name) {
            RenameLayer(slot_, place, name);
        } else {
            return;
        }
        DoneLater();
        return;
    }
}

void LayerPanel::TakeCurrent() {
    if (isFilling_) {
        return;
    }
    if (const std::optional<FigureLayer> chosen = DataOf(treLayers->currentItem())) {
        ChooseData(PlotOf(slot_), *chosen);
        DoneLater();
    }
    signs_.chosen();
}

void LayerPanel::ShowMenu(const QPoint& at) {
    auto* menu = new QMenu(this);
    menu->setObjectName("mnuLayer");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (const std::optional<std::size_t> place = Place()) {
        FillLayerMenu(*menu, *place);
    } else if (const std::optional<FigureLayer> chosen = DataOf(treLayers->currentItem())) {
        FillDataMenu(*menu, *chosen);
    } else if (EntryOf(treLayers->currentItem())) {
        menu->addAction("Re&name in Legend", this,
                        [this] { treLayers->editItem(treLayers->currentItem(), kNameColumn); });
    } else if (slot_ > 0 && RecordOf(slot_).PlotKind != kRose) {
        menu->addAction("Layers of the &Symbol Mode", this, [this] {
            UseLayersOfMode(slot_);
            Done();
        });
    }
    menu->popup(at);
}

void LayerPanel::FillLayerMenu(QMenu& menu, std::size_t place) {
    const auto add = [&](const QString& caption, const std::function<void()>& work) {
        return menu.addAction(caption, this, [this, work] {
            work();
            Done();
        });
    };
    add("Show &Alone", [this, place] { ShowLayerAlone(slot_, place); });
    menu.addAction("Re&name in Legend", this,
                   [this] { treLayers->editItem(treLayers->currentItem(), kNameColumn); });
    menu.addAction("&Properties", this, [this] { signs_.propertiesWanted(); });
    add("&Export Rows...", [this, place] { ExportRowsOfLayer(slot_, place); });
    menu.addSeparator();
    add("&Remove", [this, place] { RemoveLayer(slot_, place); });
}

void LayerPanel::FillDataMenu(QMenu& menu, const FigureLayer& of) {
    for (const std::int16_t way : WaysOfData(PlotOf(slot_), of)) {
        FigureLayer layer = of;
        layer.LayerShow = way;
        menu.addAction("Add " + QString::fromStdString(NameOfWay(way)), this, [this, layer] {
            const std::size_t place = AddLayer(slot_, layer);
            Done();
            ChoosePlace(place);
        });
    }
}

/// Up is above other layers.
void LayerPanel::MoveBy(int step) {
    const std::size_t from = *Place();
    if (step > 0 || from > 0) {
        const std::size_t to = step > 0 ? from + 1 : from - 1;
        MoveLayer(slot_, from, to);
        Done();
        ChoosePlace(to);
    }
}

void LayerPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete && Place()) {
        RemoveLayer(slot_, *Place());
        Done();
        return;
    }
    const bool isUp = event->key() == Qt::Key_Up;
    if ((isUp || event->key() == Qt::Key_Down) && event->modifiers() == Qt::AltModifier
        && Place()) {
        MoveBy(isUp ? 1 : -1);
        return;
    }
    QDockWidget::keyPressEvent(event);
}

} // namespace quandrel
