#include "component/RuleStrings.h"

#include "adapters/classserver/server/Guard.h"
#include "kvex/ComPointer.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/Unicode.h"
#include "rules/ParameterStrings.h"
#include "rules/RuleFields.h"
#include "ui/rules/SavingChecks.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace kvex::rule_strings {
namespace {

/// The names of all fields, allocated once for the process.
const std::vector<Bstr> &fieldNames() {
    static const std::vector<Bstr> names(ruleFieldNames().begin(), ruleFieldNames().end());
    return names;
}

HRESULT passFields(const RuleState &rule, IRuleFieldSink &sink) {
    HRESULT result = S_OK;
    visitRuleFields(rule, [&](std::size_t place, std::u16string_view value) {
        result = sink.Field(fieldNames()[place].get(), Bstr(value).get());
        return SUCCEEDED(result);
    });
    return FAILED(result) ? result : S_OK;
}

HRESULT passEnd(const UnreadValue &end, IRuleFieldSink &sink) {
    auto tag = end.tag().opening;
    tag.remove_prefix(1);
    tag.remove_suffix(1);
    const HRESULT result = sink.EndedEarly(end.number(), Bstr(tag).get());
    return FAILED(result) ? result : S_FALSE;
}

/// Calls `body` with the rule of the fields. Turns an unknown name into E_INVALIDARG.
template <class Body>
HRESULT withRule(const RuleField *fields, ULONG count, const Body &body) noexcept {
    return guarded([&]() -> HRESULT {
        std::vector<FieldView> views;
        views.reserve(count);
        std::transform(fields, fields + count, std::back_inserter(views),
                       [](const RuleField &field) {
                           return FieldView{viewOf(field.name), viewOf(field.value)};
                       });
        const std::optional<RuleState> rule = ruleOfFields(views);
        return rule ? body(*rule) : E_INVALIDARG;
    });
}

/// The first check of the editor that refuses the rule.
std::optional<Refusal> refusalOf(const RuleState &rule, std::u16string_view name,
                                 bool nameIsTaken) {
    if (const auto refusal = refusalOfIncomplete(rule, heldTicks(rule), trimmed(name))) {
        return refusal;
    }
    return nameIsTaken ? refusalOfTakenName()
                       : refusalOfLength(buildQueryParam(rule), buildActionParam(rule));
}

} // namespace

HRESULT read(BSTR queryParam, BSTR actionParam, IRuleFieldSink *sink) noexcept {
    if (sink == nullptr) {
        return E_POINTER;
    }
    return guarded([&] {
        RuleState rule;
        std::optional<UnreadValue> end;
        try {
            readQueryParam(viewOf(queryParam), rule);
            readActionParam(viewOf(actionParam), rule);
        } catch (const UnreadValue &error) {
            end = error;
        }
        const HRESULT passed = passFields(rule, *sink);
        return end && SUCCEEDED(passed) ? passEnd(*end, *sink) : passed;
    });
}

HRESULT write(const RuleField *fields, ULONG count, BSTR *queryParam, BSTR *actionParam) noexcept {
    if (queryParam == nullptr || actionParam == nullptr || (fields == nullptr && count > 0)) {
        return E_POINTER;
    }
    *queryParam = nullptr;
    *actionParam = nullptr;
    return withRule(fields, count, [&](const RuleState &rule) {
        // The editor stores both without blanks around them.
        Bstr query(trimmed(buildQueryParam(rule)));
        Bstr action(trimmed(buildActionParam(rule)));
        *queryParam = query.detach();
        *actionParam = action.detach();
        return S_OK;
    });
}

HRESULT check(BSTR name, VARIANT_BOOL nameIsTaken, const RuleField *fields, ULONG count,
              BSTR *message) noexcept {
    if (message == nullptr || (fields == nullptr && count > 0)) {
        return E_POINTER;
    }
    *message = nullptr;
    return withRule(fields, count, [&](const RuleState &rule) {
        const auto refusal = refusalOf(rule, viewOf(name), nameIsTaken != VARIANT_FALSE);
        if (refusal) {
            *message = Bstr(refusal->text).detach();
        }
        return refusal ? S_FALSE : S_OK;
    });
}

HRESULT getNameKeys(BSTR name, BSTR *typed, BSTR *stored) noexcept {
    if (typed == nullptr || stored == nullptr) {
        return E_POINTER;
    }
    *typed = nullptr;
    *stored = nullptr;
    return guarded([&] {
        const std::u16string_view text = viewOf(name);
        const bool canSearch = text.find(u'\'') == std::u16string_view::npos;
        Bstr storedKey(foldCase(text));
        if (canSearch) {
            *typed = Bstr(foldCase(searchedName(trimmed(text)))).detach();
        }
        *stored = storedKey.detach();
        return canSearch ? S_OK : S_FALSE;
    });
}

} // namespace kvex::rule_strings
