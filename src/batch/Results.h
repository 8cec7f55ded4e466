// Where results of the batch program go.
#pragma once

#include <string>

namespace dorvane {

// The name that a file's results carry: its own without extension; the number of a series stays in
// it, so that run.001 leaves run_001.
std::string ResultName(const std::string& file);

// The path of the result that ends in `ending`, such as "_peaks.csv".
std::string ResultPath(const std::string& folder, const std::string& file,
                       const std::string& ending);

// Makes the folder where it is missing; throws UsageError where that fails.
void MakeFolder(const std::string& folder);

}  // namespace dorvane
