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
                      Output output = Output::captured) const {
        return run(program, arguments, environment, folder.path(), output);
    }
    /// The same where nothing but success is expected; gives the output.
    std::string done(const std::vector<std::string> &arguments) const {
        const Outcome outcome = kvexrules(arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        EXPECT_EQ(outcome.errors, "");
        return outcome.output;
    }
    /// The same where a failure with `status` is expected, told in one message and with nothing
    /// printed; gives the message.
    std::string failed(int status, const std::vector<std::string> &arguments) const {
        const Outcome outcome = kvexrules(arguments);
        EXPECT_EQ(outcome.status, status);
        EXPECT_EQ(outcome.output, "");
        EXPECT_TRUE(outcome.errors.starts_with("kvexrules: ")) << outcome.errors;
        EXPECT_EQ(outcome.errors.find('\n'), outcome.errors.size() - 1) << outcome.errors;
        return outcome.errors;
    }

    /// What the database's own client gives for a statement on the file `database`.
    std::string sqlite3(const std::filesystem::path &file, const std::string &statement) const {
        const Outcome outcome = run("/usr/bin/sqlite3", {file.string(), statement}, {}, "/");
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        return outcome.output;
    }

    host::TemporaryFolder folder;
    std::filesystem::path program = KVEXRULES;
    std::filesystem::path database = folder / "rules.db";
    std::map<std::string, std::string> environment{{"HOME", (folder / "home").string()},
                                                   {"KVEX_DATABASE", database.string()}};
};

} // namespace kvex::process
