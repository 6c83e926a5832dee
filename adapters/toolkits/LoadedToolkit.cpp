#include "adapters/toolkits/LoadedToolkit.h"

#include "adapters/toolkits/ToolkitLibrary.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <algorithm>
#include <cstdlib>
#include <dlfcn.h>
#include <utility>

namespace kvex::toolkits {
namespace {

/// Either a library or the problem with it.
struct Attempt {
    const ToolkitLibrary *library = nullptr;
    std::u16string problem;
};

struct Choice {
    std::string_view name;
    Toolkit *toolkit;
};

Attempt refused(const KnownToolkit &toolkit, const std::u16string &problem) {
    return {nullptr, u"The toolkit \"" + fromUtf8(toolkit.name) + u"\" cannot be used" + problem};
}

std::filesystem::path fileOf(const KnownToolkit &toolkit, const std::filesystem::path &folder) {
    return folder / toolkit.file;
}

Attempt load(const KnownToolkit &toolkit, const std::filesystem::path &folder) {
    const std::filesystem::path file = fileOf(toolkit, folder);
    const std::u16string name = fromUtf8(file.native());
    std::error_code ignored;
    if (!std::filesystem::exists(file, ignored)) {
        return refused(toolkit, u": " + name + u" does not exist. Install this library.");
    }
    void *const handle = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) {
        const char *const reason = ::dlerror();
        return refused(toolkit, u": " + name + u" cannot be loaded (" +
                                    fromUtf8(reason == nullptr ? "" : reason) + u"). Install " +
                                    std::u16string(toolkit.needs) +
                                    u". If that does not help, install the library again.");
    }
    const auto entry = reinterpret_cast<decltype(&kvexToolkit)>(::dlsym(handle, "kvexToolkit"));
    if (entry == nullptr) {
        ::dlclose(handle);
        return refused(toolkit,
                       u": " + name + u" is not the library of a toolkit. Install it again.");
    }
    const ToolkitLibrary *const library = entry();
    if (const std::string_view version = library->version; version != KVEX_VERSION) {
        Attempt attempt =
            refused(toolkit, u": " + name + u" is of version " + fromUtf8(version) +
                                 u", and version " + fromUtf8(KVEX_VERSION) +
                                 u" is needed. Install all libraries of the program again, in "
                                 u"one version.");
        ::dlclose(handle);
        return attempt;
    }
    return {library, {}};
}

/// Loads the library unless it cannot show windows here.
Attempt loadToShow(const KnownToolkit &toolkit, const std::filesystem::path &folder) {
    Attempt attempt = load(toolkit, folder);
    if (attempt.library != nullptr) {
        if (const std::u16string obstacle = attempt.library->obstacle(); !obstacle.empty()) {
            return refused(toolkit, u". " + obstacle);
        }
    }
    return attempt;
}

[[noreturn]] void refuse(const std::u16string &why) {
    throw Error(error_number::cannotCreateObject, u"No window can be shown. " + why);
}

[[noreturn]] void refuseUnknown(std::string_view chosen, std::span<const KnownToolkit> known) {
    std::u16string names;
    for (const KnownToolkit &toolkit : known) {
        names.append(names.empty() ? u"" : u" or ").append(fromUtf8(toolkit.name));
    }
    constexpr std::size_t longest = 40;
    refuse(u"$KVEX_TOOLKIT is " + quoted(fromUtf8(chosen), longest) +
           u", and no toolkit has this name. Set it to " + names + u", or unset it.");
}

/// The toolkits that may be taken: the one that the user chose, or all.
std::span<const KnownToolkit> candidates(std::span<const KnownToolkit> known) {
    const char *const value = ::secure_getenv("KVEX_TOOLKIT");
    const std::string_view chosen = value == nullptr ? "" : value;
    if (chosen.empty()) {
        return known;
    }
    const auto found = std::ranges::find(known, chosen, &KnownToolkit::name);
    if (found == known.end()) {
        refuseUnknown(chosen, known);
    }
    return {found, 1};
}

Choice chooseFrom(std::span<const KnownToolkit> known, const std::filesystem::path &folder) {
    std::u16string problems;
    for (const KnownToolkit &toolkit : candidates(known)) {
        const Attempt attempt = loadToShow(toolkit, folder);
        if (attempt.library != nullptr) {
            return {toolkit.name, attempt.library->toolkit};
        }
        problems.append(problems.empty() ? u"" : u" ").append(attempt.problem);
    }
    refuse(problems);
}

} // namespace

LoadedToolkit::LoadedToolkit(std::filesystem::path folder, std::span<const KnownToolkit> known)
    : folder_(std::move(folder)), known_(known) {}

std::unique_ptr<Window> LoadedToolkit::createWindow(const WindowDesign &design) {
    return loaded().createWindow(design);
}

std::int32_t LoadedToolkit::showMessageBox(const std::u16string &title, const std::u16string &text,
                                           std::int32_t style) {
    return loaded().showMessageBox(title, text, style);
}

Clipboard &LoadedToolkit::clipboard() {
    return loaded().clipboard();
}

Toolkit &LoadedToolkit::loaded() {
    const std::lock_guard lock(mutex_);
    if (toolkit_ == nullptr) {
        toolkit_ = chooseFrom(known_, folder_).toolkit;
    }
    return *toolkit_;
}

std::string_view chosenToolkit(const std::filesystem::path &folder,
                               std::span<const KnownToolkit> known) {
    return chooseFrom(known, folder).name;
}

std::vector<FoundToolkit> foundToolkits(const std::filesystem::path &folder,
                                        std::span<const KnownToolkit> known) {
    std::vector<FoundToolkit> found;
    for (const KnownToolkit &toolkit : known) {
        std::error_code ignored;
        if (std::filesystem::exists(fileOf(toolkit, folder), ignored)) {
            Attempt attempt = load(toolkit, folder);
            found.push_back({toolkit.name,
                             attempt.library == nullptr ? "" : attempt.library->runtime,
                             std::move(attempt.problem)});
        }
    }
    return found;
}

} // namespace kvex::toolkits
