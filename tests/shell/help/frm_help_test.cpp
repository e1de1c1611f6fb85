// SPDX-License-Identifier: MIT

#include "help/help_text.h"
#include "shell/help/frm_help.h"
#include "shell/help/help_keys.h"
#include "shell/main/commands.h"
#include "support/shell_test.h"

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QDialog>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPdfWriter>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QTreeWidget>
#include <QWindow>

#include <fstream>
#include <iterator>
#include <set>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

/// The folder of test programs, from which the pages of the sources are found.
const QString kProgramFolder = QString(QUANDREL_SOURCE_DIR) + "/build/any/tests";

class HelpWindowTest : public EngineTest {
protected:
    void TearDown() override {
        CloseHelp();
        EngineTest::TearDown();
    }

    static frmHelp& Show(const QString& topic = {}) {
        ShowHelp(topic, kProgramFolder);
        EXPECT_NE(HelpWindow(), nullptr);
        return *HelpWindow();
    }
};

TEST_F(HelpWindowTest, ShowsTheContentsAndTheirTree) {
    frmHelp& help = Show();
    EXPECT_TRUE(help.isVisible());
    EXPECT_EQ(help.Page(), "contents.html");
    EXPECT_EQ(help.windowTitle(), "Contents \u2013 Quandrel Help");
    EXPECT_GT(help.treContents->topLevelItemCount(), 5);
    EXPECT_GT(help.treContents->topLevelItem(0)->childCount(), 3);
    EXPECT_FALSE(help.actBack->isEnabled());
}

TEST_F(HelpWindowTest, OpensATopicAtItsAnchorAndMarksItInTheTree) {
    frmHelp& help = Show("dialog_preferences.html#general");
    EXPECT_EQ(help.Page(), "dialog_preferences.html");
    EXPECT_EQ(help.brwPage->source().fragment(), "general");
    ASSERT_NE(help.treContents->currentItem(), nullptr);
    EXPECT_EQ(help.treContents->currentItem()->text(0), "Preferences");
}

TEST_F(HelpWindowTest, IsOneWindowForAllTopics) {
    frmHelp& first = Show("keys.html");
    EXPECT_EQ(&Show("girdles.html"), &first);
    EXPECT_EQ(first.Page(), "girdles.html");
}

TEST_F(HelpWindowTest, GoesBackForwardAndHome) {
    frmHelp& help = Show("keys.html");
    help.Open("girdles.html");
    EXPECT_TRUE(help.actBack->isEnabled());
    help.actBack->trigger();
    EXPECT_EQ(help.Page(), "keys.html");
    help.actForward->trigger();
    EXPECT_EQ(help.Page(), "girdles.html");
    help.actHome->trigger();
    EXPECT_EQ(help.Page(), "contents.html");
}

TEST_F(HelpWindowTest, OpensWhatIsPressedInTheTree) {
    frmHelp& help = Show();
    QTreeWidgetItem* const item = help.treContents->topLevelItem(1)->child(0);
    QTest::mouseClick(help.treContents->viewport(), Qt::LeftButton, Qt::NoModifier,
                      help.treContents->visualItemRect(item).center());
    EXPECT_EQ(help.Page(), item->data(0, Qt::UserRole).toString());
    const QString before = help.Page();
    QTest::mouseClick(help.treContents->viewport(), Qt::LeftButton, Qt::NoModifier,
                      help.treContents->visualItemRect(help.treContents->topLevelItem(0)).center());
    EXPECT_EQ(help.Page(), before) << "a heading has no page";
}

TEST_F(HelpWindowTest, FindsTermsAsTheyAreTyped) {
    frmHelp& help = Show();
    help.tabHelp->setCurrentIndex(1);
    QTest::keyClicks(help.txtIndex, "terzaghi");
    int visible = 0;
    for (int i = 0; i < help.lstIndex->count(); ++i) {
        visible += help.lstIndex->item(i)->isHidden() ? 0 : 1;
    }
    EXPECT_EQ(visible, 1);
    QTest::keyClick(help.txtIndex, Qt::Key_Return);
    EXPECT_EQ(help.Page(), "dialog_rose.html");
    EXPECT_EQ(help.brwPage->source().fragment(), "bias");
}

TEST_F(HelpWindowTest, SearchesAndMarksTheWords) {
    frmHelp& help = Show();
    help.actFind->trigger();
    EXPECT_EQ(help.tabHelp->currentIndex(), 2);
    QTest::keyClicks(help.txtSearch, "Kamb counter");
    ASSERT_EQ(help.lstHits->count(), 2) << "densities and literature";
    EXPECT_EQ(help.lblHits->text(), "2 pages");
    QTest::keyClick(help.txtSearch, Qt::Key_Return);
    EXPECT_EQ(help.Page(), help.lstHits->item(0)->data(Qt::UserRole).toString());
    const auto marks = help.brwPage->extraSelections();
    ASSERT_FALSE(marks.isEmpty());
    std::set<QString> marked;
    for (const auto& mark : marks) {
        marked.insert(mark.cursor.selectedText().toLower());
    }
    EXPECT_TRUE(marked.contains("kamb"));
    EXPECT_TRUE(marked.contains("counter"));
    help.Open("keys.html");
    EXPECT_TRUE(help.brwPage->extraSelections().isEmpty()) << "another way to another page";
}

TEST_F(HelpWindowTest, SaysThatNothingWasFound) {
    frmHelp& help = Show();
    help.txtSearch->setText("xylophone");
    EXPECT_EQ(help.lstHits->count(), 0);
    EXPECT_EQ(help.lblHits->text(), "No page has all of these words");
    help.txtSearch->setText("");
    EXPECT_EQ(help.lblHits->text(), "");
}

TEST_F(HelpWindowTest, ZoomsWithinBounds) {
    frmHelp& help = Show();
    const double normal = help.brwPage->font().pointSizeF();
    help.actZoomIn->trigger();
    EXPECT_EQ(help.brwPage->font().pointSizeF(), normal + 1);
    for (int i = 0; i < 50; ++i) {
        help.actZoomOut->trigger();
    }
    EXPECT_EQ(help.brwPage->font().pointSizeF(), normal - 4);
    help.actZoomNormal->trigger();
    EXPECT_EQ(help.brwPage->font().pointSizeF(), normal);
}

TEST_F(HelpWindowTest, PrintsThePage) {
    frmHelp& help = Show("statistics_fabric.html");
    QByteArray bytes;
    {
        QBuffer buffer(&bytes);
        ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
        QPdfWriter writer(&buffer);
        help.PrintTo(writer);
    }
    EXPECT_TRUE(bytes.startsWith("%PDF"));
    EXPECT_GT(bytes.size(), 10'000) << "an empty page has about 1000";
}

TEST_F(HelpWindowTest, FindsEveryPageAndPicture) {
    frmHelp& help = Show();
    for (const auto& file : fs::directory_iterator(fs::path(QUANDREL_SOURCE_DIR) / "docs/help")) {
        if (file.path().extension() != ".html") {
            continue;
        }
        help.Open(QString::fromStdString(file.path().filename().string()));
        EXPECT_FALSE(help.brwPage->toPlainText().isEmpty()) << file.path();
        EXPECT_FALSE(help.brwPage->documentTitle().isEmpty()) << file.path();
    }
}

TEST_F(HelpWindowTest, FollowsTheTheme) {
    frmHelp& help = Show();
    QPalette dark(Qt::white, Qt::black, Qt::white, Qt::darkGray, Qt::gray, Qt::white, Qt::black);
    dark.setColor(QPalette::Link, QColor(1, 2, 3));
    help.brwPage->setPalette(dark);
    QEvent change(QEvent::PaletteChange);
    QApplication::sendEvent(&help, &change);
    EXPECT_NE(help.brwPage->document()->defaultStyleSheet().indexOf("#010203"), -1);
}

TEST_F(HelpWindowTest, TellsWhenThereIsNoHelp) {
    Expect("There has been an error caused accessing Help and the attempt will be aborted. Please "
           "let the author know of any problem here");
    ShowHelp("keys.html", "/nowhere/at/all");
    EXPECT_EQ(HelpWindow(), nullptr);
}

TEST_F(HelpWindowTest, ClosesOnEscAndWithTheProgram) {
    QPointer<frmHelp> help = &Show();
    QTest::keyClick(help, Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(help.isNull());
    help = &Show();
    CloseHelp();
    EXPECT_TRUE(help.isNull());
    EXPECT_EQ(HelpWindow(), nullptr);
    CloseHelp();
}

/// A dialog with a button that has the focus, under the name of a window class.
struct NamedDialog : QDialog {
    explicit NamedDialog(const QString& name) {
        setObjectName(name);
        button = new QPushButton("Press", this);
    }

    QPushButton* button;
};

class HelpKeysTest : public HelpWindowTest {
protected:
    // The test program lies in a build tree, so that its own folder leads to the pages.
    HelpKeys keys_{qApp};
};

TEST_F(HelpKeysTest, OpenThePageOfTheDialogWithTheFocus) {
    NamedDialog dialog("frmRoseDiag");
    dialog.show();
    QTest::keyClick(dialog.button, Qt::Key_F1);
    ASSERT_NE(HelpWindow(), nullptr);
    EXPECT_EQ(HelpWindow()->Page(), "dialog_rose.html");
}

TEST_F(HelpKeysTest, HearTheSystemsRequest) {
    NamedDialog dialog("frmSymbolSelect");
    QHelpEvent request(QEvent::HelpRequest, {}, {});
    QApplication::sendEvent(dialog.button, &request);
    ASSERT_NE(HelpWindow(), nullptr);
    EXPECT_EQ(HelpWindow()->Page(), "dialog_symbols.html");
}

TEST_F(HelpKeysTest, TakeAPanelBeforeTheWindowAboutIt) {
    NamedDialog window("GeolPlotMain");
    QWidget panel(&window);
    panel.setObjectName("panGirdleBox");
    EXPECT_EQ(HelpPageOfWidget(&panel), "girdles.html");
    EXPECT_EQ(HelpPageOfWidget(&window), "main_window.html");
    EXPECT_EQ(HelpPageOfWidget(nullptr), "");
}

TEST_F(HelpKeysTest, LeaveTheMainWindowAndOtherKeysAlone) {
    NamedDialog window("GeolPlotMain");
    window.show();
    QTest::keyClick(window.button, Qt::Key_F1);
    EXPECT_EQ(HelpWindow(), nullptr) << "the menu has the key";
    NamedDialog dialog("frmRoseDiag");
    dialog.show();
    QTest::keyClick(dialog.button, Qt::Key_F1, Qt::ShiftModifier);
    QTest::keyClick(dialog.button, Qt::Key_F2);
    EXPECT_EQ(HelpWindow(), nullptr);
}

TEST_F(HelpKeysTest, ReachTheHelpBesideAModalDialog) {
    QPointer<frmHelp> before = &Show();
    NamedDialog dialog("frmFileFormat");
    bool wasHeard = false;
    QTimer::singleShot(0, &dialog, [&] {
        QTest::keyClick(dialog.button, Qt::Key_F1);
        frmHelp* const help = HelpWindow();
        if (help != nullptr && help->Page() == "dialog_data_format.html") {
            // Through the window, where a modal dialog blocks the mouse.
            const QPoint tab = help->tabHelp->tabBar()->tabRect(2).center();
            const QPoint at = help->tabHelp->tabBar()->mapTo(help, tab);
            QTest::mouseClick(help->windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
            wasHeard = help->tabHelp->currentIndex() == 2;
        }
        dialog.accept();
    });
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
    EXPECT_TRUE(wasHeard);
    EXPECT_FALSE(before.isNull()) << "the help outlives the dialog";
}

/// All that the help says, in lower case.
QString WholeHelp() {
    QString text;
    for (const auto& file : fs::directory_iterator(fs::path(QUANDREL_SOURCE_DIR) / "docs/help")) {
        if (file.path().extension() == ".html") {
            std::ifstream page(file.path());
            const std::string html{std::istreambuf_iterator<char>(page), {}};
            text += QString::fromStdString(ReadHelpPage(html).text).toLower() + '\n';
        }
    }
    return text;
}

TEST(HelpOnCommands, TellsEveryCommandByItsCaption) {
    const QString help = WholeHelp();
    const Commands commands(nullptr);
    const auto actions = commands.findChildren<QAction*>();
    EXPECT_GT(actions.size(), 80);
    for (const QAction* action : actions) {
        QString caption = action->text();
        caption.replace("&&", "\x01").remove('&').replace('\x01', '&').remove("...");
        EXPECT_TRUE(help.contains(caption.simplified().toLower()))
            << action->objectName().toStdString() << ": " << caption.toStdString();
    }
}

std::string ReadWhole(const fs::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(HelpTopicsOfWindows, CoverEveryDialogOfTheProgramByItsName) {
    const QRegularExpression dialog("class (\\w+) : public Q(?:Dialog|MainWindow|MdiSubWindow)");
    int count = 0;
    const fs::path folder = fs::path(QUANDREL_SOURCE_DIR) / "src/shell";
    for (const auto& file : fs::recursive_directory_iterator(folder)) {
        if (file.path().extension() != ".h") {
            continue;
        }
        const QString header = QString::fromStdString(ReadWhole(file.path()));
        for (auto found = dialog.globalMatch(header); found.hasNext();) {
            const std::string name = found.next().captured(1).toStdString();
            ++count;
            EXPECT_FALSE(HelpPageOf(name).empty()) << "no page for " << name;
            fs::path source = file.path();
            source.replace_extension(".cpp");
            EXPECT_NE(ReadWhole(source).find("setObjectName(\"" + name), std::string::npos)
                << name << " does not bear its name";
        }
    }
    EXPECT_GT(count, 10);
}

} // namespace
} // namespace quandrel
