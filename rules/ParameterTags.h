// The tags of the parameter strings.
#pragma once

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

} // namespace kvex
