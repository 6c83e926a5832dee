// Documents of any bytes are read without a crash. A refusal names a line. What an import would
// store comes back from an export, and the second import of a document changes nothing.
#include "fuzz/ComponentStrings.h"
#include "fuzz/Input.h"
#include "fuzz/Property.h"
#include "host/transfer/ImportCheck.h"
#include "host/transfer/RuleExport.h"
#include "platform/Text.h"

#include <algorithm>

namespace kvex::fuzz {
namespace {

const host::RuleStrings &ruleStrings() {
    static const host::RuleStrings strings(*makeComObject<ComponentStrings>());
    return strings;
}

const host::RuleTables &database() {
    static const host::RuleTables tables{
        {{u"4", u"1", {u"Strangers", true, u"<ALLMESSAGES>", u""}},
         {u"5", u"1", {u"a", false, u"<PEOPLE>", {}}},
         {u"9", u"2", {u"a", true, u"", u"<DELETE>YES</DELETE>"}}},
        {{u"1", u"SYSTEM"}, {u"2", u"Asha Rao"}, {u"3", u"Ravi Kumar"}},
        {{{u"1", u"Main line"}, u"TRANSCEIVER"}, {{u"2", u"Bulk sending"}, u"TRANSMITTER"}},
    };
    return tables;
}

void requireLines(const host::Problems &problems, std::string_view text) {
    const auto last = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
    for (const host::Problem &problem : problems) {
        require(problem.line >= 1 && problem.line <= last, "a problem has a line of the document",
                fromUtf8(problem.sentences));
        require(problem.sentences.ends_with('.'), "a problem is a sentence",
                fromUtf8(problem.sentences));
    }
}

/// The rules after the import.
host::RuleTables imported(const host::ImportPlan &plan, const host::RuleDocument &document) {
    host::RuleTables after = database();
    after.rules.clear();
    for (const auto &[row, rule] : plan.order) {
        after.rules.push_back(
            {row ? database().rules[*row].id : u"new",
             toText(static_cast<std::int64_t>(after.rules.size() + 1)),
             rule ? document.rules[*rule].content : database().rules[*row].content});
    }
    return after;
}

std::string exported(const host::RuleTables &tables) {
    return host::exportDocument(tables.rules, tables.users, tables.accounts, ruleStrings());
}

void requireNothingToWrite(const host::RuleDocument &document, const host::RuleTables &tables,
                           host::ImportMode mode, std::string_view property) {
    const host::ImportPlan plan = host::planImport(document, tables.rules, mode);
    require(!host::effectOf(plan, document, tables.rules, ruleStrings()).writes, property);
}

void checkMode(const host::RuleDocument &document, host::ImportMode mode) {
    const host::ImportPlan plan = host::planImport(document, database().rules, mode);
    host::Problems misfits;
    host::checkImport(plan, document, database(), ruleStrings(), misfits);
    if (!misfits.empty()) {
        return;
    }
    const host::RuleTables after = imported(plan, document);
    const std::string text = exported(after);
    host::Problems problems;
    const auto again = host::readRuleDocument(text, ruleStrings(), problems);
    require(again.has_value(), "an export can be read", fromUtf8(text));
    requireNothingToWrite(*again, after, host::ImportMode::replace,
                          "the import of an export changes nothing");
    if (mode != host::ImportMode::asNew) {
        requireNothingToWrite(document, after, mode, "a second import changes nothing");
    }
}

void check(Input input) {
    const std::string_view text = input.rest();
    host::Problems problems;
    const auto document = host::readRuleDocument(text, ruleStrings(), problems);
    require(document.has_value() == problems.empty(), "a refusal has a reason");
    requireLines(problems, text);
    if (document) {
        for (const host::ImportMode mode :
             {host::ImportMode::update, host::ImportMode::asNew, host::ImportMode::replace}) {
            checkMode(*document, mode);
        }
    }
}

} // namespace
} // namespace kvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    kvex::fuzz::check(kvex::fuzz::Input(data, size));
    return 0;
}
