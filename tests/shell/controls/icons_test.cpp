// SPDX-License-Identifier: MIT

#include "qt/theme_icon.h"
#include "shell/controls/icons.h"
#include "support/shell_test.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPalette>
#include <QPixmap>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace quandrel {
namespace {

constexpr int kSmall = 16;
constexpr int kLongestDrawing = 1200; ///< bytes

constexpr int kLeastInk = 20;     ///< pixels
constexpr int kClearlyOther = 64; ///< between two pixels in one channel of 0 to 255
constexpr int kLeastOther = 10;   ///< pixels

/// What the drawings may be coloured with besides ink.
const std::set<QString> kAccents = {"#2f7fd0", "#d1402f", "#3c9a4e", "#d99a1e"};

/// A palette for the length of a test.
class PaletteOf {
public:
    PaletteOf(const QColor& window, const QColor& text)
        : former_(QGuiApplication::palette()) {
        QPalette palette(text, window, window, window, window, text, window);
        palette.setColor(QPalette::HighlightedText, Qt::magenta);
        QGuiApplication::setPalette(palette);
    }

    ~PaletteOf() { QGuiApplication::setPalette(former_); }

    PaletteOf(const PaletteOf&) = delete;
    PaletteOf& operator=(const PaletteOf&) = delete;

private:
    QPalette former_;
};

QString SourceFolder() {
    return QString(QUANDREL_SOURCE_DIR) + "/src/shell/icons";
}

/// The names of the drawings in the folder.
QStringList NamesOfFiles() {
    QStringList names = QDir(SourceFolder()).entryList({"*.svg"}, QDir::Files, QDir::Name);
    for (QString& name : names) {
        name.chop(4);
    }
    return names;
}

/// The names of the drawings that the list of resources names, in its order.
QStringList NamesOfList() {
    QFile file(SourceFolder() + "/icons.qrc");
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QXmlStreamReader list(&file);
    QStringList names;
    while (!list.atEnd()) {
        if (list.readNextStartElement() && list.name() == QStringLiteral("file")) {
            names += list.readElementText().chopped(4);
        }
    }
    return names;
}

QByteArray DrawingOf(const QString& name) {
    QFile file(SourceFolder() + "/" + name + ".svg");
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QImage PictureOf(const QIcon& icon, QIcon::Mode mode = QIcon::Normal) {
    return icon.pixmap(QSize(kSmall, kSmall), 1.0, mode)
        .toImage()
        .convertToFormat(QImage::Format_ARGB32);
}

/// The picture as it appears on a background.
QImage OnGround(const QImage& picture, const QColor& ground) {
    QImage seen(picture.size(), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor ink = picture.pixelColor(x, y);
            const auto mixed = [&](int over, int under) {
                return (over * ink.alpha() + under * (255 - ink.alpha())) / 255;
            };
            seen.setPixelColor(x, y,
                               QColor(mixed(ink.red(), ground.red()),
                                      mixed(ink.green(), ground.green()),
                                      mixed(ink.blue(), ground.blue())));
        }
    }
    return seen;
}

/// How many pixels of two pictures differ plainly in some channel.
int PlainDifferences(const QImage& a, const QImage& b) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QColor one = a.pixelColor(x, y);
            const QColor two = b.pixelColor(x, y);
            const int most =
                std::max({std::abs(one.red() - two.red()), std::abs(one.green() - two.green()),
                          std::abs(one.blue() - two.blue())});
            count += most >= kClearlyOther ? 1 : 0;
        }
    }
    return count;
}

int InkedPixels(const QImage& picture) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            count += qAlpha(picture.pixel(x, y)) >= 128 ? 1 : 0;
        }
    }
    return count;
}

/// The sum of the coverage of all pixels, each up to 255.
int CoverOf(const QImage& picture) {
    int cover = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            cover += qAlpha(picture.pixel(x, y));
        }
    }
    return cover;
}

/// Pixels of nearly full coverage that have one colour, within the rounding of the coverage.
int PixelsOf(const QImage& picture, const QColor& colour) {
    constexpr int kRounding = 2;
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor ink = picture.pixelColor(x, y);
            const bool same = std::abs(ink.red() - colour.red()) <= kRounding
                              && std::abs(ink.green() - colour.green()) <= kRounding
                              && std::abs(ink.blue() - colour.blue()) <= kRounding;
            count += same && ink.alpha() >= 160 ? 1 : 0;
        }
    }
    return count;
}

TEST(Icons, TheListNamesEveryDrawingOnce) {
    QStringList listed = NamesOfList();
    ASSERT_FALSE(listed.isEmpty());
    listed.sort();
    EXPECT_EQ(listed.join(' ').toStdString(), NamesOfFiles().join(' ').toStdString());
}

TEST(Icons, EveryDrawingPaintsInkAtMenuSize) {
    for (const QString& name : NamesOfList()) {
        const QIcon icon = IconOf(name);
        ASSERT_FALSE(icon.isNull()) << name.toStdString();
        EXPECT_GE(InkedPixels(PictureOf(icon)), kLeastInk) << name.toStdString();
    }
}

TEST(Icons, AnyTwoAreToldApartAtMenuSizeOnLightAndDark) {
    const std::tuple<QColor, QColor> themes[] = {{Qt::white, QColor("#202020")},
                                                 {QColor("#2a2e32"), QColor("#eff0f1")}};
    for (const auto& [ground, text] : themes) {
        const PaletteOf palette(ground, text);
        std::map<QString, QImage> seen;
        for (const QString& name : NamesOfList()) {
            seen[name] = OnGround(PictureOf(IconOf(name)), ground);
        }
        for (auto one = seen.begin(); one != seen.end(); ++one) {
            for (auto two = std::next(one); two != seen.end(); ++two) {
                EXPECT_GE(PlainDifferences(one->second, two->second), kLeastOther)
                    << one->first.toStdString() << " and " << two->first.toStdString() << " on "
                    << ground.name().toStdString();
            }
        }
    }
}

TEST(Icons, InkIsTheTextColourOfThePalette) {
    for (const QColor& text : {QColor("#eff0f1"), QColor("#101214"), QColor("#c03080")}) {
        const PaletteOf palette(QColor("#808080"), text);
        for (const QString& name : NamesOfList()) {
            const QImage picture = PictureOf(IconOf(name));
            EXPECT_GE(PixelsOf(picture, text), 5) << name.toStdString();
            EXPECT_EQ(PixelsOf(picture, QColor(kIconInk)), 0) << name.toStdString();
        }
    }
}

TEST(Icons, AnIconMadeBeforeThePaletteChangedFollowsIt) {
    QIcon icon;
    {
        const PaletteOf light(Qt::white, QColor("#101214"));
        icon = IconOf("save");
        EXPECT_GE(PixelsOf(PictureOf(icon), QColor("#101214")), kLeastInk);
    }
    const PaletteOf dark(QColor("#2a2e32"), QColor("#eff0f1"));
    EXPECT_GE(PixelsOf(PictureOf(icon), QColor("#eff0f1")), kLeastInk);
}

TEST(Icons, DisabledIsFainterAndSelectedTakesTheColourOfSelectedText) {
    const PaletteOf palette(Qt::white, QColor("#101214"));
    for (const QString& name : NamesOfList()) {
        const QIcon icon = IconOf(name);
        const int faint = CoverOf(PictureOf(icon, QIcon::Disabled));
        EXPECT_GT(faint, 0) << name.toStdString();
        EXPECT_LT(faint * 2, CoverOf(PictureOf(icon))) << name.toStdString();
        EXPECT_GE(PixelsOf(PictureOf(icon, QIcon::Selected), Qt::magenta), 5) << name.toStdString();
    }
}

TEST(Icons, UnknownNamesAreEmptyIcons) {
    for (const char* name : {"", "no_such_drawing", "save.svg", "Save", "../icons/save/"}) {
        EXPECT_TRUE(IconOf(name).isNull()) << name;
    }
}

TEST(Icons, TheProgramHasItsOwn) {
    ASSERT_FALSE(ProgramIcon().isNull());
    EXPECT_EQ(PictureOf(ProgramIcon()), PictureOf(IconOf("quandrel")));
}

TEST(Icons, DrawingsKeepToThePlainPartsOfTheFormatAndToTheColours) {
    const std::set<QString> elements = {"svg", "path", "circle"};
    const QRegularExpression colours("#[0-9a-fA-F]+");
    for (const QString& name : NamesOfFiles()) {
        const QByteArray drawing = DrawingOf(name);
        EXPECT_LT(drawing.size(), kLongestDrawing) << name.toStdString();
        QXmlStreamReader reader(drawing);
        bool isRoot = true;
        while (!reader.atEnd()) {
            if (reader.readNext() != QXmlStreamReader::StartElement) {
                continue;
            }
            EXPECT_TRUE(elements.count(reader.name().toString()))
                << name.toStdString() << ": " << reader.name().toString().toStdString();
            if (isRoot) {
                EXPECT_EQ(reader.attributes().value("viewBox").toString(), "0 0 24 24")
                    << name.toStdString();
            }
            isRoot = false;
        }
        EXPECT_FALSE(reader.hasError()) << name.toStdString();
        auto found = colours.globalMatch(QString::fromUtf8(drawing));
        while (found.hasNext()) {
            const QString colour = found.next().captured();
            EXPECT_TRUE(colour == kIconInk || kAccents.count(colour))
                << name.toStdString() << ": " << colour.toStdString();
        }
    }
}

} // namespace
} // namespace quandrel
