// The platform module: everything the library asks of the operating system.
// This is the only part of the library that includes system headers, so that a
// port to another system replaces these two files and nothing else.
#ifndef NVX_PLATFORM_NVXPLATFORM_H_
#define NVX_PLATFORM_NVXPLATFORM_H_

#include <cstdint>
#include <string>

#include "NVXHostHooks.h"

namespace nvx {
namespace platform {

// Number of logical processors (at least 1).
std::uint32_t LogicalProcessorCount();
// Physical memory in bytes (0 when unknown).
std::uint64_t PhysicalMemoryBytes();

// A message box without an owner, plain OK style.
void ShowMessageBox(const char* text, const char* caption);
// Text for an attached debugger.
void DebugOutput(const char* text);

// Narrow code page (UTF-8 here) to and from wide strings. Invalid input
// sequences become U+FFFD; nothing throws.
std::string WideToNarrow(const std::wstring& wide);
std::wstring NarrowToWide(const std::string& narrow);

// Plain file system queries.
bool FileExists(const std::string& path);
bool DirectoryExists(const std::string& path);
bool MakeDirectory(const std::string& path);

}  // namespace platform
}  // namespace nvx

#endif  // NVX_PLATFORM_NVXPLATFORM_H_
