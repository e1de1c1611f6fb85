// SPDX-License-Identifier: MIT

#include "shell/files/frm_export_figure.h"

#include "core/messages.h"
#include "core/plot_style.h"
#include "core/settings_value.h"
#include "persistence/style_file.h"
#include "platform/platform.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QDrag>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTimer>
#include <QUrl>

#include <algorithm>

namespace quandrel {

namespace {

constexpr int kPreviewDelay = 60; ///< milliseconds, so that typing is not slowed down
constexpr int kDragHeight = 160;
constexpr int kMostCopiedPixels = 6000; ///< of an image, each way
constexpr double kMillimetresInInch = 25.4;

/// The width of a page of each FigureWidth; 0 where the box gives it.
constexpr std::array kWidths = {kColumnWidth, kHalfPageWidth, kPageWidth, kSlideWidth, 0.0, 0.0};

} // namespace

frmExportFigure::frmExportFigure(QWidget* parent, Plot& plot)
    : QDialog(parent)
    , plot_(plot)
    , timer_(new QTimer(this)) {
    setObjectName("frmExportFigure");
    setWindowTitle("Export Image");
    timer_->setSingleShot(true);
    connect(timer_, &QTimer::timeout, this, [this] { ShowPreview(); });
    MakeControls();
    FillStyles();
    EnableFields();
}

std::size_t frmExportFigure::StyleIndex() const {
    return style_;
}

FigureExport frmExportFigure::Figure() const {
    FigureExport figure;
    const auto width = static_cast<FigureWidth>(cboWidth->currentIndex());
    figure.size.width = width == FigureWidth::Net ? 0 : spnWidth->value();
    figure.size.netDiameter = width == FigureWidth::Net ? spnWidth->value() : 0;
    figure.height = width == FigureWidth::Slide ? kSlideHeight : 0;
    figure.size.legend = static_cast<LegendPlace>(cboLegend->currentIndex());
    figure.style = StyleOfChoice(Style());
    figure.dotsPerInch = spnDots->value();
    figure.isTransparent = chkTransparent->isChecked();
    return figure;
}

PictureOptions frmExportFigure::Options() const {
    PictureOptions options;
    options.size = spnSize->value();
    options.part = optPart[1]->isChecked() ? PicturePart::NetAlone : PicturePart::WholePlot;
    options.hasData = chkData->isChecked();
    if (optFigure->isChecked()) {
        options.figure = Figure();
    }
    return options;
}

void frmExportFigure::AddStyle(const StyleChoice& choice) {
    const auto found = std::ranges::find(styles_, choice);
    style_ = static_cast<std::size_t>(found - styles_.begin());
    if (found == styles_.end()) {
        styles_.push_back(choice);
        const QString name = QString::fromStdString(StyleOfChoice(choice)->name);
        cboStyle->insertItem(static_cast<int>(style_), name.isEmpty() ? QString("Own") : name);
    }
    const QSignalBlocker quiet(*cboStyle);
    cboStyle->setCurrentIndex(static_cast<int>(style_));
}

/// The standard styles, that of the plot, and the one for print; then the item for files.
void frmExportFigure::FillStyles() {
    const QSignalBlocker quiet(*cboStyle);
    cboStyle->addItem("From a File...");
    for (const FigureStyle& style : StandardStyles()) {
        AddStyle(ChoiceOfStandard(style.name));
    }
    AddStyle(StyleChoiceOf(plot_.record));
    AddStyle(StyleChoiceForPrint(plot_.record));
}

void frmExportFigure::ChooseStyle(int index) {
    if (static_cast<std::size_t>(index) < styles_.size()) {
        style_ = static_cast<std::size_t>(index);
        ShowSoon();
    } else {
        OpenStyleFile();
    }
}

void frmExportFigure::OpenStyleFile() {
    PathQuestion question;
    question.title = "Open Style:";
    question.folder = gSettings.files.folder;
    question.filter = kStyleFilter;
    const auto path = gPlatform.prompts->AskOpenPath(question);
    const QSignalBlocker quiet(*cboStyle);
    cboStyle->setCurrentIndex(static_cast<int>(style_));
    if (!path || path->empty()) {
        return;
    }
    if (const Result<StyleChoice> style = ReadStyleFile(*path)) {
        AddStyle(*style);
        ShowSoon();
    } else {
        Tell(style.Error() + "\n" + *path);
    }
}

void frmExportFigure::ChooseWidth() {
    const auto index = static_cast<std::size_t>(cboWidth->currentIndex());
    const QSignalBlocker quiet(*spnWidth);
    if (kWidths.at(index) > 0) {
        spnWidth->setValue(kWidths.at(index));
        const bool isBeside = UsualPlace(kWidths.at(index)) == LegendPlace::Right;
        cboLegend->setCurrentIndex(
            static_cast<int>(isBeside ? LegendPlace::Right : LegendPlace::Below));
    }
    EnableFields();
    ShowSoon();
}

void frmExportFigure::EnableFields() {
    const bool isFigure = optFigure->isChecked();
    const auto width = static_cast<std::size_t>(cboWidth->currentIndex());
    for (QWidget* field :
         std::initializer_list<QWidget*>{cboStyle, cboWidth, cboLegend, spnDots, chkTransparent}) {
        field->setEnabled(isFigure);
    }
    spnWidth->setEnabled(isFigure && kWidths.at(width) == 0);
    spnSize->setEnabled(!isFigure);
}

void frmExportFigure::ShowSoon() {
    timer_->start(kPreviewDelay);
}

void frmExportFigure::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    ShowSoon();
}

void frmExportFigure::ShowPreview() {
    const double density = devicePixelRatioF();
    const QSize room = (lblPreview->contentsRect().size() * density).expandedTo({1, 1});
    cmdOK->setEnabled(true);
    cmdCopy->setEnabled(optFigure->isChecked());
    if (!optFigure->isChecked()) {
        lblPreview->setPixmap({});
        lblPreview->setText("The picture is as the window shows it.");
        lblNote->setText({});
        return;
    }
    const FigureExport figure = Figure();
    Result<QImage> image = FigureImage(plot_, figure, room);
    if (!image) {
        lblPreview->setPixmap({});
        lblPreview->setText("No picture");
        lblNote->setText(QString::fromStdString(image.Error()));
        cmdOK->setEnabled(false);
        cmdCopy->setEnabled(false);
        return;
    }
    image->setDevicePixelRatio(density);
    const double share = static_cast<double>(image->height()) / image->width();
    lblPreview->setPixmap(QPixmap::fromImage(*image));
    if (figure.size.width > 0) {
        const double height = figure.height > 0 ? figure.height : figure.size.width * share;
        lblNote->setText(
            QString("%1 by %2 mm, %3 by %4 pixels")
                .arg(figure.size.width, 0, 'f', 0)
                .arg(height, 0, 'f', 0)
                .arg(figure.size.width / kMillimetresInInch * figure.dotsPerInch, 0, 'f', 0)
                .arg(height / kMillimetresInInch * figure.dotsPerInch, 0, 'f', 0));
    } else {
        lblNote->setText("As wide as the net and its legend need");
    }
}

/// The preview can be dragged into other programs: as an SVG, as an image, and as a file.
bool frmExportFigure::eventFilter(QObject* object, QEvent* event) {
    if (object == lblPreview && event->type() == QEvent::MouseButtonPress) {
        pressedAt_ = static_cast<const QMouseEvent&>(*event).pos();
    } else if (object == lblPreview && event->type() == QEvent::MouseMove) {
        const auto& move = static_cast<const QMouseEvent&>(*event);
        const int distance = (move.pos() - pressedAt_).manhattanLength();
        if (move.buttons().testFlag(Qt::LeftButton) && distance >= QApplication::startDragDistance()
            && cmdOK->isEnabled() && optFigure->isChecked()) {
            DragPicture();
            return true;
        }
    }
    return QDialog::eventFilter(object, event);
}

/// The figure as a drawing and as an image of its resolution, with its file for those who want one.
/// Null after a failure, which the note tells.
std::unique_ptr<QMimeData> frmExportFigure::Picture() {
    std::string name = PictureName(plot_.record);
    name.replace(name.rfind('.'), std::string::npos, ".svg");
    const QString path = dragged_.filePath(QString::fromStdString(name));
    if (const std::string error = SavePlotPicture(path.toStdString(), Options()); !error.empty()) {
        lblNote->setText(QString::fromStdString(error));
        return nullptr;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        lblNote->setText(file.errorString());
        return nullptr;
    }
    const FigureExport figure = Figure();
    const double width = figure.size.width > 0 ? figure.size.width : kPageWidth;
    const int pixels = std::min(static_cast<int>(width / kMillimetresInInch * figure.dotsPerInch),
                                kMostCopiedPixels);
    const Result<QImage> image = FigureImage(plot_, figure, {pixels, kMostCopiedPixels});
    auto mime = std::make_unique<QMimeData>();
    mime->setData("image/svg+xml", file.readAll());
    mime->setImageData(image ? *image : lblPreview->pixmap().toImage());
    mime->setUrls({QUrl::fromLocalFile(path)});
    return mime;
}

void frmExportFigure::DragPicture() {
    std::unique_ptr<QMimeData> picture = Picture();
    if (picture == nullptr) {
        return;
    }
    auto* drag = new QDrag(this);
    drag->setMimeData(picture.release());
    drag->setPixmap(lblPreview->pixmap().scaledToHeight(kDragHeight, Qt::SmoothTransformation));
    drag->exec(Qt::CopyAction);
}

void frmExportFigure::CopyPicture() {
    if (std::unique_ptr<QMimeData> picture = Picture()) {
        picture->removeFormat("text/uri-list"); // the file is removed with the dialog
        QGuiApplication::clipboard()->setMimeData(picture.release());
        lblNote->setText("The figure is on the clipboard");
    }
}

} // namespace quandrel
