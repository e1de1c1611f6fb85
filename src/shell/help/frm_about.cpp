// SPDX-License-Identifier: MIT

#include "shell/help/frm_about.h"

#include "core/plot_store.h"
#include "core/settings.h"
#include "shell/controls/icons.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace quandrel {

frmAbout::frmAbout(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmAbout");
    setWindowTitle("About Quandrel");
    auto* picture = new QLabel;
    picture->setPixmap(ProgramIcon().pixmap(96));
    picture->setAccessibleName("Icon of Quandrel");
    auto* name = new QLabel(gCaption);
    name->setObjectName("lblCaption");
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    large.setBold(true);
    name->setFont(large);
    auto* date = new QLabel(QString("Version Date: ") + kVersionDate);
    date->setObjectName("lblVersionDate");
    auto* what = new QLabel("Stereonets, rose diagrams and statistics of orientation data.\n"
                            "Free software under the MIT licence.\n"
                            "Built on Qt " QT_VERSION_STR ".");
    what->setObjectName("lblNotice");
    auto* texts = new QVBoxLayout;
    texts->addWidget(name);
    texts->addWidget(date);
    texts->addSpacing(8);
    texts->addWidget(what);
    texts->addStretch(1);
    auto* top = new QHBoxLayout;
    top->addWidget(picture, 0, Qt::AlignTop);
    top->addSpacing(16);
    top->addLayout(texts, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

} // namespace quandrel
