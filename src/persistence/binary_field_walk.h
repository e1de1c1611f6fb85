// SPDX-License-Identifier: MIT
//
// What a list of the fields of a binary plot file is written with.
//
// `Stream` is BinaryReader, BinaryWriter, or a reader that lists what it reads (kLists). The names
// of fields, and which of them are tables or objects, are for the last alone: the others pay
// nothing for them.

#pragma once

#include <cstddef>

namespace quandrel {

/// A field with its name, the one that it has in a record.
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

    /// Whether a reader came upon a fault; a writer goes on.
    [[nodiscard]] bool HasFailed() const {
        if constexpr (kReads) {
            return stream_.HasFailed();
        } else {
            return false;
        }
    }

    // Fields one after the other. One that is an array or a table has its cells row by row.

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

    /// A table of values that is in the file column by column.
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

    // The shape of what is listed.

    /// The next value, array or object is the member `name` of the object in work. Without a name a
    /// value in an object is not listed.
    void Name(const char* name) {
        if constexpr (kLists) {
            stream_.Name(name);
        }
    }

    /// The next value or array is at a place of the member `name`, an array of so many.
    void Element(const char* name, std::size_t place, std::size_t size) {
        if constexpr (kLists) {
            stream_.Element(name, place, size);
        }
    }

    /// What the body visits is an array.
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

    /// What the body visits are the members of an object.
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
