// SPDX-License-Identifier: MIT

#include "shell/dialogs/widget_prompts.h"

#include "shell/files/frm_save_plots_dialog.h"
#include "shell/format/frm_file_format.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>

#include <algorithm>
#include <map>

namespace quandrel {

namespace {

/// Shows the normal pointer instead of the busy one while a question is open.
class PlainPointer {
public:
    PlainPointer() {
        while (QApplication::overrideCursor() != nullptr) {
            QApplication::restoreOverrideCursor();
            ++taken_;
        }
    }

    ~PlainPointer() {
        for (int i = 0; i < taken_; ++i) {
            QApplication::setOverrideCursor(Qt::WaitCursor);
        }
    }

    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;

private:
    int taken_ = 0;
};

QMessageBox::StandardButton StandardButtonOf(Button button) {
    switch (button) {
    case Button::Ok:
        return QMessageBox::Ok;
    case Button::Cancel:
        return QMessageBox::Cancel;
    case Button::Yes:
        return QMessageBox::Yes;
    case Button::No:
        return QMessageBox::No;
    case Button::Abort:
        return QMessageBox::Abort;
    case Button::Retry:
        return QMessageBox::Retry;
    case Button::Ignore:
        return QMessageBox::Ignore;
    }
    return QMessageBox::NoButton;
}

QMessageBox::Icon IconOfMessage(Icon icon) {
    switch (icon) {
    case Icon::None:
        return QMessageBox::NoIcon;
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Stop:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

/// The answer that closing the box gives.
Button EscapeButton(Buttons set) {
    switch (set) {
    case Buttons::Ok:
        return Button::Ok;
    case Buttons::OkCancel:
    case Buttons::YesNoCancel:
        return Button::Cancel;
    case Buttons::YesNo:
        return Button::No;
    case Buttons::AbortRetryIgnore:
        return Button::Abort;
    }
    return Button::Cancel;
}

/// True for a window itself and for its dialogs.
bool Belongs(const QWidget& widget, const QWidget& window) {
    for (const QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
        if (at == &window) {
            return true;
        }
    }
    return false;
}

[[nodiscard]] bool RefusesWhilePainting(const std::string& text) {
    if (!IsPainting()) {
        return false;
    }
    qCritical("A question within a paint event: %s", text.c_str());
    return true;
}

/// The filters of a question in the form of a file dialog. Upper and lower case of extensions are
/// equal.
QStringList FiltersOf(const std::string& filter) {
    const QStringList parts = QString::fromStdString(filter).split('|', Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString name = parts[i];
        name.remove(QRegularExpression(" *\\([^)]*\\)"));
        const QString pattern = parts[i + 1] == "*.*" ? QString("*") : parts[i + 1];
        filters << name + " (" + pattern + (pattern == "*" ? "" : " " + pattern.toUpper()) + ")";
    }
    return filters;
}

/// The file dialog of a question. The object names that tests use are the same on all platforms.
class GetFile : public QFileDialog {
public:
    GetFile(const PathQuestion& question, QWidget* parent, Options further = {})
        : QFileDialog(parent, QString::fromStdString(question.title)) {
        setOptions(options() | further);
        setObjectName("dlgGetFile");
        const QStringList filters = FiltersOf(question.filter);
        setNameFilters(filters);
        if (question.filterIndex >= 1 && question.filterIndex <= filters.size()) {
            selectNameFilter(filters[question.filterIndex - 1]);
        }
        if (!question.folder.empty() && QDir(QString::fromStdString(question.folder)).exists()) {
            setDirectory(QString::fromStdString(question.folder));
        }
    }

    [[nodiscard]] std::optional<std::string> Path() {
        if (exec() != QDialog::Accepted || selectedFiles().isEmpty()) {
            return std::nullopt;
        }
        return selectedFiles().first().toStdString();
    }
};

/// The extension of the chosen filter, without its point; empty for all files.
QString EndingOfFilter(const QString& filter) {
    static const QRegularExpression ending("\\(\\*\\.([a-z]+)");
    return ending.match(filter).captured(1);
}

/// The dialog takes the text after a point in a name for its extension. An extension that
/// the filters do not know is followed by that of the chosen filter. Returns nothing if that file
/// exists and the user keeps it.
std::optional<std::string> WithEnding(const std::string& path, const PathQuestion& question,
                                      const QString& filter, QWidget* parent) {
    const QString ending = EndingOfFilter(filter);
    const QString suffix = QFileInfo(QString::fromStdString(path)).suffix();
    const QStringList filters = FiltersOf(question.filter);
    const bool isKnown = std::any_of(filters.begin(), filters.end(), [&suffix](const QString& f) {
        return EndingOfFilter(f).compare(suffix, Qt::CaseInsensitive) == 0;
    });
    if (ending.isEmpty() || suffix.isEmpty() || isKnown) {
        return path;
    }
    const QString whole = QString::fromStdString(path) + "." + ending;
    const bool mayWrite =
        !QFileInfo::exists(whole)
        || QMessageBox::question(parent, QString::fromStdString(question.title),
                                 QFileInfo(whole).fileName()
                                     + " already exists.\nDo you want to replace it?",
                                 QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
               == QMessageBox::Yes;
    return mayWrite ? std::optional(whole.toStdString()) : std::nullopt;
}

/// The path to write to that the user chooses in a dialog.
std::optional<std::string> SavePathFrom(GetFile& dialog, const PathQuestion& question) {
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // The dialog adds the extension itself, so that it asks about the file that will be written.
    const auto useEnding = [&dialog](const QString& filter) {
        dialog.setDefaultSuffix(EndingOfFilter(filter));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, useEnding);
    useEnding(dialog.selectedNameFilter());
    dialog.selectFile(QString::fromStdString(question.fileName));
    const std::optional<std::string> path = dialog.Path();
    return path ? WithEnding(*path, question, dialog.selectedNameFilter(), &dialog) : path;
}

/// A box below the controls of a dialog that is not the platform's own.
QCheckBox* AddWholeDegreesBox(GetFile& dialog) {
    auto* box = new QCheckBox("&Whole degrees", &dialog);
    box->setObjectName("chkWholeDegrees");
    box->setToolTip("Text files: saves orientations rounded to whole degrees, without the "
                    "decimals that they were measured with");
    if (auto* grid = qobject_cast<QGridLayout*>(dialog.layout())) {
        grid->addWidget(box, grid->rowCount(), 1);
    }
    return box;
}

} // namespace

bool IsPainting() {
    const QWidgetList widgets = QApplication::allWidgets();
    return std::any_of(widgets.begin(), widgets.end(), [](const QWidget* widget) {
        return widget->testAttribute(Qt::WA_WState_InPaintEvent);
    });
}

QWidget* WidgetPrompts::Parent() const {
    if (QWidget* modal = QApplication::activeModalWidget()) {
        return modal;
    }
    QWidget* active = QApplication::activeWindow();
    return active != nullptr && Belongs(*active, parent_) ? active : &parent_;
}

Button WidgetPrompts::Ask(const Message& message) {
    if (RefusesWhilePainting(message.text)) {
        return EscapeButton(message.buttons);
    }
    const PlainPointer pointer;
    QMessageBox box(Parent());
    box.setWindowTitle(QString::fromStdString(message.title));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(message.text));
    box.setIcon(IconOfMessage(message.icon));
    std::map<QAbstractButton*, Button> buttons;
    for (const Button button : ButtonsOf(message.buttons)) {
        QPushButton* made = box.addButton(StandardButtonOf(button));
        made->setObjectName("cmd" + QString::fromStdString(ButtonName(button)));
        buttons[made] = button;
    }
    box.setDefaultButton(StandardButtonOf(message.safe.value_or(DefaultButton(message.buttons))));
    box.setEscapeButton(StandardButtonOf(EscapeButton(message.buttons)));
    box.exec();
    const auto pressed = buttons.find(box.clickedButton());
    return pressed != buttons.end() ? pressed->second : EscapeButton(message.buttons);
}

std::optional<std::string> WidgetPrompts::AskOpenPath(const PathQuestion& question) {
    if (RefusesWhilePainting(question.title)) {
        return std::nullopt;
    }
    const PlainPointer pointer;
    GetFile dialog(question, Parent());
    dialog.setFileMode(QFileDialog::ExistingFile);
    return dialog.Path();
}

std::optional<std::string> WidgetPrompts::AskSavePath(const PathQuestion& question) {
    if (RefusesWhilePainting(question.title)) {
        return std::nullopt;
    }
    const PlainPointer pointer;
    GetFile dialog(question, Parent());
    return SavePathFrom(dialog, question);
}

std::optional<PlotPathAnswer> WidgetPrompts::AskPlotPath(const PathQuestion& question,
                                                         bool hasDecimals) {
    if (!hasDecimals) {
        const std::optional<std::string> path = AskSavePath(question);
        return path ? std::optional(PlotPathAnswer{*path, false}) : std::nullopt;
    }
    if (RefusesWhilePainting(question.title)) {
        return std::nullopt;
    }
    const PlainPointer pointer;
    // The platform's own dialog has no place for a box.
    GetFile dialog(question, Parent(), QFileDialog::DontUseNativeDialog);
    const QCheckBox* wholeDegrees = AddWholeDegreesBox(dialog);
    const std::optional<std::string> path = SavePathFrom(dialog, question);
    if (!path) {
        return std::nullopt;
    }
    return PlotPathAnswer{*path, wholeDegrees->isChecked()};
}

std::optional<FormatAnswer> WidgetPrompts::AskFormat(const FormatQuestion& question) {
    if (RefusesWhilePainting(question.command)) {
        return std::nullopt;
    }
    const PlainPointer pointer;
    frmFileFormat dialog(question, Parent());
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return dialog.Answer();
}

SaveAnswer WidgetPrompts::AskSavePlots(const std::string& title, const std::string& text) {
    if (RefusesWhilePainting(title)) {
        return SaveAnswer::Cancel;
    }
    const PlainPointer pointer;
    frmSavePlotsDialog dialog(QString::fromStdString(title), QString::fromStdString(text),
                              Parent());
    dialog.exec();
    return dialog.Answer();
}

} // namespace quandrel
