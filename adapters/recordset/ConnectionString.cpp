#include "adapters/recordset/ConnectionString.h"

#include "adapters/recordset/EqualIgnoringCase.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <algorithm>

namespace kvex::recordset {
namespace {

bool isKeyword(std::u16string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char16_t unit) {
        return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
               (unit >= u'0' && unit <= u'9') || unit == u' ' || unit == u'_' || unit == u'-';
    });
}

bool namesPath(std::u16string_view text) {
    const std::size_t equals = text.find(u'=');
    return equals == std::u16string_view::npos ||
           (text.find(u';') == std::u16string_view::npos && !isKeyword(text.substr(0, equals)));
}

/// Reads one entry after the other.
class Reader {
public:
    explicit Reader(std::u16string_view text) : text_(text) {}

    bool atEnd() {
        while (at_ < text_.size() && (text_[at_] == u' ' || text_[at_] == u';')) {
            ++at_;
        }
        return at_ == text_.size();
    }

    std::u16string_view key() {
        const std::size_t end = std::min(text_.find_first_of(u"=;", at_), text_.size());
        const std::u16string_view key = trimmed(text_.substr(at_, end - at_));
        if (!text_.substr(end).starts_with(u'=') || key.empty()) {
            fail(u"KEY=VALUE is expected there");
        }
        at_ = end + 1;
        return key;
    }

    std::u16string value() {
        at_ = std::min(text_.find_first_not_of(u' ', at_), text_.size());
        const std::u16string_view rest = text_.substr(at_);
        if (rest.starts_with(u'{')) {
            return enclosed(u'}');
        }
        if (rest.starts_with(u'"') || rest.starts_with(u'\'')) {
            return enclosed(rest.front());
        }
        const std::size_t end = std::min(text_.find(u';', at_), text_.size());
        const std::u16string_view plain = trimmed(text_.substr(at_, end - at_));
        at_ = end;
        return std::u16string(plain);
    }

private:
    std::u16string enclosed(char16_t closing) {
        std::u16string value;
        for (std::size_t i = at_ + 1; i < text_.size(); ++i) {
            if (text_[i] != closing) {
                value.push_back(text_[i]);
            } else if (text_.substr(i + 1).starts_with(closing)) {
                value.push_back(text_[++i]);
            } else {
                at_ = std::min(text_.find_first_not_of(u' ', i + 1), text_.size());
                if (at_ < text_.size() && text_[at_] != u';') {
                    fail(u"a closing brace or quote inside a value must be doubled");
                }
                return value;
            }
        }
        fail(u"the brace or quote that opens there is not closed");
    }

    [[noreturn]] void fail(std::u16string_view why) const {
        throw Error(error_number::badArgument,
                    u"The connection string cannot be read at character " +
                        toText(static_cast<std::int64_t>(at_ + 1)) + u": " + std::u16string(why) +
                        u".");
    }

    std::u16string_view text_;
    std::size_t at_ = 0;
};

} // namespace

ConnectionString::ConnectionString(std::u16string_view text) {
    text = trimmed(text);
    isPath_ = namesPath(text);
    if (isPath_) {
        add(u"Data Source", text);
        return;
    }
    for (Reader reader(text); !reader.atEnd();) {
        const std::u16string_view key = reader.key();
        add(key, reader.value());
    }
}

std::u16string_view ConnectionString::value(std::u16string_view key) const {
    const Entry *entry = find(key);
    return entry ? std::u16string_view(entry->value) : std::u16string_view();
}

bool ConnectionString::has(std::u16string_view key) const {
    return find(key) != nullptr;
}

void ConnectionString::add(std::u16string_view key, std::u16string_view value) {
    entries_.push_back({std::u16string(key), std::u16string(value)});
}

const ConnectionString::Entry *ConnectionString::find(std::u16string_view key) const {
    const auto found = std::ranges::find_if(
        entries_, [key](const Entry &entry) { return equalIgnoringCase(entry.key, key); });
    return found == entries_.end() ? nullptr : &*found;
}

} // namespace kvex::recordset
