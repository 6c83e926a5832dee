#include "host/addressbook/ContactExport.h"

#include "platform/Text.h"

#include <cstddef>
#include <string_view>

namespace kvex::host {
namespace {

constexpr std::string_view lineBreak = "\r\n";

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

/// Breaks a long line into lines that begin with a blank. Never breaks within a character.
std::string folded(std::string_view line) {
    constexpr std::size_t longest = 75;
    std::string text;
    std::size_t room = longest;
    while (line.size() > room) {
        std::size_t end = room;
        while (continuesCharacter(line[end])) {
            --end;
        }
        text.append(line.substr(0, end)).append("\r\n ");
        line.remove_prefix(end);
        room = longest - 1;
    }
    return text.append(line).append(lineBreak);
}

std::string escaped(std::u16string_view value) {
    std::string text;
    for (const char byte : toUtf8(value)) {
        if (byte == '\n') {
            text += "\\n";
        } else if (byte != '\r') {
            text += std::string_view("\\,;").find(byte) == std::string_view::npos ? "" : "\\";
            text += byte;
        }
    }
    return text;
}

std::string quoted(std::u16string_view value) {
    const std::string text = toUtf8(value);
    if (text.find_first_of("\",\r\n") == std::string::npos) {
        return text;
    }
    std::string field = "\"";
    for (const char byte : text) {
        field.append(byte == '"' ? "\"\"" : std::string(1, byte));
    }
    return field + "\"";
}

} // namespace

std::string asVCards(std::span<const Contact> contacts) {
    std::string text;
    for (const Contact &contact : contacts) {
        const std::u16string &name = trimmed(contact.name).empty() ? contact.number : contact.name;
        text.append("BEGIN:VCARD\r\nVERSION:4.0\r\n")
            .append(folded("FN:" + escaped(name)))
            .append(folded("TEL;TYPE=cell:" + escaped(contact.number)))
            .append("END:VCARD\r\n");
    }
    return text;
}

std::string asCsv(std::span<const Contact> contacts) {
    std::string text = "Name,Mobile\r\n";
    for (const Contact &contact : contacts) {
        text.append(quoted(contact.name) + "," + quoted(contact.number)).append(lineBreak);
    }
    return text;
}

} // namespace kvex::host
