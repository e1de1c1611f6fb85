// SPDX-License-Identifier: MIT
//
// Pictures that hold their plot: exported, opened, and exported again.

#include "batch_fixture.h"
#include "pdf/pdf_file.h"
#include "persistence/picture_data.h"

#include <random>
#include <vector>

namespace quandrel {
namespace {

constexpr const char* kHolds =
    "The picture holds no plot: only pictures that were exported with their data can be opened.";

class PictureData : public BatchTest {
protected:
    [[nodiscard]] std::string Bytes(const std::string& name) const {
        std::ifstream file(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// The plot file in a picture.
    [[nodiscard]] std::string PlotIn(const std::string& name) const {
        Result<std::string> plot = PlotFileOfPicture(Bytes(name), AttachmentOfPdf);
        EXPECT_TRUE(plot) << plot.Error();
        return plot ? std::move(*plot) : std::string();
    }

    /// The picture of cluster.txt without its cone.
    [[nodiscard]] std::string ConelessSvg() {
        EXPECT_EQ(Run("format primary=line data=lines; open \"FOLDER/cluster.txt\"; "
                      "export \"FOLDER/coneless.svg\" data=yes"),
                  "");
        return Bytes("coneless.svg");
    }

    /// Exports a plot with its data, opens the picture and exports that.
    void CheckThereAndBack(const std::string& commands, const std::string& ending,
                           const std::string& keys) {
        const std::string what = commands + " " + ending + " " + keys;
        const std::string first = "a" + ending;
        const std::string again = "b" + ending;
        ASSERT_EQ(Run(commands + "; export \"FOLDER/" + first + "\" data=yes " + keys), "") << what;
        EXPECT_EQ(log.str(), "") << what;
        // The second plot of another session.
        ASSERT_EQ(Run("blank; open \"FOLDER/" + first + "\"; export \"FOLDER/" + again
                      + "\" data=yes " + keys),
                  "")
            << what;
        EXPECT_TRUE(Bytes(first) == Bytes(again)) << what;
        EXPECT_GT(Bytes(first).size(), 1000U) << what;
    }
};

TEST_F(PictureData, ComesBackToTheSameBytes) {
    Write("lines.txt", "10\t20\n30\t40\n");
    Write("more.txt", "15\t25\n35\t45\n");
    const std::vector<std::string> plots = {
        "open \"FOLDER/planes.txt\"; symbols 1",
        "open \"FOLDER/planes.txt\"; merge \"FOLDER/more.txt\"; overlay \"FOLDER/lines.txt\"; "
        "symbols 0",
        "open \"FOLDER/planes.txt\"; symbols 5; density method=kernel unit=uniform picture=both "
        "levels=even; layer add main symbols; style Grey; set DescriptionText \"Beds & \xc3\xa4\"",
        "blank"};
    for (const std::string& plot : plots) {
        for (const char* ending : {".svg", ".png", ".pdf"}) {
            CheckThereAndBack(plot, ending, "");
            CheckThereAndBack(plot, ending, "width=84mm style=journal");
        }
    }
    CheckThereAndBack("open \"FOLDER/planes.txt\"; rose sector=20", ".svg", "part=net");
    // Of plot files the choice of a cone is no part.
    Write("cluster.txt", "10\t40\n12\t45\n8\t38\n11\t50\n9\t44\n14\t41\n7\t47\n10\t36\n");
    CheckThereAndBack("format primary=line data=lines; open \"FOLDER/cluster.txt\"; cone on",
                      ".svg", "");
    EXPECT_NE(Bytes("a.svg"), ConelessSvg()) << "it is drawn";
    CheckThereAndBack(plots[1], ".png", "width=84mm background=transparent dpi=150");
}

TEST_F(PictureData, OpensTheLivePlotUnderTheNameOfThePicture) {
    Write("lines.txt", "10\t20\n30\t40\n");
    ASSERT_EQ(Run("open \"FOLDER/planes.txt\"; overlay \"FOLDER/lines.txt\"; "
                  "export \"FOLDER/figure.pdf\" data=yes"),
              "");
    std::filesystem::remove(folder / "planes.txt");
    const nlohmann::json dump = Dump("open \"FOLDER/figure.pdf\"");
    const std::string text = dump.dump();
    EXPECT_NE(text.find("figure.pdf: 1"), std::string::npos);
    EXPECT_NE(text.find("Data: planes.txt"), std::string::npos) << "the legend";
    EXPECT_NE(text.find("lines.txt"), std::string::npos) << "the overlay";
    ASSERT_EQ(Run("open \"FOLDER/figure.pdf\"; get NumData; get SaveFileName; get PlotTitle"), "");
    EXPECT_EQ(out.str(), "3\n\nfigure.pdf: 1\n") << "a save asks for a name";
    EXPECT_EQ(Run("open \"FOLDER/figure.pdf\"; save \"FOLDER/new.qpx\"; open \"FOLDER/new.qpx\""),
              "");
}

TEST_F(PictureData, HasNoPaths) {
    Write("lines.txt", "10\t20\n30\t40\n");
    for (const char* name : {"a.svg", "a.png", "a.pdf"}) {
        ASSERT_EQ(Run("open \"FOLDER/planes.txt\"; overlay \"FOLDER/lines.txt\"; export \"FOLDER/"
                      + std::string(name) + "\" data=yes"),
                  "");
        const std::string plot = PlotIn(name);
        EXPECT_NE(plot.find("planes.txt"), std::string::npos) << name;
        EXPECT_NE(plot.find("lines.txt"), std::string::npos) << name;
        EXPECT_EQ(plot.find(folder.string()), std::string::npos) << name;
        EXPECT_EQ(plot.find(folder.filename().string()), std::string::npos) << name;
        EXPECT_EQ(Bytes(name).find(folder.filename().string()), std::string::npos) << name;
    }
}

TEST_F(PictureData, IsAPlotFileThatCanBeOpenedByItself) {
    ASSERT_EQ(Run("open \"FOLDER/planes.txt\"; export \"FOLDER/a.pdf\" data=yes"), "");
    Write("taken.qpx", PlotIn("a.pdf"));
    ASSERT_EQ(Run("open \"FOLDER/taken.qpx\"; get NumData; get FileTitle"), "");
    EXPECT_EQ(out.str(), "3\ntaken.qpx\n") << "named by its own file";
}

TEST_F(PictureData, IsOnlyThereWhereItIsWanted) {
    for (const char* ending : {".svg", ".png", ".pdf"}) {
        const std::string name = std::string("a") + ending;
        for (const char* keys : {"", " data=no"}) {
            ASSERT_EQ(Run("open \"FOLDER/planes.txt\"; export \"FOLDER/" + name + "\"" + keys), "");
            EXPECT_EQ(PlotFileOfPicture(Bytes(name), AttachmentOfPdf).Error(), kHolds);
            EXPECT_NE(Run("open \"FOLDER/" + name + "\""), "") << name;
            EXPECT_NE(log.str().find(kHolds), std::string::npos) << log.str();
        }
    }
    EXPECT_NE(Run("open \"FOLDER/planes.txt\"; export \"FOLDER/a.tif\" data=yes").find("TIFF"),
              std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(folder / "a.tif"));
    ASSERT_EQ(Run("open \"FOLDER/planes.txt\"; export \"FOLDER/a.tif\""), "");
    EXPECT_NE(Run("open \"FOLDER/a.tif\""), "");
    EXPECT_NE(log.str().find(kHolds), std::string::npos) << log.str();
    EXPECT_NE(Run("open \"FOLDER/planes.txt\"; export \"FOLDER/a.svg\" data=maybe"), "");
}

TEST_F(PictureData, JoinsNoOtherPlot) {
    ASSERT_EQ(Run("open \"FOLDER/planes.txt\"; export \"FOLDER/a.svg\" data=yes"), "");
    ASSERT_EQ(Run("open \"FOLDER/planes.txt\"; merge \"FOLDER/a.svg\"; get NumData; get PlotTitle"),
              "");
    EXPECT_EQ(out.str(), "3\na.svg: 2\n");
    EXPECT_NE(log.str().find("You can't Merge this type of file"), std::string::npos) << log.str();
}

TEST_F(PictureData, ThatAPngHasNoRoomForIsLeftOutAndTold) {
    // Random decimals and texts do not compress: 6 MB of base64 are 4.5 MB of them.
    std::mt19937 random(5);
    std::string rows;
    for (int row = 0; row < 200'000; ++row) {
        rows += std::to_string(random() % 90) + "." + std::to_string(random() % 1000000) + "\t"
                + std::to_string(random() % 360) + "." + std::to_string(random() % 1000000) + "\n";
    }
    Write("many.txt", rows);
    const std::string opened = "open \"FOLDER/many.txt\"; symbols 1; ";
    ASSERT_EQ(Run(opened + "export \"FOLDER/a.png\" size=200 data=yes"), "");
    EXPECT_NE(log.str().find("The picture was saved without the data of the plot. A PNG has room "
                             "for 6 MB, and they are larger."),
              std::string::npos)
        << log.str();
    EXPECT_EQ(PlotFileOfPicture(Bytes("a.png"), AttachmentOfPdf).Error(), kHolds);
    ASSERT_EQ(Run(opened + "export \"FOLDER/a.pdf\" data=yes"), "");
    EXPECT_EQ(log.str().find("without the data"), std::string::npos) << log.str();
    EXPECT_GT(PlotIn("a.pdf").size(), 6'000'000U);
}

TEST_F(PictureData, DamagedOrCutIsRefusedOrThePlot) {
    for (const char* name : {"a.svg", "a.png", "a.pdf"}) {
        ASSERT_EQ(Run("open \"FOLDER/planes.txt\"; export \"FOLDER/" + std::string(name)
                      + "\" width=40mm legend=none data=yes"),
                  "");
        const std::string good = Bytes(name);
        const std::string plot = PlotIn(name);
        std::mt19937 random(7);
        for (int trial = 0; trial < 300; ++trial) {
            std::string bad = good;
            if (trial % 3 == 0) {
                bad.resize(random() % bad.size());
            } else {
                bad[random() % bad.size()] = static_cast<char>(random());
            }
            const Result<std::string> read = PlotFileOfPicture(bad, AttachmentOfPdf);
            // What passes the checks of the picture is checked again as a plot file.
            EXPECT_TRUE(!read || *read == plot || name == std::string("a.pdf")) << name << trial;
        }
    }
}

} // namespace
} // namespace quandrel
