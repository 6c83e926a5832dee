#include "tests/torture/monkey/Event.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <stdexcept>

namespace kvex::torture {
namespace {

/// How a kind of event is written: its word, then its control, its numbers and its quoted text.
struct Form {
    EventKind kind;
    std::string_view word;
    bool hasControl = false;
    int numbers = 0;
    bool hasText = false;
};

constexpr std::array forms{
    Form{.kind = EventKind::world, .word = "world", .numbers = 2},
    Form{.kind = EventKind::open, .word = "open", .numbers = 1},
    Form{.kind = EventKind::openNowhere, .word = "open-nowhere"},
    Form{.kind = EventKind::openTwice, .word = "open-twice", .numbers = 1},
    Form{.kind = EventKind::click, .word = "click", .hasControl = true},
    Form{.kind = EventKind::clickRow, .word = "row", .hasControl = true, .numbers = 1},
    Form{.kind = EventKind::doubleClickRow, .word = "double-row", .hasControl = true, .numbers = 1},
    Form{.kind = EventKind::clickBeside, .word = "beside", .hasControl = true},
    Form{.kind = EventKind::doubleClickBeside, .word = "double-beside", .hasControl = true},
    Form{.kind = EventKind::tick, .word = "tick", .hasControl = true, .numbers = 1},
    Form{.kind = EventKind::write, .word = "write", .hasControl = true, .hasText = true},
    Form{.kind = EventKind::type, .word = "type", .hasText = true},
    Form{.kind = EventKind::key, .word = "key", .hasText = true},
    Form{.kind = EventKind::accessKey, .word = "alt", .hasText = true},
    Form{.kind = EventKind::focus, .word = "focus", .hasControl = true},
    Form{.kind = EventKind::pickDate, .word = "date", .hasControl = true, .numbers = 3},
    Form{.kind = EventKind::pickTime, .word = "time", .hasControl = true, .numbers = 3},
    Form{.kind = EventKind::tickPicker, .word = "tick-picker", .hasControl = true, .numbers = 1},
    Form{.kind = EventKind::clipboard, .word = "clipboard", .hasText = true},
    Form{.kind = EventKind::answer, .word = "answer", .numbers = 1},
    Form{.kind = EventKind::closeFrame, .word = "close-frame"},
    Form{.kind = EventKind::otherLocks, .word = "other-locks"},
    Form{.kind = EventKind::otherFrees, .word = "other-frees"},
    Form{.kind = EventKind::otherRenames, .word = "other-renames", .numbers = 1},
    Form{.kind = EventKind::otherSwitches, .word = "other-switches", .numbers = 1},
    Form{.kind = EventKind::otherRewrites, .word = "other-rewrites", .numbers = 1},
    Form{.kind = EventKind::otherRemoves, .word = "other-removes", .numbers = 1},
    Form{.kind = EventKind::otherUnranks, .word = "other-unranks", .numbers = 1},
    Form{.kind = EventKind::otherAdds, .word = "other-adds"},
};

std::string escaped(std::u16string_view text) {
    std::string result;
    for (const char c : toUtf8(text)) {
        switch (c) {
        case '\\':
            result += "\\\\";
            break;
        case '\n':
            result += "\\n";
            break;
        case '\r':
            result += "\\r";
            break;
        default:
            result += c;
        }
    }
    return result;
}

std::u16string unescaped(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\\' || at + 1 == text.size()) {
            result += text[at];
            continue;
        }
        const char next = text[++at];
        result += next == 'n' ? '\n' : next == 'r' ? '\r' : next;
    }
    return fromUtf8(result);
}

} // namespace

std::string lineOf(const Event &event) {
    const Form &form = *std::ranges::find(forms, event.kind, &Form::kind);
    std::ostringstream line;
    line << form.word;
    if (form.hasControl) {
        line << ' ' << toUtf8(event.control);
    }
    for (const int number : event.numbers) {
        line << ' ' << number;
    }
    if (form.hasText) {
        line << " \"" << escaped(event.text) << '"';
    }
    return line.str();
}

Event eventOf(std::string_view line) {
    const auto refuse = [&] { throw std::runtime_error("no event: " + std::string(line)); };
    std::istringstream words{std::string(line)};
    std::string word;
    words >> word;
    const auto *form = std::ranges::find(forms, word, &Form::word);
    if (form == forms.end()) {
        refuse();
    }
    Event event{.kind = form->kind};
    if (form->hasControl && words >> word) {
        event.control = fromUtf8(word);
    }
    for (int number = 0; std::ssize(event.numbers) < form->numbers && words >> number;) {
        event.numbers.push_back(number);
    }
    if (std::ssize(event.numbers) < form->numbers || event.control.empty() == form->hasControl) {
        refuse();
    }
    if (form->hasText) {
        const std::size_t from = line.find('"');
        const std::size_t to = line.rfind('"');
        if (from == std::string_view::npos || to == from) {
            refuse();
        }
        event.text = unescaped(line.substr(from + 1, to - from - 1));
    }
    return event;
}

bool opensSession(EventKind kind) {
    return kind == EventKind::open || kind == EventKind::openNowhere ||
           kind == EventKind::openTwice;
}

bool isOtherProgram(EventKind kind) {
    return kind >= EventKind::otherLocks;
}

} // namespace kvex::torture
