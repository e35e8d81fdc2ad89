// Call logs compared with texts that lie in the tree and are reviewed in diffs.
#pragma once

#include <string>

namespace kurv::test {

// Fails the current test when `text` is not what tests/golden/NAME holds. With UPDATE_GOLDENS=1 in
// the environment it rewrites that file instead.
void expect_golden(const std::string& name, const std::string& text);
// The same for a page of the documentation, by its path from the root.
void expect_page(const std::string& path, const std::string& text);

}  // namespace kurv::test
