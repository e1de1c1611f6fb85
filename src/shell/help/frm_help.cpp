// SPDX-License-Identifier: MIT

#include "shell/help/frm_help.h"

#include "platform/platform.h"
#include "platform/prompts.h"
#include "shell/controls/icons.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QRegularExpression>
#include <QSplitter>
#include <QStyle>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <string>
#include <utility>

namespace quandrel {

namespace {

constexpr int kTargetRole = Qt::UserRole;
constexpr int kQueryRole = Qt::UserRole + 1;
constexpr int kLeastZoom = -4;
constexpr int kMostZoom = 12;

QString FromBytes(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString FileOf(const QString& target) {
    return target.section('#', 0, 0);
}

/// A tab page: a search line above a list.
QWidget* ListPage(QLineEdit& line, QWidget& list, QWidget* below = nullptr) {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(&line);
    layout->addWidget(&list, 1);
    if (below != nullptr) {
        layout->addWidget(below);
    }
    return page;
}

/// The words of a query as a pattern for the same matches as the search: words with these
/// beginnings.
QRegularExpression PatternOf(const QString& query) {
    QStringList words;
    for (const std::string& word : HelpWords(query.toStdString())) {
        words += QRegularExpression::escape(FromBytes(word));
    }
    return QRegularExpression(words.isEmpty() ? QString() : "\\b(?:" + words.join('|') + ")[\\w]*",
                              QRegularExpression::CaseInsensitiveOption
                                  | QRegularExpression::UseUnicodePropertiesOption);
}

QPointer<frmHelp>& TheHelp() {
    static QPointer<frmHelp> window;
    return window;
}

/// Brings the window to the front. A modal dialog blocks all windows except its own child windows,
/// so the help window belongs to the dialog while that is open.
void BringUp(frmHelp& window) {
    QWidget* const modal = QApplication::activeModalWidget();
    QWindow* const owner = modal != nullptr ? modal->windowHandle() : nullptr;
    window.winId(); // creates the native window that can have an owner
    if (window.windowHandle()->transientParent() != owner) {
        window.hide();
        window.windowHandle()->setTransientParent(owner);
    }
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace

frmHelp::frmHelp(HelpLibrary library, const std::filesystem::path& folder)
    : library_(std::move(library))
    , folder_(QString::fromStdString(folder.string())) {
    setObjectName("frmHelp");
    setWindowTitle("Quandrel Help");
    setWindowIcon(ProgramIcon());
    setAttribute(Qt::WA_DeleteOnClose);
    MakeContents();
    MakeIndex();
    MakeSearch();
    MakePage(folder);
    MakeActions();
    auto* split = new QSplitter;
    split->setObjectName("splHelp");
    split->addWidget(tabHelp);
    split->addWidget(brwPage);
    split->setStretchFactor(1, 1);
    split->setSizes({300, 700});
    setCentralWidget(split);
    resize(1000, 720);
    UseThemeColours();
    Connect();
}

void frmHelp::MakeContents() {
    tabHelp = new QTabWidget;
    tabHelp->setObjectName("tabHelp");
    treContents = new QTreeWidget;
    treContents->setObjectName("treContents");
    treContents->setAccessibleName("Contents");
    treContents->setHeaderHidden(true);
    QList<QTreeWidgetItem*> open; // the last item of each level
    for (const HelpEntry& entry : library_.Contents()) {
        const int level = std::min<int>(entry.level, static_cast<int>(open.size()));
        open.resize(level);
        auto* item =
            level == 0 ? new QTreeWidgetItem(treContents) : new QTreeWidgetItem(open.at(level - 1));
        item->setText(0, QString::fromStdString(entry.title));
        item->setData(0, kTargetRole, QString::fromStdString(entry.target));
        open += item;
    }
    treContents->expandAll();
    tabHelp->addTab(treContents, "&Contents");
}

void frmHelp::MakeIndex() {
    txtIndex = new QLineEdit;
    txtIndex->setObjectName("txtIndex");
    txtIndex->setPlaceholderText("Find a term");
    txtIndex->setAccessibleName("Find a term of the index");
    txtIndex->setClearButtonEnabled(true);
    lstIndex = new QListWidget;
    lstIndex->setObjectName("lstIndex");
    lstIndex->setAccessibleName("Index");
    for (const HelpEntry& entry : library_.Index()) {
        auto* item = new QListWidgetItem(QString::fromStdString(entry.title), lstIndex);
        item->setData(kTargetRole, QString::fromStdString(entry.target));
    }
    tabHelp->addTab(ListPage(*txtIndex, *lstIndex), "&Index");
}

void frmHelp::MakeSearch() {
    txtSearch = new QLineEdit;
    txtSearch->setObjectName("txtSearch");
    txtSearch->setPlaceholderText("Search all pages");
    txtSearch->setAccessibleName("Search all pages");
    txtSearch->setClearButtonEnabled(true);
    lstHits = new QListWidget;
    lstHits->setObjectName("lstHits");
    lstHits->setAccessibleName("Pages found, the best first");
    lstHits->setWordWrap(true);
    lstHits->setAlternatingRowColors(true);
    lblHits = new QLabel;
    lblHits->setObjectName("lblHits");
    lblHits->setTextFormat(Qt::PlainText);
    tabHelp->addTab(ListPage(*txtSearch, *lstHits, lblHits), "&Search");
}

void frmHelp::MakePage(const std::filesystem::path& folder) {
    brwPage = new QTextBrowser;
    brwPage->setObjectName("brwPage");
    brwPage->setAccessibleName("Page");
    brwPage->setSearchPaths({QString::fromStdString(folder.string())});
    brwPage->document()->setDocumentMargin(14);
}

void frmHelp::MakeActions() {
    auto* bar = addToolBar("Help toolbar");
    bar->setObjectName("barHelp");
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto make = [this, bar](const char* name, const char* caption, const QIcon& icon,
                                  const QKeySequence& key) {
        auto* action = new QAction(icon, caption, this);
        action->setObjectName(name);
        action->setShortcut(key);
        action->setToolTip(QString(caption) + " (" + key.toString(QKeySequence::NativeText) + ")");
        addAction(action);
        bar->addAction(action);
        return action;
    };
    const auto icon = [this](QStyle::StandardPixmap picture) {
        return style()->standardIcon(picture);
    };
    actBack = make("actBack", "Back", icon(QStyle::SP_ArrowBack), QKeySequence("Alt+Left"));
    actForward =
        make("actForward", "Forward", icon(QStyle::SP_ArrowForward), QKeySequence("Alt+Right"));
    actHome = make("actHome", "Contents", icon(QStyle::SP_DirHomeIcon), QKeySequence("Alt+Home"));
    bar->addSeparator();
    actFind =
        make("actFind", "Search", icon(QStyle::SP_FileDialogContentsView), QKeySequence("Ctrl+F"));
    actPrint = make("actPrint", "Print...", IconOf("print"), QKeySequence("Ctrl+P"));
    bar->addSeparator();
    actZoomIn = make("actZoomIn", "Larger", {}, QKeySequence("Ctrl++"));
    actZoomIn->setShortcuts({QKeySequence("Ctrl++"), QKeySequence("Ctrl+=")});
    actZoomOut = make("actZoomOut", "Smaller", {}, QKeySequence("Ctrl+-"));
    actZoomNormal = make("actZoomNormal", "Normal size", {}, QKeySequence("Ctrl+0"));
    actBack->setEnabled(false);
    actForward->setEnabled(false);
}

void frmHelp::Connect() {
    connect(actBack, &QAction::triggered, brwPage, &QTextBrowser::backward);
    connect(actForward, &QAction::triggered, brwPage, &QTextBrowser::forward);
    connect(actHome, &QAction::triggered, this, [this] { Open({}); });
    connect(actFind, &QAction::triggered, this, [this] {
        tabHelp->setCurrentIndex(2);
        txtSearch->setFocus();
        txtSearch->selectAll();
    });
    connect(actPrint, &QAction::triggered, this, [this] { Print(); });
    connect(actZoomIn, &QAction::triggered, this, [this] { Zoom(1); });
    connect(actZoomOut, &QAction::triggered, this, [this] { Zoom(-1); });
    connect(actZoomNormal, &QAction::triggered, this, [this] { Zoom(-zoom_); });

    connect(brwPage, &QTextBrowser::backwardAvailable, actBack, &QAction::setEnabled);
    connect(brwPage, &QTextBrowser::forwardAvailable, actForward, &QAction::setEnabled);
    connect(brwPage, &QTextBrowser::sourceChanged, this,
            [this](const QUrl& source) { PageShown(source.fileName()); });

    const auto openTree = [this](QTreeWidgetItem* item) {
        OpenItem(item->data(0, kTargetRole).toString(), {});
    };
    connect(treContents, &QTreeWidget::itemClicked, this, openTree);
    connect(treContents, &QTreeWidget::itemActivated, this, openTree);
    const auto openItem = [this](const QListWidgetItem* item) {
        if (item != nullptr) {
            OpenItem(item->data(kTargetRole).toString(), item->data(kQueryRole).toString());
        }
    };
    for (QListWidget* list : {lstIndex, lstHits}) {
        connect(list, &QListWidget::itemClicked, this, openItem);
        connect(list, &QListWidget::itemActivated, this, openItem);
    }
    connect(txtIndex, &QLineEdit::textChanged, this,
            [this](const QString& text) { FilterIndex(text); });
    connect(txtIndex, &QLineEdit::returnPressed, this,
            [this, openItem] { openItem(lstIndex->currentItem()); });
    connect(txtSearch, &QLineEdit::textChanged, this,
            [this](const QString& text) { Search(text); });
    connect(txtSearch, &QLineEdit::returnPressed, this,
            [this, openItem] { openItem(lstHits->currentItem()); });
}

void frmHelp::Open(const QString& topic) {
    OpenItem(topic.isEmpty() ? QString(kHelpContentsPage) : topic, {});
}

QString frmHelp::Page() const {
    return brwPage->source().fileName();
}

void frmHelp::OpenItem(const QString& target, const QString& query) {
    if (target.isEmpty()) {
        return;
    }
    marked_ = query;
    QUrl address = QUrl::fromLocalFile(folder_ + "/" + FileOf(target));
    if (target.contains('#')) {
        address.setFragment(target.section('#', 1));
    }
    if (address == brwPage->source()) {
        PageShown(Page());
        if (address.hasFragment()) {
            brwPage->scrollToAnchor(address.fragment());
        }
    } else {
        brwPage->setSource(address);
    }
}

/// Makes the first matching item the current one, so that Enter opens it.
void frmHelp::FilterIndex(const QString& text) {
    QListWidgetItem* first = nullptr;
    for (int i = 0; i < lstIndex->count(); ++i) {
        QListWidgetItem* const item = lstIndex->item(i);
        const bool matches = item->text().contains(text, Qt::CaseInsensitive);
        item->setHidden(!matches);
        if (matches && first == nullptr) {
            first = item;
        }
    }
    lstIndex->setCurrentItem(text.isEmpty() ? nullptr : first);
}

void frmHelp::Search(const QString& query) {
    lstHits->clear();
    const std::vector<HelpHit> hits = library_.Find(query.toStdString());
    for (const HelpHit& hit : hits) {
        auto* item =
            new QListWidgetItem(FromBytes(hit.title) + "\n" + FromBytes(hit.excerpt), lstHits);
        item->setData(kTargetRole, FromBytes(hit.file));
        item->setData(kQueryRole, query);
    }
    if (!hits.empty()) {
        lstHits->setCurrentRow(0);
    }
    const bool hasWords = !HelpWords(query.toStdString()).empty();
    lblHits->setText(!hasWords           ? QString()
                     : hits.empty()      ? "No page has all of these words"
                     : hits.size() == 1U ? "1 page"
                                         : QString::number(hits.size()) + " pages");
}

void frmHelp::PageShown(const QString& file) {
    setWindowTitle(brwPage->documentTitle() + " \u2013 Quandrel Help");
    for (QTreeWidgetItemIterator item(treContents); *item != nullptr; ++item) {
        if (FileOf((*item)->data(0, kTargetRole).toString()) == file) {
            treContents->setCurrentItem(*item);
            break;
        }
    }
    MarkWords();
    marked_.clear();
}

void frmHelp::MarkWords() {
    QList<QTextEdit::ExtraSelection> marks;
    const QRegularExpression pattern = PatternOf(marked_);
    if (!pattern.pattern().isEmpty()) {
        QTextCursor found = brwPage->document()->find(pattern);
        while (!found.isNull()) {
            QTextEdit::ExtraSelection mark;
            mark.cursor = found;
            mark.format.setBackground(palette().highlight());
            mark.format.setForeground(palette().highlightedText());
            marks += mark;
            found = brwPage->document()->find(pattern, found);
        }
    }
    brwPage->setExtraSelections(marks);
    if (!marks.isEmpty()) {
        QTextCursor first = marks.first().cursor;
        first.clearSelection();
        brwPage->setTextCursor(first);
        brwPage->ensureCursorVisible();
    }
}

void frmHelp::Zoom(int step) {
    const int zoom = std::clamp(zoom_ + step, kLeastZoom, kMostZoom);
    brwPage->zoomIn(zoom - zoom_);
    zoom_ = zoom;
}

void frmHelp::PrintTo(QPagedPaintDevice& device) const {
    brwPage->print(&device);
}

void frmHelp::Print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(brwPage->documentTitle());
    QPrintDialog dialog(&printer, this);
    dialog.setWindowTitle("Print page of the help");
    if (dialog.exec() == QDialog::Accepted) {
        PrintTo(printer);
    }
}

void frmHelp::UseThemeColours() {
    const QPalette& colours = brwPage->palette();
    const QString link = colours.color(QPalette::Link).name();
    const QString ground = colours.color(QPalette::AlternateBase).name();
    const QString rule = colours.color(QPalette::Mid).name();
    brwPage->document()->setDefaultStyleSheet("a { color: " + link
                                              + "; } code, pre, th { "
                                                "background-color: "
                                              + ground
                                              + "; } td, th { "
                                                "border-color: "
                                              + rule + "; }");
    if (!brwPage->source().isEmpty()) {
        brwPage->reload();
    }
}

void frmHelp::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        UseThemeColours();
    }
}

void frmHelp::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

void ShowHelp(const QString& topic, const QString& programFolder) {
    if (TheHelp().isNull()) {
        const QString home =
            programFolder.isEmpty() ? QApplication::applicationDirPath() : programFolder;
        const auto folder = FindHelpFolder(home.toStdString());
        auto library = folder ? HelpLibrary::Read(*folder) : Failure{kHelpFailureText};
        if (!library) {
            static_cast<void>(gPlatform.prompts->Ask(
                {kHelpFailureTitle, library.Error(), Icon::Exclamation, Buttons::Ok}));
            return;
        }
        TheHelp() = new frmHelp(std::move(*library), *folder);
    }
    TheHelp()->Open(topic);
    BringUp(*TheHelp());
}

frmHelp* HelpWindow() {
    return TheHelp();
}

void CloseHelp() {
    if (!TheHelp().isNull()) {
        delete TheHelp();
    }
}

} // namespace quandrel
