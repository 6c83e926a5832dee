#include "adapters/classserver/ClassRegistration.h"

#include "adapters/classserver/ClassDirectories.h"
#include "adapters/classserver/GuidText.h"
#include "adapters/classserver/WholeFile.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <algorithm>
#include <system_error>
#include <utility>
#include <vector>

namespace kvex {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view extension = ".class";

fs::path fileName(const CLSID &classId) {
    return guidText(classId).append(extension);
}

std::string written(const ClassRegistration &registration) {
    std::string text;
    const auto line = [&](std::string_view key, const std::string &value) {
        if (value.find('\n') != std::string::npos) {
            throw Error(error_number::invalidCall);
        }
        text.append(key).append("=").append(value).append("\n");
    };
    line("ProgramId", toUtf8(registration.programId));
    line("Description", toUtf8(registration.description));
    line("Server", registration.server.native());
    return text;
}

std::optional<ClassRegistration> read(const CLSID &classId, std::string_view text) {
    ClassRegistration registration{classId, {}, {}, {}};
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (line.empty() || line.starts_with('#')) {
            continue;
        }
        const std::size_t separator = line.find('=');
        if (separator == std::string_view::npos) {
            return std::nullopt;
        }
        const std::string_view key = line.substr(0, separator);
        const std::string_view value = line.substr(separator + 1);
        if (key == "Server") {
            registration.server = value;
        } else if (key == "ProgramId") {
            registration.programId = fromUtf8(value);
        } else if (key == "Description") {
            registration.description = fromUtf8(value);
        }
    }
    if (!registration.server.is_absolute()) {
        return std::nullopt;
    }
    return registration;
}

std::optional<ClassRegistration> registrationIn(const fs::path &directory, const CLSID &classId) {
    const std::optional<std::string> text = readWholeFile(directory / fileName(classId));
    return text ? read(classId, *text) : std::nullopt;
}

/// The classes that `directory` has files for, by file name.
std::vector<CLSID> classesIn(const fs::path &directory) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator at(directory, error), end; !error && at != end;
         at.increment(error)) {
        if (at->path().extension() == extension) {
            names.push_back(at->path().stem().native());
        }
    }
    std::ranges::sort(names);
    std::vector<CLSID> classes;
    for (const std::string &name : names) {
        if (const auto classId = guidFromText(name)) {
            classes.push_back(*classId);
        }
    }
    return classes;
}

bool isNamed(const ClassRegistration &registration, std::u16string_view programId) {
    const auto lower = [](char16_t letter) {
        const bool isUpper = letter >= u'A' && letter <= u'Z';
        return isUpper ? static_cast<char16_t>(letter - u'A' + u'a') : letter;
    };
    return !programId.empty() &&
           std::ranges::equal(registration.programId, programId, {}, lower, lower);
}

} // namespace

void writeClassRegistration(const ClassRegistration &registration) {
    if (!registration.server.is_absolute()) {
        throw Error(error_number::invalidCall);
    }
    const std::string text = written(registration);
    const std::optional<fs::path> directory = userClassDirectory();
    if (!directory) {
        throw std::system_error(std::make_error_code(std::errc::no_such_file_or_directory));
    }
    fs::create_directories(*directory);
    writeWholeFile(*directory / fileName(registration.classId), text);
}

void removeClassRegistration(const CLSID &classId) {
    if (const auto directory = userClassDirectory()) {
        fs::remove(*directory / fileName(classId));
    }
}

std::optional<ClassRegistration> findClassRegistration(const CLSID &classId) {
    for (const fs::path &directory : classDirectories()) {
        if (auto registration = registrationIn(directory, classId)) {
            return registration;
        }
    }
    return std::nullopt;
}

std::optional<ClassRegistration> findClassRegistration(std::u16string_view programId) {
    for (const fs::path &directory : classDirectories()) {
        for (const CLSID &classId : classesIn(directory)) {
            auto registration = registrationIn(directory, classId);
            if (registration && isNamed(*registration, programId)) {
                return registration;
            }
        }
    }
    return std::nullopt;
}

} // namespace kvex
