// SPDX-License-Identifier: GPL-3.0-or-later
// Under the test bench.smoke (CHATTELBOOK_BENCH_SMOKE set) every benchmark
// runs one short pass: the time or count a benchmark asks for gives way to
// the command line's --benchmark_min_time. The linker routes each call of the
// two here (-Wl,--wrap in bench/CMakeLists.txt), so no benchmark need know.

#include <benchmark/benchmark.h>

#include <cstdlib>

using benchmark::IterationCount;
using benchmark::internal::Benchmark;

namespace {

bool Smoke() {
  static const bool smoke = std::getenv("CHATTELBOOK_BENCH_SMOKE") != nullptr;
  return smoke;
}

}  // namespace

// The member functions by their linker names; `this` comes first.
extern "C" {
Benchmark* __real__ZN9benchmark8internal9Benchmark7MinTimeEd(Benchmark* self, double seconds);
Benchmark* __real__ZN9benchmark8internal9Benchmark10IterationsEl(Benchmark* self, IterationCount n);

Benchmark* __wrap__ZN9benchmark8internal9Benchmark7MinTimeEd(Benchmark* self, double seconds) {
  return Smoke() ? self : __real__ZN9benchmark8internal9Benchmark7MinTimeEd(self, seconds);
}

Benchmark* __wrap__ZN9benchmark8internal9Benchmark10IterationsEl(Benchmark* self, IterationCount n) {
  return Smoke() ? self : __real__ZN9benchmark8internal9Benchmark10IterationsEl(self, n);
}
}
