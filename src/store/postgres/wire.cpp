#include "wire.h"

#include <poll.h>
#include <sys/socket.h>

#include <cerrno>
#include <chrono>

#include "connection.h"
#include "ormelix/error.h"

namespace ormelix::detail::postgres {

namespace {

long long NowMs() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

}  // namespace

void Wire::Attach(PGconn* conn, const Server* server, int timeout_ms) {
  conn_ = conn;
  server_ = server;
  timeout_ms_ = timeout_ms;
  pending_.clear();
  // Sends never block: the waits are ours, each bounded by the timeout.
  if (conn_) PQsetnonblocking(conn_, 1);
}

void Wire::Detach() {
  conn_ = nullptr;
  pending_.clear();
}

void Wire::EnterPipeline() {
  if (PQpipelineStatus(conn_) == PQ_PIPELINE_OFF && !PQenterPipelineMode(conn_)) Lost("a pipeline of statements");
}

void Wire::Send(int sent, const char* what) {
  if (!sent) Lost(what);
}

Wire::AnswerPtr Wire::Prepare(const std::string& name, const std::string& text, const std::vector<Oid>& types) {
  EnterPipeline();
  Send(PQsendPrepare(conn_, name.c_str(), text.c_str(), static_cast<int>(types.size()), types.data()), text.c_str());
  return pending_.emplace_back(std::make_shared<Answer>());
}

Wire::AnswerPtr Wire::Run(const std::string& name, const std::vector<const char*>& values, bool binary) {
  EnterPipeline();
  Send(PQsendQueryPrepared(conn_, name.c_str(), static_cast<int>(values.size()), values.data(), nullptr, nullptr,
                           binary ? 1 : 0),
       name.c_str());
  return pending_.emplace_back(std::make_shared<Answer>());
}

Wire::AnswerPtr Wire::RunText(const std::string& text) {
  EnterPipeline();
  Send(PQsendQueryParams(conn_, text.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0), text.c_str());
  return pending_.emplace_back(std::make_shared<Answer>());
}

Wire::AnswerPtr Wire::Describe(const std::string& name) {
  EnterPipeline();
  Send(PQsendDescribePrepared(conn_, name.c_str()), name.c_str());
  return pending_.emplace_back(std::make_shared<Answer>());
}

void Wire::Sync(std::string_view subject, const std::function<void(Answer&)>& answered) {
  if (pending_.empty()) return;
  std::vector<AnswerPtr> answers = std::move(pending_);
  pending_.clear();
  ++round_trips_;
  deadline_ = NowMs() + timeout_ms_;
  if (!PQpipelineSync(conn_)) Lost(subject);
  Flush(subject);
  for (const AnswerPtr& answer : answers) {
    const std::string_view at = answer->subject.empty() ? subject : std::string_view(answer->subject);
    PGresult* result = NextResult(at);
    if (!result) Lost(at);
    // A connection the server ended while it ran this command (an administrator,
    // a restart) says why in this command's result.
    if (PQstatus(conn_) == CONNECTION_BAD) {
      ResultHandle last(result);
      pending_.clear();
      ThrowRefused("the connection to the server failed", at, conn_, last.get(), *server_);
    }
    if (PQresultStatus(result) == PGRES_PIPELINE_ABORTED) {
      answer->skipped = true;
      PQclear(result);
    } else {
      answer->result = ResultHandle(result);
    }
    answer->answered = true;
    // Each command's results end with a null one.
    while ((result = NextResult(at)) != nullptr) PQclear(result);
    if (answered) answered(*answer);
  }
  PGresult* sync = NextResult(subject);
  bool synced = sync && PQresultStatus(sync) == PGRES_PIPELINE_SYNC;
  PQclear(sync);
  if (!synced || !PQexitPipelineMode(conn_)) Lost(subject);
}

void Wire::SendSimple(const std::string& text) {
  Sync(text);
  ++round_trips_;
  deadline_ = NowMs() + timeout_ms_;
  if (!PQsendQuery(conn_, text.c_str())) Lost(text);
  Flush(text);
}

ResultHandle Wire::LastResult(std::string_view subject) {
  ResultHandle kept;
  for (PGresult* result; (result = NextResult(subject)) != nullptr;) {
    if (kept && PQresultStatus(kept.get()) == PGRES_FATAL_ERROR) PQclear(result);
    else kept = ResultHandle(result);
  }
  return kept;
}

ResultHandle Wire::Exec(const std::string& script) {
  SendSimple(script);
  return LastResult(script);
}

ResultHandle Wire::Copy(const std::string& statement, const std::function<bool(std::string& chunk)>& next) {
  SendSimple(statement);
  ResultHandle start(NextResult(statement));
  if (!start || PQresultStatus(start.get()) != PGRES_COPY_IN) {
    Drain();
    return start;
  }
  start.Reset();
  ++round_trips_;
  std::string chunk;
  for (bool more = true; more;) {
    chunk.clear();
    more = next(chunk);
    deadline_ = NowMs() + timeout_ms_;
    for (int put; !chunk.empty() && (put = PQputCopyData(conn_, chunk.data(), static_cast<int>(chunk.size()))) != 1;) {
      if (put < 0) Lost(statement);
      WaitFor(POLLOUT, statement);
    }
  }
  deadline_ = NowMs() + timeout_ms_;
  for (int put; (put = PQputCopyEnd(conn_, nullptr)) != 1;) {
    if (put < 0) Lost(statement);
    WaitFor(POLLOUT, statement);
  }
  Flush(statement);
  return LastResult(statement);
}

void Wire::Push(std::string_view subject) {
  deadline_ = NowMs() + timeout_ms_;
  Flush(subject);
}

void Wire::Flush(std::string_view subject) {
  for (int left; (left = PQflush(conn_)) != 0;) {
    if (left < 0) Lost(subject);
    // The server may answer while we still send: read what it says, so that
    // neither side waits for the other to make room.
    WaitFor(POLLOUT | POLLIN, subject);
    if (!PQconsumeInput(conn_)) Lost(subject);
  }
}

PGresult* Wire::NextResult(std::string_view subject) {
  while (PQisBusy(conn_)) {
    WaitFor(POLLIN, subject);
    if (!PQconsumeInput(conn_)) Lost(subject);
  }
  return PQgetResult(conn_);
}

void Wire::WaitFor(short events, std::string_view subject) {
  pollfd watched{PQsocket(conn_), events, 0};
  if (watched.fd < 0) Lost(subject);
  for (;;) {
    const long long left = deadline_ - NowMs();
    if (left <= 0) TimedOut(subject);
    const int ready = poll(&watched, 1, static_cast<int>(left));
    if (ready > 0) return;
    if (ready == 0) TimedOut(subject);
    if (errno != EINTR) Lost(subject);
  }
}

void Wire::Drain() {
  for (PGresult* result; PQstatus(conn_) == CONNECTION_OK && (result = NextResult("")) != nullptr;) PQclear(result);
}

void Wire::TimedOut(std::string_view subject) {
  // Whatever the server says later is of no use: the connection is closed, and
  // the next statement makes it anew.
  pending_.clear();
  shutdown(PQsocket(conn_), SHUT_RDWR);
  PQconsumeInput(conn_);
  throw StoreError("the server did not answer in time", std::string(subject),
                   "no answer within " + std::to_string(timeout_ms_) + " ms (server " + server_->shown +
                       "); the connection was closed and is made anew for the next statement");
}

void Wire::Lost(std::string_view subject) {
  pending_.clear();
  ThrowRefused("the connection to the server failed", subject, conn_, nullptr, *server_);
}

}  // namespace ormelix::detail::postgres
