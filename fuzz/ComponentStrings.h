// The component's functions for the strings of rules, without the rest of the component. A target
// compiles component/RuleStrings.cpp for it.
#pragma once

#include "component/RuleStrings.h"
#include "kvex/ComObject.h"

namespace kvex::fuzz {

class ComponentStrings final : public ComObject<IRuleStrings> {
public:
    HRESULT Read(BSTR queryParam, BSTR actionParam, IRuleFieldSink *sink) noexcept override {
        return rule_strings::read(queryParam, actionParam, sink);
    }
    HRESULT Write(const RuleField *fields, ULONG count, BSTR *queryParam,
                  BSTR *actionParam) noexcept override {
        return rule_strings::write(fields, count, queryParam, actionParam);
    }
    HRESULT Check(BSTR name, VARIANT_BOOL nameIsTaken, const RuleField *fields, ULONG count,
                  BSTR *message) noexcept override {
        return rule_strings::check(name, nameIsTaken, fields, count, message);
    }
    HRESULT GetNameKeys(BSTR name, BSTR *typed, BSTR *stored) noexcept override {
        return rule_strings::getNameKeys(name, typed, stored);
    }

private:
    ~ComponentStrings() override = default;
};

} // namespace kvex::fuzz
