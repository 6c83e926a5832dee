// The library KVEXHostSuite as a host configures it.
#include "kvex/SuiteConfiguration.h"

#include "host/kvexrules/Components.h"
#include "kvex/HostSuite.h"
#include "platform/Text.h"
#include "tests/host/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace kvex::host {
namespace {

class SuiteConfiguration : public testing::Test {
protected:
    void SetUp() override {
        for (const CLSID &served : {CLSID_Utility, CLSID_SuiteConfiguration}) {
            loadServer(hostSuiteFile(), served);
        }
        ASSERT_EQ(createInstance(CLSID_SuiteConfiguration, suite), S_OK);
        ASSERT_EQ(createInstance(CLSID_Utility, utility), S_OK);
        ASSERT_EQ(suite->Configure(Bstr(u"DSN=sms").get(), Bstr(u"second").get(),
                                   Bstr(fromUtf8((folder / "a.log").string())).get()),
                  S_OK);
    }

    TemporaryFolder folder;
    ComPointer<ISuiteConfiguration> suite;
    ComPointer<IUtility> utility;
};

TEST_F(SuiteConfiguration, GivesItsTextsToUtilityObjects) {
    Bstr text;
    EXPECT_EQ(utility->GetConnectionString(text.put()), S_OK);
    EXPECT_EQ(text.text(), u"DSN=sms");
    EXPECT_EQ(utility->GetSecondText(text.put()), S_OK);
    EXPECT_EQ(text.text(), u"second");
}

TEST_F(SuiteConfiguration, KnowsTheLastErrorUntilItIsConfiguredAgain) {
    Bstr file;
    Bstr description;
    LONG number = 7;
    EXPECT_EQ(suite->GetLastError(file.put(), description.put(), &number), S_FALSE);
    EXPECT_EQ(number, 0);
    EXPECT_EQ(file.get(), nullptr);
    EXPECT_EQ(description.get(), nullptr);

    const Bstr told(u"Type mismatch");
    ErrorRecord error{13, told.get(), nullptr, 0};
    Bstr logFile(u"/nowhere\\KVEX.log");
    EXPECT_EQ(utility->WriteErrorLog(logFile.inOut(), &error, nullptr, 0, nullptr, nullptr), S_OK);
    EXPECT_EQ(suite->GetLastError(file.put(), description.put(), &number), S_OK);
    EXPECT_EQ(number, 13);
    EXPECT_EQ(description.text(), u"Type mismatch");
    EXPECT_EQ(toUtf8(file.view()), (folder / "a.log").string());

    EXPECT_EQ(suite->Configure(nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(suite->GetLastError(file.put(), description.put(), &number), S_FALSE);
}

TEST_F(SuiteConfiguration, RefusesNullPointers) {
    Bstr file;
    Bstr description;
    LONG number = 0;
    EXPECT_EQ(suite->GetLastError(nullptr, description.put(), &number), E_POINTER);
    EXPECT_EQ(suite->GetLastError(file.put(), nullptr, &number), E_POINTER);
    EXPECT_EQ(suite->GetLastError(file.put(), description.put(), nullptr), E_POINTER);
}

} // namespace
} // namespace kvex::host
