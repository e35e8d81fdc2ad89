// Compares call logs with golden files, which are versioned and reviewed as diffs.
#pragma once

#include <string>

namespace kurv::test {

// Fails the current test when `text` differs from tests/golden/NAME. With UPDATE_GOLDENS=1 in
// the environment it rewrites that file instead.
void expect_golden(const std::string& name, const std::string& text);
// The same for a page of the documentation, by its path from the root.
void expect_page(const std::string& path, const std::string& text);

}  // namespace kurv::test
