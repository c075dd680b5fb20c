// In-memory RSV files: the named images and the tool's hooks on the core driver.
#include "RSVMemoryFiles.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <map>
#include <type_traits>

#include "RSVHdf5.h"

namespace NVX3DRSVExTool {
namespace memory_files {

static_assert(std::is_same<hid_t, std::int64_t>::value, "HDF5 identifiers are 64-bit");

std::atomic<bool> g_enabled{false};

namespace {

using detail::Hdf5Lock;
using detail::Hdf5Mutex;

// Guarded by the HDF5 lock, which the tool holds whenever it calls a hook.
std::map<std::string, std::vector<unsigned char>>& Images() {
  static std::map<std::string, std::vector<unsigned char>> images;
  return images;
}

const std::vector<unsigned char>* Find(const std::string& name) {
  const auto found = Images().find(name);
  return found == Images().end() ? nullptr : &found->second;
}

// The core driver grows a file's buffer by a fixed step, copying the whole
// buffer each time; these callbacks make it grow by doubling, so that writing
// a file of n bytes copies O(n) bytes. Each block keeps its capacity in a
// header before the bytes HDF5 sees.
constexpr std::size_t kHeader = alignof(std::max_align_t);

void* AllocateImage(std::size_t capacity) {
  auto* base = static_cast<unsigned char*>(std::malloc(kHeader + capacity));
  if (base == nullptr) return nullptr;
  std::memcpy(base, &capacity, sizeof capacity);
  return base + kHeader;
}

void* ImageMalloc(std::size_t size, H5FD_file_image_op_t, void*) { return AllocateImage(size); }

void* ImageMemcpy(void* dest, const void* src, std::size_t size, H5FD_file_image_op_t, void*) {
  return std::memcpy(dest, src, size);
}

void* ImageRealloc(void* ptr, std::size_t size, H5FD_file_image_op_t, void*) {
  if (ptr == nullptr) return AllocateImage(size);
  unsigned char* base = static_cast<unsigned char*>(ptr) - kHeader;
  std::size_t capacity = 0;
  std::memcpy(&capacity, base, sizeof capacity);
  if (size <= capacity) return ptr;
  capacity = std::max(size, 2 * capacity);
  base = static_cast<unsigned char*>(std::realloc(base, kHeader + capacity));
  if (base == nullptr) return nullptr;
  std::memcpy(base, &capacity, sizeof capacity);
  return base + kHeader;
}

herr_t ImageFree(void* ptr, H5FD_file_image_op_t, void*) {
  if (ptr != nullptr) std::free(static_cast<unsigned char*>(ptr) - kHeader);
  return 0;
}

constexpr unsigned char kSignature[8] = {0x89, 'H', 'D', 'F', '\r', '\n', 0x1a, '\n'};

std::uint32_t Rotate(std::uint32_t x, int k) { return (x << k) | (x >> (32 - k)); }

// The checksum HDF5 puts on its metadata: Bob Jenkins' lookup3 hash, seed 0.
std::uint32_t MetadataChecksum(const unsigned char* k, std::size_t length) {
  std::uint32_t a = 0xdeadbeef + static_cast<std::uint32_t>(length);
  std::uint32_t b = a, c = a;
  const auto word = [](const unsigned char* p, std::size_t n) {
    std::uint32_t w = 0;
    for (std::size_t i = 0; i < n && i < 4; ++i) w |= static_cast<std::uint32_t>(p[i]) << (8 * i);
    return w;
  };
  while (length > 12) {
    a += word(k, 4);
    b += word(k + 4, 4);
    c += word(k + 8, 4);
    a -= c, a ^= Rotate(c, 4), c += b;
    b -= a, b ^= Rotate(a, 6), a += c;
    c -= b, c ^= Rotate(b, 8), b += a;
    a -= c, a ^= Rotate(c, 16), c += b;
    b -= a, b ^= Rotate(a, 19), a += c;
    c -= b, c ^= Rotate(b, 4), b += a;
    length -= 12;
    k += 12;
  }
  if (length == 0) return c;
  a += word(k, length);
  if (length > 4) b += word(k + 4, length - 4);
  if (length > 8) c += word(k + 8, length - 8);
  c ^= b, c -= Rotate(b, 14);
  a ^= c, a -= Rotate(c, 11);
  b ^= a, b -= Rotate(a, 25);
  c ^= b, c -= Rotate(b, 16);
  a ^= c, a -= Rotate(c, 4);
  b ^= a, b -= Rotate(a, 14);
  c ^= b, c -= Rotate(b, 24);
  return c;
}

// An image taken from an open file has the superblock's status flags cleared
// (they say "open for writing"), but the checksum of a version 2 or 3
// superblock still covers the old flags; it is computed again here. The
// superblock of the tool's files is at the start of the image.
void ResealSuperblock(std::vector<unsigned char>& image) {
  if (image.size() < 12 || std::memcmp(image.data(), kSignature, sizeof kSignature) != 0) return;
  const unsigned version = image[8], offsetSize = image[9];
  if (version < 2 || version > 3) return;
  const std::size_t covered = 12 + 4 * std::size_t{offsetSize};
  if (image.size() < covered + 4) return;
  const std::uint32_t sum = MetadataChecksum(image.data(), covered);
  for (int i = 0; i < 4; ++i) image[covered + i] = static_cast<unsigned char>(sum >> (8 * i));
}

}  // namespace

void Enable(bool on) {
  detail::StartLibrary();
  Hdf5Lock lock(Hdf5Mutex());
  if (on) {
    // Regular blocks of any size stay on HDF5's free lists; the other lists
    // keep their defaults. The metadata cache made for every open file is
    // then reused instead of being allocated and zeroed afresh.
    H5set_free_list_limits(-1, -1, 1 << 20, 1 << 16, 1 << 20, 1 << 16);
  }
  g_enabled.store(on, std::memory_order_relaxed);
}

void Put(const std::string& name, const void* data, std::size_t size) {
  Hdf5Lock lock(Hdf5Mutex());
  const auto* bytes = static_cast<const unsigned char*>(data);
  Images()[name].assign(bytes, bytes + size);
}

bool Get(const std::string& name, std::vector<unsigned char>* bytes) {
  Hdf5Lock lock(Hdf5Mutex());
  const std::vector<unsigned char>* image = Find(name);
  if (image == nullptr) return false;
  *bytes = *image;
  return true;
}

void Remove(const std::string& name) {
  Hdf5Lock lock(Hdf5Mutex());
  Images().erase(name);
}

bool SetFileAccess(std::int64_t fapl, const std::string& name, bool create) {
  const std::vector<unsigned char>* image = Find(name);
  // Never written to disk; the buffer grows by at least 64 KiB, by doubling.
  if (H5Pset_fapl_core(fapl, 64 * 1024, false) < 0) return false;
  H5FD_file_image_callbacks_t callbacks = {ImageMalloc, ImageMemcpy, ImageRealloc, ImageFree,
                                           nullptr,     nullptr,     nullptr};
  if (H5Pset_file_image_callbacks(fapl, &callbacks) < 0) return false;
  if (create) return image == nullptr;
  // HDF5 copies the image; an empty one would make it look for a file on disk.
  if (image == nullptr || image->empty()) return false;
  return H5Pset_file_image(fapl, const_cast<unsigned char*>(image->data()), image->size()) >= 0;
}

bool IsHdf5Image(const std::string& name) {
  const std::vector<unsigned char>* image = Find(name);
  if (image == nullptr) return false;
  for (std::size_t at = 0; at + sizeof kSignature <= image->size(); at = at == 0 ? 512 : at * 2) {
    if (std::memcmp(image->data() + at, kSignature, sizeof kSignature) == 0) return true;
  }
  return false;
}

bool KeepImage(std::int64_t file) {
  unsigned intent = 0;
  if (H5Fget_intent(file, &intent) < 0 || (intent & H5F_ACC_RDWR) == 0) return true;
  {
    detail::Hid fapl = detail::PlistId(H5Fget_access_plist(file));
    if (!fapl.valid() || H5Pget_driver(fapl.get()) != H5FD_CORE) return true;
  }
  const ssize_t nameLength = H5Fget_name(file, nullptr, 0);
  if (nameLength <= 0) return false;
  std::string name(static_cast<std::size_t>(nameLength) + 1, '\0');
  if (H5Fget_name(file, &name[0], name.size()) != nameLength) return false;
  name.resize(static_cast<std::size_t>(nameLength));
  // The image is taken from what has reached the driver: flushed first.
  if (H5Fflush(file, H5F_SCOPE_LOCAL) < 0) return false;
  const ssize_t size = H5Fget_file_image(file, nullptr, 0);
  if (size <= 0) return false;
  std::vector<unsigned char> bytes(static_cast<std::size_t>(size));
  if (H5Fget_file_image(file, bytes.data(), bytes.size()) != size) return false;
  ResealSuperblock(bytes);
  Images()[name] = std::move(bytes);
  return true;
}

}  // namespace memory_files
}  // namespace NVX3DRSVExTool
