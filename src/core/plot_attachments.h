// SPDX-License-Identifier: MIT
//
// Attachments: values that folders above the store keep with a plot, one value of each type. A new
// plot has none. They are destroyed with the plot and when it is emptied.

#pragma once

#include <memory>
#include <typeindex>
#include <unordered_map>
#include <utility>

namespace quandrel {

class PlotAttachments {
public:
    /// The plot's value of a type, default-constructed at the first request. Its address is stable
    /// until it is dropped.
    template <class T>
    [[nodiscard]] T& Of() {
        std::shared_ptr<void>& value = values_[typeid(T)];
        if (value == nullptr) {
            value = std::make_shared<T>();
        }
        return *static_cast<T*>(value.get());
    }

    /// The plot's value of a type, or null when none was made.
    template <class T>
    [[nodiscard]] const T* Find() const {
        const auto value = values_.find(typeid(T));
        return value == values_.end() ? nullptr : static_cast<const T*>(value->second.get());
    }

    /// The same, mutable.
    template <class T>
    [[nodiscard]] T* Find() {
        return const_cast<T*>(std::as_const(*this).Find<T>());
    }

    /// Drops the value of a type.
    template <class T>
    void Drop() {
        values_.erase(typeid(T));
    }

    /// Drops all values.
    void Clear() { values_.clear(); }

private:
    /// Each value has the type of its key; its pointer holds the matching deleter.
    std::unordered_map<std::type_index, std::shared_ptr<void>> values_;
};

} // namespace quandrel
