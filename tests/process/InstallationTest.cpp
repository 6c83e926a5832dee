// kvexrules in another folder, with and without its libraries.
#include "tests/process/KvexrulesTest.h"

#include <initializer_list>
#include <unistd.h>

namespace kvex::process {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class Installation : public KvexrulesTest {
protected:
    void SetUp() override { done({"init", "--sample"}); }

    /// Copies the program and these libraries to a folder, and runs it there from then on.
    void install(std::initializer_list<const char *> libraries) {
        std::filesystem::create_directory(place);
        for (std::filesystem::path file : libraries) {
            std::filesystem::copy_file(builtProgram().parent_path() / file, place / file);
        }
        std::filesystem::copy_file(builtProgram(), place / "kvexrules");
        program = place / "kvexrules";
    }

    std::filesystem::path place = folder / "place";
};

TEST_F(Installation, LogsInTheComponentsFolderExceptForRoot) {
    install({"libKVEXClassServer.so.1", "libKVEXMessageRules.so"});
    sqlite3(database, "UPDATE SMS_RULES SET Name = NULL WHERE ID = 1");
    const Outcome outcome = kvexrules({"show", "1"});
    EXPECT_EQ(outcome.status, 1);
    const std::filesystem::path log =
        (geteuid() == 0 ? folder / "home/.local/state/kvex" : place) / "KVEX.log";
    EXPECT_THAT(outcome.errors,
                HasSubstr("Invalid use of Null. Parts of the rule with the ID 1 could not be read. "
                          "The log is " +
                          log.string() + "."));
    EXPECT_THAT(readFile(log), HasSubstr("Sub: LoadRuleFromDB, Module: General"));
    EXPECT_NE(geteuid() == 0, std::filesystem::exists(place / "KVEX.log"));
}

TEST_F(Installation, LogsInTheUsersFolderWhereTheComponentsCannotBeWritten) {
    install({"libKVEXClassServer.so.1", "libKVEXMessageRules.so"});
    std::filesystem::create_directory(place / "KVEX.log");
    sqlite3(database, "UPDATE SMS_RULES SET Name = NULL WHERE ID = 1");
    EXPECT_EQ(kvexrules({"show", "1"}).status, 1);
    EXPECT_THAT(readFile(folder / "home/.local/state/kvex/KVEX.log"),
                HasSubstr("Sub: LoadRuleFromDB, Module: General"));
}

TEST_F(Installation, FindsItsLibrariesThroughALink) {
    install({"libKVEXClassServer.so.1", "libKVEXMessageRules.so"});
    program = folder / "link";
    std::filesystem::create_symlink(place / "kvexrules", program);
    EXPECT_THAT(done({"show", "7"}), HasSubstr("For ALL Messages"));
}

TEST_F(Installation, WithoutAComponentListsButDoesNotShow) {
    install({"libKVEXClassServer.so.1"});
    EXPECT_THAT(done({"list"}), HasSubstr("Everything to the system"));
    EXPECT_THAT(failed(2, {"show", "7"}),
                AllOf(HasSubstr("There is no rule component"),
                      HasSubstr((place / "libKVEXMessageRules.so").string()),
                      HasSubstr("registered")));
    EXPECT_THAT(failed(2, {"register"}), HasSubstr((place / "libKVEXMessageRules.so").string()));
}

TEST_F(Installation, WithoutAComponentUsesTheRegisteredOne) {
    install({"libKVEXClassServer.so.1"});
    program = builtProgram();
    const std::string registered = done({"register"});
    EXPECT_EQ(done({"register"}), registered);
    program = place / "kvexrules";
    EXPECT_THAT(done({"show", "7"}), HasSubstr("For ALL Messages"));
    program = builtProgram();
    done({"unregister"});
    done({"unregister"});
    program = place / "kvexrules";
    EXPECT_THAT(failed(2, {"show", "7"}), HasSubstr("There is no rule component"));
}

TEST_F(Installation, ReportsThatTheRegistrationCannotBeWritten) {
    writeFile(folder / "file", "");
    environment["XDG_DATA_HOME"] = (folder / "file").string();
    EXPECT_THAT(failed(2, {"register"}),
                AllOf(HasSubstr("cannot be changed"), HasSubstr("$XDG_DATA_HOME")));
}

TEST_F(Installation, CannotBeRegisteredWithoutAHome) {
    environment.erase("HOME");
    for (const char *command : {"register", "unregister"}) {
        EXPECT_EQ(failed(2, {command}), "kvexrules: There is no folder for the registration: "
                                        "neither $XDG_DATA_HOME nor $HOME names "
                                        "one. Set one of them to an absolute path.\n");
    }
}

TEST_F(Installation, WithABrokenComponentSaysSo) {
    install({"libKVEXClassServer.so.1"});
    writeFile(place / "libKVEXMessageRules.so", "no library");
    EXPECT_THAT(failed(2, {"show", "7"}),
                AllOf(HasSubstr("libKVEXMessageRules.so"), HasSubstr("Install kvexrules again")));
}

TEST_F(Installation, WithoutTheSuitesWindowsDoesNotEdit) {
    install({"libKVEXClassServer.so.1", "libKVEXMessageRules.so", "libKVEXQt.so"});
    environment["QT_QPA_PLATFORM"] = "offscreen";
    EXPECT_THAT(failed(2, {"edit"}),
                AllOf(HasSubstr("libKVEXHostSuite.so"), HasSubstr("Install kvexrules again")));
}

TEST_F(Installation, NamesNoLibraryOfAToolkitExceptInTheToolkitsOwn) {
    const auto needed = [](const char *file) {
        return run("/usr/bin/ldd", {(builtProgram().parent_path() / file).string()}, {}, "/")
            .output;
    };
    for (const char *file : {"kvexrules", "libKVEXMessageRules.so", "libKVEXHostSuite.so"}) {
        EXPECT_THAT(needed(file), AllOf(HasSubstr("libKVEXClassServer.so"), HasSubstr("libodbc"),
                                        Not(HasSubstr("libQt")), Not(HasSubstr("libtinfo"))))
            << file;
    }
    EXPECT_THAT(needed("libKVEXQt.so"), HasSubstr("libQt6Widgets.so.6"));
    EXPECT_THAT(
        needed("libKVEXTerminal.so"),
        AllOf(HasSubstr("libtinfo.so.6"), HasSubstr("libutf8proc"), Not(HasSubstr("libQt"))));
}

TEST_F(Installation, ItsToolkitsExportOneFunction) {
    for (const char *name : {"libKVEXQt.so", "libKVEXTerminal.so"}) {
        const std::string library = (builtProgram().parent_path() / name).string();
        const Outcome symbols =
            run("/usr/bin/nm", {"--dynamic", "--defined-only", "--format=just-symbols", library},
                {}, "/");
        EXPECT_EQ(symbols.output, "kvexToolkit\n") << symbols.errors;
    }
}

class WithoutAToolkit : public Installation {
protected:
    void SetUp() override {
        Installation::SetUp();
        install({"libKVEXClassServer.so.1", "libKVEXMessageRules.so", "libKVEXHostSuite.so"});
        environment["QT_QPA_PLATFORM"] = "offscreen";
    }

    /// Why the editor cannot show its window.
    std::string refusal() const {
        const std::string message = failed(2, {"edit", "--log", log.string()});
        const std::string before = "kvexrules: No window can be shown. ";
        const std::string after =
            " Without windows, kvexrules list and kvexrules show print the rules.\n";
        EXPECT_THAT(message, AllOf(StartsWith(before), EndsWith(after)));
        EXPECT_FALSE(std::filesystem::exists(log));
        return message.substr(before.size(), message.size() - before.size() - after.size());
    }

    std::filesystem::path log = folder / "chosen.log";
    std::filesystem::path library = place / "libKVEXQt.so";
};

TEST_F(WithoutAToolkit, EverythingWorksThatShowsNoWindow) {
    EXPECT_THAT(done({"list"}), HasSubstr("Everything to the system"));
    EXPECT_THAT(done({"show", "7"}), HasSubstr("For ALL Messages"));
    EXPECT_NE(done({"contacts", "list"}), "");
    EXPECT_EQ(done({"init", "--database", (folder / "new.db").string()}),
              "ready: " + (folder / "new.db").string() + "\n");
}

TEST_F(WithoutAToolkit, TheEditorNamesTheMissingLibraries) {
    EXPECT_EQ(refusal(), "The toolkit \"qt\" cannot be used: " + library.string() +
                             " does not exist. Install this library. The toolkit \"terminal\" "
                             "cannot be used: " +
                             (place / "libKVEXTerminal.so").string() +
                             " does not exist. Install this library.");
}

TEST_F(WithoutAToolkit, TheEditorNamesTheLibraryOfQtThatCannotBeLoaded) {
    std::filesystem::copy_file(builtProgram().parent_path() / "libKVEXQt.so", library);
    writeFile(folder / "libQt6Widgets.so.6", "no library");
    environment["LD_LIBRARY_PATH"] = folder.path().string();
    EXPECT_THAT(refusal(),
                StartsWith("The toolkit \"qt\" cannot be used: " + library.string() +
                           " cannot be loaded (" + (folder / "libQt6Widgets.so.6").string() +
                           ": file too short). Install Qt 6 Widgets (on Debian libqt6widgets6). "
                           "If that does not help, install the library again."));
}

TEST_F(WithoutAToolkit, TheEditorRefusesOneOfAnotherVersion) {
    std::filesystem::copy_file(OLD_TOOLKIT, library);
    EXPECT_THAT(refusal(), HasSubstr(library.string() + " is of version 0.9, and version "));
}

TEST_F(WithoutAToolkit, TheEditorRefusesAChoiceThatItDoesNotKnow) {
    environment["KVEX_TOOLKIT"] = "curtains";
    EXPECT_EQ(refusal(),
              "$KVEX_TOOLKIT is \"curtains\", and no toolkit has this name. Set it to qt "
              "or terminal, or unset it.");
}

} // namespace
} // namespace kvex::process
