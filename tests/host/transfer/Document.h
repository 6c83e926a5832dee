// Documents for the tests of imports.
#pragma once

#include "host/transfer/RuleDocument.h"
#include "platform/Text.h"
#include "tests/support/LoadedComponent.h"

#include <gtest/gtest.h>

#include <string>

namespace kvex::host {

/// A test with the component. It reads documents that begin with their format and have one rule a
/// line, from line 2.
class DocumentTest : public testing::Test {
protected:
    static std::string documentOf(const std::string &rules, const std::string &before = "") {
        return R"({"format": "kvex-rules", "version": 1, )" + before + "\"rules\": [\n" + rules +
               "\n]}";
    }
    /// A rule with its texts alone.
    static std::string ruleNamed(const std::string &name, const std::string &texts = "") {
        return R"({"name": ")" + name + R"(", "active": true, )" +
               (texts.empty() ? R"("queryParam": "<ALLMESSAGES>", "actionParam": "a")" : texts) +
               "}";
    }
    RuleDocument read(const std::string &text) {
        Problems problems;
        const auto document = readRuleDocument(text, strings_, problems);
        EXPECT_TRUE(document.has_value());
        for (const Problem &problem : problems) {
            ADD_FAILURE() << problem.line << ": " << problem.sentences;
        }
        return document.value_or(RuleDocument{});
    }
    /// Each problem as "LINE: SENTENCES".
    std::vector<std::string> problemsOf(const std::string &text) {
        Problems problems;
        EXPECT_FALSE(readRuleDocument(text, strings_, problems).has_value());
        return shown(problems);
    }
    static std::vector<std::string> shown(const Problems &problems) {
        std::vector<std::string> lines;
        for (const Problem &problem : problems) {
            lines.push_back(std::to_string(problem.line) + ": " + problem.sentences);
        }
        return lines;
    }

    test::LoadedComponent component_;
    RuleStrings strings_{component_.object()};
};

} // namespace kvex::host
