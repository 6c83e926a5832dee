// A check of any rules ends, its report can be read, and what it says about rules that never run
// holds.
#include "fuzz/ComponentStrings.h"
#include "fuzz/Input.h"
#include "fuzz/Property.h"
#include "host/check/CheckReport.h"
#include "host/rules/StoredIds.h"
#include "platform/Text.h"
#include "tests/check/ReferenceMatch.h"

#include <nlohmann/json.hpp>
#include <numeric>
#include <random>

namespace kvex::fuzz {
namespace {

using host::CheckedRule;
using host::CheckReport;
using host::RuleValues;
using test::matches;
using test::ReferenceMessage;

host::StoredRows rowsOf(Input &input) {
    host::StoredRows rows{{}, {}, {{u"1", u"Anna"}}, {}, {u"2"}, {u"4"}};
    rows.accounts = {{{u"1", u"In"}, u"RECEIVER"}, {{u"2", u"Out"}, u"TRANSMITTER"}};
    std::int64_t priority = 0;
    while (!input.atEnd() && rows.rules.size() < 20) {
        const std::uint8_t kind = input.byte();
        priority += kind % 3;
        const std::u16string id = toText(static_cast<std::int64_t>(rows.rules.size() + 1));
        host::StoredRule rule{id, input.text(), kind % 5 != 0, toText(priority), {}, {}};
        rule.queryParam = input.text();
        rule.actionParam = input.text();
        // Without this, few inputs have a rule that takes anything.
        if (kind % 7 == 1) {
            rule.actionParam += u"<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>";
        }
        rows.rules.push_back(rule);
    }
    return rows;
}

/// With one spelling for each id, as a message has it.
RuleValues withPlainIds(RuleValues rule) {
    for (std::u16string &entry : rule.accounts.entries) {
        if (const auto id = host::idOf(entry)) {
            entry = toText(std::int64_t{*id});
        }
    }
    return rule;
}

/// Messages that these two rules are about.
class Messages {
public:
    Messages(const RuleValues &one, const RuleValues &other) : rules_{&one, &other} {}

    ReferenceMessage next() {
        ReferenceMessage message;
        message.account = u"0";
        for (const RuleValues *rule : rules_) {
            choose(message.senders, rule->people.entries);
            choose(message.words, rule->words.entries);
            choose(message.commands, rule->words.entries);
            for (const std::u16string &id : rule->accounts.entries) {
                message.account = flag() ? id : message.account;
            }
            if (const std::size_t comma = rule->dateTime.find(u',');
                comma != std::u16string::npos) {
                const std::u16string end = rule->dateTime.substr(comma + 1);
                message.moment = flag() ? end : rule->dateTime.substr(0, comma);
            }
        }
        message.isService = flag();
        return message;
    }

private:
    bool flag() { return random_() % 2 == 0; }
    void choose(std::set<std::u16string> &chosen, const host::Entries &entries) {
        for (const std::u16string &entry : entries) {
            if (flag()) {
                chosen.insert(entry);
            }
        }
    }

    const RuleValues *rules_[2];
    std::mt19937 random_;
};

void requireTaken(const CheckedRule &rule, const CheckedRule &taker) {
    require(taker.row.isActive && rule.row.isActive, "both rules are enabled");
    require(toInt64(taker.row.priority) < toInt64(rule.row.priority), "the taker is earlier");
    const RuleValues inner = withPlainIds(rule.read.values);
    const RuleValues outer = withPlainIds(taker.read.values);
    require(outer.ignoreFurtherRules == u"YES" || (outer.allMessages && outer.deleteIt == u"YES"),
            "the taker ends the processing");
    Messages messages(inner, outer);
    constexpr int count = 50;
    for (int i = 0; i < count; ++i) {
        const ReferenceMessage message = messages.next();
        require(outer.allMessages || !matches(inner, message) || matches(outer, message),
                "a rule that never runs leaves no message",
                taker.row.queryParam + u" takes " + rule.row.queryParam);
    }
}

void requireReadable(const CheckReport &report) {
    const auto document = nlohmann::json::parse(host::reportAsJson(report));
    require(document["findings"].size() == report.findings.size(), "each finding is in the JSON");
    require(document["texts"].size() == report.texts.size(), "each text is in the JSON");
    const std::string text = host::reportAsText(report);
    const auto lines = static_cast<std::size_t>(std::ranges::count(text, '\n'));
    const std::size_t expected =
        report.findings.size() * 2 + report.texts.size() + (report.texts.empty() ? 0 : 1) + 1;
    require(lines == expected, "a finding has two lines, a text has one", fromUtf8(text));
    require(std::ranges::none_of(text, [](char c) { return c >= 0 && c < ' ' && c != '\n'; }),
            "no control character is printed", fromUtf8(text));
}

void check(Input input) {
    const auto component = makeComObject<ComponentStrings>();
    const host::RuleStrings strings(*component);
    const host::Rulebook book(rowsOf(input), strings, u"20240315 12:00:00");
    std::vector<std::size_t> places(book.rules().size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    requireReadable(host::checkRules(book, places));
    for (const CheckedRule &rule : book.rules()) {
        if (const auto taker = book.takerOf(rule)) {
            requireTaken(rule, book.rules()[*taker]);
        }
    }
}

} // namespace
} // namespace kvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    kvex::fuzz::check(kvex::fuzz::Input(data, size));
    return 0;
}
