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
    /// @param tables  at least one; the session's selection can be among them, as "Selection"
    /// @param chosen  the one that it opens with; another text is the first one
    frmMITableDialog(const QStringList& tables, const QString& chosen, QWidget* parent);

    /// The table in the box.
    [[nodiscard]] QString Table() const;

private:
    QComboBox* cboMITables_;
};

} // namespace quandrel
