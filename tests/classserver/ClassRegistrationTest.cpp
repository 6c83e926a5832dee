#include "adapters/classserver/ClassRegistration.h"

#include "adapters/classserver/GuidText.h"
#include "platform/Error.h"
#include "tests/classserver/DataDirectories.h"
#include "tests/support/PrivilegedProgram.h"
#include "tests/support/RaisedError.h"

#include <gmock/gmock.h>

#include <iterator>
#include <sys/stat.h>
#include <system_error>

namespace {

namespace fs = std::filesystem;
using kvex::classDirectories;
using kvex::ClassRegistration;
using kvex::findClassRegistration;
using kvex::test::errorNumber;
using testing::ElementsAre;

constexpr CLSID firstClass{0xA0000001, 1, 2, {3, 4, 5, 6, 7, 8, 9, 10}};
constexpr CLSID secondClass{0xB0000002, 1, 2, {3, 4, 5, 6, 7, 8, 9, 10}};

class Registration : public DataDirectories {
protected:
    static fs::path fileIn(const fs::path &directory, const CLSID &classId = firstClass) {
        return directory / (kvex::guidText(classId) + ".class");
    }
    static std::string textOf(const fs::path &file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    static std::size_t filesIn(const fs::path &directory) {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(directory), fs::directory_iterator()));
    }
    /// The registration of `firstClass` that is found when its file holds `text`.
    std::optional<ClassRegistration> foundIn(std::string_view text) const {
        put(fileIn(userClasses()), text);
        return findClassRegistration(firstClass);
    }
};

TEST_F(Registration, WhatIsWrittenIsFoundByIdAndByName) {
    kvex::writeClassRegistration({firstClass, "/opt/a=b/lib one.so", u"Program.Näme", u"It’s one"});
    for (const auto &found :
         {findClassRegistration(firstClass), findClassRegistration(u"Program.Näme")}) {
        ASSERT_TRUE(found);
        EXPECT_EQ(found->classId, firstClass);
        EXPECT_EQ(found->server, "/opt/a=b/lib one.so");
        EXPECT_EQ(found->programId, u"Program.Näme");
        EXPECT_EQ(found->description, u"It’s one");
    }
    EXPECT_FALSE(findClassRegistration(secondClass));
    EXPECT_FALSE(findClassRegistration(u"Program"));
}

TEST_F(Registration, IsAFileInTheUsersDirectory) {
    kvex::writeClassRegistration({firstClass, "/opt/lib.so", u"Program.Name", u"One"});
    EXPECT_EQ(textOf(fileIn(userClasses())),
              "ProgramId=Program.Name\nDescription=One\nServer=/opt/lib.so\n");
}

TEST_F(Registration, IsForThoseWhomTheUmaskAllows) {
    const mode_t before = ::umask(0);
    const auto written = [this](mode_t mask) {
        ::umask(mask);
        kvex::writeClassRegistration({firstClass, "/opt/lib.so", u"Program.Name", u"One"});
        return static_cast<unsigned>(fs::status(fileIn(userClasses())).permissions());
    };
    EXPECT_EQ(written(0), 0666U);
    EXPECT_EQ(written(022), 0644U);
    EXPECT_EQ(written(027), 0640U);
    EXPECT_EQ(written(077), 0600U);
    ::umask(before);
}

TEST_F(Registration, ASecondWriteReplacesTheFirstAndLeavesNoOtherFile) {
    kvex::writeClassRegistration({firstClass, "/opt/old.so", u"Old", u""});
    kvex::writeClassRegistration({firstClass, "/opt/new.so", u"New", u""});
    EXPECT_EQ(findClassRegistration(firstClass)->server, "/opt/new.so");
    EXPECT_FALSE(findClassRegistration(u"Old"));
    EXPECT_EQ(filesIn(userClasses()), 1U);
}

TEST_F(Registration, RemovalDeletesTheUsersFileAndCanBeRepeated) {
    kvex::removeClassRegistration(firstClass);
    kvex::writeClassRegistration({firstClass, "/opt/lib.so", u"Program.Name", u""});
    kvex::writeClassRegistration({secondClass, "/opt/lib.so", u"Program.Other", u""});
    kvex::removeClassRegistration(firstClass);
    kvex::removeClassRegistration(firstClass);
    EXPECT_FALSE(findClassRegistration(firstClass));
    EXPECT_TRUE(findClassRegistration(secondClass));
}

TEST_F(Registration, AWriteThatCannotBeDoneLeavesTheOldFile) {
    kvex::writeClassRegistration({firstClass, "/opt/old.so", u"Old", u""});
    EXPECT_EQ(errorNumber([] {
                  kvex::writeClassRegistration({firstClass, "relative.so", u"New", u""});
              }),
              kvex::error_number::invalidCall);
    EXPECT_EQ(errorNumber([] {
                  kvex::writeClassRegistration({firstClass, "/opt/new.so", u"New\nLine", u""});
              }),
              kvex::error_number::invalidCall);
    EXPECT_EQ(findClassRegistration(firstClass)->server, "/opt/old.so");

    kvex::removeClassRegistration(firstClass);
    fs::create_directory(fileIn(userClasses()));
    EXPECT_THROW(kvex::writeClassRegistration({firstClass, "/opt/new.so", u"New", u""}),
                 std::system_error);
    EXPECT_EQ(filesIn(userClasses()), 1U);
}

TEST_F(Registration, AFileInPlaceOfTheDirectoryFailsTheWrite) {
    put(root() / "user/kvex", "");
    EXPECT_THROW(kvex::writeClassRegistration({firstClass, "/opt/lib.so", u"", u""}),
                 std::system_error);
}

TEST_F(Registration, TheUsersFileWinsThenTheSystemsInTheirOrder) {
    put(fileIn(secondSystemClasses()), "Server=/second.so\nProgramId=A.B\n");
    EXPECT_EQ(findClassRegistration(firstClass)->server, "/second.so");
    put(fileIn(firstSystemClasses()), "Server=/first.so\nProgramId=A.B\n");
    EXPECT_EQ(findClassRegistration(firstClass)->server, "/first.so");
    EXPECT_EQ(findClassRegistration(u"A.B")->server, "/first.so");
    put(fileIn(userClasses()), "Server=/user.so\nProgramId=A.B\n");
    EXPECT_EQ(findClassRegistration(firstClass)->server, "/user.so");
    EXPECT_EQ(findClassRegistration(u"A.B")->server, "/user.so");
}

TEST_F(Registration, CommentsEmptyLinesAndOtherKeysAreIgnored) {
    const auto found = foundIn("# Server=/no.so\n\nThreading=Any\nServer=/a.so\n\n#");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->server, "/a.so");
    EXPECT_EQ(found->programId, u"");
}

TEST_F(Registration, ARelativeServerBeginsAtTheFolderOfItsFile) {
    const auto beside = foundIn("Server=beside.so\n");
    EXPECT_EQ(beside->server, fs::canonical(userClasses()) / "beside.so");
    put(fileIn(secondSystemClasses(), secondClass), "Server=../../../lib/kvex/a.so\n");
    EXPECT_EQ(findClassRegistration(secondClass)->server, fs::canonical(root()) / "lib/kvex/a.so");
}

TEST_F(Registration, ARelativeServerIsFoundThroughALinkToItsFolder) {
    put(root() / "moved/share/kvex/classes" / fileIn("", secondClass),
        "Server=../../../lib/a.so\n");
    fs::create_directory(root() / "first");
    fs::create_symlink(root() / "moved/share/kvex", root() / "first/kvex");
    EXPECT_EQ(findClassRegistration(secondClass)->server, fs::canonical(root()) / "moved/lib/a.so");
}

TEST_F(Registration, AMalformedFileIsIgnored) {
    for (const char *text : {"", "ProgramId=A.B\n", "Server=\n", "Server\n",
                             "Server=/a.so\nno key\n", "server=/a.so\n", "binary \x01\n"}) {
        EXPECT_FALSE(foundIn(text)) << text;
    }
    put(fileIn(firstSystemClasses()), "Server=/first.so\nProgramId=A.B\n");
    EXPECT_EQ(findClassRegistration(firstClass)->server, "/first.so");
    EXPECT_EQ(findClassRegistration(u"A.B")->server, "/first.so");
}

TEST_F(Registration, FilesOfOtherNamesAreNoRegistrations) {
    put(userClasses() / "{A0000001}.class", "Server=/a.so\nProgramId=A.B\n");
    put(userClasses() / (kvex::guidText(firstClass) + ".class.bak"),
        "Server=/a.so\nProgramId=A.B\n");
    fs::create_directories(fileIn(userClasses(), secondClass));
    EXPECT_FALSE(findClassRegistration(u"A.B"));
    EXPECT_FALSE(findClassRegistration(firstClass));
    EXPECT_FALSE(findClassRegistration(secondClass));
}

TEST_F(Registration, NamesAreFoundWithoutRegardToTheCaseOfAsciiLetters) {
    put(fileIn(userClasses()), "Server=/a.so\nProgramId=Program.Näme\n");
    EXPECT_TRUE(findClassRegistration(u"PROGRAM.Näme"));
    EXPECT_FALSE(findClassRegistration(u"PROGRAM.NÄme"));
}

TEST_F(Registration, OfTwoClassesOfOneNameTheFirstByFileNameIsFound) {
    put(fileIn(userClasses(), secondClass), "Server=/b.so\nProgramId=A.B\n");
    put(fileIn(userClasses(), firstClass), "Server=/a.so\nProgramId=A.B\n");
    EXPECT_EQ(findClassRegistration(u"A.B")->classId, firstClass);
}

TEST(ClassDirectories, HaveTheirDefaultsWhereTheVariablesAreEmptyOrRelative) {
    const Variable home("HOME", "/home/someone");
    for (const std::optional<std::string> &value :
         {std::optional<std::string>(), std::optional<std::string>("")}) {
        const Variable user("XDG_DATA_HOME", value);
        const Variable system("XDG_DATA_DIRS", value);
        EXPECT_THAT(classDirectories(),
                    ElementsAre("/home/someone/.local/share/kvex/classes",
                                "/usr/local/share/kvex/classes", "/usr/share/kvex/classes"));
    }
    const Variable user("XDG_DATA_HOME", "relative");
    const Variable system("XDG_DATA_DIRS", "relative::/data:");
    EXPECT_THAT(classDirectories(),
                ElementsAre("/home/someone/.local/share/kvex/classes", "/data/kvex/classes"));
}

TEST(ClassDirectories, OfAPrivilegedProgramAreTheSystems) {
    const Variable home("HOME", "/home/someone");
    const Variable user("XDG_DATA_HOME", "/tmp/mine");
    const Variable system("XDG_DATA_DIRS", "/tmp/mine");
    const kvex::test::PrivilegedProgram privileged;
    EXPECT_THAT(classDirectories(),
                ElementsAre("/usr/local/share/kvex/classes", "/usr/share/kvex/classes"));
    EXPECT_EQ(kvex::userClassDirectory(), std::nullopt);
}

TEST(ClassDirectories, WithoutAHomeTheUserHasNone) {
    const Variable home("HOME", std::nullopt);
    const Variable user("XDG_DATA_HOME", std::nullopt);
    const Variable system("XDG_DATA_DIRS", "/data");
    EXPECT_FALSE(kvex::userClassDirectory());
    EXPECT_THAT(classDirectories(), ElementsAre("/data/kvex/classes"));
    EXPECT_THROW(kvex::writeClassRegistration({firstClass, "/opt/lib.so", u"", u""}),
                 std::system_error);
    kvex::removeClassRegistration(firstClass);
}

} // namespace
