// Contact files of any bytes are read without a crash. Each contact that is taken can be dialled
// and stored, and it comes back from an export.
//
// The first byte chooses between vCards and a table; the rest is the file.
#include "fuzz/Input.h"
#include "fuzz/Property.h"
#include "host/addressbook/ContactExport.h"
#include "host/addressbook/ContactFile.h"
#include "host/addressbook/TextEncoding.h"
#include "platform/Text.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <vector>

namespace kvex::fuzz {
namespace {

using host::Contact;
using host::ContactFile;
using host::FileContact;

/// Nothing for a file that cannot be read. That must be said in words.
std::optional<ContactFile> readFile(std::string_view bytes, bool isVCard) {
    try {
        return host::readContactFile(bytes, isVCard);
    } catch (const std::invalid_argument &error) {
        require(std::string_view(error.what()).size() > 1, "a refusal has a reason");
        return std::nullopt;
    }
}

void requireStorable(std::u16string_view text, std::string_view property) {
    constexpr std::size_t longest = 255;
    const bool isOneLine = std::ranges::none_of(text, [](char16_t unit) { return unit < u' '; });
    require(!text.empty() && text.size() <= longest && isOneLine && trimmed(text) == text, property,
            text);
}

void requireExportReadsBack(const ContactFile &file, const std::string &exported, bool isVCard) {
    const std::optional<ContactFile> again = readFile(exported, isVCard);
    require(again.has_value(), "an export can be read", fromUtf8(exported));
    for (std::size_t at = 0; at < std::min(again->contacts.size(), file.contacts.size()); ++at) {
        requireEqual(again->contacts[at].name, file.contacts[at].name, "an export keeps the name");
        requireEqual(again->contacts[at].number, file.contacts[at].number,
                     "an export keeps the number");
    }
    require(again->contacts.size() == file.contacts.size() && again->skipped.empty() &&
                !again->isGuessedEncoding,
            "an export keeps each contact", fromUtf8(exported));
}

void requireShortLines(std::string_view vcards) {
    constexpr std::size_t longest = 75;
    while (!vcards.empty()) {
        const std::string_view line = vcards.substr(0, vcards.find("\r\n"));
        require(line.size() <= longest && host::isUtf8(line), "a vCard's line is short and whole",
                fromUtf8(line));
        vcards.remove_prefix(std::min(line.size() + 2, vcards.size()));
    }
}

void check(Input input) {
    const bool isVCard = input.flag();
    const std::optional<ContactFile> file = readFile(input.rest(), isVCard);
    if (!file) {
        return;
    }
    for (const host::SkippedEntry &skipped : file->skipped) {
        require(skipped.line > 0 && !skipped.reason.empty() && !skipped.reason.ends_with('.'),
                "what is skipped has a line and a reason", fromUtf8(skipped.reason));
    }
    std::vector<Contact> contacts;
    for (const FileContact &contact : file->contacts) {
        requireStorable(contact.name, "a name fits in its column");
        requireStorable(contact.number, "a number fits in its column");
        require(host::hasDigit(contact.number), "a number has a digit", contact.number);
        contacts.push_back({u"1", contact.name, contact.number});
    }
    if (!contacts.empty()) {
        const std::string vcards = host::asVCards(contacts);
        requireShortLines(vcards);
        requireExportReadsBack(*file, vcards, true);
        requireExportReadsBack(*file, host::asCsv(contacts), false);
    }
}

} // namespace
} // namespace kvex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    kvex::fuzz::check(kvex::fuzz::Input(data, size));
    return 0;
}
