// The contract of a toolkit's library: it exports one function, kvexToolkit. The libraries with
// windows load it at run time, so none of them links a toolkit.
#pragma once

#include "platform/controls/Toolkit.h"

#include <string>

namespace kvex {

/// What a toolkit's library gives. Toolkit is a C++ class, so only code of the same version can use
/// it. A caller compares `version` before it reads anything else. The function and the first member
/// stay the same in all versions.
struct ToolkitLibrary {
    /// The version of the product that the library belongs to: KVEX_VERSION.
    const char *version;
    /// What the toolkit runs on, with its version, such as "Qt 6.4.2".
    const char *runtime;
    /// The process has one. It needs no display before its first window.
    Toolkit *toolkit;
    /// Why this process cannot show windows with the toolkit now, and what to do, in sentences; ""
    /// when it can. Opens no window and leaves a terminal as it is. Any thread may call it.
    std::u16string (*obstacle)();
};

} // namespace kvex

/// Always gives the same object, which lives until the process ends. Never null.
extern "C" __attribute__((visibility("default"))) const kvex::ToolkitLibrary *
kvexToolkit() noexcept;
