#include "rules/ParameterStrings.h"

#include "platform/Text.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

namespace kvex {
namespace {

void append(std::u16string &target, const ParameterTag &tag, std::u16string_view content) {
    target.append(tag.opening).append(content).append(tag.closing);
}

std::u16string_view yesOrNo(std::u16string_view value) {
    return value == u"YES" ? value : u"NO";
}

std::u16string modifiers(std::int16_t negated, std::int16_t all) {
    std::u16string result(negated == 1 ? modifier::negated : modifier::affirmed);
    return result.append(all == 1 ? modifier::all : modifier::any);
}

} // namespace

std::u16string buildQueryParam(const RuleState &rule) {
    if (rule.blnAllMessages) {
        return std::u16string(parameter_tag::allMessages);
    }
    std::u16string result;
    append(result, parameter_tag::ignoreIfService, yesOrNo(rule.strIgnoreIfService));
    const auto appendList = [&](const ParameterTag &tag, std::u16string head,
                                std::u16string_view list) {
        if (const auto content = trimmed(list); !content.empty()) {
            append(result, tag, head.append(content));
        }
    };
    appendList(parameter_tag::people, modifiers(rule.intPeopleNot, rule.intPeopleAll),
               rule.strPeople);
    appendList(parameter_tag::account, modifiers(rule.intAccountNot, rule.intAccountAll),
               rule.varAccounts);
    auto wordHead = modifiers(rule.intWordsNot, rule.intWordsAll);
    if (rule.intAsCommand == 1) {
        wordHead.append(modifier::asCommand);
    }
    appendList(parameter_tag::word, wordHead, rule.strWords);
    appendList(parameter_tag::dateTime, {}, rule.strDateTime);
    return result;
}

std::u16string buildActionParam(const RuleState &rule) {
    std::u16string result;
    // Writes the tag when `decider` holds more than blanks.
    const auto appendIf = [&](std::u16string_view decider, const ParameterTag &tag,
                              std::u16string_view content) {
        if (!trimmed(decider).empty()) {
            append(result, tag, content);
        }
    };
    const auto joined = [](std::initializer_list<std::u16string_view> parts) {
        std::u16string content;
        for (const auto part : parts) {
            content.append(trimmed(part)).push_back(u';');
        }
        content.pop_back();
        return content;
    };
    appendIf(rule.strDistribution, parameter_tag::distribute, trimmed(rule.strDistribution));
    appendIf(rule.strReplyText, parameter_tag::reply,
             joined({rule.strReplyText, rule.strReplyAccount}));
    appendIf(rule.strAlertRecipients, parameter_tag::alert,
             joined({rule.strAlertText, rule.strAlertAccount, rule.strAlertRecipients}));
    appendIf(rule.varDelete, parameter_tag::deleteIt, yesOrNo(rule.varDelete));
    appendIf(rule.strIgnoreFurtherRules, parameter_tag::ignoreFurtherRules,
             yesOrNo(rule.strIgnoreFurtherRules));
    return result;
}

namespace {

constexpr auto npos = std::u16string_view::npos;

/// A position for `tag`. Positions begin at 1 and must fit in 16 bits. 0 means that nothing was
/// found.
std::int16_t position(const ParameterTag &tag, std::size_t found, std::size_t beyond = 0) {
    if (found == npos) {
        return 0;
    }
    if (found + 1 + beyond > std::size_t{std::numeric_limits<std::int16_t>::max()}) {
        throw UnreadValue(error_number::overflow, tag);
    }
    return static_cast<std::int16_t>(found + 1 + beyond);
}

/// A parameter string, with the few places where a tag can begin. So one pass through the text
/// finds all tags.
class TaggedText {
public:
    explicit TaggedText(std::u16string_view text) : text_(text) {
        constexpr std::size_t usualCount = 24;
        places_.reserve(usualCount);
        for (std::size_t at = findUnit(text, u'<'); at != npos; at = findUnit(text, u'<', at + 1)) {
            places_.push_back(at);
        }
    }

    /// Returns the same as std::u16string_view::find.
    [[nodiscard]] std::size_t find(std::u16string_view tag) const {
        const auto stands = [&](std::size_t at) {
            const auto candidate = text_.substr(at, tag.size());
            // Most other tags have another length.
            return candidate.back() == tag.back() && std::ranges::equal(candidate, tag);
        };
        const auto found = std::ranges::find_if(places_, stands);
        return found == places_.end() ? npos : *found;
    }

    /// The text between the first opening tag and the first closing tag. Nothing when there is no
    /// opening tag.
    [[nodiscard]] std::optional<std::u16string_view> contentOf(const ParameterTag &tag) const {
        const std::size_t opening = find(tag.opening);
        if (opening == npos) {
            return std::nullopt;
        }
        const std::int16_t start = position(tag, opening, tag.opening.size());
        const std::int16_t end = position(tag, find(tag.closing));
        if (end < start) {
            throw UnreadValue(error_number::invalidCall, tag);
        }
        return text_.substr(static_cast<std::size_t>(start - 1),
                            static_cast<std::size_t>(end - start));
    }

private:
    std::u16string_view text_;
    std::vector<std::size_t> places_;
};

std::int16_t flag(std::u16string_view head, std::u16string_view mark) {
    return head.find(mark) == npos ? 0 : 1;
}

std::u16string_view behind(std::u16string_view text, std::size_t length) {
    return text.substr(std::min(length, text.size()));
}

/// Reads two modifiers and the list after them. The modifiers have a fixed length, so other text in
/// their place is skipped.
void readList(std::u16string_view content, std::u16string &list, std::int16_t &negated,
              std::int16_t &all) {
    const auto head = content.substr(0, modifier::length);
    if (!content.empty()) {
        all = flag(head, modifier::all);
        negated = flag(head, modifier::negated);
    }
    list = behind(content, modifier::length);
}

void readWords(std::u16string_view content, RuleState &rule) {
    const auto head = content.substr(0, modifier::lengthWithCommand);
    if (content.empty()) {
        rule.strWords.clear();
        return;
    }
    rule.intWordsAll = flag(head, modifier::all);
    rule.intWordsNot = flag(head, modifier::negated);
    rule.intAsCommand = flag(head, modifier::asCommand);
    rule.strWords =
        behind(content, rule.intAsCommand == 1 ? modifier::lengthWithCommand : modifier::length);
}

/// Removes the first part of `text` and its ";", and returns that part. Without a ";" the part is
/// the whole text.
std::u16string_view takePart(std::u16string_view &text) {
    const std::size_t at = text.find(u';');
    const auto part = text.substr(0, at);
    text = at == npos ? std::u16string_view() : text.substr(at + 1);
    return part;
}

} // namespace

void readQueryParam(std::u16string_view queryParam, RuleState &rule) {
    const TaggedText text(queryParam);
    rule.blnAllMessages = text.find(parameter_tag::allMessages) != npos;
    if (rule.blnAllMessages) {
        return;
    }
    const auto listOf = [&](const ParameterTag &tag) {
        auto content = text.contentOf(tag);
        if (content) {
            content = withoutTrailingSeparator(*content);
        }
        return content;
    };
    if (const auto content = listOf(parameter_tag::ignoreIfService)) {
        rule.strIgnoreIfService = *content;
    }
    if (const auto content = listOf(parameter_tag::people)) {
        readList(*content, rule.strPeople, rule.intPeopleNot, rule.intPeopleAll);
    }
    if (const auto content = listOf(parameter_tag::account)) {
        readList(*content, rule.varAccounts, rule.intAccountNot, rule.intAccountAll);
    }
    if (const auto content = listOf(parameter_tag::word)) {
        readWords(*content, rule);
    }
    if (const auto content = listOf(parameter_tag::dateTime)) {
        rule.strDateTime = *content;
    }
}

void readActionParam(std::u16string_view actionParam, RuleState &rule) {
    const TaggedText text(actionParam);
    if (const auto content = text.contentOf(parameter_tag::distribute)) {
        rule.strDistribution = withoutTrailingSeparator(*content);
    }
    if (const auto content = text.contentOf(parameter_tag::reply)) {
        auto rest = trimmed(*content);
        rule.strReplyText = withoutTrailingSeparator(takePart(rest));
        rule.strReplyAccount = withoutTrailingSeparator(rest);
    }
    if (const auto content = text.contentOf(parameter_tag::alert)) {
        auto rest = trimmed(*content);
        rule.strAlertText = takePart(rest);
        rule.strAlertAccount = withoutTrailingSeparator(takePart(rest));
        rule.strAlertRecipients = withoutTrailingSeparator(rest);
    }
    if (const auto content = text.contentOf(parameter_tag::deleteIt)) {
        rule.varDelete = withoutTrailingSeparator(trimmed(*content));
    }
    if (const auto content = text.contentOf(parameter_tag::ignoreFurtherRules)) {
        rule.strIgnoreFurtherRules = withoutTrailingSeparator(trimmed(*content));
    }
}

} // namespace kvex
