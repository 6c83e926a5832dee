// One user who edits rules: a session of the component with the suite's own utility object, on
// the headless toolkit and any database.
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

    /// From the next session on: "HOST,HOST:PORT" in place of the server of the connection string,
    /// and so many seconds for it to answer.
    void setServers(const std::u16string &servers, int connectTimeout);

    /// A whole session: opened, shown on the rule, closed. What ShowRules gave.
    std::int32_t showRules(const std::u16string &ruleId = u"");
    /// A whole session, played in the rules window; the editor that opens first is cancelled.
    std::int32_t inRulesWindow(Script script);
    /// A whole session, played in the editor of a rule ("" for a new one); the rules window is
    /// left by Cancel.
    std::int32_t inEditor(const std::u16string &ruleId, Script script);

    /// The database's errors since the last time: in the log with the text of this procedure and
    /// this number, each shown in exactly one message that holds these words. None else.
    void expectTold(const std::vector<std::u16string> &subsAndModules, std::int32_t number,
                    std::u16string_view words);
    /// Nothing was logged and nothing shown since the last time.
    void expectNothingTold();
    /// Since the last time an error of this number left a handler, with these words; the toolkit
    /// tells the user of it, the log does not hear of it.
    void expectLeftHandler(std::int32_t number, std::u16string_view words);
    /// No window was left open, none came unexpectedly, and every error was expected.
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

/// While it lives, the suite writes its log into a folder of its own.
class OwnLog {
public:
    OwnLog();
    ~OwnLog();
    OwnLog(const OwnLog &) = delete;
    OwnLog &operator=(const OwnLog &) = delete;

private:
    host::TemporaryFolder folder_;
};

/// Runs `body` as another user's program would, beside the session of this thread.
void meanwhile(const std::function<void()> &body);

/// What users do.
void rename(User &editor, std::u16string_view name);
[[nodiscard]] std::u16string typedName(User &editor);
/// Ticks what makes a new rule whole.
void completeRule(User &editor);
/// Makes the rule one for messages with this word.
void setWord(User &editor, const std::u16string &word);
void confirmRemoval(Editor &user, User &window, int row);

/// In one session on the rules "A", "B" and "C", which OK would number anew: from the moment of
/// `harm` on every way to write is refused with this error, told once with these words, and leaves
/// what the user sees and has typed; `repair` undoes the harm before the session ends.
void expectNoWay(
    Editor &user, std::int32_t number, std::u16string_view words,
    const std::function<void()> &harm = [] {}, const std::function<void()> &repair = [] {});

} // namespace kvex::test
