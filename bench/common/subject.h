// How a subject is measured: it prepares its work once, prints "ready", and then does the work at
// each request, so that subjects can take turns.
#pragma once

#include <ctime>
#include <exception>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

// Processor time of this process in seconds; other programs do not count.
inline double processor_seconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

using Work = std::function<void()>;
using Arguments = std::vector<std::string>;

// Repeats short work until the clock is precise enough; returns milliseconds for one.
inline double milliseconds_of(const Work& work) {
  constexpr double kLongEnough = 0.02;
  const double start = processor_seconds();
  int times = 0;
  double taken = 0;
  do {
    work();
    ++times;
    taken = processor_seconds() - start;
  } while (taken < kLongEnough);
  return taken * 1000 / times;
}

// The same for work that modifies its input: `prepare` restores it each time, which is not counted.
inline double milliseconds_of(const Work& prepare, const Work& work) {
  constexpr int kTimes = 3;
  double taken = 0;
  for (int i = 0; i < kTimes; ++i) {
    prepare();
    const double start = processor_seconds();
    work();
    taken += processor_seconds() - start;
  }
  return taken * 1000 / kTimes;
}

// Prints "ready" and then, for each line of standard input, the milliseconds of one run.
template <class... Parts>
void serve(const Parts&... parts) {
  std::cout << "ready" << std::endl;
  for (std::string line; std::getline(std::cin, line);) {
    std::cout << milliseconds_of(parts...) << std::endl;
  }
}

// The main function of a subject. `run` gets the arguments of the command line.
inline int subject_main(int argc, char** argv, const std::function<void(const Arguments&)>& run) {
  try {
    run(Arguments(argv + 1, argv + argc));
    return 0;
  } catch (const std::exception& error) {
    std::cerr << argv[0] << ": " << error.what() << '\n';
    return 1;
  }
}

// The arguments of the peers that draw: METHOD KIND CURVES POINTS WIDTH [moving], or METHOD shape
// NAME WIDTH FILE.
struct Drawing {
  std::string method;
  std::string kind;
  int curves = 0;
  int points = 0;
  double width = 1;
  bool is_moving = false;  // the end of the x axis differs each time
};

inline Drawing drawing_of(const Arguments& arguments) {
  return {arguments.at(0),
          arguments.at(1),
          std::stoi(arguments.at(2)),
          std::stoi(arguments.at(3)),
          std::stod(arguments.at(4)),
          arguments.size() > 5};
}

// Ends of an axis, each different from all before it.
class MovingEnd {
 public:
  MovingEnd(double low, double high) : m_high(high), m_step((high - low) * 1e-6) {}
  double next() { return m_high += m_step; }

 private:
  double m_high;
  double m_step;
};

}  // namespace bench
