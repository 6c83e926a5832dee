#include "host/suite/NewFile.h"

#include "tests/host/TemporaryFolder.h"
#include "tests/support/RaisedError.h"

#include "platform/Text.h"
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kvex::host {
namespace {

using test::expectError;

class NewFileTest : public testing::Test {
protected:
    static auto count(const std::filesystem::path &folder) {
        return std::distance(std::filesystem::directory_iterator(folder), {});
    }
    [[nodiscard]] std::u16string refusal(const std::string &reason) const {
        return fromUtf8(file_.native() + " cannot be written (" + reason +
                        "). Name a file in a folder that you may write to, on a disk with free "
                        "space.");
    }
    [[nodiscard]] std::u16string existing() const {
        return fromUtf8(file_.native() + " already exists and was not changed. Name another file, "
                                         "or add --replace.");
    }

    TemporaryFolder folder_;
    std::filesystem::path file_ = folder_ / "new";
};

TEST_F(NewFileTest, AppearsWholeUnderItsName) {
    NewFile made(file_, Existing::refuse);
    struct stat facts {};
    ASSERT_EQ(::stat(made.path().c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777U, 0600U);
    made.write("one ");
    made.write("two");
    EXPECT_FALSE(std::filesystem::exists(file_));
    made.keep();
    EXPECT_EQ(readFile(file_), "one two");
    EXPECT_EQ(count(folder_.path()), 1);
}

TEST_F(NewFileTest, LeavesNothingWhenItIsNotKept) {
    {
        const NewFile made(file_, Existing::refuse);
        for (const char *ending : {"-journal", "-wal", "-shm"}) {
            writeFile(made.path() + ending, "");
        }
        EXPECT_EQ(count(folder_.path()), 4);
    }
    EXPECT_EQ(count(folder_.path()), 0);
}

TEST_F(NewFileTest, RemovesNothingWhenItIsKept) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder_.path());
    writeFile(folder_ / "-wal", "another's");
    std::string path;
    {
        NewFile made(file_, Existing::refuse);
        path = made.path();
        made.keep();
        writeFile(path, "another's");
    }
    std::filesystem::current_path(before);
    EXPECT_EQ(readFile(path), "another's");
    EXPECT_EQ(readFile(folder_ / "-wal"), "another's");
}

TEST_F(NewFileTest, RefusesAFileThatIsThere) {
    writeFile(file_, "old");
    expectError(error_number::fileExists, existing(),
                [&] { const NewFile made(file_, Existing::refuse); });
    EXPECT_EQ(readFile(file_), "old");
    EXPECT_EQ(count(folder_.path()), 1);
}

TEST_F(NewFileTest, RefusesAFileThatAppearedMeanwhile) {
    NewFile made(file_, Existing::refuse);
    writeFile(file_, "another's");
    expectError(error_number::fileExists, existing(), [&] { made.keep(); });
    EXPECT_EQ(readFile(file_), "another's");
}

TEST_F(NewFileTest, ReplacesAFileWhenItMay) {
    writeFile(file_, "old");
    NewFile made(file_, Existing::replace);
    made.write("new");
    EXPECT_EQ(readFile(file_), "old");
    made.keep();
    EXPECT_EQ(readFile(file_), "new");
}

TEST_F(NewFileTest, FailsInAFolderThatIsNotThere) {
    file_ = folder_ / "none" / "new";
    expectError(error_number::badArgument, refusal("No such file or directory"),
                [&] { const NewFile made(file_, Existing::refuse); });
}

TEST_F(NewFileTest, FailsWhenTheFilledFileIsGone) {
    NewFile made(file_, Existing::refuse);
    std::filesystem::remove(made.path());
    expectError(error_number::badArgument, refusal("No such file or directory"),
                [&] { made.write("x"); });
    expectError(error_number::badArgument, refusal("No such file or directory"),
                [&] { made.keep(); });
}

TEST_F(NewFileTest, FailsWhenOnlyAPartCanBeWritten) {
    NewFile made(file_, Existing::refuse);
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit few{4, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &few), 0);
    const auto error = test::raisedBy([&] { made.write("123456"); });
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), error_number::badArgument);
    EXPECT_EQ(error->description(), refusal("File too large"));
    EXPECT_EQ(readFile(made.path()), "1234");
}

TEST_F(NewFileTest, FailsWhenAFolderHasItsName) {
    std::filesystem::create_directory(file_);
    NewFile made(file_, Existing::replace);
    expectError(error_number::badArgument, refusal("Is a directory"), [&] { made.keep(); });
}

TEST_F(NewFileTest, FailsWhenTheDatabaseInItHasALogLeft) {
    NewFile made(file_, Existing::refuse);
    writeFile(made.path() + "-wal", "");
    expectError(error_number::badArgument, refusal("No space left on device"),
                [&] { made.keep(); });
    EXPECT_FALSE(std::filesystem::exists(file_));
}

/// A program that was started without one gets the descriptor 0 for its first file.
TEST_F(NewFileTest, NeedsNoStandardInputAndLeavesNothingOpen) {
    const int input = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 3);
    ::close(STDIN_FILENO);
    const auto before = count("/proc/self/fd");
    {
        NewFile made(file_, Existing::refuse);
        made.write("x");
        made.keep();
    }
    const auto after = count("/proc/self/fd");
    ::dup2(input, STDIN_FILENO);
    ::close(input);
    EXPECT_EQ(readFile(file_), "x");
    EXPECT_EQ(after, before);
}

} // namespace
} // namespace kvex::host
