// Move-only owners of libpq's C handles; nothing of libpq-fe.h leaves src/store/postgres.
#pragma once

#include <libpq-fe.h>

#include <utility>

namespace ormelix::detail::postgres {

class ConnectionHandle {
 public:
  ConnectionHandle() = default;
  explicit ConnectionHandle(PGconn* conn) : conn_(conn) {}
  ~ConnectionHandle() { Reset(); }
  ConnectionHandle(ConnectionHandle&& other) noexcept : conn_(std::exchange(other.conn_, nullptr)) {}
  ConnectionHandle& operator=(ConnectionHandle&& other) noexcept {
    if (this != &other) {
      Reset();
      conn_ = std::exchange(other.conn_, nullptr);
    }
    return *this;
  }
  ConnectionHandle(const ConnectionHandle&) = delete;
  ConnectionHandle& operator=(const ConnectionHandle&) = delete;

  PGconn* get() const { return conn_; }
  explicit operator bool() const { return conn_ != nullptr; }
  void Reset() {
    if (conn_) PQfinish(conn_);
    conn_ = nullptr;
  }

 private:
  PGconn* conn_ = nullptr;
};

class ResultHandle {
 public:
  ResultHandle() = default;
  explicit ResultHandle(PGresult* result) : result_(result) {}
  ~ResultHandle() {
    if (result_) PQclear(result_);
  }
  ResultHandle(ResultHandle&& other) noexcept : result_(std::exchange(other.result_, nullptr)) {}
  ResultHandle& operator=(ResultHandle&& other) noexcept {
    if (this != &other) {
      if (result_) PQclear(result_);
      result_ = std::exchange(other.result_, nullptr);
    }
    return *this;
  }
  ResultHandle(const ResultHandle&) = delete;
  ResultHandle& operator=(const ResultHandle&) = delete;

  PGresult* get() const { return result_; }
  ExecStatusType Status() const { return result_ ? PQresultStatus(result_) : PGRES_FATAL_ERROR; }

 private:
  PGresult* result_ = nullptr;
};

}  // namespace ormelix::detail::postgres
