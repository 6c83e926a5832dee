#include "tests/recordset/Faults.h"

#include <csignal>
#include <stdexcept>
#include <unistd.h>

namespace kvex::test {
namespace {

constexpr uid_t nobody = 65534;

void setRights(const std::filesystem::path &path, std::uint16_t rights) {
    std::filesystem::permissions(path, static_cast<std::filesystem::perms>(rights));
}

void become(uid_t user) {
    if (seteuid(user) != 0) {
        throw std::runtime_error("cannot change the user");
    }
}

} // namespace

WithoutRights::WithoutRights(const std::filesystem::path &folder, const std::filesystem::path &file,
                             FolderRights folderRights, FileRights fileRights)
    : folder_(folder), user_(geteuid()) {
    setRights(file, static_cast<std::uint16_t>(fileRights));
    setRights(folder_, static_cast<std::uint16_t>(folderRights));
    if (user_ == 0) {
        become(nobody);
    }
}

WithoutRights::~WithoutRights() {
    if (user_ == 0 && seteuid(0) != 0) {
        std::abort();
    }
    std::error_code ignored;
    std::filesystem::permissions(folder_, std::filesystem::perms::owner_all, ignored);
}

FileSizeLimit::FileSizeLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit limit = before_;
    limit.rlim_cur = bytes;
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) {
        throw std::runtime_error("cannot limit the size of files");
    }
}

FileSizeLimit::~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
}

} // namespace kvex::test
