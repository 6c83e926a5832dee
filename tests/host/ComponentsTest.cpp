#include "host/kvexrules/Components.h"

#include "host/kvexrules/Failure.h"
#include "kvex/HostSuite.h"
#include "tests/host/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kvex::host {
namespace {

template <class Call> std::string failureOf(const Call &call) {
    try {
        call();
        ADD_FAILURE() << "no Failure was raised";
        return {};
    } catch (const Failure &failure) {
        EXPECT_EQ(failure.status(), exit_status::unusable);
        return failure.what();
    }
}

std::string told(HRESULT result) {
    return failureOf([&] { require(result, "It fails", "Mend it."); });
}

TEST(Components, StandBesideTheProgram) {
    const std::filesystem::path folder =
        std::filesystem::read_symlink("/proc/self/exe").parent_path();
    EXPECT_EQ(componentFile(), folder / "libKVEXMessageRules.so");
    EXPECT_EQ(hostSuiteFile(), folder / "libKVEXHostSuite.so");
}

TEST(Components, FailWithAReasonAndAdvice) {
    EXPECT_EQ(told(CO_E_ERRORINDLL), "It fails (it is not a component). Mend it.");
    EXPECT_EQ(told(CO_E_CLASSSTRING), "It fails (it is not registered). Mend it.");
    EXPECT_EQ(told(REGDB_E_CLASSNOTREG), "It fails (it is not registered). Mend it.");
    EXPECT_EQ(told(E_ACCESSDENIED), "It fails (permission denied). Mend it.");
    EXPECT_EQ(told(E_FAIL), "It fails (0x80004005). Mend it.");
}

TEST(Components, NeedNoReasonForSuccess) {
    EXPECT_NO_THROW(require(S_OK, "It fails", "Mend it."));
    EXPECT_NO_THROW(require(S_FALSE, "It fails", "Mend it."));
}

TEST(Components, ThatCannotBeLoadedAreNamed) {
    const TemporaryFolder folder;
    const std::string file = folder / "libnone.so";
    EXPECT_THAT(failureOf([&] { loadServer(file, CLSID_RuleUI); }),
                testing::AllOf(testing::StartsWith(file + " cannot be used (" + file + ": "),
                               testing::EndsWith("). Install kvexrules again, with all its "
                                                 "libraries.")));
}

TEST(Components, BesideTheProgramMakeRuleUI) {
    loadServer(hostSuiteFile(), CLSID_Utility);
    EXPECT_TRUE(createRuleUI());
}

} // namespace
} // namespace kvex::host
