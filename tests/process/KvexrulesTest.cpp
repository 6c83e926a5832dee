#include "tests/process/KvexrulesTest.h"

namespace kvex::process {

Outcome KvexrulesTest::kvexrules(const std::vector<std::string> &arguments, Output output) const {
    return run(program, arguments, environment, folder.path(), output);
}

Outcome KvexrulesTest::atTerminal(const std::vector<std::string> &arguments,
                                  const std::string &typed) const {
    return runAtTerminal(program, arguments, environment, folder.path(), typed);
}

void KvexrulesTest::killed(const std::vector<std::string> &arguments,
                           std::chrono::microseconds after) const {
    runAndKill(program, arguments, environment, folder.path(), after);
}

Outcome KvexrulesTest::atTerminalAnswering(const std::vector<std::string> &arguments,
                                           const std::function<std::string()> &answer) const {
    return runAtTerminal(program, arguments, environment, folder.path(), answer);
}

std::string KvexrulesTest::done(const std::vector<std::string> &arguments) const {
    Outcome outcome = kvexrules(arguments);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(outcome.errors, "");
    return std::move(outcome.output);
}

std::string KvexrulesTest::failed(int status, const std::vector<std::string> &arguments) const {
    Outcome outcome = kvexrules(arguments);
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.output, "");
    EXPECT_TRUE(outcome.errors.starts_with("kvexrules: ")) << outcome.errors;
    EXPECT_EQ(outcome.errors.find('\n'), outcome.errors.size() - 1) << outcome.errors;
    return std::move(outcome.errors);
}

std::string KvexrulesTest::sqlite3(const std::filesystem::path &file,
                                   const std::string &statement) {
    Outcome outcome = run("/usr/bin/sqlite3", {file.string(), statement}, {}, "/");
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    return std::move(outcome.output);
}

std::filesystem::path KvexrulesTest::builtProgram() {
    return KVEXRULES;
}

} // namespace kvex::process
