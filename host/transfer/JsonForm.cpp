#include "host/transfer/JsonForm.h"

#include "host/transfer/HalfPairs.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <array>
#include <utility>

namespace kvex::host {
namespace {

using Kind = LinedJson::Kind;

std::string_view nameOf(Kind kind) {
    constexpr std::array<std::string_view, 7> names{
        "null", "true or false", "an integer", "a number", "a text", "a list", "an object",
    };
    return names[static_cast<std::size_t>(kind)];
}

} // namespace

void JsonForm::take(const LinedJson &json, std::string_view what, bool &target) {
    if (require(json, Kind::boolean, what)) {
        target = json.flag;
    }
}

void JsonForm::take(const LinedJson &json, std::string_view what, std::u16string &target) {
    if (json.kind == Kind::object && json.names == std::vector<std::string>{"utf16"}) {
        const LinedJson &units = json.values.front();
        if (!require(units, Kind::text, "\"utf16\"")) {
            return;
        }
        if (auto text = textOfUnits(units.text)) {
            target = *std::move(text);
        } else {
            add(units.line, "\"utf16\" must have units of four hexadecimal digits, with one blank "
                            "between them.");
        }
    } else if (require(json, Kind::text, what)) {
        target = fromUtf8(json.text);
    }
}

void JsonForm::take(const LinedJson &json, std::string_view what, Entries &target) {
    if (!require(json, Kind::array, what)) {
        return;
    }
    target.assign(json.values.size(), {});
    for (std::size_t at = 0; at < target.size(); ++at) {
        take(json.values[at], "an entry of " + std::string(what), target[at]);
    }
}

void JsonForm::take(const LinedJson &json, std::string_view what,
                    std::optional<std::u16string> &target) {
    if (json.kind == Kind::null) {
        target.reset();
    } else {
        take(json, what, target.emplace());
    }
}

bool JsonForm::require(const LinedJson &json, Kind kind, std::string_view what) {
    if (json.kind == kind) {
        return true;
    }
    add(json.line, std::string(what) + " must be " + std::string(nameOf(kind)) + ", and here is " +
                       std::string(nameOf(json.kind)) + ".");
    return false;
}

void JsonForm::allowMembers(const LinedJson &object, std::string_view what,
                            const MemberNames &names) {
    for (std::size_t at = 0; at < object.names.size(); ++at) {
        if (!names.contains(object.names[at])) {
            add(object.values[at].line,
                std::string(what) + " has no field " + quotedUtf8(object.names[at]) + ".");
        }
    }
}

const LinedJson *JsonForm::required(const LinedJson &object, std::string_view name,
                                    std::string_view what) {
    const LinedJson *member = object.member(name);
    if (member == nullptr) {
        add(object.line, std::string(what) + " lacks the field " + quotedUtf8(name) + ".");
    }
    return member;
}

void JsonForm::add(std::size_t line, const std::string &sentences) {
    problems_.push_back({line, sentences});
}

std::string quotedUtf8(std::string_view text) {
    constexpr std::size_t longest = 60;
    return toUtf8(quoted(visible(fromUtf8(text)), longest));
}

} // namespace kvex::host
