#include "adapters/classserver/ClassObjects.h"

#include <algorithm>

namespace kvex::classserver {

std::uint32_t ClassObjects::add(const CLSID &classId, IUnknown &classObject) {
    const std::lock_guard lock(mutex_);
    entries_.emplace(last_ + 1, Entry{classId, ComPointer<IUnknown>(&classObject)});
    return ++last_;
}

bool ClassObjects::remove(std::uint32_t registration) noexcept {
    // Released when the table is free again: what it then does may need the table.
    decltype(entries_)::node_type removed;
    const std::lock_guard lock(mutex_);
    removed = entries_.extract(registration);
    return !removed.empty();
}

ComPointer<IUnknown> ClassObjects::find(const CLSID &classId) const noexcept {
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(entries_.rbegin(), entries_.rend(), [&](const auto &entry) {
        return entry.second.classId == classId;
    });
    return found == entries_.rend() ? ComPointer<IUnknown>() : found->second.object;
}

} // namespace kvex::classserver
