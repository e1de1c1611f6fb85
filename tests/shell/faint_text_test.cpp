// SPDX-License-Identifier: MIT

#include "shell/faint_text.h"
#include "stereo/colour_names.h"
#include "support/main_window_test.h"

#include <QLineEdit>
#include <QPlainTextEdit>

namespace quandrel {
namespace {

Colour Blended(const QColor& ink, const QColor& paper) {
    const auto mix = [&](int a, int b) {
        const double share = static_cast<double>(ink.alphaF());
        return static_cast<std::uint8_t>(a * share + b * (1 - share) + 0.5);
    };
    return {mix(ink.red(), paper.red()), mix(ink.green(), paper.green()),
            mix(ink.blue(), paper.blue())};
}

double ContrastOn(const QColor& ink, const QColor& paper) {
    return ContrastOf(Blended(ink, paper), Blended(paper, paper));
}

QPalette ThemeOf(const QColor& text, const QColor& base, const QColor& window) {
    QPalette palette;
    for (const QPalette::ColorRole role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(role, text);
    }
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Button, window);
    return palette;
}

/// Themes of today's desktops, and one of little contrast.
std::vector<QPalette> Themes() {
    return {ThemeOf(Qt::black, Qt::white, QColor(0xef, 0xef, 0xef)),
            ThemeOf(QColor(0x23, 0x26, 0x29), Qt::white, QColor(0xef, 0xf0, 0xf1)),
            ThemeOf(Qt::white, QColor(0x23, 0x23, 0x23), QColor(0x32, 0x32, 0x32)),
            ThemeOf(QColor(0xfc, 0xfc, 0xfc), QColor(0x1b, 0x1e, 0x20), QColor(0x2a, 0x2e, 0x32)),
            ThemeOf(QColor(0x30, 0x30, 0x30), QColor(0xd8, 0xd8, 0xd8), QColor(0xc8, 0xc8, 0xc8))};
}

class FaintTexts : public MainWindowTest {
protected:
    void TearDown() override {
        QApplication::setPalette(former_);
        MainWindowTest::TearDown();
    }

    QPalette former_ = QApplication::palette();
};

constexpr double kLegible = 4.5; // Web Content Accessibility Guidelines 2.1, 1.4.3

TEST_F(FaintTexts, AreReadableOnBoxesAndWindowsOfEachTheme) {
    for (const QPalette& theme : Themes()) {
        const QColor faint = MutedText(theme);
        EXPECT_GE(ContrastOn(faint, theme.color(QPalette::Base)), kLegible);
        EXPECT_GE(ContrastOn(faint, theme.color(QPalette::Window)), kLegible);
        EXPECT_LT(ContrastOn(faint, theme.color(QPalette::Base)),
                  ContrastOn(theme.color(QPalette::Text), theme.color(QPalette::Base)))
            << "they are fainter than other texts";
    }
}

TEST_F(FaintTexts, OfEmptyBoxesFollowTheTheme) {
    for (const QPalette& theme : Themes()) {
        QApplication::setPalette(theme);
        QCoreApplication::processEvents();
        const QLineEdit box;
        const QColor hint = box.palette().color(QPalette::PlaceholderText);
        EXPECT_GE(ContrastOn(hint, box.palette().color(QPalette::Base)), kLegible)
            << hint.name(QColor::HexArgb).toStdString();
        EXPECT_EQ(box.palette().color(QPalette::Base), theme.color(QPalette::Base));
    }
}

TEST_F(FaintTexts, OfThePlotWindowAreReadableOnItsPaper) {
    OpenFile("a.txt");
    const frmPlotForms& form = FormOfSlot(gActivePlot);
    const QList<const QWidget*> boxes = {form.txtDescBox, form.txtFabricBox};
    for (const QWidget* box : boxes) {
        EXPECT_GE(ContrastOn(box->palette().color(QPalette::PlaceholderText),
                             box->palette().color(QPalette::Base)),
                  kLegible);
    }
}

} // namespace
} // namespace quandrel
