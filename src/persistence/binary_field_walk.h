// SPDX-License-Identifier: MIT
//
// The primitives for the list of the fields of a binary plot file.
//
// `Stream` is BinaryReader, BinaryWriter, or a reader that lists what it reads (kLists). Only the
// last one uses the names of fields, and which of them are tables or objects; they cost the others
// nothing.

#pragma once

#include <cstddef>

namespace quandrel {

/// A field with its name in the record.
template <class Value>
struct Named {
    const char* name;
    Value& value;
};

template <class Value>
Named(const char*, Value&) -> Named<Value>;

template <class Stream>
class BinaryFieldWalk {
public:
    explicit BinaryFieldWalk(Stream& stream)
        : stream_(stream) {}

protected:
    static constexpr bool kReads = Stream::kReads;
    static constexpr bool kLists = Stream::kLists;

    /// Whether a reader has found a fault; a writer always continues.
    [[nodiscard]] bool HasFailed() const {
        if constexpr (kReads) {
            return stream_.HasFailed();
        } else {
            return false;
        }
    }

    // Consecutive fields. The cells of an array or table are in row order.

    template <class... Values>
    void Shorts(Named<Values>... fields) {
        (Field(fields, [this](auto& cell) { stream_.Short(cell); }), ...);
    }

    template <class... Values>
    void Longs(Named<Values>... fields) {
        (Field(fields, [this](auto& cell) { stream_.Long(cell); }), ...);
    }

    template <class... Values>
    void Singles(Named<Values>... fields) {
        (Field(fields, [this](auto& cell) { stream_.Single(cell); }), ...);
    }

    template <class... Values>
    void Doubles(Named<Values>... fields) {
        (Field(fields, [this](auto& cell) { stream_.Double(cell); }), ...);
    }

    template <class... Values>
    void Texts(Named<Values>... fields) {
        ((Name(fields.name), stream_.Text(fields.value)), ...);
    }

    /// A table of values that the file holds in column order.
    template <class Rows>
    void Columns(Named<Rows> table) {
        Name(table.name);
        Array([&] {
            for (std::size_t column = 0; column < table.value[0].size(); ++column) {
                Array([&] {
                    for (auto& row : table.value) {
                        stream_.Value(row[column]);
                    }
                });
            }
            if constexpr (kLists) {
                stream_.Transpose();
            }
        });
    }

    /// One row of a table of values.
    template <class Rows>
    void RowOfValues(Named<Rows> table, std::size_t row) {
        Element(table.name, row, table.value.size());
        Cells(table.value[row], [this](auto& cell) { stream_.Value(cell); });
    }

    // The structure of a listing.

    /// The next value, array or object is the member `name` of the current object. A value in an
    /// object is not listed without a name.
    void Name(const char* name) {
        if constexpr (kLists) {
            stream_.Name(name);
        }
    }

    /// The next value or array is an element, at an index, of the member `name`, an array of a
    /// size.
    void Element(const char* name, std::size_t place, std::size_t size) {
        if constexpr (kLists) {
            stream_.Element(name, place, size);
        }
    }

    /// The body visits an array.
    template <class Body>
    void Array(const Body& body) {
        if constexpr (kLists) {
            stream_.BeginArray();
        }
        body();
        if constexpr (kLists) {
            stream_.End();
        }
    }

    /// The body visits the members of an object.
    template <class Body>
    void Object(const Body& body) {
        if constexpr (kLists) {
            stream_.BeginObject();
        }
        body();
        if constexpr (kLists) {
            stream_.End();
        }
    }

    Stream& stream_;

private:
    template <class Value, class Put>
    void Field(Named<Value> field, const Put& put) {
        Name(field.name);
        Cells(field.value, put);
    }

    template <class Value, class Put>
    void Cells(Value& value, const Put& put) {
        if constexpr (requires { value.size(); }) {
            Array([&] {
                for (auto& cell : value) {
                    Cells(cell, put);
                }
            });
        } else {
            put(value);
        }
    }
};

} // namespace quandrel
