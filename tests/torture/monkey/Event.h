// One event of a monkey's script, as a value and as a line of text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvex::torture {

/// The kinds whose names begin with `other` are another program's on the same database.
enum class EventKind {
    world,
    open,
    openNowhere,
    openTwice,
    click,
    clickRow,
    doubleClickRow,
    clickBeside,
    doubleClickBeside,
    tick,
    write,
    type,
    key,
    accessKey,
    focus,
    pickDate,
    pickTime,
    tickPicker,
    clipboard,
    answer,
    closeFrame,
    otherLocks,
    otherFrees,
    otherRenames,
    otherSwitches,
    otherRewrites,
    otherRemoves,
    otherUnranks,
    otherAdds,
};

struct Event {
    EventKind kind;
    /// The control's name, or "" for an event that needs none.
    std::u16string control = {};
    std::vector<int> numbers = {};
    std::u16string text = {};
};

/// The event as one line of UTF-8, without a line break.
[[nodiscard]] std::string lineOf(const Event &event);
/// Reads such a line. Fails with std::runtime_error when it holds no event.
[[nodiscard]] Event eventOf(std::string_view line);

/// True for the events that begin a session.
[[nodiscard]] bool opensSession(EventKind kind);
[[nodiscard]] bool isOtherProgram(EventKind kind);

} // namespace kvex::torture
