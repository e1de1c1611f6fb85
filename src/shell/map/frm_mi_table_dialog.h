// SPDX-License-Identifier: MIT
//
// The choice of a table of the map session.

#pragma once

#include <QDialog>
#include <QStringList>

class QComboBox;

namespace quandrel {

class frmMITableDialog : public QDialog {
public:
    /// @param tables  at least one; may include the session's selection, as "Selection"
    /// @param chosen  the initial table; any other text means the first one
    frmMITableDialog(const QStringList& tables, const QString& chosen, QWidget* parent);

    /// The chosen table.
    [[nodiscard]] QString Table() const;

private:
    QComboBox* cboMITables_;
};

} // namespace quandrel
