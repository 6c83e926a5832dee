#include "adapters/classserver/server/ModuleCount.h"

#include <atomic>
#include <cstddef>

namespace kvex::module_count {
namespace {

std::atomic<std::size_t> objects{0};
std::atomic<std::size_t> locks{0};

} // namespace

void addObject() noexcept {
    ++objects;
}
void removeObject() noexcept {
    --objects;
}

void addLock() noexcept {
    ++locks;
}
bool removeLock() noexcept {
    std::size_t held = locks;
    while (held > 0) {
        if (locks.compare_exchange_weak(held, held - 1)) {
            return true;
        }
    }
    return false;
}

bool isInUse() noexcept {
    return objects > 0 || locks > 0;
}

} // namespace kvex::module_count
