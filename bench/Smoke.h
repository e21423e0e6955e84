// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Under the test bench.smoke (CHATTELBOOK_BENCH_SMOKE set) every benchmark
// runs one short pass, whatever time it asks for when measuring.

#include <cstdlib>

namespace cb::bench {

inline double MinTime(double seconds) { return std::getenv("CHATTELBOOK_BENCH_SMOKE") ? 1e-9 : seconds; }

}  // namespace cb::bench
