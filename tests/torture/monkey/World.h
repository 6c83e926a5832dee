// The database of a monkey's run: a file with the server's tables, and the other program that uses
// it at the same time.
#pragma once

#include "tests/databases/SqliteFixture.h"
#include "tests/torture/monkey/Event.h"
#include "tests/torture/monkey/Tables.h"

#include <string>

namespace kvex::torture {

/// Lets all worlds stand in memory, unless TMPDIR says where. Synchronising with a disk costs most
/// of the time, and no property depends on it.
void preferMemory();

class World {
public:
    /// Has `rules` rules. `ranking` selects their priorities: 0 for 1, 2, 3, ..., 1 for 10, 20, 30,
    /// ..., and 2 for all 0.
    World(int rules, int ranking);

    /// Gives up at once when the database is locked.
    [[nodiscard]] std::u16string connectionString() const;
    /// Does what an event of the other program says. Each but otherLocks ends its lock. A rule that
    /// is not there is left alone.
    void act(const Event &event);
    [[nodiscard]] bool isLocked() const { return locked_; }
    /// What the tables hold now.
    [[nodiscard]] const Tables &tables();

private:
    void addPeople();
    void addRules(int rules, int ranking);
    /// Changes with each commit of another connection to the file.
    [[nodiscard]] std::u16string version() { return other_.valueOf(u"PRAGMA data_version"); }

    test::TemporaryFolder folder_;
    std::u16string file_;
    test::OtherProgram other_;
    bool locked_ = false;
    int added_ = 0;
    /// The tables as they were at `readVersion_`.
    Tables tables_;
    std::u16string readVersion_;
};

} // namespace kvex::torture
