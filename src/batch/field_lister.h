// SPDX-License-Identifier: MIT
//
// A reader of a binary plot file that lists its contents as JSON.
//
// The list of fields (persistence/binary_plot_fields.h) visits it like any other stream, and also
// states names and shapes. Long arrays go to the writer while they are read; columns of rows are
// collected as text. Members of the file's object are held until those that precede them in the
// list are written.

#pragma once

#include "batch/json_writer.h"
#include "persistence/binary_stream.h"

#include <nlohmann/json.hpp>

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quandrel {

class FieldLister : public BinaryReader {
public:
    using Json = nlohmann::ordered_json;

    static constexpr bool kLists = true;

    /// @param bytes  of a valid file; must outlive the lister
    FieldLister(std::string_view bytes, JsonWriter& writer)
        : BinaryReader(bytes)
        , writer_(writer) {}

    // Listed values. Numbers have their values in the file, before any range check.

    void Short(std::int16_t& value) { Read(&BinaryReader::Short, value); }

    void Short(std::int32_t& value) { Read(&BinaryReader::Short, value); }

    void Long(std::int32_t& value) { Read(&BinaryReader::Long, value); }

    void Single(float& value) { Read(&BinaryReader::Single, value); }

    void Single(double& value) { Read(&BinaryReader::Single, value); }

    void Double(double& value) { Read(&BinaryReader::Double, value); }

    void AnySingle(float& value) { Read(&BinaryReader::AnySingle, value); }

    void Text(std::string& text) { Read(&BinaryReader::Text, text); }

    void Fixed(std::string& text, std::size_t length);
    void Value(TaggedValue& value);

    /// A row of nodes; the two layers of the value grids alternate.
    void Doubles(std::span<double> values);

    /// An element of a long array.
    [[nodiscard]] std::string_view TextBytes();

    /// Listed as text.
    void Code(SymbolCode& code);

    // Names and shapes.

    /// Names the next value, array or object, a member of the current object. A value without a
    /// name is an element of the current array; in an object it is not listed.
    void Name(const char* name);

    /// Places the next value or array at an index of the member `name`, an array of the given size.
    void Element(const char* name, std::size_t place, std::size_t size);

    void BeginArray() { Begin(Json::array()); }

    void BeginObject() { Begin(Json::object()); }

    /// Ends an array or an object.
    void End() { levels_.pop_back(); }

    /// Transposes the current array of arrays.
    void Transpose();

    /// Begins values that the file repeats later in full. End ends them.
    void BeginEarlier() { levels_.push_back(&earlier_); }

    /// Lists these earlier values as a member.
    void PutEarlier(const char* name) { file_[name] = std::exchange(earlier_, Json::object()); }

    /// A long array. Without a name it is an element of another one.
    void BeginList(const char* name);

    void EndList() { writer_.EndArray(); }

    /// Rows as columns of values. Named columns follow the members so far; unnamed ones are an
    /// element of a long array.
    void BeginRows(const char* name);

    void BeginRow() { column_ = 0; }

    void EndRows();

    /// A value that does not come from the file.
    void List(Json value);

    /// Writes the held members.
    void PutMembers();

private:
    /// A named column of rows: the elements of a JSON array.
    using ColumnText = std::pair<const char*, std::string>;

    template <class T>
    void Read(void (BinaryReader::*read)(T&), T& value) {
        (this->*read)(value);
        ListRead(value);
    }

    void ListRead(std::int32_t value);

    void ListRead(float value) { ListRead(static_cast<double>(value)); }

    void ListRead(double value);
    void ListRead(const std::string& text);
    void Begin(Json value);

    /// The elements of the column for the next value, with a separator from the last element.
    [[nodiscard]] std::string& NextOfColumn();

    JsonWriter& writer_;
    Json file_ = Json::object();    ///< members of the file that are not written yet
    Json earlier_ = Json::object(); ///< the values between BeginEarlier and End
    std::vector<Json*> levels_{&file_};
    Json* next_ = nullptr; ///< the destination of the next value with a name or an index
    bool isInRows_ = false;
    std::vector<ColumnText> columns_;
    std::size_t column_ = 0;           ///< column of the next value of a row
    const char* columnName_ = nullptr; ///< its name
};

} // namespace quandrel
