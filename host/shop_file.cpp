#include "host/shop_file.h"

#include <sqlite3.h>

#include <algorithm>
#include <new>
#include <thread>

#include "host/shop_error.h"
#include "host/shop_schema.h"
#include "host/text_encoding.h"

namespace tillora::host {
namespace {

/// Limits the prepared statements that criteria of many shapes would pile up.
constexpr std::size_t kMostStatements = 200;

/// What a line of the check for damage reports. It also has lines for pages that could not be read:
/// "... failed to get page 7", "... error code=266", "... error code 7".
int resultOfCheck(TextView line) {
  constexpr TextView kCode = u"error code";
  if (line.find(u"failed to get page") != TextView::npos) return SQLITE_IOERR;
  const std::size_t found = line.find(kCode);
  if (found == TextView::npos) return SQLITE_CORRUPT;
  TextView rest = line.substr(found + kCode.size());
  rest.remove_prefix(std::min(rest.find_first_of(u"0123456789"), rest.size()));
  int code = 0;
  for (const char16_t digit : rest.substr(0, 5)) {
    if (digit < u'0' || digit > u'9') break;
    code = 10 * code + (digit - u'0');
  }
  return code == SQLITE_OK ? SQLITE_CORRUPT : code;
}

}  // namespace

void ShopFile::Closer::operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }

ShopFile::ShopFile(TextView path) : path_(path) {}

ShopFile::~ShopFile() { close(); }

std::shared_ptr<ShopFile> ShopFile::open(TextView path, std::chrono::milliseconds busyTimeout) {
  std::shared_ptr<ShopFile> file(new ShopFile(path));
  file->connect(busyTimeout);
  file->checkForDamage();
  file->checkOwnership();
  file->useWriteAheadLog(busyTimeout);
  return file;
}

void ShopFile::connect(std::chrono::milliseconds busyTimeout) {
  if (path_.empty())
    fail(shop_error::cannotOpen, shop_object::database, u"The shop database has no file name.");
  sqlite3* connection = nullptr;
  const int result = sqlite3_open_v2(toUtf8(path_).c_str(), &connection,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  connection_.reset(connection);
  if (connection == nullptr) throw std::bad_alloc();
  if (result != SQLITE_OK) raise(result, shop_object::database);
  sqlite3_extended_result_codes(connection, 1);
  sqlite3_busy_timeout(connection, static_cast<int>(busyTimeout.count()));
  if (sqlite3_db_readonly(connection, nullptr) == 1) raise(SQLITE_READONLY, shop_object::database);
  execute(
      "PRAGMA encoding = 'UTF-16le'; PRAGMA trusted_schema = OFF; PRAGMA cell_size_check = ON;"
      "PRAGMA synchronous = FULL",
      shop_object::database);
}

void ShopFile::checkForDamage() {
  const auto firstLine = [this] {
    Statement check = statement("PRAGMA quick_check(1)", shop_object::database);
    return check.step() ? check.text(0) : Text();
  };
  constexpr TextView kSound = u"ok";
  if (firstLine() == kSound) return;
  // A page may not have been read for lack of memory. If there is none now either, this raises it.
  const Text line = firstLine();
  if (line != kSound) raise(resultOfCheck(line), shop_object::database);
}

void ShopFile::checkOwnership() {
  Statement objects = statement("SELECT count(*) FROM sqlite_schema", shop_object::database);
  if (!objects.step() || objects.integer(0) == 0) return;
  Statement application = statement("PRAGMA application_id", shop_object::database);
  application.step();
  if (application.integer(0) != kApplicationId) {
    fail(shop_error::wrongVersion, shop_object::database,
         u"'" + path_ + u"' is a database of another program. Choose the shop's own database.");
  }
  Statement version = statement("PRAGMA user_version", shop_object::database);
  version.step();
  if (version.integer(0) > kSchemaVersion) {
    fail(shop_error::wrongVersion, shop_object::database,
         u"The shop database '" + path_ +
             u"' was made by a newer version of this program. Install that version.");
  }
}

void ShopFile::useWriteAheadLog(std::chrono::milliseconds patience) {
  // While two programs open a new file at once, SQLite refuses one of them without waiting.
  const auto end = std::chrono::steady_clock::now() + patience;
  constexpr const char* kSwitch = "PRAGMA journal_mode = WAL";
  while (sqlite3_exec(connection_.get(), kSwitch, nullptr, nullptr, nullptr) == SQLITE_BUSY &&
         std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  execute(kSwitch, shop_object::database);
}

void ShopFile::close() noexcept {
  statements_.clear();
  connection_.reset();
  saveOwner_ = nullptr;
  undoing_ = false;
}

void ShopFile::requireOpen(TextView object) const {
  if (!connection_) fail(shop_error::shopClosed, object, u"The shop database was closed.");
}

void ShopFile::requireUsable(TextView object) {
  requireOpen(object);
  if (!undoing_) return;
  if (sqlite3_get_autocommit(connection_.get()) == 0) {
    const int result = sqlite3_exec(connection_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) raise(result, object);
  }
  undoing_ = false;
}

Statement ShopFile::statement(std::string_view sql, TextView object) {
  requireUsable(object);
  auto found = statements_.find(sql);
  if (found == statements_.end()) {
    sqlite3_stmt* prepared = nullptr;
    const int result =
        sqlite3_prepare_v3(connection_.get(), sql.data(), static_cast<int>(sql.size()),
                           SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
    PreparedStatement owned(prepared);
    if (result != SQLITE_OK) raise(result, object);
    if (statements_.size() >= kMostStatements) {
      std::erase_if(statements_,
                    [](const auto& entry) { return sqlite3_stmt_busy(entry.second.get()) == 0; });
    }
    found = statements_.emplace(std::string(sql), std::move(owned)).first;
  }
  return Statement(*this, found->second.get(), object);
}

Statement ShopFile::writingStatement(std::string_view sql, TextView object) {
  requireUsable(object);
  if (saveUndone()) {
    fail(shop_error::saveLost, object,
         u"The save was undone after a failure. Nothing of it is stored; start it again.");
  }
  return statement(sql, object);
}

void ShopFile::execute(const char* sql, TextView object) {
  requireUsable(object);
  const int result = sqlite3_exec(connection_.get(), sql, nullptr, nullptr, nullptr);
  if (result != SQLITE_OK) raise(result, object);
}

std::int64_t ShopFile::lastRowId() const { return sqlite3_last_insert_rowid(connection_.get()); }

int ShopFile::changedRows() const { return sqlite3_changes(connection_.get()); }

// Some failures (disk full, for one) make SQLite undo the whole transaction by itself. Later writes
// would no longer belong to a save, so they are refused until the save's owner is gone.
bool ShopFile::saveUndone() const {
  return saveOwner_ != nullptr && sqlite3_get_autocommit(connection_.get()) != 0;
}

void ShopFile::beginSave(const void* owner, TextView object) {
  requireUsable(object);
  if (saveOwner_ == owner) return;
  if (saveOwner_ != nullptr) {
    fail(shop_error::locked, object,
         u"Another options record of this program is being saved. Commit or release it first.");
  }
  execute("BEGIN IMMEDIATE", object);
  saveOwner_ = owner;
}

void ShopFile::commitSave(const void* owner, TextView object) {
  requireOpen(object);
  if (saveOwner_ != owner) return;
  writingStatement("COMMIT", object).execute();
  saveOwner_ = nullptr;
}

void ShopFile::abandonSave(const void* owner) noexcept {
  if (saveOwner_ != owner || !connection_) return;
  if (!saveUndone()) sqlite3_exec(connection_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
  undoing_ = sqlite3_get_autocommit(connection_.get()) == 0;
  saveOwner_ = nullptr;
}

void ShopFile::raise(int result, TextView object) const {
  const Text name = u"The shop database '" + path_ + u"' ";
  switch (result & 0xFF) {
    case SQLITE_NOMEM:
      throw std::bad_alloc();
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      fail(shop_error::locked, object,
           name +
               u"is in use by another program. Wait until it has finished, or close it, then "
               u"try again.");
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      fail(shop_error::damaged, object,
           name +
               u"is damaged. Restore it from a backup, or move it away to start with a new "
               u"one.");
    case SQLITE_READONLY:
      fail(shop_error::cannotOpen, object,
           name +
               u"cannot be written. Check that the file is not write-protected and that you "
               u"may write to its folder.");
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      fail(shop_error::cannotOpen, object,
           name + u"cannot be opened. Check that its folder exists and that you may write to it.");
    case SQLITE_FULL:
      fail(shop_error::diskFull, object,
           name + u"cannot grow: the disk is full. Make room, then try again.");
    case SQLITE_IOERR:
      fail(shop_error::storage, object,
           name + u"cannot be read or written. Check the disk or the network connection.");
    default:
      fail(shop_error::storage, object,
           name + u"failed: " + fromUtf8(sqlite3_errmsg(connection_.get())) + u".");
  }
}

}  // namespace tillora::host
