// SPDX-License-Identifier: MIT

#include "core/format_settings.h"

namespace quandrel {

std::string TextOfCommentMarks(const CommentMarks& marks) {
    return std::string(marks.hash ? "#" : "") + (marks.percent ? "%" : "")
           + (marks.slashes ? "//" : "");
}

std::optional<CommentMarks> CommentMarksIn(std::string_view text) {
    CommentMarks marks;
    while (!text.empty()) {
        std::size_t length = 1;
        if (text.starts_with('#')) {
            marks.hash = true;
        } else if (text.starts_with('%')) {
            marks.percent = true;
        } else if (text.starts_with("//")) {
            marks.slashes = true;
            length = 2;
        } else if (!text.starts_with(' ')) {
            return std::nullopt;
        }
        text.remove_prefix(length);
    }
    return marks;
}

} // namespace quandrel
