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

void FlushToDisk(std::FILE* file) {
#ifdef _WIN32
    _commit(_fileno(file));
#else
    fsync(fileno(file));
#endif
}

/// Writes, flushes and closes. Empty on success.
std::string WriteAll(std::FILE* file, std::string_view bytes) {
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size()
                         && std::fflush(file) == 0 && std::ferror(file) == 0;
    std::string error = written ? std::string() : LastError();
    if (written) {
        FlushToDisk(file);
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

/// A new file keeps the access rights of the one that it takes the place of.
void CopyRights(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code failed;
    const std::filesystem::file_status status = std::filesystem::status(from, failed);
    if (!failed && std::filesystem::is_regular_file(status)) {
        std::filesystem::permissions(to, status.permissions(), failed);
    }
}

} // namespace

std::string WriteFileAtomically(const std::string& path, std::string_view bytes) {
    const std::filesystem::path target = TargetOf(path);
    std::error_code failed;
    const std::filesystem::file_status status = std::filesystem::status(target, failed);
    if (std::filesystem::is_directory(status)) {
        return "it is a folder";
    }
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        return "it is no ordinary file";
    }
    std::filesystem::path temporary = target;
    temporary += ".saving";
    std::FILE* file = std::fopen(temporary.string().c_str(), "wb");
    if (file == nullptr) {
        return LastError();
    }
    std::string error = WriteAll(file, bytes);
    if (error.empty()) {
        CopyRights(target, temporary);
        std::filesystem::rename(temporary, target, failed);
        error = failed ? failed.message() : std::string();
    }
    if (!error.empty()) {
        std::filesystem::remove(temporary, failed);
    }
    return error;
}

} // namespace quandrel
