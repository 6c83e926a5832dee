#include "host/kvexrules/CommandNames.h"

#include "host/kvexrules/Failure.h"

#include <algorithm>
#include <cstddef>

namespace kvex::host {
namespace {

/// How many letters must be inserted, removed, replaced or swapped with the next one.
std::size_t difference(std::string_view left, std::string_view right) {
    std::vector<std::vector<std::size_t>> cost(left.size() + 1,
                                               std::vector<std::size_t>(right.size() + 1));
    for (std::size_t row = 0; row <= left.size(); ++row) {
        for (std::size_t column = 0; column <= right.size(); ++column) {
            if (row == 0 || column == 0) {
                cost[row][column] = row + column;
                continue;
            }
            const bool isSame = left[row - 1] == right[column - 1];
            cost[row][column] =
                std::min({cost[row - 1][column] + 1, cost[row][column - 1] + 1,
                          cost[row - 1][column - 1] + static_cast<std::size_t>(!isSame)});
            if (row > 1 && column > 1 && left[row - 1] == right[column - 2] &&
                left[row - 2] == right[column - 1]) {
                cost[row][column] = std::min(cost[row][column], cost[row - 2][column - 2] + 1);
            }
        }
    }
    return cost[left.size()][right.size()];
}

std::string_view firstWord(std::string_view name) {
    return name.substr(0, name.find(' '));
}

std::string_view secondWord(std::string_view name) {
    const std::size_t blank = name.find(' ');
    return blank == std::string_view::npos ? std::string_view() : name.substr(blank + 1);
}

template <class Part>
std::vector<std::string_view> partsOfNames(CommandTable commands, const Part &part) {
    std::vector<std::string_view> names;
    for (const Command *command : commands) {
        const std::string_view name = part(command->name);
        if (std::ranges::find(names, name) == names.end()) {
            names.push_back(name);
        }
    }
    return names;
}

[[noreturn]] void refuse(std::string_view word, std::span<const std::string_view> names,
                         const std::string &help) {
    throw Failure("There is no command " + inQuotes(word) + "." +
                  nearest(word.substr(word.find_last_of(' ') + 1), names) + " See: " + help);
}

} // namespace

std::string inQuotes(std::string_view word) {
    const std::size_t sign = word.find('=');
    const bool isWhole = sign == std::string_view::npos;
    return "\"" + std::string(word.substr(0, sign)) + (isWhole ? "\"" : "=…\"");
}

std::string joined(std::span<const std::string_view> names, std::string_view conjunction) {
    std::string text;
    for (std::size_t index = 0; index < names.size(); ++index) {
        const bool isLast = index + 1 == names.size();
        text += index == 0 ? "" : isLast ? " " + std::string(conjunction) + " " : ", ";
        text += names[index];
    }
    return text;
}

std::string nearest(std::string_view word, std::span<const std::string_view> names) {
    const auto found = std::ranges::min_element(
        names, {}, [&](std::string_view name) { return difference(word, name); });
    // A third of the letters may be wrong.
    const bool isNear = found != names.end() &&
                        difference(word, *found) <= std::max<std::size_t>(1, found->size() / 3);
    return isNear ? " Did you mean " + std::string(*found) + "?" : "";
}

std::vector<const Command *> commandsUnder(std::string_view first, CommandTable commands) {
    std::vector<const Command *> found;
    std::ranges::copy_if(commands, std::back_inserter(found), [&](const Command *command) {
        return firstWord(command->name) == first && !secondWord(command->name).empty();
    });
    return found;
}

const Command &takeCommand(std::vector<std::string> &words, CommandTable commands) {
    if (words.empty()) {
        return *commands.front();
    }
    std::string name = words.front();
    const std::vector<const Command *> under = commandsUnder(name, commands);
    if (!under.empty()) {
        const std::vector<std::string_view> seconds = partsOfNames(under, secondWord);
        if (words.size() == 1) {
            throw Failure("The command " + name + " needs a second word: " + joined(seconds, "or") +
                          ". See: kvexrules help " + name);
        }
        words.erase(words.begin());
        name += " " + words.front();
    }
    words.erase(words.begin());
    const auto found = std::ranges::find(commands, name, &Command::name);
    if (found != commands.end()) {
        return **found;
    }
    if (under.empty()) {
        refuse(name, partsOfNames(commands, firstWord), "kvexrules help");
    }
    refuse(name, partsOfNames(under, secondWord),
           "kvexrules help " + std::string(firstWord(under.front()->name)));
}

} // namespace kvex::host
