// SPDX-License-Identifier: MIT
//
// What folders above the store keep with a plot: a value of each type that one of them defines. A
// new plot has none; they go with the plot, and when it is made empty.

#pragma once

#include <memory>
#include <typeindex>
#include <unordered_map>
#include <utility>

namespace quandrel {

class PlotAttachments {
public:
    /// The plot's value of a type; made with its defaults when it is first asked for. It stays at
    /// its address until it is dropped.
    template <class T>
    [[nodiscard]] T& Of() {
        std::shared_ptr<void>& value = values_[typeid(T)];
        if (value == nullptr) {
            value = std::make_shared<T>();
        }
        return *static_cast<T*>(value.get());
    }

    /// The plot's value of a type, or nothing when none was made.
    template <class T>
    [[nodiscard]] const T* Find() const {
        const auto value = values_.find(typeid(T));
        return value == values_.end() ? nullptr : static_cast<const T*>(value->second.get());
    }

    /// The same, to be changed.
    template <class T>
    [[nodiscard]] T* Find() {
        return const_cast<T*>(std::as_const(*this).Find<T>());
    }

    /// Forgets the value of a type.
    template <class T>
    void Drop() {
        values_.erase(typeid(T));
    }

    /// Forgets all values.
    void Clear() { values_.clear(); }

private:
    /// Each is of the type of its key; the pointer alone knows how to destroy it.
    std::unordered_map<std::type_index, std::shared_ptr<void>> values_;
};

} // namespace quandrel
