#pragma once

#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace tillora::testing {

/// A disk in memory, on which SQLite opens its files by default during the lifetime of this. It
/// fails on demand, and a power cut takes what was not flushed. For one connection at a time; it
/// keeps no locks.
class MemoryDisk {
 public:
  enum class Fault : std::uint8_t {
    error,  ///< an operation fails
    full,   ///< a write fails for lack of room
    torn,   ///< a write fails with a part of it done
    dies,   ///< the program ends in the middle of a write: nothing is done from then on
  };
  enum class Mode : bool { once, fromThenOn };
  using Bytes = std::vector<unsigned char>;

  MemoryDisk();
  ~MemoryDisk();
  MemoryDisk(const MemoryDisk&) = delete;
  MemoryDisk& operator=(const MemoryDisk&) = delete;

  /// The operation with this number fails, counted from 0 and from now on: any for `error`, any
  /// that changes something for `dies`, writes and changes of size for the others.
  void failAt(long number, Fault fault, Mode mode = Mode::once);
  /// The disk works again.
  void endFailures() { failedAt_ = -1; }
  /// Counts without failing.
  void failNever(Fault fault);
  long operations() const { return operations_; }
  bool hasFailed() const { return hasFailed_; }

  /// The program has ended, and so has what it shared with others; the files stay.
  void endProgram();
  /// The machine has stopped: of the writes that were not flushed, each is on the disk, or in part,
  /// or not at all.
  void cutPower(std::mt19937& random);

  std::map<std::string, Bytes> files() const;
  void setFiles(const std::map<std::string, Bytes>& files);

 private:
  friend struct MemoryDiskCalls;

  struct Write {
    std::size_t at = 0;
    Bytes bytes;
    bool truncates = false;  ///< to the size `at`
  };
  struct File {
    Bytes bytes;
    Bytes flushed;
    std::vector<Write> waiting;  ///< since it was flushed
    std::vector<std::unique_ptr<char[]>> shared;
  };

  static void apply(Bytes& bytes, const Write& write);
  bool fails();
  /// Whether an operation fails that reads, or one that changes something other than a file's
  /// bytes.
  bool failsToRead() { return isDead_ || (fault_ == Fault::error && fails()); }
  bool failsToChange();
  int write(File& file, Write write);

  std::map<std::string, std::shared_ptr<File>> files_;
  long operations_ = 0;
  long failedAt_ = -1;
  Fault fault_ = Fault::error;
  Mode mode_ = Mode::once;
  bool isDead_ = false;
  bool hasFailed_ = false;
};

}  // namespace tillora::testing
