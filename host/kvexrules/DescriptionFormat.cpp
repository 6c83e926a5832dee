#include "host/kvexrules/DescriptionFormat.h"

#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <array>
#include <cstdio>

namespace kvex::host {
namespace {

constexpr std::u16string_view lineBreak = u"\r\n";

std::u16string wholeText(const Description &description) {
    std::u16string text;
    for (const DescriptionRun &run : description) {
        text += run.text;
    }
    return text;
}

/// Converts each line of `text` with `convert` and joins the results with newlines.
template <class Convert> std::string lines(std::u16string_view text, const Convert &convert) {
    std::string result;
    for (;;) {
        const std::size_t end = text.find(lineBreak);
        result += convert(text.substr(0, end));
        if (end == std::u16string_view::npos) {
            return result;
        }
        result += '\n';
        text.remove_prefix(end + lineBreak.size());
    }
}

std::string textRule(std::string_view /*id*/, const Description &description) {
    return lines(wholeText(description), toUtf8) + "\n";
}

std::string visibleTextRule(std::string_view /*id*/, const Description &description) {
    return lines(wholeText(description),
                 [](std::u16string_view piece) { return toUtf8(visible(piece)); }) +
           "\n";
}

struct Colour {
    int red, green, blue;
    explicit Colour(LONG value)
        : red(value & 0xFF), green((value >> 8) & 0xFF), blue((value >> 16) & 0xFF) {}
};

/// Uses the terminal's own blue and red, because users set these to readable colours.
std::string ansiColour(LONG value) {
    constexpr LONG pureBlue = 0xFF0000;
    constexpr LONG pureRed = 0x0000FF;
    if (value == pureBlue || value == pureRed) {
        return value == pureBlue ? "\033[34m" : "\033[31m";
    }
    const Colour colour(value);
    return "\033[38;2;" + std::to_string(colour.red) + ";" + std::to_string(colour.green) + ";" +
           std::to_string(colour.blue) + "m";
}

/// `shown` turns each piece into text without control characters.
std::string coloured(const Description &description,
                     std::u16string (*shown)(std::u16string_view piece)) {
    std::string result;
    for (const DescriptionRun &run : description) {
        result += lines(run.text, [&](std::u16string_view piece) {
            std::string text = toUtf8(shown(piece));
            return run.colour == 0 || text.empty() ? text
                                                   : ansiColour(run.colour) + text + "\033[0m";
        });
    }
    return result + "\n";
}

std::string ansiRule(std::string_view /*id*/, const Description &description) {
    return coloured(description, harmless);
}

std::string visibleAnsiRule(std::string_view /*id*/, const Description &description) {
    return coloured(description, visible);
}

std::string htmlText(std::u16string_view text) {
    std::string result;
    for (const char byte : toUtf8(harmless(text))) {
        switch (byte) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        default:
            result += byte;
        }
    }
    return result;
}

std::string htmlRun(const DescriptionRun &run) {
    std::string text = lines(run.text, htmlText);
    if (run.colour == 0 || text.empty()) {
        return text;
    }
    const Colour colour(run.colour);
    char name[8];
    std::snprintf(name, sizeof name, "#%02x%02x%02x", static_cast<unsigned>(colour.red),
                  static_cast<unsigned>(colour.green), static_cast<unsigned>(colour.blue));
    return "<span style=\"color:" + std::string(name) + "\">" + text + "</span>";
}

std::string htmlRule(std::string_view id, const Description &description) {
    std::string result = "<pre id=\"rule-" + std::string(id) + "\">";
    for (const DescriptionRun &run : description) {
        result += htmlRun(run);
    }
    return result + "</pre>\n";
}

constexpr std::string_view htmlOpening =
    "<!DOCTYPE html>\n"
    "<html xmlns=\"http://www.w3.org/1999/xhtml\" lang=\"en\">\n"
    "<head><meta charset=\"utf-8\"/><title>SMS Rules</title>\n"
    "<style>pre { font-family: sans-serif; white-space: pre-wrap; }</style></head>\n"
    "<body>\n";

constexpr std::array formats{
    DescriptionFormat{"text", "", "\n", "", textRule},
    DescriptionFormat{"ansi", "", "\n", "", ansiRule},
    DescriptionFormat{"html", htmlOpening, "", "</body>\n</html>\n", htmlRule},
};

constexpr DescriptionFormat terminalText{"text", "", "\n", "", visibleTextRule};
constexpr DescriptionFormat terminalColours{"ansi", "", "\n", "", visibleAnsiRule};

} // namespace

std::span<const DescriptionFormat> descriptionFormats() {
    return formats;
}

const DescriptionFormat &textForTerminals() {
    return terminalText;
}

const DescriptionFormat &coloursForTerminals() {
    return terminalColours;
}

} // namespace kvex::host
