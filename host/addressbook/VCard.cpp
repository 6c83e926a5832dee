#include "host/addressbook/ContactFile.h"

#include "host/addressbook/NumberCell.h"
#include "host/addressbook/TextEncoding.h"
#include "host/addressbook/VCardLine.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace kvex::host {
namespace {

constexpr std::string_view opening = "BEGIN:VCARD";

bool isType(const VCardLine &line, std::initializer_list<std::string_view> types) {
    return std::ranges::any_of(types,
                               [&](std::string_view type) { return line.has("type", type); });
}

/// The numbers of a TEL line. A line that holds another kind of address gives none.
NumberCell numbersOf(const VCardLine &line) {
    constexpr std::string_view scheme = "tel:";
    if (equalInAscii(line.value.substr(0, scheme.size()), scheme)) {
        return readNumberCell(std::string_view(line.value).substr(0, line.value.find(';')));
    }
    return line.has("value", "uri") ? NumberCell() : readNumberCell(unescaped(line.value));
}

void append(std::string &name, std::string_view part) {
    if (!part.empty()) {
        name.append(name.empty() ? "" : " ").append(part);
    }
}

/// The name in the order in which people say it. `value` is
/// "FAMILY;GIVEN;ADDITIONAL;PREFIXES;SUFFIXES", where each part is a list.
std::string nameOfParts(std::string_view value) {
    constexpr std::array<std::size_t, 5> saidOrder{3, 1, 2, 0, 4};
    const std::vector<std::string_view> parts = escapedParts(value, ';');
    std::string name;
    for (const std::size_t part : saidOrder) {
        if (part < parts.size()) {
            for (const std::string_view word : escapedParts(parts[part], ',')) {
                append(name, unescaped(word));
            }
        }
    }
    return name;
}

/// Joins the parts of "ORGANISATION;UNIT;UNIT" with blanks.
std::string nameOfOrganisation(std::string_view value) {
    std::string name;
    for (const std::string_view unit : escapedParts(value, ';')) {
        append(name, unescaped(unit));
    }
    return name;
}

/// One card, gathered line by line.
class Card {
public:
    explicit Card(std::size_t line) : line_(line) {}

    void take(const UnfoldedLine &text) {
        std::optional<VCardLine> line = parseVCardLine(text.text);
        if (!isUtf8(text.text)) {
            fail(text.number, "the line holds bytes that are not a character");
        } else if (line) {
            take(*line, text.number);
        } else if (!text.text.empty()) {
            fail(text.number, "the line is not one of a vCard");
        }
    }

    void endInto(ContactFile &file) {
        const Numbers &numbers = mobiles_.isEmpty() ? others_ : mobiles_;
        if (version_.empty()) {
            fail(line_, "the card has no version");
        } else if (!numbers.fault.empty()) {
            fail(numbers.faultLine, numbers.fault);
        } else if (numbers.numbers.empty()) {
            fail(line_, "the card has no telephone number");
        }
        if (!reason_.empty()) {
            file.skipped.push_back({failedLine_, reason_});
            return;
        }
        for (const std::u16string &number : numbers.numbers) {
            file.take(line_, {nameFor(number), number});
        }
    }

    void endMissing(ContactFile &file) const {
        file.skipped.push_back({line_, "the card has no END"});
    }

private:
    struct Numbers {
        std::vector<std::u16string> numbers;
        /// The first fault.
        std::string fault;
        std::size_t faultLine = 0;

        [[nodiscard]] bool isEmpty() const { return numbers.empty() && fault.empty(); }
    };

    void take(VCardLine &line, std::size_t number) {
        constexpr std::array<std::string_view, 5> names{"version", "tel", "fn", "n", "org"};
        if (std::ranges::find(names, line.name) == names.end()) {
            return;
        }
        try {
            line.value = decodedValue(line);
            takeDecoded(line, number);
        } catch (const std::invalid_argument &error) {
            fail(number, error.what());
        }
    }

    void takeDecoded(const VCardLine &line, std::size_t number) {
        if (line.name == "version") {
            takeVersion(line.value, number);
        } else if (line.name == "tel") {
            takeNumbers(line, number);
        } else if (line.name == "fn" && full_.empty()) {
            full_ = oneLine(unescaped(line.value));
        } else if (line.name == "n" && parts_.empty()) {
            parts_ = oneLine(nameOfParts(line.value));
        } else if (line.name == "org" && organisation_.empty()) {
            organisation_ = oneLine(nameOfOrganisation(line.value));
        }
    }

    /// An unknown version becomes the reason, even if the card's lines have other faults.
    void takeVersion(const std::string &value, std::size_t number) {
        version_ = toUtf8(oneLine(value));
        if (version_ != "2.1" && version_ != "3.0" && version_ != "4.0") {
            reason_.clear();
            fail(number, "vCard version " + toUtf8(visible(fromUtf8(version_))) +
                             " is not supported, only 2.1, 3.0 and 4.0 are");
        }
    }

    void takeNumbers(const VCardLine &line, std::size_t number) {
        const NumberCell cell = numbersOf(line);
        const bool isMobile = isType(line, {"cell", "mobile"});
        const bool isMachine =
            isType(line, {"fax", "pager", "modem", "bbs"}) && !isType(line, {"voice", "text"});
        if (isMachine && !isMobile) {
            return;
        }
        Numbers &kind = isMobile ? mobiles_ : others_;
        kind.numbers.insert(kind.numbers.end(), cell.numbers.begin(), cell.numbers.end());
        if (kind.fault.empty() && !cell.fault.empty()) {
            kind.fault = cell.fault;
            kind.faultLine = number;
        }
    }

    /// Keeps the first reason.
    void fail(std::size_t line, std::string reason) {
        if (reason_.empty()) {
            failedLine_ = line;
            reason_ = std::move(reason);
        }
    }

    [[nodiscard]] const std::u16string &nameFor(const std::u16string &number) const {
        for (const std::u16string *name : {&full_, &parts_, &organisation_}) {
            if (!name->empty()) {
                return *name;
            }
        }
        return number;
    }

    std::size_t line_;
    std::string version_;
    std::u16string full_;
    std::u16string parts_;
    std::u16string organisation_;
    Numbers mobiles_;
    Numbers others_;
    std::size_t failedLine_ = 0;
    std::string reason_;
};

} // namespace

bool beginsAsVCard(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    return equalInAscii(text.substr(0, opening.size()), opening);
}

ContactFile readVCards(std::string_view text) {
    ContactFile file;
    std::optional<Card> card;
    bool anyCard = false;
    bool outside = false;
    VCardLines lines(text);
    for (UnfoldedLine line; lines.next(line);) {
        const std::string_view content =
            std::string_view(line.text).substr(0, line.text.find_last_not_of(" \t") + 1);
        if (equalInAscii(content, opening)) {
            if (card) {
                card->endMissing(file);
            }
            card.emplace(line.number);
            anyCard = true;
            outside = false;
        } else if (card && equalInAscii(content, "END:VCARD")) {
            card->endInto(file);
            card.reset();
        } else if (card) {
            card->take(line);
        } else if (!content.empty() && !outside) {
            file.skipped.push_back({line.number, "the text belongs to no card"});
            outside = true;
        }
    }
    if (card) {
        card->endMissing(file);
    }
    if (!anyCard) {
        throw std::invalid_argument("It holds no vCard: no line is BEGIN:VCARD.");
    }
    return file;
}

} // namespace kvex::host
