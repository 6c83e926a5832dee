// A user at a terminal: kvexrules in an environment and a home of the test's own.
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
    /// The same where nothing but success is expected; gives the output.
    std::string done(const std::vector<std::string> &arguments) const;
    /// The same where a failure with `status` is expected, told in one message and with nothing
    /// printed; gives the message.
    std::string failed(int status, const std::vector<std::string> &arguments) const;

    /// What the database's own client gives for a statement on the database in `file`.
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
