// SPDX-License-Identifier: MIT

#include "shell/files/path_questions.h"

#include "core/settings_value.h"
#include "platform/platform.h"
#include "qt/picture_file.h"

namespace quandrel {

namespace {

PathQuestion QuestionFor(const PathWanted& wanted) {
    PathQuestion question;
    question.title = wanted.title;
    question.folder = gSettings.files.lastFolder;
    question.fileName = wanted.fileName;
    question.filter = wanted.filter;
    return question;
}

} // namespace

std::optional<std::string> AskPathToSave(const PathWanted& wanted) {
    return gPlatform.prompts->AskSavePath(QuestionFor(wanted));
}

std::optional<std::string> AskPathToOpen(const PathWanted& wanted) {
    return gPlatform.prompts->AskOpenPath(QuestionFor(wanted));
}

std::optional<std::string> AskPathOfPicture(const std::string& title, const std::string& fileName) {
    return AskPathToSave({title, fileName, kPictureFilter});
}

} // namespace quandrel
