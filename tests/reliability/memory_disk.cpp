#include "tests/reliability/memory_disk.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstring>

#include "tests/testing/memory/failing_memory.h"

namespace tillora::testing {
namespace {

constexpr std::size_t kSector = 512;

MemoryDisk* theDisk = nullptr;

}  // namespace

// What SQLite calls. The disk's own memory never runs out.
struct MemoryDiskCalls {
  struct Handle {
    sqlite3_file base;
    std::shared_ptr<MemoryDisk::File>* file;
  };

  static MemoryDisk::File& fileOf(sqlite3_file* handle) {
    return **reinterpret_cast<Handle*>(handle)->file;
  }

  static int open(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* handle, int flags,
                  int* outFlags) {
    const FailingMemory::Pause pause;
    handle->pMethods = nullptr;
    if (theDisk->failsToRead()) return SQLITE_CANTOPEN;
    auto file = std::make_shared<MemoryDisk::File>();
    if (name != nullptr) {
      auto& kept = theDisk->files_[name];
      if (kept == nullptr) kept = file;
      file = kept;
    }
    reinterpret_cast<Handle*>(handle)->file = new std::shared_ptr<MemoryDisk::File>(file);
    handle->pMethods = &kMethods;
    if (outFlags != nullptr) *outFlags = flags;
    return SQLITE_OK;
  }
  static int close(sqlite3_file* handle) {
    const FailingMemory::Pause pause;
    delete reinterpret_cast<Handle*>(handle)->file;
    return SQLITE_OK;
  }
  static int remove(sqlite3_vfs*, const char* name, int) {
    const FailingMemory::Pause pause;
    if (theDisk->failsToChange()) return SQLITE_IOERR_DELETE;
    return theDisk->files_.erase(name) == 0 ? SQLITE_IOERR_DELETE_NOENT : SQLITE_OK;
  }
  static int access(sqlite3_vfs*, const char* name, int, int* result) {
    const FailingMemory::Pause pause;
    if (theDisk->failsToRead()) return SQLITE_IOERR_ACCESS;
    *result = theDisk->files_.contains(name) ? 1 : 0;
    return SQLITE_OK;
  }
  static int fullName(sqlite3_vfs*, const char* name, int room, char* full) {
    sqlite3_snprintf(room, full, "%s", name);
    return SQLITE_OK;
  }
  static int randomness(sqlite3_vfs*, int size, char* out) {
    static unsigned next = 1;
    for (int i = 0; i < size; ++i) out[i] = static_cast<char>(next = next * 1103515245U + 12345U);
    return size;
  }
  static int sleep(sqlite3_vfs*, int microseconds) { return microseconds; }
  static int now(sqlite3_vfs*, sqlite3_int64* milliseconds) {
    *milliseconds = 212000000000000;
    return SQLITE_OK;
  }
  static int lastError(sqlite3_vfs*, int, char*) { return 0; }

  static int read(sqlite3_file* handle, void* out, int size, sqlite3_int64 at) {
    if (theDisk->failsToRead()) return SQLITE_IOERR_READ;
    const auto& bytes = fileOf(handle).bytes;
    const auto from = std::min(static_cast<std::size_t>(at), bytes.size());
    const auto count = std::min(static_cast<std::size_t>(size), bytes.size() - from);
    std::memset(out, 0, static_cast<std::size_t>(size));
    std::memcpy(out, bytes.data() + from, count);
    return count == static_cast<std::size_t>(size) ? SQLITE_OK : SQLITE_IOERR_SHORT_READ;
  }
  static int write(sqlite3_file* handle, const void* data, int size, sqlite3_int64 at) {
    const FailingMemory::Pause pause;
    const auto* const bytes = static_cast<const unsigned char*>(data);
    return theDisk->write(fileOf(handle),
                          {static_cast<std::size_t>(at), {bytes, bytes + size}, false});
  }
  static int truncate(sqlite3_file* handle, sqlite3_int64 size) {
    const FailingMemory::Pause pause;
    return theDisk->write(fileOf(handle), {static_cast<std::size_t>(size), {}, true});
  }
  static int sync(sqlite3_file* handle, int) {
    const FailingMemory::Pause pause;
    if (theDisk->failsToChange()) return SQLITE_IOERR_FSYNC;
    MemoryDisk::File& file = fileOf(handle);
    file.flushed = file.bytes;
    file.waiting.clear();
    return SQLITE_OK;
  }
  static int size(sqlite3_file* handle, sqlite3_int64* size) {
    if (theDisk->failsToRead()) return SQLITE_IOERR_FSTAT;
    *size = static_cast<sqlite3_int64>(fileOf(handle).bytes.size());
    return SQLITE_OK;
  }
  static int lock(sqlite3_file*, int) { return SQLITE_OK; }
  static int isReserved(sqlite3_file*, int* result) {
    *result = 0;
    return SQLITE_OK;
  }
  static int control(sqlite3_file*, int, void*) { return SQLITE_NOTFOUND; }
  static int sectorSize(sqlite3_file*) { return kSector; }
  static int characteristics(sqlite3_file*) { return SQLITE_IOCAP_POWERSAFE_OVERWRITE; }

  static int mapShared(sqlite3_file* handle, int region, int size, int extend,
                       void volatile** out) {
    const FailingMemory::Pause pause;
    *out = nullptr;
    if (theDisk->failsToRead()) return SQLITE_IOERR_SHMMAP;
    auto& shared = fileOf(handle).shared;
    const auto index = static_cast<std::size_t>(region);
    if (index >= shared.size() && extend == 0) return SQLITE_OK;
    while (shared.size() <= index) {
      shared.push_back(std::make_unique<char[]>(static_cast<std::size_t>(size)));
    }
    *out = shared[index].get();
    return SQLITE_OK;
  }
  static int lockShared(sqlite3_file*, int, int, int) { return SQLITE_OK; }
  static void barrier(sqlite3_file*) {}
  static int unmapShared(sqlite3_file* handle, int) {
    const FailingMemory::Pause pause;
    fileOf(handle).shared.clear();
    return SQLITE_OK;
  }

  static const sqlite3_io_methods kMethods;
  static sqlite3_vfs vfs;
};

const sqlite3_io_methods MemoryDiskCalls::kMethods = {.iVersion = 2,
                                                      .xClose = &close,
                                                      .xRead = &read,
                                                      .xWrite = &write,
                                                      .xTruncate = &truncate,
                                                      .xSync = &sync,
                                                      .xFileSize = &size,
                                                      .xLock = &lock,
                                                      .xUnlock = &lock,
                                                      .xCheckReservedLock = &isReserved,
                                                      .xFileControl = &control,
                                                      .xSectorSize = &sectorSize,
                                                      .xDeviceCharacteristics = &characteristics,
                                                      .xShmMap = &mapShared,
                                                      .xShmLock = &lockShared,
                                                      .xShmBarrier = &barrier,
                                                      .xShmUnmap = &unmapShared,
                                                      .xFetch = nullptr,
                                                      .xUnfetch = nullptr};

sqlite3_vfs MemoryDiskCalls::vfs = {.iVersion = 2,
                                    .szOsFile = sizeof(Handle),
                                    .mxPathname = 512,
                                    .pNext = nullptr,
                                    .zName = "memory-disk",
                                    .pAppData = nullptr,
                                    .xOpen = &open,
                                    .xDelete = &remove,
                                    .xAccess = &access,
                                    .xFullPathname = &fullName,
                                    .xDlOpen = nullptr,
                                    .xDlError = nullptr,
                                    .xDlSym = nullptr,
                                    .xDlClose = nullptr,
                                    .xRandomness = &randomness,
                                    .xSleep = &sleep,
                                    .xCurrentTime = nullptr,
                                    .xGetLastError = &lastError,
                                    .xCurrentTimeInt64 = &now,
                                    .xSetSystemCall = nullptr,
                                    .xGetSystemCall = nullptr,
                                    .xNextSystemCall = nullptr};

MemoryDisk::MemoryDisk() {
  theDisk = this;
  sqlite3_vfs_register(&MemoryDiskCalls::vfs, 1);
}

MemoryDisk::~MemoryDisk() {
  sqlite3_vfs_unregister(&MemoryDiskCalls::vfs);
  theDisk = nullptr;
}

void MemoryDisk::failAt(long number, Fault fault, Mode mode) {
  failNever(fault);
  failedAt_ = number;
  mode_ = mode;
}

void MemoryDisk::failNever(Fault fault) {
  operations_ = 0;
  failedAt_ = -1;
  hasFailed_ = false;
  fault_ = fault;
}

bool MemoryDisk::fails() {
  const long number = operations_++;
  const bool failed =
      mode_ == Mode::once ? number == failedAt_ : failedAt_ >= 0 && number >= failedAt_;
  hasFailed_ = hasFailed_ || failed;
  return failed;
}

bool MemoryDisk::failsToChange() {
  if (isDead_) return true;
  if ((fault_ != Fault::error && fault_ != Fault::dies) || !fails()) return false;
  isDead_ = fault_ == Fault::dies;
  return true;
}

void MemoryDisk::apply(Bytes& bytes, const Write& write) {
  if (write.truncates) {
    bytes.resize(write.at);
    return;
  }
  bytes.resize(std::max(bytes.size(), write.at + write.bytes.size()));
  std::ranges::copy(write.bytes, bytes.begin() + static_cast<std::ptrdiff_t>(write.at));
}

int MemoryDisk::write(File& file, Write write) {
  if (isDead_) return SQLITE_IOERR_WRITE;
  const bool failed = fails();
  if (failed && fault_ == Fault::error) return SQLITE_IOERR_WRITE;
  if (failed && fault_ == Fault::full) return SQLITE_FULL;
  if (failed) write.bytes.resize(write.bytes.size() / 2 / kSector * kSector);
  if (!failed || !write.truncates) {
    apply(file.bytes, write);
    file.waiting.push_back(std::move(write));
  }
  if (failed && fault_ == Fault::dies) isDead_ = true;
  return failed ? SQLITE_IOERR_WRITE : SQLITE_OK;
}

void MemoryDisk::endProgram() {
  isDead_ = false;
  failedAt_ = -1;
  for (const auto& [name, file] : files_) file->shared.clear();
}

void MemoryDisk::cutPower(std::mt19937& random) {
  const auto oneIn = [&](int cases) {
    return std::uniform_int_distribution(0, cases - 1)(random) == 0;
  };
  for (const auto& [name, file] : files_) {
    file->bytes = file->flushed;
    for (Write& write : file->waiting) {
      if (oneIn(3)) continue;
      const std::size_t size = write.bytes.size();
      if (!write.truncates && size > kSector && oneIn(2)) {
        write.bytes.resize(size / 2 / kSector * kSector);
      }
      apply(file->bytes, write);
    }
    file->flushed = file->bytes;
    file->waiting.clear();
  }
}

std::map<std::string, MemoryDisk::Bytes> MemoryDisk::files() const {
  std::map<std::string, Bytes> copies;
  for (const auto& [name, file] : files_) copies[name] = file->bytes;
  return copies;
}

void MemoryDisk::setFiles(const std::map<std::string, Bytes>& files) {
  endProgram();
  files_.clear();
  for (const auto& [name, bytes] : files) {
    auto file = std::make_shared<File>();
    file->bytes = file->flushed = bytes;
    files_[name] = std::move(file);
  }
}

}  // namespace tillora::testing
