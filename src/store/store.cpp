#include "ormelix/store/store.h"

#include "backend.h"
#include "read_ahead.h"
#include "ormelix/error.h"
#include "ormelix/text.h"

namespace ormelix {

namespace detail {
std::shared_ptr<Backend> BackendOf(const StoreSession& session) { return session.backend_; }
std::uint64_t RoundTrips(const StoreSession& session) { return session.backend_->RoundTrips(); }
void ExecuteAhead(StoreSession& session, std::string_view sql) {
  if (!session.backend_->IsOpen()) throw StoreError("the store is closed", std::string(sql));
  session.DropReadRows();
  session.backend_->ExecuteAhead(sql);
}
}  // namespace detail

StoreSession::StoreSession(std::shared_ptr<detail::Backend> backend)
    : backend_(std::move(backend)), ahead_rows_(std::make_unique<detail::ReadAheadRows>()) {}

StoreSession::~StoreSession() = default;

void StoreSession::DropReadRows() {
  shared_rows_.clear();
  ahead_rows_->Clear();
}

std::unique_ptr<Recordset> StoreSession::OpenRecordset(std::string_view sql, CursorTypeEnum cursor, LockTypeEnum lock) {
  if (!backend_->IsOpen()) throw StoreError("the store is closed", std::string(sql));
  std::string text(sql);
  if (!ahead_rows_->Empty() && lock == adLockReadOnly) {
    // Taken once: asked again, the statement runs.
    if (std::shared_ptr<detail::RowSet> rows = ahead_rows_->Take(text))
      return std::make_unique<Recordset>(backend_, std::move(text), std::move(rows));
  }
  if (shared_depth_ == 0 && ahead_rows_->Empty())
    return std::make_unique<Recordset>(backend_, std::move(text), cursor, lock);
  if (lock != adLockReadOnly) {
    DropReadRows();  // writes may follow: what was read is read afresh after them
    return std::make_unique<Recordset>(backend_, std::move(text), cursor, lock);
  }
  if (shared_depth_ == 0) return std::make_unique<Recordset>(backend_, std::move(text), cursor, lock);
  if (auto found = shared_rows_.find(text); found != shared_rows_.end())
    return std::make_unique<Recordset>(backend_, std::move(text), found->second);
  auto recordset = std::make_unique<Recordset>(backend_, text, cursor, lock);
  shared_rows_.emplace(std::move(text), recordset->ShareRows());
  return recordset;
}

Variant StoreSession::ExecuteSql(std::string_view sql, bool) {
  if (!backend_->IsOpen()) throw StoreError("the store is closed", std::string(sql));
  DropReadRows();
  return Variant(static_cast<std::int64_t>(backend_->Execute(sql)));
}

bool StoreSession::IsOpen() const { return backend_->IsOpen(); }

void StoreSession::OpenStore(const std::string& path, const std::string& connect) {
  write_depth_ = 0;
  DropReadRows();
  backend_->Open(path, connect);
}

void StoreSession::CloseStore() {
  write_depth_ = 0;  // closing drops an open transaction
  DropReadRows();
  backend_->Close();
}

std::string StoreSession::StorePath() const { return backend_->Path(); }

std::string StoreSession::StoreConnect() const { return backend_->Connect(); }

StoreWriteTransaction::StoreWriteTransaction(StoreSession& session, OnUnwind on_unwind, Locking locking)
    : session_(session), on_unwind_(on_unwind) {
  if (!session_.backend_->IsOpen()) throw StoreError("the store is closed", "write transaction");
  outermost_ = session_.write_depth_ == 0;
  session_.DropReadRows();  // reads after the writes read afresh
  if (outermost_) session_.backend_->BeginWrite({locking == LockAtOnce, on_unwind == KeepWritten});
  ++session_.write_depth_;
}

StoreWriteTransaction::~StoreWriteTransaction() {
  if (!open_) return;
  if (session_.write_depth_ > 0) --session_.write_depth_;
  if (!outermost_) return;
  // Unwinding already carries the failure that matters: what goes wrong here is
  // not raised. A store that can do neither drops the transaction when its
  // connection closes.
  if (on_unwind_ == KeepWritten) {
    try {
      session_.backend_->CommitWrite();
      return;
    } catch (...) {
    }
  }
  try {
    session_.backend_->RollbackWrite();
  } catch (...) {
  }
}

void StoreWriteTransaction::Commit() {
  if (!open_) return;
  open_ = false;
  if (session_.write_depth_ > 0) --session_.write_depth_;
  if (!outermost_) return;
  try {
    session_.backend_->CommitWrite();
  } catch (...) {
    try {
      session_.backend_->RollbackWrite();
    } catch (...) {
    }
    throw;
  }
}

StoreSharedReads::StoreSharedReads(StoreSession* session) : snapshot_(session), session_(session) {
  if (session_ && session_->backend_->IsOpen()) ++session_->shared_depth_;
  else session_ = nullptr;
}

StoreSharedReads::~StoreSharedReads() {
  if (!session_) return;
  if (session_->shared_depth_ > 0 && --session_->shared_depth_ == 0) session_->shared_rows_.clear();
}

StoreReadSnapshot::StoreReadSnapshot(StoreSession* session) : session_(session) {
  if (!session_ || !session_->backend_->IsOpen()) {
    session_ = nullptr;
    return;
  }
  outermost_ = session_->read_depth_ == 0;
  if (outermost_) session_->backend_->BeginRead();
  ++session_->read_depth_;
}

StoreReadSnapshot::~StoreReadSnapshot() {
  if (!session_) return;
  if (session_->read_depth_ > 0) --session_->read_depth_;
  if (!outermost_) return;
  // Nothing was written under the snapshot itself; a failure to end it loses
  // nothing, and the connection ends it when it closes.
  try {
    session_->backend_->EndRead();
  } catch (...) {
  }
}

std::shared_ptr<StoreConnection> StoreConnection::Open(const std::string& path, const std::string& connect) {
  auto backend = detail::MakeBackend(connect, path);
  backend->Open(path, connect);
  return std::make_shared<StoreConnection>(std::make_shared<StoreSession>(std::move(backend)));
}

}  // namespace ormelix
