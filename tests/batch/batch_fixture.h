// SPDX-License-Identifier: MIT
//
// Sessions of the batch program in a folder of their own.

#pragma once

#include "batch/batch_session.h"
#include "support/qt_application.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace quandrel {

class BatchTest : public ::testing::Test {
protected:
    void SetUp() override {
        folder = std::filesystem::temp_directory_path()
                 / ("quandrel batch " + std::to_string(::getpid()));
        std::filesystem::create_directories(folder);
        Write("planes.txt", "30\t120\n45\t270\n60\t10\n");
    }

    void TearDown() override { std::filesystem::remove_all(folder); }

    std::string Write(const std::string& name, const std::string& text) const {
        std::ofstream(folder / name, std::ios::binary) << text;
        return (folder / name).string();
    }

    /// Runs commands, in which FOLDER is the test's folder. Returns the error.
    std::string Run(std::string commands) {
        for (std::size_t at = 0; (at = commands.find("FOLDER", at)) != std::string::npos;) {
            commands.replace(at, 6, folder.string());
        }
        const auto parsed = ParseScript(commands, CommandBreak::SemicolonToo);
        if (!parsed) {
            return parsed.Error();
        }
        out.str("");
        log.str("");
        BatchSession session(out, log);
        return session.Run(*parsed);
    }

    /// The dump of a session's active plot.
    nlohmann::json Dump(const std::string& commands) {
        EXPECT_EQ(Run(commands + "; dump \"FOLDER/dump.json\""), "");
        std::ifstream stream(folder / "dump.json");
        return nlohmann::json::parse(stream);
    }

    std::filesystem::path folder;
    std::ostringstream out;
    std::ostringstream log;
};

} // namespace quandrel
