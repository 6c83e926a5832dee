#include "adapters/classserver/server/ModulePath.h"

#include <dlfcn.h>
#include <system_error>

namespace kvex {

std::filesystem::path modulePath() {
    static const char inThisModule = 0;
    Dl_info info{};
    if (::dladdr(&inThisModule, &info) == 0 || info.dli_fname == nullptr) {
        throw std::system_error(std::make_error_code(std::errc::no_such_file_or_directory));
    }
    return std::filesystem::absolute(info.dli_fname);
}

} // namespace kvex
