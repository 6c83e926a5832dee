#include "host/addressbook/VCardLine.h"

#include "host/addressbook/ContactFile.h"

#include <algorithm>

namespace kvex::host {
namespace {

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

} // namespace

std::vector<UnfoldedLine> unfoldedLines(std::string_view text) {
    std::vector<UnfoldedLine> lines;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        if (!lines.empty() && (line.starts_with(' ') || line.starts_with('\t'))) {
            lines.back().text += line.substr(1);
        } else {
            lines.push_back({number, std::string(line)});
        }
    }
    return lines;
}

bool VCardLine::has(std::string_view parameter, std::string_view wanted) const {
    return std::ranges::any_of(parameters, [&](const Parameter &held) {
        return held.name == parameter && held.value == wanted;
    });
}

std::optional<VCardLine> parseVCardLine(std::string_view text) {
    return LineReader(text).read();
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
