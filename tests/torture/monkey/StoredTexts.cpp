#include "tests/torture/monkey/StoredTexts.h"

#include "platform/Error.h"
#include "platform/Text.h"
#include "rules/ParameterStrings.h"
#include "rules/RuleDescription.h"

#include <algorithm>
#include <string_view>

namespace kvex::torture {
namespace {

bool isTrimmed(std::u16string_view text) {
    return trimmed(text) == text;
}

bool hasTags(std::u16string_view text) {
    return text.find_first_of(u"<>") != std::u16string_view::npos;
}

bool isPlainText(std::u16string_view text) {
    return isTrimmed(text) && !hasTags(text) && text.find(u';') == std::u16string_view::npos;
}

bool isPlainList(std::u16string_view list) {
    return isTrimmed(list) && !hasTags(list) && !list.ends_with(u';');
}

std::u16string withoutFirstLine(std::u16string_view text) {
    return std::u16string(text.substr(std::min(text.find(u'\n'), text.size())));
}

std::u16string textOf(const RuleState &rule) {
    std::u16string text;
    for (const TextRun &run : describe(rule).runs) {
        text += run.text;
    }
    return text;
}

std::string isNot(std::u16string_view one, std::u16string_view other) {
    return "\n  " + toUtf8(one) + "\n  is not\n  " + toUtf8(other);
}

} // namespace

bool isPlain(const RuleState &rule) {
    return isPlainList(rule.strPeople) && isPlainList(rule.varAccounts) &&
           isPlainList(rule.strWords) && isPlainList(rule.strDateTime) &&
           isPlainList(rule.strDistribution) && isPlainText(rule.strReplyText) &&
           isPlainText(rule.strReplyAccount) && isPlainText(rule.strAlertText) &&
           isPlainText(rule.strAlertAccount) && isPlainList(rule.strAlertRecipients);
}

std::string unlike(const StoredRule &stored, const std::u16string &description) {
    RuleState rule;
    try {
        readQueryParam(stored.query, rule);
        readActionParam(stored.action, rule);
    } catch (const Error &error) {
        return "texts: what was stored cannot be read: " + std::string(error.what()) + "\n  " +
               toUtf8(stored.query) + "\n  " + toUtf8(stored.action);
    }
    if (const std::u16string query = buildQueryParam(rule); query != stored.query) {
        return "texts: the stored conditions write back as something else" +
               isNot(query, stored.query);
    }
    if (const std::u16string action = buildActionParam(rule); action != stored.action) {
        return "texts: the stored actions write back as something else" +
               isNot(action, stored.action);
    }
    const std::u16string text = withoutFirstLine(textOf(rule));
    if (text != withoutFirstLine(description)) {
        return "texts: the stored rule is described otherwise than the editor did" +
               isNot(text, description);
    }
    return {};
}

} // namespace kvex::torture
