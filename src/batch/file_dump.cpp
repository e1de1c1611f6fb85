// SPDX-License-Identifier: MIT

#include "batch/file_dump.h"

#include "batch/extension_dump.h"
#include "batch/field_lister.h"
#include "core/plot_store.h"
#include "persistence/binary_plot_fields.h"
#include "persistence/plot_extension.h"

#include <utility>

namespace quandrel {

namespace {

/// A destination for rows that are listed but not stored.
class ListedRows {
public:
    void reserve(std::size_t) {}

    BinaryRow& emplace_back() { return row_ = {}; }

    BinaryRow& back() { return row_; }

private:
    BinaryRow row_;
};

/// The same for texts and numbers of rows.
struct ListedValues {
    void reserve(std::size_t) {}

    template <class Value>
    void push_back(const Value&) {}

    template <class Value>
    void emplace(std::int32_t, const Value&) {}
};

/// A plot that stores no rows.
struct ListedPlot : BinaryPlot {
    ListedRows rows;
    ListedValues texts;
    ListedValues errorLines;
    ListedValues table;
};

} // namespace

std::string WriteBinaryFile(std::string_view bytes, JsonWriter& writer) {
    ListedPlot listed;
    { // frees the plot before its fields are listed
        Result<BinaryPlot> plot = ReadBinaryPlot(bytes);
        if (!plot) {
            return plot.Error();
        }
        listed.version = plot->version;
        listed.leftOut = std::move(plot->leftOut);
    }
    listed.record = NewPlotRecord();
    FieldLister lister(bytes, writer);
    writer.BeginObject();
    std::string mark;
    lister.Name("mark");
    lister.Fixed(mark, std::char_traits<char>::length(kBinaryMark));
    lister.Name("version");
    lister.Fixed(listed.versionText, kShortVersion);
    BinaryPlotFields(lister, listed).VisitAll();
    const Result<Extension> extension = ReadExtension(bytes.substr(bytes.size() - lister.Left()));
    if (!listed.leftOut.empty()) {
        lister.Name("leftOut");
        lister.List(listed.leftOut);
    }
    lister.Name("bytesBehind");
    lister.List(lister.Left() - (extension ? extension->length : 0));
    lister.PutMembers();
    if (extension && extension->length > 0) {
        writer.Key("extension");
        WriteExtension(extension->blocks, writer);
    }
    writer.EndObject();
    return {};
}

} // namespace quandrel
