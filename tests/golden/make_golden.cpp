// Writes the saved-output set into a folder: make_golden <dir> <scratch dir>.
// Run only to renew the set, after a deliberate change of an output.
#include <cstdio>

#include "GoldenSet.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: make_golden <dir> <scratch dir>\n");
    return 2;
  }
  for (const std::string& name : nvxgolden::WriteGoldenSet(argv[1], argv[2])) {
    std::printf("%s\n", name.c_str());
  }
  return 0;
}
