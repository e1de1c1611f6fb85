// SPDX-License-Identifier: MIT
//
// A reader of a binary plot file that lists what it reads as JSON.
//
// The list of fields (persistence/binary_plot_fields.h) visits it as any other stream and says the
// names and the shape. Long arrays go to the writer as they are read, and columns of rows as text;
// members of the file's object are held until what is above them in the list is out.

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

    /// @param bytes  of a file that was found good; have to outlive the lister
    FieldLister(std::string_view bytes, JsonWriter& writer)
        : BinaryReader(bytes)
        , writer_(writer) {}

    // What is listed. Numbers are those of the file, before any of them is brought into its range.

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

    /// A row of nodes, of both layers of the grids of values in turn.
    void Doubles(std::span<double> values);

    /// An element of a long array.
    [[nodiscard]] std::string_view TextBytes();

    /// Listed as its text.
    void Code(SymbolCode& code);

    // Names and shape.

    /// The next value, array or object is a member of the object in work. A value without a name is
    /// an element of the array in work; in an object it is not listed.
    void Name(const char* name);

    /// The next value or array is at a place of the member `name`, an array of so many.
    void Element(const char* name, std::size_t place, std::size_t size);

    void BeginArray() { Begin(Json::array()); }

    void BeginObject() { Begin(Json::object()); }

    /// Ends an array or an object.
    void End() { levels_.pop_back(); }

    /// Turns the array in work, of arrays, into its columns.
    void Transpose();

    /// Begins what files tell once more in full, to be ended by End.
    void BeginEarlier() { levels_.push_back(&earlier_); }

    /// Lists what was begun so as a member.
    void PutEarlier(const char* name) { file_[name] = std::exchange(earlier_, Json::object()); }

    /// A long array. Without a name it is an element of another.
    void BeginList(const char* name);

    void EndList() { writer_.EndArray(); }

    /// Rows as columns of values. Those with a name follow the members so far; those without are an
    /// element of a long array.
    void BeginRows(const char* name);

    void BeginRow() { column_ = 0; }

    void EndRows();

    /// A value that is not read from the file.
    void List(Json value);

    /// Writes the members that are held.
    void PutMembers();

private:
    /// A column of rows under its name: the elements of a JSON array.
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

    /// The elements of the column that the next value belongs to, with what parts it from the last.
    [[nodiscard]] std::string& NextOfColumn();

    JsonWriter& writer_;
    Json file_ = Json::object();    ///< members of the file that are not written yet
    Json earlier_ = Json::object(); ///< what was begun by BeginEarlier
    std::vector<Json*> levels_{&file_};
    Json* next_ = nullptr; ///< where the next value belongs that has a name or a place
    bool isInRows_ = false;
    std::vector<ColumnText> columns_;
    std::size_t column_ = 0;           ///< of the next value of a row
    const char* columnName_ = nullptr; ///< its name
};

} // namespace quandrel
