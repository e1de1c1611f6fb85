// SPDX-License-Identifier: MIT

#include "shell/main/frm_intro.h"

#include "core/path_names.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "qt/dark_image.h"
#include "session/example_files.h"
#include "session/start.h"
#include "sheet/sheet_text.h"
#include "shell/controls/icons.h"
#include "shell/controls/note_label.h"
#include "shell/controls/plain_tip.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

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
constexpr int kLongestName = 24;
constexpr int kRecentColumns = 3;
constexpr int kPictureSide = 56; ///< logical pixels

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

/// The picture of a file in the middle of a square, in the colours of the theme; where there is
/// none, the icon of a net,
/// or of panels for a figure sheet.
QIcon PictureOf(const QImage& image, const std::string& path) {
    if (image.isNull()) {
        return IconOf(HasEnding(path, kSheetEnding) ? "arrange" : "equal_area");
    }
    const int side = std::max(image.width(), image.height());
    const QRect square((image.width() - side) / 2, (image.height() - side) / 2, side, side);
    return QPixmap::fromImage((IsDarkTheme() ? InDarkColours(image) : image).copy(square));
}

} // namespace

frmIntro::frmIntro(QWidget* parent, const RecentPictures& pictures,
                   const std::filesystem::path& programFolder)
    : QFrame(parent)
    , pictures_(pictures)
    , recent_(new QGridLayout) {
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
        button->setFixedWidth(280);
        connect(button, &QPushButton::clicked, this,
                [this, i] { Q_EMIT StartWanted(static_cast<int>(i)); });
        layout->addWidget(button, 0, Qt::AlignHCenter);
        cmdStart[i] = button;
    }
    if (const auto examples = FindExampleFolder(programFolder)) {
        layout->addWidget(MakeExamples(*examples), 0, Qt::AlignHCenter);
    }
    layout->addSpacing(10);
    layout->addLayout(recent_);
    layout->addWidget(SetLine(
        new NoteLabel("Files and folders can be dropped here, and tables pasted (Ctrl+V)."), 0.9));
    Refresh();
}

void frmIntro::Refresh() {
    while (QLayoutItem* item = recent_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    const std::vector<std::string>& files = gSettings.files.recent;
    for (std::size_t i = 0; i < files.size(); ++i) {
        QPushButton* button = MakeRecent(i, files[i]);
        const int place = static_cast<int>(i);
        recent_->addWidget(button, place / kRecentColumns, place % kRecentColumns);
        button->show(); // a hidden button takes no space in the layout
    }
    resize(sizeHint());
}

QPushButton* frmIntro::MakeExamples(const std::filesystem::path& folder) {
    auto* button = new QPushButton(IconOf("open"), "E&xamples");
    button->setObjectName("cmdExamples");
    button->setToolTip("Opens measurements of an imaginary field season");
    button->setIconSize(QSize(22, 22));
    button->setFixedWidth(280);
    auto* menu = new QMenu(button);
    for (const ExampleFile& example : ExampleFiles()) {
        const QString path = QString::fromStdString((folder / example.name).string());
        // Opening a file hides the button to which the menu belongs.
        connect(
            menu->addAction(example.title), &QAction::triggered, this,
            [this, path, &example] {
                UseFormatOf(example);
                Q_EMIT ExampleWanted(path);
            },
            Qt::QueuedConnection);
    }
    button->setMenu(menu);
    return button;
}

QPushButton* frmIntro::MakeRecent(std::size_t number, const std::string& path) {
    auto* button = new QPushButton(PictureOf(pictures_.Of(path), path), CaptionOfFile(path));
    button->setObjectName("cmdRecent_" + QString::number(number + 1));
    button->setFlat(true);
    button->setIconSize(QSize(kPictureSide, kPictureSide));
    button->setToolTip(PlainTip(QString::fromStdString(path)));
    button->setCursor(Qt::PointingHandCursor);
    const int index = kFirstRecentFile + static_cast<int>(number);
    // A press may remove the button, because the list changes.
    connect(
        button, &QPushButton::clicked, this, [this, index] { Q_EMIT StartWanted(index); },
        Qt::QueuedConnection);
    return button;
}

void frmIntro::changeEvent(QEvent* event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        Refresh(); // the pictures follow the theme
    }
}

} // namespace quandrel
