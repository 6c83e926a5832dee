// Sets environment variables for a test and restores them afterwards.
#pragma once

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace kvex::host {

class EnvironmentVariables {
public:
    EnvironmentVariables() = default;
    ~EnvironmentVariables() {
        for (const auto &[name, value] : before_) {
            apply(name, value);
        }
    }
    EnvironmentVariables(const EnvironmentVariables &) = delete;
    EnvironmentVariables &operator=(const EnvironmentVariables &) = delete;

    /// Without a value it removes the variable.
    void set(const std::string &name, const std::optional<std::string> &value) {
        const char *held = std::getenv(name.c_str());
        before_.try_emplace(name,
                            held == nullptr ? std::nullopt : std::optional<std::string>(held));
        apply(name, value);
    }

private:
    static void apply(const std::string &name, const std::optional<std::string> &value) {
        if (value) {
            setenv(name.c_str(), value->c_str(), 1);
        } else {
            unsetenv(name.c_str());
        }
    }
    std::map<std::string, std::optional<std::string>> before_;
};

} // namespace kvex::host
