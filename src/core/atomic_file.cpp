// SPDX-License-Identifier: MIT

#include "core/atomic_file.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#ifdef _WIN32
#include <io.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace quandrel {

namespace {

std::string LastError() {
    return std::strerror(errno);
}

[[nodiscard]] bool FlushToDisk(std::FILE* file) {
#ifdef _WIN32
    return _commit(_fileno(file)) == 0;
#else
    return fsync(fileno(file)) == 0;
#endif
}

/// Makes a file that was not there beside a target, and tells its name. Null when that fails.
std::FILE* OpenBeside(const std::filesystem::path& target, std::filesystem::path& name) {
    std::string pattern = target.string() + ".XXXXXX";
#ifdef _WIN32
    if (_mktemp_s(pattern.data(), pattern.size() + 1) != 0) {
        return nullptr;
    }
    name = pattern;
    return std::fopen(pattern.c_str(), "wbx");
#else
    const int descriptor = mkstemp(pattern.data());
    name = pattern;
    return descriptor < 0 ? nullptr : fdopen(descriptor, "wb");
#endif
}

/// Writes, flushes and closes. Empty on success.
std::string WriteAll(std::FILE* file, const MakeBytes& make) {
    std::string failure; // of the first write that failed
    std::string error = make([file, &failure](std::string_view bytes) {
        if (failure.empty() && std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) {
            failure = LastError();
        }
        return failure.empty();
    });
    error = failure.empty() ? error : failure;
    if (error.empty() && (std::fflush(file) != 0 || !FlushToDisk(file))) {
        error = LastError();
    }
    if (std::fclose(file) != 0 && error.empty()) {
        error = LastError();
    }
    return error;
}

/// The file that a chain of links leads to, so that a link stays one.
std::filesystem::path TargetOf(const std::string& path) {
    std::error_code failed;
    if (std::filesystem::is_symlink(path, failed)) {
        const std::filesystem::path target = std::filesystem::canonical(path, failed);
        if (!failed) {
            return target;
        }
    }
    return path;
}

/// The access rights of a new file: those of the one that it takes the place of, or what the user's
/// mask leaves.
std::filesystem::perms RightsFor(const std::filesystem::file_status& former) {
    if (std::filesystem::is_regular_file(former)) {
        return former.permissions();
    }
#ifdef _WIN32
    return std::filesystem::perms::all;
#else
    const mode_t mask = umask(0);
    umask(mask);
    return static_cast<std::filesystem::perms>(0666 & ~mask);
#endif
}

} // namespace

std::string WriteFileAtomically(const std::string& path, const MakeBytes& make) {
    const std::filesystem::path target = TargetOf(path);
    std::error_code failed;
    const std::filesystem::file_status status = std::filesystem::status(target, failed);
    if (std::filesystem::is_directory(status)) {
        return "it is a folder";
    }
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        return "it is no ordinary file";
    }
    if (std::filesystem::is_regular_file(status)
        && (status.permissions() & std::filesystem::perms::owner_write)
               == std::filesystem::perms::none) {
        return "it is read-only";
    }
    std::filesystem::path temporary;
    std::FILE* file = OpenBeside(target, temporary);
    if (file == nullptr) {
        return LastError();
    }
    std::string error = WriteAll(file, make);
    if (error.empty()) {
        std::filesystem::permissions(temporary, RightsFor(status), failed);
        std::filesystem::rename(temporary, target, failed);
        error = failed ? failed.message() : std::string();
    }
    if (!error.empty()) {
        std::filesystem::remove(temporary, failed);
    }
    return error;
}

std::string WriteFileAtomically(const std::string& path, std::string_view bytes) {
    return WriteFileAtomically(path, [bytes](const PutBytes& put) {
        put(bytes);
        return std::string();
    });
}

} // namespace quandrel
