// The two tagged strings that a rule's row stores: QueryParam (conditions) and ActionParam
// (actions).
//
// The server that applies the rules also reads them, so every character counts. docs/format.md has
// their grammar, and how each odd case is read. Nothing is escaped.
#pragma once

#include "platform/Error.h"
#include "rules/RuleState.h"

#include <string>
#include <string_view>

namespace kvex {

struct ParameterTag {
    std::u16string_view opening;
    std::u16string_view closing;
};

namespace parameter_tag {
inline constexpr std::u16string_view allMessages = u"<ALLMESSAGES>";
inline constexpr ParameterTag ignoreIfService{u"<IGNOREIFSERVICE>", u"</IGNOREIFSERVICE>"};
inline constexpr ParameterTag people{u"<PEOPLE>", u"</PEOPLE>"};
inline constexpr ParameterTag account{u"<ACCOUNT>", u"</ACCOUNT>"};
inline constexpr ParameterTag word{u"<WORD>", u"</WORD>"};
inline constexpr ParameterTag dateTime{u"<DATETIME>", u"</DATETIME>"};
inline constexpr ParameterTag distribute{u"<DIST>", u"</DIST>"};
inline constexpr ParameterTag reply{u"<REPLY>", u"</REPLY>"};
inline constexpr ParameterTag alert{u"<ALERT>", u"</ALERT>"};
inline constexpr ParameterTag deleteIt{u"<DELETE>", u"</DELETE>"};
inline constexpr ParameterTag ignoreFurtherRules{u"<IGNOREFURTHERRULES>", u"</IGNOREFURTHERRULES>"};
} // namespace parameter_tag

namespace modifier {
inline constexpr std::u16string_view negated = u"<NOT>";
inline constexpr std::u16string_view affirmed = u"<CON>";
inline constexpr std::u16string_view all = u"<ALL>";
inline constexpr std::u16string_view any = u"<ANY>";
inline constexpr std::u16string_view asCommand = u"<ASCOMMAND>";
/// The length of a list's two modifiers, without and with the mark of a command.
inline constexpr std::size_t length = negated.size() + all.size();
inline constexpr std::size_t lengthWithCommand = length + asCommand.size();
} // namespace modifier

/// The longest strings that a row can hold, in UTF-16 units.
inline constexpr std::size_t longestQueryParam = 5000;
inline constexpr std::size_t longestActionParam = 2500;

[[nodiscard]] std::u16string buildQueryParam(const RuleState &rule);
[[nodiscard]] std::u16string buildActionParam(const RuleState &rule);

/// The error of a value that cannot be read. Its number is invalidCall when no closing tag follows
/// the opening one. Its number is overflow when a position does not fit in 16 bits.
class UnreadValue : public Error {
public:
    UnreadValue(std::int32_t number, const ParameterTag &tag) : Error(number), tag_(tag) {}
    [[nodiscard]] const ParameterTag &tag() const noexcept { return tag_; }

private:
    ParameterTag tag_;
};

/// Reads a parameter string into `rule`, tag by tag. A missing tag leaves its variables unchanged.
/// A tag may stand anywhere. Its first occurrence counts. Case matters. Fails with UnreadValue;
/// values read before stay.
void readQueryParam(std::u16string_view queryParam, RuleState &rule);
void readActionParam(std::u16string_view actionParam, RuleState &rule);

} // namespace kvex
