// What keeps a server loaded: its objects that are alive, and the locks that its users hold.
#pragma once

namespace kvex::module_count {

void addObject() noexcept;
void removeObject() noexcept;

void addLock() noexcept;
/// False when there is no lock to remove.
[[nodiscard]] bool removeLock() noexcept;

[[nodiscard]] bool isInUse() noexcept;

} // namespace kvex::module_count
