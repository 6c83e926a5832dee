#include "host/check/SentTexts.h"

#include "host/check/Wording.h"
#include "host/rules/StoredIds.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>

namespace kvex::host {
namespace {

constexpr std::array<std::u16string_view, 2> placeholders{u"@@SMS@@", u"@@SENDER@@"};

SentText sentText(std::string_view action, std::u16string text, std::size_t recipients) {
    const std::size_t whole = text.size();
    for (const std::u16string_view placeholder : placeholders) {
        for (std::size_t at = text.find(placeholder); at != std::u16string::npos;
             at = text.find(placeholder, at)) {
            text.erase(at, placeholder.size());
        }
    }
    return {action, smsLength(text), text.size() != whole, recipients};
}

std::size_t countOf(const Entries &numbers) {
    return static_cast<std::size_t>(std::ranges::count_if(
        numbers, [](const std::u16string &number) { return !trimmed(number).empty(); }));
}

} // namespace

std::vector<SentText> sentTextsOf(const RuleValues &rule) {
    std::vector<SentText> texts;
    if (!trimmed(rule.replyText).empty()) {
        texts.push_back(sentText("reply", rule.replyText, 1));
    }
    if (const std::size_t recipients = countOf(rule.alertRecipients); recipients > 0) {
        texts.push_back(sentText("alert", rule.alertText, recipients));
    }
    return texts;
}

bool isReplyCut(const RuleValues &rule) {
    // An id has no ";", so the text had one.
    return rule.replyAccount.find(u';') != std::u16string::npos;
}

bool isAlertCut(const RuleValues &rule) {
    // The editor stores an account and a recipient behind the text, or more.
    return !trimmed(rule.alertAccount).empty() && !idOf(rule.alertAccount) &&
           rule.alertRecipients.size() > 1;
}

std::u16string lengthInWords(const SentText &text) {
    const SmsLength &length = text.length;
    std::u16string words = text.hasPlaceholders ? u"at least " : u"";
    words += inWords(length.parts) + (length.parts == 1 ? u" short message" : u" short messages");
    return length.alphabet == SmsAlphabet::gsm7
               ? words + u" in the GSM alphabet"
               : words + u" in UCS-2, because the GSM alphabet lacks " +
                     characterInWords(length.forcing);
}

} // namespace kvex::host
