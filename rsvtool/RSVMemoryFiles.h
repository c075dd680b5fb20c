// In-memory RSV files for programs that open thousands of small files, such as
// the fuzzers: a process-wide set of named file images. While switched on,
// every path given to CRSVTool::Create, Open, OpenReadOnly and Close names one
// of these images instead of a file on disk (HDF5's core driver without a
// backing store); a writable file's image is stored back when it is closed.
// Off unless a program switches it on; the tool then only tests the flag.
// Internal to the programs built here: neither installed nor exported.
#ifndef RSVTOOL_RSVMEMORYFILES_H_
#define RSVTOOL_RSVMEMORYFILES_H_

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace NVX3DRSVExTool {
namespace memory_files {

extern std::atomic<bool> g_enabled;

inline bool Enabled() { return g_enabled.load(std::memory_order_relaxed); }

// Switches in-memory files on or off for the whole process. Switching on also
// lets HDF5 keep larger freed blocks for reuse (each open file allocates a
// metadata cache of several hundred KiB). Paths should name nothing on disk:
// HDF5 refuses to open an image under the name of an existing file.
void Enable(bool on);

// The image stored under `name`: set (replacing any), read, removed; Get is
// false when there is none.
void Put(const std::string& name, const void* data, std::size_t size);
bool Get(const std::string& name, std::vector<unsigned char>* bytes);
void Remove(const std::string& name);

// Hooks of the tool, called with the HDF5 lock held while files are on.
// `fapl` and `file` are HDF5 identifiers (hid_t).
//
// Makes the file access list `fapl` open `name` in memory: for creation,
// false when an image of that name exists; for opening, the stored image is
// handed to HDF5, and false when there is none.
bool SetFileAccess(std::int64_t fapl, const std::string& name, bool create);
// Whether the image of `name` carries the HDF5 signature where HDF5 looks for
// it (offset 0, 512, 1024, 2048, ...).
bool IsHdf5Image(const std::string& name);
// Stores the image of `file` under its name when it is an in-memory file open
// for writing; false when that failed. Called before the file is closed.
bool KeepImage(std::int64_t file);

}  // namespace memory_files
}  // namespace NVX3DRSVExTool

#endif  // RSVTOOL_RSVMEMORYFILES_H_
