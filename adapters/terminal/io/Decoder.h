// Reads what the keys and the mouse of a terminal send.
#pragma once

#include "adapters/terminal/io/Input.h"
#include "adapters/terminal/io/Mouse.h"
#include "adapters/terminal/io/PartialCharacter.h"
#include "adapters/terminal/io/PastedText.h"

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace kvex::terminal {

/// Any bytes in, in any pieces; whole characters and known keys out. What is neither has no effect.
/// Its time and its memory grow with the bytes.
class Decoder {
public:
    using Time = std::chrono::steady_clock::time_point;
    using Keys = std::map<std::string, controls::Key, std::less<>>;

    /// Longer than a terminal takes for the bytes of one key, shorter than a user notices.
    static constexpr std::chrono::milliseconds patience{50};
    /// The mark that ends a paste comes over a network, perhaps in two pieces.
    static constexpr std::chrono::milliseconds patienceInPaste{1000};

    /// `keys` are sequences of this terminal. Common ones are known without it.
    explicit Decoder(Keys keys = {});

    void take(std::string_view bytes, Time now);
    /// The user has sent nothing for a while. So Esc is the key itself, and a sequence without
    /// its end is none.
    void pause(Time now);
    /// True when pause() may change something.
    [[nodiscard]] bool isWaiting() const noexcept;
    /// The next input, if there is one. The characters of one cluster come together when the
    /// terminal sent them together.
    [[nodiscard]] std::optional<Input> next();

private:
    enum class Reading { keys, escape, singleShift, control, string, oldMouse, paste };

    void takeByte(char byte);
    void takeKey(char byte);
    void takePart(char byte);
    void takeInSequence(char byte);
    void takeEscaped(char byte, bool mayBecomeOwn);
    void takeControl(char byte, bool mayBecomeOwn);
    void finishControl(char final);
    void finishSingleShift(char final);
    void takeOldMouse(char byte);
    void takeMouse(int buttons, Point at);
    void finishPaste();
    void abandon();
    void type(std::u16string text, bool alt = false);
    void stroke(controls::Key key);

    Keys keys_;
    Reading reading_ = Reading::keys;
    /// The bytes of the unfinished sequence, with its Esc.
    std::string sequence_;
    /// The Esc came in a string, so "\" after it is the string's end.
    bool isStringEnd_ = false;
    PartialCharacter character_;
    PastedText pasted_;
    std::deque<Input> inputs_;
    Mouse mouse_;
    Time now_;
};

} // namespace kvex::terminal
