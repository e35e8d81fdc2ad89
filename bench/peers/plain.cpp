// Lower bounds and straightforward implementations: reading numbers, writing numbers, and the
// selection sort.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <stdexcept>

#include "bench/common/data.h"
#include "bench/common/sorting.h"
#include "bench/common/subject.h"

namespace {

class File {
 public:
  File(const std::string& path, int flags) : m_file(open(path.c_str(), flags, 0600)) {
    if (m_file < 0) throw std::runtime_error("cannot open " + path);
  }
  ~File() { close(m_file); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  int number() const { return m_file; }

 private:
  int m_file;
};

void read_bytes(const std::string& path, std::string& bytes) {
  const File file(path, O_RDONLY);
  bytes.resize(static_cast<std::size_t>(lseek(file.number(), 0, SEEK_END)));
  lseek(file.number(), 0, SEEK_SET);
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t count = ::read(file.number(), bytes.data() + done, bytes.size() - done);
    if (count <= 0) throw std::runtime_error("cannot read " + path);
    done += static_cast<std::size_t>(count);
  }
}

// Every number of the text, in order. The character after each, and all that is not a number, is
// skipped.
void read_numbers(const std::string& bytes, std::vector<double>& numbers) {
  const char* at = bytes.data();
  const char* const end = at + bytes.size();
  numbers.clear();
  while (at != end) {
    double value = 0;
    const std::from_chars_result result = std::from_chars(at, end, value);
    if (result.ec == std::errc()) {
      numbers.push_back(value);
      at = std::min(result.ptr + 1, end);
    } else {
      ++at;
    }
  }
}

void write_bytes(const std::string& path, const std::string& bytes) {
  const File file(path, O_WRONLY | O_CREAT | O_TRUNC);
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t count = ::write(file.number(), bytes.data() + done, bytes.size() - done);
    if (count <= 0) throw std::runtime_error("cannot write " + path);
    done += static_cast<std::size_t>(count);
  }
}

void append_column(std::string& text, const std::vector<double>& values) {
  char digits[32];
  for (const double value : values) {
    text.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
    text += ',';
  }
  text.replace(text.size() - 1, 1, "\r\n");
}

// A line for each column, as in the control's file.
void write_numbers(const std::string& path, const bench::Table& data, std::string& text) {
  text.clear();
  append_column(text, data.x);
  for (const auto& curve : data.y) append_column(text, curve);
  write_bytes(path, text);
}

void sort() {
  const bench::Table data =
      bench::table("shuffled", bench::kSortedColumns - 1, bench::kSortedPoints);
  std::vector<std::vector<double>> columns;
  const auto prepare = [&] {
    columns = data.y;
    columns.insert(columns.begin(), data.x);
  };
  bench::serve(prepare, [&] {
    for (std::size_t i = 0; i < data.x.size(); ++i) {
      const std::vector<double>& x = columns.front();
      std::size_t minimum = i;
      for (std::size_t j = i + 1; j < x.size(); ++j) {
        if (x[j] < x[minimum]) minimum = j;
      }
      if (minimum == i) continue;
      for (auto& column : columns) std::swap(column[i], column[minimum]);
    }
  });
  std::cout << bench::fingerprint(columns.at(1)) << std::endl;
}

// The minimum that any redraw has to do: read each value and test whether it is in the plot.
void read_values(const bench::Drawing& drawing) {
  const bench::Table data = bench::table(drawing.kind, drawing.curves, drawing.points);
  const bench::Scale scale(data);
  const bench::Range range = scale.y_range();
  long inside = 0;
  bench::serve([&] {
    for (const std::vector<double>& curve : data.y) {
      for (const double y : curve) inside += y >= range.low && y <= range.high;
    }
  });
  std::cout << inside << std::endl;
}

void run(const bench::Arguments& arguments) {
  const std::string& what = arguments.at(0);
  if (what == "values") {
    read_values(bench::drawing_of(arguments));
  } else if (what == "read") {
    std::string bytes;
    std::vector<double> numbers;
    bench::serve([&] {
      read_bytes(arguments.at(1), bytes);
      read_numbers(bytes, numbers);
    });
  } else if (what == "write") {
    const bench::Table data =
        bench::table("waves", std::stoi(arguments.at(2)), std::stoi(arguments.at(3)));
    std::string text;
    bench::serve([&] { write_numbers(arguments.at(1), data, text); });
  } else if (what == "sort") {
    sort();
  } else if (what == "scan") {
    const bench::Table data = bench::table("waves", 1, bench::kSortedPoints);
    long ascending = 0;
    bench::serve([&] { ascending += std::is_sorted(data.x.begin(), data.x.end()); });
    std::cout << ascending << std::endl;
  } else {
    throw std::invalid_argument("no such work");
  }
}

}  // namespace

int main(int argc, char** argv) {
  return bench::subject_main(argc, argv, run);
}
