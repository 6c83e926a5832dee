// The texts that a rule sends, and the short messages that they take.
#pragma once

#include "host/check/Rulebook.h"
#include "host/check/SmsLength.h"

#include <string_view>
#include <vector>

namespace kvex::host {

struct SentText {
    /// "reply" or "alert".
    std::string_view action;
    /// Without the placeholders "@@SMS@@" and "@@SENDER@@", which the server fills in.
    SmsLength length;
    /// True when the text has a placeholder. Then it takes as many messages or more.
    bool hasPlaceholders;
    std::size_t recipients;

    [[nodiscard]] std::size_t messages() const { return length.parts * recipients; }
};

/// The reply, then the alert, if the rule has them.
[[nodiscard]] std::vector<SentText> sentTextsOf(const RuleValues &rule);

/// True when the text has a ";", so that its rest is read as the account.
[[nodiscard]] bool isReplyCut(const RuleValues &rule);
[[nodiscard]] bool isAlertCut(const RuleValues &rule);

/// For a sentence: 2 short messages in UCS-2, because the GSM alphabet lacks "ж" (U+0436).
[[nodiscard]] std::u16string lengthInWords(const SentText &text);

} // namespace kvex::host
