// Pay months saved by other processes: two hosts saving the same new months at
// once give one row each, and a host killed in the middle of its saves leaves a
// sound store with every save it had acknowledged.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <map>
#include <random>
#include <sstream>
#include <thread>
#include <vector>

#include "employee_fixture.h"
#include "support/raw_store.h"

using namespace ormelix;

namespace {

using Clock = std::chrono::steady_clock;

std::int64_t Now() {
  return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now().time_since_epoch()).count();
}

// Runs the body in a child process, which ends without running the parent's
// destructors (the parent's connections are not the child's to close).
pid_t Spawn(const std::function<void()>& body) {
  pid_t pid = fork();
  if (pid != 0) return pid;
  int status = 0;
  try {
    body();
  } catch (const std::exception& e) {
    std::fprintf(stderr, "child %d: %s\n", getpid(), e.what());
    status = 1;
  }
  _exit(status);
}

int Wait(pid_t pid) {
  int status = 0;
  waitpid(pid, &status, 0);
  return status;
}

// The pay month of save number i: consecutive saves go to different months.
struct Month {
  std::int16_t year, month;
  std::int32_t Zeitraum() const { return year * 100 + month; }
};
Month MonthOf(int i, int months) {
  int m = i % months;
  return {static_cast<std::int16_t>(2001 + m / 12), static_cast<std::int16_t>(m % 12 + 1)};
}

class ConcurrentSaveTest : public test::EmployeeTest {
 protected:
  std::string employee = AddEmployee("Parallel", 7);
  std::string path = db->Session().StorePath();

  // A host of its own: a connection, a session and the employee loaded.
  struct Host {
    ManagerPtr session;
    std::shared_ptr<LLohn> lohn;
  };
  Host OpenHost() {
    Host host;
    host.session = OpenSession(StoreConnection::Open(path, "busy_timeout=20000"), 2001);
    host.lohn = Loaded(host.session, employee);
    return host;
  }
  static void Save(Host& host, const Month& month, float gehalt) {
    host.session->AktJahr = month.year;
    host.lohn->Gehalt(month.month) = gehalt;
    host.lohn->Update(*host.session, ucTableLohnzettel, month.month);
  }

  // Zeitraum -> Gehalt of every stored pay row, and the number of rows per month.
  std::map<std::int32_t, std::vector<double>> StoredMonths() {
    std::map<std::int32_t, std::vector<double>> rows;
    auto rs = StoreConnection::Open(path)->Session().OpenRecordset(
        "SELECT [Zeitraum], [Gehalt] FROM [Mitarbeiter_Lohnzettel] WHERE [MitarbeiterID]=" +
        ValueHelpers::SqlID(employee));
    for (; !rs->Eof(); rs->MoveNext())
      rows[ValueHelpers::ToLong(rs->Fields("Zeitraum"))].push_back(ValueHelpers::ToAmount(rs->Fields("Gehalt")));
    return rows;
  }
};

struct Ack {
  std::int32_t zeitraum;
  double gehalt;
  std::int64_t started, acknowledged;
};

TEST_F(ConcurrentSaveTest, TwoHostsSavingTheSameNewMonthsGiveOneRowEachAndTheLaterSaveWins) {
  constexpr int kSaves = 120;
  // Both hosts save month i at the same moment, a slot of 400 microseconds each.
  const std::int64_t start = Now() + 150000;
  std::vector<pid_t> hosts;
  for (int number = 1; number <= 2; ++number) {
    hosts.push_back(Spawn([&, number] {
      Host host = OpenHost();
      std::ofstream log(dir.File("acks" + std::to_string(number)));
      for (int i = 0; i < kSaves; ++i) {
        Month month = MonthOf(i, kSaves);  // every save a new month, the same for both hosts
        float gehalt = static_cast<float>(number * 1000 + i);
        std::this_thread::sleep_for(std::chrono::microseconds(start + i * 400 - Now()));
        std::int64_t started = Now();
        Save(host, month, gehalt);
        log << month.Zeitraum() << ' ' << gehalt << ' ' << started << ' ' << Now() << '\n' << std::flush;
      }
    }));
  }
  for (pid_t pid : hosts) ASSERT_EQ(Wait(pid), 0) << "a host failed; see its message above";

  std::map<std::int32_t, std::vector<Ack>> acks;
  for (int number = 1; number <= 2; ++number) {
    std::ifstream log(dir.File("acks" + std::to_string(number)));
    for (Ack ack; log >> ack.zeitraum >> ack.gehalt >> ack.started >> ack.acknowledged;)
      acks[ack.zeitraum].push_back(ack);
  }
  auto stored = StoredMonths();
  ASSERT_EQ(stored.size(), static_cast<std::size_t>(kSaves));
  for (const auto& [zeitraum, values] : stored) {
    ASSERT_EQ(values.size(), 1u) << zeitraum << ": one row per month";
    ASSERT_EQ(acks[zeitraum].size(), 2u) << zeitraum;
    const Ack* winner = nullptr;
    for (const Ack& ack : acks[zeitraum])
      if (ack.gehalt == values[0]) winner = &ack;
    ASSERT_NE(winner, nullptr) << zeitraum << ": the stored value " << values[0] << " was acknowledged";
    // The other save was overwritten by the winner: it cannot have begun only
    // after the winner had been acknowledged.
    for (const Ack& ack : acks[zeitraum])
      EXPECT_LE(ack.started, winner->acknowledged) << zeitraum << ": the save of " << ack.gehalt << " was lost";
  }
}

TEST_F(ConcurrentSaveTest, AHostKilledWhileSavingLeavesASoundStoreWithEverySaveItAcknowledged) {
  constexpr int kMonths = 18;
  std::mt19937 random(std::random_device{}());
  std::map<std::int32_t, double> acknowledged;  // the last acknowledged value per month
  for (int round = 0; round < 20; ++round) {
    int acks[2];
    ASSERT_EQ(pipe(acks), 0);
    pid_t host_pid = Spawn([&] {
      close(acks[0]);
      Host host = OpenHost();
      for (int i = 0;; ++i) {
        Month month = MonthOf(i, kMonths);
        float gehalt = static_cast<float>(round * 10000 + i);
        Save(host, month, gehalt);
        std::string line = std::to_string(month.Zeitraum()) + ' ' + std::to_string(static_cast<long>(gehalt)) + '\n';
        if (write(acks[1], line.data(), line.size()) < 0) return;
      }
    });
    close(acks[1]);
    // The moment counts from the host's first acknowledged save, however long its
    // start takes (a sanitized build on a busy machine takes long).
    std::string said;
    char buffer[4096];
    for (ssize_t n; said.find('\n') == std::string::npos && (n = read(acks[0], buffer, sizeof buffer)) > 0;)
      said.append(buffer, static_cast<std::size_t>(n));
    std::this_thread::sleep_for(std::chrono::milliseconds(std::uniform_int_distribution<int>(1, 40)(random)));
    kill(host_pid, SIGKILL);
    Wait(host_pid);
    for (ssize_t n; (n = read(acks[0], buffer, sizeof buffer)) > 0;) said.append(buffer, static_cast<std::size_t>(n));
    close(acks[0]);
    std::istringstream lines(said);
    std::int32_t zeitraum = 0;
    long gehalt = 0;
    std::pair<std::int32_t, long> last{0, 0};
    while (lines >> zeitraum >> gehalt) {
      acknowledged[zeitraum] = static_cast<double>(gehalt);
      last = {zeitraum, gehalt};
    }

    if (!test::OnPostgres()) {  // the server keeps its own files sound
      EXPECT_EQ(test::RawConnection(path).Text("PRAGMA integrity_check"), "ok") << "round " << round;
    }
    auto stored = StoredMonths();
    for (const auto& [month, values] : stored) ASSERT_EQ(values.size(), 1u) << "round " << round << ", " << month;
    for (const auto& [month, value] : acknowledged) {
      ASSERT_EQ(stored.count(month), 1u) << "round " << round << ": the acknowledged month " << month << " is gone";
      EXPECT_GE(stored[month][0], value) << "round " << round << ", " << month;  // that value or a later one
    }
    if (last.first) {
      EXPECT_EQ(stored[last.first][0], static_cast<double>(last.second)) << "round " << round;
    }
    Host reader = OpenHost();  // the library loads the employee from the store as it was left
    for (const auto& [month, values] : stored) {
      if (month / 100 != 2001) continue;  // the host's year
      EXPECT_EQ(reader.lohn->Gehalt(month % 100), static_cast<float>(values[0])) << month;
    }
  }
  EXPECT_FALSE(acknowledged.empty());
}

}  // namespace
