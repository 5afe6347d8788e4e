// A library for LD_PRELOAD, used when the program shows its windows over VNC: Qt's VNC server would
// listen on every address of the machine, without a password. This bind() replaces "any address" by
// the loopback address.
#include <arpa/inet.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

extern "C" int bind(int socket, const sockaddr* address, socklen_t length) noexcept {
  union {
    sockaddr_storage any;
    sockaddr_in v4;
    sockaddr_in6 v6;
  } copy{};
  std::memcpy(&copy, address, std::min<std::size_t>(length, sizeof copy));
  if (copy.any.ss_family == AF_INET && copy.v4.sin_addr.s_addr == htonl(INADDR_ANY))
    copy.v4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  // As an IPv4-mapped address, because the socket serves both families.
  if (copy.any.ss_family == AF_INET6 && IN6_IS_ADDR_UNSPECIFIED(&copy.v6.sin6_addr))
    inet_pton(AF_INET6, "::ffff:127.0.0.1", &copy.v6.sin6_addr);
  return static_cast<int>(syscall(SYS_bind, socket, &copy, length));
}
