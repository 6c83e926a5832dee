// The shortest host: first DATABASE opens the editor, with the classes of the suite.
#include <kvex/ComPointer.h>
#include <kvex/HostSuite.h>
#include <kvex/RuleUI.h>
#include <kvex/SuiteConfiguration.h>

#include <cstdio>

int main(int /*count*/, char **arguments) {
    for (const CLSID &served : {CLSID_Utility, CLSID_ManageContacts, CLSID_SuiteConfiguration}) {
        CoLoadServer("libKVEXHostSuite.so", served);
    }
    CoLoadServer("libKVEXMessageRules.so", CLSID_RuleUI);

    const auto database = kvex::Bstr::fromUtf8(arguments[1]);
    kvex::ComPointer<ISuiteConfiguration> suite;
    kvex::ComPointer<IRuleUI> rules;
    LONG result = kvex::show_rules::failed;
    if (FAILED(kvex::createInstance(CLSID_SuiteConfiguration, suite)) ||
        FAILED(suite->Configure(database.get(), nullptr, nullptr)) ||
        FAILED(kvex::createInstance(CLSID_RuleUI, rules)) ||
        FAILED(rules->ShowRules(kvex::Bstr(u"1").get(), nullptr, &result))) {
        std::fprintf(stderr, "The editor cannot be opened. %s\n", CoLoadErrorText());
        return 1;
    }
    std::printf("result: %d\n", result);
    return 0;
}
