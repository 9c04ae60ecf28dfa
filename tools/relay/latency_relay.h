// A TCP relay on 127.0.0.1 that holds back what passes it, each way, by a set
// time: a server one office network away, made of a server on this machine (the
// benchmarks measure the store through it; the tests stop it to see a server
// that never answers). It runs in a thread of its own, from construction to
// destruction.
#pragma once

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

namespace ormelix::relay {

class LatencyRelay {
 public:
  // Relays every connection made to Port() to the server's Unix socket (a path)
  // or to host:port, each byte held back by delay in either direction (0.5 ms by
  // default, half a round trip of a small office network). Throws
  // std::runtime_error when it cannot listen.
  explicit LatencyRelay(std::string target,
                        std::chrono::microseconds delay = std::chrono::microseconds(500));
  ~LatencyRelay();
  LatencyRelay(const LatencyRelay&) = delete;
  LatencyRelay& operator=(const LatencyRelay&) = delete;

  // The port it listens on (picked free at construction).
  int Port() const { return port_; }
  // Held, it passes nothing on (and accepts no new connection): to the programs
  // on either side the network has stopped answering. Let go, it goes on.
  void Hold(bool held) { held_ = held; }

 private:
  void Run();

  std::string target_;
  std::chrono::microseconds delay_;
  int listener_ = -1;
  int wake_[2] = {-1, -1};  // a pipe that ends Run
  int port_ = 0;
  std::atomic<bool> held_{false};
  std::thread thread_;
};

}  // namespace ormelix::relay
