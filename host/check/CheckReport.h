// The report of a check: every finding, and what the texts of the rules cost.
#pragma once

#include "host/check/Finding.h"
#include "host/check/SentTexts.h"

#include <span>
#include <string>
#include <vector>

namespace kvex::host {

struct Finding {
    const FindingKind *kind;
    const CheckedRule *rule;
    Remark remark;
};

struct RuleText {
    const CheckedRule *rule;
    SentText text;
};

/// It refers to its Rulebook, which must outlive it.
struct CheckReport {
    const Rulebook *book;
    /// How many rules were checked.
    std::size_t rules;
    /// By rule, in the order of the book; those of a rule in the order of findingKinds().
    std::vector<Finding> findings;
    std::vector<RuleText> texts;
};

/// Checks the rules at these places in `book` against all of its rules. Leaves out what is less
/// severe than `least`.
[[nodiscard]] CheckReport checkRules(const Rulebook &book, std::span<const std::size_t> places,
                                     Severity least = Severity::note);

/// Both forms of a report are in UTF-8. docs/checks.md describes them.
[[nodiscard]] std::string reportAsText(const CheckReport &report);
/// With `onlyAscii` the document escapes all other characters, some of which deceive a terminal.
[[nodiscard]] std::string reportAsJson(const CheckReport &report, bool onlyAscii = false);

} // namespace kvex::host
