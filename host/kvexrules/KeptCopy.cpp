#include "host/kvexrules/KeptCopy.h"

#include "host/kvexrules/Failure.h"
#include "host/kvexrules/UserFiles.h"
#include "host/suite/UserFolders.h"

#include <array>
#include <ctime>
#include <string>

namespace kvex::host {
namespace {

std::string momentNow() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    gmtime_r(&now, &parts);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y%m%dT%H%M%SZ", &parts)};
}

} // namespace

std::filesystem::path keepCopy(std::string_view document) {
    if (stateFolder().empty()) {
        throw Failure("A copy of the rules cannot be kept, because there is no home folder. "
                      "Nothing was changed. Set HOME or XDG_STATE_HOME.");
    }
    const std::filesystem::path folder = stateFolder() / "replaced";
    if (const std::error_code failure = makeOwnFolder(folder)) {
        throw Failure("A copy of the rules cannot be kept, because the folder " + folder.string() +
                      " cannot be created (" + failure.message() +
                      "). Nothing was changed. Make the folder.");
    }
    const std::string name = "rules-" + momentNow();
    std::filesystem::path file = folder / (name + ".json");
    for (int number = 2; std::filesystem::exists(file); ++number) {
        file = folder / (name + "-" + std::to_string(number) + ".json");
    }
    writeOwnersFile(file.string(), document, false);
    return file;
}

} // namespace kvex::host
