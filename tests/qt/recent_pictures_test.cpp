// SPDX-License-Identifier: MIT

#include "core/settings_value.h"
#include "qt/recent_pictures.h"
#include "support/qt_application.h"
#include "support/slotless_plots.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace quandrel {
namespace {

class RecentPicturesTest : public ::testing::Test {
protected:
    std::string File(const std::string& name, const std::string& text) const {
        const std::string path = (temporary.path() + "/").toStdString() + name;
        std::ofstream(path) << text;
        return path;
    }

    [[nodiscard]] static Plot PlotOfFile(const std::string& path) {
        Plot plot = SlotlessPlot(kEqualArea, kPointSymbols, 1);
        plot.record.MainFiles = {path};
        return plot;
    }

    [[nodiscard]] int Pictures() const {
        return static_cast<int>(QDir(temporary.path() + "/pictures").entryList(QDir::Files).size());
    }

    QTemporaryDir temporary;
    RecentPictures pictures{temporary.path() + "/pictures"};
};

TEST_F(RecentPicturesTest, ShowTheNetOfARecentFile) {
    const std::string file = File("beds.txt", "30\t120\n");
    EXPECT_TRUE(pictures.Of(file).isNull()) << "there is none yet";
    pictures.Keep(PlotOfFile(file), std::vector{file});
    const QImage picture = pictures.Of(file);
    ASSERT_FALSE(picture.isNull());
    EXPECT_LE(std::max(picture.width(), picture.height()), 192);
    EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0) << "the corners are transparent";
    int ink = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            ink += qAlpha(picture.pixel(x, y)) > 128 && qGray(picture.pixel(x, y)) < 100 ? 1 : 0;
        }
    }
    EXPECT_GT(ink, 500) << "the primitive and the rows";
}

TEST_F(RecentPicturesTest, AreNoLongerTrueOfAChangedFile) {
    const std::string file = File("beds.txt", "30\t120\n");
    pictures.Keep(PlotOfFile(file), std::vector{file});
    File("beds.txt", "30\t120\n45\t130\n");
    EXPECT_TRUE(pictures.Of(file).isNull());
}

TEST_F(RecentPicturesTest, AreKeptForTheFileThatThePlotWasSavedTo) {
    const std::string data = File("beds.txt", "30\t120\n");
    const std::string saved = File("beds.qpx", "a plot");
    Plot plot = PlotOfFile(data);
    plot.record.SaveFileName = saved;
    pictures.Keep(plot, std::vector{data, saved});
    EXPECT_FALSE(pictures.Of(saved).isNull());
    EXPECT_TRUE(pictures.Of(data).isNull());
}

TEST_F(RecentPicturesTest, OfFilesThatAreNoLongerRecentAreRemoved) {
    const std::string first = File("a.txt", "30\t120\n");
    const std::string second = File("b.txt", "30\t120\n");
    pictures.Keep(PlotOfFile(first), std::vector{first});
    pictures.Keep(PlotOfFile(second), std::vector{second});
    EXPECT_EQ(Pictures(), 1);
    pictures.Keep(PlotOfFile(first), std::vector{second});
    EXPECT_EQ(Pictures(), 1) << "a file that is not recent has none";
    EXPECT_FALSE(pictures.Of(second).isNull());
}

TEST_F(RecentPicturesTest, IgnoreAFileThatIsNoPicture) {
    const std::string file = File("beds.txt", "30\t120\n");
    pictures.Keep(PlotOfFile(file), std::vector{file});
    const QDir folder(temporary.path() + "/pictures");
    std::ofstream(folder.filePath(folder.entryList(QDir::Files).at(0)).toStdString()) << "nonsense";
    EXPECT_TRUE(pictures.Of(file).isNull());
}

} // namespace
} // namespace quandrel
