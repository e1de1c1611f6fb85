// SPDX-License-Identifier: MIT

#include "shell/map/frm_layer_control.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace quandrel {

namespace {

enum Column { kLayer, kVisible, kSelectable, kColumns };

QTableWidgetItem* NameItem(const std::string& name) {
    auto* item = new QTableWidgetItem(QString::fromStdString(name));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    return item;
}

QTableWidgetItem* CheckItem(bool isChecked, const char* tip) {
    auto* item = new QTableWidgetItem;
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(isChecked ? Qt::Checked : Qt::Unchecked);
    item->setToolTip(tip);
    item->setData(Qt::AccessibleTextRole, tip);
    return item;
}

} // namespace

frmLayerControl::frmLayerControl(const std::vector<SessionLayer>& layers, QWidget* parent)
    : QDialog(parent)
    , layers_(layers)
    , grdLayers_(new QTableWidget(static_cast<int>(layers.size()), kColumns)) {
    setObjectName("frmLayerControl");
    setWindowTitle("Layer Control");
    grdLayers_->setObjectName("grdLayers");
    grdLayers_->setAccessibleName("Layers, the topmost first");
    grdLayers_->setHorizontalHeaderLabels({"Layer", "Visible", "Selectable"});
    grdLayers_->verticalHeader()->hide();
    grdLayers_->horizontalHeader()->setHighlightSections(false);
    grdLayers_->setTabKeyNavigation(false);
    grdLayers_->horizontalHeader()->setSectionResizeMode(kLayer, QHeaderView::Stretch);
    for (int row = 0; row < grdLayers_->rowCount(); ++row) {
        const SessionLayer& layer = layers[static_cast<std::size_t>(row)];
        grdLayers_->setItem(row, kLayer, NameItem(layer.table));
        grdLayers_->setItem(row, kVisible, CheckItem(layer.visible, "Drawn on the map"));
        grdLayers_->setItem(row, kSelectable,
                            CheckItem(layer.selectable, "Its objects are found by the tools"));
    }
    auto* label = new QLabel("&Layers of the map, the topmost first:");
    label->setBuddy(grdLayers_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(grdLayers_, 1);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(420, 260);
    grdLayers_->setFocus();
    if (grdLayers_->rowCount() > 0) {
        grdLayers_->setCurrentCell(0, kVisible);
    }
}

std::vector<SessionLayer> frmLayerControl::Layers() const {
    std::vector<SessionLayer> layers = layers_;
    for (int row = 0; row < grdLayers_->rowCount(); ++row) {
        SessionLayer& layer = layers[static_cast<std::size_t>(row)];
        layer.visible = grdLayers_->item(row, kVisible)->checkState() == Qt::Checked;
        layer.selectable = grdLayers_->item(row, kSelectable)->checkState() == Qt::Checked;
    }
    return layers;
}

} // namespace quandrel
