#include "host/kvexrules/ContactFiles.h"

#include "host/kvexrules/Failure.h"
#include "host/kvexrules/UserFiles.h"

#include <filesystem>
#include <stdexcept>

namespace kvex::host {

ContactFile readContactsFrom(const std::string &file) {
    const std::string ending = lowerCase(std::filesystem::path(file).extension().string());
    try {
        return readContactFile(contentOf(file, "a vCard or CSV file"),
                               ending == ".vcf" || ending == ".vcard");
    } catch (const std::invalid_argument &error) {
        throw Failure(inputName(file) + " holds no contacts that can be read. " + error.what());
    }
}

} // namespace kvex::host
