// What one connection says to its server and hears back. Statements go out in
// pipelines: several are sent before the first answer is read, and one Sync waits
// for all their answers, so that a load or a save that needs many statements
// waits for the server once per pipeline instead of once per statement. Every
// wait is bounded by the connection's statement timeout: a server (or a network
// between) that stops answering gives a StoreError, never a hang. Each wait for
// answers counts as one round trip.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "handles.h"

namespace ormelix::detail::postgres {

struct Server;

class Wire {
 public:
  // The answer of one command sent in a pipeline, there after the Sync that sent it.
  struct Answer {
    ResultHandle result;   // the server's result; none for a command it skipped
    bool answered = false;
    bool skipped = false;  // not run: an earlier command of its pipeline failed
    std::string subject;   // the statement it stands for, to name a lost connection by
  };
  using AnswerPtr = std::shared_ptr<Answer>;

  // Works on conn (not owned) with the server's name for messages.
  void Attach(PGconn* conn, const Server* server, int timeout_ms);
  void Detach();

  // Commands of the extended protocol, sent now and answered at the next Sync.
  AnswerPtr Prepare(const std::string& name, const std::string& text, const std::vector<Oid>& types);
  // The result in binary form where binary, else in text form.
  AnswerPtr Run(const std::string& name, const std::vector<const char*>& values, bool binary = false);
  AnswerPtr RunText(const std::string& text);  // a statement without parameters, unprepared
  AnswerPtr Describe(const std::string& name);
  bool Pending() const { return !pending_.empty(); }

  // Waits for the answers of every command sent since the last Sync: one round
  // trip. A lost connection is a StoreError about the command it was lost at (or
  // subject), the statement timeout one about subject; a command the server
  // refused is left in its answer.
  // answered, if given, is called with each answer as it comes (the next is not
  // read before it returns): a caller can take in one result while the server
  // makes the next. It must not use the connection.
  void Sync(std::string_view subject, const std::function<void(Answer&)>& answered = {});

  // A script of the simple protocol (one or more statements), sent after the
  // pending commands are answered, and its last result: one round trip.
  ResultHandle Exec(const std::string& script);

  // COPY FROM STDIN: the statement, then the data as next gives it (a chunk at a
  // time, false at the end), and the end; the result of the end (or of the
  // statement, when the server refused it). Two round trips.
  ResultHandle Copy(const std::string& statement, const std::function<bool(std::string& chunk)>& next);

  // Sends what was sent ahead at once, without waiting for the answers (they are
  // read with the next Sync): the server runs it now.
  void Push(std::string_view subject);

  std::uint64_t RoundTrips() const { return round_trips_; }

 private:
  void Send(int sent, const char* what);
  void EnterPipeline();
  void Flush(std::string_view subject);
  PGresult* NextResult(std::string_view subject);
  void WaitFor(short events, std::string_view subject);
  [[noreturn]] void TimedOut(std::string_view subject);
  [[noreturn]] void Lost(std::string_view subject);
  void Drain();
  // The simple protocol's start: the pending commands answered, then text sent.
  void SendSimple(const std::string& text);
  // As PQexec: the last result, or the first failure (the server runs nothing after it).
  ResultHandle LastResult(std::string_view subject);

  PGconn* conn_ = nullptr;
  const Server* server_ = nullptr;
  int timeout_ms_ = 60000;
  long long deadline_ = 0;  // of the current wait, in steady-clock milliseconds
  std::vector<AnswerPtr> pending_;
  std::uint64_t round_trips_ = 0;
};

}  // namespace ormelix::detail::postgres
