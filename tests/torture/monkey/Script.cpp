#include "tests/torture/monkey/Script.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

namespace kvex::torture {

Lines readScript(const std::string &file) {
    std::ifstream stream(file);
    if (!stream) {
        throw std::runtime_error("cannot read " + file);
    }
    Lines lines;
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty() && line.front() != '#') {
            lines.push_back(line);
        }
    }
    return lines;
}

Lines shortest(Lines script, const std::function<bool(const Lines &)> &fails,
               std::size_t attempts) {
    for (std::size_t part = script.size() / 2; part > 0;) {
        bool shortened = false;
        // From the end, because most of what is needed stands at the beginning.
        for (std::size_t end = script.size(); end > 1;) {
            const std::size_t from = std::max<std::size_t>(end - std::min(part, end), 1);
            Lines rest(script.begin(), script.begin() + static_cast<std::ptrdiff_t>(from));
            rest.insert(rest.end(), script.begin() + static_cast<std::ptrdiff_t>(end),
                        script.end());
            if (attempts-- == 0) {
                return script;
            }
            if (fails(rest)) {
                script = std::move(rest);
                shortened = true;
            }
            end = from;
        }
        if (part > 1) {
            part = part / 2;
        } else if (!shortened) {
            break;
        }
    }
    return script;
}

} // namespace kvex::torture
