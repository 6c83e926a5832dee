#include "adapters/classserver/server/ComObject.h"
#include "adapters/classserver/server/Guard.h"
#include "host/kvexrules/Commands.h"
#include "host/kvexrules/Components.h"
#include "host/kvexrules/Console.h"
#include "host/kvexrules/Database.h"
#include "host/kvexrules/DescriptionFormat.h"
#include "host/kvexrules/Failure.h"
#include "host/kvexrules/RuleList.h"
#include "host/kvexrules/Sentences.h"
#include "host/kvexrules/Settings.h"
#include "host/kvexrules/TerminalUtility.h"
#include "host/suite/SuiteState.h"
#include "platform/HostSuite.h"
#include "platform/Text.h"

#include <algorithm>

namespace kvex::host {
namespace {

class Collector final : public ComObject<IDescriptionSink> {
public:
    HRESULT Write(BSTR text, LONG colour) noexcept final {
        return guarded([&] {
            description.push_back({std::u16string(viewOf(text)), colour});
            return S_OK;
        });
    }
    Description description;

private:
    ~Collector() final = default;
};

const DescriptionFormat &formatOf(const Request &request) {
    const std::string name = request.has(Option::format) ? request.value(Option::format) : "text";
    const auto formats = descriptionFormats();
    const auto found = std::ranges::find(formats, name, &DescriptionFormat::name);
    if (found == formats.end()) {
        throw Failure("There is no format \"" + name + "\". The formats are text, ansi and html.");
    }
    return name == "text" && printsToTerminal() ? textForTerminals() : *found;
}

std::vector<std::string> idsAskedFor(const Request &request) {
    if (request.has(Option::all) != request.words.empty()) {
        throw Failure("Name the rules to show by their ids, or all of them with --all, but not "
                      "both. The ids are the numbers that kvexrules list shows.");
    }
    std::vector<std::string> ids;
    std::ranges::transform(request.words, std::back_inserter(ids), ruleId);
    return ids;
}

/// What went wrong last and where that is logged.
std::string lastError() {
    const SuiteState &state = suiteState();
    return state.lastError
               ? reasonAndLog(toUtf8(state.lastError->error.description()), state.log.lastFile())
               : "No reason was given.";
}

/// True when the error kept the rule from being loaded whole, and not only from being described.
bool isAboutLoading(const LoggedError &error) {
    return error.text.find(u"Sub: LoadRuleFromDB,") != std::u16string::npos;
}

/// Says what the rule's row holds, which the description does not, and what OK would do to it.
void tellWhatIsStored(const std::string &id, const Settings &settings) {
    complain(
        suiteState().firstError && isAboutLoading(*suiteState().firstError)
            ? "OK in the editor would replace both texts by what was read before the error, "
              "and by what is entered there: the rest of the conditions and actions would be "
              "lost. Correct the row in the database, as its texts are now:"
            : "OK in the editor would write both texts again, and leave what cannot be "
              "described as it is. Choose that anew there, or correct the row in the database. "
              "Its texts are now:");
    try {
        const StoredTexts texts = storedTexts(id, settings);
        complainExactly("QueryParam: " + texts.queryParam);
        complainExactly("ActionParam: " + texts.actionParam);
    } catch (const Error &error) {
        failFor(settings, error);
    }
}

/// Offers the utility object of a terminal to the component while it is alive.
class UtilityRegistration {
public:
    UtilityRegistration() {
        const auto factory = makeComObject<ClassFactory>(
            []() -> ComPointer<IUnknown> { return makeComObject<TerminalUtility>(); });
        require(CoRegisterClassObject(CLSID_Utility, factory.get(), &registration_),
                "The class server does not work", "Install kvexrules again.");
    }
    ~UtilityRegistration() { CoRevokeClassObject(registration_); }
    UtilityRegistration(const UtilityRegistration &) = delete;
    UtilityRegistration &operator=(const UtilityRegistration &) = delete;

private:
    std::uint32_t registration_ = 0;
};

/// Reads the rules of one database through the component.
class Reader {
public:
    explicit Reader(const Settings &settings) : settings_(settings) {
        suiteState() = {fromUtf8(settings.database), {}, ErrorLog(settings.log)};
        reader_ = createRuleUI().as<IRuleReader>();
        if (!reader_ || FAILED(reader_->OpenRules())) {
            throw Failure("The rules could not be opened. " + lastError() + " " +
                          settings.databaseOrigin);
        }
    }

    /// False when there is no such rule, or not all of it could be read; the user was told.
    bool describe(const std::string &id, Description &description) const {
        const ComPointer<Collector> collector = makeComObject<Collector>();
        suiteState().firstError.reset();
        suiteState().lastError.reset();
        const HRESULT result = reader_->DescribeRule(Bstr(fromUtf8(id)).get(), collector.get());
        description = std::move(collector->description);
        if (result == S_FALSE) {
            complain("There is no rule " + id + ". The rules that there are: kvexrules list");
            return false;
        }
        if (FAILED(result) || suiteState().lastError) {
            complain("Not all of rule " + id + " could be read. " + lastError());
            tellWhatIsStored(id, settings_);
            return false;
        }
        return true;
    }

private:
    const Settings &settings_;
    UtilityRegistration utility_;
    ComPointer<IRuleReader> reader_;
};

} // namespace

int showCommand(const Request &request) {
    const DescriptionFormat &format = formatOf(request);
    std::vector<std::string> ids = idsAskedFor(request);
    const Settings settings = settingsFor(request);
    requireWritableLog(settings);
    const std::vector<ListedRule> rules = rulesOf(settings);
    if (request.has(Option::all)) {
        std::ranges::transform(rules, std::back_inserter(ids),
                               [](const ListedRule &rule) { return toUtf8(rule.id); });
    }
    const Reader reader(settings);
    int status = exit_status::done;
    std::string_view between;
    print(format.opening);
    for (const std::string &id : ids) {
        Description description;
        if (!reader.describe(id, description)) {
            status = exit_status::refused;
        }
        if (!description.empty()) {
            print(std::string(between) + format.rule(id, description));
            between = format.between;
        }
    }
    print(format.closing);
    return status;
}

} // namespace kvex::host
