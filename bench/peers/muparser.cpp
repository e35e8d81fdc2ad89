// muParser: a million evaluations with a bound variable.
#include <muParser.h>

#include "bench/common/expression.h"
#include "bench/common/subject.h"

namespace {

void run(const bench::Arguments&) {
  double x = 0;
  mu::Parser parser;
  parser.DefineVar("x", &x);
  parser.SetExpr(bench::kExpression);
  double sum = 0;
  bench::serve([&] {
    for (int i = 0; i < bench::kEvaluations; ++i) {
      x = bench::argument(i);
      sum += parser.Eval();
    }
  });
  bench::keep(sum);
}

}  // namespace

int main(int argc, char** argv) {
  return bench::subject_main(argc, argv, run);
}
