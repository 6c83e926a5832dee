#include "host/kvexrules/RuleReader.h"

#include "adapters/classserver/server/Guard.h"
#include "host/kvexrules/Components.h"
#include "host/kvexrules/Failure.h"
#include "host/suite/SuiteState.h"
#include "kvex/HostSuite.h"
#include "platform/Text.h"

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

} // namespace

RuleReader::RuleReader(const Settings &settings) {
    suiteState() = {fromUtf8(settings.database), {}, ErrorLog(settings.log)};
    reader_ = createRuleUI().as<IRuleReader>();
    if (!reader_ || FAILED(reader_->OpenRules())) {
        throw Failure("The rules could not be opened. " + lastError() + " " +
                      settings.databaseOrigin);
    }
}

Described RuleReader::describe(const std::string &id, Description &description) const {
    const ComPointer<Collector> collector = makeComObject<Collector>();
    suiteState().firstError.reset();
    suiteState().lastError.reset();
    const HRESULT result = reader_->DescribeRule(Bstr(fromUtf8(id)).get(), collector.get());
    description = std::move(collector->description);
    if (result == S_FALSE) {
        return Described::noRule;
    }
    return FAILED(result) || suiteState().lastError ? Described::inPart : Described::whole;
}

std::string RuleReader::lastError() {
    const SuiteState &state = suiteState();
    return state.lastError
               ? reasonAndLog(toldAtTerminal(state.lastError->error), state.log.lastFile())
               : "No reason was given.";
}

} // namespace kvex::host
