#include "host/statement.h"

#include <sqlite3.h>

#include "host/shop_file.h"

namespace tillora::host {

void StatementDeleter::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Statement::Statement(ShopFile& file, sqlite3_stmt* prepared, TextView object)
    : file_(file), prepared_(prepared), object_(object) {}

Statement::~Statement() {
  sqlite3_reset(prepared_);
  sqlite3_clear_bindings(prepared_);
}

void Statement::check(int result) {
  if (result != SQLITE_OK) file_.raise(result, object_);
}

void Statement::bind(int parameter, std::int64_t number) {
  check(sqlite3_bind_int64(prepared_, parameter, number));
}

void Statement::bind(int parameter, double number) {
  check(sqlite3_bind_double(prepared_, parameter, number));
}

void Statement::bind(int parameter, TextView text) {
  // SQLite strips a leading byte order mark, so a text that begins with one gets a second one.
  constexpr char16_t kMark = 0xFEFF;
  constexpr char16_t kSwappedMark = 0xFFFE;
  if (!text.empty() && (text.front() == kMark || text.front() == kSwappedMark)) {
    Text marked(1, kMark);
    marked += text;
    check(sqlite3_bind_text64(prepared_, parameter, reinterpret_cast<const char*>(marked.data()),
                              marked.size() * sizeof(char16_t), SQLITE_TRANSIENT, SQLITE_UTF16));
    return;
  }
  // A null pointer would bind no value instead of an empty text.
  const char16_t* const data = text.empty() ? u"" : text.data();
  check(sqlite3_bind_text64(prepared_, parameter, reinterpret_cast<const char*>(data),
                            text.size() * sizeof(char16_t), SQLITE_TRANSIENT, SQLITE_UTF16));
}

void Statement::bindNull(int parameter) { check(sqlite3_bind_null(prepared_, parameter)); }

bool Statement::step() {
  const int result = sqlite3_step(prepared_);
  if (result == SQLITE_ROW) return true;
  if (result != SQLITE_DONE) file_.raise(result, object_);
  return false;
}

bool Statement::isNull(int column) const {
  return sqlite3_column_type(prepared_, column) == SQLITE_NULL;
}

bool Statement::isText(int column) const {
  return sqlite3_column_type(prepared_, column) == SQLITE_TEXT;
}

std::int64_t Statement::integer(int column) const {
  return sqlite3_column_int64(prepared_, column);
}

double Statement::real(int column) const { return sqlite3_column_double(prepared_, column); }

Text Statement::text(int column) const {
  if (isNull(column)) return {};
  const void* const data = sqlite3_column_text16(prepared_, column);
  // Even an empty text has an address, unless there was no memory to convert it.
  if (data == nullptr) file_.raise(SQLITE_NOMEM, object_);
  const int bytes = sqlite3_column_bytes16(prepared_, column);
  return Text(static_cast<const char16_t*>(data),
              static_cast<std::size_t>(bytes) / sizeof(char16_t));
}

}  // namespace tillora::host
