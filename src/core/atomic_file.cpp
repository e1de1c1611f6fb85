// SPDX-License-Identifier: MIT

#include "core/atomic_file.h"

#include "core/result.h"

#include <filesystem>
#include <optional>
#include <system_error>

namespace quandrel {

namespace fs = std::filesystem;

namespace {

/// The file at the end of a chain of links. Writing to it leaves the links in place.
Result<fs::path> TargetOf(const std::string& path) {
    std::error_code failed;
    if (!fs::is_symlink(path, failed)) {
        return fs::path(path);
    }
    const fs::path target = fs::canonical(path, failed);
    if (failed == std::errc::no_such_file_or_directory) {
        const fs::path named = fs::read_symlink(path, failed);
        return Failure{"it is a link to '" + named.string() + "', which is not there"};
    }
    return failed ? Result<fs::path>(Failure{failed.message()}) : Result<fs::path>(target);
}

/// Why no new file can replace another one; empty when it can.
std::string RefusalOf(const fs::file_status& status) {
    if (fs::is_directory(status)) {
        return "it is a folder";
    }
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        return "it is not an ordinary file";
    }
    const bool isWritable = (status.permissions() & fs::perms::owner_write) != fs::perms::none;
    return fs::is_regular_file(status) && !isWritable ? "it is read-only" : "";
}

} // namespace

std::string WriteFileAtomically(const std::string& path, const MakeBytes& make, UnderWay underWay) {
    const Result<fs::path> target = TargetOf(path);
    if (!target) {
        return target.Error();
    }
    std::error_code failed;
    const fs::file_status status = fs::status(*target, failed);
    const std::string refusal = RefusalOf(status);
    if (!refusal.empty()) {
        return refusal;
    }
    const std::optional<fs::perms> rights =
        fs::is_regular_file(status) ? std::optional(status.permissions()) : std::nullopt;
    return ReplaceByNewFile(*target, make, rights, underWay);
}

std::string WriteFileAtomically(const std::string& path, std::string_view bytes,
                                UnderWay underWay) {
    const auto make = [bytes](const PutBytes& put) {
        put(bytes);
        return std::string();
    };
    return WriteFileAtomically(path, make, underWay);
}

} // namespace quandrel
