// A library for LD_PRELOAD, used when the program shows its windows over VNC: Qt's VNC server would
// listen on every address of the machine, without a password. This bind() replaces "any address" by
// the loopback address.
#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstring>

extern "C" int bind(int socket, const sockaddr* address, socklen_t length) noexcept {
  using Bind = int (*)(int, const sockaddr*, socklen_t);
  static const Bind realBind = reinterpret_cast<Bind>(dlsym(RTLD_NEXT, "bind"));
  if (address->sa_family == AF_INET && length >= sizeof(sockaddr_in)) {
    sockaddr_in v4{};
    std::memcpy(&v4, address, sizeof v4);
    if (v4.sin_addr.s_addr == htonl(INADDR_ANY)) v4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return realBind(socket, reinterpret_cast<const sockaddr*>(&v4), sizeof v4);
  }
  if (address->sa_family == AF_INET6 && length >= sizeof(sockaddr_in6)) {
    sockaddr_in6 v6{};
    std::memcpy(&v6, address, sizeof v6);
    // 127.0.0.1 as an IPv4-mapped address, because the socket serves both families.
    constexpr unsigned char kLoopback[16] = {0, 0, 0,    0,    0,   0, 0, 0,
                                             0, 0, 0xFF, 0xFF, 127, 0, 0, 1};
    if (IN6_IS_ADDR_UNSPECIFIED(&v6.sin6_addr)) std::memcpy(&v6.sin6_addr, kLoopback, 16);
    return realBind(socket, reinterpret_cast<const sockaddr*>(&v6), sizeof v6);
  }
  return realBind(socket, address, length);
}
