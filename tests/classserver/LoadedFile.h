// Whether a library is loaded in this process.
#pragma once

#include <dlfcn.h>

[[nodiscard]] inline bool isLoaded(const char *file) {
    void *handle = ::dlopen(file, RTLD_LAZY | RTLD_NOLOAD);
    if (handle == nullptr) {
        return false;
    }
    ::dlclose(handle);
    return true;
}
