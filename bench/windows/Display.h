// The display that benchmarks show windows on.
#pragma once

namespace kvex::bench {

/// A virtual display and Qt's application on it, made on the first call; both stay until the
/// program ends.
void requireDisplay();

} // namespace kvex::bench
