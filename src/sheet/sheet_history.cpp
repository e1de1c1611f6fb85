// SPDX-License-Identifier: MIT

#include "sheet/sheet_history.h"

#include <utility>

namespace quandrel {

void SheetHistory::Begin(const FigureSheet& sheet) {
    present_ = sheet;
    past_.clear();
    future_.clear();
}

void SheetHistory::Record(const FigureSheet& sheet) {
    if (sheet == present_) {
        return;
    }
    past_.push_back(std::exchange(present_, sheet));
    future_.clear();
    if (past_.size() > kMostSteps) {
        past_.erase(past_.begin());
    }
}

const FigureSheet& SheetHistory::Undo() {
    Step(past_, future_);
    return present_;
}

const FigureSheet& SheetHistory::Redo() {
    Step(future_, past_);
    return present_;
}

void SheetHistory::Step(std::vector<FigureSheet>& from, std::vector<FigureSheet>& to) {
    if (!from.empty()) {
        to.push_back(std::exchange(present_, std::move(from.back())));
        from.pop_back();
    }
}

} // namespace quandrel
