// SPDX-License-Identifier: MIT

#include "shell/format/sample_net.h"

#include "core/settings_value.h"
#include "qt/image_surface.h"
#include "shell/controls/control_kit.h"
#include "shell/controls/picture_box.h"

#include <QLabel>
#include <QResizeEvent>

#include <algorithm>

namespace quandrel {

namespace {

constexpr int kSmallestSide = 110;
constexpr double kReachInPixels = 6;

QString CaptionOf(const FormatSample& sample) {
    const std::size_t rows = sample.lines.size();
    const QString what = sample.plot.record.PlotKind == kRose     ? "directions"
                         : sample.plot.record.DataKind == kPlanes ? "poles"
                                                                  : "lines";
    return rows == 1             ? "1 row as " + what
           : rows == kSampleRows ? QString("The first %1 rows as %2").arg(rows).arg(what)
                                 : QString("%1 rows as %2").arg(rows).arg(what);
}

} // namespace

SampleNet::SampleNet(QWidget* parent)
    : QWidget(parent)
    , picSample_(new PictureBox(this))
    , lblSample_(MakeLabel({}, "lblSample"))
    , scrap_(std::make_unique<ImageSurface>(QSize(1, 1), 1, kWhite)) {
    setObjectName("netSample");
    picSample_->setObjectName("picSample");
    picSample_->setToolTip("The first rows as they are read. Point at one to find its line");
    picSample_->setAccessibleName("The first rows as they are read");
    picSample_->setMouseTracking(true);
    lblSample_->setAlignment(Qt::AlignHCenter);
    lblSample_->setParent(this);
    setMinimumSize(kSmallestSide, kSmallestSide + lblSample_->sizeHint().height());
    picSample_->onStale = [this] { Draw(); };
    picSample_->onOverlay = [this](Surface& surface) {
        if (lit_) {
            DrawRowOfLine(sample_, surface, gSettings.styles, *lit_);
        }
    };
    picSample_->onMove = [this](quandrel::Point at, const QMouseEvent&) {
        const double unit = (kPlotScale.right - kPlotScale.left) / picSample_->width();
        Point(LineAt(sample_, at, kReachInPixels * unit));
    };
    picSample_->onLeave = [this] { Point(std::nullopt); };
}

SampleNet::~SampleNet() = default;

void SampleNet::Show(std::span<const std::string> lines, const FormatChoice& choice) {
    sample_ = SampleOfLines(lines, choice, gSettings);
    lblSample_->setText(CaptionOf(sample_));
    Draw();
}

/// The net is the largest square above its caption.
void SampleNet::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int caption = lblSample_->sizeHint().height();
    const int side = std::max(std::min(width(), height() - caption), kSmallestSide);
    picSample_->setGeometry((width() - side) / 2, 0, side, side);
    lblSample_->setGeometry(0, side, width(), caption);
}

void SampleNet::Light(std::optional<std::size_t> line) {
    if (lit_ != line) {
        lit_ = line;
        picSample_->update();
    }
}

void SampleNet::Point(std::optional<std::size_t> line) {
    if (line != lit_ && onPointed) {
        Light(line);
        onPointed(line);
    }
}

void SampleNet::Draw() {
    DrawSample(sample_, picSample_->Picture(), scrap_->Drawing(), gSettings.styles);
    picSample_->update();
}

} // namespace quandrel
