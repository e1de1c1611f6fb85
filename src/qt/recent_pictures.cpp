// SPDX-License-Identifier: MIT

#include "qt/recent_pictures.h"

#include "qt/figure_picture.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

namespace quandrel {

namespace {

constexpr int kSide = 192;          ///< pixels, for screens of twice the density
constexpr double kNetDiameter = 24; ///< millimetres: symbols and lines are large on a small net
constexpr const char* kFileKey = "Quandrel-File";
constexpr const char* kStateKey = "Quandrel-State";

/// What changes with a file: its size and its time.
QString StateOf(const std::string& file) {
    const QFileInfo info(QString::fromStdString(file));
    return QString::number(info.size()) + " "
           + QString::number(info.lastModified().toMSecsSinceEpoch());
}

/// The recent file that a plot is of; empty for none.
std::string FileOf(const PlotRecord& record, std::span<const std::string> files) {
    const auto isRecent = [files](const std::string& file) {
        return !file.empty() && std::ranges::find(files, file) != files.end();
    };
    if (isRecent(record.SaveFileName)) {
        return record.SaveFileName;
    }
    const auto found = std::ranges::find_if(record.MainFiles, isRecent);
    return found == record.MainFiles.end() ? std::string() : *found;
}

} // namespace

QString RecentPictures::PathOf(const std::string& file) const {
    const QByteArray name =
        QCryptographicHash::hash(QByteArray::fromStdString(file), QCryptographicHash::Sha1);
    return folder_ + "/" + name.toHex() + ".png";
}

void RecentPictures::Keep(const Plot& plot, std::span<const std::string> files) const {
    const std::string file = FileOf(plot.record, files);
    if (file.empty() || !QDir().mkpath(folder_)) {
        return;
    }
    FigureExport figure;
    figure.size.width = 0;
    figure.size.netDiameter = kNetDiameter;
    figure.size.legend = LegendPlace::None;
    figure.isTransparent = true;
    Result<QImage> picture = FigureImage(plot, figure, {kSide, kSide});
    if (!picture) {
        return;
    }
    picture->setText(kFileKey, QString::fromStdString(file));
    picture->setText(kStateKey, StateOf(file));
    QSaveFile saved(PathOf(file));
    if (saved.open(QIODevice::WriteOnly) && picture->save(&saved, "PNG")) {
        saved.commit();
    }
    QDir folder(folder_);
    QStringList wanted;
    for (const std::string& recent : files) {
        wanted << QFileInfo(PathOf(recent)).fileName();
    }
    for (const QString& name : folder.entryList({"*.png"}, QDir::Files)) {
        if (!wanted.contains(name)) {
            folder.remove(name);
        }
    }
}

QImage RecentPictures::Of(const std::string& file) const {
    QImageReader reader(PathOf(file), "PNG");
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > kSide || size.height() > kSide
        || reader.text(kFileKey) != QString::fromStdString(file)
        || reader.text(kStateKey) != StateOf(file)) {
        return {};
    }
    return reader.read();
}

QString FolderOfRecentPictures() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)
           + "/quandrel/pictures";
}

} // namespace quandrel
