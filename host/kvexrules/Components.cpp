#include "host/kvexrules/Components.h"

#include "host/kvexrules/Failure.h"
#include "host/kvexrules/TerminalUtility.h"
#include "kvex/ClassServer.h"
#include "kvex/HostSuite.h"
#include "kvex/ServedObject.h"

#include <cstdio>

namespace kvex::host {
namespace {

constexpr std::string_view installAgain = "Install kvexrules again, with all its libraries.";

/// The library in the program's own folder, or else the one that is installed with the program.
std::filesystem::path library(const char *name) {
    const std::filesystem::path folder =
        std::filesystem::read_symlink("/proc/self/exe").parent_path();
    const std::filesystem::path installed =
        (folder / KVEX_LIBRARIES_FROM_PROGRAM / name).lexically_normal();
    std::filesystem::path own = folder / name;
    return !std::filesystem::exists(own) && std::filesystem::exists(installed) ? installed : own;
}

std::string reasonOf(HRESULT result) {
    switch (result) {
    case CO_E_DLLNOTFOUND:
        return CoLoadErrorText();
    case CO_E_ERRORINDLL:
        return "it is not a component";
    case CO_E_CLASSSTRING:
    case REGDB_E_CLASSNOTREG:
        return "it is not registered";
    case E_ACCESSDENIED:
        return "permission denied";
    default:
        break;
    }
    char number[16];
    std::snprintf(number, sizeof number, "0x%08X", static_cast<unsigned>(result));
    return number;
}

} // namespace

std::filesystem::path componentFile() {
    return library("libKVEXMessageRules.so");
}

std::filesystem::path hostSuiteFile() {
    return library("libKVEXHostSuite.so");
}

void require(HRESULT result, std::string_view what, std::string_view advice) {
    if (FAILED(result)) {
        throw Failure(std::string(what) + " (" + reasonOf(result) + "). " + std::string(advice));
    }
}

void loadServer(const std::filesystem::path &file, const CLSID &classId) {
    require(CoLoadServer(file.c_str(), classId), file.string() + " cannot be used", installAgain);
}

ComPointer<IRuleUI> createRuleUI() {
    CLSID classId = CLSID_RuleUI;
    if (std::filesystem::exists(componentFile())) {
        loadServer(componentFile(), classId);
    } else {
        require(CLSIDFromProgID(RuleUIProgramId, &classId),
                "There is no rule component: " + componentFile().string() +
                    " does not exist, and none is registered",
                installAgain);
    }
    ComPointer<IRuleUI> ruleUI;
    require(createInstance(classId, ruleUI), "The rule component cannot start", installAgain);
    return ruleUI;
}

RuleStrings createRuleStrings() {
    const ServedObject utility(CLSID_Utility, *makeComObject<TerminalUtility>());
    return RuleStrings(*createRuleUI());
}

} // namespace kvex::host
