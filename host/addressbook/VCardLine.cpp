#include "host/addressbook/VCardLine.h"

#include "host/addressbook/ContactFile.h"
#include "host/addressbook/TextEncoding.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace kvex::host {
namespace {

constexpr std::string_view quotedPrintable = "quoted-printable";

bool isNameCharacter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9') || byte == '-' || byte == '_';
}

bool isName(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, isNameCharacter);
}

/// Reads a line from its beginning to its end.
class LineReader {
public:
    explicit LineReader(std::string_view text) : text_(text) {}

    std::optional<VCardLine> read() {
        VCardLine line;
        std::string_view name = upTo(".:;");
        if (next() == '.') {
            if (!isName(name)) {
                return std::nullopt;
            }
            ++at_;
            name = upTo(":;");
        }
        line.name = lowerCase(name);
        while (next() == ';') {
            ++at_;
            if (!readParameter(line)) {
                return std::nullopt;
            }
        }
        if (!isName(name) || next() != ':') {
            return std::nullopt;
        }
        line.value = text_.substr(at_ + 1);
        return line;
    }

private:
    [[nodiscard]] char next() const { return at_ < text_.size() ? text_[at_] : '\0'; }

    std::string_view upTo(std::string_view ends) {
        const std::size_t from = at_;
        at_ = std::min(text_.find_first_of(ends, from), text_.size());
        return text_.substr(from, at_ - from);
    }

    bool readParameter(VCardLine &line) {
        std::string_view name = upTo("=;:");
        if (!isName(name)) {
            return false;
        }
        if (next() != '=') {
            line.parameters.push_back({"type", lowerCase(name)});
            return true;
        }
        do {
            ++at_;
            const bool quoted = next() == '"';
            at_ += quoted ? 1 : 0;
            const std::string_view values = upTo(quoted ? "\"" : ",;:");
            if (quoted && next() != '"') {
                return false;
            }
            at_ += quoted ? 1 : 0;
            for (const std::string_view value : escapedParts(values, ',')) {
                line.parameters.push_back({lowerCase(name), lowerCase(value)});
            }
        } while (next() == ',');
        return true;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

/// Decodes "=41" to "A".
std::string decodeQuotedPrintable(std::string_view text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '=') {
            bytes += text[at];
            continue;
        }
        const std::string_view digits = text.substr(at + 1, 2);
        unsigned value = 0;
        const char *const end = digits.data() + digits.size();
        if (digits.size() < 2 || std::from_chars(digits.data(), end, value, 16).ptr != end) {
            throw std::invalid_argument("the quoted-printable text is not complete");
        }
        bytes += static_cast<char>(value);
        at += 2;
    }
    return bytes;
}

} // namespace

bool VCardLines::next(UnfoldedLine &line) {
    if (text_.empty()) {
        return false;
    }
    line = {number_ + 1, std::string(takeLine())};
    const std::string head = lowerCase(line.text.substr(0, line.text.find(':')));
    const bool isEncoded = head.find(quotedPrintable) != std::string::npos;
    while (isEncoded && line.text.ends_with('=') && !text_.empty()) {
        line.text.pop_back();
        line.text += takeLine();
    }
    while (text_.starts_with(' ') || text_.starts_with('\t')) {
        line.text += takeLine().substr(keepsBlanks_ ? 0 : 1);
    }
    const bool isVersion = head == "version";
    const bool isBeginning = head == "begin";
    if (isVersion || isBeginning) {
        keepsBlanks_ = isVersion && line.text.find("2.1") != std::string::npos;
    }
    return true;
}

std::string_view VCardLines::takeLine() {
    const std::size_t end = std::min(text_.find('\n'), text_.size());
    std::string_view line = text_.substr(0, end);
    text_.remove_prefix(std::min(end + 1, text_.size()));
    ++number_;
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

bool VCardLine::has(std::string_view parameter, std::string_view wanted) const {
    return std::ranges::any_of(parameters, [&](const Parameter &held) {
        return held.name == parameter && held.value == wanted;
    });
}

std::optional<VCardLine> parseVCardLine(std::string_view text) {
    return LineReader(text).read();
}

std::string decodedValue(const VCardLine &line) {
    if (!line.has("encoding", quotedPrintable) && !line.has("type", quotedPrintable)) {
        return line.value;
    }
    const auto charset = std::ranges::find(line.parameters, "charset", &VCardLine::Parameter::name);
    return decodeAs(charset == line.parameters.end() ? "" : charset->value,
                    decodeQuotedPrintable(line.value));
}

std::vector<std::string_view> escapedParts(std::string_view value, char separator) {
    std::vector<std::string_view> parts;
    std::size_t from = 0;
    for (std::size_t at = 0; at < value.size(); ++at) {
        if (value[at] == '\\') {
            ++at;
        } else if (value[at] == separator) {
            parts.push_back(value.substr(from, at - from));
            from = at + 1;
        }
    }
    parts.push_back(value.substr(from));
    return parts;
}

std::string unescaped(std::string_view value) {
    std::string text;
    for (std::size_t at = 0; at < value.size(); ++at) {
        if (value[at] != '\\' || at + 1 == value.size()) {
            text += value[at];
            continue;
        }
        const char escaped = value[++at];
        text += escaped == 'n' || escaped == 'N' ? '\n' : escaped;
    }
    return text;
}

} // namespace kvex::host
