// SPDX-License-Identifier: MIT
//
// Classes of numbers and texts, and lists of files.

#include "quandrel/classes.h"

#include "arrays.h"
#include "quandrel/workspace.h"

namespace quandrel::python {

namespace {

using Classes = py::array_t<int>;

Classes ClassesOfNumbers(const Array& values, std::vector<double> limits, bool below, bool above) {
    const auto numbers = NumbersOf(values, "values");
    Classes classes(static_cast<py::ssize_t>(numbers.size()));
    const std::span<int> into(classes.mutable_data(), numbers.size());
    const api::Ranges ranges = {std::move(limits), below, above};
    const py::gil_scoped_release release;
    api::FindClasses(numbers, ranges, into);
    return classes;
}

Classes ClassesOfNames(const std::vector<std::string>& texts, std::vector<std::string> names,
                       bool others, bool caseSensitive) {
    const api::Names wanted = {std::move(names), others, caseSensitive};
    Classes classes(static_cast<py::ssize_t>(texts.size()));
    std::transform(texts.begin(), texts.end(), classes.mutable_data(),
                   [&wanted](const std::string& text) { return api::ClassOf(text, wanted); });
    return classes;
}

} // namespace

void BindClasses(py::module_& module) {
    using namespace py::literals;
    module.def(
        "classes_of_numbers", ClassesOfNumbers, "values"_a, "limits"_a, "below"_a = false,
        "above"_a = false,
        "The class of each number.\n\n"
        "values: (n,); limits: 2 to 11 ascending numbers: class k, from 1, extends from limit "
        "k - 1 to limit k, a number at a limit is in the class above it; below, above: "
        "numbers beyond the limits are class 0 and the class after the last.\n"
        "Returns (n,), integers; -1 for no class.");
    module.def("classes_of_names", ClassesOfNames, "texts"_a, "names"_a, "others"_a = false,
               "case_sensitive"_a = false,
               "The class of each text.\n\n"
               "texts: n texts; names: class k, from 1, has name k - 1; others: texts without a "
               "name are class 0.\nReturns an array (n,) of integers; -1 for no class.");
    module.def(
        "workspace_text",
        [](const std::vector<std::string>& files, const std::string& folder) {
            return api::WorkspaceText(files, folder);
        },
        "files"_a, "folder"_a);
    module.def("files_of_workspace", api::FilesOfWorkspace, "text"_a, "folder"_a);
}

} // namespace quandrel::python
