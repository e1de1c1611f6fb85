// SPDX-License-Identifier: MIT

#include "shell/main/frm_intro.h"

#include "core/path_names.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "session/start.h"
#include "session/window_state.h"
#include "shell/controls/icons.h"
#include "shell/controls/note_label.h"
#include "shell/controls/plain_tip.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace quandrel {

namespace {

struct Start {
    const char* caption;
    const char* icon;
    const char* tip;
};

/// In the order of the start commands.
constexpr std::array<Start, 3> kStarts = {{
    {"&Stereographic projection", "equal_area", "Opens a data file as a stereonet"},
    {"&Rose Diagram", "rose", "Opens a data file as a rose diagram"},
    {"&Blank plot window", "blank", "Opens an empty plot"},
}};

constexpr int kMargin = 28;
constexpr int kLongestName = 48;

/// Centres a line and scales its font relative to other texts.
QLabel* SetLine(QLabel* line, double scale) {
    line->setTextFormat(Qt::PlainText);
    line->setAlignment(Qt::AlignHCenter);
    QFont font = line->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    line->setFont(font);
    return line;
}

QLabel* MakeLine(const QString& text, double scale) {
    return SetLine(new QLabel(text), scale);
}

/// A file name as a caption: "&" is doubled, and a long name is cut in the middle.
QString CaptionOfFile(const std::string& path) {
    QString name = QString::fromStdString(FileTitleOf(path));
    if (name.size() > kLongestName) {
        name = name.left(kLongestName / 2) + QString(QChar(0x2026)) + name.right(kLongestName / 2);
    }
    return name.replace("&", "&&");
}

} // namespace

frmIntro::frmIntro(QWidget* parent)
    : QFrame(parent)
    , recent_(new QVBoxLayout) {
    setObjectName("frmIntro");
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    auto* picture = new QLabel;
    picture->setPixmap(ProgramIcon().pixmap(72));
    picture->setAlignment(Qt::AlignHCenter);
    layout->addWidget(picture);
    layout->addWidget(MakeLine(gCaption, 1.5));
    auto* date = MakeLine(QString("Version Date: ") + kVersionDate, 0.9);
    date->setObjectName("lblVersionDate");
    layout->addWidget(date);
    layout->addSpacing(14);
    for (std::size_t i = 0; i < kStarts.size(); ++i) {
        auto* button = new QPushButton(IconOf(kStarts[i].icon), kStarts[i].caption);
        button->setObjectName("cmdStart_" + QString::number(i));
        button->setToolTip(kStarts[i].tip);
        button->setIconSize(QSize(22, 22));
        button->setMinimumWidth(280);
        connect(button, &QPushButton::clicked, this,
                [this, i] { Q_EMIT StartWanted(static_cast<int>(i)); });
        layout->addWidget(button);
        cmdStart[i] = button;
    }
    layout->addSpacing(10);
    layout->addLayout(recent_);
    layout->addWidget(SetLine(new NoteLabel("Files can be dropped here, too."), 0.9));
    Refresh();
}

void frmIntro::Refresh() {
    while (QLayoutItem* item = recent_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    for (std::size_t i = 0; i < gSettings.files.recent.size(); ++i) {
        auto* button = new QPushButton(CaptionOfFile(gSettings.files.recent[i]));
        button->setObjectName("cmdRecent_" + QString::number(i + 1));
        button->setFlat(true);
        button->setToolTip(PlainTip(QString::fromStdString(gSettings.files.recent[i])));
        button->setCursor(Qt::PointingHandCursor);
        const int index = kFirstRecentFile + static_cast<int>(i);
        // A press may remove the button, because the list changes.
        connect(
            button, &QPushButton::clicked, this, [this, index] { Q_EMIT StartWanted(index); },
            Qt::QueuedConnection);
        recent_->addWidget(button);
        button->show(); // a hidden button takes no space in the layout
    }
    resize(sizeHint());
}

} // namespace quandrel
