// Runs kvexrules as a user at a terminal does, with an environment and a home of the test's own.
#pragma once

#include "tests/host/TemporaryFolder.h"
#include "tests/process/Program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
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
    /// The same on a terminal of its own, whose user types `typed`.
    Outcome atTerminal(const std::vector<std::string> &arguments,
                       const std::string &typed = {}) const;
    /// Runs it, expects success, and gives the output.
    std::string done(const std::vector<std::string> &arguments) const;
    /// Runs it, and expects a failure with `status`, one message and no output. Gives the message.
    std::string failed(int status, const std::vector<std::string> &arguments) const;

    /// Runs a statement on the database in `file` with the database's own client, and gives the
    /// output.
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
