#include "host/check/CheckReport.h"

#include "host/check/Wording.h"
#include "host/rules/StoredIds.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <string_view>

namespace kvex::host {
namespace {

std::size_t countOf(const CheckReport &report, Severity severity) {
    return static_cast<std::size_t>(std::ranges::count(
        report.findings, severity, [](const Finding &finding) { return finding.kind->severity; }));
}

std::string counted(std::size_t count, std::string_view what) {
    return std::to_string(count) + " " + std::string(what) + (count == 1 ? "" : "s");
}

std::string textLine(const RuleText &ruleText) {
    const SentText &text = ruleText.text;
    std::string line = "  " + toUtf8(ruleInWords(*ruleText.rule)) + ": " +
                       std::string(text.action) + ": " + toUtf8(lengthInWords(text));
    if (text.recipients != 1) {
        line += ", " + std::to_string(text.messages()) + " to " + std::to_string(text.recipients) +
                " recipients";
    }
    return line + "\n";
}

/// Field by field in a fixed order.
using Json = nlohmann::ordered_json;

Json jsonOf(const CheckedRule &rule) {
    return {{"id", idJson(rule.row.id)}, {"name", toUtf8(rule.row.name)}};
}

Json jsonOf(const Finding &finding, const Rulebook &book) {
    Json json{{"rule", jsonOf(*finding.rule)},
              {"severity", nameOf(finding.kind->severity)},
              {"code", finding.kind->code},
              {"reason", toUtf8(finding.remark.reason)},
              {"advice", toUtf8(finding.remark.advice)}};
    if (finding.remark.other) {
        json["otherRule"] = jsonOf(book.rules()[*finding.remark.other]);
    }
    return json;
}

Json jsonOf(const RuleText &ruleText) {
    const SentText &text = ruleText.text;
    const bool isGsm = text.length.alphabet == SmsAlphabet::gsm7;
    Json json{{"rule", jsonOf(*ruleText.rule)},
              {"action", text.action},
              {"alphabet", isGsm ? "GSM 7-bit" : "UCS-2"},
              {"units", text.length.units},
              {"parts", text.length.parts},
              {"recipients", text.recipients},
              {"messages", text.messages()},
              {"hasPlaceholders", text.hasPlaceholders}};
    if (!isGsm) {
        json["forcedBy"] = toUtf8(text.length.forcing);
    }
    return json;
}

} // namespace

CheckReport checkRules(const Rulebook &book, std::span<const std::size_t> places, Severity least) {
    CheckReport report{&book, places.size(), {}, {}};
    for (const std::size_t place : places) {
        const CheckedRule &rule = book.rules()[place];
        for (const FindingKind &kind : findingKinds()) {
            if (kind.severity > least) {
                continue;
            }
            for (Remark &remark : kind.find(book, rule)) {
                report.findings.push_back({&kind, &rule, std::move(remark)});
            }
        }
        for (SentText &text : sentTextsOf(rule.read.values)) {
            report.texts.push_back({&rule, std::move(text)});
        }
    }
    return report;
}

std::string reportAsText(const CheckReport &report) {
    std::string text;
    for (const Finding &finding : report.findings) {
        text += std::string(nameOf(finding.kind->severity)) + ": " +
                toUtf8(ruleInWords(*finding.rule)) + ": " + toUtf8(finding.remark.reason) + " [" +
                std::string(finding.kind->code) + "]\n    " + toUtf8(finding.remark.advice) + "\n";
    }
    if (!report.texts.empty()) {
        text += "Texts:\n";
    }
    for (const RuleText &ruleText : report.texts) {
        text += textLine(ruleText);
    }
    return text + counted(report.rules, "rule") +
           " checked: " + counted(countOf(report, Severity::error), "error") + ", " +
           counted(countOf(report, Severity::warning), "warning") + ", " +
           counted(countOf(report, Severity::note), "note") + "\n";
}

std::string reportAsJson(const CheckReport &report, bool onlyAscii) {
    Json json{{"format", "kvexrules check"},
              {"version", 1},
              {"rules", report.rules},
              {"errors", countOf(report, Severity::error)},
              {"warnings", countOf(report, Severity::warning)},
              {"notes", countOf(report, Severity::note)},
              {"findings", Json::array()},
              {"texts", Json::array()}};
    for (const Finding &finding : report.findings) {
        json["findings"].push_back(jsonOf(finding, *report.book));
    }
    for (const RuleText &text : report.texts) {
        json["texts"].push_back(jsonOf(text));
    }
    return json.dump(2, ' ', onlyAscii) + "\n";
}

} // namespace kvex::host
