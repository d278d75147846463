#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "base/text.h"
#include "host/statement.h"

struct sqlite3;

namespace tillora::host {

/// How long a write waits for another program's save before it fails.
inline constexpr std::chrono::milliseconds kBusyTimeout{3000};

/// The SQLite file of a shop: one connection, its prepared statements and the save in progress.
///
/// A write outside a save is committed at once. From beginSave() to commitSave() every write on
/// this connection, whichever object makes it, belongs to the save and is undone with it.
/// Write-ahead log with full synchronisation: committed writes survive a power cut, others are
/// lost.
///
/// Failures are Errors whose text says what to do: file damaged, in use by another program, not
/// writable, disk full.
class ShopFile {
 public:
  /// Opens the file, making an empty one if there is none, and checks it for damage.
  static std::shared_ptr<ShopFile> open(TextView path,
                                        std::chrono::milliseconds busyTimeout = kBusyTimeout);
  ~ShopFile();
  ShopFile(const ShopFile&) = delete;
  ShopFile& operator=(const ShopFile&) = delete;

  const Text& path() const { return path_; }

  /// A statement ready to be bound, prepared once for each text. Two runs of one text must not
  /// overlap. `object` is the name of the host object that failures are raised for.
  Statement statement(std::string_view sql, TextView object);
  /// Same, for a statement that writes: fails if the save that it would belong to has been undone.
  Statement writingStatement(std::string_view sql, TextView object);
  /// Runs statements without parameters.
  void execute(const char* sql, TextView object);

  std::int64_t lastRowId() const;
  /// Number of rows that the last writing statement changed.
  int changedRows() const;

  /// Starts the save of `owner`, or continues it. Waits for other programs' saves.
  void beginSave(const void* owner, TextView object);
  /// Commits the save of `owner`, if it has one.
  void commitSave(const void* owner, TextView object);
  /// Undoes the save of `owner`, if it has one. What cannot be undone at once (memory may have run
  /// out) is undone before the next use, which fails if that cannot be done either.
  void abandonSave(const void* owner) noexcept;

  /// Closes the connection; later uses of it fail.
  void close() noexcept;

  /// Raises the Error for a SQLite result code.
  [[noreturn]] void raise(int result, TextView object) const;

 private:
  ShopFile(TextView path);
  void connect(std::chrono::milliseconds busyTimeout);
  void checkForDamage();
  void checkOwnership();
  void useWriteAheadLog(std::chrono::milliseconds patience);
  bool saveUndone() const;
  void requireOpen(TextView object) const;
  /// Open, and without the rest of an abandoned save.
  void requireUsable(TextView object);

  struct Closer {
    void operator()(sqlite3* connection) const;
  };

  Text path_;
  std::unique_ptr<sqlite3, Closer> connection_;
  std::map<std::string, PreparedStatement, std::less<>> statements_;
  const void* saveOwner_ = nullptr;
  bool undoing_ = false;  ///< an abandoned save is still to be undone
};

}  // namespace tillora::host
