// What an event does in a window: whether a person could do it now, what it aims at, and doing it.
#pragma once

#include "adapters/headless/HeadlessWindow.h"
#include "adapters/headless/User.h"
#include "tests/torture/monkey/Event.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace kvex::torture {

/// The keys by the names that scripts give them.
inline constexpr std::array<std::pair<std::u16string_view, headless::Key>, 34> keys{{
    {u"enter", headless::Key::enter},
    {u"escape", headless::Key::escape},
    {u"tab", headless::Key::tab},
    {u"shift-tab", headless::Key::shiftTab},
    {u"space", headless::Key::space},
    {u"backspace", headless::Key::backspace},
    {u"delete", headless::Key::deleteKey},
    {u"up", headless::Key::up},
    {u"down", headless::Key::down},
    {u"home", headless::Key::home},
    {u"end", headless::Key::end},
    {u"cut", headless::Key::cut},
    {u"copy", headless::Key::copy},
    {u"paste", headless::Key::paste},
    {u"select-all", headless::Key::selectAll},
    {u"left", headless::Key::left},
    {u"right", headless::Key::right},
    {u"word-left", headless::Key::wordLeft},
    {u"word-right", headless::Key::wordRight},
    {u"page-up", headless::Key::pageUp},
    {u"page-down", headless::Key::pageDown},
    {u"text-start", headless::Key::textStart},
    {u"text-end", headless::Key::textEnd},
    {u"go-up", headless::Key::goUp},
    {u"go-down", headless::Key::goDown},
    {u"select-up", headless::Key::selectUp},
    {u"select-down", headless::Key::selectDown},
    {u"select-left", headless::Key::selectLeft},
    {u"select-right", headless::Key::selectRight},
    {u"select-word-left", headless::Key::selectWordLeft},
    {u"select-word-right", headless::Key::selectWordRight},
    {u"select-home", headless::Key::selectHome},
    {u"select-end", headless::Key::selectEnd},
    {u"toggle-row", headless::Key::toggleRow},
}};

[[nodiscard]] bool isPossible(const Event &event, const headless::HeadlessWindow &window);

/// The button that the event presses, or the list's row that it ticks.
struct Aim {
    /// "" when the event does neither.
    std::u16string control;
    /// 0 for a button.
    int row = 0;
};
[[nodiscard]] Aim aimOf(const Event &event, const headless::HeadlessWindow &window);

/// Does a possible event in the user's window.
void perform(const Event &event, headless::User &user);

} // namespace kvex::torture
