// SPDX-License-Identifier: MIT

#include "shell/map/frm_mi_table_dialog.h"

#include "mapinfo/map_windows.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace quandrel {

frmMITableDialog::frmMITableDialog(const QStringList& tables, const QString& chosen,
                                   QWidget* parent)
    : QDialog(parent)
    , cboMITables_(new QComboBox) {
    setObjectName("frmMITableDialog");
    setWindowTitle("MapInfo Tables");
    cboMITables_->setObjectName("cboMITables");
    cboMITables_->setAccessibleName("Table");
    cboMITables_->addItems(tables);
    cboMITables_->setCurrentIndex(
        static_cast<int>(std::max<qsizetype>(tables.indexOf(chosen, 0), 0)));
    cboMITables_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboMITables_->setMinimumContentsLength(28);
    const qsizetype selection = tables.indexOf(kSelectionTable);
    if (selection >= 0) {
        cboMITables_->setItemData(static_cast<int>(selection),
                                  "The rows that are selected on the map now", Qt::ToolTipRole);
    }
    auto* label = new QLabel("&Table:");
    label->setBuddy(cboMITables_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOK");
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("cmdCancel");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(cboMITables_);
    layout->addStretch(1);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    cboMITables_->setFocus();
}

QString frmMITableDialog::Table() const {
    return cboMITables_->currentText();
}

} // namespace quandrel
