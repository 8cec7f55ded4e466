// The program without a window.
#include <iostream>

#include "batch/CommandLine.h"

int main(int argc, char** argv) {
  return dorvane::RunBatch(argc, argv, std::cout, std::cerr);
}
