// SPDX-License-Identifier: MIT
//
// The data format dialog on a small file of planes, with an engine of its own for each test.

#pragma once

#include "core/setting_keys.h"
#include "shell/format/frm_file_format.h"
#include "support/shell_test.h"

#include <QAbstractButton>
#include <QComboBox>

namespace quandrel {

inline constexpr const char* kPlanesFile = "dip,direction,spacing,rock\n"
                                           "45,120,1.5,marl\n"
                                           "50,130,2.5,marl\n"
                                           "; a comment\n"
                                           "55,140,0.5,sandstone\n";

class FileFormatTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gFileDelimiter = ",";
        path_ = WriteFile("planes.csv", kPlanesFile);
    }

    /// The dialog for a command on the file of planes.
    frmFileFormat& Open(const std::string& command = "New") {
        FormatQuestion question;
        question.command = command;
        question.path = path_;
        question.columnHeadings = gSettings.format.hasHeadings;
        return Open(question);
    }

    frmFileFormat& Open(const FormatQuestion& question) {
        dialog_ = std::make_unique<frmFileFormat>(question, nullptr);
        dialog_->show();
        return *dialog_;
    }

    template <class Control>
    Control& Of(const std::string& name) {
        return ControlOf<Control>(*dialog_, name);
    }

    void Press(const std::string& name) { Of<QAbstractButton>(name).click(); }

    void Choose(int slot, int column) {
        Of<QComboBox>("cboColumns_" + std::to_string(slot)).setCurrentIndex(column);
    }

    void PressOk() { Press("cmdButtons_0"); }

    [[nodiscard]] bool IsAccepted() const { return dialog_->result() == QDialog::Accepted; }

    [[nodiscard]] bool Stays() const { return dialog_->isVisible(); }

    std::string Saved(const std::string& key) {
        return settings.Read(kApplicationName, kDataFormats, key, "nothing");
    }

    std::string path_;
    std::unique_ptr<frmFileFormat> dialog_;
};

} // namespace quandrel
