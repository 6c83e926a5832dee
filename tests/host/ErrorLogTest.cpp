#include "host/suite/ErrorLog.h"

#include "platform/Text.h"
#include "tests/host/EnvironmentVariables.h"
#include "tests/host/TemporaryFolder.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kvex::host {
namespace {

class ErrorLogFile : public testing::Test {
protected:
    void SetUp() override { environment.set("XDG_STATE_HOME", (folder / "state").string()); }

    /// The path of the log as a component in `directory` gives it.
    static std::u16string given(const std::filesystem::path &directory) {
        return fromUtf8(directory.string()) + u"\\KVEX.log";
    }

    /// A directory in which nobody can make a file.
    std::filesystem::path unusable() {
        writeFile(folder / "file", "");
        return folder / "file";
    }

    TemporaryFolder folder;
    EnvironmentVariables environment;
};

TEST_F(ErrorLogFile, IsInTheDirectoryThatTheComponentNames) {
    ErrorLog log({}, folder.path());
    log.append(given(folder.path()), "one\n");
    EXPECT_EQ(readFile(folder / "KVEX.log"), "one\n");
    EXPECT_EQ(log.lastFile(), folder / "KVEX.log");
}

TEST_F(ErrorLogFile, KeepsEarlierLines) {
    writeFile(folder / "KVEX.log", "zero\n");
    ErrorLog({}, folder.path()).append(given(folder.path()), "one\n");
    ErrorLog({}, folder.path()).append(given(folder.path()), "two\n");
    EXPECT_EQ(readFile(folder / "KVEX.log"), "zero\none\ntwo\n");
}

TEST_F(ErrorLogFile, IsReadableByItsOwnerAlone) {
    ErrorLog({}, folder.path()).append(given(folder.path()), "one\n");
    struct stat status {};
    ASSERT_EQ(stat((folder / "KVEX.log").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(ErrorLogFile, GoesToTheStateFolderWhenItCannotBeOpened) {
    ErrorLog log({}, unusable());
    log.append(given(unusable()), "one\n");
    EXPECT_EQ(readFile(folder / "state/kvex/KVEX.log"), "one\n");
    EXPECT_EQ(log.lastFile(), folder / "state/kvex/KVEX.log");
}

TEST_F(ErrorLogFile, GoesToTheStateFolderWhenNoneIsNamed) {
    ErrorLog({}, folder.path()).append(u"", "one\n");
    EXPECT_EQ(readFile(folder / "state/kvex/KVEX.log"), "one\n");
}

TEST_F(ErrorLogFile, OfAnInstalledComponentIsInTheStateFolder) {
    const std::filesystem::path program = folder / "bin";
    const std::filesystem::path libraries = folder / "lib";
    std::filesystem::create_directories(libraries);
    for (const std::filesystem::path &portable : {program, std::filesystem::path()}) {
        ErrorLog log({}, portable);
        log.append(given(libraries), "one\n");
        EXPECT_EQ(log.lastFile(), folder / "state/kvex/KVEX.log");
    }
    EXPECT_EQ(readFile(folder / "state/kvex/KVEX.log"), "one\none\n");
    EXPECT_TRUE(std::filesystem::is_empty(libraries));
}

TEST_F(ErrorLogFile, OfAnInstalledComponentIsTheChosenOneToo) {
    ErrorLog(folder / "chosen.log", {}).append(given(folder.path()), "one\n");
    EXPECT_EQ(readFile(folder / "chosen.log"), "one\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "state"));
}

TEST_F(ErrorLogFile, IsPortableInTheProgramsFolderExceptForRoot) {
    const std::filesystem::path program =
        std::filesystem::read_symlink("/proc/self/exe").parent_path();
    EXPECT_EQ(portableFolder(), geteuid() == 0 ? std::filesystem::path() : program);
}

TEST_F(ErrorLogFile, IsInAFolderOfItsOwnerAlone) {
    ErrorLog({}, {}).append(u"", "one\n");
    for (const char *name : {"state", "state/kvex"}) {
        EXPECT_EQ(std::filesystem::status(folder / name).permissions(),
                  std::filesystem::perms::owner_all)
            << name;
    }
}

TEST_F(ErrorLogFile, IsTheChosenOneWhateverTheComponentNames) {
    ErrorLog log(folder / "chosen.log");
    log.append(given(folder.path()), "one\n");
    EXPECT_EQ(readFile(folder / "chosen.log"), "one\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "KVEX.log"));
}

TEST_F(ErrorLogFile, GoesToTheStateFolderWhenTheChosenOneCannotBeOpened) {
    ErrorLog log(unusable() / "chosen.log");
    log.append(given(folder.path()), "one\n");
    EXPECT_EQ(readFile(folder / "state/kvex/KVEX.log"), "one\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "KVEX.log"));
}

TEST_F(ErrorLogFile, GoesToStandardErrorWhenThereIsNoPlaceAtAll) {
    environment.set("XDG_STATE_HOME", unusable().string());
    ErrorLog log({}, unusable());
    testing::internal::CaptureStderr();
    log.append(given(unusable()), "the entry\n");
    const std::string told = testing::internal::GetCapturedStderr();
    EXPECT_EQ(told, "The error log " + (unusable() / "KVEX.log").string() +
                        " cannot be written (Not a directory): make it writable, or choose another "
                        "file. The entry was: the entry\n");
    EXPECT_EQ(log.lastFile(), "");
}

TEST_F(ErrorLogFile, WithoutRoomCountsAsOneThatCannotBeOpened) {
    ErrorLog log("/dev/full");
    log.append(u"", "one\n");
    EXPECT_EQ(readFile(folder / "state/kvex/KVEX.log"), "one\n");
}

TEST_F(ErrorLogFile, KeepsTheLinesOfManyWritersWhole) {
    constexpr int writers = 4;
    constexpr int lines = 200;
    for (int writer = 0; writer < writers; ++writer) {
        if (fork() == 0) {
            const std::string line(500, static_cast<char>('a' + writer));
            for (int i = 0; i < lines; ++i) {
                ErrorLog({}, folder.path()).append(given(folder.path()), line + "\n");
            }
            _exit(0);
        }
    }
    for (int writer = 0; writer < writers; ++writer) {
        int status = -1;
        wait(&status);
        EXPECT_EQ(status, 0);
    }
    std::ifstream log(folder / "KVEX.log");
    int count = 0;
    for (std::string line; std::getline(log, line); ++count) {
        ASSERT_EQ(line, std::string(500, line.empty() ? '?' : line.front()));
    }
    EXPECT_EQ(count, writers * lines);
}

TEST(LogPath, ReplacesTheBackslashBeforeTheFileName) {
    EXPECT_EQ(logPath(u"/opt/kvex\\KVEX.log"), "/opt/kvex/KVEX.log");
}

TEST(LogPath, OfARootDirectoryMayDoubleTheSeparator) {
    EXPECT_EQ(logPath(u"/\\KVEX.log"), "//KVEX.log");
}

TEST(LogPath, KeepsABackslashInADirectorysName) {
    EXPECT_EQ(logPath(u"/opt/a\\b\\KVEX.log"), "/opt/a\\b/KVEX.log");
}

TEST(LogPath, WithoutABackslashStays) {
    EXPECT_EQ(logPath(u"/opt/नियम/KVEX.log"), "/opt/नियम/KVEX.log");
}

class LogLine : public testing::Test {
protected:
    void useZone(const char *zone) {
        setenv("TZ", zone, 1);
        tzset();
    }
    void TearDown() override {
        unsetenv("TZ");
        tzset();
    }
};

TEST_F(LogLine, HoldsTimeTextNumberSourceAndDescription) {
    useZone("IST-5:30");
    const Error error(13, u"Type mismatch", u"KVEXMessageRules");
    EXPECT_EQ(logLine(1709263800, u"Error occured. Sub: A, Module: B", &error),
              "2024-03-01T09:00:00+05:30\tError occured. Sub: A, Module: B\t13\tKVEXMessageRules\t"
              "Type mismatch\n");
}

TEST_F(LogLine, HoldsANegativeOffsetFromUtc) {
    useZone("XYZ3:30");
    EXPECT_EQ(logLine(0, u"a", nullptr), "1969-12-31T20:30:00-03:30\ta\n");
}

TEST_F(LogLine, OfAMessageHoldsNoError) {
    useZone("UTC0");
    EXPECT_EQ(logLine(0, u"Could not be opened", nullptr),
              "1970-01-01T00:00:00+00:00\tCould not be opened\n");
}

TEST_F(LogLine, IsOneLineWhateverTheTextsHold) {
    useZone("UTC0");
    const Error error(-1, u"a\r\nb\tc", u"d\ne");
    EXPECT_EQ(logLine(0, u"f\n", &error),
              "1970-01-01T00:00:00+00:00\tf\\n\t-1\td\\ne\ta\\r\\nb\\tc\n");
}

TEST_F(LogLine, HoldsNoPassword) {
    useZone("UTC0");
    const Error error(-1, u"cannot open DSN=a;PWD=s3cret", u"PWD=s3cret");
    EXPECT_EQ(logLine(0, u"PWD=s3cret", &error),
              "1970-01-01T00:00:00+00:00\tPWD=***\t-1\tPWD=***\tcannot open DSN=a;PWD=***\n");
}

TEST_F(LogLine, IsUtf8) {
    useZone("UTC0");
    EXPECT_EQ(logLine(0, u"नियम 🌙", nullptr), "1970-01-01T00:00:00+00:00\tनियम 🌙\n");
}

} // namespace
} // namespace kvex::host
