#include "private_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "ormelix/error.h"

namespace ormelix::detail {

void CreatePrivateFile(const std::string& path) {
  int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, kPrivateFileMode);
  if (fd < 0) {
    int error = errno;
    throw StoreError("cannot create the file", path,
                     error == EEXIST ? "the file exists already" : std::strerror(error), error);
  }
  // The umask may have taken bits of the mode away (a umask of 0277 takes the
  // owner's write): the mode is set as it is meant to be.
  int rc = ::fchmod(fd, kPrivateFileMode);
  int error = errno;
  ::close(fd);
  if (rc != 0) {
    ::unlink(path.c_str());
    throw StoreError("cannot make the file private", path, std::strerror(error), error);
  }
}

}  // namespace ormelix::detail
