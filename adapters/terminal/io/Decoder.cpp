#include "adapters/terminal/io/Decoder.h"

#include "adapters/terminal/io/KeySequences.h"
#include "platform/Unicode.h"

#include <utility>

namespace kvex::terminal {
namespace {

constexpr char escape = '\x1b';
/// A key's sequence is much shorter. The rest of a longer one is swallowed.
constexpr std::size_t longestSequence = 32;

bool isPrefix(const Decoder::Keys &keys, std::string_view sequence) {
    const auto key = keys.lower_bound(sequence);
    return key != keys.end() && key->first.starts_with(sequence);
}

/// Digits with one more byte after them.
bool isDigits(std::string_view sequence) {
    return sequence.find_first_not_of("0123456789") + 1 == sequence.size();
}

bool belongTogether(std::u16string_view cluster, std::u16string_view more) {
    if (more.front() < 0x80) {
        return false;
    }
    const std::u16string both = std::u16string(cluster).append(more);
    return clusterEnd(both, 0) == both.size();
}

} // namespace

Decoder::Decoder(Keys keys) : keys_(std::move(keys)) {}

void Decoder::take(std::string_view bytes, Time now) {
    now_ = now;
    while (!bytes.empty()) {
        if (reading_ == Reading::paste) {
            bytes.remove_prefix(pasted_.take(bytes));
            if (pasted_.isComplete()) {
                finishPaste();
            }
        } else {
            takeByte(bytes.front());
            bytes.remove_prefix(1);
        }
    }
}

void Decoder::takeByte(char byte) {
    if (reading_ == Reading::oldMouse) {
        takeOldMouse(byte);
        return;
    }
    const bool isInSequence = reading_ != Reading::keys;
    if (byte == escape) {
        if (reading_ == Reading::escape) {
            stroke(controls::Key::escape);
        }
        // A string ends with Esc \, whose rest is then no key.
        const bool endsString = reading_ == Reading::string;
        abandon();
        reading_ = Reading::escape;
        sequence_ = escape;
        isStringEnd_ = endsString;
        return;
    }
    if (isInSequence) {
        if (sequence_.size() < longestSequence) {
            sequence_ += byte;
        }
        takeInSequence(byte);
    } else {
        takeKey(byte);
    }
}

void Decoder::takeInSequence(char byte) {
    if (reading_ == Reading::string) {
        if (byte == '\a') {
            abandon();
        }
        return;
    }
    if (const auto own = keys_.find(sequence_); own != keys_.end()) {
        stroke(own->second);
        abandon();
        return;
    }
    const bool mayBecomeOwn = isPrefix(keys_, sequence_);
    const bool isText = byte >= ' ' && byte != '\x7f'; // Bytes from 0x80 on are negative.
    if (!isText && reading_ != Reading::escape) {
        abandon();
        takeKey(byte);
        return;
    }
    switch (reading_) {
    case Reading::escape:
        takeEscaped(byte, mayBecomeOwn);
        return;
    case Reading::singleShift:
        if ((byte >= '0' && byte <= '9') || byte == ';' || mayBecomeOwn) {
            return;
        }
        finishSingleShift(byte);
        return;
    default:
        takeControl(byte, mayBecomeOwn);
        return;
    }
}

void Decoder::takeKey(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    if (value >= 0x80) {
        takePart(byte);
        return;
    }
    character_.clear();
    if (const auto key = keyOfByte(byte)) {
        stroke(*key);
    } else if (byte == '\f') {
        inputs_.emplace_back(Repaint{});
    } else if (byte >= ' ') {
        type({static_cast<char16_t>(value)});
    }
}

/// A byte of a character that is not ASCII.
void Decoder::takePart(char byte) {
    if (auto typed = character_.take(byte)) {
        inputs_.emplace_back(std::move(*typed));
    }
}

void Decoder::takeEscaped(char byte, bool mayBecomeOwn) {
    switch (byte) {
    case '[':
        reading_ = Reading::control;
        return;
    case 'O':
        reading_ = Reading::singleShift;
        return;
    case 'P':
    case 'X':
    case ']':
    case '^':
    case '_':
        reading_ = Reading::string;
        return;
    default:
        break;
    }
    if (mayBecomeOwn) {
        return;
    }
    const bool isLetter = static_cast<unsigned char>(byte) >= ' ' && byte != '\x7f';
    const bool isEnd = isStringEnd_ && byte == '\\';
    abandon();
    if (!isLetter || isEnd) {
        return;
    }
    if (static_cast<unsigned char>(byte) < 0x80) {
        type({static_cast<char16_t>(byte)}, true);
    } else {
        character_.beginWithAlt();
        takePart(byte);
    }
}

void Decoder::finishSingleShift(char final) {
    const std::string_view parameters = std::string_view(sequence_).substr(2);
    const auto key = keyOfSingleShift(parameters.substr(0, parameters.size() - 1), final);
    const char16_t character = characterOfKeypad(final);
    if (key) {
        stroke(*key);
    } else if (character != 0) {
        type({character});
    }
    abandon();
}

void Decoder::takeControl(char byte, bool mayBecomeOwn) {
    const bool isNumber = byte >= '0' && byte <= '?';
    // rxvt ends the sequence of a key with "$" after a number.
    const bool isEnd = byte == '$' && isDigits(std::string_view(sequence_).substr(2));
    const bool isMark = byte >= ' ' && byte <= '/' && !isEnd;
    // Function keys of the Linux console have a second "[".
    const bool isConsole = byte == '[' && sequence_.size() == 3;
    if (isNumber || isMark || isConsole || mayBecomeOwn) {
        return;
    }
    finishControl(byte);
}

void Decoder::finishControl(char final) {
    const std::string sequence = std::exchange(sequence_, {});
    abandon();
    if (sequence.size() == longestSequence) {
        return;
    }
    std::string_view parameters(sequence);
    parameters.remove_prefix(2);
    parameters.remove_suffix(1);
    if (final == 'M' && parameters.empty()) {
        reading_ = Reading::oldMouse;
    } else if ((final == 'M' || final == 'm') && parameters.starts_with('<')) {
        parameters.remove_prefix(1);
        const int buttons = takeNumber(parameters);
        const int column = takeNumber(parameters);
        const int row = takeNumber(parameters);
        if (final == 'M') {
            takeMouse(buttons, {column - 1, row - 1});
        }
    } else if (final == '~' && parameters == "200") {
        reading_ = Reading::paste;
    } else if (parameters.starts_with('[')) {
        if (final == 'A' || final == 'B') {
            stroke(final == 'A' ? controls::Key::help : controls::Key::accessKey);
        }
    } else if (parameters.find_first_not_of("0123456789;") == std::string_view::npos) {
        if (const auto key = keyOfControl(parameters, final)) {
            stroke(*key);
        }
    }
}

/// Three bytes: buttons, column and row, each counted from the blank on.
void Decoder::takeOldMouse(char byte) {
    sequence_ += byte;
    if (sequence_.size() == 3) {
        const auto value = [this](std::size_t at) {
            return static_cast<unsigned char>(sequence_[at]) - ' ';
        };
        const int buttons = value(0);
        const Point at{value(1) - 1, value(2) - 1};
        abandon();
        takeMouse(buttons, at);
    }
}

void Decoder::takeMouse(int buttons, Point at) {
    if (const auto event = mouse_.press(buttons, at, now_)) {
        inputs_.emplace_back(*event);
    }
}

void Decoder::finishPaste() {
    reading_ = Reading::keys;
    inputs_.emplace_back(Pasted{pasted_.text()});
    pasted_ = {};
}

void Decoder::pause(Time now) {
    if (reading_ == Reading::paste) {
        // No terminal sends Esc alone inside a paste. The user presses it when the end got lost.
        if (pasted_.endsWithEscape() && now - now_ >= patienceInPaste) {
            finishPaste();
        }
        return;
    }
    const std::string sequence = std::exchange(sequence_, {});
    const bool isIntroducer = sequence.size() == 2 && reading_ != Reading::oldMouse;
    const bool isEscape = reading_ == Reading::escape && sequence.size() == 1;
    abandon();
    if (isEscape) {
        stroke(controls::Key::escape);
    } else if (isIntroducer) {
        type({static_cast<char16_t>(sequence[1])}, true);
    }
}

bool Decoder::isWaiting() const noexcept {
    if (reading_ == Reading::paste) {
        return pasted_.endsWithEscape();
    }
    return reading_ != Reading::keys || !character_.isEmpty();
}

std::optional<Input> Decoder::next() {
    if (inputs_.empty()) {
        return std::nullopt;
    }
    Input input = std::move(inputs_.front());
    inputs_.pop_front();
    // The characters of one cluster arrive together.
    if (auto *const typed = std::get_if<Typed>(&input); typed != nullptr && !typed->alt) {
        while (!inputs_.empty()) {
            const auto *const more = std::get_if<Typed>(&inputs_.front());
            if (more == nullptr || more->alt || !belongTogether(typed->cluster, more->cluster)) {
                break;
            }
            typed->cluster += more->cluster;
            inputs_.pop_front();
        }
    }
    return input;
}

void Decoder::abandon() {
    reading_ = Reading::keys;
    sequence_.clear();
    character_.clear();
    isStringEnd_ = false;
}

void Decoder::type(std::u16string text, bool alt) {
    inputs_.emplace_back(Typed{std::move(text), alt});
}

void Decoder::stroke(controls::Key key) {
    inputs_.emplace_back(Stroke{key});
}

} // namespace kvex::terminal
