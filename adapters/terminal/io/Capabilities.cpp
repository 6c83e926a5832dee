#include "adapters/terminal/io/Capabilities.h"

#include "platform/Error.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <array>
#include <mutex>
#include <utility>

#define NCURSES_NOMACROS
#include <curses.h>
// After the others, because it defines common words as macros.
#include <term.h>

namespace kvex::terminal {
namespace {

using controls::Key;

/// The library keeps the current terminal and its buffers in globals.
std::mutex &library() {
    static std::mutex mutex;
    return mutex;
}

/// Makes a type the library's current one, and then again the one that was current before.
class CurrentType {
public:
    explicit CurrentType(const std::string &type) : before_(set_curterm(nullptr)) {
        int reason = 0;
        // Without a file the library asks no terminal for its size.
        const int result = setupterm(type.c_str(), -1, &reason);
        isKnown_ = result == OK;
        isHardcopy_ = result != OK && reason == 1;
    }
    ~CurrentType() {
        TERMINAL *const own = set_curterm(before_);
        if (own != nullptr) {
            del_curterm(own);
        }
    }
    CurrentType(const CurrentType &) = delete;
    CurrentType &operator=(const CurrentType &) = delete;

    [[nodiscard]] bool isKnown() const { return isKnown_; }
    [[nodiscard]] bool isHardcopy() const { return isHardcopy_; }

    /// Without its delays, which only terminals from before 1990 needed.
    [[nodiscard]] static std::string text(const char *name) {
        const char *const value = tigetstr(name);
        const auto missing = reinterpret_cast<const char *>(-1); // NOLINT
        if (value == nullptr || value == missing) {
            return {};
        }
        std::string result(value);
        for (std::size_t at = result.find("$<"); at != std::string::npos;
             at = result.find("$<", at)) {
            const std::size_t end = result.find('>', at);
            if (end == std::string::npos) {
                break;
            }
            result.erase(at, end + 1 - at);
        }
        return result;
    }
    [[nodiscard]] static bool flag(const char *name) { return tigetflag(name) == 1; }
    [[nodiscard]] static int number(const char *name) { return tigetnum(name); }

private:
    TERMINAL *before_;
    bool isKnown_ = false;
    bool isHardcopy_ = false;
};

constexpr std::array<std::pair<const char *, Key>, 30> keyNames{{
    {"kcuu1", Key::up},
    {"kcud1", Key::down},
    {"kcub1", Key::left},
    {"kcuf1", Key::right},
    {"khome", Key::home},
    {"kend", Key::end},
    {"kpp", Key::pageUp},
    {"knp", Key::pageDown},
    {"kdch1", Key::deleteKey},
    {"kcbt", Key::shiftTab},
    {"kent", Key::enter},
    {"kbs", Key::backspace},
    {"kf1", Key::help},
    {"kf2", Key::accessKey},
    {"kri", Key::selectUp},
    {"kind", Key::selectDown},
    {"kLFT", Key::selectLeft},
    {"kRIT", Key::selectRight},
    {"kHOM", Key::selectHome},
    {"kEND", Key::selectEnd},
    {"kLFT5", Key::wordLeft},
    {"kRIT5", Key::wordRight},
    {"kLFT6", Key::selectWordLeft},
    {"kRIT6", Key::selectWordRight},
    {"kHOM5", Key::textStart},
    {"kEND5", Key::textEnd},
    {"kIC5", Key::copy},
    {"kDC", Key::cut},
    {"kIC", Key::paste},
    {"khlp", Key::help},
}};

std::u16string shown(const std::string &type) {
    return u"TERM=" + visible(fromUtf8(type));
}

constexpr std::u16string_view whatToDo =
    u"; set TERM to the type that your terminal has, or use a display.";

[[noreturn]] void refuse(std::u16string reason) {
    throw Error(error_number::cannotCreateObject, std::move(reason).append(whatToDo));
}

void refuseUseless(const std::string &type, const CurrentType &current) {
    if (type.empty()) {
        refuse(u"TERM does not say what type your terminal has");
    }
    if (!current.isKnown() && !current.isHardcopy()) {
        refuse(u"The type of this terminal is not known (" + shown(type) + u")");
    }
    if (current.isHardcopy() || CurrentType::text("cup").empty() ||
        CurrentType::text("clear").empty()) {
        refuse(u"This terminal cannot place its cursor (" + shown(type) + u")");
    }
}

/// Some terminals also stop the blinking of a cursor that they show. The user may want it.
std::string withoutBlinking(std::string showCursor) {
    constexpr std::string_view stopBlinking = "\x1b[?12l";
    const std::size_t at = showCursor.find(stopBlinking);
    return at == std::string::npos ? showCursor : showCursor.erase(at, stopBlinking.size());
}

/// Terminfo has no name for the region that is the whole screen. All terminals that copied the
/// VT100 take its sequence without numbers for that.
void readScrolling(Capabilities &result) {
    const std::string region = CurrentType::text("csr");
    const std::string up = CurrentType::text("ind");
    const std::string down = CurrentType::text("ri");
    if (region == "\x1b[%i%p1%d;%p2%dr" && !up.empty() && !down.empty()) {
        result.scrollRegion = region;
        result.scrollUp = up;
        result.scrollDown = down;
        result.scrollAll = "\x1b[r";
    }
}

} // namespace

Capabilities Capabilities::ofType(const std::string &type) {
    const std::lock_guard lock(library());
    const CurrentType current(type);
    refuseUseless(type, current);
    const auto text = CurrentType::text;

    Capabilities result;
    result.placeCursor = text("cup");
    result.toColumn = text("hpa");
    result.toFirstColumn = text("cr");
    result.left = text("cub1");
    result.right = text("cuf1");
    result.down = text("cud1");
    result.showCursor = withoutBlinking(text("cnorm"));
    result.hideCursor = text("civis");
    result.clear = text("clear");
    result.eraseToEndOfLine = text("el");
    readScrolling(result);
    result.plain = text("sgr0");
    result.bold = text("bold");
    result.dim = text("dim");
    result.reverse = text("rev");
    result.underline = text("smul");
    result.foreground = text("setaf");
    result.colours = result.foreground.empty() ? 0 : CurrentType::number("colors");
    result.enterScreen = text("smcup");
    result.leaveScreen = text("rmcup");
    result.enterKeypad = text("smkx");
    result.leaveKeypad = text("rmkx");
    result.enterWrapping = text("smam");
    result.leaveWrapping = text("rmam");
    result.wrapsAtOnce = CurrentType::flag("am") && !CurrentType::flag("xenl");
    result.hasMouse = !text("kmous").empty();
    for (const auto &[name, key] : keyNames) {
        const std::string sequence = text(name);
        if (sequence.size() >= 2 && sequence.front() == '\x1b') {
            result.keys.emplace(sequence, key);
        }
    }
    return result;
}

std::string terminfoVersion() {
    const std::string version = curses_version();
    return "terminfo " + version.substr(version.find(' ') + 1);
}

std::string filled(const std::string &sequence, int first, int second) {
    const std::lock_guard lock(library());
    const char *const result = tiparm(sequence.c_str(), first, second);
    return result == nullptr ? std::string() : std::string(result);
}

} // namespace kvex::terminal
