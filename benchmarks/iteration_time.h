#ifndef CORVALIS_BENCHMARKS_ITERATION_TIME_H_
#define CORVALIS_BENCHMARKS_ITERATION_TIME_H_

#include <benchmark/benchmark.h>

#include <chrono>

namespace bench {

// Measures the part of an iteration during which this object exists; the rest does not
// count. For benchmarks with manual time.
class IterationTime {
 public:
  explicit IterationTime(benchmark::State& state) : state_(state) {}
  IterationTime(const IterationTime&) = delete;
  IterationTime& operator=(const IterationTime&) = delete;
  ~IterationTime() {
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start_;
    state_.SetIterationTime(time.count());
  }

 private:
  benchmark::State& state_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// Runs a benchmark with 10 to a million entries.
inline void EverySize(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(10)->Arg(1000)->Arg(100'000)->Arg(1'000'000);
  benchmark->Unit(benchmark::kMicrosecond)->UseManualTime();
}

}  // namespace bench

#endif  // CORVALIS_BENCHMARKS_ITERATION_TIME_H_
