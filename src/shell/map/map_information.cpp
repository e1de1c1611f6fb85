// SPDX-License-Identifier: MIT

#include "shell/map/map_information.h"

#include "mapsession/browser_contents.h"

#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

namespace quandrel {

namespace {

QTableWidgetItem* ReadOnlyItem(const std::string& text) {
    auto* item = new QTableWidgetItem(QString::fromStdString(text));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    return item;
}

} // namespace

MapInformation::MapInformation(EmbeddedMapSession& session, std::int64_t id,
                               const MapDocumentSigns& signs)
    : MapDocument(session, id, signs)
    , grdInformation_(new QTableWidget(0, 2)) {
    setObjectName("information_" + QString::number(id));
    grdInformation_->setObjectName("grdInformation");
    grdInformation_->setAccessibleName("Values of the selected object");
    grdInformation_->setHorizontalHeaderLabels({"Column", "Value"});
    grdInformation_->horizontalHeader()->setStretchLastSection(true);
    grdInformation_->verticalHeader()->hide();
    grdInformation_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    grdInformation_->setTabKeyNavigation(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(grdInformation_);
    setFocusProxy(grdInformation_);
    Refresh();
}

void MapInformation::Refresh() {
    grdInformation_->setRowCount(0);
    if (Session() == nullptr) {
        return;
    }
    for (const auto& [column, value] : InfoContents(Session()->State())) {
        const int row = grdInformation_->rowCount();
        grdInformation_->insertRow(row);
        grdInformation_->setItem(row, 0, ReadOnlyItem(column));
        grdInformation_->setItem(row, 1, ReadOnlyItem(value));
    }
    grdInformation_->resizeColumnToContents(0);
}

} // namespace quandrel
