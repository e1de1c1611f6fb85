// SPDX-License-Identifier: MIT
//
// A map session that answers from a script and records all calls.

#pragma once

#include "platform/link_window.h"
#include "platform/map_session.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quandrel {

/// A table of a scripted session.
struct ScriptedTable {
    std::string name;
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;
};

/// The script of a session, and a record of its calls. It must outlive the session.
struct MapScript {
    std::vector<ScriptedTable> tables;
    std::map<std::string, std::string> answers; ///< to expressions, tried first
    std::set<std::string> refused;              ///< statements, expressions, "Menu n"
    std::string dies;                           ///< the call at which the session dies
    bool unites = true;                         ///< a batch of Selects is one selection
    std::set<std::size_t> badRows;              ///< rows whose fetch leaves an error code

    std::vector<std::string> said;
    std::function<void(const std::string&)> onCall; ///< called during each call
    MapCallback* callback = nullptr;
    bool isAlive = false; ///< a session exists
    bool isDead = false;  ///< it no longer answers

    /// All calls since the last TakeSaid, one per line.
    std::string TakeSaid() {
        std::string text;
        for (const std::string& line : std::exchange(said, {})) {
            text += line + "\n";
        }
        return text;
    }

    /// The statements of a kind among the recorded calls.
    [[nodiscard]] std::vector<std::string> Statements(const std::string& start) const {
        std::vector<std::string> found;
        for (const std::string& line : said) {
            if (line.starts_with("Do " + start)) {
                found.push_back(line.substr(3));
            }
        }
        return found;
    }
};

class RecordingMapSession : public MapSession {
public:
    explicit RecordingMapSession(MapScript& script)
        : script_(script) {
        script_.isAlive = true;
        script_.isDead = false;
    }

    ~RecordingMapSession() override { script_.isAlive = false; }

    [[nodiscard]] MapReply Do(const std::string& command) override {
        return Call("Do " + command, command, [&] { Fetch(command); });
    }

    [[nodiscard]] MapReply Eval(const std::string& expression) override {
        MapReply reply = Call("Eval " + expression, expression, [] {});
        if (reply.IsDone()) {
            const std::optional<std::string> value = ValueOf(expression);
            reply = value ? MapReply{MapReplyKind::Done, *value} : Refusal();
        }
        return reply;
    }

    [[nodiscard]] MapReply RunMenuCommand(int id) override {
        const std::string call = "Menu " + std::to_string(id);
        return Call(call, call, [] {});
    }

    void SetCallback(MapCallback* callback) override {
        script_.said.push_back(callback == nullptr ? "SetCallback nothing" : "SetCallback");
        script_.callback = callback;
    }

    [[nodiscard]] int LastErrorCode() override { return errorCode_; }

    void BeginSelects() override { script_.said.push_back("BeginSelects"); }

    void EndSelects() override { script_.said.push_back("EndSelects"); }

    [[nodiscard]] bool UnitesSelects() const override { return script_.unites; }

private:
    static MapReply Refusal() { return {MapReplyKind::Refused, "not understood"}; }

    template <class Act>
    MapReply Call(const std::string& line, const std::string& text, const Act& act) {
        script_.said.push_back(line);
        errorCode_ = 0;
        if (script_.onCall) {
            script_.onCall(line);
        }
        if (script_.isDead || (!script_.dies.empty() && text == script_.dies)) {
            script_.isDead = true;
            errorCode_ = 1;
            return {MapReplyKind::Dead, "gone"};
        }
        if (script_.refused.contains(text)) {
            errorCode_ = 2;
            return Refusal();
        }
        act();
        return {};
    }

    void Fetch(const std::string& command) {
        for (const ScriptedTable& table : script_.tables) {
            const std::string from = " From " + table.name;
            if (command == "Fetch First" + from) {
                row_ = 1;
            } else if (command == "Fetch Next" + from) {
                ++row_;
            } else if (command.starts_with("Fetch Rec ") && command.ends_with(from)) {
                row_ = std::stoul(command.substr(10));
                errorCode_ = script_.badRows.contains(row_) ? 3 : 0;
            }
        }
    }

    [[nodiscard]] std::optional<std::string> ValueOf(const std::string& expression) const {
        if (const auto answer = script_.answers.find(expression); answer != script_.answers.end()) {
            return answer->second;
        }
        if (expression == "NumTables()") {
            return std::to_string(script_.tables.size());
        }
        for (std::size_t i = 0; i < script_.tables.size(); ++i) {
            if (expression == "TableInfo(" + std::to_string(i + 1) + ",1)") {
                return script_.tables[i].name;
            }
            if (const auto value = ValueOfTable(script_.tables[i], expression)) {
                return value;
            }
        }
        return std::nullopt;
    }

    [[nodiscard]] std::optional<std::string> ValueOfTable(const ScriptedTable& table,
                                                          const std::string& expression) const {
        if (expression == "TableInfo(" + table.name + ",8)") {
            return std::to_string(table.rows.size());
        }
        if (expression == "TableInfo(" + table.name + ",4)") {
            return std::to_string(table.columns.size());
        }
        if (expression == "EOT(" + table.name + ")") {
            return row_ > table.rows.size() ? "T" : "F";
        }
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const std::string column = std::to_string(i + 1);
            if (expression == "ColumnInfo(" + table.name + ",\"COL" + column + "\",1)") {
                return table.columns[i];
            }
            if (expression == table.name + ".Col(" + column + ")" && row_ >= 1
                && row_ <= table.rows.size()) {
                return table.rows[row_ - 1][i];
            }
        }
        return std::nullopt;
    }

    MapScript& script_;
    std::size_t row_ = 0;
    int errorCode_ = 0;
};

/// Scripted sessions, either running or available to start.
class RecordingMapSessions : public MapSessions {
public:
    [[nodiscard]] std::unique_ptr<MapSession> FindRunning() override {
        return Make(isRunning, "FindRunning");
    }

    [[nodiscard]] std::unique_ptr<MapSession> Start() override { return Make(canStart, "Start"); }

    [[nodiscard]] bool IsRegistered() override { return isRegistered; }

    bool isRunning = false;
    bool canStart = true;
    bool isRegistered = true;
    MapScript script;

private:
    std::unique_ptr<MapSession> Make(bool isThere, const char* call) {
        script.said.emplace_back(call);
        return isThere ? std::make_unique<RecordingMapSession>(script) : nullptr;
    }
};

/// A link window that is not shown, and what was passed to it. The record outlives the window.
struct LinkWindowRecord {
    bool isOpen = false;
    std::uint64_t parent = 0;
    std::string caption;
    std::vector<std::string> statusTexts;
    std::map<std::string, bool> enabled;
    std::vector<std::string> tablesAsked;
    std::string tableOffered;
    std::optional<std::string> answer; ///< to the dialog of tables
};

class RecordingLinkWindow : public LinkWindow {
public:
    RecordingLinkWindow(LinkWindowRecord& record, std::uint64_t parent)
        : record_(record) {
        record_.isOpen = true;
        record_.parent = parent;
    }

    [[nodiscard]] std::uint64_t Handle() const override { return 777; }

    void SetCaption(const std::string& caption) override { record_.caption = caption; }

    void SetStatusText(const std::string& text) override { record_.statusTexts.push_back(text); }

    void SetEnabled(const std::string& name, bool isEnabled) override {
        record_.enabled[name] = isEnabled;
    }

    [[nodiscard]] std::optional<std::string> AskTable(const std::vector<std::string>& tables,
                                                      const std::string& chosen) override {
        record_.tablesAsked = tables;
        record_.tableOffered = chosen;
        return record_.answer;
    }

    void Close() override { record_.isOpen = false; }

private:
    LinkWindowRecord& record_;
};

} // namespace quandrel
