#include "component/RuleUIObject.h"

#include "adapters/classserver/server/ComObject.h"
#include "adapters/classserver/server/Guard.h"
#include "component/Composition.h"
#include "component/RuleUI.h"
#include "component/RuleUIClass.h"

#include <iostream>

namespace kvex {
namespace {

class RuleUIObject final : public ComObject<IRuleUI, IRuleReader> {
public:
    HRESULT ShowRules(BSTR userId, BSTR ruleId, LONG *result) noexcept override {
        if (result == nullptr) {
            return E_POINTER;
        }
        *result = 0;
        return guarded([&] {
            *result =
                ruleUI_.ShowRules(std::u16string(viewOf(userId)), std::u16string(viewOf(ruleId)));
            return S_OK;
        });
    }

    HRESULT OpenRules() noexcept override {
        return guarded([&] { return ruleUI_.OpenRules() ? S_OK : E_FAIL; });
    }

    HRESULT DescribeRule(BSTR ruleId, IDescriptionSink *sink) noexcept override {
        if (sink == nullptr) {
            return E_POINTER;
        }
        return guarded([&]() -> HRESULT {
            if (!hasOpenSession()) {
                return E_UNEXPECTED;
            }
            const auto description = describeRule(std::u16string(viewOf(ruleId)));
            if (!description) {
                return S_FALSE;
            }
            for (const TextRun &run : *description) {
                const Bstr text(run.text);
                const HRESULT written = sink->Write(text.get(), static_cast<LONG>(run.colour));
                if (FAILED(written)) {
                    return written;
                }
            }
            return S_OK;
        });
    }

private:
    /// The platform's way to tell of a failed release: there is no result to return it in.
    ~RuleUIObject() override {
        try {
            ruleUI_.release();
        } catch (...) {
            std::cerr << "KVEXMessageRules: the session could not be closed: "
                      << Error::current().what() << '\n';
        }
    }

    RuleUI ruleUI_{composition()};
};

} // namespace

ComPointer<IUnknown> createRuleUI() {
    return makeComObject<RuleUIObject>().as<IUnknown>();
}

} // namespace kvex
