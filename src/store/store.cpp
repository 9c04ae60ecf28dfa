#include "ormelix/store/store.h"

#include "backend.h"
#include "ormelix/error.h"
#include "ormelix/text.h"

namespace ormelix {

StoreSession::StoreSession(std::shared_ptr<detail::Backend> backend) : backend_(std::move(backend)) {}

StoreSession::~StoreSession() = default;

std::unique_ptr<Recordset> StoreSession::OpenRecordset(std::string_view sql, CursorTypeEnum cursor, LockTypeEnum lock) {
  if (!backend_->IsOpen()) throw StoreError("the store is closed", std::string(sql));
  return std::make_unique<Recordset>(backend_, std::string(sql), cursor, lock);
}

Variant StoreSession::ExecuteSql(std::string_view sql, bool) {
  if (!backend_->IsOpen()) throw StoreError("the store is closed", std::string(sql));
  return Variant(static_cast<std::int64_t>(backend_->Execute(sql)));
}

bool StoreSession::IsOpen() const { return backend_->IsOpen(); }

void StoreSession::OpenStore(const std::string& path, const std::string& connect) { backend_->Open(path, connect); }

void StoreSession::CloseStore() { backend_->Close(); }

std::string StoreSession::StorePath() const { return backend_->Path(); }

std::string StoreSession::StoreConnect() const { return backend_->Connect(); }

std::shared_ptr<StoreConnection> StoreConnection::Open(const std::string& path, const std::string& connect) {
  auto backend = detail::MakeBackend(connect, path);
  backend->Open(path, connect);
  return std::make_shared<StoreConnection>(std::make_shared<StoreSession>(std::move(backend)));
}

}  // namespace ormelix
