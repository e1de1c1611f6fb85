// SPDX-License-Identifier: MIT
//
// The fonts and colours page of the preferences.

#include "core/settings_value.h"
#include "shell/controls/control_kit.h"
#include "shell/controls/widget_font.h"
#include "shell/preferences/frm_preferences.h"

#include <QFont>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdint>

namespace quandrel {

namespace {

constexpr double kLargestSample = 13; ///< points; the largest size that fits a font's box
constexpr QSize kSwatch(28, 16);
constexpr int kCaptionWidth = 86; ///< of fonts, so that the boxes of all groups are aligned

/// By PlotFontPlace.
constexpr std::array<ControlText, 10> kFontCaptions = {{
    {"Fabric Font", "Name of the fabric, on the screen"},
    {"Legend Font", "Legends on the screen"},
    {"Stats Font", "Statistics on the screen"},
    {"General Font", "Descriptions, the number of data, and texts on the net"},
    {"InfoBar Font", "The information line at the bottom of the main window"},
    {"DipAz Font", "The orientation under the pointer, at the bottom of the main window"},
    {"Fabric label", "Name of the fabric, on printed pages"},
    {"Legend", "Legends on printed pages"},
    {"Stats", "Statistics on printed pages"},
    {"Plot area", "Texts on the net, on printed pages"},
}};

QColor ColourOfValue(std::uint32_t value) {
    const Colour colour = ColourFromValue(value);
    return {colour.red, colour.green, colour.blue};
}

QString NameOf(const PlotFont& font) {
    QString name =
        font.font.family.empty() ? QString("Sans-serif") : QString::fromStdString(font.font.family);
    name += QString(", %1 pt").arg(font.font.points);
    name += font.font.bold ? ", bold" : "";
    name += font.font.italic ? ", italic" : "";
    return name + (font.font.underline ? ", underlined" : "");
}

/// A patch of one colour in a frame that contrasts with the patch and with the button.
void ShowColour(QPushButton& button, std::uint32_t value) {
    QImage image(kSwatch, QImage::Format_RGB32);
    image.fill(QColor(0x80, 0x80, 0x80));
    for (int y = 1; y < kSwatch.height() - 1; ++y) {
        for (int x = 1; x < kSwatch.width() - 1; ++x) {
            image.setPixelColor(x, y, ColourOfValue(value));
        }
    }
    button.setIcon(QPixmap::fromImage(image));
    button.setIconSize(kSwatch);
}

} // namespace

void frmPreferences::AddFont(QGridLayout& grid, int line, std::size_t font,
                             const QString& caption) {
    const QString name = kFontCaptions[font].caption;
    txtFontBox[font] = new QLineEdit;
    txtFontBox[font]->setObjectName(Numbered("txtFontBox", font));
    txtFontBox[font]->setReadOnly(true);
    txtFontBox[font]->setAccessibleName(name);
    txtFontBox[font]->setToolTip(kFontCaptions[font].tip);
    txtFontBox[font]->setMinimumWidth(190);
    cmdFont[font] = new QPushButton("Change...");
    cmdFont[font]->setObjectName(Numbered("cmdFont", font));
    cmdFont[font]->setAccessibleName("Change " + name);
    cmdFontColour[font] = new QPushButton;
    cmdFontColour[font]->setObjectName(Numbered("cmdFontColour", font));
    cmdFontColour[font]->setAccessibleName("Colour of " + name);
    cmdFontColour[font]->setToolTip("Colour of the text");
    grid.addWidget(new QLabel(caption), line, 0);
    grid.addWidget(txtFontBox[font], line, 1);
    grid.addWidget(cmdFont[font], line, 2);
    grid.addWidget(cmdFontColour[font], line, 3);
}

void frmPreferences::AddPlotColours(QGridLayout& grid, int line) {
    constexpr std::array<const char*, 2> kColours = {"b'ground", "axes/circle"};
    constexpr std::array<const char*, 2> kTips = {"Background of plots on the screen",
                                                  "Colour of the circle and the axes"};
    for (std::size_t i = 0; i < kColours.size(); ++i) {
        cmdPlotColour[i] = new QPushButton;
        cmdPlotColour[i]->setObjectName(Numbered("cmdPlotColour", i));
        cmdPlotColour[i]->setAccessibleName(kTips[i]);
        cmdPlotColour[i]->setToolTip(kTips[i]);
        grid.addWidget(new QLabel(kColours[i]), line, 0);
        grid.addWidget(cmdPlotColour[i], line++, 1, Qt::AlignLeft);
    }
}

QWidget* frmPreferences::MakeFontsPage() {
    struct Group {
        const char* title;
        std::size_t first;
        std::size_t last;
    };

    constexpr std::array<Group, 4> kGroups = {
        {{"All plots", kFabricFont, kGeneralFont},
         {"Lower infomation bar", kInfoBarFont, kInfoBarFont},
         {"Lower left orientation box", kDipAzFont, kDipAzFont},
         {"Printer", kPrintFabricFont, kPrintPlotFont}}};
    auto* page = new QWidget;
    auto* columns = new QHBoxLayout(page);
    auto* screen = new QVBoxLayout;
    auto* printer = new QVBoxLayout;
    for (const Group& group : kGroups) {
        const bool isPrinter = group.first == kPrintFabricFont;
        auto* box = new QGroupBox(group.title);
        auto* grid = new QGridLayout(box);
        grid->setColumnMinimumWidth(0, kCaptionWidth);
        grid->setColumnStretch(1, 1);
        int line = 0;
        for (std::size_t font = group.first; font <= group.last; ++font) {
            AddFont(*grid, line++, font, kFontCaptions[font].caption);
        }
        if (group.first == kFabricFont) {
            AddPlotColours(*grid, line);
        }
        (isPrinter ? printer : screen)->addWidget(box);
    }
    screen->addStretch(1);
    printer->addStretch(1);
    columns->addLayout(screen, 1);
    columns->addLayout(printer, 1);
    return page;
}

void frmPreferences::ShowFonts() {
    for (std::size_t i = 0; i < txtFontBox.size(); ++i) {
        const PlotFont& font = now_.styles.fonts[i];
        const auto value = static_cast<std::uint32_t>(font.colour);
        QFont sample = WidgetFont(font);
        sample.setPointSizeF(std::min(sample.pointSizeF(), kLargestSample));
        QPalette paper = txtFontBox[i]->palette();
        paper.setColor(QPalette::Base, Qt::white);
        paper.setColor(QPalette::Text, ColourOfValue(value));
        txtFontBox[i]->setPalette(paper);
        txtFontBox[i]->setFont(sample);
        txtFontBox[i]->setText(NameOf(font));
        txtFontBox[i]->setCursorPosition(0);
        ShowColour(*cmdFontColour[i], value);
    }
    ShowColour(*cmdPlotColour[0], now_.styles.plotBackColour);
    ShowColour(*cmdPlotColour[1], now_.styles.plotAxesColour);
}

void frmPreferences::ChooseFont(std::size_t font) {
    const auto chosen = askFont(WidgetFont(now_.styles.fonts[font]));
    if (!chosen) {
        return;
    }
    PlotFont& place = now_.styles.fonts[font];
    place.font.family = chosen->family().toStdString();
    place.font.points = std::max(chosen->pointSizeF(), 1.0);
    place.font.bold = chosen->bold();
    place.font.italic = chosen->italic();
    place.font.underline = chosen->underline();
    place.weight = chosen->weight();
    ShowFonts();
    DrawPictures();
}

void frmPreferences::ChooseFontColour(std::size_t font) {
    std::int32_t& place = now_.styles.fonts[font].colour;
    const Colour former = ColourFromValue(static_cast<std::uint32_t>(place));
    if (const auto colour = askColour(former, "Colour of the text")) {
        place = static_cast<std::int32_t>(ColourValue(*colour));
        ShowFonts();
    }
}

void frmPreferences::ChoosePlotColour(std::size_t which) {
    std::uint32_t& place = which == 0 ? now_.styles.plotBackColour : now_.styles.plotAxesColour;
    const QString title = which == 0 ? "Background of plots" : "Colour of circle and axes";
    if (const auto colour = askColour(ColourFromValue(place), title)) {
        place = ColourValue(*colour);
        ShowFonts();
        DrawPictures();
    }
}

void UseInfoFonts(QLabel& infoLine, QLabel& orientationBox) {
    const auto use = [](QLabel& label, PlotFontPlace place) {
        const PlotFont& font = gSettings.styles.fonts[place];
        const bool isChosen = !(font.font == FontSpec{});
        label.setFont(isChosen ? WidgetFont(font) : QFont());
        QPalette colours;
        if (font.colour != 0) { // black means the text colour of the desktop
            colours.setColor(QPalette::WindowText,
                             ColourOfValue(static_cast<std::uint32_t>(font.colour)));
        }
        label.setPalette(colours);
    };
    use(infoLine, kInfoBarFont);
    use(orientationBox, kDipAzFont);
}

} // namespace quandrel
