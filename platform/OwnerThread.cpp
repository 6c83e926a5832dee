#include "platform/OwnerThread.h"

#include "platform/Text.h"

#include <filesystem>
#include <fstream>

namespace kvex {
namespace {

// The system shows the threads of this process as folders.
constexpr const char *thisThread = "/proc/thread-self";
constexpr const char *threads = "/proc/self/task/";

} // namespace

OwnerThread::OwnerThread() {
    std::error_code unknown;
    number_ = std::filesystem::read_symlink(thisThread, unknown).filename().native();
}

std::u16string OwnerThread::text() const {
    if (number_.empty()) {
        return u"another thread";
    }
    const std::u16string thread = u"the thread " + fromUtf8(number_);
    std::ifstream file(threads + number_ + "/comm");
    std::string name;
    return std::getline(file, name) ? thread + u" (" + fromUtf8(name) + u")"
                                    : thread + u", which has ended";
}

} // namespace kvex
