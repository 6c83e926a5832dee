// One user who edits rules: the component with the suite's own utility object, the headless toolkit
// and any database.
#pragma once

#include "adapters/recordset/Driver.h"
#include "tests/host/TemporaryFolder.h"
#include "tests/support/ComponentTest.h"

#include <functional>
#include <string>

namespace kvex::test {

class Editor {
public:
    Editor(recordset::Provider provider, std::u16string connectionString);

    /// Changes the connection string for later sessions: the list of servers, "HOST,HOST:PORT", and
    /// the timeout in seconds.
    void setServers(const std::u16string &servers, int connectTimeout);

    /// Runs a session that opens the rule, and returns what ShowRules returned.
    std::int32_t showRules(const std::u16string &ruleId = u"");
    /// Runs a session with the script in the rules window. Cancels the editor that opens first.
    std::int32_t inRulesWindow(Script script);
    /// Runs a session with the script in the editor of a rule, "" for a new one. Leaves the rules
    /// window with Cancel.
    std::int32_t inEditor(const std::u16string &ruleId, Script script);

    /// Expects exactly these errors since the last call. The log has each error with its Sub, its
    /// Module and this number. One message with these words and with advice shows each error.
    void expectTold(const std::vector<std::u16string> &subsAndModules, std::int32_t number,
                    std::u16string_view words);
    /// Expects that nothing was logged or shown since the last call.
    void expectNothingTold();
    /// Expects one error since the last call that left a handler, with this number and these words.
    /// The toolkit shows such an error; the log does not have it.
    void expectLeftHandler(std::int32_t number, std::u16string_view words);
    /// Expects that every script has run, no window is open and no error is unexpected.
    void expectPlayedWhole();

    UtilityRecord utility;
    headless::HeadlessToolkit toolkit;

private:
    class OwnPlatform final : public TestPlatform {
    public:
        OwnPlatform(Editor &editor, recordset::Provider provider)
            : TestPlatform(editor.utility, editor.toolkit, std::move(provider)), editor_(editor) {}
        std::unique_ptr<Utility> createUtility() override;

    private:
        Editor &editor_;
    };

    OwnPlatform platform_;
    std::size_t leftHandlers_ = 0;
};

/// Sends the suite's log to a temporary folder while the object lives.
class OwnLog {
public:
    OwnLog();
    ~OwnLog();
    OwnLog(const OwnLog &) = delete;
    OwnLog &operator=(const OwnLog &) = delete;

private:
    host::TemporaryFolder folder_;
};

/// Runs `body` in another thread, as another user's program, and waits for its end.
void meanwhile(const std::function<void()> &body);

/// Steps of a user.
void rename(User &editor, std::u16string_view name);
[[nodiscard]] std::u16string typedName(User &editor);
/// Ticks the condition and the action that a new rule needs.
void completeRule(User &editor);
/// Gives the rule the condition that a message has this word.
void setWord(User &editor, const std::u16string &word);
void confirmRemoval(Editor &user, User &window, int row);

/// Runs one session on the rules "A", "B" and "C", whose priorities OK would change. After `harm`
/// it expects every write to fail with this error, shown once with these words. The windows and the
/// input must stay as they are. `repair` undoes the harm before the session ends.
void expectNoWay(
    Editor &user, std::int32_t number, std::u16string_view words,
    const std::function<void()> &harm = [] {}, const std::function<void()> &repair = [] {});

} // namespace kvex::test
