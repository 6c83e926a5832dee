// Gives a test its own data directories in place of the user's and the system's.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

/// While it lives, the environment variable has this value, or does not exist if there is none.
class Variable {
public:
    Variable(const char *name, const std::optional<std::string> &value) : name_(name) {
        if (const char *held = std::getenv(name)) {
            held_ = held;
        }
        assign(value);
    }
    Variable(const Variable &) = delete;
    Variable &operator=(const Variable &) = delete;
    ~Variable() { assign(held_); }

private:
    void assign(const std::optional<std::string> &value) const {
        if (value) {
            ::setenv(name_, value->c_str(), 1);
        } else {
            ::unsetenv(name_);
        }
    }

    const char *name_;
    std::optional<std::string> held_;
};

class DataDirectories : public testing::Test {
protected:
    [[nodiscard]] std::filesystem::path userClasses() const { return root_ / "user/kvex/classes"; }
    [[nodiscard]] std::filesystem::path firstSystemClasses() const {
        return root_ / "first/kvex/classes";
    }
    [[nodiscard]] std::filesystem::path secondSystemClasses() const {
        return root_ / "second/kvex/classes";
    }
    [[nodiscard]] const std::filesystem::path &root() const { return root_; }

    static void put(const std::filesystem::path &file, std::string_view text) {
        std::filesystem::create_directories(file.parent_path());
        std::ofstream stream(file, std::ios::binary);
        stream << text;
        ASSERT_TRUE(stream.flush().good());
    }

    DataDirectories() = default;
    ~DataDirectories() override {
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }

private:
    static std::filesystem::path newDirectory() {
        std::string name = (std::filesystem::temp_directory_path() / "kvex.XXXXXX").native();
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("cannot create a temporary directory");
        }
        return name;
    }

    std::filesystem::path root_ = newDirectory();
    Variable home_{"XDG_DATA_HOME", (root_ / "user").native()};
    Variable system_{"XDG_DATA_DIRS",
                     (root_ / "first").native() + ":" + (root_ / "second").native()};
};
