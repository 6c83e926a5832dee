// Takes values out of a JSON document, and says where it has another form than an export has.
#pragma once

#include "host/rules/Rule.h"
#include "host/transfer/LinedJson.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace kvex::host {

using MemberNames = std::set<std::string, std::less<>>;

/// A take adds a problem when the value has another form. Then it leaves the target alone. `what`
/// names the value: "\"active\"".
class JsonForm {
public:
    explicit JsonForm(Problems &problems) : problems_(problems) {}

    void take(const LinedJson &json, std::string_view what, bool &target);
    void take(const LinedJson &json, std::string_view what, std::u16string &target);
    void take(const LinedJson &json, std::string_view what, Entries &target);
    /// Null gives nothing.
    void take(const LinedJson &json, std::string_view what, std::optional<std::u16string> &target);

    /// True when `json` is of this kind.
    bool require(const LinedJson &json, LinedJson::Kind kind, std::string_view what);
    /// Adds a problem for each member that is not among `names`.
    void allowMembers(const LinedJson &object, std::string_view what, const MemberNames &names);
    /// The member, or null with a problem.
    const LinedJson *required(const LinedJson &object, std::string_view name,
                              std::string_view what);
    void add(std::size_t line, const std::string &sentences);

private:
    Problems &problems_;
};

/// `text` in quotation marks, as visible() shows it.
[[nodiscard]] std::string quotedUtf8(std::string_view text);

} // namespace kvex::host
