#include "host/rules/Rule.h"

#include "adapters/classserver/server/Guard.h"
#include "host/rules/RuleFields.h"
#include "kvex/ComObject.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <cstdio>
#include <variant>

namespace kvex::host {
namespace {

constexpr std::u16string_view yes = u"YES";
constexpr std::u16string_view no = u"NO";

/// Ignores the value of an unknown field.
void take(std::u16string_view /*value*/, std::nullptr_t /*none*/) {}
void take(std::u16string_view value, bool *member) {
    *member = value == yes;
}
void take(std::u16string_view value, std::u16string *member) {
    *member = value;
}
void take(std::u16string_view value, Entries *member) {
    member->emplace_back(value);
}

class Reader final : public ComObject<IRuleFieldSink> {
public:
    explicit Reader(RuleRead &target) : target_(target) {}
    HRESULT Field(BSTR name, BSTR value) noexcept final {
        return guarded([&] {
            if (viewOf(name) != name_) {
                find(viewOf(name));
            }
            std::visit([&](auto member) { take(viewOf(value), member); }, member_);
            return S_OK;
        });
    }
    HRESULT EndedEarly(LONG number, BSTR tag) noexcept final {
        return guarded([&] {
            target_.end = EarlyEnd{number, std::u16string(viewOf(tag))};
            return S_OK;
        });
    }

private:
    ~Reader() final = default;

    void find(std::u16string_view name) {
        name_ = name;
        member_ = nullptr;
        forEachField(target_.values, [&](std::u16string_view known, auto &member) {
            if (known == name) {
                member_ = &member;
            }
        });
    }

    RuleRead &target_;
    /// The field that came last. The entries of a list come one after the other.
    std::u16string name_;
    std::variant<std::nullptr_t, bool *, std::u16string *, Entries *> member_;
};

/// The fields of a rule as an argument.
class Fields {
public:
    explicit Fields(const RuleValues &rule) {
        forEachField(rule,
                     [&](std::u16string_view name, const auto &member) { add(name, member); });
    }
    [[nodiscard]] const RuleField *data() const { return fields_.data(); }
    [[nodiscard]] ULONG count() const { return static_cast<ULONG>(fields_.size()); }

private:
    void add(std::u16string_view name, bool value) { add(name, value ? yes : no); }
    void add(std::u16string_view name, const Entries &values) {
        for (const std::u16string &value : values) {
            add(name, std::u16string_view(value));
        }
    }
    void add(std::u16string_view name, std::u16string_view value) {
        BSTR const nameText = texts_.emplace_back(name).get();
        fields_.push_back({nameText, texts_.emplace_back(value).get()});
    }

    std::vector<Bstr> texts_;
    std::vector<RuleField> fields_;
};

void requireSuccess(HRESULT result) {
    if (result == E_OUTOFMEMORY) {
        throw Error(error_number::outOfMemory);
    }
    if (FAILED(result)) {
        char number[16];
        std::snprintf(number, sizeof number, "0x%08X", static_cast<unsigned>(result));
        throw Error(error_number::internalError,
                    u"The rule component failed (" + fromUtf8(number) + u").");
    }
}

} // namespace

RuleStrings::RuleStrings(IUnknown &component)
    : strings_(ComPointer<IUnknown>(&component).as<IRuleStrings>()) {
    if (!strings_) {
        throw Error(error_number::internalError,
                    u"The rule component is too old: it does not give the fields of rules.");
    }
}

RuleRead RuleStrings::read(std::u16string_view queryParam, std::u16string_view actionParam) const {
    RuleRead rule;
    const auto reader = makeComObject<Reader>(rule);
    requireSuccess(strings_->Read(Bstr(queryParam).get(), Bstr(actionParam).get(), reader.get()));
    return rule;
}

RuleWritten RuleStrings::write(const RuleValues &rule) const {
    const Fields fields(rule);
    Bstr queryParam;
    Bstr actionParam;
    requireSuccess(
        strings_->Write(fields.data(), fields.count(), queryParam.put(), actionParam.put()));
    return {queryParam.text(), actionParam.text()};
}

std::optional<std::u16string> RuleStrings::refusal(std::u16string_view name, bool nameIsTaken,
                                                   const RuleValues &rule) const {
    const Fields fields(rule);
    Bstr message;
    const HRESULT result =
        strings_->Check(Bstr(name).get(), nameIsTaken ? VARIANT_TRUE : VARIANT_FALSE, fields.data(),
                        fields.count(), message.put());
    requireSuccess(result);
    return result == S_OK ? std::nullopt : std::optional(message.text());
}

NameKeys RuleStrings::keysOf(std::u16string_view name) const {
    Bstr typed;
    Bstr stored;
    const HRESULT result = strings_->GetNameKeys(Bstr(name).get(), typed.put(), stored.put());
    requireSuccess(result);
    return {result == S_OK ? std::optional(typed.text()) : std::nullopt, stored.text()};
}

} // namespace kvex::host
