#include "latency_relay.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <deque>
#include <list>
#include <stdexcept>
#include <vector>

namespace ormelix::relay {

namespace {

using Clock = std::chrono::steady_clock;

void NonBlocking(int fd) { fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) | O_NONBLOCK); }

// A connection to the target: a Unix socket path, or host:port.
int ConnectTo(const std::string& target) {
  if (!target.empty() && target[0] == '/') {
    int fd = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, target.c_str(), sizeof address.sun_path - 1);
    if (fd >= 0 && connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) return fd;
    if (fd >= 0) close(fd);
    return -1;
  }
  const std::size_t colon = target.rfind(':');
  int fd = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(std::stoi(target.substr(colon + 1))));
  inet_pton(AF_INET, target.substr(0, colon).c_str(), &address.sin_addr);
  if (fd >= 0 && connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) {
    int on = 1;
    setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return fd;
  }
  if (fd >= 0) close(fd);
  return -1;
}

// What one side sent, held until it is due at the other.
struct Chunk {
  Clock::time_point due;
  std::string bytes;
  std::size_t sent = 0;
};

// One direction of a relayed connection.
struct Direction {
  int from = -1;
  int to = -1;
  std::deque<Chunk> held;
  bool closed = false;  // from has ended: close to once held is passed on
};

struct Pair {
  Direction up;    // client to server
  Direction down;  // server to client
  bool done = false;
};

}  // namespace

LatencyRelay::LatencyRelay(std::string target, std::chrono::microseconds delay)
    : target_(std::move(target)), delay_(delay) {
  listener_ = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  if (listener_ < 0 || bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
      listen(listener_, 64) != 0 || getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &length) != 0 ||
      pipe(wake_) != 0)
    throw std::runtime_error(std::string("the latency relay cannot listen: ") + std::strerror(errno));
  port_ = ntohs(address.sin_port);
  NonBlocking(listener_);
  thread_ = std::thread([this] { Run(); });
}

LatencyRelay::~LatencyRelay() {
  if (write(wake_[1], "x", 1) != 1) {
  }
  thread_.join();
  close(listener_);
  close(wake_[0]);
  close(wake_[1]);
}

void LatencyRelay::Run() {
  std::list<Pair> pairs;
  std::vector<char> buffer(1 << 16);
  for (;;) {
    const Clock::time_point now = Clock::now();
    const bool held = held_;
    // Pass on what is due; note when the next is.
    Clock::time_point next = now + std::chrono::milliseconds(50);
    for (Pair& pair : pairs) {
      for (Direction* way : {&pair.up, &pair.down}) {
        while (!held && !way->held.empty() && way->held.front().due <= now) {
          Chunk& chunk = way->held.front();
          const ssize_t wrote = send(way->to, chunk.bytes.data() + chunk.sent, chunk.bytes.size() - chunk.sent, MSG_NOSIGNAL);
          if (wrote < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) break;
          if (wrote < 0) {
            pair.done = true;
            break;
          }
          chunk.sent += static_cast<std::size_t>(wrote);
          if (chunk.sent == chunk.bytes.size()) way->held.pop_front();
        }
        if (!way->held.empty()) next = std::min(next, std::max(way->held.front().due, now));
        if (way->closed && way->held.empty()) pair.done = true;
      }
    }
    pairs.remove_if([](const Pair& pair) {
      if (!pair.done) return false;
      close(pair.up.from);
      close(pair.down.from);
      return true;
    });
    // Wait for data, a new connection, the end, or the next due chunk.
    std::vector<pollfd> watched{{wake_[0], POLLIN, 0}, {listener_, static_cast<short>(held ? 0 : POLLIN), 0}};
    for (Pair& pair : pairs) {
      for (Direction* way : {&pair.up, &pair.down}) {
        if (!way->closed && !held) watched.push_back({way->from, POLLIN, 0});
        // A chunk due and not passed on: the other side had no room for it.
        if (!held && !way->held.empty() && way->held.front().due <= now) watched.push_back({way->to, POLLOUT, 0});
      }
    }
    const auto wait = std::chrono::duration_cast<std::chrono::nanoseconds>(next - now);
    timespec timeout{static_cast<time_t>(wait.count() / 1000000000), static_cast<long>(wait.count() % 1000000000)};
    if (ppoll(watched.data(), watched.size(), &timeout, nullptr) < 0 && errno != EINTR) return;
    if (watched[0].revents) return;
    if (watched[1].revents & POLLIN) {
      for (int client; (client = accept(listener_, nullptr, nullptr)) >= 0;) {
        int server = ConnectTo(target_);
        if (server < 0) {
          close(client);
          continue;
        }
        int on = 1;
        setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        NonBlocking(client);
        NonBlocking(server);
        Pair& pair = pairs.emplace_back();
        pair.up.from = pair.down.to = client;
        pair.down.from = pair.up.to = server;
      }
    }
    // Take in what arrived, due after the delay.
    const Clock::time_point arrived = Clock::now();
    for (Pair& pair : pairs) {
      for (Direction* way : {&pair.up, &pair.down}) {
        if (way->closed || held) continue;
        const ssize_t got = recv(way->from, buffer.data(), buffer.size(), MSG_DONTWAIT);
        if (got > 0) way->held.push_back({arrived + delay_, std::string(buffer.data(), static_cast<std::size_t>(got))});
        else if (got == 0 || (errno != EAGAIN && errno != EWOULDBLOCK)) way->closed = true;
      }
    }
  }
}

}  // namespace ormelix::relay
