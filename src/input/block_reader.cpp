// SPDX-License-Identifier: MIT

#include "input/block_reader.h"

#include <system_error>

namespace quandrel {

BlockReader::BlockReader(std::string_view text, const LineRules& rules, std::size_t blockBytes,
                         unsigned threads)
    : text_(text)
    , rules_(rules)
    , blockBytes_(blockBytes)
    , places_(threads < 2 ? 1 : kMostAhead + 1) {
    if (threads < 2) {
        return;
    }
    try {
        thread_ = std::thread([this] { Work(); });
    } catch (const std::system_error&) {
        return; // Next reads all blocks
    }
}

BlockReader::~BlockReader() {
    {
        const Lock lock(mutex_);
        isEnding_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable()) {
        thread_.join();
    }
}

const LineBlock* BlockReader::Next() {
    Lock lock(mutex_);
    if (given_ > 0) {
        PlaceOf(given_ - 1).state = Place::State::Free;
        changed_.notify_all();
    }
    if (given_ == begun_ && position_ >= text_.size()) {
        return nullptr;
    }
    Place& place = PlaceOf(given_);
    while (place.state != Place::State::Read) {
        if (CanBegin()) {
            ReadOne(lock);
        } else {
            changed_.wait(lock);
        }
    }
    ++given_;
    if (place.failure) {
        std::rethrow_exception(place.failure);
    }
    return &place.block;
}

bool BlockReader::CanBegin() const {
    return position_ < text_.size() && places_[begun_ % places_.size()].state == Place::State::Free;
}

void BlockReader::ReadOne(Lock& lock) {
    Place& place = PlaceOf(begun_++);
    const std::size_t start = position_;
    position_ = EndOfBlock(text_, start, blockBytes_);
    const std::string_view part = text_.substr(start, position_ - start);
    place.state = Place::State::InWork;
    place.failure = nullptr;
    lock.unlock();
    std::exception_ptr failure;
    try {
        ReadBlock(part, rules_, place.block);
    } catch (...) { // rethrown to the caller that takes the block
        failure = std::current_exception();
    }
    lock.lock();
    place.failure = failure;
    place.state = Place::State::Read;
    changed_.notify_all();
}

void BlockReader::Work() {
    Lock lock(mutex_);
    while (!isEnding_ && position_ < text_.size()) {
        if (CanBegin()) {
            ReadOne(lock);
        } else {
            changed_.wait(lock);
        }
    }
}

} // namespace quandrel
