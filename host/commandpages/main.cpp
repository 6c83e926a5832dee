// Writes the files that are made from the table of commands: write_command_pages FOLDER DATE
#include "host/commandpages/CommandPages.h"

#include <filesystem>
#include <fstream>
#include <iostream>

int main(int count, char **arguments) {
    using namespace kvex::host;
    if (count != 3) {
        std::cerr << "usage: write_command_pages FOLDER DATE\n";
        return 2;
    }
    const std::filesystem::path folder = arguments[1];
    const std::pair<const char *, std::string> pages[]{
        {"kvexrules.1", manualPage(commands(), arguments[2])},
        {"kvexrules", bashCompletion(commands())},
        {"_kvexrules", zshCompletion(commands())},
        {"kvexrules.fish", fishCompletion(commands())},
        {"commands.md", commandsDocument(commands())},
    };
    std::filesystem::create_directories(folder);
    for (const auto &[name, text] : pages) {
        std::ofstream file(folder / name, std::ios::binary);
        file << text;
        if (!file.flush()) {
            std::cerr << "write_command_pages: cannot write " << (folder / name).string() << "\n";
            return 1;
        }
    }
    return 0;
}
