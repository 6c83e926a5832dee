// What a database may hold after a fault.
#pragma once

#include "tests/torture/faults/UserProcess.h"

#include <string>
#include <vector>

namespace kvex::torture {

/// What the database of a scenario holds before and after.
class Judge {
public:
    /// Plays the scenario without a fault and, when it writes several rows, each part of it.
    Judge(const Scenario &scenario, const std::filesystem::path &database,
          const std::filesystem::path &folder);

    /// What is wrong with the course of a fault; "" when it may be so.
    [[nodiscard]] std::string finding(const FaultKind &kind, const Course &course) const;

private:
    [[nodiscard]] bool isAllowed(const FaultKind &kind, const std::string &held) const;

    const Scenario &scenario_;
    std::string before_;
    std::string after_;
    /// After each row of several. The first of them may be as before.
    std::vector<std::string> partly_;
};

} // namespace kvex::torture
