// The steps of a user that write to the database, from opening the session to its end.
#pragma once

#include "tests/editors/Editor.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace kvex::torture {

/// Presses the button that writes. The torture decides how often, and what goes wrong meanwhile.
using Press = std::function<void(const std::function<void()> &button)>;

struct Scenario {
    std::string name;
    /// How many rules the database holds before.
    int rules;
    /// Runs a session and calls `press` once, when everything but the button is done. A repetition
    /// does nothing when the window has closed, or when the row is gone.
    void (*play)(test::Editor &editor, const Press &press);
    /// The second press undoes what the first one did.
    bool toggles = false;
    /// The statements by which another program would do the same, one row after the other. Empty
    /// when the button writes a single row.
    std::vector<std::string> rowByRow{};
};

/// Saving, ticking, removing and ordering.
[[nodiscard]] std::vector<Scenario> scenarios();

/// Creates the scenario's database, with rows in its other tables.
void prepareDatabase(const Scenario &scenario, const std::filesystem::path &file);

} // namespace kvex::torture
