// The kinds of faults, and where each one strikes.
#pragma once

#include "tests/support/WatchedDatabase.h"
#include "tests/torture/faults/Countdown.h"
#include "tests/torture/storage/WatchedFiles.h"

#include <memory>
#include <string>
#include <vector>

namespace kvex::torture {

/// A fault that is ready to strike in this process.
class Fault {
public:
    Fault() = default;
    virtual ~Fault() = default;
    Fault(const Fault &) = delete;
    Fault &operator=(const Fault &) = delete;

    /// Point `number` from now on fails; points count from 0.
    virtual void arm(std::uint64_t number) = 0;
    /// A fault that passes strikes no more. True when the fault has struck.
    virtual bool disarm() = 0;
    /// Lets a file operation happen or not.
    [[nodiscard]] virtual Answer at(const FileOperation & /*operation*/) { return {}; }
};

/// What a kind of fault leaves possible.
struct Expected {
    /// The fault ends with the first press, so the second one must succeed.
    bool passes = false;
    /// The database must not hold a part of what the press writes in several rows.
    bool keepsOrder = false;
    /// The user can be told of it.
    bool canTell = true;
};

struct FaultKind {
    /// The part that fails: "driver", "file", "SQLite's memory" or "new".
    std::string where;
    std::string name;
    std::unique_ptr<Fault> (*make)(test::WatchedDatabase &database);
    Expected expected{};
};

[[nodiscard]] std::vector<FaultKind> faultKinds();

} // namespace kvex::torture
