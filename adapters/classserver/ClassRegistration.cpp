#include "adapters/classserver/ClassRegistration.h"

#include "adapters/classserver/GuidText.h"
#include "platform/Error.h"
#include "platform/Text.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <random>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace kvex {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view extension = ".class";

/// "" in a program that has more rights than its user, who may not choose what it loads.
std::string_view variable(const char *name) {
    const char *value = ::secure_getenv(name);
    return value == nullptr ? "" : value;
}

fs::path classesBelow(const fs::path &dataDirectory) {
    return dataDirectory / "kvex" / "classes";
}

void require(bool done) {
    if (!done) {
        throw std::system_error(errno, std::generic_category());
    }
}

/// A new file in the same directory as the file that it will replace. The destructor removes it
/// unless it has replaced that file.
class Replacement {
public:
    explicit Replacement(const fs::path &file) {
        constexpr mode_t mode = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
        constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
        do {
            name_ = file.native() + "." + std::to_string(std::random_device()());
            descriptor_ = ::open(name_.c_str(), flags, mode); // NOLINT(*-vararg)
        } while (descriptor_ < 0 && errno == EEXIST);
        require(descriptor_ >= 0);
    }
    Replacement(const Replacement &) = delete;
    Replacement &operator=(const Replacement &) = delete;
    ~Replacement() {
        if (descriptor_ >= 0) {
            ::close(descriptor_);
        }
        if (!name_.empty()) {
            ::unlink(name_.c_str());
        }
    }

    void write(std::string_view text) const {
        while (!text.empty()) {
            const ssize_t count = ::write(descriptor_, text.data(), text.size());
            require(count >= 0 || errno == EINTR);
            text.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
        }
        require(::fsync(descriptor_) == 0);
    }
    void replace(const fs::path &file) {
        require(::close(std::exchange(descriptor_, -1)) == 0);
        fs::rename(name_, file);
        name_.clear();
    }

private:
    std::string name_;
    int descriptor_ = -1;
};

/// Nothing when `file` is no regular file or cannot be read.
std::optional<std::string> readWholeFile(const fs::path &file) {
    std::error_code error;
    if (!fs::is_regular_file(file, error)) {
        return std::nullopt;
    }
    std::ifstream stream(file, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    return stream.is_open() && !stream.bad() ? std::optional(std::move(text)) : std::nullopt;
}

/// Replaces the contents of `file` in one step; the umask says who may use it. Throws a
/// std::system_error on failure; `file` is unchanged then.
void writeWholeFile(const fs::path &file, std::string_view text) {
    Replacement replacement(file);
    replacement.write(text);
    replacement.replace(file);
}

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
    if (registration.server.empty()) {
        return std::nullopt;
    }
    return registration;
}

std::optional<ClassRegistration> registrationIn(const fs::path &directory, const CLSID &classId) {
    const std::optional<std::string> text = readWholeFile(directory / fileName(classId));
    auto registration = text ? read(classId, *text) : std::nullopt;
    if (registration && registration->server.is_relative()) {
        const fs::path server = registration->server;
        std::error_code error;
        registration->server =
            fs::weakly_canonical(directory / server.parent_path(), error) / server.filename();
        if (error) {
            return std::nullopt;
        }
    }
    return registration;
}

/// The classes that have a file in `directory`, in the order of the file names.
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

std::optional<fs::path> userClassDirectory() {
    if (const fs::path data = variable("XDG_DATA_HOME"); data.is_absolute()) {
        return classesBelow(data);
    }
    if (const fs::path home = variable("HOME"); home.is_absolute()) {
        return classesBelow(home / ".local" / "share");
    }
    return std::nullopt;
}

std::vector<fs::path> classDirectories() {
    std::vector<fs::path> directories;
    if (auto user = userClassDirectory()) {
        directories.push_back(*std::move(user));
    }
    std::string_view rest = variable("XDG_DATA_DIRS");
    if (rest.empty()) {
        rest = "/usr/local/share:/usr/share";
    }
    while (!rest.empty()) {
        const std::string_view item = rest.substr(0, rest.find(':'));
        rest.remove_prefix(std::min(item.size() + 1, rest.size()));
        if (const fs::path data = item; data.is_absolute()) {
            directories.push_back(classesBelow(data));
        }
    }
    return directories;
}

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
