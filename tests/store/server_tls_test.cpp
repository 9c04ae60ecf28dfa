// A store on a server across a network: the connection encrypted and the server
// verified (sslmode=verify-full, sslrootcert=). A second throwaway server listens
// on 127.0.0.1 for TLS connections only, with a certificate for "localhost" signed
// by a certificate authority the test makes with openssl; the library connects
// with verify-full, and refuses a certificate of another authority and a host name
// the certificate does not name, with a StoreError that says why and never holds
// the password. Runs in the PostgreSQL run only.
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "ormelix/error.h"
#include "ormelix/store/location.h"
#include "support/test_store.h"

using namespace ormelix;

namespace {

constexpr const char* kPassword = "geheim-7731";

// A port no program listens on now.
int FreePort() {
  int fd = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address);
  getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length);
  close(fd);
  return ntohs(address.sin_port);
}

// Runs a shell command; its standard output.
std::string Shell(const std::string& command, int& status) {
  std::string out;
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (!pipe) return out;
  char buffer[512];
  while (std::fgets(buffer, sizeof buffer, pipe)) out += buffer;
  status = pclose(pipe);
  return out;
}

class ServerTls : public ::testing::Test {
 protected:
  static inline std::unique_ptr<test::TempDir> certs;
  static inline std::string server_dir;  // of the TLS server, "" when none runs
  static inline std::string admin;       // its Unix socket, as postgres
  static inline int port = 0;
  static inline std::string why_not;

  static std::string File(const char* name) { return certs->File(name); }

  // A certificate authority of its own, and a key and certificate signed by one.
  static bool MakeCertificates() {
    const std::string sign = "openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj '/CN=";
    int status = 0;
    for (const char* ca : {"ca", "other_ca"}) {
      Shell(sign + ca + "' -keyout " + File(ca) + ".key -out " + File(ca) + ".crt", status);
      if (status != 0) return false;
    }
    std::ofstream(File("san.cnf")) << "subjectAltName=DNS:localhost,IP:127.0.0.1\n";
    Shell("openssl req -newkey rsa:2048 -nodes -subj '/CN=localhost' -keyout " + File("server.key") + " -out " +
            File("server.csr"),
        status);
    if (status != 0) return false;
    Shell("openssl x509 -req -in " + File("server.csr") + " -CA " + File("ca.crt") + " -CAkey " + File("ca.key") +
            " -CAcreateserial -days 2 -extfile " + File("san.cnf") + " -out " + File("server.crt"),
        status);
    return status == 0;
  }

  static void SetUpTestSuite() {
    if (!test::OnPostgres()) return;
    certs = std::make_unique<test::TempDir>();
    if (!MakeCertificates()) {
      why_not = "openssl could not make the certificates";
      return;
    }
    port = FreePort();
    int status = 0;
    const std::string started = Shell(std::string(ORMELIX_SCRATCH_POSTGRES) + " start --tls " + File("server.crt") +
                                        " " + File("server.key") + " " + std::to_string(port),
                                    status);
    if (status != 0) {
      why_not = "the TLS server did not start: " + started;
      return;
    }
    server_dir = started.substr(0, started.find('\n'));
    admin = started.substr(started.find('\n') + 1);
    admin = admin.substr(0, admin.find('\n'));
    test::RunOnServer(admin + " dbname=postgres", "CREATE ROLE tlsuser LOGIN SUPERUSER PASSWORD '" +
                                                      std::string(kPassword) + "'");
  }

  static void TearDownTestSuite() {
    if (!server_dir.empty()) {
      int status = 0;
      Shell(std::string(ORMELIX_SCRATCH_POSTGRES) + " stop " + server_dir, status);
    }
    certs.reset();
  }

  void SetUp() override {
    if (!test::OnPostgres()) GTEST_SKIP() << "a test of the PostgreSQL run";
    if (server_dir.empty()) GTEST_SKIP() << why_not;
  }

  // The TLS server as host names it, verified against the authority's certificate.
  static std::string Location(const std::string& host, const char* root, const std::string& schema) {
    return "host=" + host + " hostaddr=127.0.0.1 port=" + std::to_string(port) + " user=tlsuser password=" +
           kPassword + " dbname=tls sslmode=verify-full sslrootcert=" + File(root) + " schema=" + schema;
  }
  static std::string Refused(const std::string& location) {
    try {
      CreateStore(location, StoreKind::Payroll);
    } catch (const StoreError& e) {
      return e.what();
    }
    ADD_FAILURE() << "a connection that should fail its verification was made";
    return "";
  }
};

TEST_F(ServerTls, VerifyFullConnectsToTheServerItsAuthoritySigned) {
  auto store = CreateStore(Location("localhost", "ca.crt", "verified"), StoreKind::Payroll);
  test::AddRow(store, "Mandanten", {{"Name", "Über TLS"}});
  EXPECT_EQ(test::CountRows(store, "Mandanten"), 1);
  EXPECT_EQ(test::RunOnServer(admin + " dbname=tls",
                              "SELECT count(*) FROM pg_stat_ssl JOIN pg_stat_activity USING (pid) "
                              "WHERE ssl AND usename = 'tlsuser'"),
            "1");  // the library's own connection is encrypted
  EXPECT_EQ(store->Session().StorePath().find(kPassword), std::string::npos);
}

TEST_F(ServerTls, ACertificateOfAnotherAuthorityIsRefusedSayingWhy) {
  const std::string what = Refused(Location("localhost", "other_ca.crt", "other_authority"));
  EXPECT_NE(what.find("cannot open store"), std::string::npos) << what;
  EXPECT_NE(what.find("certificate verify failed"), std::string::npos) << what;
  EXPECT_EQ(what.find(kPassword), std::string::npos) << what;
}

TEST_F(ServerTls, AHostNameTheCertificateDoesNotNameIsRefusedSayingWhy) {
  const std::string what = Refused(Location("db.example", "ca.crt", "other_name"));
  EXPECT_NE(what.find("cannot open store"), std::string::npos) << what;
  EXPECT_NE(what.find("does not match host name \"db.example\""), std::string::npos) << what;
  EXPECT_EQ(what.find(kPassword), std::string::npos) << what;
}

}  // namespace
