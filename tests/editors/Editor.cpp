#include "tests/editors/Editor.h"
#include "tests/windows/EditorRows.h"

#include "host/suite/Advice.h"
#include "host/suite/SuiteState.h"
#include "host/suite/UtilityObject.h"
#include "platform/Text.h"

#include <thread>

namespace kvex::test {
namespace {

/// The suite's utility object, whose messages the test records.
class ShownUtility final : public host::UtilityObject {
public:
    explicit ShownUtility(UtilityRecord &record) : shown_(record) {}

private:
    ~ShownUtility() final = default;
    std::int32_t showMessage(const std::u16string &text, std::int32_t style) final {
        return shown_.showMessageBox(text, style);
    }

    TestUtility shown_;
};

/// Records the component's calls, and passes errors on to the suite's object.
class SuiteUtility final : public Utility {
public:
    explicit SuiteUtility(UtilityRecord &record)
        : recorder_(record), suite_(makeComObject<ShownUtility>(record)) {}

    std::u16string connectionString() override { return recorder_.connectionString(); }
    std::u16string secondText() override { return recorder_.secondText(); }
    void writeErrorLog(std::u16string &logFile, const Error &error, const std::u16string &text,
                       std::int32_t reserved, std::int16_t flag) override {
        recorder_.writeErrorLog(logFile, error, text, reserved, flag);
        Bstr file(logFile);
        const Bstr description(error.description());
        const Bstr source(error.source());
        ErrorRecord record{error.number(), description.get(), source.get(),
                           static_cast<LONG>(error.helpContext())};
        EXPECT_EQ(suite_->WriteErrorLog(file.inOut(), &record, Bstr(text).get(), reserved, &flag,
                                        nullptr),
                  S_OK);
    }
    void reportMessage(std::u16string &logFile, const std::u16string &text, bool first,
                       bool second) override {
        recorder_.reportMessage(logFile, text, first, second);
    }
    std::int32_t showMessageBox(const std::u16string &text, std::int32_t style) override {
        return recorder_.showMessageBox(text, style);
    }

private:
    TestUtility recorder_;
    ComPointer<ShownUtility> suite_;
};

} // namespace

std::unique_ptr<Utility> Editor::OwnPlatform::createUtility() {
    return std::make_unique<SuiteUtility>(editor_.utility);
}

Editor::Editor(recordset::Provider provider, std::u16string connectionString)
    : platform_(*this, std::move(provider)) {
    utility.connectionString = std::move(connectionString);
}

void Editor::setServers(const std::u16string &servers, int connectTimeout) {
    std::u16string &text = utility.connectionString;
    const std::size_t begin = text.find(u"Server=");
    text.replace(begin, text.find(u';', begin) - begin, u"Server=" + servers);
    text += u";Connect Timeout=" + toText(std::int64_t{connectTimeout});
}

std::int32_t Editor::showRules(const std::u16string &ruleId) {
    SessionOwner sessionOwner(platform_);
    const std::int32_t result = sessionOwner.ShowRules(u"1", ruleId);
    sessionOwner.release();
    return result;
}

std::int32_t Editor::inRulesWindow(Script script) {
    toolkit.whenShown(u"frmRuleEdit", [](User &user) { user.press(Key::escape); });
    toolkit.whenShown(u"frmRules", std::move(script));
    return showRules();
}

std::int32_t Editor::inEditor(const std::u16string &ruleId, Script script) {
    toolkit.whenShown(u"frmRuleEdit", std::move(script));
    toolkit.whenShown(u"frmRules", [](User &user) { user.click(u"cmdCancel"); });
    return showRules(ruleId);
}

void Editor::expectTold(const std::vector<std::u16string> &subsAndModules, std::int32_t number,
                        std::u16string_view words) {
    Texts expected;
    for (const std::u16string &text : subsAndModules) {
        expected.push_back(u"KVEXMessageRules: Error occured. " + text);
    }
    EXPECT_EQ(utility.logTexts(), expected);
    for (const LogEntry &entry : utility.log) {
        EXPECT_EQ(entry.number, number) << toUtf8(entry.description);
    }
    std::erase_if(utility.messages,
                  [](const Message &message) { return message.style == message_box::yesNo; });
    ASSERT_EQ(utility.messages.size(), utility.log.size());
    for (std::size_t i = 0; i < utility.log.size(); ++i) {
        const Message &message = utility.messages[i];
        const std::u16string advice =
            host::adviceFor(utility.log[i].helpContext, host::Place::rulesWindows);
        EXPECT_EQ(message.style, message_box::exclamation);
        EXPECT_NE(message.text.find(words), std::u16string::npos) << toUtf8(message.text);
        EXPECT_NE(advice, u"") << toUtf8(message.text);
        EXPECT_NE(message.text.find(utility.log[i].description + u" " + advice + u"\r\n"),
                  std::u16string::npos)
            << toUtf8(message.text);
    }
    utility.log.clear();
    utility.messages.clear();
}

void Editor::expectNothingTold() {
    expectTold({}, 0, u"");
}

void Editor::expectLeftHandler(std::int32_t number, std::u16string_view words) {
    expectNothingTold();
    ASSERT_EQ(toolkit.unhandledErrors().size(), ++leftHandlers_);
    const Error &error = toolkit.unhandledErrors().back();
    EXPECT_EQ(error.number(), number);
    EXPECT_TRUE(error.concernsUser());
    EXPECT_NE(error.description().find(words), std::u16string::npos) << error.what();
}

void Editor::expectPlayedWhole() {
    EXPECT_EQ(toolkit.problems(), std::vector<std::string>());
    EXPECT_EQ(toolkit.pendingScripts(), 0U);
    EXPECT_EQ(toolkit.unhandledErrors().size(), leftHandlers_);
    expectNothingTold();
}

OwnLog::OwnLog() {
    // A test may continue as another user, who must write here too.
    std::filesystem::permissions(folder_.path(), std::filesystem::perms::all);
    host::suiteState() = host::SuiteState{{}, {}, host::ErrorLog(folder_ / "log")};
}

OwnLog::~OwnLog() {
    host::suiteState() = host::SuiteState();
}

void meanwhile(const std::function<void()> &body) {
    std::thread(body).join();
}

void rename(User &editor, std::u16string_view name) {
    editor.focusOn(u"txtRuleName");
    editor.press(Key::selectAll);
    editor.type(name);
}

std::u16string typedName(User &editor) {
    return editor.get<TextBox>(u"txtRuleName").text();
}

void completeRule(User &editor) {
    editor.tickRow(conditions, row::forAllMessages);
    editor.tickRow(actions, row::noMoreRules);
}

void setWord(User &editor, const std::u16string &word) {
    editor.tickRow(conditions, row::forAllMessages);
    editor.tickRow(conditions, row::containsWords);
    ruleState().strWords = word;
}

void confirmRemoval(Editor &user, User &window, int row) {
    window.clickRow(u"lvwRules", row);
    user.utility.answers.push_back(message_box::yes);
    window.click(u"cmdRemove");
}

void expectNoWay(Editor &user, std::int32_t number, std::u16string_view words,
                 const std::function<void()> &harm, const std::function<void()> &repair) {
    user.inRulesWindow([&](User &window) {
        harm();
        window.tickRow(u"lvwRules", 2);
        user.expectLeftHandler(number, words);
        confirmRemoval(user, window, 3);
        user.expectTold({u"Sub: cmdRemove_Click, Module: frmRules"}, number, words);
        window.click(u"cmdOK");
        user.expectTold({u"Sub: cmdOK_Click, Module: frmRules"}, number, words);
        EXPECT_EQ(window.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
        user.toolkit.whenShown(u"frmRuleEdit", [&](User &editor) {
            rename(editor, u"Mine");
            for (int attempt = 1; attempt <= 2; ++attempt) {
                editor.click(u"cmdOK");
                user.expectTold({u"Sub: cmdOK_Click, Module: frmRuleEdit"}, number, words);
                EXPECT_EQ(typedName(editor), u"Mine");
            }
            editor.click(u"cmdCancel");
        });
        window.click(u"cmdModify");
        repair();
        window.click(u"cmdCancel");
    });
}

} // namespace kvex::test
