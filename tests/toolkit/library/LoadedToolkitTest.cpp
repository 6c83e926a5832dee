// How a toolkit is chosen and loaded, with libraries made for the tests.
#include "adapters/toolkits/LoadedToolkit.h"

#include "platform/Text.h"
#include "tests/classserver/LoadedFile.h"
#include "tests/host/EnvironmentVariables.h"
#include "tests/host/TemporaryFolder.h"
#include "tests/support/PrivilegedProgram.h"
#include "tests/support/RaisedError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <thread>

namespace kvex::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using toolkits::FoundToolkit;
using toolkits::KnownToolkit;
using toolkits::LoadedToolkit;

constexpr std::array twoToolkits{
    KnownToolkit{"first", "libFirst.so", u"One 1"},
    KnownToolkit{"second", "libSecond.so", u"Two 2"},
};

constexpr std::int32_t refused = error_number::cannotCreateObject;

class LoadedToolkitTest : public testing::Test {
protected:
    LoadedToolkitTest() { variables.set("KVEX_TOOLKIT", std::nullopt); }

    void install(const std::filesystem::path &library, const char *name) const {
        std::filesystem::copy_file(library, folder / name);
    }

    /// The text that the toolkit's clipboard holds names it. A refusal gives its description.
    std::string taken(std::span<const KnownToolkit> known = twoToolkits) const {
        std::u16string name;
        const auto error = raisedBy([&] {
            LoadedToolkit toolkit(folder.path(), known);
            return name = toolkit.clipboard().text();
        });
        if (!error) {
            return toUtf8(name);
        }
        EXPECT_EQ(error->number(), refused);
        EXPECT_EQ(error->helpContext(), HelpContext::none);
        return toUtf8(error->description());
    }

    /// The refusal when only the first toolkit is known.
    std::string refusalOfFirst() const { return taken(std::span(twoToolkits).first(1)); }

    std::string first() const { return (folder / "libFirst.so").string(); }

    host::TemporaryFolder folder;
    host::EnvironmentVariables variables;
};

TEST_F(LoadedToolkitTest, IsLoadedWhenItIsFirstNeeded) {
    LoadedToolkit toolkit(folder.path(), twoToolkits);
    install(TEST_TOOLKIT, "libFirst.so");
    EXPECT_FALSE(isLoaded(first().c_str()));
    EXPECT_EQ(toolkit.showMessageBox(u"", u"", message_box::exclamation), 1);
    EXPECT_TRUE(isLoaded(first().c_str()));
}

TEST_F(LoadedToolkitTest, IsSharedByAllThatLoadTheSameFile) {
    install(TEST_TOOLKIT, "libFirst.so");
    LoadedToolkit one(folder.path(), twoToolkits);
    LoadedToolkit other(folder.path(), twoToolkits);
    EXPECT_EQ(one.showMessageBox(u"", u"", message_box::exclamation), 1);
    EXPECT_EQ(other.showMessageBox(u"", u"", message_box::exclamation), 2);
    EXPECT_EQ(&one.clipboard(), &other.clipboard());
}

TEST_F(LoadedToolkitTest, AnErrorOfTheLibraryArrivesWhole) {
    install(TEST_TOOLKIT, "libFirst.so");
    LoadedToolkit toolkit(folder.path(), twoToolkits);
    const auto error = raisedBy([&] { return toolkit.createWindow({u"frmTest", u"", {}, {}}); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), error_number::keyNotUnique);
    EXPECT_EQ(error->description(), u"No frmTest");
    EXPECT_EQ(error->source(), u"Fake");
    EXPECT_EQ(error->helpContext(), HelpContext::locked);
}

TEST_F(LoadedToolkitTest, TheFirstOneThatCanBeLoadedIsTaken) {
    install(TEST_SECOND_TOOLKIT, "libSecond.so");
    EXPECT_EQ(taken(), "second");
    host::writeFile(folder / "libFirst.so", "no library");
    EXPECT_EQ(taken(), "second");
    std::filesystem::remove(folder / "libFirst.so");
    install(TEST_TOOLKIT, "libFirst.so");
    EXPECT_EQ(taken(), "first");
}

TEST_F(LoadedToolkitTest, OneOfAnotherVersionIsPassedOver) {
    install(TEST_OLD_TOOLKIT, "libFirst.so");
    install(TEST_SECOND_TOOLKIT, "libSecond.so");
    EXPECT_EQ(taken(), "second");
}

TEST_F(LoadedToolkitTest, OneThatCannotShowWindowsHereIsPassedOver) {
    install(TEST_TOOLKIT, "libFirst.so");
    install(TEST_SECOND_TOOLKIT, "libSecond.so");
    variables.set("OBSTACLE_TO_first", "It is dark. Light a lamp.");
    EXPECT_EQ(taken(), "second");
    variables.set("OBSTACLE_TO_first", std::nullopt);
    EXPECT_EQ(taken(), "first");
}

TEST_F(LoadedToolkitTest, WhereNoneCanShowWindowsTheObstaclesOfAllAreTold) {
    install(TEST_TOOLKIT, "libFirst.so");
    install(TEST_SECOND_TOOLKIT, "libSecond.so");
    variables.set("OBSTACLE_TO_first", "It is dark. Light a lamp.");
    variables.set("OBSTACLE_TO_second", "It is loud.");
    EXPECT_EQ(taken(), "No window can be shown. The toolkit \"first\" cannot be used. It is dark. "
                       "Light a lamp. The toolkit \"second\" cannot be used. It is loud.");
}

TEST_F(LoadedToolkitTest, OneThatShowsWindowsStaysEvenIfItCouldNoLonger) {
    install(TEST_TOOLKIT, "libFirst.so");
    install(TEST_SECOND_TOOLKIT, "libSecond.so");
    LoadedToolkit toolkit(folder.path(), twoToolkits);
    EXPECT_EQ(toolkit.clipboard().text(), u"first");
    variables.set("OBSTACLE_TO_first", "It is dark.");
    EXPECT_EQ(toolkit.clipboard().text(), u"first");
}

TEST_F(LoadedToolkitTest, TheUsersChoiceIsNotReplacedWhereItCannotShowWindows) {
    install(TEST_TOOLKIT, "libFirst.so");
    install(TEST_SECOND_TOOLKIT, "libSecond.so");
    variables.set("KVEX_TOOLKIT", "second");
    variables.set("OBSTACLE_TO_second", "It is loud.");
    EXPECT_EQ(taken(),
              "No window can be shown. The toolkit \"second\" cannot be used. It is loud.");
}

TEST_F(LoadedToolkitTest, TheNameOfTheOneThatWouldBeTakenIsKnownBefore) {
    install(TEST_TOOLKIT, "libFirst.so");
    install(TEST_SECOND_TOOLKIT, "libSecond.so");
    EXPECT_EQ(toolkits::chosenToolkit(folder.path(), twoToolkits), "first");
    variables.set("OBSTACLE_TO_first", "It is dark.");
    EXPECT_EQ(toolkits::chosenToolkit(folder.path(), twoToolkits), "second");
    variables.set("KVEX_TOOLKIT", "first");
    EXPECT_EQ(errorNumber([&] { return toolkits::chosenToolkit(folder.path(), twoToolkits); }),
              refused);
}

TEST_F(LoadedToolkitTest, TheUsersChoiceIsTakenAndNoOther) {
    install(TEST_TOOLKIT, "libFirst.so");
    variables.set("KVEX_TOOLKIT", "second");
    EXPECT_THAT(taken(), AllOf(HasSubstr("libSecond.so does not exist"),
                               testing::Not(HasSubstr("libFirst.so"))));
    install(TEST_SECOND_TOOLKIT, "libSecond.so");
    EXPECT_EQ(taken(), "second");
    variables.set("KVEX_TOOLKIT", "");
    EXPECT_EQ(taken(), "first");
}

TEST_F(LoadedToolkitTest, AChoiceThatNoToolkitHasIsRefusedWithTheNames) {
    install(TEST_TOOLKIT, "libFirst.so");
    variables.set("KVEX_TOOLKIT", "libFirst.so");
    EXPECT_EQ(taken(), "No window can be shown. $KVEX_TOOLKIT is \"libFirst.so\", and no toolkit "
                       "has this name. Set it to first or second, or unset it.");
}

TEST_F(LoadedToolkitTest, AChoiceDoesNotCountInAPrivilegedProgram) {
    install(TEST_TOOLKIT, "libFirst.so");
    install(TEST_SECOND_TOOLKIT, "libSecond.so");
    variables.set("KVEX_TOOLKIT", "second");
    const PrivilegedProgram privileged;
    EXPECT_EQ(taken(), "first");
}

TEST_F(LoadedToolkitTest, AMissingLibraryIsNamed) {
    EXPECT_EQ(refusalOfFirst(), "No window can be shown. The toolkit \"first\" cannot be used: " +
                                    first() + " does not exist. Install this library.");
}

TEST_F(LoadedToolkitTest, TheLoadersReasonIsGivenWithWhatToInstall) {
    host::writeFile(folder / "libFirst.so", "no library");
    EXPECT_EQ(refusalOfFirst(), "No window can be shown. The toolkit \"first\" cannot be used: " +
                                    first() + " cannot be loaded (" + first() +
                                    ": file too short). Install One 1. If that does not help, "
                                    "install the library again.");
}

TEST_F(LoadedToolkitTest, ALibraryWithoutTheEntryPointIsRefusedAndUnloaded) {
    install(TEST_NO_TOOLKIT, "libFirst.so");
    EXPECT_EQ(refusalOfFirst(),
              "No window can be shown. The toolkit \"first\" cannot be used: " + first() +
                  " is not the library of a toolkit. Install it again.");
    EXPECT_FALSE(isLoaded(first().c_str()));
}

TEST_F(LoadedToolkitTest, ALibraryOfAnotherVersionIsRefused) {
    install(TEST_OLD_TOOLKIT, "libFirst.so");
    EXPECT_EQ(refusalOfFirst(),
              "No window can be shown. The toolkit \"first\" cannot be used: " + first() +
                  " is of version 0.9, and version " KVEX_VERSION
                  " is needed. Install all libraries of the program "
                  "again, in one version.");
}

TEST_F(LoadedToolkitTest, TheProblemsOfAllAreToldWhenNoneCanBeUsed) {
    install(TEST_OLD_TOOLKIT, "libSecond.so");
    EXPECT_THAT(
        taken(),
        AllOf(testing::StartsWith("No window can be shown. The toolkit \"first\" cannot be used: "),
              HasSubstr(". The toolkit \"second\" cannot be used: ")));
}

TEST_F(LoadedToolkitTest, AfterARefusalItIsTriedAgain) {
    LoadedToolkit toolkit(folder.path(), twoToolkits);
    EXPECT_EQ(errorNumber([&] { return &toolkit.clipboard(); }), refused);
    install(TEST_TOOLKIT, "libFirst.so");
    EXPECT_EQ(toolkit.clipboard().text(), u"first");
}

TEST_F(LoadedToolkitTest, TheWorkingFolderIsNotSearched) {
    const std::filesystem::path before = std::filesystem::current_path();
    const host::TemporaryFolder elsewhere;
    std::filesystem::copy_file(TEST_TOOLKIT, elsewhere / "libFirst.so");
    std::filesystem::current_path(elsewhere.path());
    EXPECT_THAT(taken(), HasSubstr(first() + " does not exist"));
    std::filesystem::current_path(before);
}

TEST_F(LoadedToolkitTest, ThreadsThatNeedItAtOnceShareOne) {
    install(TEST_TOOLKIT, "libFirst.so");
    LoadedToolkit toolkit(folder.path(), twoToolkits);
    std::atomic<Clipboard *> seen[2] = {nullptr, nullptr};
    std::thread other([&] { seen[0] = &toolkit.clipboard(); });
    seen[1] = &toolkit.clipboard();
    other.join();
    EXPECT_NE(seen[0], nullptr);
    EXPECT_EQ(seen[0], seen[1]);
}

TEST_F(LoadedToolkitTest, TheInstalledOnesAreListedWithWhatTheyRunOn) {
    EXPECT_TRUE(foundToolkits(folder.path(), twoToolkits).empty());
    install(TEST_OLD_TOOLKIT, "libFirst.so");
    install(TEST_SECOND_TOOLKIT, "libSecond.so");
    const std::vector<FoundToolkit> found = foundToolkits(folder.path(), twoToolkits);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].name, "first");
    EXPECT_EQ(found[0].runtime, "");
    EXPECT_THAT(toUtf8(found[0].problem), HasSubstr("is of version 0.9"));
    EXPECT_EQ(found[1].name, "second");
    EXPECT_EQ(found[1].runtime, "Fake 1.2");
    EXPECT_EQ(found[1].problem, u"");
}

TEST_F(LoadedToolkitTest, TheRealOnesAreBesideTheComponentAndListedWithoutADisplay) {
    for (const char *display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        variables.set(display, std::nullopt);
    }
    const std::vector<FoundToolkit> found = toolkits::foundToolkits(REAL_TOOLKITS);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].name, "qt");
    EXPECT_THAT(found[0].runtime, testing::MatchesRegex("Qt 6\\.[0-9]+\\.[0-9]+"));
    EXPECT_EQ(found[0].problem, u"");
    EXPECT_EQ(found[1].name, "terminal");
    EXPECT_THAT(found[1].runtime, testing::MatchesRegex("terminfo 6\\.[0-9.]+"));
    EXPECT_EQ(found[1].problem, u"");
}

} // namespace
} // namespace kvex::test
