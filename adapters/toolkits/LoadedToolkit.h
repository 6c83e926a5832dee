// Chooses a toolkit and loads its library when the first window needs it.
#pragma once

#include "platform/controls/Toolkit.h"

#include <array>
#include <filesystem>
#include <mutex>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvex::toolkits {

/// A toolkit that the product can use.
struct KnownToolkit {
    /// Its name in $KVEX_TOOLKIT.
    std::string_view name;
    /// The file of its library.
    std::string_view file;
    /// What its library needs from the system, for the user who must install it.
    std::u16string_view needs;
};

/// The first one that can be loaded, and can show windows here, is taken.
inline constexpr std::array knownToolkits{
    KnownToolkit{"qt", "libKVEXQt.so", u"Qt 6 Widgets (on Debian libqt6widgets6)"},
    KnownToolkit{"terminal", "libKVEXTerminal.so",
                 u"terminfo and utf8proc (on Debian libtinfo6 and libutf8proc2)"},
};

/// The toolkit of a library in `folder`. The first call that needs one loads it: the one that
/// $KVEX_TOOLKIT names, else the first known one that can show windows here. It then stays. All
/// objects of a process that load the same file share one toolkit. The variable does not count in a
/// program that has more rights than its user.
///
/// Each call fails with cannotCreateObject when no toolkit can be used. The description says why
/// and what to do. The next call tries again, but a library of another version stays loaded. Any
/// thread may call it.
class LoadedToolkit final : public Toolkit {
public:
    explicit LoadedToolkit(std::filesystem::path folder,
                           std::span<const KnownToolkit> known = knownToolkits);

    [[nodiscard]] std::unique_ptr<Window> createWindow(const WindowDesign &design) override;
    std::int32_t showMessageBox(const std::u16string &title, const std::u16string &text,
                                std::int32_t style) override;
    [[nodiscard]] Clipboard &clipboard() override;

private:
    Toolkit &loaded();

    std::filesystem::path folder_;
    std::span<const KnownToolkit> known_;
    std::mutex mutex_;
    Toolkit *toolkit_ = nullptr;
};

/// The name of the toolkit that a LoadedToolkit of `folder` would take now. Fails as its calls do.
[[nodiscard]] std::string_view chosenToolkit(const std::filesystem::path &folder,
                                             std::span<const KnownToolkit> known = knownToolkits);

/// A toolkit whose library is installed.
struct FoundToolkit {
    std::string_view name;
    /// What it runs on, with its version, such as "Qt 6.4.2"; "" when it cannot be used.
    std::string runtime;
    /// Why it cannot be used, and what to do; "" when it can.
    std::u16string problem;
};

/// The known toolkits whose libraries are in `folder`. Loads them, and needs no display.
[[nodiscard]] std::vector<FoundToolkit>
foundToolkits(const std::filesystem::path &folder,
              std::span<const KnownToolkit> known = knownToolkits);

} // namespace kvex::toolkits
