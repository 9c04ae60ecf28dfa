// The store as the domain logic sees it: a StoreConnection that the host opens and
// hands to the session, and the StoreSession it gives out, which runs statements.
// SQL texts are written in the Jet flavour the domain uses and translated once per
// distinct text into the backend's dialect.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "ormelix/store/recordset.h"
#include "ormelix/store/variant.h"

namespace ormelix {

namespace detail {
class Backend;
}

class StoreSession {
 public:
  explicit StoreSession(std::shared_ptr<detail::Backend> backend);
  ~StoreSession();

  // Runs a statement and gives its rows; the recordset stands on the first row,
  // or at EOF when there are none.
  std::unique_ptr<Recordset> OpenRecordset(std::string_view sql, CursorTypeEnum cursor = adOpenForwardOnly,
                                           LockTypeEnum lock = adLockReadOnly);
  // Runs an action statement; the result is the number of rows it touched.
  Variant ExecuteSql(std::string_view sql, bool flag = true);

  bool IsOpen() const;
  // Opens the database again with what StorePath and StoreConnect gave earlier.
  void OpenStore(const std::string& path, const std::string& connect);
  void CloseStore();
  std::string StorePath() const;
  std::string StoreConnect() const;

 private:
  std::shared_ptr<detail::Backend> backend_;
};

class StoreConnection {
 public:
  // Opens an existing store. connect selects the backend: "" or "sqlite" for an
  // SQLite file at path. A missing file or one that is no database is a StoreError.
  static std::shared_ptr<StoreConnection> Open(const std::string& path, const std::string& connect = "");

  explicit StoreConnection(std::shared_ptr<StoreSession> session) : session_(std::move(session)) {}

  StoreSession& Session() const { return *session_; }

 private:
  std::shared_ptr<StoreSession> session_;
};

using StoreConnectionPtr = std::shared_ptr<StoreConnection>;

}  // namespace ormelix
