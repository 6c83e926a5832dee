#include "adapters/lightweight/LightDTPicker.h"

#include "platform/Unicode.h"
#include "platform/Utf16.h"

#include <array>
#include <limits>

namespace kvex::lightweight {
namespace {

std::u16string_view formatOf(const ControlDesign &design) {
    if (!design.format.empty()) {
        return design.format;
    }
    return design.kind == ControlKind::datePicker ? u"dd/MM/yyyy" : u"HH:mm:ss";
}

} // namespace

LightDTPicker::LightDTPicker(LightWindow *window, const ControlDesign &design)
    : LightControl(window, design, design.hour, design.minute, design.second),
      editor_(*this, formatOf(design)) {}

/// Runs the handler only if the value differs afterwards.
template <class Change> void LightDTPicker::change(const Change &change) {
    const auto state = [this] {
        return std::array<int, 7>{hasValue() ? 1 : 0, year(),  month(), day(), hour(),
                                  minute(),           second()};
    };
    const auto before = state();
    change();
    tellChange();
    if (state() != before) {
        deliver(onChange);
    }
}

void LightDTPicker::valueSet() {
    editor_.endTyping();
    tellChange();
}

void LightDTPicker::pickDate(int year, int month, int day) {
    requireKind(ControlKind::datePicker);
    change([&] { setDate(year, month, day); });
}

void LightDTPicker::pickTime(int hour, int minute, int second) {
    requireKind(ControlKind::timePicker);
    change([&] { setTime(hour, minute, second); });
}

void LightDTPicker::requireKind(ControlKind kind) const {
    if (design().kind != kind) {
        throw Error(error_number::invalidPropertyValue);
    }
}

void LightDTPicker::tick(bool ticked) {
    change([&] { ticked ? restoreValue() : clearValue(); });
}

void LightDTPicker::clickAt(std::size_t place) {
    editor_.goToPartAt(place);
    tellChange();
}

bool LightDTPicker::type(std::u16string_view cluster) {
    std::size_t end = 0;
    const char32_t character = nextCharacter(cluster, end);
    if (!hasValue() || end < cluster.size()) {
        return false;
    }
    const bool isSeparator =
        character < 0x80 &&
        std::u16string_view(u"/.-:,").find(static_cast<char16_t>(character)) != cluster.npos;
    const auto digit = digitValue(character);
    if (digit) {
        change([&] { editor_.typeDigit(*digit); });
    } else if (isSeparator) {
        editor_.typeSeparator();
        tellChange();
    }
    return digit.has_value() || isSeparator;
}

bool LightDTPicker::press(Key key) {
    if (key == Key::space && !editor_.isTyping()) {
        tick(!hasValue());
        return true;
    }
    return hasValue() && pressOnValue(key);
}

bool LightDTPicker::pressOnValue(Key key) {
    constexpr int greaterStep = 10;
    constexpr int allParts = std::numeric_limits<char>::max();
    const auto step = [this](int by) { change([this, by] { editor_.step(by); }); };
    switch (key) {
    case Key::space:
        editor_.typeSeparator();
        break;
    case Key::left:
    case Key::wordLeft:
        editor_.goToPart(-1);
        break;
    case Key::right:
    case Key::wordRight:
        editor_.goToPart(1);
        break;
    case Key::home:
    case Key::selectAll:
        editor_.goToPart(-allParts);
        break;
    case Key::end:
        editor_.goToPart(allParts);
        break;
    case Key::up:
        step(1);
        break;
    case Key::down:
        step(-1);
        break;
    case Key::pageUp:
        step(greaterStep);
        break;
    case Key::pageDown:
        step(-greaterStep);
        break;
    case Key::backspace:
    case Key::deleteKey:
        editor_.endTyping();
        break;
    default:
        editor_.endTyping();
        tellChange();
        return false;
    }
    tellChange();
    return true;
}

void LightDTPicker::enteredByTab() {
    clickAt(0);
}

void LightDTPicker::focusLost() {
    editor_.endTyping();
    tellChange();
}

} // namespace kvex::lightweight
