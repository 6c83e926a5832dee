#include "adapters/classserver/WholeFile.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace kvex {
namespace {

void require(bool done) {
    if (!done) {
        throw std::system_error(errno, std::generic_category());
    }
}

/// A new file beside the one it is to replace; removed again unless it did.
class Replacement {
public:
    explicit Replacement(const std::filesystem::path &file)
        : name_(file.native() + ".XXXXXX"), descriptor_(::mkstemp(name_.data())) {
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
        require(::fchmod(descriptor_, S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH) == 0);
        require(::fsync(descriptor_) == 0);
    }
    void replace(const std::filesystem::path &file) {
        require(::close(std::exchange(descriptor_, -1)) == 0);
        std::filesystem::rename(name_, file);
        name_.clear();
    }

private:
    std::string name_;
    int descriptor_;
};

} // namespace

std::optional<std::string> readWholeFile(const std::filesystem::path &file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) {
        return std::nullopt;
    }
    std::ifstream stream(file, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    return stream.is_open() && !stream.bad() ? std::optional(std::move(text)) : std::nullopt;
}

void writeWholeFile(const std::filesystem::path &file, std::string_view text) {
    Replacement replacement(file);
    replacement.write(text);
    replacement.replace(file);
}

} // namespace kvex
