// A program that embeds the rule editor:
//
//   rules-host DATABASE show RULE...               prints rules
//   rules-host DATABASE edit USER RULE NUMBER...   opens the editor, on a new rule if RULE is ""
//
// In the editor, the address book gives the NUMBERs.
#include "AddressBook.h"
#include "Utility.h"

#include <kvex/ClassServer.h>
#include <kvex/RuleUI.h>
#include <kvex/ServedObject.h>

#include <cstdio>
#include <exception>
#include <stdexcept>

namespace {

class Printer final : public kvex::ComObject<IDescriptionSink> {
public:
    HRESULT Write(BSTR text, LONG /*colour*/) noexcept override {
        std::cout << kvex::utf8Of(text);
        return S_OK;
    }

private:
    ~Printer() override = default;
};

void require(HRESULT result, const char *what) {
    if (FAILED(result)) {
        char code[16];
        std::snprintf(code, sizeof code, "0x%08X", static_cast<unsigned>(result));
        throw std::runtime_error(std::string(what) + " failed with " + code + " " +
                                 (result == CO_E_DLLNOTFOUND ? CoLoadErrorText() : ""));
    }
}

template <class Interface> kvex::ComPointer<Interface> createRuleUI() {
    kvex::ComPointer<Interface> object;
    require(kvex::createInstance(CLSID_RuleUI, object), "Creating RuleUI");
    return object;
}

/// Each object reads the rules anew. They are as the database holds them now.
void printRule(const std::string &rule) {
    const auto reader = createRuleUI<IRuleReader>();
    require(reader->OpenRules(), "Opening the rules");
    const HRESULT found = reader->DescribeRule(kvex::Bstr::fromUtf8(rule).get(),
                                               kvex::makeComObject<Printer>().get());
    require(found, "Reading the rule");
    std::cout << (found == S_FALSE ? "There is no rule " + rule : "") << '\n';
}

int edit(const std::string &user, const std::string &rule) {
    LONG result = kvex::show_rules::failed;
    require(createRuleUI<IRuleUI>()->ShowRules(kvex::Bstr::fromUtf8(user).get(),
                                               kvex::Bstr::fromUtf8(rule).get(), &result),
            "Showing the rules");
    switch (result) {
    case kvex::show_rules::editNoted:
        std::cout << "The user may have edited something. The rules are read again.\n";
        break;
    case kvex::show_rules::noEditNoted:
        std::cout << "No edit was noted, but rules may be gone. The rules are read again.\n";
        break;
    default:
        std::cout << "The editor could not be opened. The log says why.\n";
        return 1;
    }
    if (!rule.empty()) {
        printRule(rule);
    }
    return 0;
}

int run(const std::vector<std::string> &words) {
    // The message boxes are those of the suite. Everything else is this program's own.
    kvex::ComPointer<IUtility> boxes;
    require(CoLoadServer("libKVEXHostSuite.so", CLSID_Utility), "Loading the suite");
    require(kvex::createInstance(CLSID_Utility, boxes), "Creating the suite's utility object");
    // The component is that of this kit, whatever is registered.
    require(CoLoadServer("libKVEXMessageRules.so", CLSID_RuleUI), "Loading the component");

    const kvex::ServedObject utility(CLSID_Utility,
                                     *kvex::makeComObject<Utility>(words.at(0), boxes));
    if (words.at(1) == "edit") {
        const std::vector<std::string> numbers(words.begin() + 4, words.end());
        const kvex::ServedObject addressBook(CLSID_ManageContacts,
                                             *kvex::makeComObject<AddressBook>(numbers));
        return edit(words.at(2), words.at(3));
    }
    for (std::size_t at = 2; at < words.size(); ++at) {
        printRule(words[at]);
    }
    return 0;
}

} // namespace

int main(int count, char **arguments) {
    const std::vector<std::string> words(arguments + 1, arguments + count);
    if (words.size() < 3 || (words[1] == "edit" ? words.size() < 4 : words[1] != "show")) {
        std::cerr << "usage: rules-host DATABASE show RULE...\n"
                     "       rules-host DATABASE edit USER RULE NUMBER...\n";
        return 2;
    }
    try {
        return run(words);
    } catch (const std::exception &error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
