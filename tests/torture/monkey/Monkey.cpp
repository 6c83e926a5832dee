#include "tests/torture/monkey/Monkey.h"

#include "adapters/lightweight/LightListView.h"
#include "tests/torture/monkey/Hands.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace kvex::torture {
namespace {

using headless::HeadlessWindow;
using lightweight::Element;
using Text = std::u16string_view;

constexpr std::array<Text, 10> names{u"Rule 1",
                                     u"rule 2",
                                     u"Holidays",
                                     u"  With blanks  ",
                                     u"O'Brien's rule",
                                     u"दिल्ली नियम",
                                     u"Night 🌙",
                                     u"New Rule",
                                     u"   ",
                                     u"A name that is longer than the fifty units of its box"};
constexpr std::array<Text, 8> numbers{u"9811100011", u"9811100022", u"98111 00033", u"+91-11",
                                      u"0",          u"9811100044", u"12ab34",      u"   "};
constexpr std::array<Text, 12> words{u"STOP",
                                     u"balance",
                                     u"  two words ",
                                     u"don't",
                                     u"शेष राशि",
                                     u"😀🎉",
                                     u"Straße",
                                     u"YES",
                                     u"a, b and c",
                                     u" ",
                                     u"@@SMS@@ from @@SENDER@@",
                                     u"two\r\nlines"};
constexpr std::array<Text, 10> oddWords{
    u"one;two",    u";",         u"last;",       u"<DELETE>YES</DELETE>",
    u"a</REPLY>b", u"</WORD>",   u"<ASCOMMAND>", u"<ALLMESSAGES>",
    u"1 < 2",      u"<NOT><ALL>"};
constexpr std::array otherEvents{EventKind::otherLocks,    EventKind::otherFrees,
                                 EventKind::otherFrees,    EventKind::otherFrees,
                                 EventKind::otherRenames,  EventKind::otherSwitches,
                                 EventKind::otherRewrites, EventKind::otherRemoves,
                                 EventKind::otherUnranks,  EventKind::otherAdds};

/// How often a control of this kind is chosen beside others.
int weightOf(const Element &element) {
    switch (element.design().kind) {
    case ControlKind::listView:
        return 6;
    case ControlKind::textBox:
    case ControlKind::richTextBox:
        return element.design().readOnly ? 1 : 4;
    case ControlKind::datePicker:
        return 5;
    case ControlKind::commandButton:
        return element.design().isCancel ? 1 : element.design().name == u"cmdOK" ? 6 : 3;
    case ControlKind::timePicker:
    case ControlKind::checkBox:
    case ControlKind::optionButton:
        return 2;
    default:
        return 0;
    }
}

} // namespace

Monkey::Monkey(std::uint64_t seed, int events)
    : random_(seed), left_(events), odd_(happens(30)), accompanied_(happens(40)) {}

Event Monkey::world() {
    return {.kind = EventKind::world, .numbers = {below(9), below(3)}};
}

std::optional<Event> Monkey::next(const HeadlessWindow *window, const Tables &tables) {
    if (left_-- <= 0) {
        return std::nullopt;
    }
    if (accompanied_ && happens(2)) {
        return ofOtherProgram(tables);
    }
    if (happens(2)) {
        return Event{.kind = EventKind::answer, .numbers = {happens(60) ? 1 : 0}};
    }
    if (happens(1)) {
        return Event{.kind = EventKind::clipboard, .text = textFor(u"")};
    }
    if (window == nullptr) {
        return opening(tables);
    }
    if (auto event = ofWindow(*window); event && isPossible(*event, *window)) {
        return event;
    }
    return Event{.kind = EventKind::key, .text = u"tab"};
}

Event Monkey::opening(const Tables &tables) {
    if (happens(2)) {
        return {.kind = EventKind::openNowhere};
    }
    const int rule = happens(3) ? 99999 : happens(40) ? 0 : someRule(tables);
    return {.kind = happens(2) ? EventKind::openTwice : EventKind::open, .numbers = {rule}};
}

std::optional<Event> Monkey::ofWindow(const HeadlessWindow &window) {
    if (happens(1)) {
        return Event{.kind = EventKind::closeFrame};
    }
    if (happens(15)) {
        return ofKeyboard(window);
    }
    int total = 0;
    for (const auto &element : window.elements()) {
        total += element->isUsable() ? weightOf(*element) : 0;
    }
    int at = total > 0 ? below(total) : 0;
    for (const auto &element : window.elements()) {
        at -= element->isUsable() ? weightOf(*element) : 0;
        if (at < 0) {
            return onElement(*element);
        }
    }
    return std::nullopt;
}

std::optional<Event> Monkey::onElement(const Element &element) {
    const std::u16string &name = element.design().name;
    const auto on = [&](EventKind kind, std::vector<int> values = {}) {
        return Event{.kind = kind, .control = name, .numbers = std::move(values)};
    };
    switch (element.design().kind) {
    case ControlKind::listView: {
        const int rows = dynamic_cast<const lightweight::LightListView &>(element).rowCount();
        if (rows == 0 || happens(4)) {
            return on(happens(50) ? EventKind::clickBeside : EventKind::doubleClickBeside);
        }
        const bool ticks = element.design().checkBoxes && happens(50);
        return on(ticks         ? EventKind::tick
                  : happens(15) ? EventKind::doubleClickRow
                                : EventKind::clickRow,
                  {1 + below(rows)});
    }
    case ControlKind::textBox:
    case ControlKind::richTextBox:
        return Event{.kind = EventKind::write, .control = name, .text = textFor(name)};
    case ControlKind::datePicker:
        return happens(30)
                   ? on(EventKind::tickPicker, {below(2)})
                   : on(EventKind::pickDate, {2023 + below(3), 1 + below(12), 1 + below(31)});
    case ControlKind::timePicker:
        return happens(20) ? on(EventKind::tickPicker, {below(2)})
                           : on(EventKind::pickTime, {below(24), below(60), below(60)});
    default:
        return on(EventKind::click);
    }
}

Event Monkey::ofKeyboard(const HeadlessWindow &window) {
    switch (below(6)) {
    case 0:
        return {.kind = EventKind::accessKey,
                .text = std::u16string(1, static_cast<char16_t>(u'a' + below(26)))};
    case 1:
        return {.kind = EventKind::focus, .control = oneOf(window.elements())->design().name};
    case 2:
        return {.kind = EventKind::type,
                .text =
                    textFor(window.focus() == nullptr ? Text() : window.focus()->design().name)};
    default:
        return {.kind = EventKind::key, .text = std::u16string(oneOf(keys).first)};
    }
}

Event Monkey::ofOtherProgram(const Tables &tables) {
    const EventKind kind = oneOf(otherEvents);
    const bool aboutARule = kind != EventKind::otherLocks && kind != EventKind::otherFrees &&
                            kind != EventKind::otherAdds;
    return {.kind = kind,
            .numbers = aboutARule ? std::vector<int>{someRule(tables)} : std::vector<int>()};
}

int Monkey::someRule(const Tables &tables) {
    if (tables.rules.empty()) {
        return 0;
    }
    const int place = below(static_cast<int>(tables.rules.size()));
    return static_cast<int>(std::next(tables.rules.begin(), place)->first);
}

std::u16string Monkey::textFor(Text control) {
    if (odd_ && happens(25)) {
        return std::u16string(oneOf(oddWords));
    }
    if (control == u"txtRuleName") {
        return std::u16string(oneOf(names)) +
               (happens(50) ? u"" : std::u16string(1, static_cast<char16_t>(u'a' + below(26))));
    }
    if (control == u"txtMobileNo" || control == u"txtSearch") {
        return std::u16string(oneOf(numbers));
    }
    if (control.empty() && happens(10)) {
        // Pasted, it makes a text that no rule can hold.
        return std::u16string(2600, u'x');
    }
    return std::u16string(oneOf(words));
}

} // namespace kvex::torture
