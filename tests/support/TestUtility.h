// A utility object that records the calls of the component.
#pragma once

#include "platform/Text.h"
#include "platform/Utility.h"
#include "platform/controls/Toolkit.h"

#include <deque>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace kvex::test {

struct LogEntry {
    std::u16string logFile;
    std::int32_t number;
    std::u16string description;
    std::u16string source;
    HelpContext helpContext;
    std::u16string text;
    std::int32_t reserved;
    std::int16_t flag;
};

struct Report {
    std::u16string logFile;
    std::u16string text;
    bool first, second;
    friend bool operator==(const Report &, const Report &) = default;
    friend std::ostream &operator<<(std::ostream &out, const Report &report) {
        return out << toUtf8(report.text);
    }
};

struct Message {
    std::u16string text;
    std::int32_t style;
    friend bool operator==(const Message &, const Message &) = default;
    friend std::ostream &operator<<(std::ostream &out, const Message &message) {
        return out << '"' << toUtf8(message.text) << "\", style " << message.style;
    }
};

/// Outlives the utility object, so that a test can read it after the session's end.
struct UtilityRecord {
    std::u16string connectionString;
    std::vector<LogEntry> log;
    std::vector<Report> reports;
    std::vector<Message> messages;
    /// Answers to the next questions; without one the answer is No.
    std::deque<std::int32_t> answers;
    /// Runs while each message is shown, before the window below it changes.
    std::function<void()> onMessage;
    /// The text that the utility object appends to the log file's path, which it gets by reference.
    std::u16string addedToLogFile;
    /// The log operation fails.
    bool logFails = false;
    /// The next creation of a utility object fails.
    bool creationFails = false;

    [[nodiscard]] std::vector<std::u16string> logTexts() const {
        std::vector<std::u16string> texts;
        for (const LogEntry &entry : log) {
            texts.push_back(entry.text);
        }
        return texts;
    }
};

class TestUtility final : public Utility {
public:
    explicit TestUtility(UtilityRecord &record) : record_(record) {}

    std::u16string connectionString() override { return record_.connectionString; }
    std::u16string secondText() override { return u"second"; }
    void writeErrorLog(std::u16string &logFile, const Error &error, const std::u16string &text,
                       std::int32_t reserved, std::int16_t flag) override {
        if (record_.logFails) {
            throw Error(error_number::automationError);
        }
        record_.log.push_back({logFile, error.number(), error.description(), error.source(),
                               error.helpContext(), text, reserved, flag});
        logFile += record_.addedToLogFile;
    }
    void reportMessage(std::u16string &logFile, const std::u16string &text, bool first,
                       bool second) override {
        record_.reports.push_back({logFile, text, first, second});
        logFile += record_.addedToLogFile;
    }
    std::int32_t showMessageBox(const std::u16string &text, std::int32_t style) override {
        record_.messages.push_back({text, style});
        if (record_.onMessage) {
            record_.onMessage();
        }
        if (style != message_box::yesNo) {
            return message_box::ok;
        }
        if (record_.answers.empty()) {
            return message_box::no;
        }
        const std::int32_t answer = record_.answers.front();
        record_.answers.pop_front();
        return answer;
    }

private:
    UtilityRecord &record_;
};

} // namespace kvex::test
