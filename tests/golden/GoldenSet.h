// The saved-output set: KRN files of every model kind, load mode and writer,
// and RSV files, made from fixed parameters. The files under
// tests/data/golden were written by this code; the golden test writes them
// again and compares, so no change to the serialisers can alter an output
// unnoticed.
#ifndef NVX_TESTS_GOLDEN_GOLDENSET_H_
#define NVX_TESTS_GOLDEN_GOLDENSET_H_

#include <string>
#include <vector>

namespace nvxgolden {

// Writes every file of the set into `dir` (which must exist); returns the
// file names. `scratch` is a directory for intermediate files.
std::vector<std::string> WriteGoldenSet(const std::string& dir, const std::string& scratch);

// Every group, dataset and attribute of an HDF5 file, sorted by name, with
// its type (class, size, sign, members) and its value, one per line.
std::string DescribeHdf5(const std::string& path);

}  // namespace nvxgolden

#endif  // NVX_TESTS_GOLDEN_GOLDENSET_H_
