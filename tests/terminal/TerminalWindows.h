// The component's windows in a terminal, with a database.
#pragma once

#include "tests/support/ComponentTest.h"
#include "tests/terminal/TerminalPlay.h"

#include <functional>
#include <string>
#include <string_view>

namespace kvex::test {

/// A component whose user sits at a terminal of this size. Its database has a rule with all
/// conditions and actions, which enables as many controls as possible.
class TerminalWindows {
public:
    explicit TerminalWindows(terminal::Size size, terminal::TerminalKind kind = xterm());

    [[nodiscard]] static terminal::TerminalKind xterm() {
        return {"xterm-256color", terminal::Characters::unicode, true};
    }

    using Check = std::function<void(TerminalUser &user, const std::string &window)>;
    /// Opens each of the eleven windows once, by keys, and leaves it by Esc.
    void walk(const Check &check);

    [[nodiscard]] TerminalPlay &play() { return play_; }
    [[nodiscard]] const UtilityRecord &utility() const { return utility_; }

private:
    void walkEditor(TerminalUser &editor, const Check &check);
    static void openPart(TerminalUser &editor, std::u16string_view list, int row, char16_t button);
    void walkAddressBook(const Check &check);

    TestDatabase database_;
    UtilityRecord utility_;
    TerminalPlay play_;
    TestPlatform platform_;
};

} // namespace kvex::test
