// Writes what was read of a contact file as lines that tests compare.
#pragma once

#include "host/addressbook/ContactFile.h"
#include "platform/Text.h"

#include <string>
#include <vector>

namespace kvex::host {

using Lines = std::vector<std::string>;

/// "NAME: NUMBER" for each contact, then "LINE: REASON" for each skipped entry.
inline Lines linesOf(const ContactFile &file) {
    Lines lines;
    for (const FileContact &contact : file.contacts) {
        lines.push_back(toUtf8(contact.name + u": " + contact.number));
    }
    for (const SkippedEntry &skipped : file.skipped) {
        lines.push_back(std::to_string(skipped.line) + ": " + skipped.reason);
    }
    return lines;
}

} // namespace kvex::host
