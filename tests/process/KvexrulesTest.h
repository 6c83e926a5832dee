// Runs kvexrules as a user does, with an environment and a home directory for the test.
#pragma once

#include "tests/host/TemporaryFolder.h"
#include "tests/process/Program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace kvex::process {

using host::readFile;
using host::writeFile;

class KvexrulesTest : public testing::Test {
protected:
    /// Runs kvexrules to its end.
    Outcome kvexrules(const std::vector<std::string> &arguments,
                      Output output = Output::captured) const;
    /// Runs it on its own terminal, where the user types `typed`.
    Outcome atTerminal(const std::vector<std::string> &arguments,
                       const std::string &typed = {}) const;
    /// Runs it on its own terminal. After its question, the user types what `answer` returns.
    Outcome atTerminalAnswering(const std::vector<std::string> &arguments,
                                const std::function<std::string()> &answer) const;
    /// Starts it and kills it after this time, unless it has ended.
    void killed(const std::vector<std::string> &arguments, std::chrono::microseconds after) const;
    /// Runs it, expects success and no messages, and returns the output.
    std::string done(const std::vector<std::string> &arguments) const;
    /// Runs it, expects `status`, one message and no output, and returns the message.
    std::string failed(int status, const std::vector<std::string> &arguments) const;

    /// Runs a statement with the database's own client on `file`, and returns the result.
    static std::string sqlite3(const std::filesystem::path &file, const std::string &statement);
    /// The program as it was built.
    static std::filesystem::path builtProgram();

    host::TemporaryFolder folder;
    std::filesystem::path program = builtProgram();
    std::filesystem::path database = folder / "rules.db";
    std::map<std::string, std::string> environment{{"HOME", (folder / "home").string()},
                                                   {"KVEX_DATABASE", database.string()}};
};

} // namespace kvex::process
